// COrvoDesktopOptions: the user's desktop options, and where they are kept.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>
#include <unistd.h>

#include <contracts/Settings.h>
#include <contracts/TextServices.h>
#include <orvoshare/options/DesktopOptions.h>
#include <orvoshare/options/OptionsPath.h>
#include <platform/io/CArchive.h>
#include <platform/io/FileReplacement.h>
#include <platform/settings/SettingsFile.h>

namespace orvo {
namespace {

constexpr int kArchiveBuffer = 4096;
constexpr int kTextBuffer = 261;
constexpr int kLeastInterval = 10;
constexpr mode_t kOwnFile = 0600;
constexpr const char* kUserFileVersion = "1";

CString ReadText(const char* section, const char* key, const char* defaultText) {
    char buffer[kTextBuffer] = "";
    unsigned long size = sizeof buffer;
    CmnGetProfileString(section, key, buffer, size, defaultText);
    return buffer;
}

// A file whose bytes go into the replacement of another one.
class ReplacementFile : public CFile {
public:
    // Returns:  false where the replacement can't be begun.
    bool Begin(const std::string& target) {
        if (target.empty()) return false;
        m_target = target;
        std::error_code error;
        const auto old = std::filesystem::status(target, error);
        if (std::filesystem::exists(old) && !std::filesystem::is_regular_file(old)) return false;
        // Always the same name, so that what a killed program leaves behind doesn't pile up.
        const std::string fresh = target + ".new";
        ::unlink(fresh.c_str());
        return m_replacement.Open(target, fresh);
    }

    void Write(const void* buffer, std::size_t count) override {
        if (!m_replacement.Write({static_cast<const char*>(buffer), count})) Throw();
    }

    void Replace() {
        if (!m_replacement.Replace(kOwnFile)) Throw();
    }

private:
    [[noreturn]] void Throw() const {
        const std::string reason = std::generic_category().message(errno);
        throw CFileException(m_target + ": can't be written: " + reason);
    }

    std::string m_target;
    FileReplacement m_replacement;
};

void SerializeAndClose(CObject& object, CFile& file, unsigned mode) {
    CArchive archive(&file, mode, kArchiveBuffer);
    object.Serialize(archive);
    archive.Close();
}

}  // namespace

// An option of the settings: a number or a text.
struct COrvoDesktopOptions::StoredOption {
    const char* section;
    const char* key;
    int COrvoDesktopOptions::*number;  // null for a text
    int defaultNumber;                 // where the settings have none
    CString COrvoDesktopOptions::*text = nullptr;
};

// In the order in which they are written.
std::span<const COrvoDesktopOptions::StoredOption> COrvoDesktopOptions::StoredOptions() {
    using Options = COrvoDesktopOptions;
    static constexpr StoredOption kOptions[] = {
        {"Preferences", "Archive", &Options::m_autoArchive, 1},
        {"Preferences", "AutoSave", &Options::m_autoSave, 1},
        {"Preferences", "AutoSaveInterval", &Options::m_autoSaveInterval, 15},
        {"Preferences", "ConfirmDelete", &Options::m_confirmOnDelete, 1},
        {"Preferences", "Startup", nullptr, 0, &Options::m_startupApp},
        {"Preferences", "Private", &Options::m_showingPrivate, 1},
        {"Preferences", "Mask", &Options::m_maskingPrivate, 0},
        {"Core", "Path", nullptr, 0, &Options::m_dataDir},
        {"Horaline", "WorkDayBegins", &Options::m_workDayBegins, 8},
        {"Horaline", "WorkWeekBegins", &Options::m_workWeekBegins, 0},
        {"Horaline", "AlarmOn", &Options::m_alarmSet, 0},
        {"Horaline", "AlarmTime", &Options::m_alarmAdvance, 5},
        {"Horaline", "AlarmUnit", &Options::m_alarmAdvanceUnit, 0},
    };
    return kOptions;
}

const CRuntimeClass COrvoDesktopOptions::classCOrvoDesktopOptions(
    "COrvoDesktopOptions", 1,
    [] { return std::unique_ptr<CObject>(std::make_unique<COrvoDesktopOptions>()); },
    &CObject::classCObject);

COrvoDesktopOptions::COrvoDesktopOptions(CUser* user) {
    SetUser(user);
    LoadOptions();
}

const CRuntimeClass* COrvoDesktopOptions::GetRuntimeClass() const {
    return &classCOrvoDesktopOptions;
}

void COrvoDesktopOptions::Serialize(CArchive& archive) {
    CObject::Serialize(archive);
    if (archive.IsStoring()) {
        archive << CString(kUserFileVersion) << m_passwordRequired;
        return;
    }
    CString version;
    archive >> version >> m_passwordRequired;
}

void COrvoDesktopOptions::SetUser(CUser* user) {
    m_userFile = ReadText("Core", "Path", "\\");
    AppendBackslash(m_userFile);
    m_userFile += user->GetDirectory();
    AppendBackslash(m_userFile);
    m_userFile += kUserFileName;
}

void COrvoDesktopOptions::LoadOptions() {
    LoadPerUserOptions();
    LoadAppWideOptions();
}

void COrvoDesktopOptions::SaveOptions() {
    SavePerUserOptions();
    SaveAppWideOptions();
}

void COrvoDesktopOptions::LoadPerUserOptions() {
    CFile file;
    if (!file.Open(FilePathOf(m_userFile).c_str(), CFile::modeRead)) {
        SetDefaultUserOptions();
        return;
    }
    SerializeAndClose(*this, file, CArchive::load);
    file.Close();
}

void COrvoDesktopOptions::SavePerUserOptions() {
    ReplacementFile file;
    if (!file.Begin(FollowLinks(FilePathOf(m_userFile)))) return;
    SerializeAndClose(*this, file, CArchive::store);
    file.Replace();
}

void COrvoDesktopOptions::LoadAppWideOptions() {
    for (const StoredOption& option : StoredOptions()) {
        if (option.number != nullptr) {
            CmnGetProfileInt(option.section, option.key, &(this->*option.number),
                             option.defaultNumber);
        } else {
            this->*option.text = ReadText(option.section, option.key, "");
        }
    }
    SetAutoSave(m_autoSave, m_autoSaveInterval);
}

void COrvoDesktopOptions::SaveAppWideOptions() {
    for (const StoredOption& option : StoredOptions()) {
        if (option.number != nullptr) {
            CmnWriteProfileInt(option.section, option.key, this->*option.number);
        } else {
            CmnWriteProfileString(option.section, option.key, this->*option.text);
        }
    }
}

void COrvoDesktopOptions::SetAutoSave(int save, int interval) {
    m_autoSave = save;
    m_autoSaveInterval = std::max(interval, kLeastInterval);
}

}  // namespace orvo
