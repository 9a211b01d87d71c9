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

#include <exchange/NewFile.h>

namespace orvo {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

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

TEST_F(NewFiles, WhatIsntWholeYetIsForTheUserAlone) {
    const mode_t mask = ::umask(0027);
    {
        NewFile file(Target());
        ASSERT_EQ(Others().size(), 1u);
        EXPECT_EQ(ModeOf(m_folder / Others().front()), 0600u);

        file.Write("x");
        file.Replace();
    }
    ::umask(mask);

    EXPECT_EQ(ModeOf(Target()), 0640u);
    EXPECT_THAT(Others(), IsEmpty());
}

TEST_F(NewFiles, WhatAKilledExportOfTheSameFileHasLeftIsRemoved) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    const std::string kept = fmt::format("b.vcf.{}-0.tmp", child);
    for (const std::string& name : {fmt::format("a.vcf.{}-0.tmp", child), kept}) {
        std::ofstream(m_folder / name) << "x";
    }
    const std::string running = fmt::format("a.vcf.{}-7.tmp", ::getpid());
    std::ofstream(m_folder / running) << "x";

    NewFile(Target()).Replace();

    EXPECT_THAT(Others(), UnorderedElementsAre(kept, running));
}

}  // namespace
}  // namespace orvo
