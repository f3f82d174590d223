// CObject's diagnostics: Dump through a CDumpContext, and AssertValid as a virtual that classes
// extend.
#include <afx.h>

#include <gtest/gtest.h>

#include "support/DumpCapture.h"

#include <cstdio>
#include <string>

namespace {

class Tool : public CObject {
    DECLARE_DYNAMIC(Tool)
public:
    int m_Number = 7;
    mutable int m_Checks = 0;
    void AssertValid() const override {
        CObject::AssertValid();
        ++m_Checks;
    }
    void Dump(CDumpContext& dc) const override {
        CObject::Dump(dc);
        dc << "m_Number = " << m_Number << "\n";
    }
};
IMPLEMENT_DYNAMIC(Tool, CObject)

// What a context over a memory file received.
std::string Written(CMemFile& file) {
    const auto length = static_cast<UINT>(file.GetLength());
    std::string text(length, '\0');
    file.SeekToBegin();
    file.Read(text.data(), length);
    return text;
}

TEST(ObjectDump, NamesTheClassAndAddress) {
    CMemFile file;
    CDumpContext dc(&file);
    Tool tool;
    const CObject& object = tool;
    object.Dump(dc);
    dc << static_cast<const CObject*>(nullptr) << "|" << static_cast<const CObject*>(&tool);
    dc.Flush();
    const std::string head = "a Tool at $" + PointerText(&tool) + "\nm_Number = 7\n";
    EXPECT_EQ(Written(file), head + "NULL|" + head);
}

TEST(ObjectDump, ContextWritesTextAndNumbers) {
    CMemFile file;
    CDumpContext dc(&file);
    EXPECT_EQ(dc.GetDepth(), 0);
    dc.SetDepth(1);
    EXPECT_EQ(dc.GetDepth(), 1);
    dc << L"\u00e9t\u00e9 " << -5 << " " << 4000000000u << " " << -9000000000LL << " "
       << 18000000000000000000ULL << " " << 0.5 << " " << static_cast<const char*>(nullptr);
    EXPECT_EQ(Written(file), "\xC3\xA9t\xC3\xA9 -5 4000000000 -9000000000 "
                             "18000000000000000000 0.500000 (NULL)");
}

TEST(ObjectDump, DefaultContextWritesToStandardError) {
    Tool tool;
    testing::internal::CaptureStderr();
    afxDump << tool;
    afxDump.Flush();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "a Tool at $" + PointerText(&tool) + "\nm_Number = 7\n");
}

TEST(ObjectAssertValid, ReachesTheClassThroughCObject) {
    Tool tool;
    const CObject& object = tool;
    object.AssertValid();
    object.AssertValid();
    EXPECT_EQ(tool.m_Checks, 2);
}

} // namespace
