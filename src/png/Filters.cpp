#include "png/Filters.h"

#include <cstdlib>

namespace editor {
namespace {

std::uint8_t Sum(int a, int b) {
    return static_cast<std::uint8_t>(a + b);
}

} // namespace

std::uint8_t PaethPredictor(std::uint8_t a, std::uint8_t b, std::uint8_t c) {
    const int pa = std::abs(b - c);
    const int pb = std::abs(a - c);
    const int pc = std::abs(a + b - 2 * c);
    if (pa <= pb && pa <= pc) {
        return a;
    }
    return pb <= pc ? b : c;
}

void FilterSub(std::span<std::uint8_t> row, std::int32_t bytesPerPixel) {
    const auto back = static_cast<std::size_t>(bytesPerPixel);
    for (std::size_t i = back; i < row.size(); ++i) {
        row[i] = Sum(row[i], row[i - back]);
    }
}

void FilterUp(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous) {
    for (std::size_t i = 0; i < previous.size(); ++i) {
        row[i] = Sum(row[i], previous[i]);
    }
}

void FilterAverage(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                   std::int32_t bytesPerPixel) {
    const auto back = static_cast<std::size_t>(bytesPerPixel);
    for (std::size_t i = 0; i < row.size(); ++i) {
        const int a = i < back ? 0 : row[i - back];
        const int b = previous.empty() ? 0 : previous[i];
        row[i] = Sum(row[i], (a + b) / 2);
    }
}

void FilterPaeth(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                 std::int32_t bytesPerPixel) {
    if (previous.empty()) {
        FilterSub(row, bytesPerPixel);
        return;
    }
    const auto back = static_cast<std::size_t>(bytesPerPixel);
    for (std::size_t i = 0; i < row.size(); ++i) {
        const bool first = i < back;
        row[i] = Sum(row[i], PaethPredictor(first ? std::uint8_t{0} : row[i - back], previous[i],
                                            first ? std::uint8_t{0} : previous[i - back]));
    }
}

} // namespace editor
