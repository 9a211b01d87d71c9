// Both windows measured on stores of several sizes, and the table of it.
// SPDX-License-Identifier: MIT
#include "Comparison.h"

#include <QBuffer>
#include <QImage>
#include <filesystem>
#include <random>
#include <sstream>
#include <stdexcept>

#include <fmt/format.h>

#include "../People.h"
#include "Figures.h"
#include "ListenedProcess.h"
#include "Measurement.h"

namespace orvo::bench {
namespace {

// A window that takes longer for a figure is given up.
constexpr std::chrono::seconds kGivenUp{60};

constexpr const char* kScreen = "1100x760x24";

struct FigureRow {
    Figure figure;
    const char* text;
    const char* unit;
};
constexpr FigureRow kRows[] = {
    {Figure::Start, "start of the process to the first painted window", "ms"},
    {Figure::ResidentAtStart, "resident memory then", "MB"},
    {Figure::KeyMedian, "key to the painted row, median", "ms"},
    {Figure::KeyMaximum, "key to the painted row, maximum", "ms"},
    {Figure::FrameMedian, "frame of scrolling the list, median", "ms"},
    {Figure::FrameMaximum, "frame of scrolling the list, maximum", "ms"},
    {Figure::ToLargeIcons, "switch to large icons", "ms"},
    {Figure::LargeIconsFrame, "frame of jumping in large icons, maximum", "ms"},
    {Figure::ToSmallIcons, "switch to small icons", "ms"},
    {Figure::SmallIconsFrame, "frame of jumping in small icons, maximum", "ms"},
    {Figure::ToCards, "switch to cards", "ms"},
    {Figure::CardsFrame, "frame of jumping in cards, maximum", "ms"},
    {Figure::ToReport, "switch back to the list", "ms"},
    {Figure::Resident, "resident memory at the end", "MB"},
    {Figure::Peak, "highest resident memory", "MB"},
    {Figure::DetailsPhotoMedian, "row to the painted details with a photo, median", "ms"},
    {Figure::DetailsMedian, "row to the painted details without one, median", "ms"},
    {Figure::FindMedian, "letter to the painted rows that are found, median", "ms"},
    {Figure::FindMaximum, "letter to the painted rows that are found, max.", "ms"},
    {Figure::ForeignEdit, "foreign commit of an edit to the painted row", "ms"},
    {Figure::ForeignEditThread, "of that, work of the window's thread", "ms"},
    {Figure::ForeignMove, "the same for a row that moves, work", "ms"},
    {Figure::ForeignThousand, "commit of 1000 edits to the painted rows", "ms"},
};

constexpr bool EachRowStandsAtItsFigure() {
    for (std::size_t row = 0; row < kFigureCount; ++row) {
        if (IndexOf(kRows[row].figure) != row) return false;
    }
    return std::size(kRows) == kFigureCount;
}
static_assert(EachRowStandsAtItsFigure());

struct Wanted {
    std::size_t people;
    Figure figure;
    bool isShare;  // of the plain window's figure
    double limit;
    const char* text;
};
constexpr Wanted kWanted[] = {
    {100'000, Figure::Start, true, 0.1, "a tenth of the plain"},
    {100'000, Figure::KeyMaximum, false, 16, "under 16 ms"},
    {100'000, Figure::FrameMaximum, false, 16, "under 16 ms"},
    {100'000, Figure::DetailsPhotoMedian, false, 20, "under 20 ms"},
    {100'000, Figure::DetailsMedian, false, 5, "under 5 ms"},
    {100'000, Figure::FindMaximum, false, 50, "under 50 ms"},
    {1'000'000, Figure::FindMaximum, false, 150, "under 150 ms"},
    {1'000'000, Figure::ForeignEdit, false, 100, "under 100 ms"},
    {1'000'000, Figure::ForeignEditThread, false, 5, "under 5 ms"},
    {1'000'000, Figure::ForeignThousand, false, 300, "under 300 ms"},
    {1'000'000, Figure::Start, false, 5000, "under 5 s"},
    {1'000'000, Figure::Peak, false, 700, "under 700 MB"},
};

struct Outcome {
    Figures figures;
    std::optional<Figure> givenUp;  // at which the window was given up
};

class Display {
public:
    Display()
        : m_server({"Xvfb", "-displayfd", "1", "-screen", "0", kScreen, "-nolisten", "tcp"}, {}, {},
                   ListenedProcess::Complaints::Hidden) {
        std::string number;
        if (m_server.ReadLine(number, kGivenUp) != ListenedProcess::Read::Line) {
            throw std::runtime_error("Xvfb gave no display");
        }
        m_name = ":" + number;
    }

    const std::string& Name() const { return m_name; }

private:
    ListenedProcess m_server;
    std::string m_name;
};

// A picture of about 100 kB.
std::string Photo() {
    constexpr int kSide = 256;
    constexpr int kQuality = 90;
    QImage image(kSide, kSide, QImage::Format_RGB32);
    std::mt19937 random(1);
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) image.setPixel(x, y, static_cast<QRgb>(random()));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPEG", kQuality);
    return bytes.toBase64().toStdString();
}

// They stand before all others.
void AddPeopleWithPhoto(CAddressTable& table) {
    const std::string photo = Photo();
    for (int number = 0; number <= kPeopleWithPhoto; ++number) {
        CAddressRecord record(table);
        record.SetUtf8(AddressField::Name, fmt::format("A {:02}", number));
        record.SetSource(
            fmt::format("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A {:02}\r\n"
                        "PHOTO;ENCODING=b;TYPE=JPEG:{}\r\nEND:VCARD\r\n",
                        number, photo));
        table.Add(record);
    }
}

void WriteStore(ScratchStore& store, std::size_t people) {
    CAddressTable table(store.Engine());
    StoreTransaction transaction(store.Engine());
    AddPeopleWithPhoto(table);
    for (const Person& person : MakePeople(people, Script::Latin)) {
        table.Add(*RecordOf(person, table));
    }
    if (transaction.Commit() != StoreStatus::Ok) throw std::runtime_error(table.LastError());
}

// Until its end, or until it takes too long for a figure.
Outcome ReadFigures(ListenedProcess& child) {
    Outcome outcome;
    std::size_t next = 0;
    std::string line;
    ListenedProcess::Read read{};
    while ((read = child.ReadLine(line, kGivenUp)) == ListenedProcess::Read::Line) {
        std::istringstream words(line);
        double value = 0;
        if (!(words >> next >> value) || next >= kFigureCount) {
            throw std::runtime_error("a window gave no figure: " + line);
        }
        outcome.figures[next++] = value;
    }
    if (read == ListenedProcess::Read::Late) outcome.givenUp = static_cast<Figure>(next);
    return outcome;
}

class Comparison {
public:
    Comparison(std::string program, const ScratchStore& store)
        : m_program(std::move(program)), m_store(store.Path()) {}

    Outcome Measure(WindowKind kind) const {
        const char* name = kind == WindowKind::Ours ? "ours" : "plain";
        const std::string folder = std::filesystem::path(m_store).parent_path().string();
        // Qt reads only the name of the locale, and would warn where the machine lacks its tables.
        ListenedProcess child({m_program, "--child", name, "--store", m_store},
                              {{"DISPLAY", m_display.Name()},
                               {"QT_QPA_PLATFORM", "xcb"},
                               {"QT_LOGGING_RULES", "default.warning=false"},
                               {"LC_ALL", "en_US.UTF-8"},
                               {"XDG_CONFIG_HOME", folder}},
                              kStartVariable, ListenedProcess::Complaints::Shown);
        Outcome outcome = ReadFigures(child);
        if (outcome.givenUp) return outcome;
        const std::string trouble = child.Wait();
        if (trouble.empty()) return outcome;
        throw std::runtime_error(fmt::format("measuring the window {}: {}", name, trouble));
    }

private:
    std::string m_program;
    std::string m_store;
    Display m_display;
};

// The median of each figure; given up where one run was.
Outcome MedianOf(const std::vector<Outcome>& runs) {
    Outcome result;
    for (std::size_t figure = 0; figure < kFigureCount; ++figure) {
        std::vector<double> values;
        for (const Outcome& run : runs) {
            if (run.figures[figure]) values.push_back(*run.figures[figure]);
        }
        if (values.size() == runs.size()) result.figures[figure] = Median(values);
    }
    for (const Outcome& run : runs) {
        if (run.givenUp) result.givenUp = run.givenUp;
    }
    return result;
}

std::string Cell(const Outcome& outcome, const FigureRow& row) {
    if (outcome.givenUp == row.figure) return fmt::format("over {} s", kGivenUp.count());
    const auto value = outcome.figures[IndexOf(row.figure)];
    if (!value) return "-";
    constexpr double kWithoutDecimals = 100;
    return fmt::format("{:.{}f} {}", *value, *value < kWithoutDecimals ? 1 : 0, row.unit);
}

std::string Verdict(std::size_t people, const FigureRow& row, const Outcome& ours,
                    const Outcome& plain) {
    const std::size_t at = IndexOf(row.figure);
    for (const Wanted& wanted : kWanted) {
        if (wanted.people != people || wanted.figure != row.figure) continue;
        double limit = wanted.limit;
        if (wanted.isShare) {
            // A plain window that was given up has taken at least so long.
            const std::chrono::duration<double, std::milli> atLeast = kGivenUp;
            limit *= plain.figures[at].value_or(atLeast.count());
        }
        const bool isMet = ours.figures[at] && *ours.figures[at] <= limit;
        return fmt::format("  {}: {}", wanted.text, isMet ? "met" : "missed");
    }
    return {};
}

void Print(const Plan& plan, const Outcome& ours, const Outcome& plain) {
    fmt::print("\n{} addresses, {}\n", plan.people,
               plan.runs == 1 ? "one run" : fmt::format("medians of {} runs", plan.runs));
    constexpr const char* kLine = "{:<50} {:>12} {:>12}{}\n";
    fmt::print(kLine, "", "this window", "plain Qt", "  wanted");
    for (const FigureRow& row : kRows) {
        fmt::print(kLine, row.text, Cell(ours, row), Cell(plain, row),
                   Verdict(plan.people, row, ours, plain));
    }
    std::fflush(stdout);
}

}  // namespace

void CompareWindows(const std::string& program, const std::vector<Plan>& plans) {
    fmt::print(
        "The window of orvo-desktop beside a plain Qt window: a QStandardItemModel, filled row by "
        "row\nthrough the same store engine, behind a locale-aware QSortFilterProxyModel in a "
        "QTreeView.\nEach run is a process of its own on an Xvfb; the store is in the page "
        "cache.\n");
    for (const Plan& plan : plans) {
        ScratchStore store;
        WriteStore(store, plan.people);
        store.Close();
        const Comparison comparison(program, store);
        std::vector<Outcome> ours;
        std::vector<Outcome> plain;
        for (int run = 0; run < plan.runs; ++run) {
            ours.push_back(comparison.Measure(WindowKind::Ours));
            plain.push_back(comparison.Measure(WindowKind::Plain));
        }
        Print(plan, MedianOf(ours), MedianOf(plain));
    }
}

}  // namespace orvo::bench
