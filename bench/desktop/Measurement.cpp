// Measuring one window, in a process of its own.
// SPDX-License-Identifier: MIT
#include "Measurement.h"

#include <QAbstractScrollArea>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <random>
#include <stdexcept>
#include <thread>

#include <fmt/format.h>

#include <contracts/RecordStore.h>
#include <libraries/quire/SqliteEngine.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/text/SystemLocale.h>

#include "Figures.h"
#include "MeasuredWindow.h"
#include "PaintWatch.h"

namespace orvo::bench {
namespace {

using std::chrono::milliseconds;

// Starts of the made-up names, from all parts of the list; each is typed key by key.
constexpr const char* kTyped[] = {"smit", "holers", "wilson", "barw", "kay",
                                  "thov", "andel",  "roma",   "quil", "freg"};

// Parts of names, streets and numbers.
constexpr const char* kLookedFor[] = {"ann", "street 99", "617 555 0"};
constexpr int kRowsOfDetails = 12;  // which lie in the first page, so that nothing scrolls

constexpr int kForeignEdits = 10;  // one by one, all of people in view
constexpr int kFramesOfEachKind = 80;
constexpr int kFramesOfIcons = 40;
constexpr int kWheelStep = 120;

// A key or a scroll that changes nothing isn't painted.
constexpr milliseconds kUnchanged{300};
// What is found may be all that showed before.
constexpr milliseconds kLate{1000};
// A switch of mode always is, however long it takes.
constexpr milliseconds kSwitch{60'000};
// Keys and frames of a slow window are measured no longer than that.
constexpr std::chrono::seconds kLongEnough{20};

void Tell(Figure figure, double value) {
    fmt::print("{} {:.3f}\n", static_cast<int>(figure), value);
    std::fflush(stdout);
}

void TellAll(const std::vector<double>& times, Figure median, Figure maximum) {
    if (times.empty()) throw std::runtime_error("nothing was painted");
    Tell(median, Median(times));
    Tell(maximum, *std::max_element(times.begin(), times.end()));
}

// A line of this process's status, such as "VmRSS", in megabytes.
double Memory(const std::string& name) {
    constexpr double kMegabytesOfKibibyte = 1024.0 / 1e6;
    std::ifstream status("/proc/self/status");
    std::string word;
    double value = 0;
    while (status >> word) {
        if (word == name + ":" && status >> value) return value * kMegabytesOfKibibyte;
    }
    throw std::runtime_error("the memory of the process can't be read");
}

Clock::time_point StartOfProcess() {
    const char* text = std::getenv(kStartVariable);
    if (!text) throw std::runtime_error("the start of the process isn't known");
    return Clock::time_point(std::chrono::nanoseconds(std::strtoll(text, nullptr, 10)));
}

// Milliseconds that this thread has worked.
double WorkOfThread() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// Names go all over the list.
void ChangePeople(const std::string& store, AddressField field, std::int64_t first,
                  std::int64_t count) {
    std::string error;
    const std::unique_ptr<SqliteEngine> engine = SqliteEngine::Open(store, error);
    if (!engine) std::terminate();
    CAddressTable table(*engine);
    StoreTransaction transaction(*engine);
    for (std::int64_t id = first; id < first + count; ++id) {
        constexpr int kLetters = 26;
        CAddressRecord record(table);
        std::string text = fmt::format("Foreign {}", id);
        if (field == AddressField::Name) text.front() = static_cast<char>('A' + id % kLetters);
        if (table.Find(id, record) != 0 || record.SetUtf8(field, text) != 0) std::terminate();
    }
    if (transaction.Commit() != StoreStatus::Ok) std::terminate();
}

class Measurement {
public:
    Measurement(PaintWatch& watch, MeasuredWindow& window) : m_watch(watch), m_window(window) {}

    void Run(const std::string& store) {
        const auto start = m_watch.TimeToPaint([this, &store] { m_window.Open(store); }, kSwitch,
                                               StartOfProcess());
        if (!start) throw std::runtime_error("the window was not painted");
        Tell(Figure::Start, *start);
        Tell(Figure::ResidentAtStart, Memory("VmRSS"));
        m_watch.Settle();
        TellAll(Keys(), Figure::KeyMedian, Figure::KeyMaximum);
        TellAll(Frames(), Figure::FrameMedian, Figure::FrameMaximum);
        Switch(ViewMode::LargeIcons, Figure::ToLargeIcons, Figure::LargeIconsFrame);
        Switch(ViewMode::SmallIcons, Figure::ToSmallIcons, Figure::SmallIconsFrame);
        Switch(ViewMode::Cards, Figure::ToCards, Figure::CardsFrame);
        Tell(Figure::ToReport, TimeOfSwitch(ViewMode::Report));
        Tell(Figure::Resident, Memory("VmRSS"));
        Tell(Figure::Peak, Memory("VmHWM"));
        MeasureDetails();
        MeasureFind();
        MeasureForeignEdits(store);
    }

private:
    bool IsLongEnough(Clock::time_point begin) const { return Clock::now() - begin > kLongEnough; }

    std::vector<double> Keys() {
        std::vector<double> times;
        const auto begin = Clock::now();
        for (const QString word : kTyped) {
            m_window.StartOver();
            m_watch.Settle();
            for (const QChar letter : word) {
                if (IsLongEnough(begin)) return times;
                if (const auto time = TimeOfKey(letter)) times.push_back(*time);
            }
        }
        return times;
    }

    std::optional<double> TimeOfKey(QChar letter) {
        QWidget& target = m_window.KeyTarget();
        const auto post = [letter, &target](QEvent::Type type) {
            QCoreApplication::postEvent(&target, new QKeyEvent(type, letter.toUpper().unicode(),
                                                               Qt::NoModifier, QString(letter)));
            QCoreApplication::sendPostedEvents(&target);
        };
        const auto time = m_watch.TimeToPaint([&post] { post(QEvent::KeyPress); }, kUnchanged);
        post(QEvent::KeyRelease);
        return time;
    }

    QScrollBar& LineBar() {
        const auto& area = dynamic_cast<QAbstractScrollArea&>(*m_window.Viewport()->parentWidget());
        QScrollBar* vertical = area.verticalScrollBar();
        return *(vertical->maximum() > 0 ? vertical : area.horizontalScrollBar());
    }

    void Wheel(int direction) {
        QWidget& viewport = *m_window.Viewport();
        const QPointF middle = viewport.rect().center();
        QCoreApplication::postEvent(
            &viewport, new QWheelEvent(middle, viewport.mapToGlobal(middle), QPoint(),
                                       QPoint(0, -direction * kWheelStep), Qt::NoButton,
                                       Qt::NoModifier, Qt::NoScrollPhase, false));
        QCoreApplication::sendPostedEvents(&viewport);
    }

    void Page(int direction) {
        LineBar().triggerAction(direction > 0 ? QScrollBar::SliderPageStepAdd
                                              : QScrollBar::SliderPageStepSub);
    }

    void Jump(int) {
        QScrollBar& bar = LineBar();
        bar.setValue(std::uniform_int_distribution<int>(0, bar.maximum())(m_random));
    }

    void AddFrames(void (Measurement::*scroll)(int), int count, std::vector<double>& times) {
        int direction = 1;
        const auto begin = Clock::now();
        for (int frame = 0; frame < count && !IsLongEnough(begin); ++frame) {
            if (LineBar().value() == LineBar().maximum()) direction = -1;
            if (LineBar().value() == 0) direction = 1;
            const auto time = m_watch.TimeToPaint(
                [this, scroll, direction] { (this->*scroll)(direction); }, kUnchanged);
            if (time) times.push_back(*time);
        }
    }

    std::vector<double> Frames() {
        std::vector<double> times;
        m_window.StartOver();
        m_watch.Settle();
        for (const auto scroll : {&Measurement::Wheel, &Measurement::Page, &Measurement::Jump}) {
            AddFrames(scroll, kFramesOfEachKind, times);
        }
        return times;
    }

    double TimeOfSwitch(ViewMode mode) {
        const auto time = m_watch.TimeToPaint([this, mode] { m_window.SetMode(mode); }, kSwitch);
        if (!time) throw std::runtime_error("a mode was not painted");
        m_watch.Settle();
        return *time;
    }

    void Switch(ViewMode mode, Figure figure, Figure frame) {
        if (!m_window.HasMode(mode)) return;
        Tell(figure, TimeOfSwitch(mode));
        std::vector<double> times;
        AddFrames(&Measurement::Jump, kFramesOfIcons, times);
        if (!times.empty()) Tell(frame, *std::max_element(times.begin(), times.end()));
    }

    // From the key that leads to the next row.
    void MeasureDetails() {
        QWidget* details = m_window.ShowDetails();
        if (!details) return;
        m_window.StartOver();
        m_watch.Settle();
        m_watch.Watch(details);
        const auto timesOf = [this](int rows) {
            std::vector<double> times;
            for (int row = 0; row < rows; ++row) {
                const auto time = m_watch.TimeToPaint([this] { PressDown(); }, kUnchanged);
                if (time) times.push_back(*time);
                m_watch.Settle();
            }
            return Median(times);
        };
        Tell(Figure::DetailsPhotoMedian, timesOf(kPeopleWithPhoto));
        Tell(Figure::DetailsMedian, timesOf(kRowsOfDetails));
        m_watch.Watch(nullptr);
    }

    void PressDown() {
        QWidget* view = m_window.Viewport()->parentWidget();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QCoreApplication::postEvent(view, new QKeyEvent(type, Qt::Key_Down, Qt::NoModifier));
        }
        QCoreApplication::sendPostedEvents(view);
    }

    // Once all texts are read.
    void MeasureFind() {
        QLineEdit* line = m_window.OpenFind();
        if (!line) return;
        line->setText("a");
        do {
            m_watch.Settle();
        } while (!m_window.IsFindReady());
        std::vector<double> times;
        for (const QString text : kLookedFor) {
            line->clear();
            m_watch.Settle();
            for (const QChar letter : text) {
                const auto time = m_watch.TimeToPaint([&] { line->insert(letter); }, kLate);
                if (time) times.push_back(*time);
                m_watch.Settle();
            }
        }
        TellAll(times, Figure::FindMedian, Figure::FindMaximum);
        line->clear();
        m_watch.Settle();
    }

    // What another program commits meanwhile, in a thread that has the store open for itself. The
    // people with a photo are in view.
    void MeasureForeignEdits(const std::string& store) {
        if (!m_window.SeesForeignEdits()) return;
        m_window.HideDetails();
        m_window.StartOver();
        m_watch.Settle();
        std::vector<double> times;
        std::vector<double> work;
        std::vector<double> workOfMoves;
        for (int edit = 0; edit < kForeignEdits; ++edit) {
            const Seen seen = TimeOfForeign(store, AddressField::Company, 1 + edit, 1);
            times.push_back(seen.fromCommit);
            work.push_back(seen.work);
        }
        Tell(Figure::ForeignEdit, Median(times));
        Tell(Figure::ForeignEditThread, Median(work));
        for (int edit = 0; edit < kForeignEdits / 2; ++edit) {
            workOfMoves.push_back(TimeOfForeign(store, AddressField::Name, 1 + edit, 1).work);
        }
        Tell(Figure::ForeignMove, Median(workOfMoves));
        Tell(Figure::ForeignThousand,
             TimeOfForeign(store, AddressField::Name, 1 + kForeignEdits / 2, 1000).fromCommit);
    }

    struct Seen {
        double fromCommit;
        double work;  // of this thread, with the painting
    };
    // Milliseconds for a commit that changes that field of so many people.
    Seen TimeOfForeign(const std::string& store, AddressField field, std::int64_t first,
                       std::int64_t count) {
        Clock::time_point committed;
        std::thread other;
        const auto start = Clock::now();
        const double workBefore = WorkOfThread();
        const auto time = m_watch.TimeToPaint(
            [&] {
                other = std::thread([&] {
                    ChangePeople(store, field, first, count);
                    committed = Clock::now();
                });
            },
            kSwitch, start);
        const double work = WorkOfThread() - workBefore;
        other.join();
        if (!time) throw std::runtime_error("a foreign edit was not painted");
        m_watch.Settle();
        using Milliseconds = std::chrono::duration<double, std::milli>;
        return {*time - Milliseconds(committed - start).count(), work};
    }

    PaintWatch& m_watch;
    MeasuredWindow& m_window;
    std::mt19937 m_random{20261125};
};

}  // namespace

int MeasureWindow(WindowKind kind, const std::string& store, int& count, char** arguments) {
    SystemLocale::Set("en-US");
    OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH);
    std::unique_ptr<MeasuredWindow> window;
    PaintWatch watch(count, arguments,
                     [&window]() -> const QObject* { return window->Viewport(); });
    window = kind == WindowKind::Ours ? MakeOurWindow() : MakePlainWindow();
    Measurement(watch, *window).Run(store);
    window.reset();
    return 0;
}

}  // namespace orvo::bench
