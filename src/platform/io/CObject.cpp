// CObject: serialisable objects that can be created by the name of their class.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <vector>

#include <platform/io/CObject.h>

namespace orvo {
namespace {

// Inside a function, so that it stands before the first class of any file registers, and goes after
// the last one.
std::vector<const CRuntimeClass*>& Classes() {
    static std::vector<const CRuntimeClass*> classes;
    return classes;
}

}  // namespace

const CRuntimeClass CObject::classCObject("CObject", 0, nullptr, nullptr);

CRuntimeClass::CRuntimeClass(const char* className, unsigned schema, Maker classMaker,
                             const CRuntimeClass* base)
    : name(className), schemaNumber(schema), maker(classMaker), baseClass(base) {
    if (maker != nullptr) Classes().push_back(this);
}

CRuntimeClass::~CRuntimeClass() {
    if (maker != nullptr) std::erase(Classes(), this);
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass& other) const {
    const CRuntimeClass* ancestor = this;
    while (ancestor != nullptr && ancestor != &other) ancestor = ancestor->baseClass;
    return ancestor != nullptr;
}

const CRuntimeClass* CRuntimeClass::Find(std::string_view name) {
    const auto& classes = Classes();
    const auto found = std::find_if(classes.begin(), classes.end(),
                                    [&](const CRuntimeClass* each) { return each->name == name; });
    return found == classes.end() ? nullptr : *found;
}

std::unique_ptr<CObject> CRuntimeClass::CreateObject() const {
    return maker == nullptr ? nullptr : maker();
}

const CRuntimeClass* CObject::GetRuntimeClass() const {
    return &classCObject;
}

void CObject::Serialize(CArchive&) {}

bool CObject::IsKindOf(const CRuntimeClass& runtimeClass) const {
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

}  // namespace orvo
