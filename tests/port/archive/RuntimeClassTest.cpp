// Runtime classes, the class list and the exception family.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

#include "ArchiveTestClasses.h"
#include "support/ArchiveRoundTrip.h"

TEST(RuntimeClass, CObjectIsTheRootAndNotSerializable) {
    const CRuntimeClass* pObject = RUNTIME_CLASS(CObject);
    EXPECT_STREQ(pObject->m_lpszClassName, "CObject");
    EXPECT_EQ(pObject->m_wSchema, 0xFFFFu);
    EXPECT_EQ(pObject->m_pBaseClass, nullptr);
    EXPECT_EQ(pObject->CreateObject(), nullptr);
    CDynamicOnly dynamicOnly;
    EXPECT_FALSE(dynamicOnly.IsSerializable());
    EXPECT_TRUE(dynamicOnly.IsKindOf(RUNTIME_CLASS(CObject)));
}

TEST(RuntimeClass, DerivationAndDowncasts) {
    EXPECT_TRUE(RUNTIME_CLASS(CLeaf)->IsDerivedFrom(RUNTIME_CLASS(CNode)));
    EXPECT_TRUE(RUNTIME_CLASS(CLeaf)->IsDerivedFrom(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(RUNTIME_CLASS(CNode)->IsDerivedFrom(RUNTIME_CLASS(CLeaf)));
    EXPECT_FALSE(RUNTIME_CLASS(COther)->IsDerivedFrom(RUNTIME_CLASS(CNode)));
    EXPECT_EQ(RUNTIME_CLASS(CNode)->m_nObjectSize, static_cast<int>(sizeof(CNode)));
    EXPECT_EQ(RUNTIME_CLASS(CVersioned)->m_wSchema, VERSIONABLE_SCHEMA | 3);

    CNode node;
    CLeaf leaf;
    CObject* pNode = &node;
    CObject* pLeaf = &leaf;
    EXPECT_TRUE(node.IsSerializable());
    EXPECT_EQ(DYNAMIC_DOWNCAST(CLeaf, pNode), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CLeaf, pLeaf), &leaf);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CNode, pLeaf), &leaf);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CNode, static_cast<CObject*>(nullptr)), nullptr);
    EXPECT_EQ(STATIC_DOWNCAST(CLeaf, pLeaf), &leaf);
}

TEST(RuntimeClass, ClassListByNameAndEnumeration) {
    EXPECT_EQ(CRuntimeClass::FromName("CNode"), RUNTIME_CLASS(CNode));
    EXPECT_EQ(CRuntimeClass::FromName(L"CLeaf"), RUNTIME_CLASS(CLeaf));
    EXPECT_EQ(CRuntimeClass::FromName("cnode"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("CNodeX"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName(static_cast<LPCSTR>(nullptr)), nullptr);

    std::unique_ptr<CObject> created(CRuntimeClass::CreateObject(L"CLeaf"));
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(created->GetRuntimeClass(), RUNTIME_CLASS(CLeaf));
    EXPECT_EQ(CRuntimeClass::CreateObject("CDynamicOnly"), nullptr);

    std::set<std::string> names;
    AfxDoForAllClasses(
        [](const CRuntimeClass* pClass, void* pContext) {
            static_cast<std::set<std::string>*>(pContext)->insert(pClass->m_lpszClassName);
        },
        &names);
    for (const char* name : {"CObject", "CNode", "CLeaf", "CVersioned", "CArchiveException",
                             "CFileException", "CFile", "CMemFile"})
        EXPECT_EQ(names.count(name), 1u) << name;
}

TEST(Exceptions, ThrownAsPointersWithTheirCauses) {
    try {
        AfxThrowArchiveException(CArchiveException::badSchema, L"/tmp/doc.orv");
    } catch (CException* e) {
        ASSERT_TRUE(e->IsKindOf(RUNTIME_CLASS(CArchiveException)));
        auto* pArchive = static_cast<CArchiveException*>(e);
        EXPECT_EQ(pArchive->m_cause, 7);
        EXPECT_EQ(pArchive->m_strFileName, L"/tmp/doc.orv");
        wchar_t text[6];
        UINT help = 99;
        EXPECT_TRUE(e->GetErrorMessage(text, 6, &help));
        EXPECT_EQ(std::wstring(text).size(), 5u);
        EXPECT_EQ(help, 0u);
        e->Delete();
    }
    try {
        AfxThrowFileException(CFileException::diskFull, 28, L"a.bin");
    } catch (CFileException* e) {
        EXPECT_EQ(e->m_cause, 13);
        EXPECT_EQ(e->m_lOsError, 28);
        e->Delete();
    }
    EXPECT_EQ(CFileException::ErrnoToException(ENOENT), CFileException::fileNotFound);
    EXPECT_EQ(CFileException::ErrnoToException(EACCES), CFileException::accessDenied);
    EXPECT_EQ(CFileException::ErrnoToException(ENOSPC), CFileException::diskFull);
}

TEST(Exceptions, OthersOfTheFamilyAndStackExceptions) {
    const auto kindOf = [](void (*thrower)()) -> const CRuntimeClass* {
        try {
            thrower();
        } catch (CException* e) {
            const CRuntimeClass* pClass = e->GetRuntimeClass();
            e->Delete();
            return pClass;
        }
        return nullptr;
    };
    EXPECT_EQ(kindOf(AfxThrowMemoryException), RUNTIME_CLASS(CMemoryException));
    EXPECT_EQ(kindOf(AfxThrowNotSupportedException), RUNTIME_CLASS(CNotSupportedException));
    EXPECT_EQ(kindOf(AfxThrowInvalidArgException), RUNTIME_CLASS(CInvalidArgException));
    EXPECT_EQ(kindOf(AfxThrowUserException), RUNTIME_CLASS(CUserException));

    // A user exception carries no message; one on the stack survives Delete.
    CUserException user;
    wchar_t text[4] = L"abc";
    EXPECT_FALSE(user.GetErrorMessage(text, 4));
    EXPECT_STREQ(text, L"");
    CException onStack(FALSE);
    onStack.Delete(); // would be an invalid free if it deleted
    EXPECT_TRUE(onStack.IsKindOf(RUNTIME_CLASS(CException)));
}
