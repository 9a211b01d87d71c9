// What a form says where somebody else has changed its entry, and lets the user decide.
// SPDX-License-Identifier: MIT
#include <QAccessible>
#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QRadioButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include <desktop/forms/ForeignNotice.h>
#include <desktop/forms/FormFields.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr QSize kCompareSize{760, 420};
constexpr int kRoom = 4;  // around a value

// A tint of the colour of a selection, on light and on dark ground alike.
QColor Tint(const QWidget& widget) {
    const QPalette& palette = widget.palette();
    constexpr int kParts = 5;  // of the ground, to one of the colour
    const QColor ground = palette.color(QPalette::Base);
    const QColor colour = palette.color(QPalette::Highlight);
    const auto mixed = [](int one, int other) { return (kParts * one + other) / (kParts + 1); };
    return {mixed(ground.red(), colour.red()), mixed(ground.green(), colour.green()),
            mixed(ground.blue(), colour.blue())};
}

void Tinge(QWidget& widget) {
    QPalette palette = widget.palette();
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Window, QPalette::Button}) {
        palette.setColor(role, Tint(widget));
    }
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

void SetMark(QWidget& field, const QString& remark) {
    field.setToolTip(remark);
    field.setAccessibleDescription(remark);
    if (!remark.isEmpty()) return Tinge(field);
    field.setPalette({});
    field.setAutoFillBackground(false);
}

QString LabelsOfUndecided(const FormSaver& saver) {
    QStringList labels;
    for (const ForeignField& field : saver.ForeignFields()) {
        if (field.isUndecided) labels.push_back(field.label);
    }
    return labels.join(", ");
}

void DecideAll(FormSaver& saver, bool takesTheirs) {
    const std::vector<ForeignField> fields = saver.ForeignFields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].isUndecided) saver.Decide(i, takesTheirs);
    }
}

// The fields side by side, with a choice where there is one.
class CompareTable : public QWidget {
public:
    explicit CompareTable(const std::vector<ForeignField>& fields) : m_grid(this) {
        const QString headings[] = {{}, Text("When opened"), Text("Theirs"), Text("Mine")};
        for (int column = 1; column < static_cast<int>(std::size(headings)); ++column) {
            m_grid.addWidget(MakeHeading(headings[column]), 0, column);
            m_grid.setColumnStretch(column, 1);
        }
        for (const ForeignField& field : fields) AddField(field, headings[2], headings[3]);
        m_grid.setRowStretch(m_grid.rowCount(), 1);
    }

    // Of the field of that place, which is undecided.
    bool TakesTheirs(std::size_t place) const { return m_theirs[place]->isChecked(); }

private:
    void AddField(const ForeignField& field, const QString& theirs, const QString& mine) {
        const int row = m_grid.rowCount();
        m_grid.addWidget(MakeValue(field.label, nullptr), row, 0, Qt::AlignTop);
        m_grid.addWidget(MakeValue(field.was, nullptr), row, 1);
        QRadioButton* takes = nullptr;
        QRadioButton* keeps = nullptr;
        if (field.isUndecided) {
            takes = new QRadioButton;
            keeps = new QRadioButton;
            takes->setAccessibleName(QString("%1, %2: %3").arg(field.label, theirs, field.theirs));
            keeps->setAccessibleName(QString("%1, %2: %3").arg(field.label, mine, field.mine));
            QButtonGroup& group = *m_groups.emplace_back(std::make_unique<QButtonGroup>());
            group.addButton(takes);
            group.addButton(keeps);
            keeps->setChecked(true);
        }
        m_theirs.push_back(takes);
        m_grid.addWidget(MakeValue(field.theirs, takes), row, 2);
        m_grid.addWidget(MakeValue(field.mine, keeps), row, 3);
    }

    static QWidget* MakeValue(const QString& text, QRadioButton* radio) {
        auto* cell = new QWidget;
        auto* line = new QHBoxLayout(cell);
        line->setContentsMargins(kRoom, kRoom, kRoom, kRoom);
        auto* value = new QLabel(text);
        value->setTextFormat(Qt::PlainText);
        value->setWordWrap(true);
        if (radio) {
            Tinge(*cell);
            line->addWidget(radio, 0, Qt::AlignTop);
            value->setBuddy(radio);
        }
        line->addWidget(value, 1, Qt::AlignTop);
        return cell;
    }

    QGridLayout m_grid;
    std::vector<std::unique_ptr<QButtonGroup>> m_groups;
    std::vector<QRadioButton*> m_theirs;  // null where nothing is to be chosen
};

}  // namespace

ForeignNotice::ForeignNotice(std::function<void()> compare) : m_compare(Text("&Compare...")) {
    setObjectName("foreign");
    setFrameShape(QFrame::StyledPanel);
    Tinge(*this);
    m_text.setWordWrap(true);
    m_text.setTextFormat(Qt::PlainText);
    m_compare.setAutoDefault(false);
    connect(&m_compare, &QPushButton::clicked, this, std::move(compare));
    auto* line = new QHBoxLayout(this);
    line->addWidget(&m_text, 1);
    line->addWidget(&m_compare);
    hide();
}

void ForeignNotice::Say(const QString& text, bool canCompare) {
    const bool isNew = text != m_text.text();
    m_text.setText(text);
    m_compare.setVisible(canCompare);
    setVisible(!text.isEmpty());
    if (!isNew || text.isEmpty()) return;
    m_text.setAccessibleName(text);
    QAccessibleEvent event(&m_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void ForeignNotice::Show(const SaveResult& found, const FormSaver& saver) {
    for (QWidget* field : std::exchange(m_marked, {})) SetMark(*field, {});
    if (found.status == StoreStatus::Gone) {
        return Say(found.isInTrash ? Text("Somebody else has moved this entry to the trash.")
                                   : Text("Somebody else has removed this entry."),
                   false);
    }
    const std::vector<ForeignField> fields = saver.ForeignFields();
    int undecided = 0;
    for (const ForeignField& field : fields) {
        if (!field.isUndecided) continue;
        ++undecided;
        if (!field.field) continue;
        SetMark(*field.field, Text("Somebody else has changed this, too: %1").arg(field.theirs));
        m_marked.push_back(field.field);
    }
    if (fields.empty()) return Say({}, false);
    const QString said = Text(
        "Somebody else has changed this entry. What you haven't changed shows what they wrote.");
    Say(undecided == 0 ? said
                       : said + ' ' +
                             CountText("%1 field was changed by both of you.",
                                       "%1 fields were changed by both of you.", undecided),
        true);
}

bool CompareFields(QWidget* parent, FormSaver& saver) {
    const std::vector<ForeignField> fields = saver.ForeignFields();
    const bool isChoice = std::any_of(fields.begin(), fields.end(),
                                      [](const ForeignField& field) { return field.isUndecided; });
    QDialog dialog(parent);
    dialog.setWindowTitle(Text("Compare"));
    dialog.resize(kCompareSize);
    auto* table = new CompareTable(fields);
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setWidget(table);
    auto* buttons = new QDialogButtonBox(isChoice ? QDialogButtonBox::Ok | QDialogButtonBox::Cancel
                                                  : QDialogButtonBox::Close);
    if (isChoice) {
        buttons->button(QDialogButtonBox::Ok)->setText(Text("OK"));
        buttons->button(QDialogButtonBox::Cancel)->setText(Text("Cancel"));
    } else {
        buttons->button(QDialogButtonBox::Close)->setText(Text("&Close"));
    }
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* column = new QVBoxLayout(&dialog);
    column->addWidget(scroll);
    column->addWidget(buttons);
    if (dialog.exec() != QDialog::Accepted) return false;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].isUndecided) saver.Decide(i, table->TakesTheirs(i));
    }
    return true;
}

bool AskWhichStays(QWidget* parent, FormSaver& saver) {
    QMessageBox box(QMessageBox::Question, parent->windowTitle(),
                    Text("Somebody else has changed what you have changed, too: %1. Which one is "
                         "to stay?")
                        .arg(LabelsOfUndecided(saver)),
                    QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton* mine = box.addButton(Text("&Keep mine"), QMessageBox::AcceptRole);
    const QPushButton* theirs = box.addButton(Text("&Take theirs"), QMessageBox::AcceptRole);
    const QPushButton* compare = box.addButton(Text("&Compare..."), QMessageBox::AcceptRole);
    QPushButton* cancel = box.addButton(Text("Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(mine);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == compare) return CompareFields(parent, saver);
    if (box.clickedButton() != mine && box.clickedButton() != theirs) return false;
    DecideAll(saver, box.clickedButton() == theirs);
    return true;
}

}  // namespace orvo::desktop
