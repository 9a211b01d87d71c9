// CFile: an open file, and the exceptions of files and archives.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <utility>

#include <platform/Export.h>

namespace orvo {

// What went wrong with a file or an archive; what() says what, where and why in one line.
class ORVO_API CException : public std::exception {
public:
    explicit CException(std::string message) : m_message(std::move(message)) {}
    const char* what() const noexcept override { return m_message.c_str(); }

private:
    std::string m_message;
};

class ORVO_API CFileException : public CException {
public:
    using CException::CException;
};

class ORVO_API CArchiveException : public CException {
public:
    enum Cause { genericException, endOfFile, badValue };

    CArchiveException(Cause cause, std::string message)
        : CException(std::move(message)), m_cause(cause) {}
    Cause GetCause() const { return m_cause; }

private:
    Cause m_cause;
};

// An open file; the destructor closes it. Not for copying.
class ORVO_API CFile {
public:
    enum OpenFlags : unsigned {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareExclusive = 0x0010,  // fails while another CFile, of any process, has the file open
        modeCreate = 0x1000,      // makes the file, or empties it
    };
    enum SeekPosition { begin, current, end };

    CFile() = default;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    virtual ~CFile();

    // Without shareExclusive it fails while a CFile with shareExclusive has the file open.
    // Returns:  non-zero on success; else 0, with an existing file as it was, and `error`, where
    //           given, says what, where and why in one line.
    virtual int Open(const char* path, unsigned flags, std::string* error = nullptr);

    // Reads up to `count` bytes and returns their number, less than `count` only at the end of the
    // file.
    // Fails:    with CFileException, as all that follow.
    virtual std::size_t Read(void* buffer, std::size_t count);
    virtual void Write(const void* buffer, std::size_t count);
    virtual long Seek(long offset, SeekPosition from);
    virtual std::size_t GetLength();
    // Brings what was written to the disk.
    virtual void Flush();
    virtual void Close();

    // Closes the file and forgets every error.
    virtual void Abort() noexcept;

    // The path of the file that is open, or was the last one.
    const std::string& GetFilePath() const { return m_path; }

private:
    int m_descriptor = -1;
    std::string m_path;
};

}  // namespace orvo
