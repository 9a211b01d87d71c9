// The settings of an installation: texts by group, section and key in one file of the user.
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

// Groups keep equal section names apart. A name of a group holds no slash.
constexpr std::string_view kApplicationGroup = "Application";
constexpr std::string_view kProfileGroup = "Profile";

// One for the process. docs/settings.md describes the format of the file, which is settings.ini in
// the folder orvo below the user's configuration folder. Sections, keys and texts are in the
// system's code page and may hold any byte; names are compared byte by byte. May be used from
// several threads at once. Any number of processes may read and write, too; no write undoes what
// another one has written.
class ORVO_API SettingsStore {
public:
    // Names the file in place of the user's own; an empty path goes back to that one.
    // Requires: no SettingsLock is held.
    static void SetPath(std::string_view path);

    // The file in force; empty where the environment names no configuration folder. Not made before
    // the first write.
    static std::string Path();

    // Returns:  nothing where the key isn't there. A file that can't be read has no keys, which is
    //           reported in one line on standard error.
    static std::optional<CString> Read(std::string_view group, std::string_view section,
                                       std::string_view key);

    // As Read, where the text is a whole decimal number that an int holds.
    static std::optional<int> ReadInt(std::string_view group, std::string_view section,
                                      std::string_view key);

    // False where the file is there and can't be read, so that it has no keys.
    static bool IsReadable();

    // Puts the text in the file, which is safe on disk after that. A key that has this text already
    // leaves the file untouched.
    // Fails:    with false, and the file as it was, reported in one line on standard error; the
    //           same line isn't reported twice in a row.
    static bool Write(std::string_view group, std::string_view section, std::string_view key,
                      std::string_view text);
    static bool WriteInt(std::string_view group, std::string_view section, std::string_view key,
                         int value);

    // Removes the key, or does nothing where there is none; fails as Write.
    static bool Remove(std::string_view group, std::string_view section, std::string_view key);

    // Whether a section of that name, or one whose name begins so, is there, with keys or without.
    static bool HasSection(std::string_view group, std::string_view name);
    static bool HasSectionFrom(std::string_view group, std::string_view name);

    // Makes a section without keys where there is none of that name; fails as Write.
    static bool AddSection(std::string_view group, std::string_view section);
};

// Keeps other processes, and other threads of this one, from writing while it lives, so that what
// was read holds until it is written. Made again inside itself it changes nothing.
// Requires: destroyed on the thread that made it; no fork meanwhile.
class ORVO_API SettingsLock {
public:
    // Waits for its turn.
    SettingsLock();
    SettingsLock(const SettingsLock&) = delete;
    SettingsLock& operator=(const SettingsLock&) = delete;
    ~SettingsLock();

    // False where the lock file can't be used; writes fail then, and Error says why.
    bool IsHeld() const;
    const std::string& Error() const;

    // The file that the lock is on, with symbolic links followed.
    const std::string& Target() const;
};

}  // namespace orvo
