// DataSetClaim: a host's hold on a store in the table of who has which data set open.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <thread>
#include <unistd.h>

#include <fmt/format.h>

#include <orvoshare/shared/DataSetClaim.h>
#include <platform/ipc/RuntimeFolder.h>
#include <platform/text/Hash.h>

namespace orvo {
namespace {

constexpr std::chrono::milliseconds kPause{10};

std::string LifePath(const std::string& user) {
    std::string error;
    const std::string folder = RuntimeFolder(error);
    return folder.empty() ? folder : fmt::format("{}/claim-{}.lock", folder, FileNameOf(user));
}

// The owner in the row of a claim that was neither given up nor is alive; empty where there is
// none.
std::string LeftBehind(const LockFile& life) {
    std::array<char, sizeof(CAccessInfo::owner)> name{};
    const ssize_t length = ::pread(life.Number(), name.data(), name.size(), 0);
    const std::string_view read(name.data(),
                                static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    return std::string(read.substr(0, read.find('\n')));
}

// The owner is the first line, and all that follows the path.
bool KeepClaim(const LockFile& life, std::string_view owner, std::string_view storePath) {
    const std::string claim = fmt::format("{}\n{}", owner, storePath);
    return ::ftruncate(life.Number(), 0) == 0 && ::pwrite(life.Number(), claim.data(), claim.size(),
                                                          0) == static_cast<ssize_t>(claim.size());
}

// One path for each store, whichever way it is named.
std::string WholePath(const std::string& storePath) {
    std::error_code error;
    const auto path = std::filesystem::weakly_canonical(storePath, error);
    return error ? storePath : path.string();
}

}  // namespace

std::string DataSetUser(const std::string& storePath) {
    return fmt::format("{:016x}", HashOf(WholePath(storePath)));
}

std::string ClaimedStore(const std::string& user) {
    std::ifstream claim(LifePath(user), std::ios::binary);
    std::string owner;
    std::getline(claim, owner);
    return {std::istreambuf_iterator<char>(claim), {}};
}

DataSetClaim::DataSetClaim(const std::string& storePath, const char* owner,
                           std::chrono::milliseconds patience)
    : m_storePath(WholePath(storePath)), m_user(DataSetUser(m_storePath)) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while ((m_access = Ask(owner)) == DataSetAccess::Refused &&
           std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kPause);
    }
}

DataSetClaim::~DataSetClaim() {
    if (m_access != DataSetAccess::Own) return;
    m_table.RemoveAccessorInfo(m_user.c_str(), kStoreCreator);
    m_life.Remove(m_lifePath);
}

DataSetAccess DataSetClaim::Ask(const char* owner) {
    m_lifePath = LifePath(m_user);
    if (m_lifePath.empty() || m_table.Initialize() == 0) return DataSetAccess::Unguarded;
    if (m_life.TryLock(m_lifePath)) {
        const DataSetAccess access = Enter(owner);
        if (access != DataSetAccess::Own) m_life.Remove(m_lifePath);
        return access;
    }
    if (errno != EWOULDBLOCK) return DataSetAccess::Unguarded;
    const DataSetAccess access = AskTable();
    if (access != DataSetAccess::Own) return access;
    // Whoever lives stands in the table at once, or has just left it.
    m_holder = "another program";
    return DataSetAccess::Refused;
}

// With the lock of the living held.
DataSetAccess DataSetClaim::Enter(const char* owner) {
    RemoveRowOfTheDead();
    const DataSetAccess access = AskTable();
    if (access != DataSetAccess::Own) return access;
    const bool isKept = KeepClaim(m_life, owner, m_storePath);
    if (isKept && m_table.AddAccessorInfo(m_user.c_str(), kStoreCreator, owner) != 0) return access;
    // A program that makes no claims may have been faster; else the table is full.
    const DataSetAccess now = AskTable();
    return now == DataSetAccess::Own ? DataSetAccess::Unguarded : now;
}

// Own stands for a data set that nobody has.
DataSetAccess DataSetClaim::AskTable() {
    int heldByDesktop = 0;
    const int isAllowed = m_table.AllowDataAccess(m_user.c_str(), kStoreCreator, &heldByDesktop);
    m_holder.Empty();
    m_table.GetOwner(m_user.c_str(), kStoreCreator, m_holder);
    if (heldByDesktop != 0) return DataSetAccess::WithDesktop;
    return isAllowed != 0 ? DataSetAccess::Own : DataSetAccess::Refused;
}

void DataSetClaim::RemoveRowOfTheDead() {
    CString owner;
    const std::string dead = LeftBehind(m_life);
    if (!dead.empty() && m_table.GetOwner(m_user.c_str(), kStoreCreator, owner) != 0 &&
        owner.Bytes() == dead) {
        m_table.RemoveAccessorInfo(m_user.c_str(), kStoreCreator);
    }
}

}  // namespace orvo
