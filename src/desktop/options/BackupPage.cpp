// The page of the dialog of options that is about backups.
// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QDateTime>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

#include <desktop/options/BackupPage.h>
#include <desktop/texts/Texts.h>
#include <host/AutomaticBackup.h>

namespace orvo::desktop {
namespace {

class BackupPage : public OptionsPage {
public:
    explicit BackupPage(const std::string& store) {
        auto* column = new QVBoxLayout(this);
        auto* isOn = new QCheckBox(Text("&Back up the store each day"));
        isOn->setChecked(AreBackupsAutomatic());
        OnSave([isOn](COrvoDesktopOptions&) { return SetBackupsAutomatic(isOn->isChecked()); });
        column->addWidget(isOn);
        static_assert(kKeptBackups == 7);
        column->addWidget(Line(Text("The last seven backups are kept in this folder:")));
        column->addWidget(Line(FromUtf8(BackupFolder(store))));
        const std::vector<std::string> made = AutomaticBackups(store);
        column->addWidget(Line(made.empty()
                                   ? Text("None was made yet.")
                                   : Text("The last one was made: %1").arg(TimeOf(made.front()))));
        column->addWidget(Line(Text("File, Restore brings one back.")));
        column->addStretch();
    }

private:
    static QLabel* Line(const QString& text) {
        auto* line = new QLabel(text);
        line->setTextFormat(Qt::PlainText);
        line->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        line->setWordWrap(true);
        return line;
    }

    static QString TimeOf(const std::string& file) {
        return QLocale().toString(QFileInfo(FromUtf8(file)).lastModified(), QLocale::LongFormat);
    }
};

}  // namespace

OptionsPage* MakeBackupPage(const std::string& store) {
    return new BackupPage(store);
}

}  // namespace orvo::desktop
