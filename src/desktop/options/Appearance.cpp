// The colours of the windows.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

#include <desktop/options/Appearance.h>

namespace orvo::desktop {
namespace {

struct RoleColours {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};
constexpr RoleColours kRoles[] = {
    {QPalette::Window, 0xFFF3F4F6, 0xFF2A2E34},
    {QPalette::WindowText, 0xFF1E2227, 0xFFE4E6EA},
    {QPalette::Base, 0xFFFFFFFF, 0xFF1B1D21},
    {QPalette::AlternateBase, 0xFFF6F7F9, 0xFF212429},
    {QPalette::Text, 0xFF1E2227, 0xFFE4E6EA},
    {QPalette::Button, 0xFFE9EBEF, 0xFF383D45},
    {QPalette::ButtonText, 0xFF1E2227, 0xFFE4E6EA},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::PlaceholderText, 0xFF6A717C, 0xFF969DA8},
    {QPalette::Light, 0xFFFFFFFF, 0xFF464B53},
    {QPalette::Midlight, 0xFFF3F4F6, 0xFF3A3F46},
    {QPalette::Mid, 0xFFC3C8D0, 0xFF41464E},
    {QPalette::Dark, 0xFF9BA2AD, 0xFF14161A},
    {QPalette::Shadow, 0xFF5A616C, 0xFF000000},
    {QPalette::Highlight, 0xFF1F5FBF, 0xFF2F6FD0},
    {QPalette::HighlightedText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Link, 0xFF1F5FBF, 0xFF7FB0F5},
    {QPalette::ToolTipBase, 0xFFFFFFFF, 0xFF30343A},
    {QPalette::ToolTipText, 0xFF1E2227, 0xFFE4E6EA},
};
constexpr QRgb kDisabledLight = 0xFF8A919C;
constexpr QRgb kDisabledDark = 0xFF767D88;

}  // namespace

void SetColours(Colours colours) {
    static const QString styleOfDesktop = QApplication::style()->objectName();
    if (colours == Colours::Desktop) {
        if (QApplication::style()->objectName() == styleOfDesktop) return;
        QApplication::setStyle(QStyleFactory::create(styleOfDesktop));
        QApplication::setPalette(QPalette());
        return;
    }
    const bool isDark = colours == Colours::Dark;
    QPalette palette;
    for (const RoleColours& row : kRoles) {
        palette.setColor(row.role, QColor::fromRgba(isDark ? row.dark : row.light));
    }
    const QColor disabled = QColor::fromRgba(isDark ? kDisabledDark : kDisabledLight);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(palette);
}

}  // namespace orvo::desktop
