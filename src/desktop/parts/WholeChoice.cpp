// The choice of the to-do that others become parts of.
// SPDX-License-Identifier: MIT
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <unordered_set>
#include <utility>

#include <desktop/parts/ShownLine.h>
#include <desktop/parts/WholeChoice.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr QSize kSize{420, 360};
constexpr int kMostShown = 200;  // more are found by typing on

using Wholes = std::vector<std::pair<std::int64_t, QString>>;

Wholes ReadWholes(const PartsContext& context, const std::vector<std::int64_t>& parts) {
    std::unordered_set<std::int64_t> leftOut(parts.begin(), parts.end());
    for (const std::int64_t part : parts) leftOut.merge(context.index().AllBelow(part));
    Wholes wholes;
    CToDoRecord record(context.table);
    CToDoIterator iterator(context.table);
    long found = iterator.FindFirst(record);
    for (; found == 0 || iterator.IsAtDamage(); found = iterator.FindNext(record)) {
        if (found != 0 || record.IsCompleted() != 0 || record.IsArchived() != 0) continue;
        if (leftOut.count(record.GetId()) != 0) continue;
        if (context.told(WayOut::View, record) != Told::Whole) continue;
        const std::string_view text = record.DescriptionUtf8();
        wholes.emplace_back(record.GetId(), FromUtf8(ShownLine(text).In(text)));
    }
    return wholes;
}

class WholeChoice : public QDialog {
public:
    WholeChoice(QWidget* parent, Wholes wholes) : QDialog(parent), m_wholes(std::move(wholes)) {
        setWindowTitle(Text("Make part of another"));
        resize(kSize);
        auto* look = new QLineEdit;
        look->setPlaceholderText(Text("Part of a text"));
        look->setAccessibleName(Text("Part of a text"));
        m_list = new QListWidget;
        m_list->setAccessibleName(Text("To Do"));
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        m_ok = buttons->button(QDialogButtonBox::Ok);
        m_ok->setText(Text("OK"));
        buttons->button(QDialogButtonBox::Cancel)->setText(Text("Cancel"));
        connect(look, &QLineEdit::textChanged, this, [this](const QString& text) { Fill(text); });
        connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(look);
        layout->addWidget(m_list);
        layout->addWidget(buttons);
        Fill({});
    }

    std::optional<std::int64_t> Chosen() const {
        const QListWidgetItem* item = m_list->currentItem();
        if (!item) return std::nullopt;
        return item->data(Qt::UserRole).toLongLong();
    }

private:
    void Fill(const QString& text) {
        m_list->clear();
        for (const auto& [id, line] : m_wholes) {
            if (m_list->count() == kMostShown) break;
            if (!line.contains(text, Qt::CaseInsensitive)) continue;
            auto* item = new QListWidgetItem(line, m_list);  // the list's
            item->setData(Qt::UserRole, static_cast<qlonglong>(id));
        }
        m_list->setCurrentRow(0);
        m_ok->setEnabled(m_list->count() != 0);
    }

    Wholes m_wholes;
    QListWidget* m_list;  // both Qt's
    QPushButton* m_ok;
};

}  // namespace

std::optional<std::int64_t> ChooseWhole(QWidget* parent, const PartsContext& context,
                                        const std::vector<std::int64_t>& parts) {
    WholeChoice dialog(parent, ReadWholes(context, parts));
    return dialog.exec() == QDialog::Accepted ? dialog.Chosen() : std::nullopt;
}

}  // namespace orvo::desktop
