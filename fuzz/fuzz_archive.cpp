// Fuzzes the object protocol: CArchive::ReadObject over arbitrary bytes, with a small family of
// classes that read an int, a string, an object reference and an array sized from the stream.
// Every failure must be a CException; nothing may crash or leak.
#include <afxcore.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

namespace {

// The nodes alive; the stream may make any graph, so the harness owns them all.
std::set<CObject*>& Live() {
    static std::set<CObject*> live;
    return live;
}

constexpr WORD kMaxItems = 64;
constexpr int kMaxObjects = 16;

} // namespace

class CFuzzNode : public CObject {
    DECLARE_SERIAL(CFuzzNode)
public:
    CFuzzNode() { Live().insert(this); }
    ~CFuzzNode() override { Live().erase(this); }

    void Serialize(CArchive& ar) override {
        // References ask for the family, so the stream can't make objects the harness doesn't own.
        ar >> m_n >> m_text;
        m_pNext = ar.ReadObject(RUNTIME_CLASS(CFuzzNode));
        WORD nItems = 0;
        ar >> nItems;
        if (nItems > kMaxItems)
            AfxThrowArchiveException(CArchiveException::genericException);
        m_items.resize(nItems);
        for (int& item : m_items)
            ar >> item;
    }

private:
    int m_n = 0;
    CString m_text;
    CObject* m_pNext = nullptr;
    std::vector<int> m_items;
};
IMPLEMENT_SERIAL(CFuzzNode, CObject, 1)

// Versionable: version 2 adds a value and a narrow string.
class CFuzzLeaf : public CFuzzNode {
    DECLARE_SERIAL(CFuzzLeaf)
public:
    void Serialize(CArchive& ar) override {
        ar.SerializeClass(RUNTIME_CLASS(CFuzzLeaf));
        const UINT nSchema = ar.GetObjectSchema();
        CFuzzNode::Serialize(ar);
        if (nSchema >= 2)
            ar >> m_value >> m_name;
    }

private:
    double m_value = 0;
    CStringA m_name;
};
IMPLEMENT_SERIAL(CFuzzLeaf, CFuzzNode, VERSIONABLE_SCHEMA | 2)

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > 1 << 20)
        return 0;
    CMemFile file;
    file.Write(data, static_cast<UINT>(size));
    file.SeekToBegin();
    try {
        CArchive ar(&file, CArchive::load);
        // Alternate between the base and the derived class, to reach the kind checks.
        for (int i = 0; i < kMaxObjects; ++i)
            ar.ReadObject(i % 2 == 0 ? RUNTIME_CLASS(CFuzzNode) : RUNTIME_CLASS(CFuzzLeaf));
    } catch (CException* e) {
        e->Delete();
    }
    while (!Live().empty())
        delete *Live().begin();
    return 0;
}
