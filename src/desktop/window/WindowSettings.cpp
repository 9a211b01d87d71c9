// What a window is to find again at the next start.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <contracts/Profile.h>
#include <desktop/window/WindowSettings.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/todo/TodoListbox.h>

namespace orvo::desktop {
namespace {

constexpr const char* kSection = "DesktopWindow";
constexpr const char* kGeometryKey = "Geometry";
constexpr const char* kPanesKey = "Panes";
constexpr const char* kViewKey = "View";
constexpr const char* kAddressOrderKey = "AddressOrder";
constexpr const char* kToDoOrderKey = "ToDoOrder";

int NumberOf(const char* key, int least, int most, int other) {
    const auto number = static_cast<int>(OUIGetProfileInt(kSection, key, other));
    return number < least || number > most ? other : number;
}

QByteArray BytesOf(const char* key) {
    const CString text = OUIGetProfileString(kSection, key, "");
    return QByteArray::fromHex(QByteArray(text.View().data(), text.GetLength()));
}

}  // namespace

WindowSettings WindowSettings::Load() {
    WindowSettings settings;
    settings.geometry = BytesOf(kGeometryKey);
    settings.panes = BytesOf(kPanesKey);
    const CString view = OUIGetProfileString(kSection, kViewKey, "");
    for (const ViewName& row : kViewNames) {
        if (view.View() == row.name) settings.view = row.kind;
    }
    settings.addressOrder = NumberOf(kAddressOrderKey, 0, 1, settings.addressOrder);
    settings.toDoOrder =
        NumberOf(kToDoOrderKey, eSortByPriorityDueDate, eSortByCategoryPriority, 0);
    return settings;
}

void WindowSettings::Save() const {
    OUIWriteProfileString(kSection, kGeometryKey, geometry.toHex().constData());
    OUIWriteProfileString(kSection, kPanesKey, panes.toHex().constData());
    for (const ViewName& row : kViewNames) {
        if (view == row.kind) OUIWriteProfileString(kSection, kViewKey, row.name);
    }
    OUIWriteProfileInt(kSection, kAddressOrderKey, addressOrder);
    OUIWriteProfileInt(kSection, kToDoOrderKey, toDoOrder);
}

}  // namespace orvo::desktop
