// The demonstration folders of the reference host and the text of both views.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "FolderTestTree.h"
#include "addin/DemoFolders.h"

namespace {

TEST(FolderDemo, GroupsTheFeaturesAndShowsBothViews) {
    Features f(6);
    CObList features;
    for (int number = 0; number < 6; ++number) {
        f[number]->ChangeName(CString(L"F") + CString(std::to_wstring(number).c_str()));
        features.AddTail(f[number]);
    }
    OrvFolderObList list;
    BuildDemoFolders(list, features, f[0]);
    EXPECT_EQ("0 [Roughing: 1 [Pockets: 2 3]] [Finishing: 4] 5", DescribeTree(list));
    EXPECT_EQ("0 1 2 3 4 5", DescribeFlat(list));
    EXPECT_EQ(f[0], f[3]->GetOwner());

    FILE* file = std::tmpfile();
    ASSERT_NE(nullptr, file);
    DumpFolderViews(list, file);
    std::rewind(file);
    std::string text;
    for (int c; (c = std::fgetc(file)) != EOF;)
        text += static_cast<char>(c);
    std::fclose(file);
    EXPECT_EQ("Flat list: 6 objects\n"
              "   1 F0\n   2 F1\n   3 F2\n   4 F3\n   5 F4\n   6 F5\n"
              "Folder tree:\n"
              "  F0\n"
              "  [Roughing] (id 1)\n"
              "    F1\n"
              "    [Pockets] (id 2)\n"
              "      F2\n"
              "      F3\n"
              "  [Finishing] (id 3)\n"
              "    F4\n"
              "  F5\n",
              text);
}

} // namespace
