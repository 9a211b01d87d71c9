// CMapFileHelper: a named block of memory with a header, shared by processes.
// SPDX-License-Identifier: MIT
#include <cstring>

#include <orvoshare/shared/MapFileHelper.h>

namespace orvo {
namespace {

constexpr int kInherit = 1;

// Returns null for a block that is there already.
HANDLE CreateNew(const char* name, unsigned long size) {
    const HANDLE mapping = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                              static_cast<std::uint32_t>(size), name);
    if (mapping == nullptr || GetLastError() != ERROR_ALREADY_EXISTS) return mapping;
    CloseHandle(mapping);
    return nullptr;
}

}  // namespace

CMapFileHelper::~CMapFileHelper() {
    if (m_autoClose == 0) return;
    UnmapView();
    CloseMap();
}

int CMapFileHelper::DoesMapExist(const char* name) {
    const HANDLE mapping = OpenFileMappingA(FILE_MAP_ALL_ACCESS, kInherit, name);
    if (mapping == nullptr) return 0;
    CloseHandle(mapping);
    return 1;
}

int CMapFileHelper::CreateOrOpenMap(int create, const char* name, unsigned long size,
                                    unsigned long firstValue, unsigned long secondValue) {
    const HANDLE mapping =
        create != 0 ? CreateNew(name, size) : OpenFileMappingA(FILE_MAP_ALL_ACCESS, kInherit, name);
    if (mapping != nullptr) {
        m_isCreated = create;
        m_name = name;
        m_size = size;
        m_firstValue = firstValue;
        m_secondValue = secondValue;
        m_mapping = mapping;
        m_view = nullptr;
    }
    return m_mapping != nullptr;
}

int CMapFileHelper::MapView() {
    if (m_mapping == nullptr) return 0;
    void* view = MapViewOfFileEx(m_mapping, FILE_MAP_ALL_ACCESS, 0, 0, m_size, nullptr);
    if (view == nullptr) return 0;
    m_view = static_cast<CMapFileHeader*>(view);
    if (m_isCreated != 0) {
        m_view->firstValue = static_cast<std::uint32_t>(m_firstValue);
        m_view->secondValue = static_cast<std::uint32_t>(m_secondValue);
        m_view->dataSize = 0;
        m_view->reservedToo[0] = 0;
        m_view->reservedToo[1] = 0;
    }
    return 1;
}

int CMapFileHelper::UnmapView() {
    if (m_view == nullptr) return 1;
    const int isUnmapped = UnmapViewOfFile(m_view);
    if (isUnmapped != 0) m_view = nullptr;
    return isUnmapped;
}

int CMapFileHelper::CloseMap() {
    const int isUnmapped = UnmapView();
    if (isUnmapped == 0) return 0;
    if (m_mapping != nullptr) CloseHandle(m_mapping);
    m_mapping = nullptr;
    return isUnmapped;
}

int CMapFileHelper::SetData(void* data, unsigned long length) {
    if (m_view == nullptr || m_size < sizeof(CMapFileHeader) ||
        length > m_size - sizeof(CMapFileHeader)) {
        return 0;
    }
    if (length != 0) std::memcpy(GetDataBuffer(), data, length);
    m_view->dataSize = static_cast<std::uint32_t>(length);
    return 1;
}

unsigned long CMapFileHelper::GetDataSize() {
    return m_view == nullptr ? 0 : m_view->dataSize;
}

void* CMapFileHelper::GetDataBuffer() {
    return m_view == nullptr ? nullptr : m_view + 1;
}

}  // namespace orvo
