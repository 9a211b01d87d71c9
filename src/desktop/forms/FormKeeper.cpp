// A form that was open when the program ended, kept for its next start.
// SPDX-License-Identifier: MIT
#include <QFile>
#include <QJsonDocument>
#include <QMetaProperty>
#include <QWidget>
#include <algorithm>

#include <desktop/forms/DateField.h>
#include <desktop/forms/FormFields.h>
#include <desktop/forms/FormKeeper.h>
#include <desktop/forms/KeptParts.h>
#include <desktop/texts/Texts.h>
#include <platform/io/FileReplacement.h>

namespace orvo::desktop {
namespace {

constexpr mode_t kOwnFile = 0600;

// Empty for what is no field of a form, such as a part of one of Qt's.
QString NameOf(const QWidget& widget) {
    const QString name = widget.objectName();
    if (name.isEmpty() || name.startsWith("qt_")) return {};
    const auto* date = dynamic_cast<const DateField*>(widget.parentWidget());
    return date ? date->objectName() + '.' + name : name;
}

// Null for what is no field.
QJsonValue ValueOf(const QWidget& widget) {
    if (const auto* parts = dynamic_cast<const KeptParts*>(&widget)) return parts->Kept();
    if (const auto* text = dynamic_cast<const TextField*>(&widget)) return text->Shown();
    if (const auto* choice = dynamic_cast<const ChoiceField*>(&widget)) return choice->Number();
    return QJsonValue::fromVariant(widget.metaObject()->userProperty().read(&widget));
}

void SetValue(QWidget& widget, const QJsonValue& value) {
    if (auto* parts = dynamic_cast<KeptParts*>(&widget)) {
        parts->ShowKept(value);
    } else if (auto* choice = dynamic_cast<ChoiceField*>(&widget)) {
        choice->setCurrentIndex(std::max(0, choice->findData(value.toInt())));
    } else {
        widget.metaObject()->userProperty().write(&widget, value.toVariant());
    }
}

}  // namespace

QJsonObject ChangedFields(const QWidget& page, const QJsonObject& given) {
    QJsonObject fields;
    for (const QWidget* widget : page.findChildren<QWidget*>()) {
        const QString name = NameOf(*widget);
        const QJsonValue shown = name.isEmpty() ? QJsonValue() : ValueOf(*widget);
        if (shown.isNull()) continue;
        if (!given.contains(name) || given[name] != shown) fields[name] = shown;
    }
    return fields;
}

void ShowFields(const QWidget& page, const QJsonObject& fields) {
    for (QWidget* widget : page.findChildren<QWidget*>()) {
        const QString name = NameOf(*widget);
        if (fields.contains(name)) SetValue(*widget, fields[name]);
    }
}

std::optional<KeptForm> FormKeeper::Kept() const {
    QFile file(FromUtf8(m_path));
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    const QJsonObject json = QJsonDocument::fromJson(file.readAll()).object();
    KeptForm form{json["isToDo"].toBool(), json["id"].toInteger(), json["isPrivate"].toBool(),
                  json["title"].toString(), json["fields"].toObject()};
    if (form.fields.isEmpty()) return std::nullopt;
    return form;
}

void FormKeeper::Keep(const KeptForm& form) const {
    const QJsonObject json{{"isToDo", form.isToDo},
                           {"id", static_cast<qint64>(form.id)},
                           {"isPrivate", form.isPrivate},
                           {"title", form.title},
                           {"fields", form.fields}};
    const std::string temporary = m_path + ".new";
    RemoveAbandoned(temporary);
    FileReplacement file;
    if (!file.Open(m_path, temporary)) return;
    if (file.Write(QJsonDocument(json).toJson().toStdString())) file.Replace(kOwnFile);
}

void FormKeeper::Remove() const {
    QFile::remove(FromUtf8(m_path));
}

}  // namespace orvo::desktop
