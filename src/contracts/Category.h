// The categories of a table.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <memory>

#include <platform/Export.h>
#include <platform/io/CObject.h>
#include <platform/text/CString.h>

namespace orvo {

// The result of the manager's operations; every value but 0 is a failure.
using CatError = int;

constexpr int kCategoryCount = 16;       // indexes 0 to 15
constexpr int kAllCategories = 16;       // a filter's value, never stored in a record
constexpr int kCategoryNameLength = 15;  // bytes in the system's code page

// The index of a record that nobody has put into a category. A new table holds it as its first
// category.
constexpr int kNoCategory = 0;
constexpr const char* kNoCategoryName = "Uncategorized";

class ORVO_API CCategory : public CObject {
public:
    static const CRuntimeClass classCCategory;

    const CRuntimeClass* GetRuntimeClass() const override;
    // The name, then the index as an int.
    void Serialize(CArchive& archive) override;

    CString& GetName() { return m_name; }
    void SetName(const CString& name) { m_name = name; }
    int GetIndex() const { return m_index; }

private:
    friend class CCategoryMgr;

    CString m_name;
    int m_index = -1;  // -1 until a manager has taken it
};

// Holds at most 16 categories, each at an index that a record stores. Owned by its table.
class ORVO_API CCategoryMgr {
public:
    // Called after Add with the index and the name, so that the table can store it. A false result
    // undoes the Add.
    using Keeper = std::function<bool(int index, const CString& name)>;

    explicit CCategoryMgr(Keeper keeper = nullptr) : m_keeper(std::move(keeper)) {}

    int GetCount() const;

    // Each sets the pointer to the category, which the manager keeps, or to null where there is
    // none. Names match by their case folding. FindFirst and FindNext walk by rising index; the
    // pointer is null after the last one.
    // Gives:  0 when found.
    CatError FindIndex(int index, CCategory*& category);
    CatError FindName(const CString& name, CCategory*& category);
    CatError FindFirst(CCategory*& category);
    CatError FindNext(CCategory*& category);

    // Gives:  0: the manager has taken the category and given it the lowest free index. Else the
    //         caller still owns it.
    // Fails:  for null, where 16 categories stand, where the name is empty or taken, and where it
    //         can't be stored.
    CatError Add(CCategory* category);

    // Puts a category that is stored already at its index. One that stands there keeps its object
    // and takes the name. An index outside 0 to 15 is passed over.
    void Load(int index, const CString& name);

private:
    Keeper m_keeper;
    std::array<std::unique_ptr<CCategory>, kCategoryCount> m_categories;
    int m_walk = 0;  // the index from which FindNext goes on
};

}  // namespace orvo
