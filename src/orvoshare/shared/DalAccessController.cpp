// CDalAccessController: the table of who has which user's data set open.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include <orvoshare/shared/DalAccessController.h>
#include <platform/io/LockFile.h>
#include <platform/ipc/RuntimeFolder.h>
#include <platform/text/CodePage.h>

namespace orvo {
namespace {

constexpr const char* kBlockName = "KvtDalAccessController";
constexpr const char* kDesktop = "Orvo Desktop";
constexpr unsigned long kBlockSize = 0x8000;
constexpr unsigned long kHeaderValue = 1;

// Two first users may keep each other from making the block, or a last one may leave between the
// question and the opening.
constexpr int kAttempts = 20;

#ifdef NDEBUG
constexpr bool kTraces = false;
#else
constexpr bool kTraces = true;
#endif

// The data area. What lies behind the rows is zero but within a removal, and shows what is left of
// one whose process was killed.
struct AccessTable {
    std::uint32_t count;
    CAccessInfo rows[kMostAccessors];
    std::uint32_t movingTo;  // from 1, the row that the next one is moved to; 0 outside a removal
    std::uint32_t countAfter;
};
static_assert(sizeof(CMapFileHeader) + sizeof(AccessTable) <= kBlockSize);

// What is stored before a call stays before, and what is stored after it after: at the moment of a
// kill just this order is what is known of the table.
void Put(std::uint32_t& word, std::uint32_t value) {
    std::atomic_thread_fence(std::memory_order_seq_cst);
    std::atomic_ref(word).store(value, std::memory_order_relaxed);
    std::atomic_thread_fence(std::memory_order_seq_cst);
}

// Moves the rows behind a removed one down, from wherever this stopped. The row that is written is
// whole in the next one until the mark has gone on, so every step may be done twice.
void FinishRemoval(AccessTable& table) {
    const std::uint32_t first = table.movingTo;
    if (first == 0) return;
    const std::uint32_t count = table.countAfter;
    if (count < kMostAccessors && first <= count + 1) {
        for (std::uint32_t to = first; to <= count; ++to) {
            Put(table.movingTo, to);
            table.rows[to - 1] = table.rows[to];
        }
        Put(table.count, count);
    }
    Put(table.movingTo, 0);
    table.countAfter = 0;
}

// Keeps all others from the table while it lives.
class TableLock {
public:
    explicit TableLock(AccessTable* table) {
        if (table == nullptr) return;
        std::string error;
        const std::string folder = RuntimeFolder(error);
        if (!folder.empty() && m_lock.Lock(folder + '/' + kBlockName + ".lock")) {
            FinishRemoval(*table);
        }
    }
    bool IsHeld() const { return m_lock.IsHeld(); }

private:
    LockFile m_lock;
};

// Null without a view.
AccessTable* TableIn(CMapFileHelper& block) {
    return static_cast<AccessTable*>(block.GetDataBuffer());
}

std::uint32_t CountOf(const AccessTable* table) {
    return table == nullptr ? 0 : std::min<std::uint32_t>(table->count, kMostAccessors);
}

template <std::size_t Size>
std::string_view TextOf(const char (&field)[Size]) {
    return {field, static_cast<std::size_t>(std::find(field, field + Size, '\0') - field)};
}

// The start of a text that fits a field, with its ending zero.
template <std::size_t Size>
std::string_view Fitting(const char* text, const char (&)[Size]) {
    const std::string_view all = text == nullptr ? "" : text;
    return all.substr(0, CutLength(CodePage::System(), all, Size - 1, false));
}

template <std::size_t Size>
void Fill(char (&field)[Size], const char* text) {
    const std::string_view start = Fitting(text, field);
    std::fill(std::copy(start.begin(), start.end(), field), field + Size, '\0');
}

// Null where there is none.
CAccessInfo* FindRow(AccessTable* table, const char* user, unsigned long creator) {
    if (table == nullptr) return nullptr;
    CAccessInfo* const end = table->rows + CountOf(table);
    const CString key(Fitting(user, CAccessInfo().user));
    CAccessInfo* const row = std::find_if(table->rows, end, [&](const CAccessInfo& one) {
        return one.creator == static_cast<std::uint32_t>(creator) &&
               key.CompareNoCase(TextOf(one.user)) == 0;
    });
    return row == end ? nullptr : row;
}

}  // namespace

int CDalAccessController::Initialize() {
    if (GetDataBuffer() != nullptr) return 1;
    int isOpen = 0;
    for (int attempt = 0; attempt < kAttempts && isOpen == 0; ++attempt) {
        const int create = DoesMapExist(kBlockName) == 0;
        isOpen = CreateOrOpenMap(create, kBlockName, kBlockSize, kHeaderValue, kHeaderValue);
    }
    if (isOpen != 0) MapView();
    return isOpen;
}

int CDalAccessController::Attach() {
    if (GetDataBuffer() != nullptr) return 1;
    if (CreateOrOpenMap(0, kBlockName, kBlockSize, kHeaderValue, kHeaderValue) == 0) return 0;
    return MapView();
}

int CDalAccessController::GetOwner(const char* user, unsigned long creator, CString& owner) {
    AccessTable* table = TableIn(*this);
    const TableLock lock(table);
    const CAccessInfo* row = FindRow(table, user, creator);
    if (row == nullptr) return 0;
    owner = TextOf(row->owner);
    return 1;
}

int CDalAccessController::AddAccessorInfo(const char* user, unsigned long creator,
                                          const char* owner) {
    AccessTable* table = TableIn(*this);
    const TableLock lock(table);
    const std::uint32_t count = CountOf(table);
    if (!lock.IsHeld() || count == kMostAccessors || FindRow(table, user, creator) != nullptr) {
        return 0;
    }
    CAccessInfo& row = table->rows[count];
    row = CAccessInfo();
    Fill(row.user, user);
    Fill(row.owner, owner);
    row.creator = static_cast<std::uint32_t>(creator);
    Put(table->count, count + 1);
    return 1;
}

int CDalAccessController::RemoveAccessorInfo(const char* user, unsigned long creator) {
    AccessTable* table = TableIn(*this);
    const TableLock lock(table);
    const CAccessInfo* row = lock.IsHeld() ? FindRow(table, user, creator) : nullptr;
    if (row == nullptr) return 0;
    table->countAfter = CountOf(table) - 1;
    Put(table->movingTo, static_cast<std::uint32_t>(row - table->rows) + 1);
    FinishRemoval(*table);
    return 1;
}

int CDalAccessController::AllowDataAccess(const char* user, unsigned long creator,
                                          int* heldByDesktop) {
    *heldByDesktop = 0;
    CString owner;
    if (GetOwner(user, creator, owner) == 0) return 1;
    *heldByDesktop = owner.CompareNoCase(kDesktop) == 0;
    return *heldByDesktop;
}

int CDalAccessController::GetAccessInfoArray(unsigned long* count, CAccessInfo** rows) {
    AccessTable* table = TableIn(*this);
    const TableLock lock(table);
    *count = CountOf(table);
    *rows = table == nullptr ? nullptr : table->rows;
    return 1;
}

void CDalAccessController::SetAccessorCount(unsigned long count) {
    AccessTable* table = TableIn(*this);
    const TableLock lock(table);
    if (table == nullptr) return;
    Put(table->count, static_cast<std::uint32_t>(std::min<unsigned long>(count, kMostAccessors)));
}

void CDalAccessController::Trace() {
    if (!kTraces) return;
    unsigned long count = 0;
    CAccessInfo* rows = nullptr;
    GetAccessInfoArray(&count, &rows);
    fmt::print(stderr, "AC Count = {}\n", count);
    for (unsigned long i = 0; i < count; ++i) {
        fmt::print(stderr, "{}: User {}, Creator {}, Owner {}\n", i, TextOf(rows[i].user),
                   static_cast<std::int32_t>(rows[i].creator), TextOf(rows[i].owner));
    }
}

}  // namespace orvo
