// A document written by MFC itself (an ANSI build) loads to its last byte, and storing the loaded
// tree with 8-bit strings gives the same bytes back.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

#include "ArchiveTestSupport.h"

namespace {

class CServerNode : public CObject {
    DECLARE_SERIAL(CServerNode)
public:
    void Serialize(CArchive& ar) override;
    int CountNodes() const {
        int n = 1;
        for (const auto& child : m_children)
            n += child->CountNodes();
        return n;
    }

    WORD m_shape = 0;
    CString m_key;
    CString m_description;
    WORD m_hideChildren = 0;
    std::vector<std::unique_ptr<CServerNode>> m_children;
};
IMPLEMENT_SERIAL(CServerNode, CObject, 0)

void CServerNode::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        // An ANSI build writes 8-bit strings.
        ar << m_shape << CStringA(m_key) << CStringA(m_description) << m_hideChildren;
        ar.WriteCount(m_children.size());
        for (const auto& child : m_children)
            ar << child.get();
        return;
    }
    ar >> m_shape >> m_key >> m_description >> m_hideChildren;
    const DWORD_PTR count = ar.ReadCount();
    for (DWORD_PTR i = 0; i < count; ++i) {
        CServerNode* child = nullptr;
        ar >> child;
        m_children.emplace_back(child);
    }
}

Bytes ReadDocument() {
    std::ifstream in(ORV_SOURCE_DIR "/tests/port/archive/data/mfcclass.hie", std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace

TEST(MfcDocument, HierarchySampleLoadsToItsLastByteAndStoresBackIdentically) {
    const Bytes original = ReadDocument();
    ASSERT_EQ(original.size(), 2942u);

    BYTE logFont[28];
    CString face;
    DWORD colour = 0;
    CServerNode root;
    CMemFile file;
    file.Write(original.data(), static_cast<UINT>(original.size()));
    file.SeekToBegin();
    {
        CArchive ar(&file, CArchive::load);
        EXPECT_EQ(ar.Read(logFont, sizeof logFont), sizeof logFont);
        ar >> face >> colour;
        root.Serialize(ar);
        ar.Close();
    }
    EXPECT_EQ(file.GetPosition(), original.size());
    EXPECT_EQ(face, L"Arial");
    EXPECT_EQ(colour, 9u);
    EXPECT_EQ(root.m_description, L"MFC Class Hierarchy");
    EXPECT_EQ(root.m_key, L"%ROOT%");
    ASSERT_EQ(root.m_children.size(), 26u);
    EXPECT_EQ(root.m_children[0]->m_description, L"CArchive");
    EXPECT_EQ(root.m_children[1]->m_description, L"CArray");
    EXPECT_EQ(root.CountNodes(), 137);

    const Bytes stored = Stored([&](CArchive& ar) {
        ar.Write(logFont, sizeof logFont);
        ar << CStringA(face) << colour;
        root.Serialize(ar);
    });
    EXPECT_EQ(stored, original);
}
