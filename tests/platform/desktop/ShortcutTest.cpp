// Shortcuts: the bytes of a shell link, and the files that shortcuts stand for.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <gmock/gmock.h>

#include <platform/desktop/ShellLinkBytes.h>
#include <platform/desktop/ShellLinkFile.h>
#include <platform/desktop/Shortcut.h>
#include <platform/io/TempFolder.h>
#include <platform/text/SystemText.h>
#include <support/CodePages.h>

namespace orvo {
namespace {

using Link = ShellLinkBytes;

// A link with a path from its own folder, after the parts that are given.
Link To(const std::string& path, Link link = {}) {
    return link.WithText(Link::kRelativePath, path);
}

TEST(ShellLinkFile, EachTextIsReadFromItsPlace) {
    const std::tuple<const char*, Link, const char*, const char*> rows[] = {
        {"a header alone", Link(), "", ""},
        {"a description before it",
         Link()
             .WithUnicodeText(Link::kName, u"Ann")
             .WithUnicodeText(Link::kRelativePath, u".\\\u5C71.vcf"),
         ".\\\xE5\xB1\xB1.vcf", ""},
        {"targets and a place before it",
         To("a.vcf", Link().WithTargetIds("\x01\x02\x03").WithPlace("C:\\cards\\", "a.vcf")),
         "a.vcf", "C:\\cards\\a.vcf"},
        {"the Unicode forms of the place win", Link().WithUnicodePlace(u"C:\\\u5C71\\", u"a.vcf"),
         "", "C:\\\xE5\xB1\xB1\\a.vcf"},
        {"a text ends at a zero", To(std::string("a.vcf\0.txt", 10)), "a.vcf", ""},
    };
    for (const auto& [why, parts, relativePath, basePath] : rows) {
        const ShellLinkFile link = ReadShellLink(parts.Bytes());
        EXPECT_EQ(link.relativePath, relativePath) << why;
        EXPECT_EQ(link.basePath, basePath) << why;
    }
    const LocaleInForce japanese("ja-JP", 932);
    EXPECT_EQ(ReadShellLink(To("\x95\x5C.vcf").Bytes()).relativePath, "\xE8\xA1\xA8.vcf");
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
    const std::string rows[][2] = {
        {"[InternetShortcut]", "it isn't a shell link"},
        {std::string(100, '\0'), "it isn't a shell link"},
        {withPlace(0, 0xFFFFFFFF), "the place goes beyond the end"},
        {withPlace(4, 8), "the place's header has 8 bytes"},
        {withPlace(4, 0x7FFFFFFF), "the place's header has 2147483647 bytes"},
        {withPlace(16, 0xFFFFFFF0), "the base path has no end"},
        {Link().WithPlace(std::string(2000, 'x'), "").Bytes(), "the path has 2000 bytes"},
    };
    for (const auto& row : rows) {
        EXPECT_THAT([&] { ReadShellLink(row[0]); }, testing::ThrowsMessage<ShellLinkError>(row[1]));
    }
}

struct ShortcutTest : testing::Test {
    ShortcutTest() {
        for (const char* each : {"links", "links/sub", "Cards"}) {
            fs::create_directory(folder.Path(each));
        }
        for (const char* each :
             {"Cards/Ann.vcf", "links/here.vcf", "links/both.vcf", "links/sub/both.vcf"}) {
            folder.File(each, "");
        }
    }

    std::string LinkFile(const Link& link) const {
        return folder.File("links/a.lnk", link.Bytes());
    }

    // The target, below the folder of the test; what is wrong where there is none.
    std::string Target(const std::string& path) const {
        CString target("old");
        const HRESULT result = ResolveShortcut(path.c_str(), target);
        if (result == S_OK)
            return fs::path(target.Bytes()).lexically_relative(folder.Path("")).string();
        EXPECT_TRUE(target.IsEmpty());
        return result == kFileNotFound ? "not found" : "refused";
    }

    TempFolder folder;
};

TEST_F(ShortcutTest, AShellLinksTargetIsLookedForInOrder) {
    const std::tuple<const char*, Link, const char*> rows[] = {
        {"from the link's folder", To("..\\Cards\\Ann.vcf"), "Cards/Ann.vcf"},
        {"in whatever case", To("..\\CARDS\\ann.VCF"), "Cards/Ann.vcf"},
        {"the relative path first",
         To("..\\Cards\\Ann.vcf", Link().WithPlace("C:\\x\\", "here.vcf")), "Cards/Ann.vcf"},
        {"then the base path", To("..\\gone.vcf", Link().WithPlace("C:\\x\\", "Here.vcf")),
         "links/here.vcf"},
        {"the base path's longest end", Link().WithPlace("C:\\x\\Sub\\", "both.vcf"),
         "links/sub/both.vcf"},
        {"a base path of this machine", Link().WithPlace(folder.Path("Cards/"), "Ann.vcf"),
         "Cards/Ann.vcf"},
        {"nowhere", To("..\\gone.vcf", Link().WithPlace("C:\\x\\", "gone.vcf")), "not found"},
        {"a folder is no target", To("..\\Cards"), "not found"},
        {"no path at all", Link(), "not found"},
    };
    for (const auto& [why, link, want] : rows) EXPECT_EQ(Target(LinkFile(link)), want) << why;
}

TEST_F(ShortcutTest, TheSameCaseComesFirstThenTheFirstName) {
    folder.File("Cards/ANN.vcf", "");
    EXPECT_EQ(Target(LinkFile(To("..\\Cards\\Ann.vcf"))), "Cards/Ann.vcf");
    EXPECT_EQ(Target(LinkFile(To("..\\Cards\\ann.vcf"))), "Cards/ANN.vcf");
    EXPECT_EQ(Target(folder.Path("LINKS/A.LNK")), "Cards/ANN.vcf") << "its own name, too";
}

TEST_F(ShortcutTest, DamagedAndForeignFilesAreRefused) {
    EXPECT_EQ(Target(folder.File("links/a.lnk", "L")), "refused");
    EXPECT_EQ(Target(folder.File("links/b.lnk", std::string(2 << 20, 'L'))), "refused");
    EXPECT_EQ(Target(folder.Path("links/here.vcf")), "refused");
    EXPECT_EQ(Target(folder.Path("links/gone.lnk")), "not found");
    EXPECT_EQ(Target(folder.Path("links")), "not found");
}

TEST_F(ShortcutTest, ADesktopEntryStandsForTheFileOfItsAddress) {
    const std::string head = "[Desktop Entry]\nType=Link\nURL=";
    const std::string path = folder.Path("Cards/Ann.vcf");
    const std::string rows[][3] = {
        {"three slashes", head + "file://" + path + "\n", "Cards/Ann.vcf"},
        {"one slash, and no line end", head + "file:" + path, "Cards/Ann.vcf"},
        {"this machine", head + "file://localhost" + path, "Cards/Ann.vcf"},
        {"blanks and line ends of another system",
         "[Desktop Entry]\r\nType = Link \r\nURL = file://" + path + "\r\n", "Cards/Ann.vcf"},
        {"escaped bytes", head + "file://" + folder.Path("") + "%43ards%2FAnn%2evcf",
         "Cards/Ann.vcf"},
        {"half an escaped byte", head + "file://" + path + "%4", "refused"},
        {"no escaped byte", head + "file://" + path + "%zz", "refused"},
        {"an escaped zero", head + "file://" + path + "%00", "refused"},
        {"another machine", head + "file://elsewhere" + path, "refused"},
        {"the net", head + "https://example.org/a.vcf", "refused"},
        {"an application", "[Desktop Entry]\nType=Application\nURL=file://" + path, "refused"},
        {"in another group", "[Other]\nType=Link\nURL=file://" + path, "refused"},
        {"a file that is gone", head + "file:///gone.vcf", "not found"},
        {"nothing", "", "refused"},
    };
    for (const auto& [why, entry, want] : rows) {
        EXPECT_EQ(Target(folder.File("links/a.desktop", entry)), want) << why;
    }
}

TEST_F(ShortcutTest, ASymbolicLinkIsFollowedToItsEnd) {
    fs::create_symlink("../Cards/Ann.vcf", folder.Path("links/one"));
    fs::create_symlink("one", folder.Path("links/two"));
    fs::create_symlink("gone", folder.Path("links/broken"));
    fs::create_symlink("loop", folder.Path("links/loop"));
    LinkFile(To("here.vcf"));
    fs::create_symlink("links/a.lnk", folder.Path("shortcut"));

    EXPECT_TRUE(IsShortcut(folder.Path("links/two")));
    EXPECT_EQ(Target(folder.Path("links/two")), "Cards/Ann.vcf");
    EXPECT_EQ(Target(folder.Path("links/broken")), "not found");
    EXPECT_EQ(Target(folder.Path("links/loop")), "not found");
    EXPECT_EQ(Target(folder.Path("shortcut")), "links/here.vcf") << "a shortcut at the end";
}

TEST_F(ShortcutTest, PathsAreInTheCodePageOfTheSystem) {
    folder.File("links/\xE8\xA1\xA8.vcf", "");
    for (const LocaleCase& locale : kBothCodePages) {
        const LocaleInForce inForce(locale.tag, locale.codePage);
        const std::string link =
            folder.File("links/\xE5\xB1\xB1.LNK",
                        Link().WithUnicodeText(Link::kRelativePath, u"\u8868.VCF").Bytes());
        const CString path = SystemText(link);
        EXPECT_TRUE(IsShortcut(path));
        CString target;
        EXPECT_EQ(ResolveShortcut(path, target), S_OK);
        EXPECT_EQ(target, SystemText(folder.Path("links/\xE8\xA1\xA8.vcf")));
    }
}

}  // namespace
}  // namespace orvo
