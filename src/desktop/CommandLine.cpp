// The command line of orvo-desktop.
// SPDX-License-Identifier: MIT
#include <charconv>
#include <map>

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <desktop/CommandLine.h>

namespace orvo::desktop {
namespace {

constexpr int kSmallestSide = 100;
constexpr int kLargestSide = 10000;

std::map<std::string, ViewKind> ViewsByName() {
    std::map<std::string, ViewKind> views;
    for (const ViewName& view : kViewNames) views[view.name] = view.kind;
    return views;
}

const std::map<std::string, Colours> kColoursByName{
    {"desktop", Colours::Desktop}, {"light", Colours::Light}, {"dark", Colours::Dark}};

bool ReadSide(std::string_view text, int& side) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, side);
    return error == std::errc() && stop == end && side >= kSmallestSide && side <= kLargestSide;
}

QSize ReadSize(const std::string& text) {
    const std::size_t cross = std::min(text.find('x'), text.size());
    int width = 0;
    int height = 0;
    const bool isRead = cross < text.size() &&
                        ReadSide(std::string_view(text).substr(0, cross), width) &&
                        ReadSide(std::string_view(text).substr(cross + 1), height);
    if (isRead) return {width, height};
    throw CommandLineError(
        fmt::format("--size {}: give width and height from {} to {}, such as "
                    "1000x700",
                    text, kSmallestSide, kLargestSide));
}

}  // namespace

std::optional<CommandLine> ReadCommandLine(int count, char** arguments) {
    CLI::App app("Addresses and to-dos in a window.", "orvo-desktop");
    CommandLine line;
    ViewKind view = ViewKind::List;
    std::string size;
    app.add_option("--store", line.store,
                   "The store file (default: orvo/orvo.db in the user's data folder)");
    app.add_option("--locale", line.locale, "The locale, such as de-DE or ja-JP");
    app.add_option("--code-page", line.codePage,
                   "The code page of text in memory: 65001, 932 or an 8-bit page");
    app.add_option("--now", line.now,
                   "The local time that is taken for the present, such as 2026-12-24T18:00");
    const CLI::Option* viewOption =
        app.add_option("--view", view,
                       "What the window shows first: list, large-icons, small-icons, cards, "
                       "todos or birthdays (default: what it showed last)")
            ->transform(CLI::CheckedTransformer(ViewsByName()).description(""));
    app.add_option("--size", size, "Width and height of the window, such as 1000x700");
    Colours colours = Colours::Desktop;
    const CLI::Option* coloursOption =
        app.add_option("--colours", colours,
                       "The colours: desktop, light or dark (default: as in the options)")
            ->transform(CLI::CheckedTransformer(kColoursByName).description(""));
    app.add_option("--picture", line.picture,
                   "Render the window into this file, such as window.png, and end");
    app.add_option("--pdf", line.pdf, "Print what the view shows into this PDF file, and end");
    app.add_option("--todo", line.toDo, "Open the to-do of that id")->check(CLI::PositiveNumber);
    app.add_flag("--reminders", line.isService,
                 "Remind of to-dos and birthdays without a window, until the session ends");
    app.add_flag("--own-notes", line.hasOwnNotes)->group("");
    app.add_option("FILE", line.files, "Card and calendar files to import");
    app.set_version_flag("--version", "orvo-desktop " ORVO_VERSION);
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& help) {
        app.exit(help);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        throw CommandLineError(fmt::format("{} (see orvo-desktop --help)", error.what()));
    }
    if (viewOption->count() > 0) line.view = view;
    if (coloursOption->count() > 0) line.colours = colours;
    if (!size.empty()) line.size = ReadSize(size);
    return line;
}

}  // namespace orvo::desktop
