// A form that was open when the program ended, kept for its next start.
// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace orvo::desktop {

struct KeptForm {
    bool isToDo = false;
    std::int64_t id = 0;     // of the record; 0 for a new one
    bool isPrivate = false;  // as stored, or as the user has marked it
    QString title;           // of its window
    QJsonObject fields;      // what was changed, by the names of the fields
};

// The place where one is kept; the user's alone, as it may hold what a store would.
class FormKeeper {
public:
    explicit FormKeeper(std::string path) : m_path(std::move(path)) {}

    // Returns:  nothing where none is kept, or the file isn't one of ours.
    std::optional<KeptForm> Kept() const;
    // Where it can't be written the form is lost, as it would be without.
    void Keep(const KeptForm& form) const;
    void Remove() const;

    // The form that opens next begins with these fields.
    void BeginWith(const QJsonObject& fields) { m_fields = fields; }
    QJsonObject TakeFields() { return std::exchange(m_fields, {}); }

private:
    std::string m_path;
    QJsonObject m_fields;
};

// What the fields below `page` show, by their names, and the way back; fields that aren't named
// stay. Such as `given` shows are left out.
QJsonObject ChangedFields(const QWidget& page, const QJsonObject& given);
void ShowFields(const QWidget& page, const QJsonObject& fields);

}  // namespace orvo::desktop
