// Reading card and calendar files into the store.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <fmt/core.h>

#include <exchange/CalendarReader.h>
#include <exchange/CardReader.h>
#include <exchange/ImportFile.h>
#include <exchange/ProgressMeter.h>
#include <platform/text/Charset.h>

namespace orvo {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::string ReadWhole(const std::string& path) {
    constexpr std::size_t chunk = 1u << 20;
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    std::string bytes;
    std::size_t size = 0;
    while (file && !std::ferror(file.get()) && !std::feof(file.get())) {
        bytes.resize(size + chunk);
        size += std::fread(bytes.data() + size, 1, chunk, file.get());
    }
    if (!file || std::ferror(file.get())) {
        throw ExchangeError(fmt::format("can't be read: {}", std::strerror(errno)));
    }
    bytes.resize(size);
    return bytes;
}

}  // namespace

ImportReport ImportFile(const std::string& path, CAddressTable& addresses, CToDoTable& toDos,
                        const ImportProgress& progress) {
    try {
        return ImportBytes(ReadWhole(path), addresses, toDos, progress);
    } catch (const ImportCancelled&) {
        throw;
    } catch (const ExchangeError& error) {
        throw ExchangeError(fmt::format("{}: {}", path, error.what()));
    }
}

ImportReport ImportBytes(std::string_view bytes, CAddressTable& addresses, CToDoTable& toDos,
                         const ImportProgress& progress) {
    const std::size_t total = bytes.size();
    std::string decoded;
    if (DecodeMarked(bytes, decoded)) bytes = decoded;
    ImportReport report;
    const std::string_view charset = GuessFileCharset(bytes);
    CardReader cards(addresses, charset);
    ProgressMeter meter(bytes, total, progress);
    CalendarReader calendar(toDos, report, charset, meter);
    EntryReader reader(bytes);
    Entry entry;
    bool isKnown = false;
    while (reader.Next(entry)) {
        isKnown =
            isKnown || entry.kind == EntryKind::Card || entry.kind == EntryKind::CalendarBegin;
        if (entry.kind == EntryKind::Card) {
            const std::string_view reason = cards.Store(entry);
            if (reason.empty()) {
                ++report.addresses;
                report.lastAddress = cards.StoredId();
                if (report.firstAddress == 0) report.firstAddress = report.lastAddress;
            } else {
                report.skipped.push_back({entry.number, std::string(reason)});
            }
        } else if (entry.kind == EntryKind::Stray) {
            report.skipped.push_back({entry.number, "the text is outside of any card or calendar"});
        } else {
            calendar.Take(entry);
        }
        // To-dos that wait come to the store, and are told, later than what follows them.
        if (!calendar.IsWaiting()) meter.Pass(entry.source);
    }
    if (!isKnown) throw ExchangeError("holds no card or calendar");
    calendar.Finish();
    meter.Finish();
    std::stable_sort(report.skipped.begin(), report.skipped.end(),
                     [](const auto& a, const auto& b) { return a.line < b.line; });
    return report;
}

}  // namespace orvo
