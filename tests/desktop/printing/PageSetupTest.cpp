// The page setup in the settings file.
// SPDX-License-Identifier: MIT
#include <QMarginsF>
#include <QSizeF>

#include <gtest/gtest.h>

#include <desktop/printing/PageSetup.h>
#include <platform/settings/SettingsFixture.h>

namespace orvo::desktop {
namespace {

using PageSetup = SettingsFixture;

TEST_F(PageSetup, WhatWasSavedComesBack) {
    constexpr auto kMillimetres = QPageLayout::Millimeter;
    const QPageSize own(QSizeF(100, 150.5), QPageSize::Millimeter);
    const QPageLayout kLayouts[] = {
        {QPageSize(QPageSize::A5), QPageLayout::Landscape, {10, 11.5, 12, 13}, kMillimetres},
        {own, QPageLayout::Portrait, {0, 0, 0, 0}, kMillimetres}};
    for (const QPageLayout& layout : kLayouts) {
        EXPECT_TRUE(SavePageLayout(layout));

        const QPageLayout loaded = LoadPageLayout();
        EXPECT_TRUE(loaded.pageSize().isEquivalentTo(layout.pageSize()));
        EXPECT_EQ(loaded.orientation(), layout.orientation());
        EXPECT_EQ(loaded.margins(kMillimetres), layout.margins(kMillimetres));
    }
}

TEST_F(PageSetup, WhatMakesNoSenseCountsAsNotSaved) {
    const QPageLayout usual = LoadPageLayout();
    struct Row {
        const char* why;
        const char* settings;
    };
    constexpr Row kRows[] = {{"no paper", "Paper=Papyrus"},
                             {"no numbers", "Paper=axb"},
                             {"paper as small as a stamp", "Paper=10x10"},
                             {"paper of a mile", "Paper=100x1600000"},
                             {"no orientation", "Orientation=upside down"},
                             {"three margins", "Margins=10 10 10"},
                             {"a word for a margin", "Margins=10 10 wide 10"},
                             {"margins below zero", "Margins=-10 -10 -10 -10"},
                             {"margins that leave no room", "Margins=100 10 100 10"},
                             {"no number", "Margins=nan nan nan nan"}};
    for (const Row& row : kRows) {
        Put(std::string("[Application/Printing]\n") + row.settings + "\n");
        EXPECT_EQ(LoadPageLayout(), usual) << row.why;
    }
}

}  // namespace
}  // namespace orvo::desktop
