// What stands beside a file while another one is to take its place.
// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <exchange/files/ImportFile.h>
#include <exchange/files/NewFile.h>

namespace orvo {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr uid_t kNobody = 65534;

class NewFiles : public testing::Test {
protected:
    void SetUp() override {
        std::string name = testing::TempDir() + "orvoXXXXXX";
        ASSERT_NE(::mkdtemp(name.data()), nullptr);
        m_folder = name;
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    std::string Target() const { return (m_folder / "a.vcf").string(); }

    // The names of the files but for the target.
    std::vector<std::string> Others() const {
        std::vector<std::string> names;
        for (const auto& file : std::filesystem::directory_iterator(m_folder)) {
            if (file.path() != Target()) names.push_back(file.path().filename().string());
        }
        return names;
    }

    static unsigned ModeOf(const std::filesystem::path& path) {
        struct stat status {};
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return status.st_mode & 0777u;
    }

    std::filesystem::path m_folder;
};

TEST_F(NewFiles, ItIsForTheUserAndTheGroupOfItsFolderWhateverIsMasked) {
    for (const mode_t mask : {0000, 0022, 0777}) {
        for (const mode_t folderMode : {0700, 02700}) {
            ASSERT_EQ(::chmod(m_folder.c_str(), folderMode), 0);
            const mode_t before = ::umask(mask);
            {
                NewFile file(Target());
                EXPECT_EQ(ModeOf(m_folder / Others().at(0)), 0600u & ~mask);
                file.Write("x");
                file.Replace();
            }
            ::umask(before);
            EXPECT_EQ(ModeOf(Target()), folderMode == 0700 ? 0600u : 0640u) << mask;
            EXPECT_THAT(Others(), IsEmpty());
            std::filesystem::remove(Target());
        }
    }
}

TEST_F(NewFiles, ALinkThatAnotherUserPutThereIsNotFollowed) {
    const std::filesystem::path shared = m_folder / "shared";
    const std::filesystem::path link = shared / "a.vcf";
    std::filesystem::create_directory(shared);
    ASSERT_EQ(::chmod(shared.c_str(), 01777), 0);
    std::ofstream(Target()) << "old";
    std::filesystem::create_symlink(Target(), link);
    // An ordinary user can't make another one's link, but follows the own.
    if (::geteuid() == 0) {
        ASSERT_EQ(::lchown(link.c_str(), kNobody, kNobody), 0);
        EXPECT_THROW(NewFile{link.string()}, ExchangeError);
        ASSERT_EQ(::lchown(link.c_str(), 0, 0), 0);
    }
    NewFile(link.string()).Replace();
    EXPECT_TRUE(std::filesystem::is_empty(Target()));
}

TEST_F(NewFiles, WhatAKilledExportOfTheSameFileHasLeftIsRemoved) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    const std::string kept = fmt::format("b.vcf.{}-0.tmp", child);
    for (const std::string& name : {fmt::format("a.vcf.{}-0.tmp", child), kept}) {
        std::ofstream(m_folder / name) << "x";
    }
    // As of a process on another machine, or of a container, whose number tells nothing here.
    const std::string running = fmt::format("a.vcf.{}-7.tmp", child);
    FileReplacement writer;
    ASSERT_TRUE(writer.Open(Target(), (m_folder / running).string()));

    NewFile(Target()).Replace();

    EXPECT_THAT(Others(), UnorderedElementsAre(kept, running));
}

}  // namespace
}  // namespace orvo
