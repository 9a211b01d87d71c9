// Sorting by keys, eight bytes at a time.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>
#include <numeric>
#include <string_view>

#include <platform/text/KeySort.h>

namespace orvo {

namespace {

constexpr std::size_t kStep = sizeof(std::uint64_t);

// The next eight bytes as a number, the first one highest; zeros stand for what lies behind the
// end.
std::uint64_t NumberAt(const char* bytes, std::size_t left) {
    std::uint64_t number = 0;
    std::memcpy(&number, bytes, std::min(left, kStep));
    return __builtin_bswap64(number);
}

struct KeyRow {
    std::uint64_t start;   // the next eight bytes of the key
    std::size_t offset;    // where the key begins in its buffer
    std::uint32_t length;  // 0 for a row without a key
    std::uint32_t number;
};

// Sorts rows whose keys agree in the bytes before `depth`. Rows that agree in the next eight bytes,
// too: the keys that end there come first, by length, since each is the start of the others; the
// longer ones are sorted by the bytes that follow. So a key's bytes are fetched from memory once,
// not at each comparison.
void SortByKeys(KeyRow* begin, KeyRow* end, const std::string& bytes, std::size_t depth) {
    const auto lengthHere = [depth](const KeyRow& row) {
        return std::min<std::size_t>(row.length, depth + kStep + 1);
    };
    std::sort(begin, end, [&](const KeyRow& left, const KeyRow& right) {
        if (left.start != right.start) return left.start < right.start;
        const std::size_t leftLength = lengthHere(left);
        const std::size_t rightLength = lengthHere(right);
        return leftLength != rightLength ? leftLength < rightLength : left.number < right.number;
    });

    const std::size_t next = depth + kStep;
    for (KeyRow* first = begin; first < end;) {
        KeyRow* last = std::find_if(first, end, [&](const KeyRow& row) {
            return row.start != first->start || lengthHere(row) != lengthHere(*first);
        });
        if (first->length > next && last - first > 1) {
            for (KeyRow* row = first; row != last; ++row)
                row->start = NumberAt(bytes.data() + row->offset + next, row->length - next);
            SortByKeys(first, last, bytes, next);
        }
        first = last;
    }
}

class PartSorter {
public:
    explicit PartSorter(const KeyPartMaker& makePart) : m_makePart(makePart) {}

    // Sorts rows, which stand in rising order, by the parts from `part` on.
    void Sort(std::uint32_t* begin, std::uint32_t* end, std::size_t part) {
        std::string bytes;
        std::vector<KeyRow> rows = MakeKeys(begin, end, part, bytes);
        SortByKeys(rows.data(), rows.data() + rows.size(), bytes, 0);
        std::transform(rows.begin(), rows.end(), begin,
                       [](const KeyRow& row) { return row.number; });

        const auto key = [&](const KeyRow& row) {
            return std::string_view(bytes).substr(row.offset, row.length);
        };
        for (std::size_t first = 0; first < rows.size();) {
            std::size_t last = first + 1;
            while (last < rows.size() && key(rows[last]) == key(rows[first])) ++last;
            if (last - first > 1 && rows[first].length != 0) {
                Sort(begin + first, begin + last, part + 1);
            }
            first = last;
        }
    }

private:
    std::vector<KeyRow> MakeKeys(const std::uint32_t* begin, const std::uint32_t* end,
                                 std::size_t part, std::string& bytes) {
        constexpr std::size_t kUsualKeyLength = 32;
        const auto count = static_cast<std::size_t>(end - begin);
        bytes.reserve(count * kUsualKeyLength);
        std::vector<KeyRow> rows;
        rows.reserve(count);
        for (const std::uint32_t* row = begin; row != end; ++row) {
            const std::size_t offset = bytes.size();
            m_makePart(*row, part, bytes);
            const std::size_t length = bytes.size() - offset;
            rows.push_back({NumberAt(bytes.data() + offset, length), offset,
                            static_cast<std::uint32_t>(length), *row});
        }
        return rows;
    }

    const KeyPartMaker& m_makePart;
};

}  // namespace

std::vector<std::uint32_t> KeySortedRows(std::size_t rows, const KeyPartMaker& makePart) {
    std::vector<std::uint32_t> order(rows);
    std::iota(order.begin(), order.end(), 0U);
    PartSorter(makePart).Sort(order.data(), order.data() + order.size(), 0);
    return order;
}

}  // namespace orvo
