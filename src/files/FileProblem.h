// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <exception>
#include <utility>

namespace editor {

/// What is thrown when a file cannot be read, understood or written and a person must be told.
class FileProblem : public std::exception {
  public:
    /// `text` says what, where and why, as a sentence or as the end of one.
    explicit FileProblem(QString text) : text_(std::move(text)) {}

    [[nodiscard]] const QString& Text() const { return text_; }
    [[nodiscard]] const char* what() const noexcept override { return "a problem with a file"; }

  private:
    QString text_;
};

/// A reason as the system gives it, without the full stop with which some end theirs.
[[nodiscard]] inline QString WithoutFullStop(QString reason) {
    if (reason.endsWith(u'.')) {
        reason.chop(1);
    }
    return reason;
}

} // namespace editor
