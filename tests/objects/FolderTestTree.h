// Helpers of the folder tests: features made and owned by a test, and a short text of a tree, in
// which a plain object is its number and a folder is "[name: children]".
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "FolderTestObjects.h"
#include "objects/OrvFolderObList.h"
#include "port/TextConversion.h"

// The text of one level and the folders below it.
inline std::string Describe(const CObList& level) {
    std::string text;
    for (POSITION pos = level.GetHeadPosition(); pos;) {
        CObject* entry = level.GetNext(pos);
        if (!text.empty())
            text += ' ';
        if (const OrvBaseFolder* folder = DYNAMIC_DOWNCAST(OrvBaseFolder, entry))
            text += "[" + port::WideToNarrow(folder->GetName().GetString()) + ":" +
                    (folder->Children().IsEmpty() ? "" : " " + Describe(folder->Children())) + "]";
        else if (const TestFeature* feature = DYNAMIC_DOWNCAST(TestFeature, entry))
            text += std::to_string(feature->m_Number);
        else
            text += entry ? "?" : "null";
    }
    return text;
}

inline std::string DescribeTree(const OrvFolderObList& list) {
    return Describe(list.GetFolderManager()->TopLevel());
}

inline std::string DescribeFlat(const OrvFolderObList& list) {
    return Describe(list.GetObList());
}

// The pointers of a list, in order.
inline std::vector<CObject*> Entries(const CObList& list) {
    std::vector<CObject*> entries;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        entries.push_back(list.GetNext(pos));
    return entries;
}

// Features numbered 0, 1, ... that the test owns.
class Features {
public:
    explicit Features(int count) {
        for (int number = 0; number < count; ++number)
            m_features.push_back(std::make_unique<TestFeature>(number));
    }
    TestFeature* operator[](int number) const { return m_features[number].get(); }
    // A CObList of the given features, in the order given.
    void Fill(CObList& list, std::initializer_list<int> numbers) const {
        for (int number : numbers)
            list.AddTail(m_features[number].get());
    }

private:
    std::vector<std::unique_ptr<TestFeature>> m_features;
};

// A folder named `name`.
inline std::unique_ptr<OrvBaseFolder> MakeFolder(const wchar_t* name) {
    auto folder = std::make_unique<CountedFolder>();
    folder->SetName(name);
    return folder;
}
