// Reminders while no window is open: the service that the desktop starts with the user's session.
// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>

#include <desktop/instance/BackgroundReminders.h>
#include <desktop/instance/Instance.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr const char* kProgram = "orvo-desktop";

bool IsUsersOwn(const std::string& store) {
    return InstanceName(store) == InstanceName({});
}

QStringList StoreArguments(const std::string& store) {
    if (IsUsersOwn(store)) return {};
    return {"--store", QFileInfo(FromUtf8(store)).absoluteFilePath()};
}

QString AutostartFile(const std::string& store) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QString("%1/autostart/%2.desktop").arg(folder, FromUtf8(ReminderServiceName(store)));
}

// As an argument of a line Exec: quoted, with the escapes of quotes and those of texts in the file.
QString Quoted(const QString& argument) {
    QString quoted;
    for (const QChar c : argument) {
        if (c == '\\') {
            quoted += "\\\\\\\\";
        } else if (c == '"' || c == '`' || c == '$') {
            quoted += QString("\\\\") + c;
        } else if (c == '%') {
            quoted += "%%";
        } else if (c == '\n') {
            quoted += "\\n";
        } else {
            quoted += c;
        }
    }
    return '"' + quoted + '"';
}

// By its name alone where that leads to it, so that the file outlives a move of the program.
QString Program() {
    const QString own = QCoreApplication::applicationFilePath();
    const QString found = QStandardPaths::findExecutable(kProgram);
    const bool isOwn = QFileInfo(found).canonicalFilePath() == QFileInfo(own).canonicalFilePath();
    return !found.isEmpty() && isOwn ? QString(kProgram) : Quoted(own);
}

QByteArray AutostartText(const std::string& store) {
    QStringList command{Program(), "--reminders"};
    for (const QString& argument : StoreArguments(store)) command += Quoted(argument);
    return QString(
               "[Desktop Entry]\nType=Application\nName=%1\nExec=%2\n"
               "Icon=org.orvoshare.OrvoDesktop\nNoDisplay=true\nTerminal=false\n")
        .arg(Text("Reminders of Orvo Desktop"), command.join(' '))
        .toUtf8();
}

bool WriteAutostart(const std::string& store) {
    const QString path = AutostartFile(store);
    if (!QDir().mkpath(QFileInfo(path).path())) return false;
    const QByteArray text = AutostartText(store);
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
}

bool Start(const QStringList& arguments, const QProcessEnvironment& environment) {
    QProcess process;
    process.setProgram(QCoreApplication::applicationFilePath());
    process.setArguments(arguments);
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    return process.startDetached();
}

}  // namespace

std::string ReminderServiceName(const std::string& store) {
    return InstanceName(store) + ".Reminders";
}

// Desktops turn such a file off by a line of their own.
bool IsRemindingInBackground(const std::string& store) {
    QFile file(AutostartFile(store));
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QList<QByteArray> lines = file.readAll().split('\n');
    return !lines.contains("Hidden=true") && !lines.contains("X-GNOME-Autostart-enabled=false");
}

bool SetRemindingInBackground(const std::string& store, bool isOn) {
    if (isOn == IsRemindingInBackground(store)) return true;
    if (isOn) {
        if (!WriteAutostart(store)) return false;
        StartRemindersInBackground(store);
        return true;
    }
    if (!QFile::remove(AutostartFile(store))) return false;
    StartRequest request;
    request.action = kEndService;
    try {
        Instance::Claim(ReminderServiceName(store), request);
    } catch (const InstanceError&) {
        // It has hung up, and nobody misses it.
    }
    return true;
}

void StartRemindersInBackground(const std::string& store) {
    if (!IsRemindingInBackground(store)) return;
    Start(QStringList{"--reminders"} + StoreArguments(store),
          QProcessEnvironment::systemEnvironment());
}

bool StartWindow(const std::string& store, const std::string& argument, const std::string& value,
                 const std::string& token) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!token.empty()) environment.insert("XDG_ACTIVATION_TOKEN", FromUtf8(token));
    return Start(QStringList{FromUtf8(argument), FromUtf8(value)} + StoreArguments(store),
                 environment);
}

}  // namespace orvo::desktop
