// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>

#include <functional>
#include <utility>

namespace editor {

/// A window that exists at most once: created when it is first used, and anew when it is used
/// after it was closed. A closed window lives on until its deferred deletion, so it is forgotten
/// when it says that it was closed and not when it is gone.
template <class Form>
class OnceForm {
  public:
    /// `create` makes the window and must not return null. Form has a signal Closed().
    explicit OnceForm(std::function<Form*()> create) : create_(std::move(create)) {}

    /// The window, made now when there is none.
    Form& Use() {
        if (form_.isNull()) {
            Form* made = create_();
            form_ = made;
            QObject::connect(made, &Form::Closed, made, [this, made] {
                if (form_ == made) {
                    form_.clear();
                }
            });
        }
        return *form_;
    }

    /// The window, or null when there is none.
    [[nodiscard]] Form* Existing() const { return form_.data(); }

  private:
    std::function<Form*()> create_;
    QPointer<Form> form_;
};

} // namespace editor
