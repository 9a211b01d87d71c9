// birthdays.
// SPDX-License-Identifier: MIT
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <exchange/files/NewFile.h>
#include <people/Birthdays.h>

namespace orvo::cli {
namespace {

constexpr int kDaysOfYear = 366;

struct BirthdaysOptions {
    int days = kDaysOfYear;
    std::string file;
};

void Print(const std::vector<Birthday>& birthdays, std::chrono::sys_days today, bool json) {
    TextTable table({"Days", "Birthday", "Turns", "ID", "Name"});
    for (const Birthday& birthday : birthdays) {
        const auto days = (birthday.next - today).count();
        const std::string date = FormatPersonDate(birthday.date);
        if (json) {
            Json row{{"id", birthday.id}, {"name", birthday.name}, {"birthday", date}};
            row["days"] = days;
            row["turns"] = birthday.years ? Json(*birthday.years) : Json(nullptr);
            PrintJson(row);
        } else {
            table.Add({fmt::format("{}", days), date,
                       birthday.years ? fmt::format("{}", *birthday.years) : std::string(),
                       fmt::format("{}", birthday.id), birthday.name});
        }
    }
    if (!json) table.Print();
}

void WriteCalendar(const std::vector<Birthday>& birthdays, const std::string& path, bool json) {
    NewFile file(path);
    file.Write(CalendarOf(birthdays));
    file.Replace();
    if (json) {
        PrintJson({{"birthdays", birthdays.size()}});
    } else {
        PrintLine(fmt::format("exported {} birthdays", birthdays.size()));
    }
}

// What isn't told of private entries holds for their birthdays, too.
int PrintBirthdays(Store& store, const BirthdaysOptions& options, bool json) {
    const auto today = Today();
    const WayOut way = options.file.empty() ? WayOut::View : WayOut::Export;
    const Disclosure disclosure = store.Guard().Disclosed();
    std::size_t leftOut = 0;
    std::vector<Birthday> birthdays = ReadBirthdays(
        store.Addresses(), today,
        [&](const CAddressRecord& record) {
            const bool isTold = disclosure.Of(way, record) == Told::Whole;
            leftOut += isTold ? 0 : 1;
            return isTold;
        },
        FormattedName);
    std::erase_if(birthdays, [&](const Birthday& birthday) {
        return (birthday.next - today).count() > options.days;
    });
    if (birthdays.empty()) {
        throw CommandError(kNothingFound,
                           fmt::format("there is no birthday within {} days", options.days));
    }
    if (options.file.empty()) {
        Print(birthdays, today, json);
    } else {
        WriteCalendar(birthdays, options.file, json);
    }
    if (leftOut == 0) return kDone;
    PrintWarning(LeftOutLine(leftOut));
    return kSomeSkipped;
}

}  // namespace

void AddBirthdaysCommand(CLI::App& app, Invocation& invocation) {
    auto options = std::make_shared<BirthdaysOptions>();
    CLI::App* birthdays =
        app.add_subcommand("birthdays", "List the birthdays in the order of the days to come");
    birthdays->add_option("--days", options->days, "Only those within so many days")
        ->check(CLI::Range(0, kDaysOfYear));
    birthdays->add_option("--export", options->file,
                          "Write them to a calendar file (.ics) instead");
    birthdays->callback([options, &invocation] {
        invocation.command = [options, &invocation](Store& store) {
            return PrintBirthdays(store, *options, invocation.json);
        };
    });
}

}  // namespace orvo::cli
