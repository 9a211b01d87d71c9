// The categories of a table.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include <platform/Export.h>
#include <platform/io/CObject.h>
#include <platform/text/CString.h>

namespace orvo {

// The result of the manager's operations; every value but 0 is a failure.
using CatError = int;

constexpr int kCategoryCount = 16;       // indexes 0 to 15
constexpr int kAllCategories = 16;       // a filter's value, never stored in a record
constexpr int kCategoryNameLength = 15;  // bytes of the system's code page

// The index of a record that nobody has put into a category. A new table holds it as its first
// category.
constexpr int kNoCategory = 0;
constexpr const char* kNoCategoryName = "Uncategorized";

// The start of a name that a category has room for: whole characters that take at most
// kCategoryNameLength bytes of the system's code page. Both are UTF-8.
// Returns:  the whole name where it fits.
// Owner:    the caller: the result lies in `utf8`.
ORVO_API std::string_view CutCategoryName(std::string_view utf8);

class ORVO_API CCategory : public CObject {
public:
    static const CRuntimeClass classCCategory;

    const CRuntimeClass* GetRuntimeClass() const override;
    // The stored name in the system's code page, then the index as an int.
    void Serialize(CArchive& archive) override;

    // The name that is shown, in the system's code page, made anew at each call. A category is
    // renamed by SetName.
    CString& GetName();
    // The text that GetName gives changes nothing, even where the page lacks characters of the
    // name.
    void SetName(const CString& name);
    // The name that is shown: for the category of a new store that of the user's language.
    std::string ShownUtf8() const;
    // The name that is stored, for files and other programs.
    const std::string& Utf8() const { return m_utf8; }
    void SetNameUtf8(std::string_view name) { m_utf8 = name; }
    int GetIndex() const { return m_index; }

private:
    friend class CCategoryMgr;

    std::string m_utf8;
    CString m_name;    // what GetName gave last
    int m_index = -1;  // -1 until a manager has taken it
};

// Holds at most 16 categories, each at an index that a record stores. Owned by its table.
class ORVO_API CCategoryMgr {
public:
    // The lowest free index where the manager can take the name now; else -1.
    using Choose = std::function<int()>;
    // Called by Add: stores the name at the index that `choose` returns once all that others have
    // stored is loaded. A false result ends the Add.
    using Keeper = std::function<bool(const std::string& utf8, const Choose& choose)>;
    // Called when the manager has taken a category.
    using Listener = std::function<void()>;

    explicit CCategoryMgr(Keeper keeper = nullptr, Listener taken = nullptr)
        : m_keeper(std::move(keeper)), m_taken(std::move(taken)) {}

    int GetCount() const;

    // Each sets the pointer to the category, or to null where there is none. Names match by their
    // case folding, the stored ones before those that are shown. FindFirst and FindNext walk by
    // rising index; the pointer is null after the last one.
    // Returns:  0 when found.
    // Owner:    the manager.
    CatError FindIndex(int index, CCategory*& category);
    CatError FindName(const CString& name, CCategory*& category);
    CatError FindUtf8Name(std::string_view name, CCategory*& category);
    CatError FindFirst(CCategory*& category);
    CatError FindNext(CCategory*& category);

    // Returns:  0 when the manager has taken the category and given it the lowest free index.
    // Owner:    the manager on success, else still the caller.
    // Fails:    for null, where 16 categories stand, where the name is empty, too long or taken,
    //           and where it can't be stored. A name that another process has taken since is found
    //           then.
    CatError Add(CCategory* category);

    // Puts a category that is stored already at its index. One that stands there keeps its object
    // and takes the name. An index outside 0 to 15 is passed over.
    void Load(int index, std::string_view utf8);
    // Drops the category of that index, which isn't stored any more; pointers to it end with it.
    void Unload(int index);

private:
    int ChooseIndex(std::string_view utf8);

    Keeper m_keeper;
    Listener m_taken;
    std::array<std::unique_ptr<CCategory>, kCategoryCount> m_categories;
    int m_walk = 0;  // the index from which FindNext goes on
};

}  // namespace orvo
