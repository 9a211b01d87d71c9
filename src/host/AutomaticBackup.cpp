// Backups that are made by themselves: one a day, the last seven, in a folder beside the store.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <filesystem>
#include <functional>

#include <fmt/format.h>

#include <contracts/Settings.h>
#include <host/AutomaticBackup.h>
#include <libraries/quire/StoreBackup.h>
#include <platform/time/CTime.h>

namespace orvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSection = "Orvo";
constexpr const char* kKey = "AutomaticBackups";

// A link to a store has the backups of the store.
fs::path FileOf(const std::string& store) {
    std::error_code failure;
    const fs::path file = fs::weakly_canonical(fs::absolute(store, failure), failure);
    return failure ? fs::path(store) : file;
}

std::string NameOf(const fs::path& store, const std::string& day) {
    return fmt::format("{}-{}{}", store.stem().string(), day, store.extension().string());
}

std::string PathOfToday(const std::string& store) {
    const CTime now = CTime::GetCurrentTime();
    const std::string day =
        fmt::format("{:04}-{:02}-{:02}", now.GetYear(), now.GetMonth(), now.GetDay());
    return (fs::path(BackupFolder(store)) / NameOf(FileOf(store), day)).string();
}

bool IsDay(std::string_view text) {
    constexpr std::string_view kForm = "0000-00-00";
    return std::equal(text.begin(), text.end(), kForm.begin(), kForm.end(), [](char c, char form) {
        return form == '0' ? c >= '0' && c <= '9' : c == form;
    });
}

// Returns:  an empty text on success.
std::string MakeFolder(const std::string& folder) {
    std::error_code failure;
    if (fs::create_directory(folder, failure)) {
        fs::permissions(folder, fs::perms::owner_all, failure);
    }
    return failure ? fmt::format("{}: {}", folder, failure.message()) : "";
}

}  // namespace

bool AreBackupsAutomatic() {
    int isOn = 1;
    CmnGetProfileInt(kSection, kKey, &isOn, 1);
    return isOn != 0;
}

bool SetBackupsAutomatic(bool isOn) {
    return CmnWriteProfileInt(kSection, kKey, isOn ? 1 : 0) != 0;
}

std::string BackupFolder(const std::string& store) {
    return (FileOf(store).parent_path() / "backups").string();
}

std::vector<std::string> AutomaticBackups(const std::string& store) {
    const fs::path file = FileOf(store);
    const std::string start = file.stem().string() + "-";
    std::vector<std::string> found;
    std::error_code failure;
    for (fs::directory_iterator entry(BackupFolder(store), failure), last;
         !failure && entry != last; entry.increment(failure)) {
        const std::string name = entry->path().filename().string();
        if (!name.starts_with(start)) continue;
        const std::string day = name.substr(start.size(), std::string_view("0000-00-00").size());
        if (IsDay(day) && name == NameOf(file, day)) found.push_back(entry->path().string());
    }
    std::sort(found.begin(), found.end(), std::greater<>());
    return found;
}

bool IsBackupDue(StoreEngine& engine) {
    std::error_code failure;
    return !fs::exists(PathOfToday(engine.Name()), failure) && AreBackupsAutomatic() &&
           engine.Count(TableKind::Address) + engine.Count(TableKind::ToDo) > 0;
}

std::string MakeAutomaticBackup(const std::string& store) {
    const std::string target = PathOfToday(store);
    StoreCounts counts;
    std::string error = MakeFolder(BackupFolder(store));
    if (error.empty() && !BackUpStore(store, target, false, counts, error)) {
        std::error_code failure;
        if (fs::exists(target, failure) || fs::exists(target + ".part", failure)) return {};
    }
    if (!error.empty()) return "no automatic backup was made: " + error;
    const std::vector<std::string> all = AutomaticBackups(store);
    for (std::size_t i = kKeptBackups; i < all.size(); ++i) {
        std::error_code failure;
        fs::remove(all[i], failure);
    }
    return {};
}

std::string NewestGoodBackup(const std::string& store) {
    StoreCounts counts;
    std::string error;
    const std::vector<std::string> all = AutomaticBackups(store);
    const auto good = std::find_if(all.begin(), all.end(), [&](const std::string& backup) {
        return CheckBackup(backup, counts, error);
    });
    return good == all.end() ? std::string() : *good;
}

}  // namespace orvo
