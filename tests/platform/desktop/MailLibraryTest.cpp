// Mail: addresses and their drafts, copies of attachments, and the library that opens a composer.
// SPDX-License-Identifier: MIT
#include <chrono>
#include <cstdlib>
#include <sstream>
#include <tuple>

#include <gmock/gmock.h>

#include <platform/desktop/AttachmentCopies.h>
#include <platform/desktop/MailUri.h>
#include <platform/desktop/SimpleMapi.h>
#include <platform/io/FileName.h>
#include <platform/io/TempFolder.h>
#include <platform/module/LoadLibrary.h>
#include <platform/text/SystemText.h>
#include <support/CodePages.h>
#include <support/Environment.h>

namespace orvo {
namespace {

constexpr std::tuple<const char*, const char*, const char*> kAddresses[] = {
    {"an address stays as it is", "ann@example.org", "ann@example.org"},
    {"signs that a local part may have", "o'lee+$`!x@example.org", "o'lee+$`!x@example.org"},
    {"the name of the protocol isn't part of it", "smtp:ann@example.org", "ann@example.org"},
    {"no line end can begin a field", "ann@example.org\r\nBcc: x@y", ""},
    {"a control character is dropped", "a\x7Fnn\n@example.org", "ann@example.org"},
    {"two people", "a@example.org,b@example.org", ""},
    {"two people, parted by a semicolon", "a@example.org;b@example.org", ""},
    {"a name with it", "Ann <ann@example.org>", ""},
    {"no person", "@example.org", ""},
    {"no place", "ann@", ""},
    {"no address", "Ann", ""},
    {"nothing", "", ""},
};

TEST(MailUri, AnAddressNamesOnePersonOrNobody) {
    for (const auto& [why, in, want] : kAddresses) EXPECT_EQ(PlainMailAddress(in), want) << why;
}

TEST(MailUri, EachPartHasItsPlaceAndEmptyOnesHaveNone) {
    const std::tuple<const char*, MailDraft, const char*> rows[] = {
        {"nothing at all", {}, "mailto:"},
        {"recipients alone", {{"a@x.org", "b@y.org"}, "", "", {}}, "mailto:a@x.org,b@y.org"},
        {"a subject alone", {{}, "Hi", "", {}}, "mailto:?subject=Hi"},
        {"parting signs",
         {{"a?&b@x.org"}, "?&=#%", "a+b", {}},
         "mailto:a%3F%26b@x.org?subject=%3F%26%3D%23%25&body=a%2Bb"},
        {"a subject is one line", {{}, "a\r\nb\tc", "", {}}, "mailto:?subject=a%20%20b%20c"},
        {"each line end of a body",
         {{}, "", "1\r\n2\n3\r4\n\n5", {}},
         "mailto:?body=1%0D%0A2%0D%0A3%0D%0A4%0D%0A%0D%0A5"},
        {"other controls of a body", {{}, "", "a\tb\x1B", {}}, "mailto:?body=a%09b%20"},
        {"files", {{}, "", "", {"/a b/c", "/d"}}, "mailto:?attach=/a%20b/c&attach=/d"},
        {"letters of UTF-8", {{}, "\xC3\xA9", "", {}}, "mailto:?subject=%C3%A9"},
    };
    for (const auto& [why, draft, want] : rows) EXPECT_EQ(MailUri(draft), want) << why;
}

TEST(MailUri, NoByteOfAnyTextIsLeftForAShell) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);

    const std::string uri = MailUri({{all}, all, all, {all}});

    EXPECT_EQ(uri.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                    "%/:?&=@,.-_~"),
              std::string::npos);
}

struct AttachmentCopiesTest : testing::Test {
    AttachmentCopiesTest() { environment.Set("TMPDIR", place.Path("")); }

    TempFolder source;
    TempFolder place;
    Environment environment;
};

TEST_F(AttachmentCopiesTest, AFileThatCantBeCopiedLeavesNothing) {
    EXPECT_EQ(CopyUnderName(source.Path("missing"), "a"), "");
    fs::create_directory(source.Path("folder"));
    EXPECT_EQ(CopyUnderName(source.Path("folder"), "a"), "");
    EXPECT_TRUE(fs::is_empty(place.Path()));
}

TEST_F(AttachmentCopiesTest, OnlyOldFoldersOfCopiesAreRemoved) {
    const std::string file = source.File("a", "content");
    const fs::path oldCopy = CopyUnderName(file, "old");
    const fs::path newCopy = CopyUnderName(file, "new");
    const fs::path other = place.Path("others");
    const fs::path link = place.Path("orvo-mail-link");
    fs::create_directory(other);
    fs::create_directory_symlink(source.Path(), link);
    for (const fs::path& each : {oldCopy.parent_path(), other, source.Path()}) {
        fs::last_write_time(each, fs::last_write_time(each) - std::chrono::hours(25));
    }

    RemoveOldCopies();

    EXPECT_FALSE(fs::exists(oldCopy.parent_path()));
    for (const fs::path& each : {newCopy, other, fs::path(file)}) EXPECT_TRUE(fs::exists(each));
    EXPECT_TRUE(fs::is_symlink(link)) << "only its name is that of a copy's folder";
}

struct MailLibraryTest : testing::Test {
    MailLibraryTest() {
        const std::string composer = home.Path("composer.sh");
        home.File("composer.sh", "#!/bin/sh\nprintf %s \"$*\" >'" + home.Path("received") + "'\n");
        fs::permissions(composer, fs::perms::owner_all);
        for (const char* each : {"data/applications", "config", "temporary"}) {
            fs::create_directories(home.Path(each));
        }
        home.File("data/applications/composer.desktop",
                  "[Desktop Entry]\nType=Application\nName=Composer\nExec=" + composer +
                      " %u\nMimeType=x-scheme-handler/mailto;\n");
        environment.Set("XDG_DATA_HOME", home.Path("data"));
        environment.Set("XDG_CONFIG_HOME", home.Path("config"));
        environment.Set("XDG_CURRENT_DESKTOP", "X-Generic");
        environment.Set("TMPDIR", home.Path("temporary"));
        environment.Set("DISPLAY", ":none");
        environment.Set("BROWSER", "no-such-browser");
        environment.Set("MAILER", std::nullopt);
        library = LoadLibraryA("MAPI32.DLL");
        send = reinterpret_cast<MapiSendMail>(GetProcAddress(library, "MAPISendMail"));
    }
    ~MailLibraryTest() override { FreeLibrary(library); }

    void SetUp() override {
        ASSERT_TRUE(send);
        ASSERT_EQ(std::system("xdg-mime default composer.desktop x-scheme-handler/mailto"), 0);
    }

    ULONG Send(ULONG flags = MAPI_LOGON_UI | MAPI_DIALOG) {
        message.nRecipCount = static_cast<ULONG>(recipients.size());
        message.lpRecips = recipients.data();
        message.nFileCount = static_cast<ULONG>(files.size());
        message.lpFiles = files.data();
        return send(0, 0, &message, flags, 0);
    }

    void AddRecipient(const char* address) {
        recipients.push_back({0, MAPI_TO, "", address, 0, nullptr});
    }
    void AddFile(const char* path, const char* name) {
        files.push_back({0, 0, MAPI_NO_POSITION, path, name, nullptr});
    }

    // The address that the composer was given.
    std::string Received() const { return TempFolder::Content(home.Path("received")); }
    bool IsComposerOpened() const { return fs::exists(home.Path("received")); }

    TempFolder home;
    Environment environment;
    HMODULE library = nullptr;
    MapiSendMail send = nullptr;
    MapiMessage message;
    std::vector<MapiRecipDesc> recipients;
    std::vector<MapiFileDesc> files;
};

TEST_F(MailLibraryTest, EveryTextAndRecipientArrivesAsItWas) {
    const std::string strange = "-x$(id)`'&%@example.org";
    AddRecipient("SMTP:ann@example.org");
    AddRecipient(strange.c_str());
    const char* const texts[] = {
        "plain",     "'\"",   "$(touch x) ${HOME} `id`",    "a & b | c ; d > e", "100% %41 %n %s",
        "-o --help", "~ * ?", "back\\slash \\n \\c \\0101", "café 山表",         "#x !y"};
    for (const LocaleCase& locale : kBothCodePages) {
        const LocaleInForce inForce(locale.tag, locale.codePage);
        for (const std::string utf8 : texts) {
            const CString text = SystemText(utf8);
            message.lpszSubject = text;
            message.lpszNoteText = text;

            ASSERT_EQ(Send(), SUCCESS_SUCCESS) << utf8;

            EXPECT_EQ(Received(), MailUri({{"ann@example.org", strange}, utf8, utf8, {}}));
        }
    }
}

TEST_F(MailLibraryTest, AFileIsAttachedByItsWholePath) {
    for (const LocaleCase& locale : kBothCodePages) {
        const LocaleInForce inForce(locale.tag, locale.codePage);
        const std::string name = "\xE8\xA1\xA8 1.vcf";
        std::string folder = home.Path("");
        while (folder.size() + name.size() < 259) folder += std::string(50, 'd') + "/";
        fs::create_directories(folder);
        const std::string path = folder + name;
        std::ofstream(path) << "BEGIN:VCARD";
        files.clear();
        const CString systemPath = SystemText(path);
        const CString systemName = SystemText(name);
        AddFile(systemPath, systemName);

        EXPECT_EQ(Send(), SUCCESS_SUCCESS);

        EXPECT_EQ(Received(), MailUri({{}, "", "", {path}}));
    }
}

TEST_F(MailLibraryTest, AFileIsAttachedUnderAPlainNameOrTheOneGiven) {
    constexpr const char* kName = "Bob',bcc='evil@x.org',body='hi.vcf";
    fs::create_directory(home.Path("a,b"));
    const std::string named = home.File(kName, "first");
    const std::string inFolder = home.File("a,b/Ann.vcf", "second");
    const std::string plain = home.File("x", "third");
    AddFile(named.c_str(), nullptr);
    AddFile(inFolder.c_str(), "");
    AddFile(plain.c_str(), kName);
    AddFile(plain.c_str(), "Ann.vcf");
    AddFile(plain.c_str(), nullptr);

    EXPECT_EQ(Send(), SUCCESS_SUCCESS);

    std::vector<std::string> paths;
    std::istringstream uri(Received());
    uri.ignore(std::size("mailto:"));
    for (std::string each; std::getline(uri, each, '&');) {
        paths.push_back(each.substr(std::size("attach")));  // with its sign
    }
    ASSERT_EQ(paths.size(), 5U);
    const char* const contents[] = {"first", "second", "third", "third", "third"};
    for (std::size_t i = 0; i < paths.size(); ++i) {
        EXPECT_TRUE(IsPlainPath(paths[i])) << paths[i];
        EXPECT_EQ(TempFolder::Content(paths[i]), contents[i]);
    }
    EXPECT_EQ(fs::path(paths[1]).filename(), "Ann.vcf");
    EXPECT_EQ(fs::status(fs::path(paths[1]).parent_path()).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::path(paths[2]).filename(), "Bob_bcc_evil_x.org_body_hi.vcf");
    EXPECT_EQ(fs::path(paths[3]).filename(), "Ann.vcf") << "beside the other one of that name";
    EXPECT_EQ(paths[4], plain);
}

TEST_F(MailLibraryTest, WhatCantBeSentIsToldByItsCode) {
    const std::string file = home.File("a.vcf", "");
    const std::string missing = home.Path("missing.vcf");
    const std::string folder = home.Path("data");
    const std::string longText(1 << 20, 'x');
    const std::tuple<const char*, std::function<void()>, ULONG> rows[] = {
        {"a missing file", [&] { AddFile(missing.c_str(), ""); }, MAPI_E_ATTACHMENT_NOT_FOUND},
        {"no path", [&] { AddFile("", ""); }, MAPI_E_ATTACHMENT_NOT_FOUND},
        {"a folder", [&] { AddFile(folder.c_str(), ""); }, MAPI_E_ATTACHMENT_OPEN_FAILURE},
        {"no room for a copy",
         [&] {
             environment.Set("TMPDIR", home.Path("nothing"));
             AddFile(file.c_str(), "b.vcf");
         },
         MAPI_E_ATTACHMENT_WRITE_FAILURE},
        {"a name for an address", [&] { AddRecipient("Ann"); }, MAPI_E_UNKNOWN_RECIPIENT},
        {"a body too long", [&] { message.lpszNoteText = longText.c_str(); },
         MAPI_E_TEXT_TOO_LARGE},
        {"a recipient of another kind",
         [&] {
             AddRecipient("ann@example.org");
             recipients.back().ulRecipClass = MAPI_TO + 1;
         },
         MAPI_E_BAD_RECIPTYPE},
        {"no composer", [&] { environment.Set("XDG_DATA_HOME", home.Path("nothing")); },
         MAPI_E_FAILURE},
        {"no way to a composer", [&] { environment.Set("PATH", home.Path("nothing")); },
         MAPI_E_FAILURE},
    };
    for (const auto& [why, prepare, want] : rows) {
        message = {};
        recipients.clear();
        files.clear();
        prepare();
        EXPECT_EQ(Send(), want) << why;
        EXPECT_FALSE(IsComposerOpened()) << why;
    }
}

TEST_F(MailLibraryTest, NothingIsSentWithoutTheUser) {
    EXPECT_EQ(Send(MAPI_LOGON_UI), MAPI_E_NOT_SUPPORTED);
    EXPECT_EQ(send(0, 0, nullptr, MAPI_DIALOG, 0), MAPI_E_INVALID_MESSAGE);
    EXPECT_FALSE(IsComposerOpened());
}

}  // namespace
}  // namespace orvo
