// card and cards.
// SPDX-License-Identifier: MIT
#include <memory>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/AddressView.h>
#include <cli/Commands.h>
#include <cli/Output.h>
#include <orvoshare/resources/StringTable.h>

namespace orvo::cli {
namespace {

// What is printed for the rule of a card, and between two cards.
constexpr const char* kRule = "────────────────────";
constexpr const char* kCardEnd = "════════════════════";

struct CardOptions {
    ListOptions list;
    int row = 0;
};

Json CardAsJson(const CCardDesc& card, int tabStop) {
    return {{"title", ToUtf8(card.strTitle)},
            {"body", ToUtf8(card.strBody)},
            {"category", ToUtf8(card.strCategory)},
            {"private", card.bPrivate != 0},
            {"masked", card.bMasked != 0},
            {"hasNote", card.bHasNote != 0},
            {"tabStop", tabStop}};
}

// A line of the body: what stands before its first tab, then the rest at the tab stop.
void PrintBodyLine(std::string_view line, int tabStop) {
    if (line == kCardRule) return PrintLine(kRule);
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) return PrintLine(line);
    std::string label = PaddedCell(line.substr(0, tab), static_cast<std::size_t>(tabStop));
    PrintLine(label.append(line.substr(tab + 1)));
}

void PrintCard(const CCardDesc& card, int tabStop) {
    if (card.bMasked != 0) return PrintLine(ModuleText(kStringPrivate));
    PrintLine(ToUtf8(card.strTitle));
    const std::string body = ToUtf8(card.strBody);
    for (std::string_view rest = body; !rest.empty();) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        PrintBodyLine(rest.substr(0, end), tabStop);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    std::string foot = fmt::format("[{}]", ToUtf8(card.strCategory));
    if (card.bPrivate != 0) foot += fmt::format(" [{}]", ModuleText(kStringPrivateColumn));
    if (card.bHasNote != 0) foot += fmt::format(" [{}]", ModuleText(kStringNoteColumn));
    PrintLine(foot);
}

void Print(CDetailViewAddrCard& cards, int index, bool json) {
    CCardDesc card;
    cards.GetCardDescription(index, card);
    if (json) {
        PrintJson(CardAsJson(card, cards.GetTabStop()));
    } else {
        PrintCard(card, cards.GetTabStop());
    }
}

int PrintOne(Store& store, const CardOptions& options, bool json) {
    CardView view(store, options.list);
    CheckRow(view.Cards(), options.row);
    Print(view.Cards(), options.row, json);
    return view.Code();
}

int PrintAll(Store& store, const CardOptions& options, bool json) {
    CardView view(store, options.list);
    const int count = view.Cards().DV_GetItemCount();
    for (int index = 0; index < count; ++index) {
        if (index > 0 && !json) PrintLine(kCardEnd);
        Print(view.Cards(), index, json);
    }
    if (count == 0 && view.Code() == kDone)
        throw CommandError(kNothingFound, "there are no addresses to list");
    return view.Code();
}

}  // namespace

void AddCardCommands(CLI::App& app, Invocation& invocation) {
    auto one = std::make_shared<CardOptions>();
    CLI::App* card = app.add_subcommand("card", "Print a row of the list as a business card");
    card->add_option("ROW", one->row, "A row number of `addresses`")->required();
    AddOrderOption(*card, one->list);
    card->add_flag("--mask-private", one->list.maskPrivate,
                   "Print a private card without its content");
    card->callback([one, &invocation] {
        invocation.command = [one, &invocation](Store& store) {
            return PrintOne(store, *one, invocation.json);
        };
    });

    auto all = std::make_shared<CardOptions>();
    CLI::App* cards = app.add_subcommand("cards", "Print the addresses as business cards");
    AddListOptions(*cards, all->list);
    cards->callback([all, &invocation] {
        invocation.command = [all, &invocation](Store& store) {
            return PrintAll(store, *all, invocation.json);
        };
    });
}

}  // namespace orvo::cli
