// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// What opening a level costs, from the command Open to the first painted frame, beside the time in
// which Qt's reader reads the level's three pictures alone.

#include "MadePictures.h"
#include "Measuring.h"
#include "app/frmMain.h"
#include "model/mdlEdit.h"
#include "support/PngBuilder.h"
#include "windows/Dialogs.h"

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

double Open(const QString& folder) {
    frmMain main;
    main.resize(1920, 1080);
    main.show();
    QApplication::processEvents();
    dialogs().browseForFolder = [&](QWidget*, const QString&) { return folder; };
    const FirstFrame frame(main.mapView.Use());
    return Milliseconds([&] {
        main.findChild<QAction*>(QStringLiteral("mnuLevOpen"))->trigger();
        if (!mdlEdit.GraphicsLoaded) {
            throw std::runtime_error("the level of the benchmark was refused");
        }
        while (!frame.Painted()) {
            QApplication::processEvents();
        }
    });
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

void Run(const char* program, const std::filesystem::path& folder, bool brief) {
    std::printf("Opening a level of three pictures, from the command to the first painted frame\n"
                "%-66s %8s %8s\n",
                "  / reading the three by Qt", "ratio", "target");
    const std::int32_t side = brief ? 256 : 4096;
    const int rounds = brief ? 1 : 5;
    for (const MadePicture& picture : MakePictures(side, side, folder)) {
        if (picture.kind != "RGBA 8") {
            continue;
        }
        const std::filesystem::path level = folder / "level";
        MakeLevel(level, picture.file);
        WriteFile(level / "one-pixel.png", OnePixelPng());
        std::vector<double> ours;
        std::vector<double> qt;
        for (int i = 0; i < rounds; ++i) {
            ours.push_back(InFreshProcess(program, {"--open", level.string()}, 1).front());
            qt.push_back(InFreshProcess(program, {"--qt", level.string()}, 1).front());
        }
        constexpr double Target = 0.65;
        const double ratio = Median(ours) / Median(qt);
        const std::string what = std::to_string(side) + " x " + std::to_string(side) + ", " +
                                 picture.kind + ", " + picture.content;
        std::printf("%-66s %8.2f %8.2f %s\n", what.c_str(), ratio, Target,
                    brief || ratio <= Target ? "" : "missed");
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
            std::printf("%f\n", editor::Open(QString::fromLocal8Bit(argv[2])));
        } else if (argc == 3 && std::strcmp(argv[1], "--qt") == 0) {
            std::printf("%f\n", editor::ReadByQt(QString::fromLocal8Bit(argv[2])));
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
