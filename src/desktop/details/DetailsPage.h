// A person, or a to-do, as a page: a heading, and below it a line for each detail.
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include <desktop/details/Face.h>
#include <people/Person.h>

namespace orvo::desktop {

// Another entry of the store, to which a link leads that has this scheme and the id behind it.
struct EntryLink {
    QString name;
    std::int64_t id;
};
constexpr const char* kEntryScheme = "orvo-entry";

// What the page says beside what the card does; all in the language of the user.
struct PageOfPerson {
    Person person;
    QString name;                                        // as the list shows it
    std::optional<Face> face;                            // of an address
    std::vector<QString> labels;                         // of the record's numbers, from slot 1
    std::vector<std::pair<QString, QString>> ownFields;  // labels and texts that aren't empty
    std::map<std::size_t, EntryLink> members;            // of a group, by the line of the detail
    std::vector<EntryLink> groups;                       // that the person is in
    std::optional<EntryLink> whole;                      // of a to-do that is a part
    std::string mapAddress;  // for postal addresses without coordinates; empty for none
    QString category;
    bool isPrivate = false;
};

// The page in the subset of HTML that Qt shows. All texts of the person are escaped, and links are
// those of LinkOf and MapLinkOf alone. Where there is a face the picture of the name "photo"
// stands beside the heading; without `hasPhoto` it isn't the photo. `quiet` is the colour of what
// heads a line.
QString HtmlOf(const PageOfPerson& page, bool hasPhoto, const QColor& quiet);

// A page of one line.
QString HtmlOf(const QString& line, const QColor& quiet);

}  // namespace orvo::desktop
