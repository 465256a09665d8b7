// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// What a repaint of the map view costs, in multiples of a plain copy of the visible pixels. Prints
// one row a case: what was measured, its ratio and the ratio to reach; "--short" for few rounds.
// No other argument counts.

#include "Measuring.h"
#include "model/mdlEdit.h"
#include "painting/Canvas.h"
#include "painting/PersistentImage.h"
#include "pictures/DrawingSurface.h"
#include "view/PaintPoints.h"
#include "windows/FormArea.h"
#include "windows/MdiForm.h"

#include <QApplication>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <random>
#include <string_view>
#include <vector>

namespace editor {
namespace {

constexpr QSize Visible(1920, 1080);
constexpr qsizetype Stride = Visible.width();
constexpr std::size_t VisiblePixels = std::size_t{1920} * 1080;

using Pixels = std::vector<std::uint32_t>;

/// Times several works in turn, round after round, so that a change of the machine's speed meets
/// all of them. The result is the median of each.
std::vector<double> Interleaved(int rounds, const std::vector<std::function<void()>>& works) {
    std::vector<std::vector<double>> times(works.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < works.size(); ++i) {
            times[i].push_back(Milliseconds(works[i]));
        }
    }
    std::vector<double> medians;
    for (auto& values : times) {
        medians.push_back(Median(std::move(values)));
    }
    return medians;
}

// In the memory in which the editor holds a decoded picture.
Picture NoisePicture(int width, int height) {
    DrawingSurface surface(width, height);
    std::uint32_t state = 1;
    for (int y = 0; y < height; ++y) {
        std::uint32_t* row = surface.row(y);
        for (int x = 0; x < width; ++x) {
            state = state * 1664525U + 1013904223U;
            row[x] = 0xff000000U | (state >> 8U);
        }
    }
    return Picture(std::move(surface));
}

/// 201 waypoints in the visible part, five links each: to waypoints anywhere in it, or to ones
/// that lie 40 view pixels away.
LevelModel Waypoints(const QRect& visible, float zoom, bool longLinks) {
    std::mt19937 random(1);
    const auto within = [&](int low, int length) {
        return std::uniform_int_distribution<int>(low, low + length - 1)(random);
    };
    const auto level = [zoom](int view) {
        return static_cast<std::int16_t>(std::lround(static_cast<float>(view) / zoom));
    };
    LevelModel model;
    model.Zoom = zoom;
    model.NumWayPoints = MaxWayPoints;
    QPoint place;
    for (int i = 0; i < MaxWayPoints; ++i) {
        WaypointRec& waypoint = model.WayPoints[static_cast<std::size_t>(i)];
        // Groups of six, each member 40 view pixels from the next.
        place = longLinks || i % 6 == 0 ? QPoint(within(visible.left(), visible.width()),
                                                 within(visible.top(), visible.height()))
                                        : place + (i % 2 == 0 ? QPoint(40, 0) : QPoint(0, 40));
        waypoint.X = level(place.x());
        waypoint.Y = level(place.y());
        waypoint.NumLinks = MaxLinks - 1;
        for (std::size_t j = 0; j < MaxLinks; ++j) {
            const int neighbour = i % 6 == 5 || i == MaxWayPoints - 1 ? i - 1 : i + 1;
            waypoint.LinkDest[j] =
                static_cast<std::int16_t>(longLinks ? within(0, MaxWayPoints) : neighbour);
            waypoint.LinkFlags[j] = static_cast<std::int16_t>(j % 4);
        }
    }
    return model;
}

void Row(const char* what, double ratio, double target) {
    std::printf("%-66s %8.2f %8.2f %s\n", what, ratio, target, ratio <= target ? "" : "missed");
}

class Bench {
  public:
    explicit Bench(int rounds) : rounds_(rounds) {}

    void Run() {
        std::printf("A repaint of 1920 x 1080 visible pixels\n%-66s %8s %8s\n",
                    "  / a plain copy of those pixels", "ratio", "target");
        const Picture large = NoisePicture(8192, 8192);
        PictureAt(large, 8, 0.6, "the picture, 8192 x 8192, zoom 8");
        PictureAt(large, 1, 1.05, "the same, zoom 1 / a copy of those pixels from the picture",
                  true);
        PictureAt(large, 0.5, 3, "the picture, 8192 x 8192, zoom 0.5");
        PictureAt(large, 0.25, 4.8, "the picture, 8192 x 8192, zoom 0.25");
        const Picture wide = NoisePicture(32767, 1024);
        PictureAt(wide, 8, 0.6, "the picture, 32767 wide, zoom 8 (a view 262136 wide)");
        Marks(large, true, 1.2, "in addition 201 waypoints and 1005 links across the screen");
        Marks(large, false, 0.3, "in addition 201 waypoints and 1005 links of 40 pixels");
        Drag(large);
        Notch(large);
    }

  private:
    static QRect PlaceOf(const QSize& view) {
        // Somewhere inside, not at a multiple of the zoom.
        const QPoint corner((view.width() - Visible.width()) / 2 + 3,
                            std::max(0, (view.height() - Visible.height()) / 2 - 5));
        return {corner, Visible};
    }

    static void Show(PersistentImage& image, const Picture& picture, double zoom, QRect& visible) {
        const QSize view(static_cast<int>(picture.width() * zoom),
                         static_cast<int>(picture.height() * zoom));
        image.SetBackground(picture, view);
        visible = PlaceOf(view);
    }

    // Works out the pixels band by band, as the view does; what brings a band to the window is not
    // counted.
    void Repaint(const PersistentImage& image, const QRect& area) {
        for (int top = area.top(); top <= area.bottom(); top += PersistentImage::BandHeight) {
            image.Paint(band_.data(), Stride,
                        area & QRect(area.left(), top, area.width(), PersistentImage::BandHeight));
        }
    }

    void Copy() { std::memcpy(target_.data(), source_.data(), VisiblePixels * 4); }

    // The same pixels from where they are in the picture.
    void CopyFrom(const Picture& picture, const QRect& area) {
        for (int y = 0; y < area.height(); ++y) {
            std::memcpy(target_.data() + y * Stride, picture.row(area.top() + y) + area.left(),
                        static_cast<std::size_t>(area.width()) * 4);
        }
    }

    // `copy`: whether to compare with a copy out of the picture instead of a plain one.
    void PictureAt(const Picture& picture, double zoom, double target, const char* what,
                   bool copy = false) {
        PersistentImage image;
        QRect visible;
        Show(image, picture, zoom, visible);
        const auto times =
            Interleaved(rounds_, {[&] { copy ? CopyFrom(picture, visible) : Copy(); },
                                  [&] { Repaint(image, visible); }});
        Row(what, times[1] / times[0], target);
    }

    void Marks(const Picture& picture, bool longLinks, double target, const char* what) {
        PersistentImage image;
        QRect visible;
        Show(image, picture, 1, visible);
        PersistentImage bare = image;
        PaintEntities(image, Waypoints(visible, 1, longLinks), EditingMode::Waypoints, -1);
        const auto times = Interleaved(rounds_, {[&] { Copy(); }, [&] { Repaint(bare, visible); },
                                                 [&] { Repaint(image, visible); }});
        Row(what, (times[2] - times[1]) / times[0], target);
    }

    // One move of a drag: the model changes, the marks are drawn again, what changed is painted.
    void Drag(const Picture& picture) {
        PersistentImage image;
        QRect visible;
        Show(image, picture, 1, visible);
        LevelModel model = Waypoints(visible, 1, false);
        WaypointRec& moved = model.WayPoints[MaxWayPoints / 2];
        moved.NumLinks = 3;
        int step = 0;
        const auto move = [&] {
            moved.X = static_cast<std::int16_t>(moved.X + (step++ % 20 < 10 ? 3 : -3));
            PaintEntities(image, model, EditingMode::Waypoints, MaxWayPoints / 2);
        };
        move();
        static_cast<void>(image.TakeChanges(visible));
        const auto times = Interleaved(
            rounds_, {[&] {
                          PaintEntities(image, model, EditingMode::Waypoints, MaxWayPoints / 2);
                          Repaint(image, visible);
                      },
                      [&] {
                          move();
                          for (const QRect& changed : image.TakeChanges(visible)) {
                              Repaint(image, changed);
                          }
                      }});
        std::printf("%-66s\n", "  / a full repaint");
        Row("one move of a waypoint with four short links", times[1] / times[0], 0.25);
    }

    // One notch of the wheel in a window, far from the view's beginning, until it can be seen.
    void Notch(const Picture& picture) {
        FormArea area(nullptr);
        auto* canvas = new Canvas;
        auto* view = new MdiForm(area, QString(), canvas);
        view->resize(picture.width() * 8, picture.height() * 8);
        canvas->Image().SetBackground(picture, canvas->size());
        area.resize(Visible);
        view->show();
        area.show();
        area.ScrollTo({40000, 60000});
        QCoreApplication::processEvents();
        int step = 0;
        const auto times = Interleaved(
            rounds_, {[&] {
                          for (QWidget* part : area.findChildren<QWidget*>()) {
                              part->update(); // the bars and the frame too
                          }
                          QCoreApplication::processEvents();
                      },
                      [&] {
                          const QPoint at(9, 9);
                          QWheelEvent notch(at, at, {}, {0, step++ % 2 == 0 ? -120 : 120},
                                            Qt::NoButton, {}, Qt::NoScrollPhase, false);
                          QCoreApplication::sendEvent(area.viewport(), &notch);
                          QCoreApplication::processEvents();
                      }});
        Row("one notch of the wheel, 8192 x 8192, zoom 8, 60000 pixels down", times[1] / times[0],
            1);
    }

    int rounds_;
    Pixels band_ = Pixels(std::size_t{PersistentImage::BandHeight} * 1920);
    Pixels source_ = Pixels(VisiblePixels, 0xff112233);
    Pixels target_ = Pixels(VisiblePixels, 0xff445566);
};

} // namespace
} // namespace editor

int main(int argc, char** argv) {
    const bool quick = std::string_view(argv[argc - 1]) == "--short";
    int none = 0;
    const QApplication application(none, nullptr);
    editor::Bench(quick ? 5 : 101).Run();
    return 0;
}
