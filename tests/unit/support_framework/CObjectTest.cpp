#include "framework/CObject.h"

#include <gtest/gtest.h>

namespace {

class Animal : public CObject
{
    DECLARE_DYNAMIC(Animal)
};
class Dog : public Animal
{
    DECLARE_DYNAMIC(Dog)
public:
    int m_age = 0;
};
class Stone : public CObject
{
    DECLARE_DYNAMIC(Stone)
};
class Unrecorded : public Dog
{
};

IMPLEMENT_DYNAMIC(Animal, CObject)
IMPLEMENT_DYNAMIC(Dog, Animal)
IMPLEMENT_DYNAMIC(Stone, CObject)

TEST(CRuntimeClass, TellsNameSizeAndSchema)
{
    const CRuntimeClass* const record = RUNTIME_CLASS(Dog);
    EXPECT_STREQ(record->m_lpszClassName, "Dog");
    EXPECT_EQ(record->m_nObjectSize, int(sizeof(Dog)));
    EXPECT_EQ(record->m_wSchema, 0xFFFFu);
    EXPECT_EQ(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(Animal));
}

TEST(CRuntimeClass, EndsAtCObject)
{
    const CRuntimeClass* const record = CObject::GetThisClass();
    EXPECT_STREQ(record->m_lpszClassName, "CObject");
    EXPECT_EQ(record->m_pfnGetBaseClass, nullptr);
    EXPECT_EQ(record, &CObject::classCObject);
}

TEST(CRuntimeClass, DerivesFromItselfAndEveryBase)
{
    EXPECT_TRUE(RUNTIME_CLASS(Dog)->IsDerivedFrom(RUNTIME_CLASS(Dog)));
    EXPECT_TRUE(RUNTIME_CLASS(Dog)->IsDerivedFrom(RUNTIME_CLASS(Animal)));
    EXPECT_TRUE(RUNTIME_CLASS(Dog)->IsDerivedFrom(RUNTIME_CLASS(CObject)));
}

TEST(CRuntimeClass, DoesNotDeriveFromOthersOrNothing)
{
    EXPECT_FALSE(RUNTIME_CLASS(Animal)->IsDerivedFrom(RUNTIME_CLASS(Dog)));
    EXPECT_FALSE(RUNTIME_CLASS(Dog)->IsDerivedFrom(RUNTIME_CLASS(Stone)));
    EXPECT_FALSE(RUNTIME_CLASS(CObject)->IsDerivedFrom(RUNTIME_CLASS(Dog)));
    EXPECT_FALSE(RUNTIME_CLASS(Dog)->IsDerivedFrom(nullptr));
}

TEST(CObject, IsKindOfItsClassThroughABaseReference)
{
    const Dog dog;
    const CObject& object = dog;
    EXPECT_EQ(object.GetRuntimeClass(), RUNTIME_CLASS(Dog));
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(Dog)));
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(Animal)));
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(object.IsKindOf(RUNTIME_CLASS(Stone)));
    EXPECT_FALSE(object.IsKindOf(nullptr));
}

TEST(CObject, DiffersByClass)
{
    EXPECT_NE(Stone().GetRuntimeClass(), Dog().GetRuntimeClass());
}

TEST(CObject, WithoutAnOwnRecordAnswersWithItsBase)
{
    const Unrecorded object;
    EXPECT_EQ(object.GetRuntimeClass(), RUNTIME_CLASS(Dog));
}

TEST(CObject, HooksDoNothing)
{
    class Plain : public CObject
    {
    };
    Plain object;
    object.AssertValid();
    object.Serialize(reinterpret_cast<CArchive&>(object));
    object.Dump(reinterpret_cast<CDumpContext&>(object));
    EXPECT_EQ(object.GetRuntimeClass(), RUNTIME_CLASS(CObject));
}

} // namespace
