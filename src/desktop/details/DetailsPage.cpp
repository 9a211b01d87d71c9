// A person, or a to-do, as a page: a heading, and below it a line for each detail.
// SPDX-License-Identifier: MIT
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

#include <desktop/details/DayTexts.h>
#include <desktop/details/DetailsPage.h>
#include <desktop/texts/Texts.h>
#include <people/DetailLinks.h>

namespace orvo::desktop {
namespace {

// More than anybody reads, and few enough that the page is there at once.
constexpr qsizetype kMostCharacters = 20'000;  // of one text
constexpr std::size_t kMostDetails = 500;

constexpr int kGap = 10;  // pixels behind the picture

QString Escaped(const QString& whole) {
    const bool isCut = whole.size() > kMostCharacters;
    QString text = isCut ? whole.left(kMostCharacters) + QChar(0x2026) : whole;
    return text.toHtmlEscaped().replace('\n', "<br>");
}

QString Linked(const QString& text, const std::string& link) {
    if (link.empty()) return Escaped(text);
    return QString("<a href=\"%1\">%2</a>").arg(FromUtf8(link).toHtmlEscaped(), Escaped(text));
}

// Addresses of pages and mail addresses within a text lead where they say.
QString NoteText(const QString& note) {
    if (note.size() > kMostCharacters) return Escaped(note);
    static const QRegularExpression places(
        R"(\bhttps?://[^\s<>"]+[^\s<>".,;:!?)]|[\w.+-]+@[\w-]+(\.[\w-]+)+)",
        QRegularExpression::UseUnicodePropertiesOption);
    QString html;
    qsizetype done = 0;
    for (auto found = places.globalMatch(note); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        Detail detail;
        detail.text = match.captured().toStdString();
        detail.kind = detail.text.starts_with("http") ? DetailKind::Page : DetailKind::Email;
        html += Escaped(note.mid(done, match.capturedStart() - done));
        html += Linked(match.captured(), LinkOf(detail));
        done = match.capturedEnd();
    }
    return html + Escaped(note.mid(done));
}

std::string Translated(const char* name) {
    return Text(name).toStdString();
}

class Page {
public:
    Page(const PageOfPerson& content, const QColor& quiet)
        : m_content(content), m_quiet(quiet.name()) {}

    QString Html(bool hasPhoto) {
        const Person& person = m_content.person;
        AddHeading(hasPhoto);
        m_html += "<table cellspacing=\"0\" cellpadding=\"2\" style=\"margin-top:8px\">";
        const std::size_t shown = std::min(person.details.size(), kMostDetails);
        for (std::size_t i = 0; i < shown; ++i) AddDetail(person.details[i]);
        if (shown < person.details.size()) AddLine({}, QChar(0x2026));
        for (const auto& [label, text] : m_content.ownFields) AddLine(label, Escaped(text));
        AddGroups();
        if (m_content.whole) AddLine(Text("Part of"), LinkTo(*m_content.whole));
        if (!m_content.category.isEmpty()) AddLine(Text("Category"), Escaped(m_content.category));
        if (m_content.isPrivate) AddLine(Text("Private"), Escaped(Text("yes")));
        if (!person.note.empty()) AddLine(Text("Note"), NoteText(FromUtf8(person.note)));
        m_html += "</table>";
        return m_html;
    }

private:
    void AddHeading(bool hasPhoto) {
        const Person& person = m_content.person;
        m_html += "<table cellspacing=\"0\" cellpadding=\"0\"><tr>";
        if (m_content.face) m_html += "<td><img src=\"photo\"></td>";
        m_html +=
            QString("<td style=\"padding-left:%1px; vertical-align:middle\"><big><b>%2</b></big>")
                .arg(m_content.face ? kGap : 0)
                .arg(Escaped(Heading()));
        if (!person.name.nickname.empty())
            AddUnder("\u201c" + FromUtf8(person.name.nickname) + "\u201d");
        for (const std::string* text : {&person.work.title, &person.work.role,
                                        &person.work.department, &person.work.company}) {
            // A company without a person has its name above.
            if (FromUtf8(*text) != Heading()) AddUnder(FromUtf8(*text));
        }
        if (person.isGroup) AddUnder(Text("Group"));
        if (person.photo && !hasPhoto) AddPhotoLink(*person.photo);
        m_html += "</td></tr></table>";
    }

    // With prefix, middle names and suffix, where the card has them.
    QString Heading() const {
        const PersonName& name = m_content.person.name;
        const bool hasMore = !(name.prefix + name.middle + name.suffix).empty();
        return hasMore && !name.full.empty() ? FromUtf8(name.full) : m_content.name;
    }

    void AddUnder(const QString& text) {
        if (!text.isEmpty()) m_html += "<br>" + Escaped(text);
    }

    // A picture elsewhere is never fetched, and one that can't be shown is told of.
    void AddPhotoLink(const PersonPhoto& photo) {
        Detail detail;
        detail.kind = DetailKind::Other;
        detail.uri = photo.link;
        m_html += "<br>" + (photo.link.empty() ? Escaped(Text("The photo can't be shown."))
                                               : Linked(Text("Photo"), LinkOf(detail)));
    }

    QString TitleOf(const Detail& detail) const {
        const auto slot = static_cast<std::size_t>(detail.slot);
        if (slot != 0 && slot <= m_content.labels.size()) return m_content.labels[slot - 1];
        return FromUtf8(orvo::TitleOf(detail, Translated));
    }

    static QString LinkTo(const EntryLink& entry) {
        return Linked(entry.name, QString("%1:%2").arg(kEntryScheme).arg(entry.id).toStdString());
    }

    void AddGroups() {
        QStringList groups;
        for (const EntryLink& group : m_content.groups) groups.push_back(LinkTo(group));
        if (!groups.isEmpty()) AddLine(Text("Groups"), groups.join("<br>"));
    }

    void AddDetail(const Detail& detail) {
        const auto member = m_content.members.find(detail.line);
        if (member != m_content.members.end()) {
            return AddLine(TitleOf(detail), LinkTo(member->second));
        }
        const QString text = detail.date && detail.date->ComesBack()
                                 ? DayText(*detail.date, Today())
                                 : FromUtf8(orvo::TextOf(detail, Translated));
        std::string link = LinkOf(detail);
        if (link.empty()) link = MapLinkOf(detail, m_content.mapAddress);
        AddLine(TitleOf(detail), Linked(text, link));
    }

    void AddLine(const QString& title, const QString& html) {
        m_html += QString(
                      "<tr><td align=\"right\"><font color=\"%1\">%2</font>&nbsp;</td>"
                      "<td>%3</td></tr>")
                      .arg(m_quiet, Escaped(title), html);
    }

    const PageOfPerson& m_content;
    QString m_quiet;
    QString m_html;
};

}  // namespace

QString HtmlOf(const PageOfPerson& page, bool hasPhoto, const QColor& quiet) {
    return Page(page, quiet).Html(hasPhoto);
}

QString HtmlOf(const QString& line, const QColor& quiet) {
    return QString("<p><font color=\"%1\">%2</font></p>").arg(quiet.name(), Escaped(line));
}

}  // namespace orvo::desktop
