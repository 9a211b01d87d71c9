// Content lines: unfolding, taking apart, and the entries that they make up.
// SPDX-License-Identifier: MIT
#include <random>

#include <fmt/format.h>

#include <exchange/lines/EntryReader.h>

#include "exchange/Tables.h"

namespace orvo {
namespace {

// Each line as "number group.NAME(parameters)=value"; one without a name as "number value".
std::string Lines(std::string_view text) {
    Strings lines;
    ContentLineReader reader(text);
    ContentLine line;
    while (reader.Next(line)) {
        std::string shown = fmt::format("{} ", line.number);
        if (!line.group.empty()) shown.append(line.group).append(".");
        shown.append(line.name);
        if (!line.parameters.empty()) shown.append("(").append(line.parameters).append(")");
        if (!line.name.empty()) shown.append("=");
        lines.push_back(shown.append(line.value));
    }
    return fmt::format("{}", fmt::join(lines, " | "));
}

TEST(ContentLine, LinesAreUnfoldedAndTakenApart) {
    const char* const rows[][3] = {
        {"each of the three line ends", "A:1\r\nB:2\nC:3\rD:4", "1 A=1 | 2 B=2 | 3 C=3 | 4 D=4"},
        {"a fold takes one blank", "A:1\r\n  2\r\n\t3\r\nB:4", "1 A=1 23 | 4 B=4"},
        {"a fold in the name", "SUM\n MARY\n :x", "1 SUMMARY=x"},
        {"a fold inside a character", "A:\xE3\n \x81\x82", "1 A=\xE3\x81\x82"},
        {"group and parameters", "item1.TEL;TYPE=a,b;HOME:1", "1 item1.TEL(TYPE=a,b;HOME)=1"},
        {"a colon in quotes", "A;X=\"a:b;c\":v", "1 A(X=\"a:b;c\")=v"},
        {"a quote that is never closed", "A;X=\"a:b", "1 A(X=\"a)=b"},
        {"a soft line break", "A;QUOTED-PRINTABLE:a=\r\nb=\r\n c\r\nB:1",
         "1 A(QUOTED-PRINTABLE)=ab c | 4 B=1"},
        {"a soft line break by its full name", "A;ENCODING=quoted-printable:a=\nb",
         "1 A(ENCODING=quoted-printable)=ab"},
        {"a soft line break before an empty line", "A;QUOTED-PRINTABLE:a==\n\nB:1",
         "1 A(QUOTED-PRINTABLE)=a= | 3 B=1"},
        {"a soft line break that got blanks", "A;QUOTED-PRINTABLE:a= \t\nb=20\nB:1",
         "1 A(QUOTED-PRINTABLE)=ab=20 | 3 B=1"},
        {"a byte order mark before a line",
         "\xEF\xBB\xBF"
         "A:1\n\xEF\xBB\xBF"
         "B:2\n\xEF\xBB\xBF",
         "1 A=1 | 2 B=2"},
        {"an equals sign elsewhere", "URL:a=\nB:1", "1 URL=a= | 2 B=1"},
        {"a soft line break before the end", "A;QUOTED-PRINTABLE:a=\nEND:VCARD",
         "1 A(QUOTED-PRINTABLE)=a= | 2 END=VCARD"},
        {"text that begins like an end", "A;QUOTED-PRINTABLE:a=\nEND: of it",
         "1 A(QUOTED-PRINTABLE)=aEND: of it"},
        {"base64 without blanks, ended by an empty line", "P;BASE64:\nAAAA\nBB==\n\nB:1",
         "1 P(BASE64)=AAAABB== | 4  | 5 B=1"},
        {"base64 that no empty line ends", "P;ENCODING=b:AA\nBBBB\nB:1",
         "1 P(ENCODING=b)=AABBBB | 3 B=1"},
        {"a line without a colon", "what\nB:1", "1 what | 2 B=1"},
        {"nothing", "", ""},
    };
    for (const auto& [why, text, want] : rows) EXPECT_EQ(Lines(text), want) << why;
}

TEST(ContentLine, TheSourcesOfAllLinesPutTogetherAreTheText) {
    constexpr std::string_view pieces[] = {
        "A:", "\r\n",        "\n", "\r", " ", "=", ";BASE64", "x", ";QUOTED-PRINTABLE:",
        "\"", "BEGIN:VCARD", "\0", ":"};
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (int i = 0; i < 30; ++i) text += pieces[random() % std::size(pieces)];
        std::string joined;
        ContentLineReader reader(text);
        ContentLine line;
        while (reader.Next(line)) joined += line.source;
        ASSERT_EQ(joined, text);
    }
}

TEST(ContentLine, ParametersAreFoundWhereverAndHoweverTheyStand) {
    constexpr std::string_view parameters = "HOME;type=\"voice,Cell\";CHARSET=x;X=\"a;b\"";

    EXPECT_EQ(FindParameter(parameters, "charset"), "x");
    EXPECT_EQ(FindParameter(parameters, "X"), "a;b");
    EXPECT_TRUE(HasType(parameters, "home"));
    EXPECT_TRUE(HasType(parameters, "CELL"));
    EXPECT_FALSE(HasType(parameters, "x"));
}

// Each entry as "number component", with "!" where its end is missing.
std::string Entries(std::string_view text) {
    Strings entries;
    EntryReader reader(text);
    Entry entry;
    while (reader.Next(entry)) {
        const std::string_view what = entry.kind == EntryKind::Stray              ? "stray"
                                      : entry.kind == EntryKind::CalendarProperty ? "property"
                                      : entry.kind == EntryKind::CalendarEnd      ? "end"
                                                                                  : entry.component;
        entries.push_back(fmt::format("{} {}{}", entry.number, what, entry.complete ? "" : "!"));
    }
    return fmt::format("{}", fmt::join(entries, " | "));
}

TEST(EntryReader, EntriesEndWhereTheyShould) {
    const char* const rows[][3] = {
        {"two cards", "BEGIN:VCARD\nEND:VCARD\n\nbegin:vcard\nend:vcard", "1 VCARD | 4 vcard"},
        {"no end before the next", "BEGIN:VCARD\nFN:a\nBEGIN:VCARD\nEND:VCARD",
         "1 VCARD! | 3 VCARD"},
        {"no end before the end", "BEGIN:VCARD\nFN:a", "1 VCARD!"},
        {"the card of an agent",
         "BEGIN:VCARD\nAGENT:\nBEGIN:VCARD\nEND:VCARD\nFN:a\nEND:VCARD\nx:y", "1 VCARD | 7 stray"},
        {"the agent of an agent",
         "BEGIN:VCARD\nAGENT:\nBEGIN:VCARD\nAGENT:\n\nBEGIN:VCARD\nEND:VCARD\nEND:VCARD\nEND:VCARD",
         "1 VCARD"},
        {"an agent whose card begins in its line",
         "BEGIN:VCARD\nAGENT:BEGIN:VCARD\nFN:b\nEND:VCARD\nFN:a\nEND:VCARD\nx:y",
         "1 VCARD | 7 stray"},
        {"no end before the next in version 2.1",
         "BEGIN:VCARD\nVERSION:2.1\nBEGIN:VCARD\nEND:VCARD", "3 VCARD | 1 VCARD!"},
        {"a to-do with an alarm that isn't closed",
         "BEGIN:VCALENDAR\nX:1\nBEGIN:VTODO\nBEGIN:VALARM\nEND:VTODO\nEND:VCALENDAR",
         "1 VCALENDAR | 2 property | 3 VTODO | 6 end"},
        {"a calendar that ends inside a to-do",
         "BEGIN:VCALENDAR\nBEGIN:VTODO\nSUMMARY:a\nEND:VCALENDAR",
         "1 VCALENDAR | 2 VTODO! | 4 end"},
        {"text around cards", "\n hello\nyou\n\nBEGIN:VCARD\nEND:VCARD\nbye",
         "2 stray | 5 VCARD | 7 stray"},
    };
    for (const auto& [why, text, want] : rows) EXPECT_EQ(Entries(text), want) << why;
}

TEST(EntryReader, CardsGroupedInACardOfVersion21AreEntriesOfTheirOwnLines) {
    const std::string head = "BEGIN:VCARD\nVERSION:2.1\n";
    const std::string inner = head + "FN:in\n ner\nEND:VCARD\n";
    const std::string group = head + "FN:gr\n oup\n" + inner + inner + "TEL:1\nEND:VCARD\n";
    const std::string text = head + "FN:ou\n ter\n" + group + "TEL:2\nEND:VCARD\n";
    EntryReader reader(text);
    Entry entry;
    std::vector<std::string> sources;
    std::string names;

    while (reader.Next(entry)) {
        EXPECT_TRUE(entry.complete);
        sources.emplace_back(entry.source);
        names.append(entry.lines[2].value) += ' ';
    }

    EXPECT_EQ(names, "inner inner group outer ");
    EXPECT_THAT(sources, ElementsAre(inner, inner, head + "FN:gr\n oup\nTEL:1\nEND:VCARD\n",
                                     head + "FN:ou\n ter\nTEL:2\nEND:VCARD\n"));
}

// What each line of the first entry says of itself.
template <class Say>
Strings OfEachLine(const std::string& text, const Say& say) {
    EntryReader reader(text);
    Entry entry;
    EXPECT_TRUE(reader.Next(entry));
    Strings said;
    for (const ContentLine& line : entry.lines) said.push_back(fmt::format("{}", say(line)));
    return said;
}

TEST(EntryReader, EmptyLinesThatFollowEachOtherAreOne) {
    const std::string text = "BEGIN:X\n\n\r\n\rA:1\n\nEND:X\n";
    EXPECT_THAT(OfEachLine(text, [](const ContentLine& line) { return line.source; }),
                ElementsAre("BEGIN:X\n", "\n\r\n\r", "A:1\n", "\n", "END:X\n"));
    EXPECT_EQ(OfEachLine(text, [](const ContentLine& line) { return line.number; })[2], "5");
}

TEST(EntryReader, LinesAreKeptAsTheyWereRead) {
    const std::string longName(70'000, 'N');
    const std::pair<const char*, std::string> rows[] = {
        {"plain", "A:1\nB;X=y;Z:2\r\nC:\r:\rno colon\n:\n"},
        {"groups and blanks", "g.A:1\ng.B ;X:2\ng. C:3\ng.:4\n g:5\na.b.C;X=\"a:b;c\":6\n"},
        {"folds", "A:1\n 2\n  3\nB;X=\n y:4\nC\n :5\n"},
        {"soft breaks", "A;QUOTED-PRINTABLE:=\nB:1\nC:2\n"},
        {"long heads", "A:1\n" + longName + ";X:2\n" + longName + ".A:3\n"},
        {"any bytes", std::string("A\0B;\xFF:\0\n\xEF\xBB\xBF"
                                  "B:1\n",
                                  15)},
    };
    const auto all = [](const ContentLine& line) {
        return fmt::format("{}|{}|{}|{}|{}|{}|{}", line.source, line.text, line.group, line.name,
                           line.parameters, line.value, line.number);
    };
    for (const auto& [why, lines] : rows) {
        const std::string text = "BEGIN:X\n" + lines + "END:X";
        Strings want;
        ContentLineReader reader(text);
        for (ContentLine line; reader.Next(line);) want.push_back(all(line));
        EXPECT_EQ(OfEachLine(text, all), want) << why;
    }
}

}  // namespace
}  // namespace orvo
