// The categories of a table.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <contracts/Category.h>
#include <contracts/DefaultTexts.h>
#include <platform/io/CArchive.h>
#include <platform/io/CFile.h>
#include <platform/text/CodePage.h>
#include <platform/text/SystemText.h>

#include "CheckedText.h"

namespace orvo {

namespace {

constexpr CatError kFound = 0;
constexpr CatError kFailed = 1;

std::u16string Folded(std::string_view utf8) {
    std::u16string utf16;
    CodePage::Find(kUtf8CodePage)->ToUtf16(utf8, utf16);
    UErrorCode status = U_ZERO_ERROR;
    const auto length = static_cast<std::int32_t>(utf16.size());
    std::u16string folded(3 * utf16.size(), u'\0');  // no character folds to more than three
    folded.resize(static_cast<std::size_t>(
        u_strFoldCase(folded.data(), static_cast<std::int32_t>(folded.size()), utf16.data(), length,
                      U_FOLD_CASE_DEFAULT, &status)));
    return folded;
}

CatError Give(const std::unique_ptr<CCategory>& found, CCategory*& category) {
    category = found.get();
    return category != nullptr ? kFound : kFailed;
}

}  // namespace

// By character, as a page may lack some of them and the name is to stay what it is.
std::string_view CutCategoryName(std::string_view utf8) {
    const CodePage& unicode = *CodePage::Find(kUtf8CodePage);
    std::string inPage;
    std::size_t bytes = 0;
    std::size_t end = 0;
    while (end < utf8.size()) {
        const std::size_t length = unicode.CharacterLength(utf8.substr(end));
        CodePage::System().FromUtf8(utf8.substr(end, length), inPage);
        bytes += inPage.size();
        if (bytes > kCategoryNameLength) {
            break;
        }
        end += length;
    }
    return utf8.substr(0, end);
}

const CRuntimeClass CCategory::classCCategory(
    "CCategory", 1, [] { return std::unique_ptr<CObject>(std::make_unique<CCategory>()); },
    &CObject::classCObject);

const CRuntimeClass* CCategory::GetRuntimeClass() const {
    return &classCCategory;
}

void CCategory::Serialize(CArchive& archive) {
    CObject::Serialize(archive);
    if (archive.IsStoring()) {
        archive << SystemText(m_utf8) << m_index;
        return;
    }
    CString name;
    int index = -1;
    archive >> name >> index;
    if (index < -1 || index >= kCategoryCount) {
        throw CArchiveException(
            CArchiveException::badValue,
            "a category's index is " + std::to_string(index) + ", not a number from -1 to 15");
    }
    SetName(name);
    m_index = index;
}

CString& CCategory::GetName() {
    m_name = SystemText(ShownUtf8());
    return m_name;
}

void CCategory::SetName(const CString& name) {
    if (SystemText(ShownUtf8()) != name) {
        CodePage::System().ToUtf8(name.View(), m_utf8);
    }
}

std::string CCategory::ShownUtf8() const {
    return ShownText(StoreEngine::TextKind::Category, m_index, m_utf8);
}

int CCategoryMgr::GetCount() const {
    return static_cast<int>(
        std::count_if(m_categories.begin(), m_categories.end(),
                      [](const auto& category) { return category != nullptr; }));
}

CatError CCategoryMgr::FindIndex(int index, CCategory*& category) {
    if (index < 0 || index >= kCategoryCount) {
        category = nullptr;
        return kFailed;
    }
    return Give(m_categories[static_cast<std::size_t>(index)], category);
}

CatError CCategoryMgr::FindName(const CString& name, CCategory*& category) {
    std::string utf8;
    CodePage::System().ToUtf8(name.View(), utf8);
    return FindUtf8Name(utf8, category);
}

CatError CCategoryMgr::FindUtf8Name(std::string_view name, CCategory*& category) {
    category = nullptr;
    const std::u16string wanted = Folded(name);
    for (const bool isShown : {false, true}) {
        for (const auto& candidate : m_categories) {
            if (candidate &&
                Folded(isShown ? candidate->ShownUtf8() : candidate->Utf8()) == wanted) {
                return Give(candidate, category);
            }
        }
    }
    return kFailed;
}

CatError CCategoryMgr::FindFirst(CCategory*& category) {
    m_walk = 0;
    return FindNext(category);
}

CatError CCategoryMgr::FindNext(CCategory*& category) {
    while (m_walk < kCategoryCount) {
        if (FindIndex(m_walk++, category) == kFound) {
            return kFound;
        }
    }
    category = nullptr;
    return kFailed;
}

CatError CCategoryMgr::Add(CCategory* category) {
    if (category == nullptr || category->Utf8().empty() ||
        CutCategoryName(category->Utf8()) != category->Utf8()) {
        return kFailed;
    }
    int index = -1;
    const auto choose = [&] { return index = ChooseIndex(category->Utf8()); };
    const bool isKept = m_keeper ? m_keeper(category->Utf8(), choose) : choose() >= 0;
    if (!isKept) {
        return kFailed;
    }
    category->m_index = index;
    m_categories[static_cast<std::size_t>(index)].reset(category);
    if (m_taken) {
        m_taken();
    }
    return kFound;
}

void CCategoryMgr::Load(int index, std::string_view utf8) {
    if (index < 0 || index >= kCategoryCount) {
        return;
    }
    auto& category = m_categories[static_cast<std::size_t>(index)];
    if (!category) {
        category = std::make_unique<CCategory>();
        category->m_index = index;
    }
    category->SetNameUtf8(utf8);
}

void CCategoryMgr::Unload(int index) {
    if (index >= 0 && index < kCategoryCount) {
        m_categories[static_cast<std::size_t>(index)].reset();
    }
}

int CCategoryMgr::ChooseIndex(std::string_view utf8) {
    CCategory* namesake = nullptr;
    const auto free = std::find(m_categories.begin(), m_categories.end(), nullptr);
    const bool isTaken = FindUtf8Name(utf8, namesake) == kFound;
    return isTaken || free == m_categories.end() ? -1
                                                 : static_cast<int>(free - m_categories.begin());
}

}  // namespace orvo
