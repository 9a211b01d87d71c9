// Who a record is and when it changed, as commands print it.
// SPDX-License-Identifier: MIT
#include <fmt/chrono.h>
#include <fmt/core.h>

#include <cli/IdentityView.h>
#include <cli/PersonView.h>

namespace orvo::cli {
namespace {

Json OrNull(std::string text) {
    return text.empty() ? Json(nullptr) : Json(std::move(text));
}

RowIdentity IdentityOf(const CBaseRecord& record) {
    RowIdentity identity;
    return record.GetIdentity(identity) == 0 ? identity : RowIdentity();
}

}  // namespace

std::string IsoTime(std::int64_t moment) {
    if (moment == 0) return {};
    const std::int64_t part = (moment % 1000 + 1000) % 1000;
    const auto seconds = static_cast<std::time_t>((moment - part) / 1000);
    return fmt::format("{:%Y-%m-%dT%H:%M:%S}.{:03}Z", fmt::gmtime(seconds), part);
}

void AddIdentity(const CBaseRecord& record, Json& json) {
    const RowIdentity identity = IdentityOf(record);
    json["uid"] = OrNull(identity.uid);
    json["created"] = OrNull(IsoTime(identity.created));
    json["modified"] = OrNull(IsoTime(identity.modified));
}

void PrintIdentity(const CBaseRecord& record) {
    const RowIdentity identity = IdentityOf(record);
    PrintField("UID", identity.uid);
    PrintField("Created", IsoTime(identity.created));
    PrintField("Modified", IsoTime(identity.modified));
}

}  // namespace orvo::cli
