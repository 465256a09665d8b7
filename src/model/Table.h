// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QLatin1StringView>

#include <algorithm>
#include <cstddef>
#include <ranges>
#include <span>
#include <type_traits>

namespace editor {

/// One of a level's tables: a fixed number of records, the first `count` of them in use. It owns
/// neither; a copy is another view of the same table. A count below 0, which a file may hold,
/// counts as 0.
template <class Record, class Count>
class Table {
  public:
    /// `things` is what a person calls the records.
    Table(std::span<Record> records, Count& count, const char* things)
        : records_(records), count_(count), things_(things) {}

    /// The number of records in use.
    [[nodiscard]] int Size() const { return std::clamp<int>(count_, 0, Capacity()); }
    [[nodiscard]] int Capacity() const { return static_cast<int>(records_.size()); }
    [[nodiscard]] QLatin1StringView Things() const { return things_; }

    /// `index` must be below Capacity().
    [[nodiscard]] Record& operator[](int index) const {
        return records_[static_cast<std::size_t>(index)];
    }

    // The records in use.
    [[nodiscard]] auto begin() const { return records_.begin(); }
    [[nodiscard]] auto end() const { return records_.begin() + Size(); }

    /// The record of a selection or of a link; null when it is none of those in use.
    [[nodiscard]] Record* Find(int index) const {
        return index >= 0 && index < Size() ? &(*this)[index] : nullptr;
    }

    /// Takes the first free record into use. It holds what it held before. Null when the table is
    /// full; nothing is changed then.
    [[nodiscard]] Record* Add() const {
        const int added = Size();
        if (added == Capacity()) {
            return nullptr;
        }
        count_ = static_cast<Count>(added + 1);
        return &(*this)[added];
    }

    /// Puts the last record into the place of the one at `index`, which must be in use.
    void Remove(int index) const {
        --count_;
        (*this)[index] = (*this)[Size()];
    }

  private:
    std::span<Record> records_;
    Count& count_;
    QLatin1StringView things_;
};

template <class Records, class Count>
Table(Records& records, Count& count, const char* things)
    -> Table<std::remove_reference_t<std::ranges::range_reference_t<Records>>, Count>;

} // namespace editor
