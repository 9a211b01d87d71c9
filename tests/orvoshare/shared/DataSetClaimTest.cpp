// Tests of hosts that claim a store.
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <orvoshare/shared/DataSetClaim.h>
#include <platform/ipc/RuntimeFixture.h>
#include <support/Program.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

class Claims : public RuntimeFixture {
protected:
    std::string Store() const { return (folder / "orvo.db").string(); }

    DataSetAccess Ask(const char* owner = kTerminalOwner) const {
        return DataSetClaim(Store(), owner, milliseconds(0)).Access();
    }
    // Who has the row of the store.
    std::string Owner() {
        CString owner("nobody");
        table.GetOwner(DataSetUser(Store()).c_str(), kStoreCreator, owner);
        return owner.Bytes();
    }

    CDalAccessController table;
};

class Claimer : public Program {
public:
    Claimer(const std::string& store, const char* owner)
        : Program(ACCESSOR, {"claim", store, owner}) {}
};

TEST_F(Claims, AStoreHasOneKeyWhicheverWayItIsNamed) {
    std::ofstream(Store()) << "x";
    fs::create_symlink("orvo.db", folder / "link.db");
    const std::string user = DataSetUser(Store());
    EXPECT_THAT(user, testing::MatchesRegex("[0-9a-f]{16}"));
    EXPECT_EQ(DataSetUser((folder / "link.db").string()), user);
    EXPECT_EQ(DataSetUser((folder / "none" / ".." / "orvo.db").string()), user);
    EXPECT_NE(DataSetUser((folder / "other.db").string()), user);
}

TEST_F(Claims, AnotherApplicationIsRefusedUntilTheClaimEnds) {
    {
        const DataSetClaim claim(Store(), "Other", milliseconds(0));
        ASSERT_EQ(claim.Access(), DataSetAccess::Own);
        Claimer second(Store(), kTerminalOwner);
        EXPECT_EQ(second.Line(), "refused [Other]");
        Claimer desktop(Store(), kDesktopOwner);
        EXPECT_EQ(desktop.Line(), "refused [Other]");
        Claimer elsewhere(Store() + "2", kTerminalOwner);
        EXPECT_EQ(elsewhere.Line(), "own []");
        EXPECT_EQ(elsewhere.Wait(), 0);
    }
    Claimer third(Store(), kTerminalOwner);
    EXPECT_EQ(third.Line(), "own []");
    EXPECT_EQ(Ask(), DataSetAccess::Refused);
    EXPECT_EQ(third.Wait(), 0);
    EXPECT_EQ(Ask(), DataSetAccess::Own);
    for (const auto& file : fs::directory_iterator(folder / "orvo")) {
        EXPECT_EQ(file.path().filename().string().find("claim"), std::string::npos) << file.path();
    }
}

TEST_F(Claims, BesideTheDesktopOthersMayGoOn) {
    Claimer desktop(Store(), kDesktopOwner);
    EXPECT_EQ(desktop.Line(), "own []");
    {
        const DataSetClaim claim(Store(), kTerminalOwner, milliseconds(0));
        EXPECT_EQ(claim.Access(), DataSetAccess::WithDesktop);
        EXPECT_EQ(claim.Holder(), kDesktopOwner);
    }
    EXPECT_EQ(Ask(), DataSetAccess::WithDesktop) << "the desktop's row isn't taken along";
}

TEST_F(Claims, TheRowOfAKilledHolderIsRemovedThoughTheTableLives) {
    ASSERT_EQ(table.Initialize(), 1);
    for (const char* owner : {"Other", kDesktopOwner}) {
        Claimer holder(Store(), owner);
        EXPECT_EQ(holder.Line(), "own []");
        holder.Kill();
        holder.Wait();
        ASSERT_EQ(Owner(), owner);

        EXPECT_EQ(Ask(), DataSetAccess::Own);

        EXPECT_EQ(Owner(), "nobody");
    }
}

TEST_F(Claims, ARowOfAProgramThatMakesNoClaimsIsLeftAlone) {
    ASSERT_EQ(table.Initialize(), 1);
    EXPECT_EQ(Ask("Other"), DataSetAccess::Own);
    ASSERT_EQ(table.AddAccessorInfo(DataSetUser(Store()).c_str(), kStoreCreator, "Other"), 1);

    EXPECT_EQ(Ask(), DataSetAccess::Refused);

    EXPECT_EQ(Owner(), "Other");
    EXPECT_EQ(table.RemoveAccessorInfo(DataSetUser(Store()).c_str(), kStoreCreator), 1);
    EXPECT_EQ(Ask(), DataSetAccess::Own);
}

TEST_F(Claims, AClaimWaitsForItsTurn) {
    Claimer holder(Store(), "Other");
    EXPECT_EQ(holder.Line(), "own []");
    holder.EndInput();
    EXPECT_EQ(DataSetClaim(Store(), kTerminalOwner, std::chrono::hours(1)).Access(),
              DataSetAccess::Own);
}

TEST_F(Claims, AFullTableKeepsNobodyFromWorking) {
    ASSERT_EQ(table.Initialize(), 1);
    for (std::size_t i = 0; i < kMostAccessors; ++i) table.AddAccessorInfo("u", i, "o");
    EXPECT_EQ(Ask(), DataSetAccess::Unguarded);
    EXPECT_EQ(table.RemoveAccessorInfo("u", 0), 1);
    EXPECT_EQ(Ask(), DataSetAccess::Own);
}

}  // namespace
}  // namespace orvo
