// Mail: addresses and their drafts, copies of attachments, and the library that opens a composer.
// SPDX-License-Identifier: MIT
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <map>
#include <sys/stat.h>
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
        {"signs that part the address",
         {{"a?&b@x.org"}, "?&=#%", "a+b", {}},
         "mailto:a%3F%26b@x.org?subject=%3F%26%3D%23%25&body=a%2Bb"},
        {"a line end and a tab in the subject",
         {{}, "a\r\nb\tc", "", {}},
         "mailto:?subject=a%20%20b%20c"},
        {"each kind of line end in the body",
         {{}, "", "1\r\n2\n3\r4\n\n5", {}},
         "mailto:?body=1%0D%0A2%0D%0A3%0D%0A4%0D%0A%0D%0A5"},
        {"a tab and another control character in the body",
         {{}, "", "a\tb\x1B", {}},
         "mailto:?body=a%09b%20"},
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

    // What lies in the folder of temporary files.
    int Count() const {
        const fs::directory_iterator entries(place.Path(""));
        return static_cast<int>(std::distance(begin(entries), end(entries)));
    }

    static void MakeOld(const fs::path& folder) {
        fs::last_write_time(folder, fs::last_write_time(folder) - std::chrono::hours(25));
    }

    TempFolder source;
    TempFolder place;
    Environment environment;
};

TEST_F(AttachmentCopiesTest, TheCopyBearsTheNameInAFolderOfTheUserAlone) {
    const fs::path copy = CopyUnderName(source.File("card.vcf", "BEGIN"), "../Ann.vcf");

    EXPECT_EQ(copy.filename(), "_Ann.vcf");
    EXPECT_EQ(TempFolder::Content(copy), "BEGIN");
    struct stat status {};
    ASSERT_EQ(::stat(copy.parent_path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(AttachmentCopiesTest, AFileThatCantBeCopiedLeavesNothing) {
    EXPECT_EQ(CopyUnderName(source.Path("missing"), "a"), "");
    fs::create_directory(source.Path("folder"));
    EXPECT_EQ(CopyUnderName(source.Path("folder"), "a"), "");
    EXPECT_EQ(Count(), 0);
}

TEST_F(AttachmentCopiesTest, OnlyOldFoldersOfCopiesAreRemoved) {
    const std::string file = source.File("a", "content");
    const fs::path oldCopy = CopyUnderName(file, "old");
    const fs::path newCopy = CopyUnderName(file, "new");
    const fs::path other = place.Path("others");
    fs::create_directory(other);
    MakeOld(oldCopy.parent_path());
    MakeOld(other);

    RemoveOldCopies();

    EXPECT_FALSE(fs::exists(oldCopy.parent_path()));
    EXPECT_TRUE(fs::exists(newCopy));
    EXPECT_TRUE(fs::exists(other));
}

TEST_F(AttachmentCopiesTest, ALinkOfSuchANameIsLeftAlone) {
    const std::string file = source.File("kept", "content");
    MakeOld(source.Path(""));
    fs::create_directory_symlink(source.Path(""), place.Path("orvo-mail-link"));

    RemoveOldCopies();

    EXPECT_TRUE(fs::exists(file));
    EXPECT_TRUE(fs::is_symlink(place.Path("orvo-mail-link")));
}

using testing::ElementsAre;

std::string PercentDecoded(std::string_view text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = static_cast<unsigned char>(text[i]);
        if (text[i] == '%') {
            std::from_chars(text.data() + i + 1, text.data() + i + 3, byte, 16);
            i += 2;
        }
        decoded += static_cast<char>(byte);
    }
    return decoded;
}

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

struct MailLibraryTest : testing::Test {
    MailLibraryTest() {
        const std::string composer = home.Path("composer.sh");
        home.File("composer.sh", "#!/bin/sh\nprintf %s \"$*\" >'" + home.Path("received") + "'\n");
        fs::permissions(composer, fs::perms::owner_all);
        fs::create_directories(home.Path("data/applications"));
        fs::create_directories(home.Path("config"));
        fs::create_directories(home.Path("temporary"));
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

    // What the composer was given: the values of each field, decoded.
    std::map<std::string, std::vector<std::string>> Received() const {
        const std::string uri = TempFolder::Content(home.Path("received"));
        EXPECT_EQ(uri.substr(0, 7), "mailto:");
        const std::size_t mark = std::min(uri.find('?'), uri.size());
        std::map<std::string, std::vector<std::string>> fields;
        for (const std::string& each : Split(uri.substr(7, mark - 7), ',')) {
            fields["to"].push_back(PercentDecoded(each));
        }
        const std::string rest = mark < uri.size() ? uri.substr(mark + 1) : std::string();
        for (const std::string& each : Split(rest, '&')) {
            const std::size_t sign = each.find('=');
            fields[each.substr(0, sign)].push_back(PercentDecoded(each.substr(sign + 1)));
        }
        return fields;
    }
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

            EXPECT_THAT(Received()["subject"], ElementsAre(utf8));
            EXPECT_THAT(Received()["body"], ElementsAre(utf8));
            EXPECT_THAT(Received()["to"], ElementsAre("ann@example.org", strange));
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

        EXPECT_THAT(Received()["attach"], ElementsAre(path));
        EXPECT_GE(path.size(), 259U);
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

    const std::vector<std::string> paths = Received()["attach"];
    ASSERT_EQ(paths.size(), 5U);
    const char* const contents[] = {"first", "second", "third", "third", "third"};
    for (std::size_t i = 0; i < paths.size(); ++i) {
        EXPECT_TRUE(IsPlainPath(paths[i])) << paths[i];
        EXPECT_EQ(TempFolder::Content(paths[i]), contents[i]);
    }
    EXPECT_EQ(fs::path(paths[1]).filename(), "Ann.vcf");
    EXPECT_EQ(fs::path(paths[2]).filename(), "Bob_bcc_evil_x.org_body_hi.vcf");
    EXPECT_EQ(fs::path(paths[3]).filename(), "Ann.vcf") << "beside the other one of that name";
    EXPECT_EQ(paths[4], plain);
}

TEST_F(MailLibraryTest, WhatCantBeSentIsToldByItsCode) {
    const std::string file = home.File("a.vcf", "");
    const std::string missing = home.Path("missing.vcf");
    const std::string folder = home.Path("data");
    const std::string longText(1 << 20, 'x');
    struct Row {
        const char* why;
        std::function<void()> prepare;
        ULONG want;
    };
    const Row rows[] = {
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
        {"no composer",
         [&] {
             environment.Set("XDG_CONFIG_HOME", home.Path("nothing"));
             environment.Set("XDG_DATA_HOME", home.Path("nothing"));
         },
         MAPI_E_FAILURE},
        {"no way to a composer", [&] { environment.Set("PATH", home.Path("nothing")); },
         MAPI_E_FAILURE},
    };
    for (const Row& row : rows) {
        message = {};
        recipients.clear();
        files.clear();
        row.prepare();
        EXPECT_EQ(Send(), row.want) << row.why;
        EXPECT_FALSE(IsComposerOpened()) << row.why;
    }
}

TEST_F(MailLibraryTest, NothingIsSentWithoutTheUser) {
    EXPECT_EQ(Send(MAPI_LOGON_UI), MAPI_E_NOT_SUPPORTED);
    EXPECT_EQ(send(0, 0, nullptr, MAPI_DIALOG, 0), MAPI_E_INVALID_MESSAGE);
    EXPECT_FALSE(IsComposerOpened());
}

}  // namespace
}  // namespace orvo
