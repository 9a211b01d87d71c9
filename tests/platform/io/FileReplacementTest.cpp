// Tests of files that take another one's place, and of locks between processes.
// SPDX-License-Identifier: MIT
#include <atomic>
#include <cerrno>
#include <sys/stat.h>
#include <thread>

#include <gtest/gtest.h>

#include <platform/io/FileReplacement.h>
#include <platform/io/LockFile.h>
#include <platform/io/TempFolder.h>

namespace orvo {

TEST(FileReplacement, TheOldFileStaysUntilTheNewOneIsWhole) {
    const TempFolder folder;
    const std::string target = folder.File("a", "old");
    {
        FileReplacement file;
        ASSERT_TRUE(file.Open(target, folder.Path("a.new")));
        ASSERT_TRUE(file.Write("half"));
    }
    EXPECT_EQ(TempFolder::Content(target), "old");
    EXPECT_FALSE(fs::exists(folder.Path("a.new")));

    FileReplacement file;
    ASSERT_TRUE(file.Open(target, folder.Path("a.new")));
    ASSERT_TRUE(file.Write("new "));
    ASSERT_TRUE(file.Write("text"));
    EXPECT_EQ(fs::status(folder.Path("a.new")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_TRUE(file.Replace(0644));

    EXPECT_EQ(TempFolder::Content(target), "new text");
    EXPECT_FALSE(fs::exists(folder.Path("a.new")));
    EXPECT_EQ(static_cast<unsigned>(fs::status(target).permissions()), 0644U);
}

TEST(FileReplacement, ATemporaryFileOfSomebodyElseIsLeftAlone) {
    const TempFolder folder;
    folder.File("a.new", "somebody's");
    {
        FileReplacement file;
        EXPECT_FALSE(file.Open(folder.Path("a"), folder.Path("a.new")));
        EXPECT_EQ(errno, EEXIST);
    }
    EXPECT_EQ(TempFolder::Content(folder.Path("a.new")), "somebody's");
}

TEST(LockFile, OneHasItsTurnAtATime) {
    const TempFolder folder;
    LockFile first;
    LockFile second;
    ASSERT_TRUE(first.TryLock(folder.Path("lock")));

    EXPECT_FALSE(second.TryLock(folder.Path("lock")));
    EXPECT_EQ(errno, EWOULDBLOCK);
    EXPECT_FALSE(second.IsHeld());

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
}  // namespace orvo
