// The phone labels and categories of a table.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>

#include <exchange/cards/TableTexts.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>

namespace orvo {
namespace {

std::optional<PhoneKind> KindNamed(std::string_view text) {
    for (std::size_t i = 0; i < kPhoneKindLabels.size(); ++i) {
        if (EqualsIgnoringCase(kPhoneKindLabels[i], text)) return static_cast<PhoneKind>(i);
    }
    return std::nullopt;
}

std::string_view LabelOf(PhoneKind kind) {
    return kPhoneKindLabels[static_cast<std::size_t>(kind)];
}

}  // namespace

PhoneLabels::PhoneLabels(const CAddressTable& table) {
    const int count = table.GetPhoneLabelCount();
    for (long id = 0; id < count; ++id) m_texts.push_back(table.StoredPhoneLabel(id));
    if (m_texts.empty()) m_texts.emplace_back();
}

std::optional<long> PhoneLabels::Find(std::string_view text) const {
    const auto found = std::find_if(m_texts.begin(), m_texts.end(), [&](const std::string& label) {
        return EqualsIgnoringCase(label, text);
    });
    if (found == m_texts.end()) return std::nullopt;
    return found - m_texts.begin();
}

long PhoneLabels::IdOf(PhoneKind kind, std::string_view own) const {
    if (!own.empty()) {
        if (const auto id = Find(own)) return *id;
    }
    if (const auto id = Find(LabelOf(kind))) return *id;
    const auto standard = static_cast<long>(kind);
    if (standard < static_cast<long>(m_texts.size()) && KindOf(standard) == kind) return standard;
    if (const auto id = Find(LabelOf(PhoneKind::Other))) return *id;
    return static_cast<long>(m_texts.size()) - 1;
}

std::optional<PhoneKind> PhoneLabels::KindOf(long id) const {
    if (const auto kind = KindNamed(TextOf(id))) return kind;
    if (id < 0 || id >= kPhoneKinds) return std::nullopt;
    return static_cast<PhoneKind>(id);
}

bool PhoneLabels::IsStandard(long id) const {
    return KindNamed(TextOf(id)).has_value();
}

const std::string& PhoneLabels::TextOf(long id) const {
    static const std::string none;
    return id < 0 || id >= static_cast<long>(m_texts.size())
               ? none
               : m_texts[static_cast<std::size_t>(id)];
}

CCategory* CategoryNames::Added(std::string_view name) {
    auto fresh = std::make_unique<CCategory>();
    fresh->SetNameUtf8(name);
    if (m_manager.Add(fresh.get()) == 0) return fresh.release();
    CCategory* foreign = nullptr;
    m_manager.FindUtf8Name(name, foreign);
    return foreign;
}

std::optional<int> CategoryNames::IndexOf(const std::string& name, bool add) {
    const auto known = m_known.find(name);
    if (known != m_known.end()) return known->second;
    CCategory* category = nullptr;
    if (m_manager.FindUtf8Name(name, category) != 0) {
        const std::string_view cut = CutCategoryName(name);
        if (cut.empty()) return std::nullopt;
        if (m_manager.FindUtf8Name(cut, category) != 0 && add) category = Added(cut);
    }
    if (!category) return std::nullopt;
    m_known.emplace(name, category->GetIndex());
    return category->GetIndex();
}

void CategoryNames::Note(const std::vector<ListedCategory>& names, bool add, Origin& origin) {
    origin.category = kNoCategory;
    origin.listed.reset();
    for (std::size_t place = 0; place < names.size(); ++place) {
        const auto index = IndexOf(names[place].name, add);
        if (!index) continue;
        origin.category = *index;
        origin.listed = place;
        return;
    }
}

std::size_t PlaceOf(const Origin& origin, const std::vector<ListedCategory>& names) {
    return std::min(origin.listed.value_or(names.size()), names.size());
}

void CategoryNames::Choose(const std::vector<ListedCategory>& names, Origin& origin) {
    Note(names, true, origin);
}

void CategoryNames::Find(const std::vector<ListedCategory>& names, Origin& origin) {
    Note(names, false, origin);
}

std::string CategoryNames::NameOf(int index) {
    CCategory* category = nullptr;
    if (index == kNoCategory || m_manager.FindIndex(index, category) != 0 || !category) return {};
    return category->Utf8();
}

}  // namespace orvo
