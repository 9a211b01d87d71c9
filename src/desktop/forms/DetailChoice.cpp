// What a detail of a person is for, as a choice in a form.
// SPDX-License-Identifier: MIT
#include <QLineEdit>
#include <algorithm>
#include <iterator>
#include <optional>

#include <desktop/forms/DetailChoice.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

using Kind = DetailKind;
using Word = DetailWord;

struct UsualWords {
    Kind kind;
    Word first;
    std::optional<Word> second = {};
};
constexpr UsualWords kUsual[] = {
    {Kind::Phone, Word::Mobile},
    {Kind::Phone, Word::Home},
    {Kind::Phone, Word::Work},
    {Kind::Phone, Word::Main},
    {Kind::Phone, Word::Home, Word::Fax},
    {Kind::Phone, Word::Work, Word::Fax},
    {Kind::Phone, Word::Pager},
    {Kind::Phone, Word::Car},
    {Kind::Email, Word::Home},
    {Kind::Email, Word::Work},
    {Kind::Email, Word::School},
    {Kind::Address, Word::Home},
    {Kind::Address, Word::Work},
    {Kind::Page, Word::Home},
    {Kind::Page, Word::Work},
    {Kind::Relation, Word::Spouse},
    {Kind::Relation, Word::Partner},
    {Kind::Relation, Word::Child},
    {Kind::Relation, Word::Parent},
    {Kind::Relation, Word::Mother},
    {Kind::Relation, Word::Father},
    {Kind::Relation, Word::Brother},
    {Kind::Relation, Word::Sister},
    {Kind::Relation, Word::Sibling},
    {Kind::Relation, Word::Relative},
    {Kind::Relation, Word::Friend},
    {Kind::Relation, Word::Colleague},
    {Kind::Relation, Word::Manager},
    {Kind::Relation, Word::Assistant},
    {Kind::Relation, Word::Emergency},
};
constexpr const char* kServices[] = {"Jabber", "Matrix", "SIP", "Telegram", "Skype", "ICQ"};
constexpr Kind kDays[] = {Kind::Birthday, Kind::Anniversary};
const QString kDivider = QStringLiteral(", ");
constexpr int kChoiceWidth = 9;

bool IsDay(Kind kind) {
    return kind == Kind::Date ||
           std::find(std::begin(kDays), std::end(kDays), kind) != std::end(kDays);
}

QStringList UsualTexts(Kind kind) {
    QStringList texts;
    for (const UsualWords& words : kUsual) {
        if (words.kind != kind) continue;
        QString text = Text(NameOf(words.first));
        if (words.second) text += kDivider + Text(NameOf(*words.second));
        texts.append(text);
    }
    if (kind == Kind::Messenger) {
        for (const char* service : kServices) texts.append(service);
    }
    if (IsDay(kind)) {
        for (const Kind day : kDays) texts.append(Text(NameOf(day)));
    }
    return texts;
}

QString ShownText(const Detail& detail) {
    QStringList parts;
    if (detail.kind == Kind::Messenger) {
        parts.append(FromUtf8(detail.service));
    } else {
        if (IsDay(detail.kind) && detail.kind != Kind::Date) {
            parts.append(Text(NameOf(detail.kind)));
        }
        parts.append(FromUtf8(detail.label));
    }
    for (const Word word : detail.words) parts.append(Text(NameOf(word)));
    parts.removeAll(QString());
    return parts.join(kDivider);
}

bool IsName(const QString& text, const char* english) {
    return text.compare(Text(english), Qt::CaseInsensitive) == 0;
}

}  // namespace

DetailChoice::DetailChoice(const Detail& detail) : m_given(detail) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kChoiceWidth);
    addItems(UsualTexts(detail.kind));
    setCurrentIndex(-1);
    setEditText(ShownText(detail));
    lineEdit()->setPlaceholderText(Text(NameOf(detail.kind)));
    lineEdit()->setCursorPosition(0);
    m_shown = currentText();
}

bool DetailChoice::TakeKind(const QString& part, Detail& detail) const {
    if (!IsDay(m_given.kind)) return false;
    for (const Kind kind : kDays) {
        if (!IsName(part, NameOf(kind))) continue;
        detail.kind = kind;
        return true;
    }
    return false;
}

// Others than the usual ones are words only where they were before.
bool DetailChoice::TakeWord(const QString& part, Detail& detail) const {
    std::vector<Word> known = m_given.words;
    for (const UsualWords& words : kUsual) {
        if (words.kind != m_given.kind) continue;
        known.push_back(words.first);
        if (words.second) known.push_back(*words.second);
    }
    const auto word = std::find_if(known.begin(), known.end(),
                                   [&](Word each) { return IsName(part, NameOf(each)); });
    if (word == known.end()) return false;
    const bool isThere =
        std::find(detail.words.begin(), detail.words.end(), *word) != detail.words.end();
    if (!isThere) detail.words.push_back(*word);
    return true;
}

void DetailChoice::PutInto(Detail& detail) const {
    if (!IsChanged()) return;
    if (IsDay(detail.kind)) detail.kind = Kind::Date;
    detail.words.clear();
    QStringList own;
    for (const QString& part : currentText().split(',', Qt::SkipEmptyParts)) {
        const QString text = part.trimmed();
        if (text.isEmpty() || TakeKind(text, detail) || TakeWord(text, detail)) continue;
        own.append(text);
    }
    (detail.kind == Kind::Messenger ? detail.service : detail.label) =
        own.join(kDivider).toStdString();
}

}  // namespace orvo::desktop
