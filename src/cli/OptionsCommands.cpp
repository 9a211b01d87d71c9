// options.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <filesystem>
#include <limits>
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <host/AutomaticBackup.h>
#include <host/HostOptions.h>
#include <platform/settings/SettingsStore.h>
#include <platform/text/SystemText.h>

namespace orvo::cli {
namespace {

using Options = COrvoDesktopOptions;

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLongestText = 260;  // bytes that come back from the settings

enum class Kind { Flag, Number, Text, Directory };

// How an option is called, read and set; a text has the latter two functions.
struct OptionName {
    const char* name;
    Kind kind;
    int least;
    int most;
    int (*get)(const Options&);
    void (*set)(Options&, int);
    CString (*getText)(const Options&) = nullptr;
    void (*setText)(Options&, const CString&) = nullptr;
    // Of one that isn't among the options, but kept by itself; no options are set then.
    bool (*keep)(int) = nullptr;
};

template <auto Get, auto Set>
constexpr OptionName Number(const char* name, int least, int most, Kind kind = Kind::Number) {
    return {name,
            kind,
            least,
            most,
            [](const Options& options) { return (options.*Get)(); },
            [](Options& options, int value) { (options.*Set)(value); }};
}

template <auto Get, auto Set>
constexpr OptionName Flag(const char* name) {
    return Number<Get, Set>(name, 0, 1, Kind::Flag);
}

template <auto Get, auto Set>
constexpr OptionName Text(const char* name, Kind kind = Kind::Text) {
    return {name,
            kind,
            0,
            0,
            nullptr,
            nullptr,
            [](const Options& options) { return (options.*Get)(); },
            [](Options& options, const CString& text) { (options.*Set)(text); }};
}

constexpr OptionName kOptions[] = {
    Flag<&Options::IsPasswordRequired, &Options::SetPasswordRequired>("password-required"),
    Flag<&Options::IsConfirmOnDelete, &Options::SetConfirmOnDelete>("confirm-on-delete"),
    Flag<&Options::IsAutoArchive, &Options::SetAutoArchive>("auto-archive"),
    {"auto-save", Kind::Flag, 0, 1, [](const Options& options) { return options.IsAutoSave(); },
     [](Options& options, int value) {
         options.SetAutoSave(value, options.GetAutoSaveInterval());
     }},
    {"auto-save-interval", Kind::Number, 10, kMost,
     [](const Options& options) { return options.GetAutoSaveInterval(); },
     [](Options& options, int value) { options.SetAutoSave(options.IsAutoSave(), value); }},
    Flag<&Options::IsAlarmSet, &Options::SetAlarmSet>("alarm-set"),
    Flag<&Options::IsShowingPrivate, &Options::SetShowingPrivate>("showing-private"),
    Flag<&Options::IsMaskingPrivate, &Options::SetMaskingPrivate>("masking-private"),
    Number<&Options::GetWorkDayBegins, &Options::SetWorkDayBegins>("work-day-begins", 0, 23),
    Number<&Options::GetWorkWeekBegins, &Options::SetWorkWeekBegins>("work-week-begins", 0, 6),
    Number<&Options::GetAlarmAdvance, &Options::SetAlarmAdvance>("alarm-advance", 0, kMost),
    Number<&Options::GetAlarmAdvUnit, &Options::SetAlarmAdvUnit>("alarm-advance-unit", 0, 2),
    Text<&Options::GetStartupApp, &Options::SetStartupApp>("startup-application"),
    Text<&Options::GetDataDir, &Options::SetDataDir>("data-directory", Kind::Directory),
    Flag<&Options::GetTodoShowCompleted, &Options::SetTodoShowCompleted>("todo-show-completed"),
    Flag<&Options::GetTodoShowDueItemsOnly, &Options::SetTodoShowDueItemsOnly>(
        "todo-show-due-items-only"),
    Flag<&Options::GetTodoMarkCompletionDate, &Options::SetTodoMarkCompletionDate>(
        "todo-mark-completion-date"),
    {"automatic-backups", Kind::Flag, 0, 1,
     [](const Options&) { return AreBackupsAutomatic() ? 1 : 0; }, [](Options&, int) {}, nullptr,
     nullptr, [](int value) { return SetBackupsAutomatic(value != 0); }},
    Flag<&Options::GetVerifyDatFileFlag, &Options::SetVerifyDatFileFlag>("verify-data-file"),
};

Json ValueOf(const OptionName& option, const Options& options) {
    if (option.getText != nullptr) return ToUtf8(option.getText(options));
    if (option.kind == Kind::Flag) return option.get(options) != 0;
    return option.get(options);
}

std::string AsText(const Json& value) {
    if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
    return value.is_string() ? value.get<std::string>() : value.dump();
}

int PrintOptions(const Options& options, bool json) {
    Json object;
    for (const OptionName& option : kOptions) object[option.name] = ValueOf(option, options);
    if (json) {
        PrintJson(object);
    } else {
        for (const auto& [name, value] : object.items()) {
            PrintLine(fmt::format("{:<26} {}", name, AsText(value)));
        }
    }
    return kDone;
}

const OptionName& FindOption(const std::string& name) {
    const auto* found = std::find_if(std::begin(kOptions), std::end(kOptions),
                                     [&](const OptionName& each) { return each.name == name; });
    if (found != std::end(kOptions)) return *found;
    throw CommandError(kWrongUse,
                       fmt::format("there is no option \"{}\": see `orvo options`", name));
}

[[noreturn]] void Refuse(const OptionName& option, const std::string& value,
                         const std::string& reason) {
    throw CommandError(kWrongUse,
                       fmt::format("options --set {} \"{}\": {}", option.name, value, reason));
}

int ReadNumber(const OptionName& option, const std::string& value) {
    if (option.kind == Kind::Flag && (value == "yes" || value == "no")) return value == "yes";
    int number = 0;
    const char* end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, number);
    const bool isNumber = error == std::errc() && stop == end;
    if (isNumber && number >= option.least && number <= option.most) return number;
    if (option.kind == Kind::Flag) Refuse(option, value, "give yes or no");
    Refuse(option, value,
           option.most == kMost
               ? fmt::format("give a number of {} or more", option.least)
               : fmt::format("give a number from {} to {}", option.least, option.most));
}

CString ReadText(const OptionName& option, const std::string& value) {
    CString text = SystemText(value);
    if (ToUtf8(text) != value) Refuse(option, value, "the code page lacks some of its characters");
    if (text.GetLength() > kLongestText) {
        Refuse(option, value, fmt::format("a text has at most {} bytes", kLongestText));
    }
    const std::filesystem::path path = value;
    std::error_code error;
    const bool isFolder = path.is_absolute() && std::filesystem::is_directory(path, error);
    if (option.kind == Kind::Directory && !value.empty() && !isFolder) {
        Refuse(option, value, "give the whole path of a folder that is there");
    }
    return text;
}

// Whether a change takes the guard off private entries, or lets more be seen of them.
bool FreesPrivate(const Options& before, const Options& after) {
    const bool isReleased = before.IsPasswordRequired() != 0 && after.IsPasswordRequired() == 0;
    return isReleased || PrivacyOf(after) < PrivacyOf(before);
}

int SetOption(PrivateGuard& guard, const std::string& name, const std::string& value) {
    const OptionName& option = FindOption(name);
    const bool isText = option.setText != nullptr;
    const int number = isText ? 0 : ReadNumber(option, value);
    const CString text = isText ? ReadText(option, value) : CString();

    const auto change = [&](Options options) {
        if (isText) {
            option.setText(options, text);
        } else {
            option.set(options, number);
        }
        return options;
    };
    // Asked for before the lock, which others wait for.
    if (FreesPrivate(guard.Options(), change(guard.Options()))) guard.Unlock();
    const SettingsLock lock;
    if (!lock.IsHeld()) Refuse(option, value, "the settings can't be saved: " + lock.Error());
    const Options before = LoadHostOptions([](const std::string&) {});
    Options options = change(before);
    if (!guard.IsUnlocked() && IsGuarded(before) && FreesPrivate(before, options)) {
        Refuse(option, value, "the password was set meanwhile: try again");
    }
    const std::string problem = SaveHostOptions(options);
    if (!problem.empty()) Refuse(option, value, problem);
    const bool isKept = option.keep == nullptr || option.keep(number);
    if (!isKept ||
        ValueOf(option, LoadHostOptions([](const std::string&) {})) != ValueOf(option, options)) {
        Refuse(option, value, "it can't be saved beside " + SettingsStore::Path());
    }
    return kDone;
}

}  // namespace

void AddOptionsCommands(CLI::App& app, Invocation& invocation) {
    auto change = std::make_shared<std::vector<std::string>>();
    CLI::App* options = app.add_subcommand("options", "List or change the options");
    options->add_option("--set", *change, "NAME VALUE: change an option; flags take yes or no")
        ->expected(2);
    options->callback([change, &invocation] {
        invocation.command = [change, &invocation](Store& store) {
            return change->empty() ? PrintOptions(store.Guard().Options(), invocation.json)
                                   : SetOption(store.Guard(), change->front(), change->back());
        };
    });
}

}  // namespace orvo::cli
