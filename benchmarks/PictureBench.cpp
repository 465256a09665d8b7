// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "LoadedPicture.h"
#include "MadePictures.h"
#include "Measuring.h"
#include "support/PngBuilder.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <map>
#include <optional>
#include <vector>

namespace editor {
namespace {

constexpr std::array<Loader, 3> Loaders = {Loader::Ours, Loader::Qt, Loader::Uncompress};

// Medians of one picture's loads: a first load in a process, and one in a process that has loaded
// the same picture before.
struct Medians {
    std::map<Loader, double> first;
    std::map<Loader, double> again;
    double peak = 0; // of our first load, in bytes
};

// What a process that measures one loader prints: the time of a first load, its peak, and the time
// of a load when the memory was touched before.
void PrintLoads(Loader loader, const std::filesystem::path& file) {
    // The libraries' own first use is no part of a load.
    const std::filesystem::path warmUp = file.parent_path() / "one-pixel.png";
    static_cast<void>(Load(loader, warmUp));
    const Measured first = Load(loader, file);
    KeepFreedMemory();
    static_cast<void>(Load(loader, file));
    const Measured again = Load(loader, file);
    std::printf("%f %f %f\n", first.milliseconds, static_cast<double>(first.bytes),
                again.milliseconds);
}

Medians Measure(const char* program, const MadePicture& picture, int rounds) {
    std::map<Loader, std::vector<double>> first;
    std::map<Loader, std::vector<double>> again;
    std::vector<double> peaks;
    for (int i = 0; i < rounds; ++i) {
        for (const Loader loader : Loaders) {
            const std::vector<double> printed = InFreshProcess(
                program,
                {"--load", std::to_string(static_cast<int>(loader)), picture.file.string()}, 3);
            first[loader].push_back(printed[0]);
            again[loader].push_back(printed[2]);
            if (loader == Loader::Ours) {
                peaks.push_back(printed[1]);
            }
        }
    }
    Medians medians;
    for (const Loader loader : Loaders) {
        medians.first[loader] = Median(first[loader]);
        medians.again[loader] = Median(again[loader]);
    }
    medians.peak = Median(peaks);
    return medians;
}

struct Targets {
    double firstToQt = 0.6;
    double firstToUncompress = 1.5;
    double againToQt = 0.8;
    double againToUncompress = 1.3;
    double peakToPicture = 2.1; // the file's size is taken off before
};

// Ratios to zlib alone, for flat art and for photographs, with a tenth to spare.
struct ZlibTargets {
    const char* kind;
    std::array<double, 2> first;
    std::array<double, 2> again;
};

constexpr ZlibTargets LargePictures[] = {{"RGBA 8", {1.2, 1.2}, {1.1, 1.25}},
                                         {"RGB 8", {1.3, 1.35}, {1.25, 1.3}},
                                         {"RGB 16", {1.15, 1.2}, {1.1, 1.2}},
                                         {"palette 8", {1.75, 1.25}, {1.3, 1.1}}};

// Ratios to Qt's reader, which inflates with zlib too: where that is most of a load, nothing can be
// much below what zlib alone takes.
Targets TargetsOf(const MadePicture& picture) {
    const bool photo = picture.content == "photo";
    Targets targets;
    if (picture.kind == "RGB 16") {
        targets.firstToQt = photo ? 0.7 : 0.5;
        targets.peakToPicture = 2.8;
    }
    if (picture.kind == "palette 8" && !photo) {
        targets.firstToQt = picture.header.Width >= 4096 ? 0.3 : 0.4;
        targets.firstToUncompress = 2.3;
        targets.againToUncompress = 1.45;
    }
    const std::size_t content = photo ? 1 : 0;
    for (const ZlibTargets& large : LargePictures) {
        if (picture.kind == large.kind && picture.header.Width >= 4096) {
            targets.firstToUncompress = large.first[content];
            targets.againToUncompress = large.again[content];
        }
    }
    return targets;
}

// Without a target where nothing is judged.
void PrintRatio(double ratio, std::optional<double> target) {
    if (target) {
        std::printf(" %5.2f%c%4.2f", ratio, ratio > *target ? '>' : ' ', *target);
    } else {
        std::printf(" %10.2f", ratio);
    }
}

void PrintRow(const MadePicture& picture, const Medians& medians, bool judged) {
    const Targets targets = TargetsOf(picture);
    const double pictureBytes = 4.0 * picture.header.Width * picture.header.Height;
    const auto fileBytes = static_cast<double>(std::filesystem::file_size(picture.file));
    const auto printRatio = [judged](double ratio, double target) {
        PrintRatio(ratio, judged ? std::optional(target) : std::nullopt);
    };
    const auto printTimes = [&](const std::map<Loader, double>& times, double toQt,
                                double toUncompress) {
        const double ours = times.at(Loader::Ours);
        const double qt = times.at(Loader::Qt);
        const double uncompress = times.at(Loader::Uncompress);
        std::printf(" |%7.1f %7.1f %7.1f", ours, qt, uncompress);
        printRatio(ours / qt, toQt);
        printRatio(ours / uncompress, toUncompress);
    };
    std::printf("%4dx%-4d %-9s %-5s %5.1f", picture.header.Width, picture.header.Height,
                picture.kind.c_str(), picture.content.c_str(), fileBytes / (1 << 20));
    printTimes(medians.first, targets.firstToQt, targets.firstToUncompress);
    printTimes(medians.again, targets.againToQt, targets.againToUncompress);
    std::printf(" |");
    printRatio((medians.peak - fileBytes) / pictureBytes, targets.peakToPicture);
    std::printf("\n");
    std::fflush(stdout);
}

void PrintHeading() {
    std::printf(
        "Loading a PNG file into a 32-bit picture, medians in ms. A target stands behind its "
        "ratio; '>' marks a miss.\n"
        "zlib: uncompress alone into memory touched before. peak: memory at most, less the "
        "file, as a multiple of the picture.\n\n"
        "%-25s %5s | %-45s | %-45s | %s\n%-25s %5s |%7s %7s %7s %10s %10s |%7s %7s %7s "
        "%10s %10s | %10s\n",
        "", "file", "first load in a process", "memory touched before", "", "picture", "MiB",
        "ours", "Qt", "zlib", "/ Qt", "/ zlib", "ours", "Qt", "zlib", "/ Qt", "/ zlib", "peak");
}

void Run(const char* program, const std::filesystem::path& folder, bool brief) {
    std::filesystem::create_directories(folder);
    WriteFile(folder / "one-pixel.png", PngOf({1, 1, 8, Truecolour}, {0, 10, 20, 30}));
    std::vector<MadePicture> pictures = MakePictures(1920, 1080, folder);
    if (!brief) {
        const std::vector<MadePicture> large = MakePictures(4096, 4096, folder);
        pictures.insert(pictures.begin(), large.begin(), large.end());
    }
    PrintHeading();
    for (const MadePicture& picture : pictures) {
        const int rounds = brief ? 1 : picture.header.Width < 4096 ? 9 : 5;
        PrintRow(picture, Measure(program, picture, rounds), !brief);
    }
}

} // namespace
} // namespace editor

// bench_pictures FOLDER [--short]: makes the pictures in FOLDER where they are missing, measures
// them and prints the table; with --short the small ones once.
int main(int argc, char** argv) {
    try {
        if (argc == 4 && std::strcmp(argv[1], "--load") == 0) {
            editor::PrintLoads(static_cast<editor::Loader>(std::atoi(argv[2])), argv[3]);
            return 0;
        }
        if (argc < 2) {
            std::fprintf(stderr, "usage: %s FOLDER [--short]\n", argv[0]);
            return 2;
        }
        editor::Run(argv[0], argv[1], argc > 2 && std::strcmp(argv[2], "--short") == 0);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
