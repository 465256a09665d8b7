#include "platform/BitmapFile.h"

namespace editor {

std::optional<Picture> LoadBitmapFile(const QString&, int) {
    return std::nullopt;
}

} // namespace editor
