// Thousands of commands from several threads at once: duplicates, groups, parents with children,
// terminations, suspensions, commands on the calling threads, and the calling nodes deleted at
// the end of each round. Every record made must be destroyed exactly once, and every worker must
// end. Built with -DORV_SANITIZE=thread this is the data-race check of the command code.
#include <random>
#include <set>
#include <shared_mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "CommandFixture.h"
#include "threads/OrvCriticalSectionLoader.h"

namespace commands_test {
namespace {

constexpr int kIssuers = 4;
constexpr int kRounds = 14;
constexpr int kStepsPerRound = 70;
constexpr int kTargets = 5;
constexpr int kGroups = 3;

// A node whose work takes a few milliseconds, stops when told, and ends in turn with each result.
class StressNode : public OrvObject {
public:
    StressNode(int seed, int workMs) : m_Mode(seed), m_WorkMs(workMs) {}

    OrveThreadStatus HandleCommand(OrveCommandType type, unsigned int, void*&) override {
        if (type == CommandTerminate) {
            ++terminates; // ends the work now under way on this node
            return ThreadDone;
        }
        if (type == CommandChildDone) {
            ++childDones;
            return ThreadDone;
        }
        const DWORD self = GetCurrentThreadId();
        const int stopsBefore = terminates;
        {
            const std::unique_lock guard = TakeGate();
            inWork.insert(self);
        }
        for (int ms = 0; ms < m_WorkMs && terminates == stopsBefore; ++ms)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        {
            const std::unique_lock guard = TakeGate();
            inWork.erase(self);
        }
        ++executes;
        switch (m_Mode++ % 5) {
        case 0:
            return ThreadDone;
        case 1:
            return ThreadDoneKeep;
        case 2:
            return ThreadFailed;
        case 3:
            return OrveThreadStatus(0);
        default:
            throw std::runtime_error("work failed");
        }
    }

    std::atomic<int> executes{0};
    std::atomic<int> terminates{0};
    std::atomic<int> childDones{0};
    // Workers inside the work loop; a suspender holds the gate so none leaves it meanwhile.
    std::mutex gate;
    // A worker waits for the gate in short sleeps rather than blocked on the mutex: under
    // ThreadSanitizer a signal reaches a thread only at such calls, and a worker blocked on the
    // gate that a suspender holds would never park, so the suspender would wait for ever.
    std::unique_lock<std::mutex> TakeGate() {
        std::unique_lock guard(gate, std::defer_lock);
        while (!guard.try_lock())
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        return guard;
    }
    std::set<DWORD> inWork;

private:
    std::atomic<int> m_Mode;
    const int m_WorkMs;
};

// A node of a parent and child pair: its work ends at once with `result`.
class PairNode : public OrvObject {
public:
    explicit PairNode(OrveThreadStatus status) : result(status) {}
    OrveThreadStatus HandleCommand(OrveCommandType type, unsigned int, void*&) override {
        if (type == CommandExecute)
            worker = GetCurrentThreadId();
        if (type == CommandChildDone)
            ++childDones;
        return result;
    }
    const OrveThreadStatus result;
    std::atomic<DWORD> worker{0};
    std::atomic<int> childDones{0};
};

class CommandStressTest : public CommandTest {
protected:
    int targets[kTargets] = {};
    OrvThreadDataLink links[kTargets][kGroups];
    std::shared_mutex pairing; // a child must be listed right behind its parent
    std::atomic<int> made{0};
    std::atomic<int> refused{0};
    std::atomic<int> suspensions{0};
    std::atomic<int> handedToParents{0};

    void SetUp() override {
        CommandTest::SetUp();
        for (int t = 0; t < kTargets; ++t)
            for (int g = 0; g < kGroups; ++g) {
                links[t][g].SetIdentifierA(&targets[t]);
                links[t][g].SetGroupNum(static_cast<DWORD>(g));
            }
    }

    void Count(int result) {
        if (result)
            ++made;
        else
            ++refused;
    }

    // The nodes go at the end, once their workers have ended; their deletion ends the records
    // that stayed.
    void RunPair(std::mt19937& random) {
        const std::unique_lock exclusive(pairing);
        static constexpr OrveThreadStatus kChildResults[] = {ThreadDone, ThreadDoneKeep,
                                                             ThreadFailed};
        PairNode parent(ThreadDone);
        PairNode child(kChildResults[random() % 3]);
        Count(OrvThreadBaseMgr::RunCommand(&parent, 40, nullptr, OrveThreadType(0),
                                           ThreadEndWaitForChild));
        const bool direct = parent.worker == GetCurrentThreadId();
        // The parent's own part is done and its worker gone before the child can end.
        EXPECT_TRUE(direct ||
                    Eventually([&] { return parent.worker != 0 && ThreadGone(parent.worker); }));
        Count(OrvThreadBaseMgr::RunCommand(&child, 41, nullptr, ThreadTypeChild,
                                           OrveThreadEndType(0)));
        if (!direct) {
            EXPECT_TRUE(Eventually([&] { return child.worker != 0 && ThreadGone(child.worker); }));
        }
        handedToParents += parent.childDones;
        // The workers' last step released the manager's lock: taking it orders their end before
        // the nodes' deletion.
        OrvCriticalSectionLoader lock(manager->Lock(), 1);
    }

    // Suspends and resumes a worker of the node that is inside its work.
    void SuspendOne(StressNode& node) {
        OrvCriticalSectionLoader lock(manager->Lock(), 1); // no record goes meanwhile
        const std::lock_guard gate(node.gate);
        CObList all;
        manager->GetAllThreads(all);
        for (POSITION pos = all.GetHeadPosition(); pos;) {
            auto* data = static_cast<OrvThreadData*>(all.GetNext(pos));
            if (data->GetCallingObject() != &node || !data->GetThreadHandle() ||
                !node.inWork.count(data->GetThreadID()))
                continue;
            if (data->SuspendThread() == ThreadRunning) {
                EXPECT_EQ(data->GetThreadStatus(), ThreadSuspended);
                ++suspensions;
            }
            data->ResumeThread();
            return;
        }
    }

    void Issue(int issuer, int round, std::vector<std::unique_ptr<StressNode>>& nodes) {
        std::mt19937 random(static_cast<unsigned>(issuer * 7919 + round));
        for (int n = 0; n < 3; ++n)
            nodes.push_back(std::make_unique<StressNode>(static_cast<int>(random()), 10));
        // A long command that no termination aims at, to be suspended while it works.
        auto slow = std::make_unique<StressNode>(0, 100);
        StressNode& longNode = *slow;
        {
            const std::shared_lock shared(pairing);
            Count(OrvThreadBaseMgr::RunCommand(&longNode, 9, nullptr, OrveThreadType(0),
                                               OrveThreadEndType(0)));
        }
        for (int step = 0; step < kStepsPerRound; ++step) {
            // Spread over the workers' start pause, so that later steps meet running work.
            std::this_thread::sleep_for(std::chrono::milliseconds(3));
            if (step == kStepsPerRound / 2 && issuer == round % kIssuers) {
                RunPair(random); // one pair a round: the others wait meanwhile
                continue;
            }
            StressNode& node = *nodes[random() % nodes.size()];
            const unsigned pick = random() % 100;
            if (pick < 70) {
                const DWORD id = 1 + random() % 3;
                void* parameter =
                    random() % 4 ? &links[random() % kTargets][random() % kGroups] : nullptr;
                const std::shared_lock shared(pairing);
                Count(OrvThreadBaseMgr::RunCommand(&node, id, parameter, OrveThreadType(0),
                                                   OrveThreadEndType(0)));
            } else if (pick < 78) {
                manager->TerminateIfRunning(&targets[random() % kTargets]);
            } else if (pick < 82) {
                manager->TerminateLastCreated();
            } else if (pick < 94) {
                SuspendOne(longNode);
                SuspendOne(node);
            } else {
                EXPECT_GE(manager->GetNumThreadsNotDone(), 0);
                manager->AnyThreadsRunning();
                OrvThreadBaseMgr::IsAnyThreadsRunningOrWaiting(&document);
            }
        }
        nodes.push_back(std::move(slow));
    }
};

TEST_F(CommandStressTest, EveryRecordIsAccountedForAndEveryWorkerEnds) {
    int deletedDone = 0;
    int executes = 0;
    for (int round = 0; round < kRounds; ++round) {
        // Settings change only between rounds, while no worker reads them.
        settings->SetValue(L"ThreadMulti", round % 5 == 4 ? 0 : 1);
        settings->SetValue(L"ThreadDel", round % 3 == 2 ? 0 : 1);
        std::vector<std::vector<std::unique_ptr<StressNode>>> nodes(kIssuers);
        std::vector<std::thread> issuers;
        for (int issuer = 0; issuer < kIssuers; ++issuer)
            issuers.emplace_back([&, issuer] { Issue(issuer, round, nodes[issuer]); });
        for (std::thread& issuer : issuers)
            issuer.join();
        ASSERT_TRUE(WorkersGone()) << "round " << round;
        EXPECT_EQ(manager->AllThreadsDone(), 1) << "round " << round;
        if (round % 2)
            deletedDone += manager->DeleteAllDoneThreads();
        for (auto& perIssuer : nodes)
            for (auto& node : perIssuer)
                executes += node->executes;
        nodes.clear(); // the nodes' deletion destroys what is left of their records
        ASSERT_EQ(Listed(), 0) << "round " << round;
    }
    EXPECT_GE(made + refused, kIssuers * kRounds * kStepsPerRound / 2);
    EXPECT_GT(refused, 0);
    EXPECT_GT(suspensions, 0);
    EXPECT_GT(handedToParents, 0);
    EXPECT_EQ(manager->destroyed + deletedDone, made);
    EXPECT_LE(executes, made);
    std::printf("commands %d, refused %d, suspensions %d, children handed on %d\n", made.load(),
                refused.load(), suspensions.load(), handedToParents.load());
}

} // namespace
} // namespace commands_test
