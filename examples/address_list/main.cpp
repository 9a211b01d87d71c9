// A program that embeds the address list: a window with a lookup box over the addresses of a store.
//     address_list STORE            shows it
//     address_list STORE PICTURE    draws it into a file, such as list.png, and ends
// Card and calendar files that are dropped on the window are named in its title.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QWidget>
#include <cstdio>
#include <memory>
#include <string>

#include <libraries/quire/UserStore.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/addressviews/LookupEdit.h>
#include <orvoshare/integration/OrvoOleDropTarget.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/window/base/WindowSystem.h>

namespace {

constexpr int kBoxHeight = 28;
constexpr int kAllCategories = 16;

// The window around both: the box at the top, the list below.
class ListWindow : public orvo::CWnd {
public:
    explicit ListWindow(orvo::CAddressTable& addresses) : m_addresses(addresses) {}
    ~ListWindow() override { DestroyWindow(); }

    bool Open() {
        using namespace orvo;
        constexpr DWORD kChild = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
        if (!Create(0, {0, 0, 800, 500}, nullptr, 0) ||
            !m_box.Create(kChild | WS_BORDER, {}, this, 1) ||
            !m_list.Create(kChild | LVS_REPORT | LVS_SHOWSELALWAYS, {}, this, 2)) {
            return false;
        }
        AfxSetMainWnd(this);  // the one that is told of dropped files
        m_target.Register(this);
        m_list.Initialize(&m_addresses, nullptr);
        m_list.ShowDefaultHeading();
        m_list.DV_SetEdit(&m_box);  // what is typed into either looks somebody up
        m_box.SetListBox(&m_list);
        m_list.DV_FillFromTable(&m_addresses, kAllCategories, 0, kListByName);
        Arrange();
        m_box.SetFocus();
        return true;
    }

    static const orvo::MessageMap& ThisMap() {
        static const orvo::MessageMap map{CWnd::ThisMap(),
                                          {orvo::On<orvo::WM_SIZE>(&ListWindow::OnSize),
                                           orvo::On<orvo::kFilesDropped>(&ListWindow::OnFiles)}};
        return map;
    }
    const orvo::MessageMap& GetMessageMap() const override { return ThisMap(); }

private:
    void OnSize(orvo::UINT, int, int) { Arrange(); }

    orvo::LRESULT OnFiles(orvo::WPARAM, orvo::LPARAM lParam) {
        const auto& paths = *orvo::PointerOf<orvo::CStringArray>(lParam);
        orvo::CString title;
        for (int i = 0; i < paths.GetSize(); ++i) title += (i == 0 ? "" : ", ") + paths[i];
        SetWindowText(title);
        return 0;
    }

    void Arrange() {
        orvo::CRect client;
        GetClientRect(&client);
        m_box.MoveWindow({0, 0, client.Width(), kBoxHeight});
        m_list.MoveWindow({0, kBoxHeight, client.Width(), client.Height()});
    }

    orvo::CAddressTable& m_addresses;
    orvo::CLookupEdit m_box;
    orvo::CDetailViewAddrList m_list;
    orvo::COrvoOleDropTarget m_target;
};

int Show(orvo::StoreEngine& store, const char* picture) {
    orvo::CAddressTable addresses(store);
    ListWindow window(addresses);
    if (!window.Open()) return 1;
    QWidget* widget = orvo::QtWindowSystem::WidgetOf(&window);
    widget->setWindowTitle("Addresses");
    widget->show();
    if (picture == nullptr) return QApplication::exec();
    return widget->grab().save(picture) ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) return std::fputs("give a store file\n", stderr), 2;
    const QApplication application(count, arguments);
    std::string error;
    const std::unique_ptr<orvo::SqliteEngine> store = orvo::OpenUserStore(arguments[1], error);
    if (!store) return std::fprintf(stderr, "%s\n", error.c_str()), 2;
    orvo::QtWindowSystem system;
    orvo::WindowSystem::SetCurrent(&system);
    const int code = Show(*store, count > 2 ? arguments[2] : nullptr);
    orvo::WindowSystem::SetCurrent(nullptr);
    return code;
}
