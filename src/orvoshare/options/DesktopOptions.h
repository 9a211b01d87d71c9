// COrvoDesktopOptions: the user's desktop options, and where they are kept.
// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include <contracts/User.h>
#include <platform/Export.h>
#include <platform/io/CObject.h>
#include <platform/text/CString.h>
#include <platform/window/base/MessageMap.h>

namespace orvo {

// Sent to the main window, with 0 and the address of a COrvoDesktopOptions* that holds null; the
// window stores the address of the host's object there, which stays the host's.
constexpr UINT WM_GET_DESKTOP_OPTIONS = 0xBECA;

// A setter changes the object only; a save keeps what the object holds. The password flag lies in a
// file of the user, the To Do options and the verify flag nowhere, all others in the settings of
// the application (contracts/Settings.h), whose failures aren't reported. What the values mean is
// the host's affair; flags are 0 or not 0.
class ORVO_API COrvoDesktopOptions : public CObject {
public:
    static const CRuntimeClass classCOrvoDesktopOptions;

    // Without a user, the options have their first values and no file. With one, they are loaded,
    // as SetUser and LoadOptions do.
    COrvoDesktopOptions() = default;
    explicit COrvoDesktopOptions(CUser* user);

    const CRuntimeClass* GetRuntimeClass() const override;

    // The content of the user's file: the text "1" and the password flag. Any text is read.
    void Serialize(CArchive& archive) override;

    // Makes the user's file that in his directory below the data directory: what "Core", "Path"
    // has in the settings now, "\" where it isn't there. Loads nothing.
    // Requires: `user` isn't null.
    void SetUser(CUser* user);

    // First the user's file, then the settings.
    // Fails:    as LoadPerUserOptions and SavePerUserOptions; the settings are left alone then.
    void LoadOptions();
    void SaveOptions();

    // A file that can't be opened gives the defaults.
    // Fails:    with CException where the file ends early or can't be read; the flag stays as it
    //           was.
    void LoadPerUserOptions();
    // Puts a new file, for its owner alone, in the place of the old one, which is whole until then.
    // Does nothing where that can't be begun: its folder must be there, and what it replaces a
    // file.
    // Fails:    with CException where it can't be written; the old file stays.
    void SavePerUserOptions();
    void SetDefaultUserOptions() { m_passwordRequired = 0; }

    // Texts longer than 260 bytes are cut in loading.
    void LoadAppWideOptions();
    void SaveAppWideOptions();

    int IsPasswordRequired() const { return m_passwordRequired; }
    void SetPasswordRequired(int required) { m_passwordRequired = required; }
    int IsConfirmOnDelete() const { return m_confirmOnDelete; }
    void SetConfirmOnDelete(int confirm) { m_confirmOnDelete = confirm; }
    int IsAutoArchive() const { return m_autoArchive; }
    void SetAutoArchive(int archive) { m_autoArchive = archive; }
    int IsAutoSave() const { return m_autoSave; }
    int GetAutoSaveInterval() const { return m_autoSaveInterval; }
    void SetAutoSave(int save, int interval);  // an interval below 10 counts as 10
    int IsAlarmSet() const { return m_alarmSet; }
    void SetAlarmSet(int set) { m_alarmSet = set; }
    int IsShowingPrivate() const { return m_showingPrivate; }
    void SetShowingPrivate(int show) { m_showingPrivate = show; }
    int IsMaskingPrivate() const { return m_maskingPrivate; }
    void SetMaskingPrivate(int mask) { m_maskingPrivate = mask; }
    int GetWorkDayBegins() const { return m_workDayBegins; }
    void SetWorkDayBegins(int hour) { m_workDayBegins = hour; }
    int GetWorkWeekBegins() const { return m_workWeekBegins; }
    void SetWorkWeekBegins(int day) { m_workWeekBegins = day; }
    int GetAlarmAdvance() const { return m_alarmAdvance; }
    void SetAlarmAdvance(int advance) { m_alarmAdvance = advance; }
    int GetAlarmAdvUnit() const { return m_alarmAdvanceUnit; }
    void SetAlarmAdvUnit(int unit) { m_alarmAdvanceUnit = unit; }
    CString GetStartupApp() const { return m_startupApp; }
    void SetStartupApp(const CString& application) { m_startupApp = application; }
    CString GetDataDir() const { return m_dataDir; }
    void SetDataDir(const CString& directory) { m_dataDir = directory; }
    int GetTodoShowCompleted() const { return m_todoShowCompleted; }
    void SetTodoShowCompleted(int show) { m_todoShowCompleted = show; }
    int GetTodoShowDueItemsOnly() const { return m_todoShowDueItemsOnly; }
    void SetTodoShowDueItemsOnly(int only) { m_todoShowDueItemsOnly = only; }
    int GetTodoMarkCompletionDate() const { return m_todoMarkCompletionDate; }
    void SetTodoMarkCompletionDate(int mark) { m_todoMarkCompletionDate = mark; }
    int GetVerifyDatFileFlag() const { return m_verifyDatFile; }
    void SetVerifyDatFileFlag(int verify) { m_verifyDatFile = verify; }

private:
    struct StoredOption;
    static std::span<const StoredOption> StoredOptions();

    int m_passwordRequired = 0;
    int m_confirmOnDelete = 1;
    int m_autoArchive = 1;
    int m_autoSave = 1;
    int m_autoSaveInterval = 0;
    int m_alarmSet = 0;
    int m_showingPrivate = 0;
    int m_maskingPrivate = 0;
    int m_workDayBegins = 0;
    int m_workWeekBegins = 0;
    int m_alarmAdvance = 5;
    int m_alarmAdvanceUnit = 0;
    CString m_startupApp;
    CString m_dataDir;
    CString m_userFile;
    int m_todoShowCompleted = 1;
    int m_todoShowDueItemsOnly = 0;
    int m_todoMarkCompletionDate = 0;
    int m_verifyDatFile = 0;
};

}  // namespace orvo
