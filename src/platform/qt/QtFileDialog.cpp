// A file dialog on the screen: Qt's own, with a row of controls more.
// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <optional>

#include <platform/qt/QtFileDialog.h>
#include <platform/qt/QtFileDialogRow.h>
#include <platform/qt/QtFileIcons.h>
#include <platform/window/base/WindowInput.h>
#include <platform/window/dialogs/CFileDialog.h>

namespace orvo {
namespace {

struct LabelRow {
    UINT id;
    QFileDialog::DialogLabel label;
};
constexpr LabelRow kLabels[] = {
    {IDOK, QFileDialog::Accept},
    {IDCANCEL, QFileDialog::Reject},
    {kFileDialogTypeLabel, QFileDialog::FileType},
    {kFileDialogNameLabel, QFileDialog::FileName},
    {kFileDialogFolderLabel, QFileDialog::LookIn},
};

// Labels that show their key only with something to give the focus to.
struct BuddyRow {
    const char* label;
    const char* box;
};
constexpr BuddyRow kBuddies[] = {
    {"lookInLabel", "lookInCombo"},
    {"fileTypeLabel", "fileTypeCombo"},
};

std::optional<QFileDialog::DialogLabel> LabelOf(UINT id) {
    for (const LabelRow& row : kLabels) {
        if (row.id == id) return row.label;
    }
    return std::nullopt;
}

// Qt takes the patterns from behind the text, in parentheses that aren't shown.
QString NameFilterOf(const FileFilter& filter) {
    QStringList patterns = ToQt(filter.patterns.View()).split(u';', Qt::SkipEmptyParts);
    for (QString& pattern : patterns) {
        pattern = pattern.trimmed();
        if (pattern == u"*.*") pattern = "*";
    }
    return ToQt(filter.text.View()) + " (" + patterns.join(u' ') + ")";
}

}  // namespace

// Qt's dialog asks it until its own end.
struct WithFileIcons {
    QtFileIcons icons;
};

class QtFileDialogPeer::Dialog : private WithFileIcons, public QFileDialog {
public:
    Dialog(QtInputState& input, QWidget* owner, const FileDialogSetup& setup)
        : QFileDialog(owner),
          m_link(*new QtWindowLink(*this, input, QtWindowLink::Style::MessagesFirst)),
          m_folderMustExist(setup.folderMustExist) {
        setOption(DontUseNativeDialog);  // before all else, as it makes the widgets
        SetUp(setup);
        m_name = findChild<QLineEdit*>("fileNameEdit");
        for (const BuddyRow& row : kBuddies) {
            auto* label = findChild<QLabel*>(row.label);
            if (label) label->setBuddy(findChild<QComboBox*>(row.box));
        }
        if (setup.added) AddRow(*setup.added);
        connect(m_name, &QLineEdit::textChanged, this, [this] { Tell(CDN_SELCHANGE); });
    }

    QtWindowLink& Link() { return m_link; }

    QString PathName() const {
        return m_name->text().isEmpty() ? QString() : selectedFiles().value(0);
    }

    QWidget* Control(UINT id) const {
        const auto found = m_controls.find(id);
        return found == m_controls.end() ? nullptr : found->second;
    }

protected:
    // Qt has looked whether the file is there, and asked whether to overwrite it.
    void done(int result) override {
        if (result == Accepted && (!HasFolder() || Tell(CDN_FILEOK) != 0)) return;
        QFileDialog::done(result);
    }

private:
    void SetUp(const FileDialogSetup& setup) {
        setIconProvider(&icons);
        setOption(HideNameFilterDetails);
        setOption(DontConfirmOverwrite, !setup.asksBeforeOverwriting);
        setAcceptMode(setup.opens ? AcceptOpen : AcceptSave);
        setFileMode(setup.fileMustExist ? ExistingFile : AnyFile);
        if (!setup.title.IsEmpty()) setWindowTitle(ToQt(setup.title.View()));
        QStringList filters;
        for (const FileFilter& filter : setup.filters) filters += NameFilterOf(filter);
        if (!filters.isEmpty()) setNameFilters(filters);
        setDefaultSuffix(ToQt(setup.defaultExtension.View()));
        if (!setup.folder.IsEmpty()) setDirectory(ToQt(setup.folder.View()));
        if (!setup.fileName.IsEmpty()) selectFile(ToQt(setup.fileName.View()));
    }

    void AddRow(const DialogTemplate& added) {
        auto* grid = qobject_cast<QGridLayout*>(layout());
        if (!grid) return;
        m_controls = AddControlRow(*grid, added, [this](UINT id) {
            HandleInput({m_link.Handle(), WM_COMMAND, id, 0});
        });
    }

    LRESULT Tell(UINT code) {
        NMHDR header{m_link.Handle(), 0, code};
        return SendMessage(m_link.Handle(), WM_NOTIFY, 0, LParamOf(&header));
    }

    bool HasFolder() {
        const QString folder = QFileInfo(PathName()).absolutePath();
        if (!m_folderMustExist || QDir(folder).exists()) return true;
        QMessageBox::warning(this, windowTitle(),
                             tr("%1\nDirectory not found.\nPlease verify the correct directory "
                                "name was given.")
                                 .arg(folder));
        return false;
    }

    QtWindowLink& m_link;
    bool m_folderMustExist;
    QLineEdit* m_name = nullptr;
    QtControls m_controls;
};

QtFileDialogPeer::QtFileDialogPeer(QtInputState& input, QWidget* owner,
                                   const FileDialogSetup& setup)
    : QtFileDialogPeer(*new Dialog(input, owner, setup), setup) {}

QtFileDialogPeer::QtFileDialogPeer(Dialog& dialog, const FileDialogSetup& setup)
    : QtPeer<FileDialogPeer>(dialog, &dialog.Link()) {
    m_text = setup.title;
    dialog.Link().SetPeer(this);
}

QtFileDialogPeer::Dialog* QtFileDialogPeer::TheDialog() const {
    return static_cast<Dialog*>(Widget());
}

QAbstractButton* QtFileDialogPeer::Button(UINT id) const {
    return TheDialog() ? qobject_cast<QAbstractButton*>(TheDialog()->Control(id)) : nullptr;
}

// The peer, and the dialog too, may go while it is shown.
bool QtFileDialogPeer::ShowModal() {
    const QPointer<Dialog> dialog = TheDialog();
    return dialog && dialog->exec() == QDialog::Accepted && dialog && dialog->Link().Handle();
}

CString QtFileDialogPeer::PathName() const {
    return TheDialog() ? FromQt(TheDialog()->PathName()) : CString();
}

void QtFileDialogPeer::SetControlText(UINT id, const CString& text) {
    if (!TheDialog()) return;
    const QString shown = ToQt(text.View());
    if (const auto label = LabelOf(id)) {
        TheDialog()->setLabelText(*label, shown);
    } else if (auto* control = qobject_cast<QLabel*>(TheDialog()->Control(id))) {
        control->setText(shown);
    } else if (QAbstractButton* button = Button(id)) {
        button->setText(shown);
    }
}

void QtFileDialogPeer::EnableControl(UINT id, bool enabled) {
    QWidget* control = TheDialog() ? TheDialog()->Control(id) : nullptr;
    if (control) control->setEnabled(enabled);
}

bool QtFileDialogPeer::IsControlEnabled(UINT id) const {
    const QWidget* control = TheDialog() ? TheDialog()->Control(id) : nullptr;
    return control && control->isEnabled();
}

void QtFileDialogPeer::CheckControl(UINT id, bool checked) {
    if (QAbstractButton* button = Button(id)) button->setChecked(checked);
}

bool QtFileDialogPeer::IsControlChecked(UINT id) const {
    const QAbstractButton* button = Button(id);
    return button && button->isChecked();
}

void QtFileDialogPeer::SetControlBitmap(UINT id, const CBitmap& bitmap) {
    QAbstractButton* button = Button(id);
    if (!button) return;
    const QImage face = ToQt(bitmap, std::nullopt);
    button->setIcon(QPixmap::fromImage(face));
    button->setIconSize(face.size());
}

}  // namespace orvo
