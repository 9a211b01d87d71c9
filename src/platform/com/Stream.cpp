// A stream of bytes on a block of memory.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>

#include <platform/com/Stream.h>

namespace orvo {
namespace {

class BlockStream final : public ComObject<IStream> {
public:
    BlockStream(HGLOBAL block, bool isOwner)
        : ComObject(IID_IStream), m_block(block), m_isOwner(isOwner) {}

    HRESULT Read(void* bytes, ULONG count, ULONG* done) override {
        const std::size_t size = GlobalSize(m_block);
        const std::size_t left = m_place < size ? size - m_place : 0;
        const auto taken = static_cast<ULONG>(std::min<std::size_t>(count, left));
        if (taken != 0) {
            std::memcpy(bytes, static_cast<const char*>(GlobalLock(m_block)) + m_place, taken);
            GlobalUnlock(m_block);
        }
        m_place += taken;
        if (done) *done = taken;
        return taken == count ? S_OK : S_FALSE;
    }

    HRESULT Write(const void* bytes, ULONG count, ULONG* done) override {
        if (done) *done = 0;
        const std::uint64_t end = m_place + count;
        if (end > GlobalSize(m_block) && GlobalReAlloc(m_block, end) == nullptr) {
            return STG_E_MEDIUMFULL;
        }
        if (count != 0) {
            std::memcpy(static_cast<char*>(GlobalLock(m_block)) + m_place, bytes, count);
            GlobalUnlock(m_block);
        }
        m_place = end;
        if (done) *done = count;
        return S_OK;
    }

    HRESULT Seek(std::int64_t distance, ULONG origin, std::uint64_t* place) override {
        if (origin > STREAM_SEEK_END) return E_INVALIDARG;
        const std::uint64_t starts[] = {0, m_place, GlobalSize(m_block)};
        std::int64_t next = 0;
        if (__builtin_add_overflow(static_cast<std::int64_t>(starts[origin]), distance, &next) ||
            next < 0) {
            return E_INVALIDARG;
        }
        m_place = static_cast<std::uint64_t>(next);
        if (place) *place = m_place;
        return S_OK;
    }

private:
    ~BlockStream() override {
        if (m_isOwner) GlobalFree(m_block);
    }

    HGLOBAL m_block;
    bool m_isOwner;
    std::uint64_t m_place = 0;
};

}  // namespace

HRESULT CreateStreamOnHGlobal(HGLOBAL block, int deleteOnRelease, IStream** stream) {
    if (stream == nullptr) return E_POINTER;
    *stream = nullptr;
    // Every block that is there can be locked.
    if (GlobalLock(block) == nullptr) return E_INVALIDARG;
    GlobalUnlock(block);
    *stream = new BlockStream(block, deleteOnRelease != 0);
    return S_OK;
}

}  // namespace orvo
