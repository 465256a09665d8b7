// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// seeds_png FOLDER: the first inputs for the decoder's fuzz target.

#include "PngRecipe.h"
#include "support/PngBuilder.h"

#include <cstring>
#include <string>

namespace editor {
namespace {

void WriteFiles(const std::filesystem::path& folder) {
    const HeaderRec colour = Header(9, 6, 8, Truecolour);
    const HeaderRec indexed = Header(9, 6, 4, PaletteIndex);
    HeaderRec interlaced = colour;
    interlaced.Interlace = 1;
    const Bytes all = {0, 1, 2, 3, 4, 4};
    const Bytes pixels = Filtered(colour, NoiseRows(colour, 1), all);
    const Bytes palette = Chunk("PLTE", NoiseRows(Header(48, 1, 8, Greyscale), 2));
    WriteFile(folder / "colour.png", PngOf(colour, pixels, Chunk("teXt", {1, 2, 3})));
    WriteFile(folder / "palette.png",
              PngOf(indexed, Filtered(indexed, NoiseRows(indexed, 3), all),
                    Join({palette, Chunk("tRNS", {0, 128, 255}), Chunk("bKGD", {1})})));
    WriteFile(folder / "interlaced.png", PngOf(interlaced, pixels));
    const Bytes stream = Deflated(pixels);
    const auto half = stream.begin() + static_cast<std::ptrdiff_t>(stream.size() / 2);
    WriteFile(folder / "split.png",
              Join({Signature(), IHDR(colour), Chunk("IDAT", {stream.begin(), half}),
                    Chunk("IDAT", {half, stream.end()}), IEND()}));
}

void WriteRecipes(const std::filesystem::path& folder) {
    constexpr std::uint8_t Kinds = 15;
    for (std::uint8_t kind = 0; kind < Kinds; ++kind) {
        const PngRecipe recipe = {.kind = kind,
                                  .width = 11,
                                  .height = 9,
                                  .paletteEntries =
                                      static_cast<std::uint8_t>(kind > 4 && kind < 11 ? 2 : 0),
                                  .alphas = static_cast<std::uint8_t>(kind < 11 ? 2 : 0),
                                  .idatBytes = 0,
                                  .x = -2,
                                  .y = 3};
        Bytes bytes(sizeof recipe);
        std::memcpy(bytes.data(), &recipe, sizeof recipe);
        const Bytes rest = NoiseRows(Header(800, 1, 8, Greyscale), kind);
        WriteFile(folder / ("recipe-" + std::to_string(kind)), Join({bytes, rest}));
    }
}

} // namespace
} // namespace editor

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    editor::WriteFiles(argv[1]);
    editor::WriteRecipes(argv[1]);
    return 0;
}
