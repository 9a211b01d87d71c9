// The list of to-dos, set up as a host does, without a screen.
// SPDX-License-Identifier: MIT
#include <array>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cli/AddressFields.h>
#include <cli/TodoView.h>

namespace orvo::cli {
namespace {

// By the values of eSortOrder.
constexpr std::array<const char*, 4> kOrders{"priority-due", "due-priority", "category-due",
                                             "category-priority"};

eSortOrder OrderOf(const std::string& name) {
    std::size_t order = 0;
    while (order + 1 < kOrders.size() && name != kOrders[order]) ++order;
    return static_cast<eSortOrder>(order);
}

}  // namespace

void AddTodoOptions(CLI::App& command, TodoOptions& options) {
    command
        .add_option("--sort", options.sort,
                    "The order: priority-due, due-priority, category-due or category-priority")
        ->check(CLI::IsMember(std::vector<std::string>(kOrders.begin(), kOrders.end())));
    command.add_flag("--due-only", options.dueOnly,
                     "Only what is due today or earlier, or has no date");
    command.add_flag("--hide-completed", options.hideCompleted, "Leave completed to-dos out");
    command.add_flag("--hide-unstarted", options.hideUnstarted,
                     "Leave to-dos out that haven't begun");
    command.add_flag("--hide-private", options.hidePrivate, "Leave private to-dos out");
}

void AddCategoryOption(CLI::App& command, TodoOptions& options) {
    command.add_option("--category", options.category, "Only the to-dos of this category");
}

TodoView::TodoView(Store& store, const TodoOptions& options) : ViewHost(store) {
    CToDoTable& table = store.ToDos();
    m_list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, kViewPlace, &m_frame, kViewId);
    m_list.Initialize();
    m_list.SetCategoryCombo(&m_categories);
    const COrvoDesktopOptions& user = m_frame.Options();
    m_list.ShowDueItemsOnly(options.dueOnly || user.GetTodoShowDueItemsOnly());
    m_list.HideCompletedItems(options.hideCompleted || !user.GetTodoShowCompleted());
    m_list.HideUnstartedItems(options.hideUnstarted);
    m_list.SetMarkCompletionDate(user.GetTodoMarkCompletionDate());
    const Disclosure disclosure =
        Narrowed(store.Guard().Disclosed(), options.hidePrivate, options.maskPrivate);
    m_list.HidePrivateItems(disclosure.Hides());
    m_list.SetMaskPrivate(disclosure.Masks());
    if (!options.category.empty()) m_list.SetCategoryShown(CategoryIndex(table, options.category));
    m_list.SetSortOrder(OrderOf(options.sort));
    Watch(table, [&] { m_list.RefreshAllItemData(&table); });
}

CToDoRecord& TodoView::RecordAt(int row) {
    const bool isThere = row >= 0 && row < m_list.GetItemCount() && m_list.GetItemData(row) != 0;
    if (!isThere) {
        throw CommandError(kNothingFound, fmt::format("there is no row {}: the list has {} rows",
                                                      row, m_list.GetItemCount()));
    }
    return *reinterpret_cast<CToDoRecord*>(m_list.GetItemData(row));
}

void TodoView::ClickCell(int row, int columnId, UINT command) {
    m_list.ShowColumn(columnId, -1);
    m_list.SelectAllItems(0);
    m_list.EnsureVisible(row, 0);
    CRect cell;
    m_list.GetSubItemRect(row, 0, LVIR_BOUNDS, &cell);
    if (command != 0) m_system.ChooseCommand(command);
    m_system.Click(m_list, cell.CenterPoint());
}

}  // namespace orvo::cli
