// changes.
// SPDX-License-Identifier: MIT
#include <array>
#include <memory>
#include <vector>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/Commands.h>
#include <cli/Output.h>

namespace orvo::cli {
namespace {

constexpr std::size_t kMostAtOnce = 1000;
constexpr std::size_t kMostDigits = 19;  // of a revision
constexpr std::array<const char*, 2> kTableNames{"address", "todo"};
constexpr std::array<const char*, 6> kKindNames{"added", "changed", "trashed",
                                                "back",  "removed", "texts"};

class ChangesPrinter {
public:
    explicit ChangesPrinter(Store& store)
        : m_address(store.Addresses()),
          m_toDo(store.ToDos()),
          m_disclosure(store.Guard().Disclosed()) {}

    void Print(const StoreChange& change) {
        const Told told = ToldOf(change);
        if (told == Told::Nothing) {
            ++m_leftOut;
            return;
        }
        Json json{{"revision", change.revision},
                  {"table", kTableNames.at(static_cast<std::size_t>(change.table))}};
        if (change.kind != StoreChange::Kind::Texts) {
            json["id"] = change.id;
            if (told == Told::Whole) json["uid"] = change.uid;
            if (told == Told::Masked) json["masked"] = true;
        }
        json["change"] = kKindNames.at(static_cast<std::size_t>(change.kind));
        PrintJson(json);
    }

    std::size_t LeftOut() const { return m_leftOut; }

private:
    // Whether a row that has gone was private nobody knows any more.
    Told ToldOf(const StoreChange& change) {
        if (change.kind == StoreChange::Kind::Texts) return Told::Whole;
        CBaseRecord& record = change.table == TableKind::Address
                                  ? static_cast<CBaseRecord&>(m_address)
                                  : static_cast<CBaseRecord&>(m_toDo);
        const bool isThere = record.GetTable().Find(change.id, record) == 0;
        if (isThere) return m_disclosure.Of(WayOut::View, record);
        return m_disclosure.Of(WayOut::View) == Told::Whole ? Told::Whole : Told::Masked;
    }

    CAddressRecord m_address;
    CToDoRecord m_toDo;
    const Disclosure m_disclosure;
    std::size_t m_leftOut = 0;
};

int PrintChanges(Store& store, std::int64_t since) {
    StoreEngine& engine = store.Engine();
    // What changes while this is read comes again the next time.
    const std::int64_t revision = engine.Revision();
    if (revision < 0) store.Check(static_cast<long>(StoreStatus::Failed));
    if (since > revision) {
        throw CommandError(kWrongUse, fmt::format("--since {}: the store is at revision {} only",
                                                  since, revision));
    }
    ChangesPrinter printer(store);
    ChangePlace place(since);
    std::vector<StoreChange> changes;
    StoreStatus status = StoreStatus::Ok;
    while ((status = engine.ReadChanges(place, kMostAtOnce, changes)) == StoreStatus::Ok) {
        for (const StoreChange& change : changes) printer.Print(change);
    }
    if (status == StoreStatus::Gone) {
        throw CommandError(kWrongUse,
                           fmt::format("--since {}: the store has forgotten what was removed since "
                                       "then; read all entries anew and go on from --since {}",
                                       since, revision));
    }
    if (status != StoreStatus::End) store.Check(static_cast<long>(status));
    PrintJson({{"upTo", revision}});
    if (printer.LeftOut() == 0) return kDone;
    PrintWarning(LeftOutLine(printer.LeftOut()));
    return kSomeSkipped;
}

}  // namespace

void AddChangesCommand(CLI::App& app, Invocation& invocation) {
    auto since = std::make_shared<std::int64_t>(0);
    CLI::App* changes = app.add_subcommand(
        "changes", "Print what has changed in the store, as JSON, one object a line");
    changes
        ->add_option("--since", *since,
                     "Only what has changed after that revision, such as the \"upTo\" of the last "
                     "line that was printed before (default: 0, all)")
        ->check([](const std::string& text) {
            const bool isNumber = !text.empty() && text.size() < kMostDigits &&
                                  text.find_first_not_of("0123456789") == std::string::npos;
            return isNumber ? std::string() : "\"" + text + "\" is no revision, a number from 0 on";
        });
    changes->callback([since, &invocation] {
        invocation.command = [since](Store& store) { return PrintChanges(store, *since); };
    });
}

}  // namespace orvo::cli
