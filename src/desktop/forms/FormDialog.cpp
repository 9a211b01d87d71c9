// What all forms do: scroll, save, and ask before something typed would be lost.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

#include <desktop/forms/FormDialog.h>
#include <desktop/texts/Problems.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

QString Advice(StoreStatus status) {
    if (status == StoreStatus::Busy) {
        return Text(
            "Another program is writing to the store. Nothing was saved; what you have typed is "
            "still here. Save it again in a moment.");
    }
    return Text(
        "Nothing was saved; what you have typed is still here. Remove the cause, then save it "
        "again.");
}

QString WithReason(const QString& text, const std::string& reason) {
    return reason.empty() ? text : text + "\n\n" + ProblemText(reason);
}

void Tell(QWidget* parent, const QString& title, const QString& text) {
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace

FormDialog::FormDialog(QWidget* parent, const QString& title, FormSaver& saver)
    : QDialog(parent),
      m_saver(saver),
      m_notice(new ForeignNotice([this] { Compare(); })),
      m_page(new QWidget),
      m_column(new QVBoxLayout(m_page)) {
    setWindowTitle(title);
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(m_page);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_notice);
    layout->addWidget(scroll);
    constexpr int kEdge = 4;  // between the fields and the bar that scrolls them
    m_column->setContentsMargins(kEdge, 0, kEdge, 0);
}

void FormDialog::KeepIn(FormKeeper* keeper, const KeptForm& form) {
    m_keeper = keeper;
    m_kept = form;
    m_kept.title = windowTitle();
}

void FormDialog::AddColumns(QLayout* left, QLayout* right) {
    constexpr int kGap = 2;  // characters
    m_columns = new QBoxLayout(QBoxLayout::LeftToRight);
    m_gap = fontMetrics().averageCharWidth() * kGap;
    m_columns->addLayout(left, 1);
    m_columns->addSpacing(m_gap);
    m_columns->addLayout(right, 1);
    m_column->addLayout(m_columns);
    m_page->installEventFilter(this);
}

// One below the other where the columns would need a bar that scrolls them sideways.
void FormDialog::ArrangeColumns() {
    if (!m_columns) return;
    constexpr int kWidthOfTwo = 640;  // pixels, of a screen without scaling
    int needed = style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2 * m_columns->spacing();
    const QMargins outer = layout()->contentsMargins();
    const QMargins inner = m_column->contentsMargins();
    needed += outer.left() + outer.right() + inner.left() + inner.right();
    for (int i = 0; i < m_columns->count(); ++i) {
        const QLayout* column = m_columns->itemAt(i)->layout();
        needed += column ? column->minimumSize().width() : m_gap;
    }
    m_columns->setDirection(width() < std::max(needed, kWidthOfTwo) ? QBoxLayout::TopToBottom
                                                                    : QBoxLayout::LeftToRight);
}

void FormDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    ArrangeColumns();
}

// The page is to be laid out anew, such as after a row was added.
bool FormDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_page && event->type() == QEvent::LayoutRequest) ArrangeColumns();
    return QDialog::eventFilter(watched, event);
}

bool FormDialog::Run() {
    AddButtons();
    resize(WantedSize());
    if (m_keeper) {
        m_given = ChangedFields(*m_page, {});
        const QJsonObject kept = m_keeper->TakeFields();
        m_isKept = !kept.isEmpty();
        ShowFields(*m_page, kept);
        // After that a session needn't leave the program the time to end.
        connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { Keep(); });
    }
    const bool isSaved = exec() == QDialog::Accepted;
    if (!m_isDone) Keep();
    return isSaved;
}

void FormDialog::Keep() {
    if (!m_keeper || !m_saver.IsChanged()) return;
    KeptForm form = m_kept;
    const auto* mark = m_page->findChild<QCheckBox*>("private");
    form.isPrivate = form.isPrivate || (mark && mark->isChecked());
    form.fields = ChangedFields(*m_page, m_given);
    m_keeper->Keep(form);
    m_isKept = true;
}

void FormDialog::done(int result) {
    m_isDone = true;
    // One of another form may wait until the user wants it.
    if (m_isKept) m_keeper->Remove();
    QDialog::done(result);
}

// After the fields, as the Tab key goes by the order in which they were made.
void FormDialog::AddButtons() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    QPushButton* save = buttons->button(QDialogButtonBox::Save);
    save->setText(Text("&Save"));
    save->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setText(Text("Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { Save(); });
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    layout()->addWidget(buttons);
}

// As large as its fields ask for, where the screen has room; else it scrolls.
QSize FormDialog::WantedSize() const {
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QMargins margins = layout()->contentsMargins();
    const QSize page = m_page->sizeHint();
    const QSize buttons = findChild<QDialogButtonBox*>()->sizeHint();
    const QSize wanted(
        page.width() + scrollBar + margins.left() + margins.right(),
        page.height() + buttons.height() + layout()->spacing() + margins.top() + margins.bottom());
    constexpr int kPercentOfScreen = 92;  // leaves room for the frame
    const QSize room = screen()->availableSize() * kPercentOfScreen / 100;
    return wanted.boundedTo(room);
}

void FormDialog::Grow() {
    m_page->layout()->activate();
    resize(size().expandedTo(WantedSize()));
}

// What is shown of somebody else isn't kept as typed by the user.
void FormDialog::TakeForeign() {
    const QJsonObject mine = ChangedFields(*m_page, m_given);
    const SaveResult found = m_saver.TakeForeign();
    m_notice->Show(found, m_saver);
    const QJsonObject shown = ChangedFields(*m_page, {});
    for (auto field = shown.begin(); field != shown.end(); ++field) {
        if (!mine.contains(field.key())) m_given[field.key()] = field.value();
    }
}

void FormDialog::Compare() {
    CompareFields(this, m_saver);
    TakeForeign();
}

// Asks until nothing is left to be decided, or the user goes back to the form.
SaveResult FormDialog::SaveDecided() {
    bool bringsBack = false;
    for (;;) {
        SaveResult result = m_saver.Save(bringsBack);
        if (result.isUndecided) {
            if (!AskWhichStays(this, m_saver)) return result;
        } else if (result.status == StoreStatus::Gone) {
            const AboutGone chosen = AskAboutGone(result.isInTrash);
            if (chosen == AboutGone::Nothing) return result;
            if (chosen == AboutGone::SaveAsNew) return m_saver.SaveAsNew();
            bringsBack = true;
        } else {
            return result;
        }
    }
}

void FormDialog::Save() {
    if (m_maySave && !m_maySave()) return;
    const SaveResult result = SaveDecided();
    if (result.status == StoreStatus::Ok) return accept();
    if (!result.isUndecided && result.status != StoreStatus::Gone) TellFailure(result);
    TakeForeign();
}

// Return alone makes a new line in some fields.
void FormDialog::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && event->modifiers().testFlag(Qt::ControlModifier)) {
        Save();
    } else {
        QDialog::keyPressEvent(event);
    }
}

void FormDialog::reject() {
    if (!m_saver.IsChanged()) {
        QDialog::reject();
        return;
    }
    QMessageBox box(QMessageBox::Question, windowTitle(), Text("Save what you have changed?"),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.button(QMessageBox::Save)->setText(Text("&Save"));
    box.button(QMessageBox::Discard)->setText(Text("&Discard"));
    box.button(QMessageBox::Cancel)->setText(Text("Cancel"));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
        case QMessageBox::Save:
            Save();
            break;
        case QMessageBox::Discard:
            QDialog::reject();
            break;
        default:
            break;
    }
}

FormDialog::AboutGone FormDialog::AskAboutGone(bool isInTrash) {
    QMessageBox box(QMessageBox::Question, windowTitle(),
                    isInTrash ? Text("Somebody else has moved this entry to the trash. What is to "
                                     "become of what you have typed?")
                              : Text("This entry was deleted while you edited it. Save it as a "
                                     "new one?"),
                    QMessageBox::NoButton, this);
    QPushButton* back =
        isInTrash ? box.addButton(Text("&Bring it back"), QMessageBox::AcceptRole) : nullptr;
    QPushButton* fresh = box.addButton(Text("&Save as new"), QMessageBox::AcceptRole);
    QPushButton* cancel = box.addButton(Text("Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(back ? back : fresh);
    box.setEscapeButton(cancel);
    box.exec();
    if (back && box.clickedButton() == back) return AboutGone::BringBack;
    return box.clickedButton() == fresh ? AboutGone::SaveAsNew : AboutGone::Nothing;
}

void FormDialog::TellFailure(const SaveResult& result) {
    Tell(this, windowTitle(), WithReason(Advice(result.status), result.reason));
}

void TellUnreadable(QWidget* parent, const QString& title, const SaveResult& result) {
    Tell(parent, title, WithReason(Text("This entry can't be read."), result.reason));
}

}  // namespace orvo::desktop
