#include <atomic>
#include <thread>
#include <vector>

#include "Endurance.h"
#include "display/DisplayFixtureWindows.h"
#include "kit/OpenHandles.h"

namespace qel::test {
namespace {

/// Threads that start and end other threads, each of which the library hears of twice.
class Storm {
  public:
    Storm(int starters, int threadsOfEach) {
        for (int i = 0; i < starters; ++i) {
            running.emplace_back([this, threadsOfEach] {
                for (int started = 0; started < threadsOfEach; ++started) {
                    std::thread([this] { ++ended; }).join();
                }
                ++finished;
            });
        }
    }
    ~Storm() {
        for (std::thread& starter : running) {
            starter.join();
        }
    }
    Storm(const Storm&) = delete;
    Storm& operator=(const Storm&) = delete;

    [[nodiscard]] bool blows() const { return finished < static_cast<int>(running.size()); }
    [[nodiscard]] int threadsEnded() const { return ended; }

  private:
    std::atomic<int> ended = 0;
    std::atomic<int> finished = 0;
    std::vector<std::thread> running;
};

/// Takes the public symbol, draws with it and ends a frame; false if there was none.
bool drawWithThePublicSymbol(const HeldDisplay& display) {
    display->beginFrame(0);
    display->beginDraw();
    const ref_ptr<IQelSymbol> symbol = getPubSymbol();
    if (symbol) {
        symbol->drawCross({0.0, 0.0, 0.0}, 5.0, 1.0F, {1.0F, 1.0F, 0.0F}, false, false);
    }
    display->endFrame();
    return static_cast<bool>(symbol);
}

TEST(ThreadStorm, OfStartingAndEndingThreadsDoesNotDisturbTheThreadThatDraws) {
    constexpr int kStarters = 8;
    const int threads = shortOrLong(160, 20'000);
    const TestWindow window(16, 16);
    const HeldDisplay display;
    display.attach(window);
    {
        // The tables of threads and of their stacks grow once.
        const Storm first(kStarters, 5);
        while (first.blows()) {
            EXPECT_TRUE(drawWithThePublicSymbol(display));
        }
    }
    const int handles = openHandles();
    const HeldBefore before;
    int frames = 0;
    int without = 0;
    {
        const Storm storm(kStarters, threads / kStarters);
        while (storm.blows()) {
            without += drawWithThePublicSymbol(display) ? 0 : 1;
            ++frames;
        }
        EXPECT_EQ(storm.threadsEnded(), threads);
    }
    EXPECT_EQ(without, 0) << "of " << frames;
    EXPECT_GT(frames, threads / 100);
    RecordProperty("frames", frames);
    EXPECT_LE(openHandles(), handles + 2);
    before.expectStillHeld(threads);
    // Nobody but the slot and this line holds the symbol that the last thread left there.
    EXPECT_EQ(getPubSymbol()->referenceCount(), 2);
}

}  // namespace
}  // namespace qel::test
