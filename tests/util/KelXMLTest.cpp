#include <gtest/gtest.h>

#include <memory>

#include "support/TempFolder.h"
#include "util/KelXMLDocument.h"
#include "util/KelXMLNodeList.h"

namespace {

class KelXMLTest : public ::testing::Test {
protected:
    std::string Folder(const std::string& relative) const { return m_scratch.Folder(relative); }
    TempFolder m_scratch;
};

TEST_F(KelXMLTest, NodesNamesValuesAndAttributes) {
    const std::string file = Folder("xml") + "machine.xml";
    WriteFileBytes(file, "<MACHINE NAME='Lathe' NUM=\"2\">\n"
                         "  <!-- axes -->\n"
                         "  <AXIS>12.5</AXIS>\n"
                         "  <TEXT>caf\xC3\xA9</TEXT>\n"
                         "</MACHINE>\n");
    KelXMLDocument document;
    KelXMLNode* root = document.LoadFromFile(CString(file.c_str()));
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->GetNodeName(), CString(L"MACHINE"));
    CString value = L"untouched";
    EXPECT_TRUE(root->GetAttributeValue(L"NAME", value));
    EXPECT_EQ(value, CString(L"Lathe"));
    EXPECT_FALSE(root->GetAttributeValue(L"name", value)); // names are exact
    EXPECT_EQ(value, CString(L"Lathe"));

    std::unique_ptr<KelXMLNodeList> children(root->GetChildNodes());
    ASSERT_NE(children, nullptr);
    ASSERT_EQ(children->GetSize(), 3); // layout white space is not a node
    EXPECT_EQ((*children)[0]->GetNodeName(), CString(L"#comment"));
    EXPECT_EQ((*children)[0]->GetNodeValue(), CString(L" axes "));
    EXPECT_EQ((*children)[1]->GetNodeValueInDouble(), 12.5);
    EXPECT_EQ((*children)[2]->GetNodeValue(), CString(L"caf\u00e9"));
    EXPECT_EQ((*children)[3], nullptr);
    EXPECT_EQ((*children)[-1], nullptr);
    std::unique_ptr<KelXMLNodeList> text((*children)[1]->GetChildNodes());
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->GetSize(), 1);
    EXPECT_EQ((*text)[0]->GetNodeName(), CString(L"#text"));
    EXPECT_EQ((*children)[0]->GetChildNodes(), nullptr);
}

TEST_F(KelXMLTest, SaveKeepsEverythingButTheEdits) {
    const std::string file = Folder("xml") + "keep.xml";
    const std::string original = "\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- head -->\n"
                                 "<r a='1' b=\"2\">\r\n <x c='3'>t</x>\r\n</r>\n<!-- tail -->\n";
    WriteFileBytes(file, original);
    KelXMLDocument document;
    KelXMLNode* root = document.LoadFromFile(CString(file.c_str()));
    ASSERT_NE(root, nullptr);
    EXPECT_TRUE(root->SetAttributeValue(L"b", L"20"));
    EXPECT_FALSE(root->SetAttributeValue(L"missing", L"x"));
    EXPECT_TRUE(root->AddAttribute(L"d", L"<&"));
    ASSERT_TRUE(document.Save());
    EXPECT_EQ(ReadFileBytes(file), "\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- head -->\n"
                                   "<r a=\"1\" b=\"20\" d=\"&lt;&amp;\">\r\n <x c=\"3\">t</x>\r\n"
                                   "</r>\n<!-- tail -->\n");
}

TEST_F(KelXMLTest, UnreadableFilesGiveNoRoot) {
    KelXMLDocument document;
    EXPECT_EQ(document.LoadFromFile(CString((Folder("xml") + "absent.xml").c_str())), nullptr);
    EXPECT_FALSE(document.Save());
    const std::string broken = Folder("xml") + "broken.xml";
    WriteFileBytes(broken, "<a><b></a>");
    EXPECT_EQ(document.LoadFromFile(CString(broken.c_str())), nullptr);
    const std::string empty = Folder("xml") + "empty.xml";
    WriteFileBytes(empty, "");
    EXPECT_EQ(document.LoadFromFile(CString(empty.c_str())), nullptr);
}

} // namespace
