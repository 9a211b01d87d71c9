// A window as Qt programs usually have it: a model of items behind a sorting proxy.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QHeaderView>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QStyle>
#include <QTreeView>
#include <stdexcept>

#include <contracts/RecordStore.h>
#include <libraries/quire/SqliteEngine.h>
#include <orvoshare/text/CategoryText.h>
#include <orvoshare/text/NameText.h>

#include "MeasuredWindow.h"

namespace orvo::bench {
namespace {

// As in this project's window.
constexpr QSize kSize{1000, 680};
constexpr int kWideColumn = 180;
constexpr int kMediumColumn = 110;
constexpr int kPictureColumn = 29;

struct Column {
    const char* heading;
    int width;
};
constexpr Column kColumns[] = {{"Name", kWideColumn},       {"Company", kWideColumn},
                               {"Phone", kMediumColumn},    {"Category", kMediumColumn},
                               {"Private", kPictureColumn}, {"Note", kPictureColumn}};

// A word that is typed with pauses, as the measuring has them, is one word still.
constexpr int kTypingInterval = 10'000;  // milliseconds

QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QStandardItem* TextItem(const QString& text) {
    auto* item = new QStandardItem(text);
    item->setEditable(false);
    return item;
}

// It reads the store through this project's engine, so that reading costs both windows the same.
class PlainWindow : public MeasuredWindow {
public:
    PlainWindow() {
        QApplication::setKeyboardInputInterval(kTypingInterval);
        m_model.setColumnCount(std::size(kColumns));
        for (int column = 0; const Column& row : kColumns) {
            m_model.setHorizontalHeaderItem(column++, new QStandardItem(row.heading));
        }
        m_proxy.setSortLocaleAware(true);
        m_proxy.setSortCaseSensitivity(Qt::CaseInsensitive);
        m_proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
        m_tree.setUniformRowHeights(true);
        m_tree.setRootIsDecorated(false);
        m_icons.setViewMode(QListView::IconMode);
        m_icons.setUniformItemSizes(true);
        m_icons.setResizeMode(QListView::Adjust);
        m_window.addWidget(&m_tree);
        m_window.addWidget(&m_icons);
        m_window.resize(kSize);
    }

    // The views are part of the window, but nobody's to delete.
    ~PlainWindow() override {
        m_tree.setParent(nullptr);
        m_icons.setParent(nullptr);
    }

    void Open(const std::string& store) override {
        Fill(store);
        m_proxy.setSourceModel(&m_model);
        m_proxy.sort(0);
        m_tree.setModel(&m_proxy);
        for (int column = 0; const Column& row : kColumns) {
            m_tree.header()->resizeSection(column++, row.width);
        }
        m_window.show();
        m_tree.setFocus();
    }

    QWidget& KeyTarget() override { return m_tree; }

    void StartOver() override {
        m_tree.keyboardSearch(QString());
        m_tree.setCurrentIndex(m_proxy.index(0, 0));
        m_tree.scrollToTop();
    }

    QWidget* Viewport() override {
        if (m_proxy.rowCount() == 0) return nullptr;
        return dynamic_cast<QAbstractItemView&>(*m_window.currentWidget()).viewport();
    }

    bool HasMode(ViewMode mode) const override {
        return mode == ViewMode::Report || mode == ViewMode::LargeIcons;
    }

    void SetMode(ViewMode mode) override {
        if (mode == ViewMode::Report) return m_window.setCurrentWidget(&m_tree);
        if (!m_icons.model()) m_icons.setModel(&m_proxy);
        m_window.setCurrentWidget(&m_icons);
    }

private:
    void Fill(const std::string& store) {
        std::string error;
        const auto engine = SqliteEngine::Open(store, error);
        if (!engine) throw std::runtime_error(error);
        CAddressTable table(*engine);
        CAddressIterator people(table);
        CAddressRecord person(table);
        for (long found = people.FindFirst(person); found == 0; found = people.FindNext(person)) {
            m_model.appendRow(RowOf(person, table));
        }
    }

    QList<QStandardItem*> RowOf(CAddressRecord& person, CAddressTable& table) const {
        CString name;
        FormatName(&person, name);
        long slot = 1;
        CString phone;
        person.GetDisplayPhone(slot);
        person.GetPhone(slot, phone);
        QStandardItem* first = TextItem(ToQString(name.View()));
        first->setIcon(m_icon);
        return {first,
                TextItem(ToQString(person.Utf8(AddressField::Company))),
                TextItem(ToQString(phone.View())),
                TextItem(ToQString(CategoryText(table, person).View())),
                TextItem(person.IsPrivate() != 0 ? "x" : ""),
                TextItem(person.IsNote() != 0 ? "x" : "")};
    }

    QIcon m_icon = QApplication::style()->standardIcon(QStyle::SP_FileIcon);
    QStandardItemModel m_model;
    QSortFilterProxyModel m_proxy;
    QStackedWidget m_window;
    QTreeView m_tree;
    QListView m_icons;
};

}  // namespace

std::unique_ptr<MeasuredWindow> MakePlainWindow() {
    return std::make_unique<PlainWindow>();
}

}  // namespace orvo::bench
