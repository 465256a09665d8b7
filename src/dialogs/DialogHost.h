// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

class QWidget;

namespace editor {

/// What the dialogs ask of the windows around them. The application fills every member before the
/// first event.
struct DialogHost {
    std::function<QWidget*()> mainWindow; // the owner of modal windows; may be null
    std::function<void(bool)> checkLevelSettings;
};

extern DialogHost dialogHost;

} // namespace editor
