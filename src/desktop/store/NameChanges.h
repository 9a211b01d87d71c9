// Changes to the names of a table: categories, labels, and the user's own fields.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <desktop/store/StoreSession.h>

namespace orvo::desktop {

// Each is one step of the session's history, keeps a name without the blanks around it, and returns
// what is wrong, for the user; an empty text on success. Records that are in memory are to be read
// again then.
QString AddCategory(StoreSession& session, CBaseTable& table, const QString& name);
QString RenameCategory(StoreSession& session, CBaseTable& table, int index, const QString& name);
// Its records, also those in the trash, are in no category then.
QString RemoveCategory(StoreSession& session, CBaseTable& table, int index);

QString AddLabel(StoreSession& session, const QString& name);
QString RenameLabel(StoreSession& session, int label, const QString& name);
// Numbers that have the label get the other one.
QString RemoveLabel(StoreSession& session, int label, int other);

// 1 to kCustomFields; an empty name is allowed.
QString RenameCustomField(StoreSession& session, int number, const QString& name);

}  // namespace orvo::desktop
