// This project's window as it is measured: that of orvo-desktop.
// SPDX-License-Identifier: MIT
#include <QAbstractScrollArea>
#include <QDockWidget>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QToolBar>
#include <stdexcept>

#include <desktop/window/DesktopWindow.h>
#include <host/HostOptions.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/settings/SettingsStore.h>

#include "MeasuredWindow.h"

namespace orvo::bench {
namespace {

using desktop::ViewKind;

ViewKind KindOf(ViewMode mode) {
    switch (mode) {
        case ViewMode::LargeIcons:
            return ViewKind::LargeIcons;
        case ViewMode::SmallIcons:
            return ViewKind::SmallIcons;
        case ViewMode::Cards:
            return ViewKind::Cards;
        default:
            return ViewKind::List;
    }
}

COrvoDesktopOptions LoadOptions() {
    const SettingsLock lock;
    return LoadHostOptions([](const std::string& problem) { throw std::runtime_error(problem); });
}

class OurWindow : public MeasuredWindow {
public:
    OurWindow() { WindowSystem::SetCurrent(&m_system); }

    ~OurWindow() override {
        m_window.reset();
        AfxSetMainWnd(nullptr);
        WindowSystem::SetCurrent(nullptr);
    }

    void Open(const std::string& store) override {
        std::string error;
        m_session = desktop::StoreSession::Open(store, error);
        if (!m_session) throw std::runtime_error(error);
        m_options = LoadOptions();
        m_window = std::make_unique<desktop::DesktopWindow>(*m_session, m_options);
        if (!m_window->Open({})) throw std::runtime_error("the window can't be made");
        m_window->BeginSession();
        m_window->show();
    }

    QWidget& KeyTarget() override { return *QtWindowSystem::WidgetOf(&Box()); }

    void StartOver() override {
        Box().Clear();
        Box().SelectAndScroll(0);
    }

    QWidget* Viewport() override {
        if (!m_window || m_window->Frame().Entries().RowCount() == 0) return nullptr;
        QWidget* shown = QtWindowSystem::WidgetOf(&m_window->Frame().Entries().Window());
        QWidget* view = dynamic_cast<QStackedWidget&>(*shown).currentWidget();
        return dynamic_cast<QAbstractScrollArea&>(*view).viewport();
    }

    QWidget* ShowDetails() override {
        m_window->findChild<QDockWidget*>("details")->show();
        return m_window->findChild<QTextBrowser*>()->viewport();
    }

    void HideDetails() override { m_window->findChild<QDockWidget*>("details")->hide(); }

    QLineEdit* OpenFind() override {
        auto* bar = m_window->findChild<QToolBar*>("find");
        bar->show();
        return bar->findChild<QLineEdit*>();
    }

    bool IsFindReady() override { return m_window->Frame().Entries().IsWhole(); }

    bool SeesForeignEdits() const override { return true; }

    bool HasMode(ViewMode) const override { return true; }
    void SetMode(ViewMode mode) override { m_window->ShowView(KindOf(mode)); }

private:
    CLookupEdit& Box() { return m_window->Frame().LookupBox(); }

    QtWindowSystem m_system;
    std::unique_ptr<desktop::StoreSession> m_session;
    COrvoDesktopOptions m_options;
    std::unique_ptr<desktop::DesktopWindow> m_window;
};

}  // namespace

std::unique_ptr<MeasuredWindow> MakeOurWindow() {
    return std::make_unique<OurWindow>();
}

}  // namespace orvo::bench
