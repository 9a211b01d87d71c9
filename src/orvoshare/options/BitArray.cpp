// CBitArrayHelper: a fixed number of bits that an archive can store.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <utility>

#include <orvoshare/options/BitArray.h>
#include <platform/io/CArchive.h>

namespace orvo {
namespace {

constexpr unsigned long kByteBits = 8;
constexpr unsigned long kBlock = 65536;

unsigned long BytesFor(unsigned long count) {
    return count / kByteBits + (count % kByteBits != 0 ? 1 : 0);
}

std::uint8_t MaskOf(unsigned long index) {
    return static_cast<std::uint8_t>(1U << (index % kByteBits));
}

// Block by block, so that no more is allocated than the archive holds.
std::vector<std::uint8_t> ReadBytes(CArchive& archive, unsigned long size) {
    std::vector<std::uint8_t> bytes;
    while (bytes.size() < size) {
        const std::size_t done = bytes.size();
        const std::size_t part = std::min(size - done, kBlock);
        bytes.resize(done + part);
        if (archive.Read(bytes.data() + done, part) != part) {
            throw CArchiveException(CArchiveException::endOfFile,
                                    "a bit array can't be read: the archive ends inside it");
        }
    }
    return bytes;
}

}  // namespace

const CRuntimeClass CBitArrayHelper::classCBitArrayHelper(
    "CBitArrayHelper", 1,
    [] { return std::unique_ptr<CObject>(std::make_unique<CBitArrayHelper>()); },
    &CObject::classCObject);

const CRuntimeClass* CBitArrayHelper::GetRuntimeClass() const {
    return &classCBitArrayHelper;
}

void CBitArrayHelper::Serialize(CArchive& archive) {
    CObject::Serialize(archive);
    if (archive.IsStoring()) {
        archive << m_count << GetArraySize();
        archive.Write(m_bytes.data(), m_bytes.size());
        return;
    }
    unsigned long count = 0;
    unsigned long size = 0;
    archive >> count >> size;
    if (size != BytesFor(count)) {
        throw CArchiveException(
            CArchiveException::badValue,
            "a bit array can't be read: its numbers of bits and bytes don't fit each other");
    }
    m_bytes = ReadBytes(archive, size);
    m_count = count;
}

int CBitArrayHelper::Initialize(unsigned long count) {
    m_bytes = std::vector<std::uint8_t>(BytesFor(count));
    m_count = count;
    return 1;
}

int CBitArrayHelper::SetValue(unsigned long index, int value) {
    if (index >= m_count) return 0;
    std::uint8_t& byte = m_bytes[index / kByteBits];
    const std::uint8_t others = byte & static_cast<std::uint8_t>(~MaskOf(index));
    byte = value != 0 ? others | MaskOf(index) : others;
    return 1;
}

int CBitArrayHelper::GetValue(unsigned long index, int* error) const {
    const bool isInside = index < m_count;
    if (error != nullptr) *error = isInside ? 0 : 1;
    return isInside && (m_bytes[index / kByteBits] & MaskOf(index)) != 0 ? 1 : 0;
}

int CBitArrayHelper::GetByteArray(unsigned char* target) const {
    std::copy(m_bytes.begin(), m_bytes.end(), target);
    return m_bytes.empty() ? 0 : 1;
}

}  // namespace orvo
