// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QMdiArea>
#include <QPointer>

#include <vector>

namespace editor {

class MdiForm;

/// Where a pinned window goes, on one axis and in pixels, when the contents of the area around it
/// move: it stays, unless one of its edges lies outside the area and the movement brings that edge
/// into sight. So all of it can be reached in an area that is too small for it. `place` is its
/// position before, `moved` how far the contents go, `size` its size, `room` the area's.
[[nodiscard]] int PinnedPlace(int place, int moved, int size, int room);

/// The inside of the main window. It scrolls, so that every part of a large view can be reached;
/// pinned windows stay above the others and in their place while it does.
class FormArea : public QMdiArea {
    Q_OBJECT

  public:
    explicit FormArea(QWidget* parent);

    /// Keeps a form within reach of the scroll bars: when it or another one was hidden or got
    /// another size, no more can be scrolled to than there is.
    void Watch(MdiForm& form);

    /// The same, and keeps `form` on top and in its place.
    void Pin(MdiForm& form);

  protected:
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    template <class Action>
    void ForEachPinned(Action action);
    void Settle();

    std::vector<QPointer<MdiForm>> pinned_;
    bool settling_ = false;
};

} // namespace editor
