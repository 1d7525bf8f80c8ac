#pragma once

#if defined(MYDB_WITH_MFC)
#include "framework/Mfc.h"
#else

#include "MyDbExport.h"

class CObject;
class CArchive;
class CDumpContext;

/// The run-time class record of a class that derives from CObject. One static record per class; records are compared
/// by address and live as long as the program.
struct MYDB_EXPORT CRuntimeClass
{
    const char* m_lpszClassName;           ///< the class name as the source spells it
    int m_nObjectSize;                     ///< sizeof of the class
    unsigned int m_wSchema;                ///< 0xFFFF: no serialisation
    CObject* (*m_pfnCreateObject)();       ///< null: objects cannot be made from the record
    CRuntimeClass* (*m_pfnGetBaseClass)(); ///< null for CObject

    /// True when `baseClass` is this record or that of a base class. False for null.
    bool IsDerivedFrom(const CRuntimeClass* baseClass) const noexcept;
};

/// The root of the classes with run-time class records. Its virtual operations come first, in this order, in every
/// class that derives from it.
class MYDB_EXPORT CObject
{
public:
    /// The record of the object's own class, never null. Not owned by the caller.
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    /// Hooks of the framework that a derived class may override; here they do nothing.
    virtual void Serialize(CArchive& archive);
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext& context) const;

    /// True when the object's class is the one of the record or derives from it. False for null.
    bool IsKindOf(const CRuntimeClass* runtimeClass) const;
    /// The record of CObject itself.
    static CRuntimeClass* GetThisClass();
    static const CRuntimeClass classCObject;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

/// In the class body: declares the class record, `GetThisClass` and `GetRuntimeClass`. Public access follows.
#define DECLARE_DYNAMIC(class_name)                                                                                    \
public:                                                                                                                \
    static const CRuntimeClass class##class_name;                                                                      \
    static CRuntimeClass* GetThisClass();                                                                              \
    CRuntimeClass* GetRuntimeClass() const override;

/// In one source file: defines what DECLARE_DYNAMIC declared.
#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                                 \
    const CRuntimeClass class_name::class##class_name = {#class_name, int(sizeof(class_name)), 0xFFFF, nullptr,        \
                                                         &base_class_name::GetThisClass};                              \
    CRuntimeClass* class_name::GetThisClass()                                                                          \
    {                                                                                                                  \
        return const_cast<CRuntimeClass*>(&class_name::class##class_name);                                             \
    }                                                                                                                  \
    CRuntimeClass* class_name::GetRuntimeClass() const                                                                 \
    {                                                                                                                  \
        return class_name::GetThisClass();                                                                             \
    }

/// The record of a class.
#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#endif
