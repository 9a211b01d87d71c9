// The text of content lines: decoding, escapes and our own lines.
// SPDX-License-Identifier: MIT
#include <random>

#include <exchange/lines/LineText.h>
#include <exchange/lines/ValueDecoder.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

constexpr Dialect kDialects[] = {Dialect::Card21, Dialect::Card30, Dialect::Card40,
                                 Dialect::Calendar10, Dialect::Calendar20};

std::string Unescaped(std::string_view part, Dialect dialect, ValueKind kind = ValueKind::Text) {
    std::string text;
    Unescape(part, dialect, text, kind);
    return text;
}

std::string DecodeFirst(std::string_view text) {
    LineKeeper lines;
    ContentLineReader reader(text);
    for (ContentLine line; reader.Next(line);) lines.Add(line, false, reader.Rest());
    std::string storage;
    return std::string(ValueDecoder(LineList(lines)).Decode(lines.Line(0), storage));
}

TEST(ValueDecoder, EachWayToWriteTextGivesUtf8) {
    const char* const rows[][3] = {
        {"plain UTF-8", "N:\xC3\xA9", "é"},
        {"quoted-printable UTF-8", "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=C3=A9=3d", "é="},
        {"a soft line break at the end", "N;QUOTED-PRINTABLE:a= \t", "a"},
        {"what is no quoted-printable stays", "N;QUOTED-PRINTABLE:=G1=4", "=G1=4"},
        {"a set after the encoding", "N;QUOTED-PRINTABLE;CHARSET=Shift_JIS:=8E=52", "山"},
        {"a set in the raw bytes", "N;CHARSET=SHIFT_JIS:\x8E\x52", "山"},
        {"base64", "N;ENCODING=b:w6k=", "é"},
        {"broken base64", "N;ENCODING=b:w*6k", "é"},
        {"an unknown set", "N;CHARSET=murks;QUOTED-PRINTABLE:=E9", "é"},
        {"the wrong set", "N;CHARSET=US-ASCII:\xC3\xA9", "é"},
        {"Japanese without a set", "N:\x8E\x52\x93\x63\x81\x40\x91\xBE\x98\x59", "山田　太郎"},
        {"Latin without a set", "N:M\xFCller", "Müller"},
        {"the set of another line", "N:\xCA\xE8\xBF\xE2\nL;CHARSET=windows-1251:x", "Київ"},
        {"a set of another line that doesn't fit", "N:M\xFCller\nL;CHARSET=Shift_JIS:x", "Müller"},
    };
    for (const auto& [why, text, want] : rows) EXPECT_EQ(DecodeFirst(text), want) << why;
}

TEST(LineText, EscapesAreUndoneAsEachFormatHasThem) {
    // Of 3.0, 4.0 and iCalendar, and of 2.1 and vCalendar.
    const char* const rows[][4] = {
        {"line ends", "a\\nb\\Nc", "a\nb\nc", "a\\nb\\Nc"},
        {"dividers", "a\\;b\\,c", "a;b,c", "a;b\\,c"},
        {"a backslash", "a\\\\nb", "a\\nb", "a\\\\nb"},
        {"backslashes before a divider", "a\\\\;b", "a\\;b", "a\\;b"},
        {"a colon and a quote", "http\\://x \\\"", "http://x \"", "http\\://x \\\""},
        {"any other backslash", "C:\\temp\\", "C:\\temp\\", "C:\\temp\\"},
        {"line ends as they are", "a\r\nb\rc", "a\nb\nc", "a\nb\nc"},
    };
    for (const auto& [why, in, escaped, quoted] : rows) {
        for (const Dialect dialect : kDialects) {
            EXPECT_EQ(Unescaped(in, dialect), IsQuotedDialect(dialect) ? quoted : escaped) << why;
        }
    }
}

TEST(LineText, ThePartsOfAnOldCardTakeEscapesBeforeDividersAlone) {
    const auto part = [](const char* text) {
        return Unescaped(text, Dialect::Card21, ValueKind::Parts);
    };
    EXPECT_EQ(part("a\\;b\\,c\\:d"), "a;b,c:d");
    EXPECT_EQ(part("C:\\new\\\\x"), "C:\\new\\\\x");
    EXPECT_EQ(part("a\\\\"), "a\\");
    EXPECT_EQ(part("a\\"), "a\\");
    EXPECT_EQ(Escape("a;b,c\\d", Dialect::Card21), "a;b,c\\d");
    EXPECT_EQ(Escape("a;b,c\\d\\", Dialect::Card21, ValueKind::Parts), "a\\;b,c\\d\\\\");
}

TEST(LineText, PartsAreDividedAtDividersThatAreNotEscaped) {
    constexpr std::string_view value = "a\\;b;c\\\\;;d";

    EXPECT_EQ(PartOf(value, 0, ';'), "a\\;b");
    EXPECT_EQ(PartOf(value, 1, ';'), "c\\\\");
    EXPECT_EQ(PartOf(value, 3, ';'), "d");
    EXPECT_EQ(PartOf(value, 4, ';'), "");
    EXPECT_EQ(ReplaceParts(value, {{1, "x;"}, {5, "e"}}, ';', Dialect::Card30), "a\\;b;x\\;;;d;;e");
}

TEST(LineText, LongLinesAreFoldedBetweenCharacters) {
    std::string value;
    for (int i = 0; i < 60; ++i) value += "あ";

    const std::string line = FormatLine("NOTE", value, Dialect::Card30, "\r\n");

    for (std::string_view rest = line; !rest.empty(); rest.remove_prefix(rest.find("\r\n") + 2)) {
        EXPECT_LE(rest.find("\r\n"), 75u);
        EXPECT_NE(static_cast<unsigned char>(rest[rest[0] == ' ' ? 1 : 0]) & 0xC0u, 0x80u);
    }
    EXPECT_EQ(DecodeFirst(line), value);
}

TEST(LineText, AnyTextComesBackFromALineOfAnyFormat) {
    constexpr std::string_view pieces[] = {
        "a", "\n", ";",   ",",     ":",    "\\", "\\n", " ",   "\t",
        "=", "^",  "END", "BEGIN", "あい", "é",  "\"",  "=3D", "long text without end "};
    std::mt19937 random(11);
    for (const Dialect dialect : kDialects) {
        for (int round = 0; round < 500; ++round) {
            const std::string text = AnyText(pieces, 60, random);
            const std::string line = FormatLine("NOTE", Escape(text, dialect), dialect, "\r\n");

            ContentLineReader reader(line);
            ContentLine read;
            ASSERT_TRUE(reader.Next(read));
            ASSERT_EQ(Unescaped(DecodeFirst(line), dialect), text) << line;
            ASSERT_EQ(read.source, line);

            const std::string parts =
                FormatLine("N", ReplaceParts("x;y;z", {{1, text}}, ';', dialect), dialect, "\r\n");
            const std::string decoded = DecodeFirst(parts);
            ASSERT_EQ(Unescaped(PartOf(decoded, 1, ';'), dialect, ValueKind::Parts), text) << parts;
            ASSERT_EQ(PartOf(decoded, 2, ';'), "z") << parts;
        }
    }
}

TEST(LineText, AParameterKeepsQuotesAndLineEnds) {
    const std::string quoted = QuoteParameter("a\"b^c\nd;e");

    EXPECT_EQ(quoted, "\"a^'b^^c^nd;e\"");
    EXPECT_EQ(DecodeParameter(Unquoted(quoted)), "a\"b^c\nd;e");
}

}  // namespace
}  // namespace orvo
