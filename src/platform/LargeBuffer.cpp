#include "platform/LargeBuffer.h"

#include <cstring>
#include <new>
#include <utility>

namespace editor {
namespace {
constexpr std::align_val_t Alignment{64};
} // namespace

LargeBuffer::LargeBuffer(std::size_t size)
    : data_(static_cast<std::uint8_t*>(::operator new(size, Alignment))), size_(size) {
    std::memset(data_, 0, size_);
}

LargeBuffer::~LargeBuffer() {
    ::operator delete(data_, Alignment);
}

LargeBuffer::LargeBuffer(LargeBuffer&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}

LargeBuffer& LargeBuffer::operator=(LargeBuffer&& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    return *this;
}

} // namespace editor
