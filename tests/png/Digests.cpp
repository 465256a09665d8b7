// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// Decodes pictures of every kind, whole and damaged, and prints for each what came of it: a
// checksum of the pixels as they are drawn, the code of a refusal, or that there was an error. The
// output has to be the same for every processor: see scripts/other-processors.

#include "png/EveryKind.h"
#include "png/Reading.h"

#include <cstdio>
#include <random>

namespace editor {
namespace {

std::string Outcome(const Bytes& bytes) {
    const auto file = std::filesystem::temp_directory_path() / "digests.png";
    WriteFile(file, bytes);
    std::string outcome = OutcomeOf(file);
    std::uint32_t sum = 1;
    if (!mdlPNG.PngImage.Pixels.empty()) {
        for (const std::uint32_t pixel : Drawn()) {
            sum = sum * 16777619U ^ pixel;
        }
    }
    return outcome + ' ' + std::to_string(sum);
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
