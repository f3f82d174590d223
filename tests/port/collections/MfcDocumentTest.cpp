// Documents written by MFC itself (see tests/data/mfc/README.md): a HIERSVR tree and the
// ambient properties of a TSTCON script, loaded to the last byte and stored back unchanged.
#include <array>
#include <fstream>
#include <iterator>
#include <string>

#include <afx.h>
#include <gtest/gtest.h>

#include "CompoundFileReader.h"
#include "support/ArchiveBytes.h"
#include "support/ArchiveRoundTrip.h"

namespace {

Bytes ReadDataFile(const char* name) {
    std::ifstream in(std::string(ORV_SOURCE_DIR "/tests/data/mfc/") + name, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace

// HIERSVR's node, from an ANSI build: 8-bit strings, children in a CObList that it owns.
class CServerNode : public CObject {
    DECLARE_SERIAL(CServerNode)
public:
    CServerNode() = default;
    ~CServerNode() override {
        for (POSITION pos = m_children.GetHeadPosition(); pos;)
            delete m_children.GetNext(pos);
    }
    void Serialize(CArchive& ar) override {
        if (ar.IsStoring())
            ar << m_shape << m_key << m_description << m_hideChildren;
        else
            ar >> m_shape >> m_key >> m_description >> m_hideChildren;
        m_children.Serialize(ar);
    }
    int CountTree() const {
        int count = 1;
        for (POSITION pos = m_children.GetHeadPosition(); pos;)
            count += static_cast<const CServerNode*>(m_children.GetNext(pos))->CountTree();
        return count;
    }
    const CServerNode* Child(INT_PTR index) const {
        POSITION pos = m_children.FindIndex(index);
        return pos ? static_cast<const CServerNode*>(m_children.GetAt(pos)) : nullptr;
    }

    WORD m_shape = 0;
    CStringA m_key;
    CStringA m_description;
    WORD m_hideChildren = 0;
    CObList m_children;
};
IMPLEMENT_SERIAL(CServerNode, CObject, 0)

namespace {

// The document: the first 28 bytes of a LOGFONT field by field, the face name, the text colour,
// then the root node's own Serialize.
struct HierDocument {
    LONG height = 0, width = 0, escapement = 0, orientation = 0, weight = 0;
    std::array<BYTE, 8> flags{}; // italic ... pitch-and-family
    CStringA face;
    DWORD colour = 0;
    CServerNode root;

    void Serialize(CArchive& ar) {
        if (ar.IsStoring()) {
            ar << height << width << escapement << orientation << weight;
            for (BYTE b : flags)
                ar << b;
            ar << face << colour;
        } else {
            ar >> height >> width >> escapement >> orientation >> weight;
            for (BYTE& b : flags)
                ar >> b;
            ar >> face >> colour;
        }
        root.Serialize(ar);
    }
};

} // namespace

TEST(MfcDocumentTest, HierServerDocumentLoadsToItsLastByte) {
    const Bytes file = ReadDataFile("mfcclass.hie");
    ASSERT_EQ(file.size(), 2942u);
    HierDocument doc;
    EXPECT_EQ(LoadBytes(file, [&](CArchive& ar) { doc.Serialize(ar); }), 0u);
    EXPECT_EQ(doc.height, -10);
    EXPECT_EQ(doc.weight, 0);
    EXPECT_EQ(doc.flags[4], 4);    // out-precision
    EXPECT_EQ(doc.flags[7], 0x22); // pitch-and-family
    EXPECT_EQ(doc.face, "Arial");
    EXPECT_EQ(doc.colour, 9u);
    EXPECT_EQ(doc.root.m_description, "MFC Class Hierarchy");
    EXPECT_EQ(doc.root.m_key, "%ROOT%");
    EXPECT_EQ(doc.root.m_children.GetCount(), 26);
    ASSERT_NE(doc.root.Child(1), nullptr);
    EXPECT_EQ(doc.root.Child(0)->m_description, "CArchive");
    EXPECT_EQ(doc.root.Child(1)->m_description, "CArray");
    EXPECT_EQ(doc.root.CountTree(), 137);

    // Stored again with 8-bit strings, as the ANSI build did, the bytes come out the same.
    EXPECT_TRUE(StoreBytes([&](CArchive& ar) { doc.Serialize(ar); }) == file);
}

TEST(MfcDocumentTest, CutHierServerDocumentFailsCleanly) {
    const Bytes file = ReadDataFile("mfcclass.hie");
    for (std::size_t cut = 0; cut < file.size(); cut += 37) {
        HierDocument doc;
        const Bytes part(file.begin(), file.begin() + static_cast<long>(cut));
        EXPECT_EQ(ArchiveCause([&] { LoadBytes(part, [&](CArchive& ar) { doc.Serialize(ar); }); }),
                  CArchiveException::endOfFile)
            << cut;
    }
}

// TSTCON's ambient property: DISPID, name, COleVariant, VTI index, enabled and stock flags. The
// variant's archive form is its WORD type and then a value of that type; the script holds
// booleans, 16- and 32-bit integers, empty BSTRs and one Font, an OLE StdFont saved as its CLSID
// and its persisted fields.
class CAmbientProperty : public CObject {
    DECLARE_SERIAL(CAmbientProperty)
public:
    void Serialize(CArchive& ar) override {
        if (ar.IsStoring()) {
            ar << m_dispid << m_name << m_vt;
            SerializeValue(ar);
            ar << m_vti << m_enabled << m_stock;
        } else {
            ar >> m_dispid >> m_name >> m_vt;
            SerializeValue(ar);
            ar >> m_vti >> m_enabled >> m_stock;
        }
    }

    LONG m_dispid = 0;
    CStringA m_name;
    WORD m_vt = 0;
    LONG m_value = 0; // VT_I2, VT_BOOL, VT_I4
    CStringA m_text;  // VT_BSTR; the font's face name
    std::array<BYTE, 16> m_clsid{};
    BYTE m_fontVersion = 0, m_fontFlags = 0;
    WORD m_fontCharset = 0, m_fontWeight = 0;
    DWORD m_fontSize = 0; // in 1/10000 point
    int m_vti = 0;
    BOOL m_enabled = FALSE;
    BOOL m_stock = FALSE;

private:
    static constexpr WORD kI2 = 2, kI4 = 3, kBstr = 8, kDispatch = 9, kBool = 11;

    void SerializeValue(CArchive& ar) {
        switch (m_vt) {
        case kI2:
        case kBool: {
            short value = static_cast<short>(m_value);
            ar.IsStoring() ? ar << value : ar >> value;
            m_value = value;
            break;
        }
        case kI4:
            ar.IsStoring() ? ar << m_value : ar >> m_value;
            break;
        case kBstr: {
            DWORD length = static_cast<DWORD>(m_text.GetLength());
            ar.IsStoring() ? ar << length : ar >> length;
            ASSERT_EQ(length, 0u) << "only empty strings occur in this document";
            break;
        }
        case kDispatch:
            for (BYTE& b : m_clsid)
                ar.IsStoring() ? ar << b : ar >> b;
            if (ar.IsStoring()) {
                ar << m_fontVersion << m_fontCharset << m_fontFlags << m_fontWeight << m_fontSize;
                ar << static_cast<BYTE>(m_text.GetLength());
                ar.Write(m_text.GetString(), static_cast<UINT>(m_text.GetLength()));
            } else {
                ar >> m_fontVersion >> m_fontCharset >> m_fontFlags >> m_fontWeight >> m_fontSize;
                BYTE length = 0;
                ar >> length;
                std::string name(length, '\0');
                ASSERT_EQ(ar.Read(name.data(), length), length);
                m_text = name.c_str();
            }
            break;
        default:
            FAIL() << "variant type " << m_vt << " does not occur in this document";
        }
    }
};
IMPLEMENT_SERIAL(CAmbientProperty, CObject, 1)

TEST(MfcDocumentTest, ContainerScriptAmbientPropertiesLoad) {
    const Bytes file = ReadDataFile("Simon.tcs");
    ASSERT_EQ(file.size(), 6656u);
    const Bytes contents = CompoundFileReader(file).ReadRootStream(u"Contents");
    ASSERT_EQ(contents.size(), 830u);

    // The raw start: count 13, a new class of schema 1 named "CAmbientProperty".
    const Bytes head(contents.begin(), contents.begin() + 24);
    ArchiveBytes expectedHead;
    expectedHead.Word(13);
    expectedHead.NewClass("CAmbientProperty", 1);
    EXPECT_EQ(head, expectedHead.bytes());

    CObList list;
    const std::size_t left = LoadBytes(contents, [&](CArchive& ar) { list.Serialize(ar); });
    ASSERT_EQ(list.GetCount(), 13);
    const char* names[13] = {"UserMode",         "UIDead",      "ShowHatching", "ShowGrabHandles",
                             "TextAlign",        "BackColor",   "Font",         "ForeColor",
                             "ScaleUnits",       "DisplayName", "LocaleID",     "MessageReflect",
                             "SupportsMnemonics"};
    int i = 0;
    std::vector<CAmbientProperty*> properties;
    for (POSITION pos = list.GetHeadPosition(); pos; ++i) {
        auto* property = dynamic_cast<CAmbientProperty*>(list.GetNext(pos));
        ASSERT_NE(property, nullptr);
        properties.push_back(property);
        EXPECT_EQ(property->m_name, names[i]);
        EXPECT_TRUE(property->m_enabled);
        EXPECT_TRUE(property->m_stock);
    }
    // DISPID_AMBIENT_USERMODE is -709; VARIANT_TRUE is -1.
    EXPECT_EQ(properties[0]->m_dispid, -709);
    EXPECT_EQ(properties[0]->m_vt, 11);
    EXPECT_EQ(properties[0]->m_value, -1);
    EXPECT_EQ(properties[5]->m_value, 0x00FFFFFF); // BackColor: white
    EXPECT_EQ(properties[6]->m_text, "MS Sans Serif");
    EXPECT_EQ(properties[6]->m_fontSize, 80000u); // 8 points
    EXPECT_EQ(properties[10]->m_value, 0x409);    // LocaleID: US English

    // The list ends at byte 501; what follows (the document's items) starts with their count 7
    // and the class "CTestContainer98Item".
    const std::size_t end = contents.size() - left;
    EXPECT_EQ(end, 501u);
    EXPECT_EQ(contents[end], 7);
    EXPECT_EQ(std::string(contents.begin() + static_cast<long>(end) + 10,
                          contents.begin() + static_cast<long>(end) + 30),
              "CTestContainer98Item");

    EXPECT_TRUE(StoreBytes([&](CArchive& ar) { list.Serialize(ar); }) ==
                Bytes(contents.begin(), contents.begin() + static_cast<long>(end)));
    for (CAmbientProperty* property : properties)
        delete property;
}
