// CArchive: values in a file, little-endian.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include <platform/io/CArchive.h>

namespace orvo {
namespace {

constexpr int kLeastBuffer = 128;

// The counts of a text: one byte below kByteMark; else that mark and two bytes below kWideMark;
// else both marks and four bytes. kWideMark as the two bytes announces text of 16-bit characters.
constexpr std::uint8_t kByteMark = 0xFF;
constexpr std::uint16_t kWideMark = 0xFFFE;
constexpr std::uint16_t kWordMark = 0xFFFF;
constexpr std::uint32_t kLongestText = 0x7FFFFFFF;

constexpr std::size_t kTextPart = 65536;

}  // namespace

CArchive::CArchive(CFile* file, unsigned mode, int bufferSize)
    : m_file(file),
      m_mode(mode),
      m_buffer(static_cast<std::size_t>(std::max(bufferSize, kLeastBuffer))) {}

CArchive::~CArchive() {
    if ((m_mode & bNoFlushOnDelete) != 0) return;
    try {
        Close();
    } catch (const CException&) {
        // Nobody is left to hear of a failure; whoever must know calls Close.
    }
}

void CArchive::Fail(CArchiveException::Cause cause, const std::string& reason) const {
    const std::string path = m_file == nullptr ? std::string("archive") : m_file->GetFilePath();
    const char* what = IsLoading() ? ": can't be read: " : ": can't be written: ";
    throw CArchiveException(cause, path + what + reason);
}

void CArchive::Require(bool loading) const {
    if (m_file == nullptr) Fail(CArchiveException::genericException, "it is closed");
    if (loading == IsLoading()) return;
    Fail(CArchiveException::genericException,
         loading ? "it is open for writing only" : "it is open for reading only");
}

std::size_t CArchive::Read(void* buffer, std::size_t count) {
    Require(true);
    std::uint8_t* target = static_cast<std::uint8_t*>(buffer);
    std::size_t done = 0;
    while (done < count) {
        if (m_position == m_filled) {
            m_position = m_filled = 0;
            m_filled = m_file->Read(m_buffer.data(), m_buffer.size());
            if (m_filled == 0) break;
        }
        const std::size_t part = std::min(count - done, m_filled - m_position);
        std::memcpy(target + done, m_buffer.data() + m_position, part);
        m_position += part;
        done += part;
    }
    return done;
}

void CArchive::Write(const void* buffer, std::size_t count) {
    Require(false);
    const std::uint8_t* source = static_cast<const std::uint8_t*>(buffer);
    std::size_t done = 0;
    while (done < count) {
        if (m_position == m_buffer.size()) Flush();
        const std::size_t part = std::min(count - done, m_buffer.size() - m_position);
        std::memcpy(m_buffer.data() + m_position, source + done, part);
        m_position += part;
        done += part;
    }
}

void CArchive::Flush() {
    if (m_file == nullptr) Fail(CArchiveException::genericException, "it is closed");
    // Emptied first: what failed half-way isn't to be written a second time.
    const std::size_t position = std::exchange(m_position, 0);
    const std::size_t filled = std::exchange(m_filled, 0);
    if (IsStoring()) {
        m_file->Write(m_buffer.data(), position);
    } else if (position < filled) {
        m_file->Seek(static_cast<long>(position) - static_cast<long>(filled), CFile::current);
    }
}

void CArchive::Close() {
    if (m_file == nullptr) return;
    try {
        Flush();
    } catch (...) {
        m_file = nullptr;
        throw;
    }
    m_file = nullptr;
}

void CArchive::ReadWhole(void* buffer, std::size_t count) {
    if (Read(buffer, count) == count) return;
    Fail(CArchiveException::endOfFile, "the file ends inside a value");
}

template <class Unsigned>
Unsigned CArchive::Load() {
    std::uint8_t bytes[sizeof(Unsigned)];
    ReadWhole(bytes, sizeof bytes);
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < sizeof bytes; ++i) value |= std::uint64_t{bytes[i]} << (8 * i);
    return static_cast<Unsigned>(value);
}

template <class Unsigned>
void CArchive::Store(Unsigned value) {
    std::uint8_t bytes[sizeof(Unsigned)];
    for (std::size_t i = 0; i < sizeof bytes; ++i) {
        bytes[i] = static_cast<std::uint8_t>(std::uint64_t{value} >> (8 * i));
    }
    Write(bytes, sizeof bytes);
}

CArchive& CArchive::operator<<(std::uint8_t value) {
    Store(value);
    return *this;
}

CArchive& CArchive::operator<<(std::uint16_t value) {
    Store(value);
    return *this;
}

CArchive& CArchive::operator<<(int value) {
    Store(static_cast<std::uint32_t>(value));
    return *this;
}

CArchive& CArchive::operator<<(unsigned value) {
    Store(std::uint32_t{value});
    return *this;
}

CArchive& CArchive::operator<<(long value) {
    const int narrow = static_cast<int>(value);
    if (narrow != value) Fail(CArchiveException::badValue, "a number takes more than 4 bytes");
    return *this << narrow;
}

CArchive& CArchive::operator<<(unsigned long value) {
    const unsigned narrow = static_cast<unsigned>(value);
    if (narrow != value) Fail(CArchiveException::badValue, "a number takes more than 4 bytes");
    return *this << narrow;
}

CArchive& CArchive::operator<<(double value) {
    Store(std::bit_cast<std::uint64_t>(value));
    return *this;
}

CArchive& CArchive::operator<<(const CString& text) {
    const std::string_view bytes = text.View();
    StoreTextLength(bytes.size());
    Write(bytes.data(), bytes.size());
    return *this;
}

CArchive& CArchive::operator>>(std::uint8_t& value) {
    value = Load<std::uint8_t>();
    return *this;
}

CArchive& CArchive::operator>>(std::uint16_t& value) {
    value = Load<std::uint16_t>();
    return *this;
}

CArchive& CArchive::operator>>(int& value) {
    value = static_cast<int>(Load<std::uint32_t>());
    return *this;
}

CArchive& CArchive::operator>>(unsigned& value) {
    value = Load<std::uint32_t>();
    return *this;
}

CArchive& CArchive::operator>>(long& value) {
    value = static_cast<int>(Load<std::uint32_t>());
    return *this;
}

CArchive& CArchive::operator>>(unsigned long& value) {
    value = Load<std::uint32_t>();
    return *this;
}

CArchive& CArchive::operator>>(double& value) {
    value = std::bit_cast<double>(Load<std::uint64_t>());
    return *this;
}

CArchive& CArchive::operator>>(CString& text) {
    std::size_t left = LoadTextLength();
    std::string bytes;
    while (left > 0) {
        const std::size_t part = std::min(left, kTextPart);
        const std::size_t length = bytes.size();
        bytes.resize(length + part);
        ReadWhole(bytes.data() + length, part);
        left -= part;
    }
    text.Bytes() = std::move(bytes);
    return *this;
}

std::size_t CArchive::LoadTextLength() {
    const std::uint8_t byte = Load<std::uint8_t>();
    if (byte != kByteMark) return byte;
    const std::uint16_t word = Load<std::uint16_t>();
    if (word == kWideMark) Fail(CArchiveException::badValue, "a text is of 16-bit characters");
    if (word != kWordMark) return word;
    const std::uint32_t count = Load<std::uint32_t>();
    if (count > kLongestText) Fail(CArchiveException::badValue, "a text is longer than 2 GB");
    return count;
}

void CArchive::StoreTextLength(std::size_t length) {
    if (length > kLongestText) Fail(CArchiveException::badValue, "a text is longer than 2 GB");
    if (length < kByteMark) {
        Store(static_cast<std::uint8_t>(length));
    } else if (length < kWideMark) {
        Store(kByteMark);
        Store(static_cast<std::uint16_t>(length));
    } else {
        Store(kByteMark);
        Store(kWordMark);
        Store(static_cast<std::uint32_t>(length));
    }
}

}  // namespace orvo
