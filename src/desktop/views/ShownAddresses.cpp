// Addresses as a list, as icons or as cards.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdlib>

#include <contracts/Profile.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/ShownAddresses.h>
#include <host/ViewSections.h>
#include <orvoshare/addressviews/AddrCompare.h>
#include <orvoshare/text/ListHeading.h>

namespace orvo::desktop {
namespace {

constexpr UINT kListId = 2;
constexpr UINT kCardsId = 3;

constexpr std::array<CSize, 6> kCardSizes{
    {{180, 100}, {220, 136}, {260, 172}, {310, 208}, {370, 250}, {440, 300}}};
constexpr int kFirstCardStep = 2;

constexpr const char* kScrollsDownKey = "ScrollsDown";

struct ListModeRow {
    ViewKind kind;
    int mode;
};
constexpr ListModeRow kListModes[] = {{ViewKind::List, kReportView},
                                      {ViewKind::LargeIcons, kLargeIconView},
                                      {ViewKind::SmallIcons, kSmallIconView}};

}  // namespace

bool ShownAddresses::Create(CWnd& parent, CLookupEdit& box, CCategoryCombo& categories) {
    constexpr DWORD kChild = WS_CHILD | WS_TABSTOP;
    if (!m_list.Create(kChild | LVS_REPORT | LVS_SHOWSELALWAYS, {}, &parent, kListId) ||
        !m_cards.Create(kChild, {}, &parent, kCardsId)) {
        return false;
    }
    m_list.Initialize(&Table(), &categories);
    m_cards.Initialize(&Table());
    if (m_cards.ReadCardSize(kCardSection) == 0) SetCardStep(kFirstCardStep);
    ScrollCardsDown(OUIGetProfileInt(kCardSection, kScrollsDownKey, 0) != 0);
    m_list.ShowDefaultHeading();
    m_spread.emplace(m_list);
    HideColumns(m_list);
    if (m_list.ReadHeaderColumnInfo(kListSection, 0) == 0) m_list.ShowDefaultHeading();
    m_list.SetRowPictures(&m_faces);
    m_cards.SetCardPictures(&m_faces);
    m_session.SetRecordListener(this, [this](TableKind kind, std::optional<std::int64_t> id) {
        if (kind == TableKind::Address) m_faces.Forget(id);
    });
    m_list.DV_SetEdit(&box);
    m_cards.DV_SetEdit(&box);
    m_list.ShowWindow(0);
    m_cards.ShowWindow(0);
    return true;
}

bool ShownAddresses::IsOfList(ViewKind kind) {
    return std::ranges::find(kListModes, kind, &ListModeRow::kind) != std::end(kListModes);
}

void ShownAddresses::Use(ViewKind kind) {
    m_kind = kind;
    const auto* row = std::ranges::find(kListModes, kind, &ListModeRow::kind);
    if (row != std::end(kListModes)) m_list.SetViewMode(row->mode);
}

CDetailViewAddrInf& ShownAddresses::View() {
    if (m_kind == ViewKind::Cards) return m_cards;
    return m_list;
}

CWnd& ShownAddresses::Window() {
    if (m_kind == ViewKind::Cards) return m_cards;
    return m_list;
}

COrvoUIListViewCtrl* ShownAddresses::Columns() {
    return m_kind == ViewKind::List ? &m_list : nullptr;
}

QString ShownAddresses::Name() const {
    return Text("Addresses");
}

QString ShownAddresses::CountedText(int count) const {
    return CountText("%1 address", "%1 addresses", count);
}

EntryFile ShownAddresses::File() const {
    return {Text("Cards") + "|*.vcf||", "vcf"};
}

CAddressRecord* ShownAddresses::RecordOf(DWORD data) const {
    return orvo::RecordOf(data);
}

void ShownAddresses::SetOrder(long listBy) {
    m_order = listBy;
    if (Window().IsWindowVisible() != 0) Refill();
}

void ShownAddresses::SortByColumn(int id) {
    if (id != AddressColumn::Name && id != AddressColumn::Company) return;
    SetOrder(id == AddressColumn::Name ? kListByName : kListByCompany);
}

void ShownAddresses::SetCardStep(int step) {
    const std::size_t index =
        static_cast<std::size_t>(std::clamp(step, 0, static_cast<int>(kCardSizes.size()) - 1));
    m_cards.SetCardSize(kCardSizes[index].cx, kCardSizes[index].cy, 1);
}

void ShownAddresses::ScrollCardsDown(bool isDown) {
    m_cards.SetCardFlow(isDown ? CardFlow::Lines : CardFlow::Columns);
}

int ShownAddresses::CardStep() const {
    int width = 0;
    int height = 0;
    m_cards.GetCardSize(&width, &height);
    const auto isNearer = [width](const CSize& size, const CSize& other) {
        return std::abs(size.cx - width) < std::abs(other.cx - width);
    };
    return static_cast<int>(std::ranges::min_element(kCardSizes, isNearer) - kCardSizes.begin());
}

void ShownAddresses::SaveHeadings() {
    if (m_spread->IsChanged()) m_list.WriteHeaderColumnInfo(kListSection);
    m_cards.WriteCardSize(kCardSection);
    OUIWriteProfileInt(kCardSection, kScrollsDownKey, AreCardsScrolledDown() ? 1 : 0);
}

int ShownAddresses::HiddenCount() {
    if (Disclosure(m_options).Hides() == 0) return 0;
    return CountPrivate<CAddressRecord, CAddressIterator>(Table(), [this](CAddressRecord& record) {
        return View().DV_VerifyCategoryAndPrivate(&record, Category(), 0);
    });
}

// Cards ask for nothing.
ListRow ShownAddresses::NewRow(CBaseRecord& record) const {
    const bool asks = m_kind != ViewKind::Cards;
    return {reinterpret_cast<DWORD>(&record), {}, -1, asks, asks};
}

bool ShownAddresses::BelongsIn(CBaseRecord& record) {
    auto& address = static_cast<CAddressRecord&>(record);
    return !record.IsArchived() && View().DV_VerifyCategoryAndPrivate(
                                       &address, Category(), Disclosure(m_options).Hides()) != 0;
}

int ShownAddresses::Compare(const CBaseRecord& left, const CBaseRecord& right) {
    return AddrCompareFunc(reinterpret_cast<long>(&left), reinterpret_cast<long>(&right), m_order);
}

void ShownAddresses::Fill(const Disclosure& disclosure) {
    CDetailViewAddrInf& view = View();
    view.DV_SetMaskPrivate(disclosure.Masks());
    view.DV_FillFromTable(&Table(), Category(), disclosure.Hides(), static_cast<int>(m_order));
}

}  // namespace orvo::desktop
