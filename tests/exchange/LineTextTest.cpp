// The text of content lines: decoding, escapes and our own lines.
// SPDX-License-Identifier: MIT
#include <random>

#include <gmock/gmock.h>

#include <exchange/lines/LineText.h>
#include <exchange/lines/ValueDecoder.h>

namespace orvo {
namespace {

using testing::ElementsAre;

constexpr Dialect kDialects[] = {Dialect::Card21, Dialect::Card30, Dialect::Card40,
                                 Dialect::Calendar10, Dialect::Calendar20};

std::string DecodeFirst(std::string_view text) {
    LineKeeper lines;
    ContentLineReader reader(text);
    for (ContentLine line; reader.Next(line);) lines.Add(line, false, reader.Rest());
    std::string storage;
    return std::string(ValueDecoder(LineList(lines)).Decode(lines.Line(0), storage));
}

TEST(ValueDecoder, EachWayToWriteTextGivesUtf8) {
    struct Row {
        const char* why;
        const char* text;
        const char* want;
    };
    const Row rows[] = {
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
    for (const Row& row : rows) EXPECT_EQ(DecodeFirst(row.text), row.want) << row.why;
}

TEST(LineText, EscapesAreUndoneAsEachFormatHasThem) {
    struct Row {
        const char* why;
        const char* in;
        const char* escaped;  // 3.0, 4.0 and iCalendar
        const char* quoted;   // 2.1 and vCalendar
    };
    const Row rows[] = {
        {"line ends", "a\\nb\\Nc", "a\nb\nc", "a\\nb\\Nc"},
        {"dividers", "a\\;b\\,c", "a;b,c", "a;b\\,c"},
        {"a backslash", "a\\\\nb", "a\\nb", "a\\\\nb"},
        {"backslashes before a divider", "a\\\\;b", "a\\;b", "a\\;b"},
        {"a colon and a quote", "http\\://x \\\"", "http://x \"", "http\\://x \\\""},
        {"any other backslash", "C:\\temp\\", "C:\\temp\\", "C:\\temp\\"},
        {"line ends as they are", "a\r\nb\rc", "a\nb\nc", "a\nb\nc"},
    };
    for (const Row& row : rows) {
        for (const Dialect dialect : kDialects) {
            std::string text;
            Unescape(row.in, dialect, text);
            EXPECT_EQ(text, IsQuotedDialect(dialect) ? row.quoted : row.escaped) << row.why;
        }
    }
}

TEST(LineText, ThePartsOfAnOldCardTakeEscapesBeforeDividersAlone) {
    struct Row {
        const char* in;
        const char* want;
    };
    const Row rows[] = {{"a\\;b\\,c\\:d", "a;b,c:d"},
                        {"C:\\new\\\\x", "C:\\new\\\\x"},
                        {"a\\\\", "a\\"},
                        {"a\\", "a\\"}};
    for (const Row& row : rows) {
        std::string text;
        Unescape(row.in, Dialect::Card21, text, ValueKind::Parts);
        EXPECT_EQ(text, row.want);
    }
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

    std::size_t start = 0;
    for (std::size_t end = 0; (end = line.find("\r\n", start)) != std::string::npos;
         start = end + 2) {
        EXPECT_LE(end - start, 75u);
        EXPECT_NE(static_cast<unsigned char>(line[start + (start > 0 ? 1 : 0)]) & 0xC0u, 0x80u);
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
            std::string text;
            for (unsigned i = random() % 60; i > 0; --i)
                text += pieces[random() % std::size(pieces)];

            const std::string line = FormatLine("NOTE", Escape(text, dialect), dialect, "\r\n");

            std::string back;
            ContentLineReader reader(line);
            ContentLine read;
            ASSERT_TRUE(reader.Next(read));
            Unescape(DecodeFirst(line), dialect, back);
            ASSERT_EQ(back, text) << line;
            ASSERT_EQ(read.source, line);

            const std::string parts =
                FormatLine("N", ReplaceParts("x;y;z", {{1, text}}, ';', dialect), dialect, "\r\n");
            Unescape(PartOf(DecodeFirst(parts), 1, ';'), dialect, back, ValueKind::Parts);
            ASSERT_EQ(back, text) << parts;
            ASSERT_EQ(PartOf(DecodeFirst(parts), 2, ';'), "z") << parts;
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
