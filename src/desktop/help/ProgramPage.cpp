// What the program is, and what it is made of, as a page.
// SPDX-License-Identifier: MIT
#include <QtGlobal>
#include <sodium.h>
#include <string>
#include <utility>

#include <fmt/format.h>
#include <sqlite3.h>
#include <unicode/uversion.h>

#include <desktop/help/ProgramPage.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

std::string IcuVersion() {
    UVersionInfo version{};
    u_getVersion(version);
    char text[U_MAX_VERSION_STRING_LENGTH];
    u_versionToString(version, text);
    return text;
}

std::string FmtVersion() {
    constexpr int kMajor = 10000;
    constexpr int kMinor = 100;
    return fmt::format("{}.{}.{}", FMT_VERSION / kMajor, FMT_VERSION / kMinor % kMinor,
                       FMT_VERSION % kMinor);
}

}  // namespace

QString HtmlOfProgram() {
    const std::pair<const char*, std::string> libraries[] = {{"Qt", qVersion()},
                                                             {"SQLite", sqlite3_libversion()},
                                                             {"ICU", IcuVersion()},
                                                             {"libical", ORVO_LIBICAL},
                                                             {"libsodium", sodium_version_string()},
                                                             {"sdbus-c++", ORVO_SDBUS},
                                                             {"fmt", FmtVersion()}};
    QString html = "<h2>Orvo Desktop " ORVO_VERSION "</h2><p>" +
                   Text("Addresses and to-dos, on your own machine, in one file.").toHtmlEscaped() +
                   QString::fromUtf8("</p><p>© 2026 The OrvoShare authors<br>") +
                   Text("Licence: %1").arg("MIT").toHtmlEscaped() + "</p><p>" +
                   Text("Libraries in use:").toHtmlEscaped() +
                   "</p><table cellspacing=\"0\" cellpadding=\"2\">";
    for (const auto& [name, version] : libraries) {
        html += QString("<tr><td>%1&nbsp;</td><td>%2</td></tr>").arg(name, FromUtf8(version));
    }
    return html + "</table>";
}

}  // namespace orvo::desktop
