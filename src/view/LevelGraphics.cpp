#include "view/LevelGraphics.h"

#include "model/mdlEdit.h"
#include "platform/BitmapFile.h"
#include "platform/DrawingSurface.h"
#include "platform/FileNames.h"
#include "platform/Rounding.h"
#include "png/cPNG.h"
#include "view/ViewHost.h"
#include "view/frmWaypoint.h"

#include <QFileInfo>

#include <exception>
#include <stdexcept>
#include <utility>

namespace editor {
namespace {

void LoadPicture(const QString& name, Picture& target) {
    const QString path = FindInFolder(mdlEdit.LevelPath, name);
    if (!name.endsWith(QStringLiteral(".bmp"), Qt::CaseInsensitive)) {
        LoadPNGPicture(path, target);
        return;
    }
    std::optional<Picture> loaded = LoadBitmapFile(path, MaximumPictureSide);
    if (!loaded) {
        throw std::runtime_error("not a readable bitmap");
    }
    target = *std::move(loaded);
}

// Every error raised while a picture is loaded makes it a failed load and nothing else.
bool PictureLoads(const QString& name, Picture& target) {
    try {
        LoadPicture(name, target);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void ShowLevel() {
    mdlEdit.GraphicsLoaded = true;
    mdlEdit.LevelWidth = RoundTo<std::int16_t>(mdlEdit.LevelPicture.width());
    mdlEdit.LevelHeight = RoundTo<std::int16_t>(mdlEdit.LevelPicture.height());
    frmWaypoint& view = viewHost.mapView();
    view.show();
    viewHost.showEntitySettings();
    viewHost.checkLevelItems(true);
    view.curpoint = -1;
    viewHost.resetWaypointCaption();
    SizeView(view);
    DrawLevelPicture(view);
    view.PaintPoints();
    view.TakeKeyboard();
}

} // namespace

void LoadGraphics() {
    if (mdlEdit.LevelFile.isEmpty() || mdlEdit.MaterialFile.isEmpty() ||
        mdlEdit.BackFile.isEmpty()) {
        return;
    }
    viewHost.setBusyPointer(true);
    bool loaded = PictureLoads(mdlEdit.LevelFile, mdlEdit.LevelPicture);
    loaded = PictureLoads(mdlEdit.BackFile, mdlEdit.BackPicture) && loaded;
    loaded = PictureLoads(mdlEdit.MaterialFile, mdlEdit.MaterialPicture) && loaded;
    if (loaded) {
        ShowLevel();
    } else {
        mdlEdit.GraphicsLoaded = false;
    }
    viewHost.SetMenus();
    viewHost.setBusyPointer(false);
}

void LoadPNGPicture(const QString& path, Picture& target) {
    cPNG png;
    if (png.LoadPNGFile(QFileInfo(path).filesystemFilePath()) != 0) {
        throw std::runtime_error("not an acceptable PNG file");
    }
    if (png.Width() > MaximumPictureSide || png.Height() > MaximumPictureSide) {
        throw std::runtime_error("the picture is too large");
    }
    DrawingSurface picTemp(png.Width(), png.Height());
    png.DrawToDC(picTemp, 0, 0);
    target = Picture(std::move(picTemp));
}

void DrawLevelPicture(frmWaypoint& view) {
    if (mdlEdit.GraphicsLoaded) {
        view.Image().SetBackground(mdlEdit.LevelPicture, view.ClientSize());
    }
}

void SizeView(frmWaypoint& view) {
    const auto outer = [](std::int16_t levelSize, std::int16_t added) {
        return RoundTo<std::int32_t>(mdlEdit.Zoom * static_cast<float>(levelSize) +
                                     static_cast<float>(added));
    };
    view.resize(outer(mdlEdit.LevelWidth, view.addwidth),
                outer(mdlEdit.LevelHeight, view.addheight));
}

} // namespace editor
