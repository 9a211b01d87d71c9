// Bitmaps, icons and cursors from the resources in reach.
// SPDX-License-Identifier: MIT
#include <functional>
#include <map>
#include <string>

#include <platform/module/FindResource.h>
#include <platform/window/base/Cursor.h>
#include <platform/window/base/Icon.h>
#include <platform/window/pictures/XpmPicture.h>

namespace orvo {

bool CBitmap::LoadBitmap(unsigned number) {
    std::optional<XpmPicture> picture =
        ReadXpmPicture(FindResourceText(ResourceKind::Bitmap, number));
    *this = picture ? std::move(picture->pixels) : CBitmap();
    return !IsEmpty();
}

bool CBitmap::CreateMappedBitmap(unsigned number, COLORREF from, COLORREF to) {
    if (!LoadBitmap(number)) return false;
    ReplaceColor(from, to);
    return true;
}

bool LoadIcon(unsigned number, Icon& icon) {
    std::optional<XpmPicture> picture =
        ReadXpmPicture(FindResourceText(ResourceKind::Icon, number));
    if (!picture) return false;
    icon = {std::move(picture->pixels), picture->clear};
    return true;
}

HCURSOR LoadCursor(unsigned number) {
    // By the text, as its module may go while the cursor is shown.
    static std::map<std::string, Cursor, std::less<>> loaded;
    const std::string_view text = FindResourceText(ResourceKind::Cursor, number);
    const auto found = loaded.find(text);
    if (found != loaded.end()) return &found->second;

    std::optional<XpmPicture> picture = ReadXpmPicture(text);
    if (!picture) return nullptr;
    Cursor cursor{0, std::move(picture->pixels), picture->clear,
                  picture->hotSpot.value_or(CPoint())};
    return &loaded.emplace(text, std::move(cursor)).first->second;
}

}  // namespace orvo
