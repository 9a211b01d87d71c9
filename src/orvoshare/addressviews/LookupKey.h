// The key of a record, and the typed text of a lookup held against the start of many keys.
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

#include <contracts/RecordStore.h>
#include <platform/Export.h>
#include <platform/text/Collation.h>

namespace orvo {

// Whether a key is made from the names alone or takes their readings first.
enum class KeyFields { Plain, Reading };

// What becomes of a character that the cut to the typed length would split: it goes, or stays
// whole, as with LeftAndValidateDec and LeftAndValidateInc.
enum class KeyCut { Dec, Inc };

// How wide a comparison is: what the typed text may differ in and still be found.
enum class KeyMatch : unsigned {
    CaseAndAccents = SORT_STRINGSORT | NORM_IGNORECASE | NORM_IGNORENONSPACE,
    Case = SORT_STRINGSORT | NORM_IGNORECASE
};

// The fields of which the system's code page makes keys: on 932 the readings go first.
ORVO_API KeyFields SystemKeyFields();

// Sets `key` to the name of the record as the listing order has it, in list form.
// Returns:  an empty key for a record with no name and no company, and for null.
ORVO_API void MakeRecordKey(const CAddressRecord* record, KeyFields fields, long listBy,
                            CString& key);

// Brings the names of records near before they are compared one after the other: in a long list
// each would be waited for otherwise.
// Requires: records or null.
ORVO_API void FetchAhead(std::span<const CAddressRecord* const> records);

// One text that was typed, for one lookup, while the system's locale stays as it is.
class ORVO_API LookupKey {
public:
    LookupKey(CString typed, long listBy, KeyMatch match);

    // True for a text with which every key begins.
    bool IsEmpty() const { return m_typed.IsEmpty(); }

    // True for a text that is longer than any key can be, so that it needn't be held against one.
    bool IsLongerThanAnyKey() const;

    // Compares the typed text with the record's key, both folded by ToFullwidthAndHira, the key
    // then cut to the length of the typed text: to its bytes, or under UTF-8, where letters that
    // match may differ in bytes, to its characters. No more of the key is made than that takes.
    // Returns:  as CompareStringA, less CSTR_EQUAL, with the typed text first.
    int Compare(const CAddressRecord* record, KeyFields fields, KeyCut cut);

private:
    // The parts that FullName joins, as they are stored.
    struct Parts {
        std::string_view main;
        std::string_view second;
    };

    Parts PartsOf(const CAddressRecord& record, KeyFields fields) const;
    bool IsLiteral(const Parts& parts) const;
    void TakeStart(const Parts& parts);
    bool CompareAsAscii(int& result) const;
    void CutItem(KeyCut cut);
    int CompareItem(KeyCut cut);

    CString m_typed;  // folded
    int m_typedCharacters = 0;
    long m_listBy;
    unsigned m_flags;
    const AsciiWeights* m_weights = nullptr;  // where the typed text is ASCII
    bool m_hasSeparator;
    std::string m_separator;

    std::string m_start;  // of the key, UTF-8, and no shorter than the cut
    CString m_item;
    // What was compared last: neighbours in a list often start alike.
    CString m_last;
    int m_lastResult = 0;
};

}  // namespace orvo
