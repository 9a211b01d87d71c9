// The window in which the user decides what becomes of duplicates.
// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <map>

#include <desktop/import/DuplicateTable.h>
#include <desktop/import/DuplicatesDialog.h>
#include <desktop/import/MergeAddresses.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr QSize kDuplicatesSize{720, 520};
constexpr auto kGone = static_cast<long>(StoreStatus::Gone);

enum class Decision { Merge, KeepBoth, DeleteSecond };

class DuplicatesDialog : public QDialog {
public:
    DuplicatesDialog(QWidget* parent, CAddressTable& table, const std::vector<DuplicatePair>& pairs,
                     DuplicateOrigin origin, const RunChange& run)
        : QDialog(parent),
          m_table(table),
          m_pairs(pairs),
          m_run(run),
          m_isImport(origin == DuplicateOrigin::Import),
          m_first(table),
          m_second(table),
          m_view(m_isImport ? Text("In the store") : Text("First address"),
                 m_isImport ? Text("Imported") : Text("Second address")) {
        setWindowTitle(Text("Possible duplicates"));
        resize(kDuplicatesSize);
        m_all = new QCheckBox(Text("&Apply to all that remain"));
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&m_count);
        layout->addWidget(&m_view);
        layout->addWidget(m_all);
        layout->addWidget(MakeButtons());
        m_merge->setDefault(true);  // in the dialog now, it stands before Close
        m_merge->setFocus();
        setTabOrder(m_last, m_close);
        ShowNext();
    }

    bool HasPair() const { return m_place < m_pairs.size(); }
    bool IsChanged() const { return m_isChanged; }

private:
    QDialogButtonBox* MakeButtons() {
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
        m_merge = AddButton(*buttons, Text("&Merge"), Decision::Merge);
        AddButton(*buttons, Text("&Keep both"), Decision::KeepBoth);
        m_last = AddButton(*buttons,
                           m_isImport ? Text("&Skip the imported one") : Text("&Delete second"),
                           Decision::DeleteSecond);
        m_close = buttons->button(QDialogButtonBox::Close);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        return buttons;
    }

    QPushButton* AddButton(QDialogButtonBox& buttons, const QString& text, Decision decision) {
        QPushButton* button = buttons.addButton(text, QDialogButtonBox::ActionRole);
        connect(button, &QPushButton::clicked, this, [this, decision] { Decide(decision); });
        return button;
    }

    // An address that was merged is found in the one that it went into.
    std::int64_t IdOf(std::int64_t id) const {
        for (auto found = m_mergedInto.find(id); found != m_mergedInto.end();
             found = m_mergedInto.find(id)) {
            id = found->second;
        }
        return id;
    }

    // Reads the pair anew, as others may have changed it.
    // Returns:  Gone where one of them isn't there any more.
    long Read(const DuplicatePair& pair) {
        const std::int64_t first = IdOf(pair.first);
        const std::int64_t second = IdOf(pair.second);
        if (first == second) return kGone;
        long status = m_table.Find(first, m_first);
        if (status == 0) status = m_table.Find(second, m_second);
        if (status == 0 && (m_first.IsDeleted() || m_second.IsDeleted())) status = kGone;
        return status;
    }

    void ShowNext() {
        while (HasPair() && Read(m_pairs[m_place]) != 0) ++m_place;
        if (!HasPair()) {
            accept();
            return;
        }
        const QLocale locale;
        m_count.setText(Text("%1 of %2")
                            .arg(locale.toString(static_cast<qulonglong>(m_place) + 1),
                                 locale.toString(static_cast<qulonglong>(m_pairs.size()))));
        m_all->setVisible(m_place + 1 < m_pairs.size());
        m_view.Show(RowsOf(m_first, m_second));
    }

    void Decide(Decision decision) {
        const std::size_t end = m_all->isChecked() ? m_pairs.size() : m_place + 1;
        const std::map<std::int64_t, std::int64_t> before = m_mergedInto;
        if (decision != Decision::KeepBoth) {
            const QString name =
                decision == Decision::Merge ? Text("Merge duplicates") : Text("Delete duplicates");
            const std::string failure =
                m_run(name.toStdString(), [&] { return Change(decision, end); });
            if (!failure.empty()) {
                m_mergedInto = before;
                TellFailure(failure);
                ShowNext();
                return;
            }
            m_isChanged = true;
        }
        m_place = end;
        ShowNext();
    }

    long Change(Decision decision, std::size_t end) {
        const MergeChoices choices = m_view.Choices();
        for (std::size_t i = m_place; i < end; ++i) {
            long status = Read(m_pairs[i]);
            if (status == kGone) continue;
            if (status == 0 && decision == Decision::Merge) {
                // What was chosen is for the pair that is seen.
                status = MergeInto(m_first, m_second,
                                   i == m_place ? choices : UsualChoices(m_first, m_second));
                m_mergedInto[m_second.GetId()] = m_first.GetId();
            } else if (status == 0) {
                status = m_table.Delete(m_second);
            }
            if (status != 0) return status;
        }
        return 0;
    }

    void TellFailure(const std::string& failure) {
        QMessageBox box(QMessageBox::Warning, windowTitle(),
                        Text("Nothing was changed.") + "\n\n" + FromUtf8(failure), QMessageBox::Ok,
                        this);
        box.setTextFormat(Qt::PlainText);
        box.exec();
    }

    CAddressTable& m_table;
    const std::vector<DuplicatePair>& m_pairs;
    const RunChange& m_run;
    bool m_isImport;
    CAddressRecord m_first;  // of the pair that is shown
    CAddressRecord m_second;
    std::size_t m_place = 0;
    std::map<std::int64_t, std::int64_t> m_mergedInto;
    QLabel m_count;
    DuplicateTable m_view;
    QCheckBox* m_all = nullptr;  // Qt's
    QPushButton* m_merge = nullptr;
    QPushButton* m_last = nullptr;  // but for m_close
    QPushButton* m_close = nullptr;
    bool m_isChanged = false;
};

}  // namespace

bool ShowDuplicates(QWidget* parent, CAddressTable& table, const std::vector<DuplicatePair>& pairs,
                    DuplicateOrigin origin, const RunChange& run) {
    DuplicatesDialog dialog(parent, table, pairs, origin, run);
    if (dialog.HasPair()) dialog.exec();
    return dialog.IsChanged();
}

bool AskToReview(QWidget* parent, std::size_t count) {
    QMessageBox box(
        QMessageBox::Question, Text("Possible duplicates"),
        CountText("%1 possible duplicate was found.", "%1 possible duplicates were found.",
                  static_cast<std::int64_t>(count)),
        QMessageBox::NoButton, parent);
    QPushButton* review = box.addButton(Text("&Review..."), QMessageBox::AcceptRole);
    box.addButton(Text("&Keep all"), QMessageBox::RejectRole);
    box.setDefaultButton(review);
    box.exec();
    return box.clickedButton() == review;
}

}  // namespace orvo::desktop
