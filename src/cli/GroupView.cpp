// Groups of people, as `show` tells of them.
// SPDX-License-Identifier: MIT
#include <cli/AddressFields.h>
#include <cli/GroupView.h>
#include <people/GroupIndex.h>

namespace orvo::cli {
namespace {

GroupIndex AllGroups(Store& store) {
    GroupIndex groups(store.Addresses());
    while (!groups.Read(std::chrono::seconds(1))) {
    }
    return groups;
}

bool MayBeSeen(Store& store, bool isPrivate) {
    return store.Guard().Disclosed().Of(WayOut::View, isPrivate) == Told::Whole;
}

}  // namespace

void NameMembers(Store& store, Person& person) {
    const GroupIndex groups = AllGroups(store);
    for (Detail& detail : person.details) {
        if (detail.kind != DetailKind::Member) continue;
        const std::optional<std::int64_t> id = groups.PersonOf(detail.uri);
        CAddressRecord member(store.Addresses());
        if (!id || store.Addresses().Find(*id, member) != 0) continue;
        if (MayBeSeen(store, member.IsPrivate() != 0)) detail.text = FormattedName(member);
    }
}

Json GroupsOf(Store& store, std::int64_t id) {
    const GroupIndex groups = AllGroups(store);
    Json json = Json::array();
    for (const std::int64_t group : groups.GroupsOf(id)) {
        const PersonGroup& one = groups.Groups().at(group);
        if (MayBeSeen(store, one.isPrivate)) json.push_back({{"id", group}, {"name", one.name}});
    }
    return json;
}

}  // namespace orvo::cli
