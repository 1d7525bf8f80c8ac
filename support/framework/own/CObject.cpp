#include "framework/CObject.h"

const CRuntimeClass CObject::classCObject = {"CObject", int(sizeof(CObject)), 0xFFFF, nullptr, nullptr};

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* baseClass) const noexcept
{
    const CRuntimeClass* current = this;
    while (current && current != baseClass)
        current = current->m_pfnGetBaseClass ? current->m_pfnGetBaseClass() : nullptr;
    return current != nullptr;
}

CObject::~CObject() = default;

CRuntimeClass* CObject::GetThisClass()
{
    return const_cast<CRuntimeClass*>(&classCObject);
}

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return GetThisClass();
}

bool CObject::IsKindOf(const CRuntimeClass* runtimeClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext&) const {}
