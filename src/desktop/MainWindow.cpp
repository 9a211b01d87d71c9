// The window of the desktop program: the address list below its lookup box.
// SPDX-License-Identifier: MIT
#include <QCoreApplication>

#include <contracts/ResourceScope.h>
#include <desktop/MainWindow.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/window/CDC.h>
#include <platform/window/WindowSystem.h>

namespace orvo::desktop {
namespace {

constexpr CRect kFirstPlace{80, 60, 980, 660};
constexpr const char* kTitle = "Orvo Desktop";
// The section of the user's profile that holds the heading of the list.
constexpr const char* kListSection = "AddressList";
constexpr UINT kBoxId = 1;
constexpr UINT kListId = 2;

constexpr int kMargin = 8;
constexpr int kBoxHeight = 28;
constexpr int kBoxWidth = 260;

}  // namespace

const MessageMap& MainWindow::ThisMap() {
    static const MessageMap map{
        CWnd::ThisMap(),
        {On<WM_PAINT>(&MainWindow::OnPaint), On<WM_SIZE>(&MainWindow::OnSize),
         On<WM_DESTROY>(&MainWindow::OnDestroy)}};
    return map;
}

MainWindow::~MainWindow() {
    DestroyWindow();
}

bool MainWindow::Open(CAddressTable& table) {
    {
        const CDllResourceHandler resources(OrvoShareRecord());
        m_label.LoadString(kStringLookUp);
    }
    constexpr DWORD kChild = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
    if (!Create(0, kFirstPlace, nullptr, 0) ||
        !m_box.Create(kChild | WS_BORDER, {}, this, kBoxId) ||
        !m_list.Create(kChild | LVS_REPORT | LVS_SHOWSELALWAYS, {}, this, kListId)) {
        return false;
    }
    SetWindowText(kTitle);
    Arrange(kFirstPlace.Size());
    m_list.Initialize(&table, &m_categories);
    m_list.ReadHeaderColumnInfo(kListSection, 0);
    m_list.SetViewMode(kReportView);
    m_list.DV_SetEdit(&m_box);
    m_box.SetListBox(&m_list);
    m_list.DV_FillFromTable(&table, kAllCategories, 0, kListByName);
    ShowWindow(1);
    m_box.SetFocus();
    return true;
}

void MainWindow::Arrange(CSize size) {
    const int labelWidth = CDC().GetTextExtent(m_label).cx;
    const int boxLeft = kMargin + labelWidth + kMargin;
    m_labelPlace = {kMargin, kMargin, kMargin + labelWidth, kMargin + kBoxHeight};
    m_box.MoveWindow({boxLeft, kMargin, boxLeft + kBoxWidth, kMargin + kBoxHeight});
    m_list.MoveWindow({0, kMargin + kBoxHeight + kMargin, size.cx, size.cy});
}

LRESULT MainWindow::OnPaint(WPARAM wParam, LPARAM) {
    auto* dc = reinterpret_cast<CDC*>(wParam);
    if (dc == nullptr) return 0;
    CRect client;
    GetClientRect(&client);
    dc->FillSolidRect(client, GetSysColor(COLOR_BTNFACE));
    dc->SetBkMode(TRANSPARENT);
    dc->SetTextColor(GetSysColor(COLOR_BTNTEXT));
    dc->DrawText(m_label, m_labelPlace, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    return 0;
}

void MainWindow::OnSize(UINT, int width, int height) {
    Arrange({width, height});
}

void MainWindow::OnDestroy() {
    if (m_keepsHeading) m_list.WriteHeaderColumnInfo(kListSection);
    CWnd::OnDestroy();
    // Not quit(), which asks the windows, and this one only goes now.
    QCoreApplication::exit(0);
}

}  // namespace orvo::desktop
