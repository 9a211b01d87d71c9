// The desktop program's own texts.
// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <clocale>
#include <cstdlib>
#include <libintl.h>

#include <desktop/texts/Texts.h>
#include <platform/module/InstalledFolder.h>

namespace orvo::desktop {
namespace {

constexpr const char* kDomain = "orvo-desktop";

// Buttons and file dialogs are Qt's. Where its texts aren't installed they are English.
void UseQtLanguage(const std::string& language) {
    auto* texts = new QTranslator(qApp);  // Qt's
    if (texts->load(FromUtf8("qtbase_" + language),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(texts);
    }
}

}  // namespace

void UseLanguage(const std::string& language) {
    // gettext asks the variable for the language, but only where the locale isn't "C".
    setenv("LANGUAGE", language.c_str(), 1);
    const std::string locale = setlocale(LC_MESSAGES, nullptr);
    if (locale == "C" || locale == "POSIX") setlocale(LC_MESSAGES, "C.UTF-8");
    bindtextdomain(kDomain, InstalledFolder("ORVO_LOCALE_DIR", "share/locale").c_str());
    bind_textdomain_codeset(kDomain, "UTF-8");
    UseQtLanguage(language);
}

QString Text(const char* english) {
    return QString::fromUtf8(dgettext(kDomain, english));
}

QString CountText(const char* one, const char* many, std::int64_t count) {
    const char* text = dngettext(kDomain, one, many, static_cast<unsigned long>(count));
    return QString::fromUtf8(text).arg(QLocale().toString(static_cast<qlonglong>(count)));
}

}  // namespace orvo::desktop
