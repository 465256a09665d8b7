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
    const HeaderRec colour = {9, 6, 8, Truecolour};
    const HeaderRec indexed = {9, 6, 4, PaletteIndex};
    HeaderRec interlaced = colour;
    interlaced.Interlace = 1;
    const Bytes pixels = NoiseRows(colour, 1);
    const Bytes between =
        Join({Chunk("PLTE", Noise(48, 2)), Chunk("tRNS", {0, 128, 255}), Chunk("bKGD", {1})});
    WriteFile(folder / "colour.png", PngOf(colour, pixels, Chunk("teXt", {1, 2, 3})));
    WriteFile(folder / "palette.png", PngOf(indexed, NoiseRows(indexed, 3), between));
    WriteFile(folder / "interlaced.png", PngOf(interlaced, pixels));
    WriteFile(folder / "whole.png",
              Join({Signature, IHDR(colour), Chunk("IDAT", Deflated(pixels)), Chunk("IEND")}));
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
        const Bytes rest = Noise(800, kind);
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
