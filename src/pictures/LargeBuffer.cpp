// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/LargeBuffer.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <new>
#include <utility>

// Under AddressSanitizer and MemorySanitizer buffers come from malloc(), which puts guards around a
// block; mmap() does not.
#if defined(__SANITIZE_ADDRESS__)
#define EDITOR_PLAIN_BUFFERS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(memory_sanitizer)
#define EDITOR_PLAIN_BUFFERS
#endif
#endif

#if defined(__linux__) && !defined(EDITOR_PLAIN_BUFFERS)
#include <malloc.h>
#include <sys/mman.h>
#else
#undef EDITOR_PLAIN_BUFFERS
#define EDITOR_PLAIN_BUFFERS
#endif

namespace editor {
namespace {

// Where the memory of a buffer comes from. Allocate() returns a block of at least `size` bytes and
// sets `capacity` to what it really has; Free() takes such a block back; FreeKept() gives up what
// Free() kept, and what free() did. They may not be called by several threads at once.

#ifdef EDITOR_PLAIN_BUFFERS

std::uint8_t* Allocate(std::size_t size, std::size_t& capacity) {
    capacity = size;
    return static_cast<std::uint8_t*>(std::malloc(size));
}

void Free(std::uint8_t* block, std::size_t) {
    std::free(block);
}

void FreeKept() {}

#else

// The first access to a page costs more than everything that is done with its bytes later. Memory
// in pages of 2 MiB comes thirty times as fast as in pages of 4 KiB; to get them, a block has to be
// aligned to them and the system asked. The rest of a block, which does not fill a page of 2 MiB,
// is rounded up to one where that wastes little. Otherwise its small pages are asked for all at
// once, which saves part of the cost of each.
constexpr std::size_t HugePageSize = std::size_t{2} << 20;
constexpr std::size_t PageSize = 4096;
constexpr std::size_t MostOfAHugePage = HugePageSize / 4 * 3;

// Pages that were used before cost nothing. So a few freed blocks are kept: as many as a picture
// takes while it is loaded (its file, what is inflated of it, its bitmap and the surface on which
// it is drawn), and in all no more bytes than this.
constexpr std::size_t MaximumKept = std::size_t{128} << 20;

struct Block {
    std::uint8_t* data = nullptr;
    std::size_t capacity = 0;
};
// Has no destructor, because buffers may be freed until the very end of the program.
constinit std::array<Block, 4> kept;

void Unmap(Block& block) {
    if (block.data != nullptr) {
        munmap(block.data, block.capacity);
        block = {};
    }
}

std::uint8_t* Map(std::size_t capacity) {
    const std::size_t slack = capacity < HugePageSize ? 0 : HugePageSize - PageSize;
    void* mapped =
        mmap(nullptr, capacity + slack, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) {
        return nullptr;
    }
    auto* first = static_cast<std::uint8_t*>(mapped);
    if (slack == 0) {
        return first;
    }
    const std::size_t before = (0 - reinterpret_cast<std::uintptr_t>(first)) % HugePageSize;
    if (before != 0) {
        munmap(first, before);
    }
    if (before != slack) {
        munmap(first + before + capacity, slack - before);
    }
    return first + before;
}

// A system that refuses or does not know a request gives pages one by one as they are accessed.
void AskForPages(std::uint8_t* block, std::size_t capacity) {
    const std::size_t end = capacity % HugePageSize;
    if (capacity != end) {
        madvise(block, capacity - end, MADV_HUGEPAGE);
    }
#ifdef MADV_POPULATE_WRITE
    madvise(block + (capacity - end), end, MADV_POPULATE_WRITE);
#endif
}

std::size_t RoundUp(std::size_t size, std::size_t unit) {
    return (size + unit - 1) / unit * unit;
}

// The smallest kept block that is large enough, unless more than half of it would be wasted.
Block TakeKept(std::size_t capacity) {
    Block* best = nullptr;
    for (Block& block : kept) {
        if (block.capacity >= capacity && block.capacity / 2 <= capacity &&
            (best == nullptr || block.capacity < best->capacity)) {
            best = &block;
        }
    }
    return best == nullptr ? Block{} : std::exchange(*best, Block{});
}

std::uint8_t* Allocate(std::size_t size, std::size_t& capacity) {
    capacity = RoundUp(size, size % HugePageSize > MostOfAHugePage ? HugePageSize : PageSize);
    const Block block = TakeKept(capacity);
    if (block.data != nullptr) {
        capacity = block.capacity;
        return block.data;
    }
    // Blocks too small to be used are given back, so that the new one does not come on top of them.
    for (Block& smaller : kept) {
        if (smaller.capacity < capacity) {
            Unmap(smaller);
        }
    }
    std::uint8_t* mapped = Map(capacity);
    if (mapped != nullptr) {
        AskForPages(mapped, capacity);
    }
    return mapped;
}

void Free(std::uint8_t* data, std::size_t capacity) {
    std::array<Block, kept.size() + 1> blocks;
    std::copy(kept.begin(), kept.end(), blocks.begin());
    blocks.back() = {data, capacity};
    std::sort(blocks.begin(), blocks.end(),
              [](const Block& a, const Block& b) { return a.capacity > b.capacity; });
    kept = {};
    std::size_t total = 0;
    auto place = kept.begin();
    for (Block& block : blocks) {
        if (place != kept.end() && total + block.capacity <= MaximumKept) {
            total += block.capacity;
            *place++ = block;
        } else {
            Unmap(block);
        }
    }
}

void FreeKept() {
    std::for_each(kept.begin(), kept.end(), Unmap);
#ifdef __GLIBC__
    malloc_trim(0); // of small blocks, glibc keeps all pages but the last ones
#endif
}

#endif

} // namespace

LargeBuffer::LargeBuffer(std::size_t size) {
    if (size == 0) {
        return;
    }
    data_ = Allocate(size, capacity_);
    if (data_ == nullptr) {
        throw std::bad_alloc();
    }
    size_ = size;
}

void LargeBuffer::ReleaseKept() {
    FreeKept();
}

LargeBuffer::~LargeBuffer() {
    if (data_ != nullptr) {
        Free(data_, capacity_);
    }
}

LargeBuffer::LargeBuffer(LargeBuffer&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)),
      capacity_(std::exchange(other.capacity_, 0)) {}

LargeBuffer& LargeBuffer::operator=(LargeBuffer&& other) noexcept {
    // What was held is freed at once and not left to `other`, which may live on.
    LargeBuffer taken(std::move(other));
    std::swap(data_, taken.data_);
    std::swap(size_, taken.size_);
    std::swap(capacity_, taken.capacity_);
    return *this;
}

} // namespace editor
