// What stands beside a file while another one is to take its place.
// SPDX-License-Identifier: MIT
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <exchange/files/ImportFile.h>
#include <exchange/files/NewFile.h>
#include <platform/io/TempFolder.h>

namespace orvo {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

class NewFiles : public testing::Test {
protected:
    // The names of the files but for the target.
    std::vector<std::string> Others() const {
        std::vector<std::string> names;
        for (const auto& file : fs::directory_iterator(folder.Path())) {
            if (file.path() != target) names.push_back(file.path().filename().string());
        }
        return names;
    }

    static unsigned ModeOf(const fs::path& path) {
        return static_cast<unsigned>(fs::status(path).permissions());
    }

    const TempFolder folder;
    const std::string target = folder.Path("a.vcf");
};

TEST_F(NewFiles, ItIsForTheUserAndTheGroupOfItsFolderWhateverIsMasked) {
    for (const mode_t mask : {0000, 0022, 0777}) {
        for (const mode_t folderMode : {0700, 02700}) {
            fs::permissions(folder.Path(), fs::perms(folderMode));
            const mode_t before = ::umask(mask);
            {
                NewFile file(target);
                EXPECT_EQ(ModeOf(folder.Path(Others().at(0))), 0600u & ~mask);
                file.Write("x");
                file.Replace();
            }
            ::umask(before);
            EXPECT_EQ(ModeOf(target), folderMode == 0700 ? 0600u : 0640u) << mask;
            EXPECT_THAT(Others(), IsEmpty());
            fs::remove(target);
        }
    }
}

TEST_F(NewFiles, ALinkThatAnotherUserPutThereIsNotFollowed) {
    const std::string link = folder.Path("shared/a.vcf");
    fs::create_directory(folder.Path("shared"));
    fs::permissions(folder.Path("shared"), fs::perms(01777));
    fs::create_symlink(folder.File("a.vcf", "old"), link);
    // An ordinary user can't make another one's link, but follows the own.
    if (::geteuid() == 0) {
        constexpr uid_t kNobody = 65534;
        ASSERT_EQ(::lchown(link.c_str(), kNobody, kNobody), 0);
        EXPECT_THROW(NewFile{link}, ExchangeError);
        ASSERT_EQ(::lchown(link.c_str(), 0, 0), 0);
    }
    NewFile(link).Replace();
    EXPECT_TRUE(fs::is_empty(target));
}

TEST_F(NewFiles, WhatAKilledExportOfTheSameFileHasLeftIsRemoved) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    const std::string kept = fmt::format("b.vcf.{}-0.tmp", child);
    for (const std::string& name : {fmt::format("a.vcf.{}-0.tmp", child), kept}) {
        folder.File(name, "x");
    }
    // As of a process on another machine, or of a container, whose number tells nothing here.
    const std::string running = fmt::format("a.vcf.{}-7.tmp", child);
    FileReplacement writer;
    ASSERT_TRUE(writer.Open(target, folder.Path(running)));

    NewFile(target).Replace();

    EXPECT_THAT(Others(), UnorderedElementsAre(kept, running));
}

}  // namespace
}  // namespace orvo
