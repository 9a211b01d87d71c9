// The to-dos of a file that belong to a series.
// SPDX-License-Identifier: MIT
#include <contracts/RowIdentity.h>
#include <exchange/calendar/SeriesInstances.h>
#include <exchange/lines/EntryReader.h>

namespace orvo {
namespace {

bool MayBeInstance(std::string_view toDo) {
    constexpr std::string_view kName = "RECURRENCE-ID";
    for (std::size_t place = 0; place + kName.size() <= toDo.size(); ++place) {
        place = toDo.find_first_of("Rr", place);
        if (place == std::string_view::npos) return false;
        if (StartsIgnoringCase(toDo.substr(place), kName)) return true;
    }
    return false;
}

}  // namespace

bool IsInstance(std::string_view toDo) {
    return MayBeInstance(toDo) && !ReadSourceStamp(toDo).recurrence.empty();
}

std::map<std::size_t, std::vector<std::size_t>> InstancesOfSeries(
    const std::vector<std::string_view>& toDos) {
    std::map<std::string, std::vector<std::size_t>> instances;  // by UID
    std::vector<bool> isInstance(toDos.size());
    for (std::size_t i = 0; i < toDos.size(); ++i) {
        if (!MayBeInstance(toDos[i])) continue;
        const SourceStamp stamp = ReadSourceStamp(toDos[i]);
        if (stamp.recurrence.empty() || stamp.uid.empty()) continue;
        isInstance[i] = true;
        instances[PlainUid(stamp.uid)].push_back(i);
    }
    std::map<std::size_t, std::vector<std::size_t>> found;
    for (std::size_t i = 0; i < toDos.size() && !instances.empty(); ++i) {
        if (isInstance[i]) continue;
        const auto own = instances.find(PlainUid(ReadSourceStamp(toDos[i]).uid));
        if (own == instances.end()) continue;
        found.emplace(i, std::move(own->second));
        instances.erase(own);
    }
    return found;
}

bool SetInstance(ToDoText& series, std::string_view instance) {
    const std::string recurrence = ReadSourceStamp(instance).recurrence;
    EntryReader reader(series.text);
    Entry entry;
    while (reader.Next(entry)) {
        if (ReadSourceStamp(entry.source).recurrence != recurrence) continue;
        if (entry.source == instance) return false;
        const auto start = static_cast<std::size_t>(entry.source.data() - series.text.data());
        series.text.replace(start, entry.source.size(), instance);
        return true;
    }
    series.text += instance;
    return true;
}

}  // namespace orvo
