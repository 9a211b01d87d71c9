// lookup, tip, heading and category: what a user does in the address list.
// SPDX-License-Identifier: MIT
#include <memory>
#include <optional>
#include <set>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/AddressView.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <contracts/Profile.h>
#include <host/ViewSections.h>
#include <orvoshare/resources/StringTable.h>
#include <orvoshare/text/ListHeading.h>
#include <platform/text/CodePage.h>
#include <platform/text/Utf8.h>

namespace orvo::cli {
namespace {

constexpr const char* kHeadingKey = "AddressHeading";

struct RowOptions {
    ListOptions list;
    int row = 0;
    std::string category;
};

// Types the text into the box with the focus. What the box has refused it refuses again for as long
// as nothing else comes: so even a text of a hundred thousand characters is answered at once.
// Returns:  how often the box has beeped.
int TypeInto(MemoryWindowSystem& system, std::string_view typed) {
    std::set<std::string_view> refused;
    int repeated = 0;
    while (!typed.empty()) {
        const std::string_view character = typed.substr(0, FirstCodePoint(typed).length);
        typed.remove_prefix(character.size());
        const int before = system.Beeps();
        if (refused.count(character) != 0) {
            ++repeated;
            continue;
        }
        system.TypeText(character);
        if (system.Beeps() == before)
            refused.clear();
        else
            refused.insert(character);
    }
    return system.Beeps() + repeated;
}

bool IsMasked(AddressView& view, int row) {
    return view.List().IsRowMasked(view.List().DV_GetItemData(row));
}

std::string NameOfRow(AddressView& view, int row) {
    return IsMasked(view, row) ? ModuleText(kStringPrivate) : FormattedName(view.RecordAt(row));
}

int PrintLookup(Store& store, const ListOptions& options, const std::string& typed, bool json) {
    AddressView view(store, options);
    view.Box().SetFocus();
    const int beeps = TypeInto(view.System(), typed);
    CString box;
    view.Box().GetWindowText(box);
    const int row = view.List().GetFirstSelectedItem();
    if (json) {
        PrintJson({{"typed", typed}, {"box", ToUtf8(box)}, {"row", row}, {"beeps", beeps}});
    } else {
        const std::string found =
            row < 0 ? "no row" : fmt::format("row {}: {}", row, NameOfRow(view, row));
        PrintLine(fmt::format("{} (the box holds \"{}\")", found, ToUtf8(box)));
    }
    return row < 0 ? kNothingFound : view.Code();
}

int PrintTip(Store& store, const RowOptions& options, bool json) {
    AddressView view(store, options.list);
    view.RecordAt(options.row);
    if (IsMasked(view, options.row)) {
        PrintWarning(
            fmt::format("row {} is private and masked: --show-private shows its tip", options.row));
        return kSomeSkipped;
    }
    view.List().SetViewMode(kLargeIconView);
    const std::string tip = ToUtf8(view.List().GetInfoTip(options.row));
    if (json) {
        PrintJson({{"row", options.row}, {"tip", tip}});
    } else {
        PrintTabbedText(tip);
    }
    return view.Code();
}

// The heading that a list with the saved text shows, as the list would save it.
CString SavedHeading(Store& store) {
    CString saved = OUIGetProfileString(kListSection, kHeadingKey, nullptr);
    if (!saved.IsEmpty()) return saved;
    AddressView view(store, {});
    view.List().ShowDefaultHeading(0);
    return HeadingOf(view.List());
}

void SaveHeading(Store& store, const std::string& utf8) {
    std::string bytes;
    CodePage::System().FromUtf8(utf8, bytes);
    const CString text(bytes.c_str());
    if (!utf8.empty()) {
        AddressView view(store, {});
        ShowHeading(view.List(), text);
        if (HeadingOf(view.List()).IsEmpty()) {
            throw CommandError(kWrongUse,
                               fmt::format("--set: \"{}\" names no column of the list", utf8));
        }
    }
    if (OUIWriteProfileString(kListSection, kHeadingKey, text) == 0) {
        throw CommandError(kWrongUse, "the heading can't be saved");
    }
}

int PrintHeading(Store& store, const std::optional<std::string>& text, bool json) {
    if (text) SaveHeading(store, *text);
    const std::string heading = ToUtf8(SavedHeading(store));
    if (json) {
        PrintJson({{"heading", heading}});
    } else {
        PrintLine(heading);
    }
    return kDone;
}

// A click into the Category cell of the row, and the choice of the category in the menu.
void ChooseCategory(AddressView& view, int row, int category) {
    CDetailViewAddrList& list = view.List();
    list.ShowColumn(AddressColumn::Category, -1);
    list.EnsureVisible(row, 0);
    list.DV_SelectAllItems(0);
    CRect cell;
    list.GetSubItemRect(row, 0, LVIR_BOUNDS, &cell);
    view.System().ChooseCommand(ID_DV_CATEGORY_FIRST + static_cast<UINT>(category));
    view.System().Click(list, cell.CenterPoint());
}

std::string Reason(AddressView& view, Store& store, int row) {
    if (IsMasked(view, row)) return ": it is masked";
    const std::string& error = store.Addresses().LastError();
    return error.empty() ? std::string() : ": " + error;
}

int ChangeCategory(Store& store, const RowOptions& options, bool json) {
    const WriteClaim claim(store);
    AddressView view(store, options.list);
    const CAddressRecord& record = view.RecordAt(options.row);
    const int category = CategoryIndex(store.Addresses(), options.category);
    ChooseCategory(view, options.row, category);
    int now = kNoCategory;
    record.GetCategoryId(now);
    if (now != category) {
        throw CommandError(kWrongUse, fmt::format("the category of row {} can't be changed{}",
                                                  options.row, Reason(view, store, options.row)));
    }
    CBaseTable& table = store.Addresses();
    if (json) {
        PrintJson({{"row", options.row},
                   {"id", record.GetId()},
                   {"category", StoredCategoryName(table, record)}});
    } else {
        PrintLine(fmt::format("row {}: {}", options.row, CategoryName(table, record)));
    }
    return view.Code();
}

void AddLookup(CLI::App& app, Invocation& invocation) {
    auto options = std::make_shared<ListOptions>();
    auto text = std::make_shared<std::string>();
    CLI::App* lookup = app.add_subcommand(
        "lookup", "Type a text into the lookup box; prints the row that it selects");
    lookup->add_option("TEXT", *text, "The text, typed character by character")->required();
    AddOrderOption(*lookup, *options);
    lookup->callback([options, text, &invocation] {
        invocation.command = [options, text, &invocation](Store& store) {
            return PrintLookup(store, *options, *text, invocation.json);
        };
    });
}

void AddTip(CLI::App& app, Invocation& invocation) {
    auto options = std::make_shared<RowOptions>();
    CLI::App* tip = app.add_subcommand("tip", "Print the info tip of a row");
    tip->add_option("ROW", options->row, "A row number of `addresses`")->required();
    AddOrderOption(*tip, options->list);
    tip->callback([options, &invocation] {
        invocation.command = [options, &invocation](Store& store) {
            return PrintTip(store, *options, invocation.json);
        };
    });
}

void AddHeading(CLI::App& app, Invocation& invocation) {
    auto text = std::make_shared<std::optional<std::string>>();
    CLI::App* heading =
        app.add_subcommand("heading", "Print the saved heading of the list: columns and widths");
    CLI::Option* set = heading->add_option_function<std::string>(
        "--set", [text](const std::string& given) { *text = given; }, "Save this heading");
    heading
        ->add_flag_callback(
            "--reset", [text] { *text = std::string(); }, "Go back to the default heading")
        ->excludes(set);
    heading->callback([text, &invocation] {
        invocation.command = [text, &invocation](Store& store) {
            return PrintHeading(store, *text, invocation.json);
        };
    });
}

void AddCategory(CLI::App& app, Invocation& invocation) {
    auto options = std::make_shared<RowOptions>();
    CLI::App* category = app.add_subcommand(
        "category", "Change the category of a row, through the menu of its Category cell");
    category->add_option("ROW", options->row, "A row number of `addresses`")->required();
    category->add_option("NAME", options->category, "A category that is there")->required();
    AddOrderOption(*category, options->list);
    category->callback([options, &invocation] {
        invocation.command = [options, &invocation](Store& store) {
            return ChangeCategory(store, *options, invocation.json);
        };
    });
}

}  // namespace

void AddViewCommands(CLI::App& app, Invocation& invocation) {
    AddLookup(app, invocation);
    AddTip(app, invocation);
    AddHeading(app, invocation);
    AddCategory(app, invocation);
}

}  // namespace orvo::cli
