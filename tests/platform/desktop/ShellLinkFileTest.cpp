// What is read from shell links, sound ones and damaged ones.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <platform/desktop/ShellLinkBytes.h>
#include <platform/desktop/ShellLinkFile.h>
#include <support/LocaleInForce.h>

namespace orvo {
namespace {

using Link = ShellLinkBytes;

TEST(ShellLinkFile, EachTextIsReadFromItsPlace) {
    struct Row {
        const char* why;
        Link link;
        const char *relativePath, *basePath;
    };
    const Row rows[] = {
        {"a header alone", Link(), "", ""},
        {"a description before it",
         Link()
             .WithUnicodeText(Link::kName, u"Ann")
             .WithUnicodeText(Link::kRelativePath, u".\\\u5C71.vcf"),
         ".\\\xE5\xB1\xB1.vcf", ""},
        {"targets and a place before it",
         Link()
             .WithTargetIds("\x01\x02\x03")
             .WithPlace("C:\\cards\\", "a.vcf")
             .WithText(Link::kRelativePath, "a.vcf"),
         "a.vcf", "C:\\cards\\a.vcf"},
        {"the Unicode forms of the place win", Link().WithUnicodePlace(u"C:\\\u5C71\\", u"a.vcf"),
         "", "C:\\\xE5\xB1\xB1\\a.vcf"},
        {"a text ends at a zero",
         Link().WithText(Link::kRelativePath, std::string("a.vcf\0.txt", 10)), "a.vcf", ""},
    };
    for (const Row& row : rows) {
        const ShellLinkFile link = ReadShellLink(row.link.Bytes());
        EXPECT_EQ(link.relativePath, row.relativePath) << row.why;
        EXPECT_EQ(link.basePath, row.basePath) << row.why;
    }
}

TEST(ShellLinkFile, BytesAreInTheCodePageOfTheSystem) {
    const LocaleInForce japanese("ja-JP", 932);
    const ShellLinkFile link =
        ReadShellLink(Link().WithText(Link::kRelativePath, "\x95\x5C.vcf").Bytes());
    EXPECT_EQ(link.relativePath, "\xE8\xA1\xA8.vcf");
}

TEST(ShellLinkFile, EveryLinkThatEndsEarlyIsRefused) {
    const std::string sound = Link()
                                  .WithTargetIds("123")
                                  .WithUnicodePlace(u"C:\\cards\\", u"a.vcf")
                                  .WithUnicodeText(Link::kRelativePath, u"a.vcf")
                                  .Bytes();
    const std::size_t end = sound.size() - 4;
    ASSERT_NO_THROW(ReadShellLink(sound.substr(0, end)));
    for (std::size_t size = 0; size < end; ++size) {
        EXPECT_THROW(ReadShellLink(sound.substr(0, size)), ShellLinkError) << size;
    }
}

TEST(ShellLinkFile, WhatIsWrongIsTold) {
    const auto withPlace = [](std::size_t offset, std::uint32_t number) {
        Link link = Link().WithPlace("C:\\", "a.vcf");
        link.info.replace(offset, 4, LittleEndian(number, 4));
        return link.Bytes();
    };
    struct Row {
        std::string bytes;
        const char* want;
    };
    const Row rows[] = {
        {"[InternetShortcut]", "it isn't a shell link"},
        {std::string(100, '\0'), "it isn't a shell link"},
        {withPlace(0, 0xFFFFFFFF), "the place goes beyond the end"},
        {withPlace(4, 8), "the place's header has 8 bytes"},
        {withPlace(4, 0x7FFFFFFF), "the place's header has 2147483647 bytes"},
        {withPlace(16, 0xFFFFFFF0), "the base path has no end"},
        {Link().WithPlace(std::string(2000, 'x'), "").Bytes(), "the path has 2000 bytes"},
    };
    for (const Row& row : rows) {
        try {
            ReadShellLink(row.bytes);
            ADD_FAILURE() << row.want;
        } catch (const ShellLinkError& error) {
            EXPECT_STREQ(error.what(), row.want);
        }
    }
}

}  // namespace
}  // namespace orvo
