// The orders of to-dos: the comparison behind them, and the sort keys that give the same order.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include <contracts/Dates.h>
#include <orvoshare/todo/TodoListbox.h>
#include <platform/text/Collation.h>
#include <platform/text/SystemLocale.h>
#include <platform/window/list/ListSort.h>

namespace orvo {
namespace {

enum class Key { Priority, DueDate, Category, Placement };

struct OrderRule {
    eSortOrder order;
    std::array<Key, 3> keys;  // each decides where those before it are equal
    int column;               // marked in the heading
};

constexpr std::array<OrderRule, 4> kOrders{{
    {eSortByPriorityDueDate, {Key::Priority, Key::DueDate, Key::Placement}, TodoColumn::Priority},
    {eSortByDueDatePriority, {Key::DueDate, Key::Priority, Key::Placement}, TodoColumn::DueDate},
    {eSortByCategoryDueDate, {Key::Category, Key::DueDate, Key::Placement}, TodoColumn::Category},
    {eSortByCategoryPriority, {Key::Category, Key::Priority, Key::Placement}, TodoColumn::Category},
}};

constexpr bool EachRowStandsAtItsEnumValue() {
    for (std::size_t row = 0; row < kOrders.size(); ++row) {
        if (kOrders[row].order != static_cast<int>(row)) return false;
    }
    return true;
}
static_assert(EachRowStandsAtItsEnumValue());

// Null for an unknown order.
const OrderRule* RuleOf(eSortOrder order) {
    const auto row = static_cast<std::size_t>(order);
    return row < kOrders.size() ? &kOrders[row] : nullptr;
}

int CategoryOf(const CToDoRecord& record) {
    int category = kNoCategory;
    record.GetCategoryId(category);
    return category;
}

// The value of every key but the category, whose value is a name.
long NumberOf(Key key, const CToDoRecord& record) {
    int number = 0;
    long date = kMaxDate;
    switch (key) {
        case Key::Priority:
            record.GetPriority(number);
            return number;
        case Key::DueDate:
            record.GetDueDate(date);
            return date;
        case Key::Placement:
            record.GetPlacementPos(number);
            return number;
        case Key::Category:
            break;
    }
    return 0;
}

int CompareNames(const CString& left, const CString& right) {
    return CompareStringA(LOCALE_SYSTEM_DEFAULT, SORT_STRINGSORT, left, left.GetLength(), right,
                          right.GetLength()) -
           CSTR_EQUAL;
}

int CompareByKey(Key key, const CToDoRecord& left, const CToDoRecord& right, CTodoListbox& view) {
    if (key == Key::Category) {
        CString leftName;
        CString rightName;
        view.GetCategoryName(leftName, CategoryOf(left));
        view.GetCategoryName(rightName, CategoryOf(right));
        return CompareNames(leftName, rightName);
    }
    const long leftNumber = NumberOf(key, left);
    const long rightNumber = NumberOf(key, right);
    return int{leftNumber > rightNumber} - int{leftNumber < rightNumber};
}

// The places of the categories in the order of their names; equal names share one.
using CategoryRanks = std::array<long, kCategoryCount>;

CategoryRanks RanksOf(CTodoListbox& view) {
    std::array<CString, kCategoryCount> names;
    for (int index = 0; index < kCategoryCount; ++index) {
        view.GetCategoryName(names[static_cast<std::size_t>(index)], index);
    }
    CategoryRanks ranks{};
    std::transform(names.begin(), names.end(), ranks.begin(), [&](const CString& name) {
        return std::count_if(names.begin(), names.end(),
                             [&](const CString& other) { return CompareNames(other, name) < 0; });
    });
    return ranks;
}

// Four bytes that stand in the order of the numbers, which fit an int.
void AppendNumber(long number, std::string& key) {
    constexpr std::uint32_t kSignBit = 0x80000000;
    const std::uint32_t bits = static_cast<std::uint32_t>(number) ^ kSignBit;
    for (const int shift : {24, 16, 8, 0}) key += static_cast<char>(bits >> shift & 0xFF);
}

DataKeyMaker KeyMaker(LPARAM argument) {
    auto* view = reinterpret_cast<CTodoListbox*>(argument);
    const OrderRule* rule = view != nullptr ? RuleOf(view->GetSortOrder()) : nullptr;
    if (rule == nullptr) return nullptr;
    return [rule, ranks = RanksOf(*view)](LPARAM data, std::size_t part, std::string& bytes) {
        const auto* record = reinterpret_cast<const CToDoRecord*>(data);
        if (record == nullptr || part != 0) return;
        for (const Key key : rule->keys) {
            const bool isName = key == Key::Category;
            AppendNumber(isName ? ranks.at(static_cast<std::size_t>(CategoryOf(*record)))
                                : NumberOf(key, *record),
                         bytes);
        }
    };
}

}  // namespace

int TodoCompareRecords(long record1, long record2, long view) {
    if (record1 == 0 || record2 == 0 || view == 0) return 0;
    CTodoListbox& list = *reinterpret_cast<CTodoListbox*>(view);
    const OrderRule* rule = RuleOf(list.GetSortOrder());
    if (rule == nullptr) return -1;
    const auto& left = *reinterpret_cast<const CToDoRecord*>(record1);
    const auto& right = *reinterpret_cast<const CToDoRecord*>(record2);
    for (const Key key : rule->keys) {
        const int result = CompareByKey(key, left, right, list);
        if (result != 0) return result;
    }
    return 0;
}

int TodoCompareRowToRecord(long row, long record, long view) {
    if (view == 0) return 0;
    const auto& list = *reinterpret_cast<const CTodoListbox*>(view);
    const DWORD data = list.GetItemData(static_cast<int>(row));
    return TodoCompareRecords(static_cast<long>(data), record, view);
}

void RegisterTodoSortKeys() {
    RegisterSortKeys(TodoCompareRecords, KeyMaker);
}

void CTodoListbox::SetSortOrder(eSortOrder order) {
    const OrderRule* rule = RuleOf(order);
    COrvoUIListViewCtrl::SetSortOrder(rule != nullptr ? rule->column : -1, 1);
    m_eSortOrder = order;
}

void CTodoListbox::GetCategoryName(CString& name, int index) {
    name.Empty();
    CCategoryMgr* manager = m_pTable != nullptr ? m_pTable->GetCategoryManager() : nullptr;
    CCategory* category = nullptr;
    if (manager != nullptr && manager->FindIndex(index, category) == 0) name = category->GetName();
}

}  // namespace orvo
