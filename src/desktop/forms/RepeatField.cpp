// How a to-do comes again, in a form.
// SPDX-License-Identifier: MIT
#include <QHBoxLayout>
#include <QLocale>
#include <QVBoxLayout>

#include <contracts/ToDoDetails.h>
#include <desktop/forms/FormFields.h>
#include <desktop/forms/RepeatField.h>
#include <desktop/texts/Texts.h>
#include <host/RepeatWords.h>

namespace orvo::desktop {
namespace {

constexpr int kLongestInterval = 999;

// The rule where its parts can be chosen here.
std::optional<RepeatRule> Choosable(std::string_view text) {
    std::optional<RepeatRule> rule = ReadRepeatRule(text);
    if (!rule) return std::nullopt;
    const bool hasOnePlace = rule->monthDays.size() + rule->places.size() <= 1;
    const bool isKnown = rule->places.empty() || rule->places[0].ordinal >= -1;
    const bool fits = rule->interval <= kLongestInterval && rule->count.value_or(1) <= kMostTimes;
    return hasOnePlace && isKnown && fits ? rule : std::nullopt;
}

// What a rule says of the day in a month or year, as a rule of one month or year.
QString PlaceOf(RepeatRule rule) {
    RepeatRule place;
    place.unit = rule.unit;
    place.monthDays = std::move(rule.monthDays);
    place.places = std::move(rule.places);
    place.month = rule.month;
    return FromUtf8(FormatRepeatRule(place));
}

std::array<QString, 4> EachTexts() {
    return {Text("every %1 days"), Text("every %1 weeks"), Text("every %1 months"),
            Text("every %1 years")};
}

QString WordsOf(const std::string& rule, const CivilTime& date) {
    return FromUtf8(RepeatWords(rule, date));
}

}  // namespace

RepeatField::RepeatField(const QString& label, std::string_view rule, const CivilTime& date)
    : m_date(date), m_daysRow(MakeDays()), m_end([this] { ShowWords(); }) {
    m_kind.setObjectName("repeatKind");
    for (const char* kind : {Untranslated("once"), Untranslated("daily"), Untranslated("weekly"),
                             Untranslated("monthly"), Untranslated("yearly")}) {
        m_kind.addItem(Text(kind));
    }
    m_each.setObjectName("repeatEach");
    m_each.setAccessibleName(Text("Interval"));
    m_each.setRange(1, kLongestInterval);
    m_place.setObjectName("repeatPlace");
    m_place.setAccessibleName(Text("Day"));
    m_words.setObjectName("repeatWords");
    m_words.setWordWrap(true);
    m_words.setTextFormat(Qt::PlainText);
    m_words.setForegroundRole(QPalette::PlaceholderText);
    auto* first = new QHBoxLayout;
    first->addWidget(MakeLabel(label, m_kind));
    first->addWidget(&m_kind);
    first->addWidget(&m_each);
    first->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(first);
    column->addWidget(m_daysRow);
    column->addWidget(&m_place, 0, Qt::AlignLeading);
    column->addWidget(&m_end);
    column->addWidget(&m_words);
    setFocusProxy(&m_kind);
    connect(&m_kind, &QComboBox::currentIndexChanged, this, [this] { ShowKind(); });
    connect(&m_each, &QSpinBox::valueChanged, this, [this] { ShowWords(); });
    connect(&m_place, &QComboBox::currentIndexChanged, this, [this] { ShowWords(); });
    Give(rule, false);
}

// In the order in which the user's country has the days of a week.
QWidget* RepeatField::MakeDays() {
    auto* days = new QWidget(this);
    auto* row = new QHBoxLayout(days);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    const QLocale locale;
    for (std::size_t i = 0; i < kDaysOfWeek; ++i) {
        const std::size_t place =
            (static_cast<std::size_t>(locale.firstDayOfWeek()) - 1 + i) % kDaysOfWeek;
        QToolButton& day = m_days[place];
        const int number = static_cast<int>(place) + 1;
        day.setText(locale.standaloneDayName(number, QLocale::ShortFormat));
        day.setAccessibleName(locale.standaloneDayName(number));
        day.setObjectName(QString("repeatDay%1").arg(number));
        day.setCheckable(true);
        day.setFocusPolicy(Qt::StrongFocus);
        row->addWidget(&day);
        connect(&day, &QToolButton::toggled, this, [this] { ShowWords(); });
    }
    row->addStretch();
    return days;
}

int RepeatField::WeekdayOfDate() const {
    return WeekdayOfDay(DaysOfCivil(m_date.year, m_date.month, m_date.day));
}

std::string RepeatField::OwnRule() const {
    RepeatRule rule = m_base;
    rule.unit = static_cast<RepeatRule::Unit>(m_kind.currentIndex() - kDaily);
    rule.interval = m_each.value();
    rule.weekdays.clear();
    rule.monthDays.clear();
    rule.places.clear();
    rule.month = 0;
    for (std::size_t i = 0; rule.unit == RepeatRule::Unit::Week && i < kDaysOfWeek; ++i) {
        if (m_days[i].isChecked()) rule.weekdays.push_back(static_cast<int>(i));
    }
    const std::optional<RepeatRule> place =
        ReadRepeatRule(m_place.currentData().toString().toStdString());
    if (place && place->unit == rule.unit) {
        rule.monthDays = place->monthDays;
        rule.places = place->places;
        rule.month = place->month;
    }
    m_end.Put(rule);
    return FormatRepeatRule(rule);
}

std::string RepeatField::Rule() const {
    if (m_kind.currentIndex() == kOnce) return {};
    return m_kind.currentIndex() == kOwn ? m_given : OwnRule();
}

QString RepeatField::Words() const {
    return WordsOf(Rule(), m_date);
}

void RepeatField::Give(std::string_view rule, bool keepsMine) {
    const std::string mine = Rule();
    m_given = rule;
    const std::optional<RepeatRule> known = Choosable(rule);
    m_kind.removeItem(kOwn);
    if (!rule.empty() && !known) m_kind.addItem(Text("by a rule of its own"));
    Show(known);
    m_givenRule = Rule();
    if (keepsMine) Show(Choosable(mine));
}

void RepeatField::Show(const std::optional<RepeatRule>& rule) {
    m_isShowing = true;
    m_base = rule.value_or(RepeatRule());
    m_each.setValue(m_base.interval);
    const bool isOwn = !rule && !m_given.empty();
    m_kind.setCurrentIndex(rule ? kDaily + static_cast<int>(rule->unit) : isOwn ? kOwn : kOnce);
    for (std::size_t i = 0; i < kDaysOfWeek; ++i) {
        const auto& days = m_base.weekdays;
        m_days[i].setChecked(std::find(days.begin(), days.end(), static_cast<int>(i)) !=
                             days.end());
    }
    if (m_base.weekdays.empty()) m_days[static_cast<std::size_t>(WeekdayOfDate())].setChecked(true);
    m_end.Give(m_base, QDate(m_date.year, m_date.month, m_date.day));
    ShowPlaces(rule ? PlaceOf(*rule) : QString());
    m_isShowing = false;
    ShowKind();
}

void RepeatField::ShowKind() {
    const int kind = m_kind.currentIndex();
    const bool isChosen = kind != kOnce && kind != kOwn;
    if (isChosen) {
        const auto unit = static_cast<std::size_t>(kind - kDaily);
        const QString each = EachTexts()[unit];
        m_each.setPrefix(each.section("%1", 0, 0));
        m_each.setSuffix(each.section("%1", 1));
        RepeatRule plain;
        plain.unit = static_cast<RepeatRule::Unit>(unit);
        m_each.setSpecialValueText(FromUtf8(RepeatWords(FormatRepeatRule(plain), std::nullopt)));
    }
    if (!m_isShowing) ShowPlaces(m_place.currentData().toString());
    m_each.setVisible(isChosen);
    m_daysRow->setVisible(kind == kWeekly);
    m_place.setVisible(kind == kMonthly || kind == kYearly);
    m_end.setVisible(isChosen);
    ShowWords();
}

// The days that the date gives, and the one that is chosen.
void RepeatField::ShowPlaces(const QString& chosen) {
    const QSignalBlocker quiet(m_place);
    m_place.clear();
    const int kind = m_kind.currentIndex();
    if (kind != kMonthly && kind != kYearly) return;
    RepeatRule rule;
    rule.unit = static_cast<RepeatRule::Unit>(kind - kDaily);
    const auto add = [&](const RepeatRule& place) {
        const std::string text = FormatRepeatRule(place);
        if (m_place.findData(FromUtf8(text)) < 0) {
            m_place.addItem(WordsOf(text, m_date), FromUtf8(text));
        }
    };
    add(rule);
    const int days = QDate(m_date.year, m_date.month, 1).daysInMonth();
    const int ordinal = (m_date.day - 1) / 7 + 1;
    if (kind == kYearly) rule.month = m_date.month;
    rule.places = {{ordinal, WeekdayOfDate()}};
    if (ordinal <= 4) add(rule);
    rule.places[0].ordinal = -1;
    if (m_date.day + 7 > days) add(rule);
    rule.places.clear();
    rule.monthDays = {-1};
    if (kind == kMonthly) add(rule);
    const std::optional<RepeatRule> given = ReadRepeatRule(chosen.toStdString());
    if (given && given->unit == rule.unit) {
        add(*given);
        m_place.setCurrentIndex(m_place.findData(chosen));
    }
}

void RepeatField::ShowWords() {
    if (m_isShowing) return;
    m_words.setVisible(Repeats());
    m_words.setText(Words());
    if (m_listener) m_listener();
}

void RepeatField::SetDate(const CivilTime& date) {
    if (date == m_date) return;
    const auto was = static_cast<std::size_t>(WeekdayOfDate());
    m_date = date;
    int checked = 0;
    for (const QToolButton& day : m_days) checked += day.isChecked() ? 1 : 0;
    if (checked == 1 && m_days[was].isChecked()) {
        m_days[was].setChecked(false);
        m_days[static_cast<std::size_t>(WeekdayOfDate())].setChecked(true);
    }
    ShowPlaces(m_place.currentData().toString());
    ShowWords();
}

}  // namespace orvo::desktop
