// Files, those that take another one's place, and locks between processes.
// SPDX-License-Identifier: MIT
#include <array>
#include <atomic>
#include <cerrno>
#include <sys/stat.h>
#include <thread>
#include <tuple>

#include <gmock/gmock.h>

#include <platform/io/CFile.h>
#include <platform/io/FileReplacement.h>
#include <platform/io/LockFile.h>
#include <platform/io/TempFolder.h>

namespace orvo {
namespace {

struct CFileTest : testing::Test {
    TempFolder m_folder;
    CFile m_file;
    std::string m_error;
};

TEST_F(CFileTest, WhatIsWrittenIsReadAgain) {
    const std::string path = m_folder.Path("notes.dat");
    ASSERT_TRUE(m_file.Open(path.c_str(), CFile::modeCreate | CFile::modeReadWrite));
    m_file.Write("0123456789", 10);

    EXPECT_EQ(m_file.GetLength(), 10u);
    EXPECT_EQ(m_file.Seek(-4, CFile::end), 6);
    std::array<char, 20> buffer{};
    EXPECT_EQ(m_file.Read(buffer.data(), buffer.size()), 4u);
    EXPECT_STREQ(buffer.data(), "6789");
    EXPECT_EQ(m_file.Seek(2, CFile::begin), 2);
    m_file.Write("x", 1);
    EXPECT_EQ(m_file.Seek(0, CFile::current), 3);
    m_file.Flush();
    m_file.Close();
    EXPECT_EQ(TempFolder::Content(path), "01x3456789");
}

TEST_F(CFileTest, CreateEmptiesAFileAndTheOtherModesDoNot) {
    const std::string path = m_folder.File("old.dat", "old");
    ASSERT_TRUE(m_file.Open(path.c_str(), CFile::modeReadWrite));
    m_file.Close();
    EXPECT_EQ(TempFolder::Content(path), "old");

    ASSERT_TRUE(m_file.Open(path.c_str(), CFile::modeCreate | CFile::modeRead));
    EXPECT_EQ(m_file.GetLength(), 0u);
}

constexpr std::tuple<const char*, unsigned, unsigned, bool> kShares[] = {
    {"two readers", CFile::modeRead, CFile::modeRead, true},
    {"reader and writer", CFile::modeRead, CFile::modeCreate | CFile::modeWrite, true},
    {"second wants it alone", CFile::modeRead, CFile::modeRead | CFile::shareExclusive, false},
    {"first has it alone", CFile::modeRead | CFile::shareExclusive, CFile::modeRead, false},
    {"both want it alone", CFile::modeReadWrite | CFile::shareExclusive,
     CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive, false},
};

TEST_F(CFileTest, AFileThatIsHeldAloneIsLeftAsItIs) {
    for (const auto& [why, firstMode, secondMode, opens] : kShares) {
        const std::string path = m_folder.File("shared.dat", "kept");
        ASSERT_TRUE(m_file.Open(path.c_str(), firstMode)) << why;

        CFile second;
        EXPECT_EQ(second.Open(path.c_str(), secondMode, &m_error) != 0, opens) << why;
        if (!opens) {
            EXPECT_EQ(m_error, path + ": can't be opened: it is in use") << why;
            EXPECT_EQ(TempFolder::Content(path), "kept") << why;
        }

        m_file.Close();
        second.Close();
        EXPECT_TRUE(second.Open(path.c_str(), secondMode)) << why;
    }
}

TEST_F(CFileTest, AFailedOpenTellsWhereAndWhy) {
    const std::string missing = m_folder.Path("missing.dat");
    EXPECT_FALSE(m_file.Open(missing.c_str(), CFile::modeRead, &m_error));
    EXPECT_EQ(m_error, missing + ": can't be opened: No such file or directory");

    const std::string folder = m_folder.Path(".");
    EXPECT_FALSE(m_file.Open(folder.c_str(), CFile::modeRead, &m_error));
    EXPECT_EQ(m_error, folder + ": can't be opened: Is a directory");

    const std::string first = m_folder.File("first.dat", "first");
    ASSERT_TRUE(m_file.Open(first.c_str(), CFile::modeRead));
    EXPECT_FALSE(m_file.Open(missing.c_str(), CFile::modeRead, &m_error));
    EXPECT_THAT(m_error, testing::HasSubstr(first));
    EXPECT_EQ(m_file.GetLength(), 5u);
}

TEST_F(CFileTest, AFailedOperationThrowsWithPathAndReason) {
    const std::string path = m_folder.File("plain.dat", "plain");
    ASSERT_TRUE(m_file.Open(path.c_str(), CFile::modeRead));
    EXPECT_THAT(
        [this] { m_file.Write("x", 1); },
        testing::ThrowsMessage<CFileException>(path + ": can't be written: Bad file descriptor"));

    m_file.Close();
    char byte = 0;
    EXPECT_THROW(m_file.Read(&byte, 1), CFileException);
    EXPECT_THROW(m_file.Seek(-1, CFile::begin), CFileException);
    EXPECT_THROW(m_file.GetLength(), CFileException);
    EXPECT_THROW(m_file.Flush(), CFileException);
    EXPECT_NO_THROW(m_file.Close());
}

TEST_F(CFileTest, APipeIsReadToItsEndWhateverComesAtOnce) {
    const std::string path = m_folder.Path("pipe");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const std::string content(200000, 'p');
    std::thread writer([&] {
        CFile pipe;
        if (pipe.Open(path.c_str(), CFile::modeWrite)) pipe.Write(content.data(), content.size());
    });
    ASSERT_TRUE(m_file.Open(path.c_str(), CFile::modeRead));

    std::string read(content.size() + 1, ' ');
    const std::size_t count = m_file.Read(read.data(), read.size());

    writer.join();
    EXPECT_EQ(read.substr(0, count), content);
}

TEST(FileReplacement, TheOldFileStaysUntilTheNewOneIsWhole) {
    const TempFolder folder;
    const std::string target = folder.File("a", "old");
    {
        FileReplacement file;
        ASSERT_TRUE(file.Open(target, folder.Path("a.new")) && file.Write("half"));
    }
    EXPECT_EQ(TempFolder::Content(target), "old");
    EXPECT_FALSE(fs::exists(folder.Path("a.new")));

    FileReplacement file;
    ASSERT_TRUE(file.Open(target, folder.Path("a.new")));
    ASSERT_TRUE(file.Write("new ") && file.Write("text"));
    EXPECT_EQ(fs::status(folder.Path("a.new")).permissions(), fs::perms{0600});
    ASSERT_TRUE(file.Replace(0644));

    EXPECT_EQ(TempFolder::Content(target), "new text");
    EXPECT_FALSE(fs::exists(folder.Path("a.new")));
    EXPECT_EQ(fs::status(target).permissions(), fs::perms{0644});
}

TEST(FileReplacement, ATemporaryFileOfSomebodyElseIsLeftAlone) {
    const TempFolder folder;
    folder.File("a.new", "somebody's");
    EXPECT_FALSE(FileReplacement().Open(folder.Path("a"), folder.Path("a.new")));
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(TempFolder::Content(folder.Path("a.new")), "somebody's");
}

TEST(LockFile, OneHasItsTurnAtATime) {
    const TempFolder folder;
    LockFile first;
    LockFile second;
    ASSERT_TRUE(first.TryLock(folder.Path("lock")));

    EXPECT_FALSE(second.TryLock(folder.Path("lock")));
    EXPECT_EQ(errno, EWOULDBLOCK);

    first.Release();
    EXPECT_TRUE(second.Lock(folder.Path("lock")));
}

TEST(LockFile, WhoeverWaitedForARemovedFileHoldsTheNextOne) {
    const TempFolder folder;
    const std::string path = folder.Path("lock");
    for (int round = 0; round < 200; ++round) {
        int holders = 0;
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                LockFile lock;
                ASSERT_TRUE(lock.Lock(path));
                EXPECT_EQ(std::atomic_ref(holders).fetch_add(1), 0);
                std::this_thread::yield();
                std::atomic_ref(holders).fetch_sub(1);
                lock.Remove(path);
            });
        }
        for (std::thread& thread : threads) thread.join();
    }
    EXPECT_FALSE(fs::exists(path));
}

}  // namespace
}  // namespace orvo
