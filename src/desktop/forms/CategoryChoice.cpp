// A dialog in which the user chooses a category.
// SPDX-License-Identifier: MIT
#include <QDialog>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <desktop/forms/CategoryChoice.h>
#include <desktop/texts/Texts.h>
#include <platform/qt/QtConvert.h>

namespace orvo::desktop {
namespace {

// The arrows walk through the list below while the user types.
class FindField : public QLineEdit {
public:
    explicit FindField(QListWidget& list) : m_list(list) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const int key = event->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            Walk(key == Qt::Key_Up ? -1 : 1);
        } else {
            QLineEdit::keyPressEvent(event);
        }
    }

private:
    void Walk(int step) {
        int row = m_list.currentRow() + step;
        while (m_list.item(row) != nullptr && m_list.item(row)->isHidden()) row += step;
        if (m_list.item(row) != nullptr) m_list.setCurrentRow(row);
    }

    QListWidget& m_list;
};

void FillList(QListWidget& list, CCategoryMgr& categories) {
    CCategory* category = nullptr;
    for (categories.FindFirst(category); category; categories.FindNext(category)) {
        auto* item = new QListWidgetItem(FromUtf8(category->ShownUtf8()), &list);
        item->setData(Qt::UserRole, category->GetIndex());
    }
    list.setCurrentRow(0);
}

// Hides what doesn't hold the text, and chooses the first of the rest.
void ShowMatches(QListWidget& list, const QString& text) {
    int first = -1;
    for (int row = list.count() - 1; row >= 0; --row) {
        const bool isMatch = list.item(row)->text().contains(text, Qt::CaseInsensitive);
        list.item(row)->setHidden(!isMatch);
        if (isMatch) first = row;
    }
    list.setCurrentRow(first);
}

}  // namespace

std::optional<int> ChooseCategory(QWidget* parent, CBaseTable& table) {
    QDialog dialog(parent);
    dialog.setWindowTitle(Text("Choose a category"));
    auto* list = new QListWidget;
    list->setAccessibleName(Text("Categories"));
    FillList(*list, *table.GetCategoryManager());
    auto* find = new FindField(*list);
    find->setPlaceholderText(Text("Type to find a category"));
    find->setAccessibleName(find->placeholderText());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setText(Text("&Choose"));
    ok->setDefault(true);
    ok->setEnabled(list->currentRow() >= 0);
    buttons->button(QDialogButtonBox::Cancel)->setText(Text("Cancel"));
    auto* column = new QVBoxLayout(&dialog);
    column->addWidget(find);
    column->addWidget(list);
    column->addWidget(buttons);
    QObject::connect(find, &QLineEdit::textChanged, list,
                     [list](const QString& text) { ShowMatches(*list, text); });
    QObject::connect(list, &QListWidget::currentRowChanged, ok,
                     [ok](int row) { ok->setEnabled(row >= 0); });
    QObject::connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() != QDialog::Accepted || list->currentItem() == nullptr) return std::nullopt;
    return list->currentItem()->data(Qt::UserRole).toInt();
}

}  // namespace orvo::desktop
