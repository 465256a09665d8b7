#include "platform/LargeBuffer.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace editor {

LargeBuffer::LargeBuffer(std::size_t size) {
    if (size == 0) {
        return;
    }
    data_ = static_cast<std::uint8_t*>(std::malloc(size));
    if (data_ == nullptr) {
        throw std::bad_alloc();
    }
    size_ = size;
}

LargeBuffer::~LargeBuffer() {
    std::free(data_);
}

LargeBuffer::LargeBuffer(LargeBuffer&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}

LargeBuffer& LargeBuffer::operator=(LargeBuffer&& other) noexcept {
    // What was held goes at once, not with `other`, which may live on.
    LargeBuffer taken(std::move(other));
    std::swap(data_, taken.data_);
    std::swap(size_, taken.size_);
    return *this;
}

} // namespace editor
