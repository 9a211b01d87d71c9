// Blocks of memory that have a handle and are locked to be read or written.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>
#include <memory>
#include <mutex>
#include <new>
#include <unordered_map>
#include <utility>

#include <platform/com/GlobalMemory.h>

namespace orvo {
namespace {

struct Block {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    int locks = 0;
};

// An empty block has an address, too.
std::unique_ptr<char[]> Allocate(std::size_t size) {
    return std::unique_ptr<char[]>(new (std::nothrow) char[std::max<std::size_t>(size, 1)]);
}

class Blocks {
public:
    static Blocks& Get() {
        static Blocks blocks;
        return blocks;
    }

    HGLOBAL Add(Block block) {
        const std::lock_guard lock(m_mutex);
        // Never given twice, so that a block that has gone isn't taken for another one.
        const HGLOBAL handle = reinterpret_cast<HGLOBAL>(std::exchange(m_next, m_next + 16));
        m_blocks.emplace(handle, std::move(block));
        return handle;
    }

    // Returns what `work` makes of the block, and `missing` where there is none.
    template <class Result, class Work>
    Result With(HGLOBAL handle, Result missing, Work work) {
        const std::lock_guard lock(m_mutex);
        const auto found = m_blocks.find(handle);
        return found == m_blocks.end() ? missing : work(found->second);
    }

    bool Remove(HGLOBAL handle) {
        const std::lock_guard lock(m_mutex);
        return m_blocks.erase(handle) != 0;
    }

    std::size_t Count() {
        const std::lock_guard lock(m_mutex);
        return m_blocks.size();
    }

private:
    std::mutex m_mutex;
    std::uintptr_t m_next = 16;
    std::unordered_map<HGLOBAL, Block> m_blocks;
};

}  // namespace

HGLOBAL GlobalAlloc(unsigned flags, std::size_t size) {
    if ((flags & GMEM_MOVEABLE) == 0) return nullptr;
    Block block{Allocate(size), size};
    if (!block.bytes) return nullptr;
    if ((flags & GMEM_ZEROINIT) != 0) std::fill_n(block.bytes.get(), size, '\0');
    return Blocks::Get().Add(std::move(block));
}

HGLOBAL GlobalReAlloc(HGLOBAL handle, std::size_t size) {
    return Blocks::Get().With(handle, HGLOBAL(), [&](Block& block) -> HGLOBAL {
        if (block.locks != 0) return nullptr;
        std::unique_ptr<char[]> bytes = Allocate(size);
        if (!bytes) return nullptr;
        std::copy_n(block.bytes.get(), std::min(size, block.size), bytes.get());
        block.bytes = std::move(bytes);
        block.size = size;
        return handle;
    });
}

void* GlobalLock(HGLOBAL handle) {
    return Blocks::Get().With(handle, static_cast<void*>(nullptr), [](Block& block) -> void* {
        ++block.locks;
        return block.bytes.get();
    });
}

int GlobalUnlock(HGLOBAL handle) {
    return Blocks::Get().With(handle, 0, [](Block& block) {
        if (block.locks > 0) --block.locks;
        return block.locks > 0 ? 1 : 0;
    });
}

std::size_t GlobalSize(HGLOBAL handle) {
    return Blocks::Get().With(handle, std::size_t{0},
                              [](const Block& block) { return block.size; });
}

HGLOBAL GlobalFree(HGLOBAL handle) {
    return Blocks::Get().Remove(handle) ? nullptr : handle;
}

std::size_t GlobalBlockCount() {
    return Blocks::Get().Count();
}

}  // namespace orvo
