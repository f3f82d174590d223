// Long random sequences of edits on random trees. After every step the flat list must equal the
// tree's walk of its plain objects (except right after the three edits that do not tell the tree),
// and every folder must be owned exactly once: by the tree, or by the test after RemoveFolder.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "FolderTestTree.h"

namespace {

constexpr int kFeatures = 40;
constexpr int kSteps = 3000;

// Every entry of the tree with the level it stands in, and every folder, in walk order.
struct TreeView {
    std::vector<std::pair<CObList*, CObject*>> entries;
    std::vector<OrvBaseFolder*> folders;

    void Gather(CObList& level) {
        for (POSITION pos = level.GetHeadPosition(); pos;) {
            CObject* entry = level.GetNext(pos);
            entries.emplace_back(&level, entry);
            if (auto* folder = DYNAMIC_DOWNCAST(OrvBaseFolder, entry)) {
                folders.push_back(folder);
                Gather(folder->Children());
            }
        }
    }
};

class RandomEdits {
public:
    explicit RandomEdits(unsigned seed) : m_random(seed), m_features(kFeatures) {
        CObList initial;
        for (int number = 0; number < kFeatures / 2; ++number)
            initial.AddTail(m_features[number]);
        m_list.Initialize(&initial);
    }

    void Run() {
        for (int step = 0; step < kSteps && !::testing::Test::HasFailure(); ++step) {
            m_step = step;
            Edit();
            Check();
        }
    }

private:
    int Pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }
    bool Chance(int percent) { return Pick(100) < percent; }

    TreeView View() {
        TreeView view;
        view.Gather(const_cast<CObList&>(m_list.GetFolderManager()->TopLevel()));
        return view;
    }

    // A feature that stands neither in the list nor in a folder that the test holds.
    TestFeature* Unused() {
        std::set<CObject*> used;
        for (CObject* entry : Entries(m_list.GetObList()))
            used.insert(entry);
        for (const auto& folder : m_detached) {
            CObList below;
            folder->GetAllChilds(below);
            for (CObject* entry : Entries(below))
                used.insert(entry);
        }
        std::vector<TestFeature*> free;
        for (int number = 0; number < kFeatures; ++number)
            if (!used.count(m_features[number]))
                free.push_back(m_features[number]);
        return free.empty() ? nullptr : free[Pick(static_cast<int>(free.size()))];
    }

    OrvObject* AnyListed() {
        const auto entries = Entries(m_list.GetObList());
        return entries.empty()
                   ? nullptr
                   : static_cast<OrvObject*>(entries[Pick(static_cast<int>(entries.size()))]);
    }

    OrvBaseFolder* AnyFolder(const TreeView& view) {
        return view.folders.empty() ? nullptr
                                    : view.folders[Pick(static_cast<int>(view.folders.size()))];
    }

    OrvBaseFolder* NewFolder() {
        auto folder = std::make_unique<CountedFolder>();
        folder->SetName(CString(std::to_wstring(m_step).c_str()));
        return folder.release();
    }

    // A folder to move: one of the tree, unlinked with its objects, or one the test holds.
    OrvBaseFolder* FolderToMove(const TreeView& view) {
        if (!m_detached.empty() && (view.folders.empty() || Chance(30))) {
            const int index = Pick(static_cast<int>(m_detached.size()));
            OrvBaseFolder* folder = m_detached[index].release();
            m_detached.erase(m_detached.begin() + index);
            return folder;
        }
        OrvBaseFolder* folder = AnyFolder(view);
        if (folder) {
            EXPECT_EQ(1, m_list.RemoveFolder(folder));
        }
        return folder;
    }

    // After a tree edit the folder is either in the tree or back with the test.
    void Settle(OrvBaseFolder* folder) {
        const TreeView view = View();
        if (std::find(view.folders.begin(), view.folders.end(), folder) == view.folders.end())
            m_detached.emplace_back(folder);
    }

    void Edit() {
        const TreeView view = View();
        switch (Pick(16)) {
        case 0:
            if (TestFeature* object = Unused())
                Chance(50) ? m_list.AddHead(object) : m_list.AddTail(object);
            break;
        case 1:
            if (TestFeature* object = Unused(); object && AnyListed()) {
                OrvObject* reference = AnyListed();
                Chance(50) ? m_list.InsertAfter(object, reference)
                           : m_list.InsertBefore(object, reference);
            }
            break;
        case 2:
            if (TestFeature* object = Unused(); object && AnyListed())
                m_list.SetAt(object, AnyListed());
            break;
        case 3:
            if (OrvObject* object = AnyListed()) {
                EXPECT_EQ(1, m_list.Remove(object));
            }
            break;
        case 4:
            m_list.RemoveHead();
            break;
        case 5: { // a new folder in front of anything, or appended
            OrvObject* anchor =
                view.entries.empty() || Chance(10)
                    ? nullptr
                    : static_cast<OrvObject*>(
                          view.entries[Pick(static_cast<int>(view.entries.size()))].second);
            OrvBaseFolder* folder = NewFolder();
            EXPECT_EQ(1, m_list.CreateNewFolder(anchor, folder, nullptr));
            Settle(folder);
            break;
        }
        case 6: { // neighbours of one level into a new folder
            if (view.entries.empty())
                break;
            const auto& [level, first] = view.entries[Pick(static_cast<int>(view.entries.size()))];
            CObList run;
            POSITION pos = level->Find(first);
            for (int count = 1 + Pick(3); pos && count > 0; --count)
                run.AddTail(level->GetNext(pos));
            OrvBaseFolder* folder = NewFolder();
            EXPECT_EQ(1, m_list.AddToNewFolder(run, folder, nullptr));
            Settle(folder);
            break;
        }
        case 7: // an object moves into a folder
            if (OrvObject* object = AnyListed(); object && !view.folders.empty()) {
                m_list.Remove(object);
                m_list.InsertObjectInFolder(object, AnyFolder(view), Pick(2));
            }
            break;
        case 8: // an object moves out of its folder
            if (OrvObject* object = AnyListed()) {
                if (OrvBaseFolder* parent = m_list.GetParentFolderOfObject(object)) {
                    m_list.Remove(object);
                    m_list.InsertObjectAfterFolder(object, parent);
                }
            }
            break;
        case 9: // a folder moves into another
            if (OrvBaseFolder* target = AnyFolder(view)) {
                OrvBaseFolder* child = FolderToMove(view);
                m_list.InsertFolderInFolderObject(child, target, Pick(2));
                Settle(child);
            }
            break;
        case 10: // a folder moves next to an object
            if (OrvBaseFolder* folder = FolderToMove(view)) {
                OrvObject* object = Chance(10) ? nullptr : AnyListed();
                Chance(50) ? m_list.InsertFolderAfterObject(folder, object)
                           : m_list.InsertFolderBeforeObject(folder, object);
                Settle(folder);
            }
            break;
        case 11:
            if (OrvBaseFolder* folder = AnyFolder(view)) {
                EXPECT_EQ(1, m_list.DeleteFolderObject(folder));
            }
            break;
        case 12:
            m_list.RemoveEmptyFolders();
            break;
        case 13: // a folder and its objects leave the document for the test
            if (OrvBaseFolder* folder = AnyFolder(view); folder && Chance(30)) {
                EXPECT_EQ(1, m_list.RemoveFolder(folder));
                m_detached.emplace_back(folder);
            }
            break;
        case 14:
            if (Chance(5))
                m_list.RemoveAll();
            break;
        case 15:
            BreakAndMend();
            break;
        }
    }

    // The three edits that do not tell the tree; a rebuild from the tree mends the flat list.
    void BreakAndMend() {
        OrvObject* listed = AnyListed();
        CObList head;
        switch (Pick(3)) {
        case 0:
            if (TestFeature* object = Unused()) {
                head.AddTail(object);
                m_list.AddHead(&head);
            }
            break;
        case 1:
            if (listed) {
                head.AddTail(listed);
                m_list.AddHead(&head);
                m_list.RemoveDuplicates();
            }
            break;
        case 2:
            if (listed && m_list.GetParentFolderOfObject(listed)) {
                EXPECT_EQ(1, m_list.Remove(static_cast<CObject*>(listed)));
            }
            break;
        }
        m_list.UpdateObListAsPerFolderManager();
    }

    void Check() {
        const TreeView view = View();
        CObList walk;
        m_list.GetFolderManager()->GetAllChilds(walk);
        ASSERT_EQ(Entries(walk), Entries(m_list.GetObList())) << "step " << m_step;
        const std::set<OrvBaseFolder*> distinct(view.folders.begin(), view.folders.end());
        ASSERT_EQ(distinct.size(), view.folders.size()) << "step " << m_step;
        // The folders the test holds, with the sub-folders they took along.
        std::size_t held = 0;
        for (const auto& folder : m_detached) {
            ASSERT_FALSE(distinct.count(folder.get())) << "step " << m_step;
            TreeView below;
            below.Gather(folder->Children());
            held += 1 + below.folders.size();
        }
        ASSERT_EQ(static_cast<int>(view.folders.size() + held),
                  CountedFolder::s_live - m_liveBefore)
            << "step " << m_step;
        const auto flat = Entries(m_list.GetObList());
        ASSERT_EQ(std::set<CObject*>(flat.begin(), flat.end()).size(), flat.size());
    }

    std::mt19937 m_random;
    const int m_liveBefore = CountedFolder::s_live;
    Features m_features;
    OrvFolderObList m_list;
    std::vector<std::unique_ptr<OrvBaseFolder>> m_detached;
    int m_step = 0;
};

TEST(FolderProperty, RandomEditsKeepTheTwoViewsInStepAndEveryFolderOwnedOnce) {
    const int liveBefore = CountedFolder::s_live;
    for (unsigned seed : {1u, 2u, 3u, 4u, 5u}) {
        SCOPED_TRACE(seed);
        RandomEdits(seed).Run();
        EXPECT_EQ(liveBefore, CountedFolder::s_live);
    }
}

} // namespace
