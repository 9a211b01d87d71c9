// Reading card and calendar files into the store.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <fmt/core.h>

#include <exchange/calendar/CalendarReader.h>
#include <exchange/cards/CardReader.h>
#include <exchange/files/ImportFile.h>
#include <exchange/lines/ProgressMeter.h>
#include <platform/io/Descriptor.h>
#include <platform/text/Charset.h>

namespace orvo {
namespace {

constexpr std::size_t kReadChunk = 1u << 20;
// How long, in milliseconds, the first writer of a pipe is waited for.
constexpr int kPatience = 2000;
constexpr const char* kHoldsNothing = "holds no card or calendar";

[[noreturn]] void FailToRead() {
    throw ExchangeError(fmt::format("can't be read: {}", std::strerror(errno)));
}

// Devices are refused, as some never end. Sets `isPipe`. To open it waits for nobody.
Descriptor OpenToRead(const std::string& path, bool& isPipe) {
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) FailToRead();
    isPipe = S_ISFIFO(status.st_mode);
    if (!isPipe && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) {
        throw ExchangeError("can't be read: it is neither a file nor a pipe");
    }
    return file;
}

// Waits until there is something to read, or the last writer has gone; false where that takes
// longer.
bool WaitToRead(const Descriptor& file, int milliseconds) {
    pollfd state{file.Number(), POLLIN, 0};
    return ::poll(&state, 1, milliseconds) != 0;
}

std::string ReadWhole(const Descriptor& file, bool isPipe) {
    std::string bytes;
    std::vector<char> chunk(kReadChunk);
    bool mayHaveNoWriter = isPipe;
    for (;;) {
        const ssize_t count = ::read(file.Number(), chunk.data(), chunk.size());
        if (count > 0) {
            bytes.append(chunk.data(), static_cast<std::size_t>(count));
        } else if (count == 0 && !mayHaveNoWriter) {
            return bytes;
        } else if (count == 0 && !WaitToRead(file, kPatience)) {
            throw ExchangeError("can't be read: nobody writes to this pipe");
        } else if (count < 0 && errno == EAGAIN) {
            WaitToRead(file, -1);
        } else if (count < 0 && errno != EINTR) {
            FailToRead();
        }
        mayHaveNoWriter = false;
    }
}

std::string ReadWhole(const std::string& path) {
    bool isPipe = false;
    const Descriptor file = OpenToRead(path, isPipe);
    return ReadWhole(file, isPipe);
}

bool IsWhatFilesHold(const Entry& entry) {
    return entry.kind == EntryKind::Card || entry.kind == EntryKind::CalendarBegin;
}

}  // namespace

std::string WhyNotImportable(const std::string& path) {
    try {
        bool isPipe = false;
        const Descriptor file = OpenToRead(path, isPipe);
        if (isPipe) return {};
        const std::string bytes = ReadWhole(file, isPipe);
        std::string decoded;
        EntryReader reader(DecodeMarked(bytes, decoded) ? decoded : bytes);
        Entry entry;
        while (reader.Next(entry)) {
            if (IsWhatFilesHold(entry)) return {};
        }
        return kHoldsNothing;
    } catch (const ExchangeError& error) {
        return error.what();
    }
}

ImportReport ImportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos,
                        const ImportProgress& progress, KnownEntry known) {
    try {
        return ImportBytes(ReadWhole(path), addresses, toDos, progress, known);
    } catch (const ImportCancelled&) {
        throw;
    } catch (const ExchangeError& error) {
        throw ExchangeError(fmt::format("{}: {}", path, error.what()));
    }
}

ImportReport ImportBytes(std::string_view bytes, CAddressTable& addresses, CToDoTable& toDos,
                         const ImportProgress& progress, KnownEntry known) {
    const std::size_t total = bytes.size();
    std::string decoded;
    if (DecodeMarked(bytes, decoded)) bytes = decoded;
    ImportReport report;
    const std::string_view charset = GuessFileCharset(bytes);
    CardReader cards(addresses, report, charset, known);
    ProgressMeter meter(bytes, total, progress);
    CalendarReader calendar(toDos, report, charset, meter, known);
    EntryReader reader(bytes);
    Entry entry;
    bool isOfOurs = false;
    while (reader.Next(entry)) {
        isOfOurs = isOfOurs || IsWhatFilesHold(entry);
        if (entry.kind == EntryKind::Card) {
            cards.Store(entry);
        } else if (entry.kind == EntryKind::Stray) {
            report.skipped.push_back({entry.number, "the text is outside of any card or calendar"});
        } else {
            calendar.Take(entry);
        }
        // To-dos that wait come to the store, and are reported, later than what follows them.
        if (!calendar.IsWaiting()) meter.Pass(entry.lines[entry.lines.size() - 1].source);
    }
    if (!isOfOurs) throw ExchangeError(kHoldsNothing);
    calendar.Finish();
    meter.Finish();
    std::stable_sort(report.skipped.begin(), report.skipped.end(),
                     [](const auto& a, const auto& b) { return a.line < b.line; });
    return report;
}

}  // namespace orvo
