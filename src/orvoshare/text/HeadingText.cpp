// The heading of a list as one line of numbers.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdlib>
#include <limits>

#include <orvoshare/text/HeadingText.h>

namespace orvo {
namespace {

class HeadingReader {
public:
    explicit HeadingReader(const char* text, int length) : m_next(text), m_end(text + length) {}

    void Skip() {
        if (m_next != m_end) ++m_next;
    }

    // Passes one byte and reads the number behind it; false at the end of the text.
    bool Read(int& number) {
        Skip();
        if (m_next == m_end) return false;
        constexpr int kBase = 10;
        char* behind = nullptr;
        const long value = std::strtol(m_next, &behind, kBase);
        m_next = behind;
        number = static_cast<int>(std::clamp<long>(value, std::numeric_limits<int>::min(),
                                                   std::numeric_limits<int>::max()));
        return true;
    }

    // A count and as many pairs, or as the text holds.
    void ReadColumns(std::vector<HeadingColumn>& columns) {
        int count = 0;
        Read(count);
        HeadingColumn column;
        for (; count > 0 && Read(column.id) && Read(column.width); --count) {
            columns.push_back(column);
        }
    }

private:
    const char* m_next;
    const char* m_end;  // a zero byte
};

void AppendColumns(const std::vector<HeadingColumn>& columns, CString& text) {
    CString part;
    part.Format("(%d)", static_cast<int>(columns.size()));
    text += part;
    for (const HeadingColumn& column : columns) {
        part.Format(" %d %d", column.id, column.width);
        text += part;
    }
}

}  // namespace

CString FormatHeading(const Heading& heading) {
    CString text;
    AppendColumns(heading.shown, text);
    text += ' ';
    AppendColumns(heading.hidden, text);
    return text;
}

Heading ParseHeading(const CString& text) {
    HeadingReader reader(text, text.GetLength());
    Heading heading;
    reader.ReadColumns(heading.shown);
    if (heading.shown.empty()) return heading;
    reader.Skip();
    reader.ReadColumns(heading.hidden);
    return heading;
}

}  // namespace orvo
