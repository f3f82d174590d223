// The node's archive: the exact bytes of schema 8, hand-made files of older schemas with the
// defaults they imply, the repairs on load, and the guarded references on storing.
#include <gtest/gtest.h>

#include <memory>

#include "ActiveDocumentTest.h"
#include "objects/OrvSerializeStatus.h"
#include "support/ArchiveBytes.h"
#include "support/ArchiveRoundTrip.h"

namespace {

class NodeArchive : public ActiveDocumentTest {
protected:
    // Loads `count` objects written one after the other at the top of the archive.
    std::vector<OrvObject*> Load(const ArchiveBytes& bytes, int count, std::size_t* left) {
        std::vector<OrvObject*> loaded;
        *left = LoadBytes(bytes.bytes(), [&](CArchive& ar) {
            for (int i = 0; i < count; ++i) {
                OrvObject* node = nullptr;
                ar >> node;
                loaded.push_back(node);
            }
        });
        for (OrvObject* node : loaded)
            m_loaded.emplace_back(node);
        return loaded;
    }

    // One object, read whole.
    OrvObject* LoadOne(const ArchiveBytes& bytes) {
        std::size_t left = 1;
        OrvObject* node = Load(bytes, 1, &left)[0];
        EXPECT_EQ(left, 0u);
        return node;
    }

    // The cause of the archive exception that loading one object ends in.
    int LoadOneCause(const ArchiveBytes& bytes) {
        std::size_t left = 0;
        return ArchiveCause([&] { Load(bytes, 1, &left); });
    }

    // The start of an object of class OrvObject written first in a file of the given schema:
    // its class, its own tag (a reference to that class) and the base part's new class.
    static ArchiveBytes& FirstNode(ArchiveBytes& b, std::uint16_t schema) {
        return b.NewClass("OrvObject", schema).ClassRef(1).NewClass("OrvBaseObject", 2);
    }

    std::vector<std::unique_ptr<OrvObject>> m_loaded;
};

TEST_F(NodeArchive, SchemaEightBytes) {
    OrvObject node;
    node.ChangeName(L"Probe");
    m_document.m_LastId = 41;
    node.GetObjectId(); // 42
    node.SetState(OrvObject::LOCKED);
    node.SetNodeStatus(0x0006, 1);
    node.SetDisplayColor(0x00FF8040);
    node.SetRegNameForAutoIndexing(L"N");
    node.SetTimeTakenForGTP(L"not stored");
    node.SetCompareResult(COMPLETE_MATCH); // not stored either

    const std::vector<std::uint8_t> expected = {
        0xFF, 0xFF, 0x08, 0x00, 0x09, 0x00, 'O', 'r', 'v', 'O', 'b', 'j', 'e', 'c', 't', // class
        0x01, 0x80, // OrvObject's own tag
        0xFF, 0xFF, 0x02, 0x00, 0x0D, 0x00, 'O', 'r', 'v', 'B', 'a', 's', 'e', 'O', 'b',
        'j',  'e',  'c',  't', // OrvBaseObject's tag
        0x00, 0x00,            // no users
        0xFF, 0xFE, 0xFF, 0x05, 'P',  0,    'r', 0,   'o', 0,   'b', 0,   'e', 0, // label
        0xFF, 0xFE, 0xFF, 0x00,                                                   // created by
        0xFF, 0xFE, 0xFF, 0x00,                                                   // date created
        0xFF, 0xFE, 0xFF, 0x00,                                                   // last modified
        0x2A, 0x00, 0x00, 0x00,                                                   // id 42
        0x03, 0x00, 0x00, 0x00,                                                   // LOCKED
        0x00, 0x00,                                                               // no owner
        0xFF, 0xFE, 0xFF, 0x00,          // last modified by
        0x06, 0x00,                      // status
        0x00, 0x00,                      // no original owner
        0x40, 0x80, 0xFF, 0x00,          // colour
        0x00, 0x00,                      // no pattern
        0xFF, 0xFE, 0xFF, 0x01, 'N',  0, // registered name
    };
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { ar << static_cast<CObject*>(&node); }), expected);
}

TEST_F(NodeArchive, UsersAndOwnerAreObjectReferences) {
    OrvObject owner, child;
    child.SetOwner(&owner);
    owner.AddToUserObjectsList(&child, 0);
    ArchiveBytes b;
    FirstNode(b, 8).Count(1);              // owner (object 2) with one user...
    b.ClassRef(1).ClassRef(1).ClassRef(3); // ... the child, written in full (object 4)
    b.Count(0).String(L"").String(L"").String(L"").String(L"").Dword(0).Int(0);
    b.ObjectRef(2); // its owner: back to object 2
    b.String(L"").Word(0).ObjectRef(0).Dword(0xFFFFFFFF).ObjectRef(0).String(L"");
    b.String(L"").String(L"").String(L"").String(L"").Dword(0).Int(0); // the owner's fields
    b.ObjectRef(0).String(L"").Word(0).ObjectRef(0).Dword(0xFFFFFFFF).ObjectRef(0).String(L"");
    b.ObjectRef(4); // the child again: a reference
    EXPECT_EQ(StoreBytes([&](CArchive& ar) {
                  ar << static_cast<CObject*>(&owner) << static_cast<CObject*>(&child);
              }),
              b.bytes());
    owner.RemoveFromUserObjectsList(&child);

    std::size_t left = 1;
    auto loaded = Load(b, 2, &left);
    EXPECT_EQ(left, 0u);
    EXPECT_EQ(loaded[1]->GetOwner(), loaded[0]);
    EXPECT_EQ(loaded[0]->GetCountOfUserObjects(), 1);
    EXPECT_EQ(loaded[0]->GetIsUsingThisObject(loaded[1]), 1);
    loaded[0]->RemoveFromUserObjectsList(loaded[1]);
}

TEST_F(NodeArchive, SchemaTwoDefaults) {
    ArchiveBytes b;
    FirstNode(b, 2).Count(0).String(L"Old").String(L"ann").String(L"01/02/2003").String(L"m");
    b.Dword(7).Int(1).ObjectRef(0);
    OrvObject* node = LoadOne(b);
    EXPECT_EQ(node->Name(), CString(L"Old"));
    EXPECT_EQ(node->GetCreatedBy(), CString(L"ann"));
    EXPECT_EQ(node->GetDateCreated(), CString(L"01/02/2003"));
    EXPECT_EQ(node->GetLastModified(), CString(L"m"));
    EXPECT_EQ(node->GetLastModifiedBy(), CString(L"ann"));
    EXPECT_EQ(node->GetObjectId(), 7u);
    EXPECT_EQ(node->GetState(), OrvObject::SUPPRESSED);
    EXPECT_EQ(node->GetNodeStatus(0xFFFF), 0);
    EXPECT_EQ(node->GetOriginalOwner(), nullptr);
    EXPECT_EQ(node->GetDisplayColor(), 0xFFFFFFFFu);
    EXPECT_EQ(node->GetIsPatterned(), 0);
    EXPECT_EQ(node->GetRegNameForAutoIndexing(), CString(L"OrvObject"));
}

TEST_F(NodeArchive, SchemaThreeReadsLastModifiedBy) {
    ArchiveBytes b;
    FirstNode(b, 3).Count(0).String(L"").String(L"ann").String(L"").String(L"");
    b.Dword(0).Int(0).ObjectRef(0).String(L"carl");
    OrvObject* node = LoadOne(b);
    EXPECT_EQ(node->GetLastModifiedBy(), CString(L"carl"));
    EXPECT_EQ(node->GetNodeStatus(0xFFFF), 0);
}

TEST_F(NodeArchive, SchemaOneHasNoUserList) {
    ArchiveBytes b;
    FirstNode(b, 1).String(L"First").String(L"").String(L"").String(L"").Dword(3).Int(0);
    b.ObjectRef(0);
    OrvObject* node = LoadOne(b);
    EXPECT_EQ(node->Name(), CString(L"First"));
}

// Schema 5: an owner, a node recycled from it and still under it, and a node recycled from it
// that has moved elsewhere and whose owner does not list it.
TEST_F(NodeArchive, SchemaFiveRepairsTheOriginalOwnerLinks) {
    ArchiveBytes b;
    FirstNode(b, 5).Count(0).String(L"Owner").String(L"").String(L"").String(L"");
    b.Dword(1).Int(0).ObjectRef(0).String(L"").Word(0x0002).ObjectRef(0); // object 2
    b.ClassRef(1).ClassRef(1).ClassRef(3).Count(0);                       // object 4
    b.String(L"Stays").String(L"").String(L"").String(L"").Dword(2).Int(2);
    b.ObjectRef(2).String(L"").Word(0).ObjectRef(2); // owner and original owner: the same
    b.ClassRef(1).ClassRef(1).ClassRef(3).Count(0);  // object 5
    b.String(L"Moved").String(L"").String(L"").String(L"").Dword(3).Int(2);
    b.ObjectRef(0).String(L"").Word(0).ObjectRef(2); // recycled from object 2, now elsewhere
    std::size_t left = 1;
    auto loaded = Load(b, 3, &left);
    EXPECT_EQ(left, 0u);
    OrvObject* owner = loaded[0];
    EXPECT_EQ(owner->GetNodeStatus(0x0002), 0x0002);
    EXPECT_EQ(loaded[1]->GetOriginalOwner(), nullptr);
    EXPECT_EQ(loaded[1]->GetState(), OrvObject::DELETED);
    EXPECT_EQ(loaded[2]->GetOriginalOwner(), owner);
    EXPECT_EQ(owner->GetCountOfUserObjects(), 1);
    EXPECT_EQ(owner->GetIsUsingThisObject(loaded[2]), 1);
    EXPECT_EQ(owner->GetIsUsingThisObject(loaded[1]), 0);
    EXPECT_EQ(loaded[2]->GetDisplayColor(), 0xFFFFFFFFu);
    owner->RemoveFromUserObjectsList(loaded[2]);
}

TEST_F(NodeArchive, SchemaSevenTakesTheRegisteredNameFromTheClass) {
    ArchiveBytes b;
    // Each level of the class chain opens with its own new class.
    b.NewClass("DocFolder", 1).ClassRef(1).NewClass("DocNode", 1).NewClass("OrvObject", 7);
    b.NewClass("OrvBaseObject", 2).Count(0);
    b.String(L"F").String(L"").String(L"").String(L"").Dword(9).Int(0).ObjectRef(0);
    b.String(L"").Word(0).ObjectRef(0).Dword(0x000000FF).ObjectRef(0);
    b.NewClass("CFlaggedError", 2).Int(1).Int(0); // the folder's flag
    OrvObject* node = LoadOne(b);
    EXPECT_EQ(node->GetClassNameW(), CString(L"DocFolder"));
    EXPECT_EQ(node->GetDisplayColor(), 0x000000FFu);
    EXPECT_EQ(node->GetRegNameForAutoIndexing(), CString(L"DocFolder"));
    ASSERT_NE(node->GetFlag(), nullptr);
    EXPECT_EQ(node->GetFlag()->GetFlag(), 1);
    EXPECT_EQ(node->GetFlag()->GetFlagErrorType(), NORMAL);
}

TEST_F(NodeArchive, PatternReferenceWithoutPatternClassesIsRefused) {
    ArchiveBytes b;
    FirstNode(b, 8).Count(0).String(L"").String(L"").String(L"").String(L"").Dword(0).Int(0);
    b.ObjectRef(0).String(L"").Word(0).ObjectRef(0).Dword(0).ObjectRef(2).String(L"");
    EXPECT_EQ(LoadOneCause(b), CArchiveException::badClass);
}

TEST_F(NodeArchive, DamagedUserListIsAGenericArchiveException) {
    ArchiveBytes b;
    FirstNode(b, 8).Count(2).ObjectRef(2).ObjectRef(9); // index 9 does not exist
    EXPECT_EQ(LoadOneCause(b), CArchiveException::genericException);
}

TEST_F(NodeArchive, LoadedDuplicatesAreRemovedInOrder) {
    ArchiveBytes b;
    FirstNode(b, 8).Count(3).ObjectRef(2).ObjectRef(2).ObjectRef(0); // itself twice, then null
    b.String(L"").String(L"").String(L"").String(L"").Dword(0).Int(0).ObjectRef(0);
    b.String(L"").Word(0).ObjectRef(0).Dword(0).ObjectRef(0).String(L"");
    OrvObject* node = LoadOne(b);
    EXPECT_EQ(node->GetCountOfUserObjects(), 3);
    node->RemoveDuplicatesFromUserObjects();
    EXPECT_EQ(node->GetCountOfUserObjects(), 2);
    CObList users;
    node->GetAllUserObjects(&users);
    EXPECT_EQ(users.GetHead(), node);
    EXPECT_EQ(users.GetTail(), nullptr);
    node->RemoveFromUserObjectsList(node);
    node->RemoveFromUserObjectsList(nullptr);
}

// A node of a class that the archive cannot write: writing a reference to it raises.
class UnstorableNode : public OrvObject {
    DECLARE_DYNAMIC(UnstorableNode)
};
IMPLEMENT_DYNAMIC(UnstorableNode, OrvObject)

TEST_F(NodeArchive, ReferenceThatCannotBeWrittenIsLoggedAndWrittenNull) {
    UnstorableNode broken;
    OrvObject node;
    node.ChangeName(L"Kept");
    node.SetOwner(&broken);
    node.Recycle(); // the original owner is the broken node too
    InitialiseSerializationStatus(0);
    const auto bytes = StoreBytes([&](CArchive& ar) { ar << static_cast<CObject*>(&node) << 5; });
    EXPECT_EQ(GetSerializationStatus(), 0x9001u);
    EXPECT_EQ(GetErrorLocation(), 0x1000u);
    broken.RemoveFromUserObjectsList(&node);

    OrvObject* loaded = nullptr;
    int after = 0;
    EXPECT_EQ(LoadBytes(bytes, [&](CArchive& ar) { ar >> loaded >> after; }), 0u);
    std::unique_ptr<OrvObject> owned(loaded);
    EXPECT_EQ(after, 5);
    EXPECT_EQ(loaded->Name(), CString(L"Kept"));
    EXPECT_EQ(loaded->GetOwner(), nullptr);
    EXPECT_EQ(loaded->GetOriginalOwner(), nullptr);
    EXPECT_EQ(loaded->GetState(), OrvObject::DELETED);
}

} // namespace
