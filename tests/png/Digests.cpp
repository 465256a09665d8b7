// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// Decodes pictures of every kind, whole and damaged, and prints for each what came of it: a
// checksum of the pixels as they are drawn, the code of a refusal, or that there was an error. The
// output has to be the same for every processor: see scripts/other-processors.

#include "png/EveryKind.h"
#include "png/cPNG.h"

#include <cstdio>
#include <exception>
#include <random>

namespace editor {
namespace {

const std::filesystem::path File = std::filesystem::temp_directory_path() / "digests.png";

std::string Outcome(const Bytes& file) {
    WriteFile(File, file);
    try {
        cPNG png;
        const std::int32_t code = png.LoadPNGFile(File);
        if (code != 0) {
            return "refused with " + std::to_string(code);
        }
        DrawingSurface surface(png.Width(), png.Height());
        png.DrawToDC(surface, 0, 0);
        Bytes drawn;
        for (std::int32_t y = 0; y < surface.height(); ++y) {
            for (std::int32_t x = 0; x < surface.width(); ++x) {
                const Bytes pixel = BigEndian(surface.row(y)[x]);
                drawn.insert(drawn.end(), pixel.begin(), pixel.end());
            }
        }
        return std::to_string(crc32(0, drawn.data(), static_cast<uInt>(drawn.size())));
    } catch (const std::exception&) {
        return "error";
    }
}

void Print() {
    std::mt19937 random(1);
    for (const Kind& kind : EveryKind) {
        for (const std::int32_t width : {1, 2, 3, 8, 17, 61}) {
            for (const Bytes& filters : FilterSequences) {
                const Bytes file = NoisePng(kind, width, 29, filters);
                std::printf("%d-bit type %d, %d wide: %s\n", kind.depth, kind.type, width,
                            Outcome(file).c_str());
                for (int i = 0; i < 8; ++i) {
                    std::size_t place = random() % (i < 4 ? 60 : file.size());
                    const bool hugeSize = place / 4 == 4 || place / 4 == 5; // width or height
                    place += hugeSize && place % 4 < 2 ? 2 : 0;
                    Bytes damaged = file;
                    damaged[place] = static_cast<std::uint8_t>(random() >> 8);
                    std::printf("%s\n", Outcome(damaged).c_str());
                }
            }
        }
    }
}

} // namespace
} // namespace editor

int main() {
    editor::Print();
    return 0;
}
