// A program that takes part in the table of accessors, as its first argument says.
// SPDX-License-Identifier: MIT
//
// crowd NAME              adds a row, and removes an older one, for each byte of its input
// row USER CREATOR OWNER  adds a row and holds the table until its input ends
// claim STORE OWNER       claims a store until its input ends
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include <orvoshare/shared/DataSetClaim.h>

namespace orvo {
namespace {

constexpr unsigned kKeys = 40;

void Tell(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

int AwaitEnd() {
    while (std::getchar() != EOF) {
    }
    return 0;
}

// Tells each step that is done: "+7" for an added row, "-7" for a removed one; "=7" for what is
// wrong.
int JoinCrowd(const std::string& name) {
    CDalAccessController table;
    if (table.Initialize() == 0) return 2;
    for (unsigned step = 0; std::getchar() != EOF; ++step) {
        const unsigned key = step * 7 % kKeys;
        const std::string user = fmt::format("{}-{}", name, key);
        const std::string own = fmt::format("owner of {}", user);
        CString owner;
        if (table.GetOwner(user.c_str(), key, owner) != 0) {
            if (owner.Bytes() != own) Tell(fmt::format("={}", key));
            if (table.RemoveAccessorInfo(user.c_str(), key) == 0) Tell(fmt::format("={}", key));
            Tell(fmt::format("-{}", key));
        }
        const bool isAdded = table.AddAccessorInfo(user.c_str(), key, own.c_str()) != 0;
        Tell(fmt::format("{}{}", isAdded ? '+' : '=', key));
    }
    return 0;
}

int HoldRow(const char* user, const char* creator, const char* owner) {
    CDalAccessController table;
    if (table.Initialize() == 0) return 2;
    const int isAdded = table.AddAccessorInfo(user, std::strtoul(creator, nullptr, 10), owner);
    Tell(isAdded != 0 ? "added" : "refused");
    return AwaitEnd();
}

int Claim(const char* store, const char* owner) {
    const DataSetClaim claim(store, owner, std::chrono::milliseconds(0));
    constexpr const char* kWords[] = {"own", "with desktop", "refused", "unguarded"};
    Tell(fmt::format("{} [{}]", kWords[static_cast<int>(claim.Access())],
                     claim.Access() == DataSetAccess::Own ? "" : claim.Holder().Bytes()));
    return AwaitEnd();
}

}  // namespace
}  // namespace orvo

int main(int count, char** arguments) {
    const std::string_view verb = count > 1 ? arguments[1] : "";
    if (verb == "crowd" && count == 3) return orvo::JoinCrowd(arguments[2]);
    if (verb == "row" && count == 5) {
        return orvo::HoldRow(arguments[2], arguments[3], arguments[4]);
    }
    if (verb == "claim" && count == 4) return orvo::Claim(arguments[2], arguments[3]);
    return 2;
}
