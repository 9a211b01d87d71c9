// A program that takes part in the table of accessors, as its first argument says.
// SPDX-License-Identifier: MIT
//
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

void Tell(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

int AwaitEnd() {
    while (std::getchar() != EOF) {
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
    if (verb == "row" && count == 5) {
        return orvo::HoldRow(arguments[2], arguments[3], arguments[4]);
    }
    if (verb == "claim" && count == 4) return orvo::Claim(arguments[2], arguments[3]);
    return 2;
}
