#include <gtest/gtest.h>

#include <QString>
#include <functional>
#include <type_traits>

#include "ITask.h"
#include "QelRefPtr.h"
#include "QelStatus.h"

namespace qel::test {
namespace {

/// A host's task that fills in nothing but what it must. Its own kind of result tells a slot that was mixed
/// up.
class HostTask : public ITask {
  public:
    std::int32_t reservedSlot1() override { return 1; }
    std::int32_t reservedSlot5() override { return 5; }
    std::int32_t reservedSlot6() override { return 6; }
    std::int32_t reservedSlot22() override { return 22; }
    std::int32_t reservedSlot23() override { return 23; }
};

TEST(TaskDefaults, WorksInNoViewAtFirst) {
    const ref_ptr<HostTask> task(new HostTask());
    EXPECT_EQ(task->getActiveViewID(), -1);
}

TEST(TaskDefaults, KeepsTheNumberOfItsView) {
    const ref_ptr<HostTask> task(new HostTask());
    for (const std::int32_t view : {7, 0, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(task->setActiveViewID(view), 0);
        EXPECT_EQ(task->getActiveViewID(), view);
    }
}

TEST(TaskDefaults, CarriesItsViewIntoACopy) {
    const ref_ptr<HostTask> task(new HostTask());
    task->setActiveViewID(7);
    const ref_ptr<HostTask> copy(new HostTask(*task));
    EXPECT_EQ(copy->getActiveViewID(), 7);
    const ref_ptr<HostTask> assigned(new HostTask());
    *assigned = *task;
    EXPECT_EQ(assigned->getActiveViewID(), 7);
}

TEST(TaskDefaults, LeavesEachMessageUnhandled) {
    const ref_ptr<HostTask> task(new HostTask());
    const struct {
        const char* name;
        std::function<std::int32_t(ITask&)> call;
    } cases[] = {
        {"setName", [](ITask& it) { return it.setName(QString("measure")); }},
        {"startup", [](ITask& it) { return it.startup(); }},
        {"finish", [](ITask& it) { return it.finish(); }},
        {"OnTimer", [](ITask& it) { return it.OnTimer(1, 2); }},
        {"OnPaint", [](ITask& it) { return it.OnPaint(1); }},
        {"OnLButtonDblClk", [](ITask& it) { return it.OnLButtonDblClk(1, 2, 3, 4); }},
        {"OnLButtonDown", [](ITask& it) { return it.OnLButtonDown(1, 2, 3, 4); }},
        {"OnLButtonUp", [](ITask& it) { return it.OnLButtonUp(1, 2, 3, 4); }},
        {"OnMouseMove", [](ITask& it) { return it.OnMouseMove(1, 2, 3, 4); }},
        {"OnMouseWheel", [](ITask& it) { return it.OnMouseWheel(1, 2, -120, 3, 4); }},
        {"OnRButtonDblClk", [](ITask& it) { return it.OnRButtonDblClk(1, 2, 3, 4); }},
        {"OnRButtonDown", [](ITask& it) { return it.OnRButtonDown(1, 2, 3, 4); }},
        {"OnRButtonUp", [](ITask& it) { return it.OnRButtonUp(1, 2, 3, 4); }},
        {"OnKeyDown", [](ITask& it) { return it.OnKeyDown(1, 2, 3, 4); }},
        {"OnKeyUp", [](ITask& it) { return it.OnKeyUp(1, 2, 3, 4); }},
        {"onSetCursor", [](ITask& it) { return it.onSetCursor(1, 2, 3, 4); }},
    };
    for (const auto& tested : cases) {
        EXPECT_EQ(tested.call(*task), -99999) << tested.name;
    }
    EXPECT_EQ(kNotHandled, -99999);
}

TEST(TaskDefaults, LeavesTheNameToItsCaller) {
    const ref_ptr<HostTask> task(new HostTask());
    const QString name("measure");
    task->setName(name);
    EXPECT_TRUE(name == QString("measure"));
}

TEST(TaskDefaults, CopiesNoReferences) {
    const ref_ptr<HostTask> task(new HostTask());
    const ref_ptr<HostTask> again = task;
    ASSERT_EQ(task->referenceCount(), 2);
    const ref_ptr<HostTask> copy(new HostTask(*task));
    EXPECT_EQ(copy->referenceCount(), 1);
    *copy = *task;
    EXPECT_EQ(copy->referenceCount(), 1);
    EXPECT_EQ(task->referenceCount(), 2);
}

}  // namespace
}  // namespace qel::test
