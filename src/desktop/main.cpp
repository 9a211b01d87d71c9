// orvo-desktop: people's addresses in a window.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QPixmap>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <desktop/EndSignals.h>
#include <desktop/MainWindow.h>
#include <libraries/quire/UserStore.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/text/SystemLocale.h>

namespace orvo::desktop {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 2;

struct Options {
    std::string store;
    std::string locale;
    unsigned codePage = 0;
    std::string picture;
};

int Fail(const std::string& reason) {
    fmt::print(stderr, "orvo-desktop: {}\n", reason);
    return kFailed;
}

bool IsSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

// A picture is rendered without a display; a window needs one.
bool ChoosePlatform(const Options& options) {
    if (IsSet("QT_QPA_PLATFORM")) return true;
    if (options.picture.empty()) return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY");
    return setenv("QT_QPA_PLATFORM", "offscreen", 1) == 0;
}

bool SetLocale(const Options& options) {
    if (options.locale.empty() && options.codePage == 0) return true;
    const std::string tag = options.locale.empty() ? SystemLocale::Tag() : options.locale;
    return SystemLocale::Set(tag, options.codePage);
}

int SavePicture(const MainWindow& window, const std::string& file) {
    QWidget* widget = QtWindowSystem::WidgetOf(&window);
    if (widget == nullptr || !widget->grab().save(QString::fromStdString(file))) {
        return Fail(fmt::format("{}: the picture can't be written", file));
    }
    return kDone;
}

int Show(const Options& options, int count, char** arguments) {
    std::string error;
    const auto engine = OpenUserStore(options.store, error);
    if (engine == nullptr) return Fail(error);
    CAddressTable table(*engine);
    table.SetFailureListener([](const std::string& reason, bool) { Fail(reason); });

    const QApplication application(count, arguments);
    QtWindowSystem system;
    WindowSystem::SetCurrent(&system);
    int code = kFailed;
    {
        MainWindow window;
        AfxSetMainWnd(&window);
        const EndSignals endSignals([&window] { window.SendMessage(WM_CLOSE); });
        if (window.Open(table)) {
            if (options.picture.empty()) {
                window.KeepHeading();
                code = QApplication::exec();
            } else {
                code = SavePicture(window, options.picture);
            }
        }
        AfxSetMainWnd(nullptr);
    }
    WindowSystem::SetCurrent(nullptr);
    return code;
}

int Run(int count, char** arguments) {
    CLI::App app("Addresses in a window.", "orvo-desktop");
    Options options;
    app.add_option("--store", options.store,
                   "The store file (default: orvo/orvo.db in the user's data folder)");
    app.add_option("--locale", options.locale, "The locale, such as de-DE or ja-JP");
    app.add_option("--code-page", options.codePage,
                   "The code page of text in memory: 65001, 932 or an 8-bit page");
    app.add_option("--picture", options.picture,
                   "Render the window into this file, such as window.png, and end");
    app.set_version_flag("--version", "orvo-desktop " ORVO_VERSION);
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        return Fail(fmt::format("{} (see orvo-desktop --help)", error.what()));
    }
    if (!SetLocale(options)) {
        return Fail(fmt::format("--locale {} --code-page {}: no such locale or code page",
                                options.locale, options.codePage));
    }
    if (!ChoosePlatform(options)) {
        return Fail("there is no display: --picture FILE renders the window into a file");
    }
    OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH);
    return Show(options, count, arguments);
}

}  // namespace
}  // namespace orvo::desktop

int main(int count, char** arguments) {
    try {
        return orvo::desktop::Run(count, arguments);
    } catch (const std::exception& error) {
        return orvo::desktop::Fail(error.what());
    }
}
