#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "QelRefPtr.h"
#include "QelReferenced.h"

namespace qel::test {
namespace {

/// Not counted at all: it notes each call, and where the pointer under test points at that moment.
struct Recorder {
    std::string name;
    std::vector<std::string>& log;
    std::function<const Recorder*()> held;

    void ref() const { note("ref "); }
    void unref() const { note("unref "); }

  private:
    void note(const char* call) const {
        const Recorder* const now = held ? held() : nullptr;
        log.push_back(call + name + " while it holds " + (now == nullptr ? "nothing" : now->name));
    }
};

class QelRefPtr : public ::testing::Test {
  protected:
    using Log = std::vector<std::string>;

    void watch(const ref_ptr<Recorder>& pointer) {
        first.held = second.held = [&pointer] { return pointer.get(); };
    }

    Log log;
    Recorder first{"first", log, {}};
    Recorder second{"second", log, {}};
};

TEST_F(QelRefPtr, EmptyNeverCounts) {
    {
        ref_ptr<Recorder> pointer;
        const ref_ptr<Recorder> fromNull(static_cast<Recorder*>(nullptr));
        pointer = fromNull;
        pointer.reset();
        EXPECT_EQ(pointer.get(), nullptr);
        EXPECT_FALSE(pointer);
    }
    EXPECT_EQ(log, Log());
}

TEST_F(QelRefPtr, ConstructionTakesOneReferenceAndDestructionGivesItBack) {
    {
        const ref_ptr<Recorder> pointer(&first);
        EXPECT_EQ(pointer.get(), &first);
        EXPECT_EQ(&*pointer, &first);
        EXPECT_EQ(pointer->name, "first");
        EXPECT_TRUE(pointer);
        EXPECT_EQ(log, Log{"ref first while it holds nothing"});
    }
    EXPECT_EQ(log.size(), 2U);
    EXPECT_EQ(log.back(), "unref first while it holds nothing");
}

TEST_F(QelRefPtr, AssignmentStoresTheNewOneThenRefsItThenUnrefsTheOld) {
    ref_ptr<Recorder> pointer(&first);
    watch(pointer);
    log.clear();
    pointer = &second;
    EXPECT_EQ(log, (Log{"ref second while it holds second", "unref first while it holds second"}));
    log.clear();
    pointer = nullptr;
    EXPECT_EQ(log, Log{"unref second while it holds nothing"});
    log.clear();
    pointer = &first;
    EXPECT_EQ(log, Log{"ref first while it holds first"});
    first.held = second.held = nullptr;
}

TEST_F(QelRefPtr, AssignmentOfAnotherPointerCountsTheSameWay) {
    ref_ptr<Recorder> pointer(&first);
    const ref_ptr<Recorder> other(&second);
    watch(pointer);
    log.clear();
    pointer = other;
    EXPECT_EQ(log, (Log{"ref second while it holds second", "unref first while it holds second"}));
    first.held = second.held = nullptr;
}

TEST_F(QelRefPtr, AssignmentOfWhatItHoldsDoesNothing) {
    ref_ptr<Recorder> pointer(&first);
    const ref_ptr<Recorder> other(&first);
    log.clear();
    pointer = &first;
    pointer = other;
    const ref_ptr<Recorder>& itself = pointer;
    pointer = itself;
    EXPECT_EQ(log, Log());
}

TEST_F(QelRefPtr, CopyTakesOneMoveTakesNone) {
    ref_ptr<Recorder> pointer(&first);
    log.clear();
    ref_ptr<Recorder> copy(pointer);
    EXPECT_EQ(log, Log{"ref first while it holds nothing"});
    log.clear();
    ref_ptr<Recorder> moved(std::move(copy));
    EXPECT_EQ(moved.get(), &first);
    EXPECT_EQ(log, Log());
    ref_ptr<Recorder> other(&second);
    log.clear();
    other = std::move(moved);
    EXPECT_EQ(other.get(), &first);
    EXPECT_EQ(log, Log{"unref second while it holds nothing"});
}

TEST_F(QelRefPtr, ComparesWithPointersOfEitherSortWithoutCounting) {
    const ref_ptr<Recorder> pointer(&first);
    const ref_ptr<Recorder> same(&first);
    const ref_ptr<Recorder> other(&second);
    const ref_ptr<Recorder> empty;
    log.clear();
    EXPECT_TRUE(pointer == same);
    EXPECT_TRUE(pointer != other);
    EXPECT_TRUE(pointer == &first);
    EXPECT_TRUE(&first == pointer);
    EXPECT_TRUE(pointer != &second);
    EXPECT_TRUE(pointer != nullptr);
    EXPECT_TRUE(empty == nullptr);
    EXPECT_TRUE(nullptr == empty);
    EXPECT_TRUE(empty != pointer);
    EXPECT_EQ(log, Log());
}

TEST_F(QelRefPtr, MoveOntoItselfKeepsTheReferenceAndIntoAnEmptyOneTakesItOver) {
    ref_ptr<Recorder> pointer(&first);
    log.clear();
    ref_ptr<Recorder>& itself = pointer;
    pointer = std::move(itself);
    EXPECT_EQ(pointer.get(), &first);
    ref_ptr<Recorder> empty;
    empty = std::move(pointer);
    EXPECT_EQ(empty.get(), &first);
    EXPECT_EQ(log, Log());
}

TEST_F(QelRefPtr, ResetGivesTheReferenceBackAndLeavesItEmpty) {
    ref_ptr<Recorder> pointer(&first);
    watch(pointer);
    log.clear();
    pointer.reset();
    EXPECT_EQ(pointer.get(), nullptr);
    pointer.reset();
    EXPECT_EQ(log, Log{"unref first while it holds nothing"});
}

/// Counts how many of its kind are alive.
class Counted : public QelReferenced {
  public:
    explicit Counted(std::atomic<int>& counter) : living(counter) { ++living; }
    Counted(const Counted& other) : QelReferenced(other), living(other.living) { ++living; }

  protected:
    ~Counted() override { --living; }

  private:
    std::atomic<int>& living;
};

class Derived : public Counted {
  public:
    using Counted::Counted;
};

TEST(QelReferenced, StartsWithoutReferencesAndGoesWithTheLast) {
    std::atomic<int> living = 0;
    const Counted* const object = new Counted(living);
    EXPECT_EQ(object->referenceCount(), 0);
    object->ref();
    object->ref();
    EXPECT_EQ(object->referenceCount(), 2);
    object->unref();
    EXPECT_EQ(object->referenceCount(), 1);
    EXPECT_EQ(living, 1);
    object->unref();
    EXPECT_EQ(living, 0);
}

TEST(QelReferenced, CountsBothSpellingsTogether) {
    std::atomic<int> living = 0;
    const Counted* const object = new Counted(living);
    object->AddRef();
    object->ref();
    EXPECT_EQ(object->referenceCount(), 2);
    object->Release();
    EXPECT_EQ(living, 1);
    object->unref();
    EXPECT_EQ(living, 0);
}

TEST(QelReferenced, ReleaseOfTheLastReferenceDeletesToo) {
    std::atomic<int> living = 0;
    const QelReferenced* const object = new Derived(living);
    object->AddRef();
    object->Release();
    EXPECT_EQ(living, 0);
}

TEST(QelReferenced, CopiesStartUnshared) {
    std::atomic<int> living = 0;
    const ref_ptr<Counted> original(new Counted(living));
    const ref_ptr<Counted> again = original;
    EXPECT_EQ(original->referenceCount(), 2);
    const Counted* const copy = new Counted(*original);
    EXPECT_EQ(copy->referenceCount(), 0);
    EXPECT_EQ(original->referenceCount(), 2);
    copy->ref();
    copy->unref();
    EXPECT_EQ(living, 1);
}

TEST(QelReferenced, AssignmentLeavesBothCountsAlone) {
    struct Plain : QelReferenced {
        int value = 0;
    };
    const ref_ptr<Plain> from(new Plain);
    const ref_ptr<Plain> to(new Plain);
    const ref_ptr<Plain> toAgain = to;
    from->value = 7;
    *to = *from;
    EXPECT_EQ(to->value, 7);
    EXPECT_EQ(to->referenceCount(), 2);
    EXPECT_EQ(from->referenceCount(), 1);
}

TEST(QelReferenced, APointerToABaseKeepsTheObject) {
    std::atomic<int> living = 0;
    {
        ref_ptr<Derived> derived(new Derived(living));
        const ref_ptr<Counted> base(derived);
        derived.reset();
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
}

TEST(QelReferenced, AMovedPointerToADerivedClassHandsItsReferenceOver) {
    std::atomic<int> living = 0;
    ref_ptr<Derived> derived(new Derived(living));
    ref_ptr<Counted> base(std::move(derived));
    EXPECT_TRUE(derived == nullptr);  // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(base->referenceCount(), 1);
    derived = new Derived(living);
    EXPECT_TRUE(base != derived);
    base = std::move(derived);
    EXPECT_EQ(base->referenceCount(), 1);
    EXPECT_EQ(living, 1);
}

class Unrelated : public QelReferenced {};

static_assert(std::is_convertible_v<ref_ptr<Derived>, ref_ptr<Counted>>);
static_assert(std::is_convertible_v<ref_ptr<Derived>, ref_ptr<const QelReferenced>>);
static_assert(!std::is_convertible_v<ref_ptr<Counted>, ref_ptr<Derived>>);
static_assert(!std::is_convertible_v<ref_ptr<Unrelated>, ref_ptr<Counted>>);
static_assert(!std::is_convertible_v<const ref_ptr<Unrelated>&, ref_ptr<Counted>>);
static_assert(!std::is_convertible_v<ref_ptr<const Counted>, ref_ptr<Counted>>);

const char* overloadFor(const ref_ptr<Counted>& /*object*/) {
    return "counted";
}

const char* overloadFor(const ref_ptr<Unrelated>& /*object*/) {
    return "unrelated";
}

TEST(QelReferenced, APointerToADerivedClassPicksTheOverloadOfItsBase) {
    std::atomic<int> living = 0;
    EXPECT_STREQ(overloadFor(ref_ptr<Derived>(new Derived(living))), "counted");
    EXPECT_STREQ(overloadFor(ref_ptr<Unrelated>(new Unrelated())), "unrelated");
    EXPECT_EQ(living, 0);
}

constexpr int kThreads = 8;

void onThreads(const std::function<void()>& work) {
    std::vector<std::thread> threads;
    std::atomic<bool> go = false;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&] {
            while (!go) {
                std::this_thread::yield();
            }
            work();
        });
    }
    go = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(QelReferenced, LosesNoCountBetweenThreads) {
    std::atomic<int> living = 0;
    const ref_ptr<Counted> object(new Counted(living));
    onThreads([&] {
        for (int round = 0; round < 20000; ++round) {
            object->ref();
            object->AddRef();
            object->Release();
        }
    });
    EXPECT_EQ(object->referenceCount(), 1 + kThreads * 20000);
    for (int extra = 0; extra < kThreads * 20000; ++extra) {
        object->unref();
    }
    EXPECT_EQ(living, 1);
}

TEST(QelReferenced, GoesExactlyOnceWhenThreadsLetGoTogether) {
    std::atomic<int> living = 0;
    for (int round = 0; round < 50; ++round) {
        const Counted* const object = new Counted(living);
        for (int thread = 0; thread < kThreads; ++thread) {
            object->ref();
        }
        onThreads([&] { object->unref(); });
        ASSERT_EQ(living, 0);
    }
}

}  // namespace
}  // namespace qel::test
