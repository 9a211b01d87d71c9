// CObject: serialisable objects that can be created by the name of their class.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include <platform/Export.h>

namespace orvo {

class CArchive;
class CObject;

// What is known of a class: its name, the number of its archive form, how to make one, and its base
// class. Records of classes with a maker are found by name as long as they live; they are meant to
// be static.
struct ORVO_API CRuntimeClass {
    using Maker = std::unique_ptr<CObject> (*)();

    CRuntimeClass(const char* className, unsigned schema, Maker classMaker,
                  const CRuntimeClass* base);
    CRuntimeClass(const CRuntimeClass&) = delete;
    CRuntimeClass& operator=(const CRuntimeClass&) = delete;
    ~CRuntimeClass();

    const char* const name;
    const unsigned schemaNumber;
    const Maker maker;  // null for a class that can't be created by name
    const CRuntimeClass* const baseClass;

    // True where this class is `other` or derives from it.
    bool IsDerivedFrom(const CRuntimeClass& other) const;

    // The class of that name, or null.
    static const CRuntimeClass* Find(std::string_view name);

    // A new object of the class; null where it can't be created by name.
    std::unique_ptr<CObject> CreateObject() const;
};

class ORVO_API CObject {
public:
    static const CRuntimeClass classCObject;

    virtual ~CObject() = default;
    virtual const CRuntimeClass* GetRuntimeClass() const;

    // Writes the object to the archive or reads it from there; the base does nothing.
    virtual void Serialize(CArchive& archive);

    bool IsKindOf(const CRuntimeClass& runtimeClass) const;
};

}  // namespace orvo
