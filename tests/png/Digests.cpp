// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// Decodes pictures of every kind, whole and damaged, and prints for each what came of it and a
// checksum of the pixels that are drawn then. The output has to be the same for every processor:
// see scripts/other-processors.

#include "png/EveryKind.h"

#include <cstdio>
#include <random>

int main() {
    using namespace editor;
    std::mt19937 random(1);
    for (const Kind& kind : EveryKind) {
        for (std::int32_t width = 1; width < 62; ++width) {
            for (int i = 0; i < 9; ++i) {
                Bytes file = NoisePng(kind, width, 29);
                const std::size_t place = random() % (i < 5 ? 60 : file.size());
                file[place] ^= static_cast<std::uint8_t>(i == 0 ? 0 : random() >> 8);
                const std::string outcome = Load(file, {.MaximumSide = 0xffff});
                std::uint32_t sum = 1;
                if (outcome == "accepted" && !mdlPNG.PngImage.Pixels.empty()) {
                    for (const std::uint32_t pixel : Drawn(cPNG().Width(), cPNG().Height())) {
                        sum = sum * 16777619U ^ pixel;
                    }
                }
                std::printf("%d-bit type %d, %d wide: %s, %lu\n", kind.depth, kind.type, width,
                            outcome.c_str(), static_cast<unsigned long>(sum));
            }
        }
    }
}
