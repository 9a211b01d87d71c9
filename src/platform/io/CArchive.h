// CArchive: values in a file, little-endian, in the byte forms of the framework's archives.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <platform/Export.h>
#include <platform/io/CFile.h>
#include <platform/text/CString.h>

namespace orvo {

// Reads or writes one value after the other. A `long` and an `unsigned long` take 4 bytes; storing
// one that doesn't fit throws CArchiveException::badValue. A text is a count and its bytes: one
// byte for fewer than 255; else FF and two bytes for fewer than 65534; else FF FF FF and four
// bytes.
// Fails:    with CArchiveException::endOfFile where the file ends inside a value; nothing is then
//           allocated for what it promised. With badValue for a count that no text has, and with
//           genericException where the archive is closed or of the other direction. A value that
//           can't be read keeps what it held.
class ORVO_API CArchive {
public:
    enum Mode : unsigned { store = 0, load = 1, bNoFlushOnDelete = 2 };

    // Requires: the file lives and stays open until the archive is closed.
    CArchive(CFile* file, unsigned mode, int bufferSize = 4096);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    // Closes the archive; with bNoFlushOnDelete what Close didn't write is dropped.
    ~CArchive();

    bool IsLoading() const { return (m_mode & load) != 0; }
    bool IsStoring() const { return !IsLoading(); }

    // Read returns the number of bytes read, less than `count` only at the end of the file.
    std::size_t Read(void* buffer, std::size_t count);
    void Write(const void* buffer, std::size_t count);

    // Hands what was stored to the file; loading, puts the file's position behind the last value
    // read.
    void Flush();

    // Flushes, and lets go of the file, also where that fails.
    void Close();

    CArchive& operator<<(std::uint8_t value);
    CArchive& operator<<(std::uint16_t value);
    CArchive& operator<<(int value);
    CArchive& operator<<(unsigned value);
    CArchive& operator<<(long value);
    CArchive& operator<<(unsigned long value);
    CArchive& operator<<(double value);
    CArchive& operator<<(const CString& text);

    CArchive& operator>>(std::uint8_t& value);
    CArchive& operator>>(std::uint16_t& value);
    CArchive& operator>>(int& value);
    CArchive& operator>>(unsigned& value);
    CArchive& operator>>(long& value);
    CArchive& operator>>(unsigned long& value);
    CArchive& operator>>(double& value);
    CArchive& operator>>(CString& text);

private:
    [[noreturn]] void Fail(CArchiveException::Cause cause, const std::string& reason) const;
    void Require(bool loading) const;

    // All bytes of one value; endOfFile where the file ends before.
    void ReadWhole(void* buffer, std::size_t count);

    template <class Unsigned>
    Unsigned Load();
    template <class Unsigned>
    void Store(Unsigned value);
    std::size_t LoadTextLength();
    void StoreTextLength(std::size_t length);

    CFile* m_file;  // the caller's; null once the archive is closed
    unsigned m_mode;
    std::vector<std::uint8_t> m_buffer;
    std::size_t m_position = 0;  // the next byte of the buffer to read, or to write
    std::size_t m_filled = 0;    // loading: the bytes of the buffer that hold file content
};

}  // namespace orvo
