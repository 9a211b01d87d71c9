// What the mailer gives to a mail library, and how long it holds one.
// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include <gmock/gmock.h>

#include <orvoshare/integration/MapiMailer.h>
#include <orvoshare/integration/RecordedMail.h>
#include <platform/io/TempFolder.h>
#include <support/Environment.h>

namespace orvo {
namespace {

using testing::ElementsAre;

const std::string kRecording = ORVO_TEST_LIBRARIES "/Recording";
const std::string kEmpty = ORVO_TEST_LIBRARIES "/Empty";

bool IsLoaded(const std::string& folder) {
    const std::string file = folder + "/MAPI32.DLL";
    void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (library) dlclose(library);
    return library != nullptr;
}

struct LibraryTest : testing::Test {
    Environment environment;
};

TEST_F(LibraryTest, TheMailerIsUsableOnlyWithALibraryThatSends) {
    CMapiMailer mailer;
    environment.Set("ORVO_MODULE_DIR", "/no/such/folder");
    EXPECT_EQ(mailer.Initialize(), 0);
    environment.Set("ORVO_MODULE_DIR", kEmpty);
    EXPECT_EQ(mailer.Initialize(), 0);
    EXPECT_FALSE(IsLoaded(kEmpty));
    EXPECT_EQ(mailer.SendMailWithUI(nullptr, "Hi", 0, nullptr), MAPI_E_FAILURE);

    environment.Set("ORVO_MODULE_DIR", kRecording);
    EXPECT_EQ(mailer.Initialize(), 1);
    environment.Set("ORVO_MODULE_DIR", kEmpty);
    EXPECT_EQ(mailer.Initialize(), 0);
    EXPECT_EQ(mailer.SendMailWithUI(nullptr, "Hi", 0, nullptr), 0U) << "it is as it was";
}

TEST_F(LibraryTest, TheLibraryStaysUntilTheLastMailerGoes) {
    environment.Set("ORVO_MODULE_DIR", kRecording);
    std::optional<CMapiMailer> first(std::in_place);
    std::optional<CMapiMailer> second(std::in_place);
    ASSERT_EQ(first->Initialize(), 1);
    ASSERT_EQ(first->Initialize(), 1) << "once more";
    *second = *first;

    first.reset();
    EXPECT_TRUE(IsLoaded(kRecording));
    EXPECT_EQ(second->SendMailWithUI(nullptr, "Hi", 0, nullptr), 0U);
    second.reset();
    EXPECT_FALSE(IsLoaded(kRecording));
}

TEST_F(LibraryTest, ALibraryIsTakenFromNoOtherFolderThanTheModules) {
    const TempFolder folder;
    environment.Set("ORVO_MODULE_DIR", folder.Path(""));
    EXPECT_EQ(LoadLibraryA("libc.so.6"), nullptr);
    EXPECT_EQ(LoadLibraryA(folder.File("MAPI32.DLL", "no library").c_str()), nullptr);
    EXPECT_EQ(LoadLibraryA(nullptr), nullptr);
    const HMODULE library = LoadLibraryA((kEmpty + "/MAPI32.DLL").c_str());
    EXPECT_NE(GetProcAddress(library, "SomethingElse"), nullptr);
    EXPECT_EQ(FreeLibrary(library), 1);
    EXPECT_FALSE(IsLoaded(kEmpty));
}

TEST_F(LibraryTest, WhatOthersCouldHavePutThereIsNotRun) {
    namespace fs = std::filesystem;
    const TempFolder folder;
    const std::string file = folder.Path("MAPI32.DLL");
    fs::copy_file(kRecording + "/MAPI32.DLL", file);
    fs::permissions(file, fs::perms::owner_all);
    environment.Set("ORVO_MODULE_DIR", folder.Path(""));
    CMapiMailer mailer;

    fs::permissions(folder.Path(""), fs::perms::all);
    EXPECT_EQ(mailer.Initialize(), 0);
    EXPECT_THAT(WhyNotLoaded("MAPI32.DLL"), testing::HasSubstr("may be written by other users"));

    fs::permissions(folder.Path(""), fs::perms::owner_all);
    EXPECT_EQ(WhyNotLoaded("MAPI32.DLL"), "");
    EXPECT_EQ(mailer.Initialize(), 1);
}

struct MapiMailerTest : LibraryTest {
    MapiMailerTest() {
        environment.Set("ORVO_MODULE_DIR", kRecording);
        EXPECT_EQ(mailer.Initialize(), 1);
        library = LoadLibraryA("MAPI32.DLL");
        mail = reinterpret_cast<RecordedMail* (*)()>(GetProcAddress(library, "Recorded"))();
        *mail = {};
    }
    ~MapiMailerTest() override { FreeLibrary(library); }

    CMapiMailer mailer;
    HMODULE library = nullptr;
    RecordedMail* mail = nullptr;
    CEmailAddress people[2] = {{"Ann", "ann@example.org"}, {"Bob", "bob@example.org"}};
    static constexpr const char* kToAnn = "to Ann <ann@example.org>";
    static constexpr const char* kToBob = "to Bob <bob@example.org>";
};

TEST_F(MapiMailerTest, ASimpleMailHasNoBodyAndNoFile) {
    EXPECT_EQ(mailer.SendMailWithUI(reinterpret_cast<HWND>(0x1230), "Hi", 2, people), 0U);
    EXPECT_EQ(mail->window, 0x1230U);
    EXPECT_EQ(mail->flags, 9U);
    EXPECT_THAT(mail->lines, ElementsAre("subject Hi", kToAnn, kToBob));

    EXPECT_EQ(mailer.SendMailWithUI(nullptr, "Hi", 0, people), 0U);
    EXPECT_THAT(mail->lines, ElementsAre("subject Hi")) << "without recipients";
}

TEST_F(MapiMailerTest, EachFileGoesWithItsPathAndItsName) {
    EXPECT_EQ(mailer.SendMailAttachmentWithUI(nullptr, 1, people, "Hi", "Text", "/x/a", "a.vcf"),
              0U);
    EXPECT_THAT(mail->lines, ElementsAre("subject Hi", "body Text", kToAnn, "file /x/a a.vcf"));

    std::string texts[] = {"/x/a", "/x/b", "a.vcf", "b.vcf", "more"};
    CPtrArray paths;
    CPtrArray names;
    for (std::string& text : texts) (text.front() == '/' ? paths : names).Add(text.data());
    mailer.SendMultipleMailAttachmentsWithUI(nullptr, 2, people, "Hi", "Text", &paths, &names);
    EXPECT_THAT(mail->lines, ElementsAre("subject Hi", "body Text", kToAnn, kToBob,
                                         "file /x/a a.vcf", "file /x/b b.vcf"));

    CPtrArray none;
    mailer.SendMultipleMailAttachmentsWithUI(nullptr, 0, nullptr, "Hi", nullptr, &none, &none);
    EXPECT_THAT(mail->lines, ElementsAre("subject Hi"));
}

TEST_F(MapiMailerTest, CancellingIsNoErrorAndEveryOtherCodeComesBack) {
    for (const ULONG answer : {0U, 1U, 2U, 3U, 11U, 26U}) {
        mail->answer = answer;
        EXPECT_EQ(mailer.SendMailAttachmentWithUI(nullptr, 2, people, "Hi", "", "/x/a", "a"),
                  answer == 1 ? 0U : answer);
    }
}

}  // namespace
}  // namespace orvo
