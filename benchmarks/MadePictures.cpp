// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "MadePictures.h"

#include "png/Sizes.h"
#include "support/PngBuilder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace editor {
namespace {

constexpr std::size_t IDATBytes = 8192;

struct Colour {
    std::array<double, 4> samples; // red, green, blue, alpha, 0 to 255
};

std::uint32_t Hash(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
    std::uint32_t h = x * 0x8da6b343U ^ y * 0xd8163841U ^ seed * 0xcb1ab31fU;
    h = (h ^ h >> 13) * 0x5bd1e995U;
    return h ^ h >> 15;
}

// Smooth noise from 0 to 1 with features of `size` pixels.
double Smooth(std::uint32_t x, std::uint32_t y, std::uint32_t size, std::uint32_t seed) {
    const auto corner = [&](std::uint32_t dx, std::uint32_t dy) {
        return Hash(x / size + dx, y / size + dy, seed) % 4096 / 4096.0;
    };
    const double fx = x % size / static_cast<double>(size);
    const double fy = y % size / static_cast<double>(size);
    return std::lerp(std::lerp(corner(0, 0), corner(1, 0), fx),
                     std::lerp(corner(0, 1), corner(1, 1), fx), fy);
}

// Light and shade, texture, and a sensor's grain, which grows from smooth parts to dark ones, so
// that no filter suits all rows.
Colour Photo(std::uint32_t x, std::uint32_t y) {
    const double light = Smooth(x, y, 700, 1) * 0.6 + Smooth(x, y, 90, 2) * 0.3;
    const double texture = Smooth(x, y, 11, 3) * 0.08;
    const double roughness = std::pow(Smooth(x / 16, y, 130, 4), 3);
    Colour colour = {};
    for (std::uint32_t i = 0; i < 3; ++i) {
        const double tint = Smooth(x, y, 400, 10 + i) * 0.2;
        const double grain = Smooth(x, y, 2, 20 + i) * 0.025 +
                             Hash(x, y, 30 + i) % 1024 / 1024.0 * roughness * 0.045;
        colour.samples[i] = std::min((light + texture + tint + grain) * 210, 255.0);
    }
    colour.samples[3] = 255;
    return colour;
}

// Sky, hills, bricks and round, shaded things with soft edges, most of it plain; a part is
// transparent where the kind has alpha.
Colour FlatArt(std::uint32_t x, std::uint32_t y) {
    const std::uint32_t hill = 300 + static_cast<std::uint32_t>(Smooth(x, 0, 260, 4) * 500);
    if (y % 1024 > hill) {
        const bool mortar = y % 32 < 2 || (x + y / 32 % 2 * 32) % 64 < 2;
        const double shade = mortar ? 40 : 110 + 10.0 * (Hash(x / 64, y / 32, 5) % 4);
        return {{shade, shade * 0.6, shade * 0.4, 255}};
    }
    const auto dx = static_cast<double>(x % 512) - 256;
    const auto dy = static_cast<double>(y % 512) - 256;
    const double distance = std::sqrt(dx * dx + dy * dy);
    if (distance < 90) {
        const double alpha = std::clamp((90 - distance) * 128, 0.0, 255.0);
        const double shade = std::floor(distance / 6) * 6;
        return {{230 - shade, 180 - shade, 40, alpha}};
    }
    return {{90, 140, 220, (x / 1024 + y / 1024) % 2 != 0 ? 0.0 : 255.0}};
}

// A cube of 6 x 7 x 6 colours.
Bytes CubePalette() {
    Bytes entries;
    for (int i = 0; i < 252; ++i) {
        for (const int sample : {i / 42 * 51, i / 6 % 7 * 42, i % 6 * 51}) {
            entries.push_back(static_cast<std::uint8_t>(sample));
        }
    }
    return entries;
}

// The cube's nearest colour, dithered for photographs.
std::uint8_t CubeIndex(const Colour& colour, double dither) {
    const auto step = [&](double sample, int steps) {
        return std::clamp(static_cast<int>(sample / 255 * steps + dither), 0, steps);
    };
    return static_cast<std::uint8_t>(step(colour.samples[0], 5) * 42 +
                                     step(colour.samples[1], 6) * 6 + step(colour.samples[2], 5));
}

void AppendPixel(Bytes& row, const HeaderRec& header, const Colour& colour, double dither) {
    if (header.ColorType == PaletteIndex) {
        row.push_back(CubeIndex(colour, dither));
        return;
    }
    const std::size_t samples = header.ColorType == TruecolourAlpha ? 4 : 3;
    for (std::size_t i = 0; i < samples; ++i) {
        const int value = static_cast<int>(colour.samples[i] * 257);
        row.push_back(static_cast<std::uint8_t>(value >> 8));
        if (header.BitDepth == 16) {
            row.push_back(static_cast<std::uint8_t>(value & 0xff));
        }
    }
}

// What filter type `filter` predicts from the bytes a (left), b (above) and c (above left), written
// as in the W3C PNG text.
int Predicted(std::uint8_t filter, int a, int b, int c) {
    const int p = a + b - c;
    const int pa = std::abs(p - a);
    const int pb = std::abs(p - b);
    const int pc = std::abs(p - c);
    if (filter != 4) {
        return filter == 1 ? a : filter == 2 ? b : filter == 3 ? (a + b) / 2 : 0;
    }
    return pa <= pb && pa <= pc ? a : pb <= pc ? b : c;
}

// The row behind its filter-type byte; `previous` is the row above.
Bytes Filtered(const HeaderRec& header, std::uint8_t filter, const Bytes& previous,
               const Bytes& row) {
    const auto back = static_cast<std::size_t>(BytesPerPixel(header));
    Bytes filtered = {filter};
    filtered.reserve(row.size() + 1);
    for (std::size_t i = 0; i < row.size(); ++i) {
        const int a = i < back ? 0 : row[i - back];
        const int c = i < back ? 0 : previous[i - back];
        filtered.push_back(
            static_cast<std::uint8_t>(row[i] - Predicted(filter, a, previous[i], c)));
    }
    return filtered;
}

Bytes BestFiltered(const HeaderRec& header, const Bytes& previous, const Bytes& row) {
    Bytes best;
    long least = 0;
    const std::uint8_t filters = header.ColorType == PaletteIndex ? 1 : 5;
    for (std::uint8_t filter = 0; filter < filters; ++filter) {
        Bytes tried = Filtered(header, filter, previous, row);
        long sum = 0;
        for (std::size_t i = 1; i < tried.size(); ++i) {
            sum += std::abs(static_cast<std::int8_t>(tried[i]));
        }
        if (best.empty() || sum < least) {
            best = std::move(tried);
            least = sum;
        }
    }
    return best;
}

// The rows of a picture while it is made.
struct Unfinished {
    const MadePicture* picture;
    Bytes filtered;
    Bytes previous;
};

void AppendRow(Unfinished& unfinished, const std::vector<Colour>& colours, std::int32_t y) {
    const HeaderRec& header = unfinished.picture->header;
    const bool photo = unfinished.picture->content == "photo";
    Bytes row;
    for (std::uint32_t x = 0; x < colours.size(); ++x) {
        const double dither =
            photo ? Hash(x, static_cast<std::uint32_t>(y), 30) % 256 / 256.0 : 0.5;
        AppendPixel(row, header, colours[x], dither);
    }
    unfinished.previous.resize(row.size());
    const Bytes best = BestFiltered(header, unfinished.previous, row);
    unfinished.filtered.insert(unfinished.filtered.end(), best.begin(), best.end());
    unfinished.previous = std::move(row);
}

void Finish(const Unfinished& unfinished) {
    const MadePicture& picture = *unfinished.picture;
    Bytes file = Join({Signature, IHDR(picture.header)});
    const auto append = [&file](const Bytes& chunk) {
        file.insert(file.end(), chunk.begin(), chunk.end());
    };
    if (picture.header.ColorType == PaletteIndex) {
        append(Chunk("PLTE", CubePalette()));
    }
    const Bytes stream = Deflated(unfinished.filtered);
    for (std::size_t start = 0; start < stream.size(); start += IDATBytes) {
        const auto first = stream.begin() + static_cast<std::ptrdiff_t>(start);
        const auto size = std::min(IDATBytes, stream.size() - start);
        append(Chunk("IDAT", Bytes(first, first + static_cast<std::ptrdiff_t>(size))));
    }
    append(Chunk("IEND"));
    std::filesystem::path part = picture.file;
    part += ".part";
    WriteFile(part, file);
    std::filesystem::rename(part, picture.file);
}

// The missing ones of the pictures of a content, which have one size, row by row together.
void MakePictures(const std::vector<MadePicture>& pictures, const std::string& content) {
    std::vector<Unfinished> missing;
    for (const MadePicture& picture : pictures) {
        if (picture.content == content && !std::filesystem::exists(picture.file)) {
            missing.push_back({&picture, {}, {}});
        }
    }
    if (missing.empty()) {
        return;
    }
    const HeaderRec& size = pictures.front().header;
    std::vector<Colour> colours(static_cast<std::size_t>(size.Width));
    for (std::int32_t y = 0; y < size.Height; ++y) {
        for (std::uint32_t x = 0; x < colours.size(); ++x) {
            const auto py = static_cast<std::uint32_t>(y);
            colours[x] = content == "photo" ? Photo(x, py) : FlatArt(x, py);
        }
        for (Unfinished& unfinished : missing) {
            AppendRow(unfinished, colours, y);
        }
    }
    std::ranges::for_each(missing, Finish);
}

} // namespace

std::vector<MadePicture> MakePictures(std::int32_t width, std::int32_t height,
                                      const std::filesystem::path& folder) {
    struct Kind {
        const char* name;
        ColourType type;
        std::uint8_t depth;
    };
    std::vector<MadePicture> pictures;
    for (const Kind& kind : {Kind{"RGBA 8", TruecolourAlpha, 8}, Kind{"RGB 8", Truecolour, 8},
                             Kind{"RGB 16", Truecolour, 16}, Kind{"palette 8", PaletteIndex, 8}}) {
        for (const char* content : {"flat", "photo"}) {
            const std::string name = std::to_string(width) + "x" + std::to_string(height) + "-" +
                                     kind.name + "-" + content + ".png";
            pictures.push_back(
                {kind.name, content, {width, height, kind.depth, kind.type}, folder / name});
        }
    }
    for (const char* content : {"flat", "photo"}) {
        MakePictures(pictures, content);
    }
    return pictures;
}

} // namespace editor
