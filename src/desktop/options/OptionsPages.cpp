// The pages of the dialog of options.
// SPDX-License-Identifier: MIT
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTime>
#include <QVBoxLayout>
#include <algorithm>

#include <desktop/instance/BackgroundReminders.h>
#include <desktop/options/BackupPage.h>
#include <desktop/options/DesktopPreferences.h>
#include <desktop/options/OptionsPages.h>
#include <desktop/security/PasswordDialogs.h>
#include <desktop/texts/Texts.h>
#include <host/Disclosure.h>
#include <host/Password.h>
#include <orvoshare/integration/SoundFileDialog.h>
#include <people/DetailLinks.h>
#include <platform/qt/QtConvert.h>
#include <platform/text/SystemText.h>
#include <platform/window/base/PlaySound.h>

namespace orvo::desktop {
namespace {

constexpr int kDaysOfWeek = 7;
constexpr int kHoursOfDay = 24;
constexpr int kLongestAdvance = 999;
constexpr int kNever = -1;      // days before a birthday
constexpr int kNameWidth = 24;  // characters

struct Language {
    const char* locale;
    const char* name;  // in the language itself
};
constexpr Language kLanguages[] = {
    {"en-US", "English"}, {"de-DE", "Deutsch"}, {"fr-FR", "Français"}, {"ja-JP", "日本語"}};

class GeneralPage : public OptionsPage {
public:
    explicit GeneralPage(const COrvoDesktopOptions& options) {
        auto* column = new QVBoxLayout(this);
        auto* confirm = new QCheckBox(Text("&Ask before something is deleted"));
        confirm->setChecked(options.IsConfirmOnDelete() != 0);
        OnSave([confirm](COrvoDesktopOptions& chosen) {
            chosen.SetConfirmOnDelete(confirm->isChecked() ? 1 : 0);
            return true;
        });
        column->addWidget(confirm);
        auto* form = new QFormLayout;
        AddLanguage(*form);
        AddColours(*form);
        AddCalendar(*form, options);
        AddMap(*form);
        column->addLayout(form);
        column->addStretch();
    }

    bool Confirm() override {
        const QString problem = MapProblem();
        m_mapLine->setText(problem.isEmpty() ? MapHint() : problem);
        m_map->setAccessibleDescription(m_mapLine->text());
        if (!problem.isEmpty()) m_map->setFocus();
        return problem.isEmpty();
    }

private:
    void AddLanguage(QFormLayout& form) {
        auto* languages = new QComboBox;
        languages->addItem(Text("As the system"), QString());
        for (const Language& language : kLanguages) {
            languages->addItem(QString::fromUtf8(language.name), QString(language.locale));
        }
        const QString preferred = FromUtf8(PreferredLocale());
        // One that was set by hand stays.
        if (languages->findData(preferred) < 0) languages->addItem(preferred, preferred);
        languages->setCurrentIndex(languages->findData(preferred));
        OnSave([languages](COrvoDesktopOptions&) {
            return SetPreferredLocale(languages->currentData().toString().toStdString());
        });
        form.addRow(Text("&Language (from the next start):"), languages);
    }

    void AddColours(QFormLayout& form) {
        auto* colours = new QComboBox;
        colours->addItem(Text("As the desktop"), static_cast<int>(Colours::Desktop));
        colours->addItem(Text("Light"), static_cast<int>(Colours::Light));
        colours->addItem(Text("Dark"), static_cast<int>(Colours::Dark));
        colours->setCurrentIndex(colours->findData(static_cast<int>(PreferredColours())));
        OnSave([colours](COrvoDesktopOptions&) {
            return SetPreferredColours(static_cast<Colours>(colours->currentData().toInt()));
        });
        form.addRow(Text("C&olours:"), colours);
    }

    void AddCalendar(QFormLayout& form, const COrvoDesktopOptions& options) {
        auto* hours = new QComboBox;
        for (int hour = 0; hour < kHoursOfDay; ++hour) {
            hours->addItem(QLocale().toString(QTime(hour, 0), QLocale::ShortFormat), hour);
        }
        hours->setCurrentIndex(std::clamp(options.GetWorkDayBegins(), 0, kHoursOfDay - 1));
        auto* days = new QComboBox;
        for (int day = 0; day < kDaysOfWeek; ++day) {
            // Qt counts from Monday, as 1.
            days->addItem(QLocale().standaloneDayName(day == 0 ? kDaysOfWeek : day), day);
        }
        days->setCurrentIndex(std::clamp(options.GetWorkWeekBegins(), 0, kDaysOfWeek - 1));
        OnSave([hours, days](COrvoDesktopOptions& chosen) {
            chosen.SetWorkDayBegins(hours->currentIndex());
            chosen.SetWorkWeekBegins(days->currentIndex());
            return true;
        });
        form.addRow(Text("Work &day begins at:"), hours);
        form.addRow(Text("Work &week begins on:"), days);
    }

    void AddMap(QFormLayout& form) {
        m_map = new QLineEdit(FromUtf8(MapAddress()));
        m_mapLine = new QLabel(MapHint());
        m_mapLine->setTextFormat(Qt::PlainText);
        m_mapLine->setWordWrap(true);
        m_map->setAccessibleDescription(m_mapLine->text());
        OnSave([this](COrvoDesktopOptions&) {
            return SetMapAddress(m_map->text().trimmed().toStdString());
        });
        form.addRow(Text("Page of &maps:"), m_map);
        form.addRow(QString(), m_mapLine);
    }

    static QString MapHint() {
        return Text(
                   "Shows postal addresses without coordinates; %1 stands for the address, as in "
                   "%2.")
            .arg(QStringLiteral("%1"), QStringLiteral("https://maps.example/?q=%1"));
    }

    // Empty where the address is a good one, or there is none.
    QString MapProblem() const {
        const QString typed = m_map->text().trimmed();
        if (typed.isEmpty() || IsMapAddress(typed.toStdString())) return {};
        const bool isWeb = typed.startsWith("http://", Qt::CaseInsensitive) ||
                           typed.startsWith("https://", Qt::CaseInsensitive);
        return isWeb ? Text(
                           "Write %1 behind the name of the page, where the postal address is to "
                           "stand.")
                           .arg(QStringLiteral("%1"))
                     : Text("The page of maps must begin with http:// or https://.");
    }

    QLineEdit* m_map = nullptr;   // Qt's
    QLabel* m_mapLine = nullptr;  // Qt's; a hint, or what is wrong
};

class PrivacyPage : public OptionsPage {
public:
    explicit PrivacyPage(const COrvoDesktopOptions& options) : m_hadPassword(IsGuarded(options)) {
        auto* column = new QVBoxLayout(this);
        AddChoices(*column, options);
        m_needsPassword = new QCheckBox(Text("&Hide them at each start until I give my password"));
        m_needsPassword->setChecked(m_hadPassword);
        column->addWidget(m_needsPassword);
        auto* change = new QPushButton(Text("Change the &password..."));
        change->setEnabled(m_hadPassword);
        connect(change, &QPushButton::clicked, this, [this] { ChoosePassword(this); });
        auto* row = new QHBoxLayout;
        row->addWidget(change);
        row->addStretch();
        column->addLayout(row);
        column->addStretch();
        OnSave([this](COrvoDesktopOptions& chosen) {
            chosen.SetPasswordRequired(m_needsPassword->isChecked() ? 1 : 0);
            return m_needsPassword->isChecked() || !m_hadPassword || RemovePassword();
        });
    }

    // Whoever takes the password away must know it; whoever asks for one must choose it.
    bool Confirm() override {
        const bool needsPassword = m_needsPassword->isChecked();
        if (needsPassword == m_hadPassword) return true;
        if (m_hadPassword) return AskForPassword(this);
        return ChoosePassword(this);
    }

private:
    void AddChoices(QVBoxLayout& column, const COrvoDesktopOptions& options) {
        struct Choice {
            Privacy privacy;
            QString text;
        };
        const Choice choices[] = {
            {Privacy::Show, Text("&Show private entries")},
            {Privacy::Mask, Text("&Mask them: their rows stay, without content")},
            {Privacy::Hide, Text("Hi&de them")}};
        auto* group = new QButtonGroup(this);
        for (const Choice& choice : choices) {
            auto* button = new QRadioButton(choice.text);
            button->setChecked(choice.privacy == PrivacyOf(options));
            group->addButton(button, static_cast<int>(choice.privacy));
            column.addWidget(button);
        }
        OnSave([group](COrvoDesktopOptions& chosen) {
            SetPrivacy(chosen, static_cast<Privacy>(group->checkedId()));
            return true;
        });
    }

    bool m_hadPassword;
    QCheckBox* m_needsPassword = nullptr;  // Qt's
};

class ToDoPage : public OptionsPage {
public:
    explicit ToDoPage(const COrvoDesktopOptions& options) {
        auto* column = new QVBoxLayout(this);
        struct Flag {
            QString text;
            int (COrvoDesktopOptions::*get)() const;
            void (COrvoDesktopOptions::*set)(int);
        };
        const Flag flags[] = {
            {Text("&Show completed to-dos"), &COrvoDesktopOptions::GetTodoShowCompleted,
             &COrvoDesktopOptions::SetTodoShowCompleted},
            {Text("Show only what is d&ue"), &COrvoDesktopOptions::GetTodoShowDueItemsOnly,
             &COrvoDesktopOptions::SetTodoShowDueItemsOnly},
            {Text("&Record the day of completion"), &COrvoDesktopOptions::GetTodoMarkCompletionDate,
             &COrvoDesktopOptions::SetTodoMarkCompletionDate}};
        for (const Flag& flag : flags) {
            auto* box = new QCheckBox(flag.text);
            box->setChecked((options.*flag.get)() != 0);
            column->addWidget(box);
            OnSave([box, set = flag.set](COrvoDesktopOptions& chosen) {
                (chosen.*set)(box->isChecked() ? 1 : 0);
                return true;
            });
        }
        column->addStretch();
    }
};

class ReminderPage : public OptionsPage {
public:
    ReminderPage(const COrvoDesktopOptions& options, const std::string& store)
        : m_path(ReminderSound()) {
        auto* column = new QVBoxLayout(this);
        auto* remind = new QCheckBox(Text("&Remind me of to-dos before they are due"));
        remind->setChecked(options.IsAlarmSet() != 0);
        column->addWidget(remind);
        m_details = new QWidget;
        auto* details = new QFormLayout(m_details);
        details->setContentsMargins(0, 0, 0, 0);
        AddAdvance(*details, options);
        AddSound(*details);
        m_details->setEnabled(remind->isChecked());
        connect(remind, &QCheckBox::toggled, m_details, &QWidget::setEnabled);
        column->addWidget(m_details);
        AddBirthdays(*column);
        auto* always = new QCheckBox(Text("Remind me also when no window is &open"));
        always->setChecked(IsRemindingInBackground(store));
        column->addWidget(always);
        column->addStretch();
        OnSave([always, store](COrvoDesktopOptions&) {
            return SetRemindingInBackground(store, always->isChecked());
        });
        OnSave([this, remind](COrvoDesktopOptions& chosen) {
            chosen.SetAlarmSet(remind->isChecked() ? 1 : 0);
            return SetReminderSound(m_path);
        });
    }
    ~ReminderPage() override { Stop(); }

private:
    void AddAdvance(QFormLayout& details, const COrvoDesktopOptions& options) {
        auto* number = new QSpinBox;
        number->setRange(0, std::max(kLongestAdvance, options.GetAlarmAdvance()));
        number->setValue(options.GetAlarmAdvance());
        number->setAccessibleName(Text("How long before"));
        auto* unit = new QComboBox;
        unit->addItems({Text("minutes before"), Text("hours before"), Text("days before")});
        unit->setCurrentIndex(std::clamp(options.GetAlarmAdvUnit(), 0, unit->count() - 1));
        unit->setAccessibleName(Text("Minutes, hours or days"));
        auto* both = new QHBoxLayout;
        both->addWidget(number);
        both->addWidget(unit);
        both->addStretch();
        auto* label = new QLabel(Text("&When:"));
        label->setBuddy(number);
        details.addRow(label, both);
        OnSave([number, unit](COrvoDesktopOptions& chosen) {
            chosen.SetAlarmAdvance(number->value());
            chosen.SetAlarmAdvUnit(unit->currentIndex());
            return true;
        });
    }

    void AddBirthdays(QVBoxLayout& column) {
        auto* advance = new QComboBox;
        advance->addItem(Text("never"), kNever);
        advance->addItem(Text("on the day"), 0);
        for (const int days : {1, 3, 7, 14}) {
            advance->addItem(CountText("%1 day before", "%1 days before", days), days);
        }
        const int present = BirthdayAdvance().value_or(kNever);
        // One that was set by hand stays.
        if (advance->findData(present) < 0) {
            advance->addItem(CountText("%1 day before", "%1 days before", present), present);
        }
        advance->setCurrentIndex(advance->findData(present));
        OnSave([advance](COrvoDesktopOptions&) {
            const int days = advance->currentData().toInt();
            return SetBirthdayAdvance(days == kNever ? std::nullopt : std::optional(days));
        });
        auto* form = new QFormLayout;
        form->addRow(Text("Remind me of &birthdays:"), advance);
        column.addLayout(form);
    }

    void AddSound(QFormLayout& details) {
        m_name = new QLabel;
        auto* row = new QHBoxLayout;
        row->addWidget(m_name, 1);
        AddButton(*row, Text("&Choose..."), [this] { Choose(); });
        m_play = AddButton(*row, Text("P&lay"), [this] { Play(); });
        m_stop = AddButton(*row, Text("S&top"), [] { Stop(); });
        m_none = AddButton(*row, Text("&None"), [this] { Take({}); });
        details.addRow(Text("Sound:"), row);
        Take(m_path);
    }

    QPushButton* AddButton(QHBoxLayout& row, const QString& text,
                           const std::function<void()>& press) {
        auto* button = new QPushButton(text);
        connect(button, &QPushButton::clicked, this, [press] { press(); });
        row.addWidget(button);
        return button;
    }

    void Choose() {
        const QFileInfo present(FromUtf8(m_path));
        const CString folder = m_path.empty() ? CString() : FromQt(present.absolutePath());
        const CString filter = FromQt(Text("Sounds") + "|*.wav|" + Text("All files") + "|*||");
        CSoundFileDialog dialog(folder, 1, "wav", nullptr, OFN_FILEMUSTEXIST | OFN_HIDEREADONLY,
                                filter, nullptr);
        if (dialog.DoModal() == IDOK) Take(ToUtf8(dialog.GetPathName()));
    }

    void Take(const std::string& path) {
        Stop();
        m_path = path;
        const QString name = path.empty() ? Text("none") : QFileInfo(FromUtf8(path)).fileName();
        const int room = kNameWidth * fontMetrics().averageCharWidth();
        m_name->setText(fontMetrics().elidedText(name, Qt::ElideMiddle, room));
        m_name->setToolTip(FromUtf8(path));
        for (QPushButton* button : {m_play, m_stop, m_none}) button->setEnabled(!path.empty());
    }

    void Play() { PlaySoundA(SystemText(m_path), nullptr, SND_FILENAME | SND_ASYNC); }
    static void Stop() { PlaySoundA(nullptr, nullptr, SND_PURGE); }

    std::string m_path;
    QWidget* m_details = nullptr;  // Qt's, as are the others
    QLabel* m_name = nullptr;
    QPushButton* m_play = nullptr;
    QPushButton* m_stop = nullptr;
    QPushButton* m_none = nullptr;
};

}  // namespace

std::vector<PageRow> MakeOptionsPages(const COrvoDesktopOptions& options,
                                      const std::string& store) {
    return {{Text("General"), new GeneralPage(options)},
            {Text("Private entries"), new PrivacyPage(options)},
            {Text("To-dos"), new ToDoPage(options)},
            {Text("Reminders"), new ReminderPage(options, store)},
            {Text("Backups"), MakeBackupPage(store)}};
}

}  // namespace orvo::desktop
