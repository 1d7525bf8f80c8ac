#pragma once

#include "MyDbExport.h"

class CObject;
class CArchive;
class CDumpContext;

/// The run-time class record of a class that derives from CObject.
struct MYDB_EXPORT CRuntimeClass
{
    const char* m_lpszClassName;
    int m_nObjectSize;
    unsigned int m_wSchema; ///< 0xFFFF: no serialisation
    CObject* (*m_pfnCreateObject)();
    CRuntimeClass* (*m_pfnGetBaseClass)(); ///< null for CObject

    bool IsDerivedFrom(const CRuntimeClass* baseClass) const noexcept;
};

/// The root of the classes with run-time class records.
class MYDB_EXPORT CObject
{
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    virtual void Serialize(CArchive& archive);
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext& context) const;

    bool IsKindOf(const CRuntimeClass* runtimeClass) const;
    static CRuntimeClass* GetThisClass();
    static const CRuntimeClass classCObject;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

#define DECLARE_DYNAMIC(class_name)                                                                                    \
public:                                                                                                                \
    static const CRuntimeClass class##class_name;                                                                      \
    static CRuntimeClass* GetThisClass();                                                                              \
    CRuntimeClass* GetRuntimeClass() const override;

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                                 \
    const CRuntimeClass class_name::class##class_name = {#class_name, int(sizeof(class_name)), 0xFFFF, nullptr,        \
                                                         &base_class_name::GetThisClass};                              \
    CRuntimeClass* class_name::GetThisClass() { return const_cast<CRuntimeClass*>(&class_name::class##class_name); }   \
    CRuntimeClass* class_name::GetRuntimeClass() const { return class_name::GetThisClass(); }

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())
