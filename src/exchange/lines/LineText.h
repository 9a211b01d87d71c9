// The text of content lines: decoding what other programs wrote, and encoding our own.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <exchange/lines/ContentLine.h>
#include <exchange/lines/LineList.h>

namespace orvo {

// The formats of cards and calendars, each with its own ways to write text.
enum class Dialect : std::uint8_t { Card21, Card30, Card40, Calendar10, Calendar20 };

// True for the formats that have quoted-printable and character sets in place of escapes.
constexpr bool IsQuotedDialect(Dialect dialect) {
    return dialect == Dialect::Card21 || dialect == Dialect::Calendar10;
}

// The format of a card, by its VERSION; without one, by how its parameters are written.
Dialect DialectOfCard(const LineList& lines);

// Undoes quoted-printable; what isn't of its form stays. Undoes base64; what isn't of it is passed
// over.
void AppendQuotedPrintable(std::string_view text, std::string& bytes);
void AppendBase64(std::string_view text, std::string& bytes);

// Base64 in one line, with the padding of RFC 4648.
std::string ToBase64(std::string_view bytes);

// Walks over the parts of a value, between dividers that don't stand behind a backslash. Next is
// false once all parts are taken.
class PartWalk {
public:
    PartWalk(std::string_view value, std::string_view dividers)
        : m_rest(value), m_dividers(dividers) {}
    bool Next(std::string_view& part);

private:
    std::string_view m_rest;
    std::string_view m_dividers;
    bool m_over = false;
};

// The part of that number, from 0, between dividers; empty where there are fewer.
std::string_view PartOf(std::string_view value, std::size_t number, char divider);

// Whether a value is one text, or several parts that ';' divides. In the quoted dialects a
// backslash of a text stands for itself, unless it is before a ';'; of a part, unless it is before
// a divider.
enum class ValueKind : std::uint8_t { Text, Parts };

// Undoes the escapes of a text or of one part; its line ends become "\n".
void Unescape(std::string_view part, Dialect dialect, std::string& text,
              ValueKind kind = ValueKind::Text);

// Escapes text so that Unescape gives it back.
std::string Escape(std::string_view text, Dialect dialect, ValueKind kind = ValueKind::Text);

// The value of a URL line, which has no escapes. Where `text` can't stand in a URL as it is, what
// can't is percent-encoded and `isEncoded` is set; DecodePercents gives the text back.
std::string EncodeUri(std::string_view text, bool& isEncoded);

// The value with the parts of those numbers replaced by escaped text; it grows as needed.
struct NewPart {
    std::size_t number;
    std::string_view text;
};
std::string ReplaceParts(std::string_view value, std::initializer_list<NewPart> parts, char divider,
                         Dialect dialect);

// One line for a value that is escaped already, folded where the dialect folds. The head is group,
// name and parameters; those that name an encoding are added here.
std::string FormatLine(std::string_view head, std::string_view value, Dialect dialect,
                       std::string_view lineEnd);

// True for a parameter that says how the value is encoded.
bool TellsEncoding(const Parameter& parameter);

// The text of a parameter value, with the escapes by '^', and back, in quotes.
std::string DecodeParameter(std::string_view value);
std::string QuoteParameter(std::string_view text);

// The text up to its first line end.
std::string_view FirstLineOf(std::string_view text);

// Equal but for the way their lines end.
bool IsSameText(std::string_view left, std::string_view right);

}  // namespace orvo
