// CString: 8-bit text in the system's code page, with its length in bytes.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

// A byte string that may hold any byte, zero included. Positions and lengths are in bytes.
// Operations that look for a character or a set of characters go through the text character by
// character in the system's code page, so that a trail byte is never taken for an ASCII character.
// A position outside the text leads to an empty result or -1, never a fault.
class ORVO_API CString {
public:
    CString() = default;
    CString(const char* text);  // a null pointer gives an empty text
    CString(const char* text, int length);
    CString(std::string_view text) : m_text(text) {}
    CString(std::string text) : m_text(std::move(text)) {}
    explicit CString(char character, int repeat = 1);

    CString& operator=(const char* text);
    CString& operator=(std::string_view text);
    CString& operator=(char character);

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }

    char GetAt(int position) const;  // 0 outside the text
    void SetAt(int position, char character);
    char operator[](int position) const { return GetAt(position); }

    // The bytes, ended by a zero byte; valid until the text changes.
    operator const char*() const { return m_text.c_str(); }
    std::string_view View() const { return m_text; }
    const std::string& Bytes() const { return m_text; }
    std::string& Bytes() { return m_text; }

    CString& operator+=(const CString& other);
    CString& operator+=(const char* text);
    CString& operator+=(char character);

    // Compare is by unsigned bytes; CompareNoCase ignores the case of letters in the system's code
    // page. Both return a negative number, 0 or a positive number.
    int Compare(const CString& other) const;
    int CompareNoCase(const CString& other) const;

    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    // The longest start of the text that holds only (SpanIncluding) or none (SpanExcluding) of the
    // characters of `set`.
    CString SpanIncluding(const char* set) const;
    CString SpanExcluding(const char* set) const;

    // The position of the first (ReverseFind: last) occurrence at or after `start`, or -1.
    int Find(char character, int start = 0) const;
    int Find(const char* text, int start = 0) const;
    int ReverseFind(char character) const;
    int FindOneOf(const char* set) const;

    // Each returns the number of changes (Insert and Delete: the new length).
    int Replace(char from, char to);
    int Replace(const char* from, const char* to);
    int Remove(char character);
    int Insert(int position, char character);
    int Insert(int position, const char* text);
    int Delete(int position, int count = 1);

    void MakeUpper();
    void MakeLower();
    void
    TrimLeft();  // white space: blank, tab, line feed, vertical tab, form feed, carriage return
    void TrimLeft(const char* set);
    void TrimRight();
    void TrimRight(const char* set);

    // As printf does; the result replaces the text, also where the text itself is an argument.
    void Format(const char* format, ...) __attribute__((format(printf, 2, 3)));

    // Sets the text to the string of that number: from the module of AfxGetResourceHandle, else
    // from the first extension module that holds one. Defined in platform/module.
    // Returns:  non-zero when found.
    // Fails:    with 0 and an empty text.
    int LoadString(unsigned id);

    // Found only where one side is a CString, so that they stay out of comparisons of other texts.
    friend bool operator==(const CString& left, const CString& right) {
        return left.View() == right.View();
    }
    friend bool operator==(const CString& left, const char* right) {
        return left.View() == CString(right).View();
    }
    friend bool operator<(const CString& left, const CString& right) {
        return left.Compare(right) < 0;
    }

private:
    std::string m_text;
};

ORVO_API CString operator+(const CString& left, const CString& right);
ORVO_API CString operator+(const CString& left, const char* right);
ORVO_API CString operator+(const char* left, const CString& right);
ORVO_API CString operator+(const CString& left, char right);

}  // namespace orvo
