// Copies of attachments: where they lie, under which name, and for how long.
// SPDX-License-Identifier: MIT
#include <chrono>
#include <filesystem>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include <platform/desktop/AttachmentCopies.h>
#include <platform/io/TempFolder.h>
#include <support/Environment.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

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

}  // namespace
}  // namespace orvo
