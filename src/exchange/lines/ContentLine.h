// Content lines: the logical lines of which card and calendar files are made.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <string>
#include <string_view>
#include <utility>

namespace orvo {

// One line "group.NAME;PARAMETERS:value". The views live as long as the text and, for what was
// folded, until the reader's next Forget. A line that isn't of this form, an empty one too, has no
// name; all of its text is the value.
struct ContentLine {
    std::string_view source;  // as it came, with folds and line ends
    std::string_view text;    // without them; all that follows is of it
    std::string_view group;
    std::string_view name;
    std::string_view parameters;
    std::string_view value;
    std::size_t number = 0;  // of its first physical line, from 1
};

// Sets all that is of the line's text.
void TakeApart(ContentLine& line);

// Reads the content lines of a text one after the other, in time linear to the text. Lines end at
// CR LF, LF or CR. A line goes on in the next one where that begins with a blank or a tab, where it
// is quoted-printable and ends in a soft break, and where it is base64 and only base64 follows. A
// byte order mark before a line, as joined files have it, is no part of it.
class ContentLineReader {
public:
    explicit ContentLineReader(std::string_view text, std::size_t firstNumber = 1)
        : m_text(text), m_number(firstNumber) {}

    // Returns:  false at the end of the text.
    bool Next(ContentLine& line);

    // Goes back to the line that was read last, so that Next returns it again.
    void GoBackTo(const ContentLine& line);

    // From the line on that Next returns next.
    std::string_view Rest() const { return m_text.substr(m_position); }

    // Frees what was unfolded so far.
    void Forget() { m_unfolded.reset(); }

    // Hands over what was unfolded so far, so that the lines outlive the next Forget; null for
    // nothing.
    using Unfolded = std::unique_ptr<std::pmr::monotonic_buffer_resource>;
    Unfolded TakeUnfolded() { return std::move(m_unfolded); }

private:
    std::string_view TakePhysicalLine();
    bool NextIsFold() const;
    bool NextIsBase64();
    bool NextIsStructure();
    void Unfold(std::string_view first);

    std::string_view m_text;
    std::size_t m_position = 0;
    std::size_t m_number;
    std::size_t m_lineFeed =
        0;  // the first line feed at or after m_position, once it was looked for
    bool m_lineFeedKnown = false;
    std::string m_joined;
    Unfolded m_unfolded;
};

// One parameter of a line. A bare one, such as HOME in "TEL;HOME:1", has no name.
struct Parameter {
    std::string_view name;
    std::string_view value;   // as written, quotes included
    std::string_view source;  // name, "=" and value
};

// Walks over the parameters of a line; a ';' inside quotes divides nothing.
class ParameterWalk {
public:
    explicit ParameterWalk(std::string_view parameters) : m_rest(parameters) {}
    bool Next(Parameter& parameter);

private:
    std::string_view m_rest;
};

// The value of the first parameter of that name, without quotes; empty where there is none.
std::string_view FindParameter(std::string_view parameters, std::string_view name);

// How a value was made fit for sending, as its parameters say.
enum class TransferEncoding { None, QuotedPrintable, Base64 };
TransferEncoding EncodingOf(std::string_view parameters);

// True for quoted-printable text that goes on in the next line: it ends in "=", behind which blanks
// may have got.
bool EndsInSoftBreak(std::string_view text);

// True where a TYPE parameter, or a bare one, lists the word.
bool HasType(std::string_view parameters, std::string_view word);

// Takes the next item of a list whose items are divided by commas and may stand in quotes.
// Returns:  false where the list is used up.
bool NextListItem(std::string_view& list, std::string_view& item);

// Without the blanks and tabs at both ends, and without the quotes around it.
std::string_view Trimmed(std::string_view text);
std::string_view Unquoted(std::string_view text);

// Compare ASCII text without regard to case.
bool EqualsIgnoringCase(std::string_view left, std::string_view right);
bool StartsIgnoringCase(std::string_view text, std::string_view start);

}  // namespace orvo
