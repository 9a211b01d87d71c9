// The settings of an installation.
// SPDX-License-Identifier: MIT
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <mutex>

#include <fmt/format.h>

#include <platform/settings/SettingsFile.h>
#include <platform/settings/SettingsSpelling.h>
#include <platform/settings/SettingsStore.h>
#include <platform/settings/SettingsText.h>

namespace orvo {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFileName = "settings.ini";

// What was read last, for as long as the file keeps the stamp that it had then.
struct StoreState {
    std::mutex mutex;
    std::string path;
    SettingsText text;
    FileStamp stamp;
    bool isCurrent = false;
    std::string told;
};

StoreState& State() {
    static StoreState state;
    return state;
}

// The XDG rules: a relative or empty XDG_CONFIG_HOME doesn't count.
std::string UsersOwnPath() {
    const char* folder = std::getenv("XDG_CONFIG_HOME");
    if (folder != nullptr && fs::path(folder).is_absolute()) {
        return (fs::path(folder) / "orvo" / kFileName).string();
    }
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') return {};
    return (fs::path(home) / ".config" / "orvo" / kFileName).string();
}

std::string PathOf(const StoreState& state) {
    return state.path.empty() ? UsersOwnPath() : state.path;
}

void TellOnce(StoreState& state, const std::string& line) {
    if (state.told == line) return;
    state.told = line;
    fmt::print(stderr, "{}\n", line);
}

using Change = std::function<void(SettingsText&)>;

// Fails:    with false; what could be read counts all the same.
bool Refresh(StoreState& state, std::string& error) {
    const std::string path = PathOf(state);
    struct stat status {};
    const FileStamp now = ::stat(path.c_str(), &status) == 0 ? FileStamp::Of(status) : FileStamp();
    if (state.isCurrent && now == state.stamp) return true;
    std::string bytes;
    const bool isRead = path.empty() || ReadFile(path, bytes, state.stamp, error);
    state.isCurrent = isRead && state.stamp.IsSettled();
    state.text = SettingsText(std::move(bytes));
    return isRead;
}

std::string SpellSection(std::string_view group, std::string_view section) {
    return fmt::format("{}/{}", group, SpellName(section));
}

std::optional<CString> ReadFrom(const SettingsText& text, std::string_view section,
                                std::string_view key) {
    const auto spelling = text.Find(section, key);
    if (!spelling) return std::nullopt;
    return ReadSpelling(*spelling);
}

// Returns:  the answer of the text as it is now. A file that can't be read is reported.
template <class Question>
auto Ask(const Question& question) {
    StoreState& state = State();
    const std::lock_guard guard(state.mutex);
    std::string error;
    if (!Refresh(state, error)) TellOnce(state, fmt::format("{}: {}", PathOf(state), error));
    return question(state.text);
}

// Asks without the lock, which needs a folder that can be written, while this needs no more than a
// file that can be read. Whoever changes the value right now does so after this.
bool HasText(std::string_view section, std::string_view key, std::string_view text) {
    StoreState& state = State();
    const std::lock_guard guard(state.mutex);
    std::string error;
    if (!Refresh(state, error)) return false;
    const std::optional<CString> present = ReadFrom(state.text, section, key);
    return present && present->View() == text;
}

bool ChangeLocked(const SettingsLock& lock, const Change& change, std::string& error) {
    if (!lock.IsHeld()) {
        error = lock.Error();
        return false;
    }
    std::string bytes;
    FileStamp stamp;
    if (!ReadFile(lock.Target(), bytes, stamp, error)) return false;
    SettingsText settings(bytes);
    change(settings);
    return settings.Bytes() == bytes || ReplaceFile(lock.Target(), settings.Bytes(), error);
}

// Changes the file. `what` names the change for the user.
bool ChangeFile(std::string_view what, const Change& change) {
    const SettingsLock lock;
    std::string error;
    const bool isWritten = ChangeLocked(lock, change, error);
    StoreState& state = State();
    const std::lock_guard guard(state.mutex);
    if (isWritten) {
        state.isCurrent = false;
        state.told.clear();
    } else {
        const std::string file = lock.Target().empty() ? kFileName : lock.Target();
        TellOnce(state, fmt::format("{}: {} can't be saved: {}", file, what, error));
    }
    return isWritten;
}

}  // namespace

void SettingsStore::SetPath(std::string_view path) {
    StoreState& state = State();
    const std::lock_guard guard(state.mutex);
    state.path = path;
    state.isCurrent = false;
    state.told.clear();
}

std::string SettingsStore::Path() {
    StoreState& state = State();
    const std::lock_guard guard(state.mutex);
    return PathOf(state);
}

std::optional<CString> SettingsStore::Read(std::string_view group, std::string_view section,
                                           std::string_view key) {
    return Ask([&](const SettingsText& text) {
        return ReadFrom(text, SpellSection(group, section), SpellName(key));
    });
}

std::optional<int> SettingsStore::ReadInt(std::string_view group, std::string_view section,
                                          std::string_view key) {
    const std::optional<CString> text = Read(group, section, key);
    if (!text) return std::nullopt;
    const char* end = text->View().data() + text->GetLength();
    int value = 0;
    const auto [stop, fault] = std::from_chars(text->View().data(), end, value);
    if (fault != std::errc() || stop != end) return std::nullopt;
    return value;
}

bool SettingsStore::IsReadable() {
    StoreState& state = State();
    const std::lock_guard guard(state.mutex);
    std::string error;
    return Refresh(state, error);
}

bool SettingsStore::Write(std::string_view group, std::string_view section, std::string_view key,
                          std::string_view text) {
    const std::string sectionName = SpellSection(group, section);
    const std::string keyName = SpellName(key);
    if (HasText(sectionName, keyName, text)) return true;
    return ChangeFile(fmt::format("[{}] {}", sectionName, keyName), [&](SettingsText& settings) {
        settings.Set(sectionName, keyName, SpellText(text));
    });
}

bool SettingsStore::WriteInt(std::string_view group, std::string_view section, std::string_view key,
                             int value) {
    return Write(group, section, key, std::to_string(value));
}

bool SettingsStore::Remove(std::string_view group, std::string_view section, std::string_view key) {
    const std::string sectionName = SpellSection(group, section);
    const std::string keyName = SpellName(key);
    return ChangeFile(fmt::format("[{}] {}", sectionName, keyName),
                      [&](SettingsText& settings) { settings.Remove(sectionName, keyName); });
}

bool SettingsStore::HasSection(std::string_view group, std::string_view name) {
    return Ask(
        [&](const SettingsText& text) { return text.HasSection(SpellSection(group, name)); });
}

bool SettingsStore::HasSectionFrom(std::string_view group, std::string_view name) {
    return Ask(
        [&](const SettingsText& text) { return text.HasSectionFrom(SpellSection(group, name)); });
}

bool SettingsStore::AddSection(std::string_view group, std::string_view section) {
    if (HasSection(group, section)) return true;
    const std::string name = SpellSection(group, section);
    return ChangeFile(fmt::format("[{}]", name),
                      [&](SettingsText& settings) { settings.AddSection(name); });
}

}  // namespace orvo
