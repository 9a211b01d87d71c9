// The address views with their lookup box, set up as a host does, without a screen.
// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/AddressView.h>

namespace orvo::cli {
namespace {

constexpr CRect kBoxPlace{0, 0, 1000, 20};
constexpr UINT kBoxId = 1;

}  // namespace

void AddOrderOption(CLI::App& command, ListOptions& options) {
    command.add_option("--by", options.by, "The order: name or company")
        ->check(CLI::IsMember({"name", "company"}));
}

void AddListOptions(CLI::App& command, ListOptions& options) {
    AddOrderOption(command, options);
    command.add_option("--category", options.category, "Only the addresses of this category");
    command.add_flag("--hide-private", options.hidePrivate, "Leave private addresses out");
    command.add_flag("--mask-private", options.maskPrivate,
                     "Keep the rows of private addresses, without their content");
}

AddressHost::AddressHost(Store& store) : ViewHost(store) {
    m_box.Create(WS_CHILD | WS_VISIBLE, kBoxPlace, &m_frame, kBoxId);
}

void AddressHost::Fill(CDetailViewAddrInf& view, Store& store, const ListOptions& options) {
    CAddressTable& table = store.Addresses();
    const int shown =
        options.category.empty() ? kAllCategories : CategoryIndex(table, options.category);
    view.DV_SetEdit(&m_box);
    m_box.SetListBox(&view);
    const Disclosure disclosure =
        Narrowed(store.Guard().Disclosed(), options.hidePrivate, options.maskPrivate);
    view.DV_SetMaskPrivate(disclosure.Masks());
    Watch(table,
          [&] { view.DV_FillFromTable(&table, shown, disclosure.Hides(), options.ListBy()); });
}

AddressView::AddressView(Store& store, const ListOptions& options) : AddressHost(store) {
    m_list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, kViewPlace, &m_frame, kViewId);
    m_list.Initialize(&store.Addresses(), &m_categories);
    Fill(m_list, store, options);
}

CAddressRecord& AddressView::RecordAt(int row) {
    CheckRow(m_list, row);
    return *RecordOf(m_list.DV_GetItemData(row));
}

CardView::CardView(Store& store, const ListOptions& options) : AddressHost(store) {
    m_cards.Create(WS_CHILD | WS_VISIBLE, kViewPlace, &m_frame, kViewId);
    m_cards.Initialize(&store.Addresses());
    Fill(m_cards, store, options);
}

void CheckRow(CDetailViewAddrInf& view, int row) {
    if (row >= 0 && RecordOf(view.DV_GetItemData(row)) != nullptr) return;
    throw CommandError(kNothingFound, fmt::format("there is no row {}: the list has {} rows", row,
                                                  view.DV_GetItemCount()));
}

}  // namespace orvo::cli
