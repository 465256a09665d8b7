#pragma once

#include "platform/DrawingSurface.h"

#include <cstdint>
#include <string>

namespace editor {

class cPNG {
  public:
    [[nodiscard]] std::int32_t Width() const { return 0; }
    [[nodiscard]] std::int32_t Height() const { return 0; }
    void DrawToDC(DrawingSurface&, std::int32_t, std::int32_t) {}
    [[nodiscard]] std::int32_t LoadPNGFile(const std::string&) { return 3; }
};

} // namespace editor
