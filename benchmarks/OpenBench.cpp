// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// What opening a level costs: the time from the command Open to the first painted frame, beside
// what Qt's reader and zlib alone take for the level's three pictures, and the memory that stays
// taken.

#include "LoadedPicture.h"
#include "MadePictures.h"
#include "Measuring.h"
#include "app/frmMain.h"
#include "model/mdlEdit.h"
#include "support/PngBuilder.h"
#include "view/frmWaypoint.h"
#include "windows/Choosers.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QImage>

#include <array>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace editor {
namespace {

constexpr std::array<const char*, 3> PictureFiles = {"level.png", "back.png", "material.png"};

void MakeLevel(const std::filesystem::path& folder, const std::filesystem::path& picture) {
    std::filesystem::create_directories(folder);
    for (const char* name : PictureFiles) {
        std::filesystem::copy_file(picture, folder / name,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    std::ofstream(folder / "level.cfg", std::ios::binary)
        << "[Map]\r\nLevel=level.png\r\nBack=back.png\r\nMaterial=material.png\r\n";
    std::ofstream(folder / "waypoint.cfg", std::ios::binary);
}

// Sees the first frame of anything below the window that the map view is.
class FirstFrame : public QObject {
  public:
    explicit FirstFrame(const QWidget& view) : view_(view) { qApp->installEventFilter(this); }

    [[nodiscard]] bool Painted() const { return painted_; }

  private:
    bool eventFilter(QObject* object, QEvent* event) override {
        painted_ = painted_ || (event->type() == QEvent::Paint && object->isWidgetType() &&
                                view_.isAncestorOf(static_cast<QWidget*>(object)));
        return false;
    }

    const QWidget& view_;
    bool painted_ = false;
};

Measured Open(const QString& folder) {
    frmMain main;
    main.resize(1920, 1080);
    main.show();
    QApplication::processEvents();
    choosers().browseForFolder = [&](QWidget*, const QString&) { return folder; };
    const FirstFrame frame(main.mapView.Use());
    const std::int64_t before = StatusBytes("VmRSS");
    const double time = Milliseconds([&] {
        main.findChild<QAction*>(QStringLiteral("mnuLevOpen"))->trigger();
        if (!mdlEdit.GraphicsLoaded) {
            throw std::runtime_error("the level of the benchmark was refused");
        }
        while (!frame.Painted()) {
            QApplication::processEvents();
        }
    });
    return {time, StatusBytes("VmRSS") - before};
}

double ReadByQt(const QString& folder) {
    std::array<QImage, PictureFiles.size()> images;
    // The library's own first use is no part of a load.
    static_cast<void>(QImage(folder + QStringLiteral("/one-pixel.png")));
    return Milliseconds([&] {
        for (std::size_t i = 0; i < images.size(); ++i) {
            images[i] = QImage(folder + QLatin1Char('/') + QLatin1String(PictureFiles[i]));
        }
    });
}

double Uncompress(const std::filesystem::path& folder) {
    double milliseconds = 0;
    for (const char* name : PictureFiles) {
        milliseconds += Load(Loader::Uncompress, folder / name).milliseconds;
    }
    return milliseconds;
}

void PrintRow(const char* what, const MadePicture& picture, double value, double target) {
    char text[80];
    std::snprintf(text, sizeof text, "%d x %d, %s, %s: %s", picture.header.Width,
                  picture.header.Height, picture.kind.c_str(), picture.content.c_str(), what);
    std::printf("%-66s %8.2f %8.2f %s\n", text, value, target, value <= target ? "" : "missed");
}

// Medians of opening the level, of reading its pictures by Qt and by zlib alone.
void Measure(const char* program, const std::filesystem::path& level, const MadePicture& picture,
             bool brief) {
    std::vector<double> ours, kept, qt, zlib;
    for (int i = 0; i < (brief ? 1 : 5); ++i) {
        const std::vector<double> opened = InFreshProcess(program, {"--open", level.string()}, 2);
        ours.push_back(opened[0]);
        kept.push_back(opened[1]);
        qt.push_back(InFreshProcess(program, {"--qt", level.string()}, 1).front());
        zlib.push_back(InFreshProcess(program, {"--uncompress", level.string()}, 1).front());
    }
    const double pixels = 1.0 * picture.header.Width * picture.header.Height;
    const double pictureAndBitmap = pixels * (4 + 4);
    const auto file = static_cast<double>(std::filesystem::file_size(picture.file));
    const double unjudged = brief ? 1e9 : 0;
    PrintRow("/ Qt's reader", picture, Median(ours) / Median(qt), unjudged + 0.65);
    PrintRow("/ zlib alone", picture, Median(ours) / Median(zlib), unjudged + 1.3);
    PrintRow("MB kept", picture, (Median(kept) - pictureAndBitmap - file) / 1e6, unjudged + 30);
}

void Run(const char* program, const std::filesystem::path& folder, bool brief) {
    std::printf("Opening a level of three pictures, from the command to the first painted frame, "
                "beside reading the three\nalone; and the memory that is then taken beyond one "
                "picture, one bitmap and one file\n%-66s %8s %8s\n",
                "", "", "target");
    const std::int32_t side = brief ? 256 : 4096;
    for (const MadePicture& picture : MakePictures(side, side, folder)) {
        if (picture.kind == "RGBA 8") {
            const std::filesystem::path level = folder / "level";
            MakeLevel(level, picture.file);
            WriteFile(level / "one-pixel.png", PngOf({1, 1, 8, Truecolour}, {0, 10, 20, 30}));
            Measure(program, level, picture, brief);
        }
    }
}

} // namespace
} // namespace editor

// bench_open FOLDER [--short]: opens levels whose pictures are made in FOLDER where they are
// missing; with --short small ones, once.
int main(int argc, char** argv) {
    try {
        if (argc == 3 && std::strcmp(argv[1], "--open") == 0) {
            const QApplication application(argc, argv);
            const editor::Measured opened = editor::Open(QString::fromLocal8Bit(argv[2]));
            std::printf("%f %f\n", opened.milliseconds, static_cast<double>(opened.bytes));
        } else if (argc == 3 && std::strcmp(argv[1], "--qt") == 0) {
            std::printf("%f\n", editor::ReadByQt(QString::fromLocal8Bit(argv[2])));
        } else if (argc == 3 && std::strcmp(argv[1], "--uncompress") == 0) {
            std::printf("%f\n", editor::Uncompress(argv[2]));
        } else if (argc >= 2) {
            editor::Run(argv[0], argv[1], argc > 2 && std::strcmp(argv[2], "--short") == 0);
        } else {
            std::fprintf(stderr, "usage: %s FOLDER [--short]\n", argv[0]);
            return 2;
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
