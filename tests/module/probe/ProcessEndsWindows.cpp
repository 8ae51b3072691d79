#include <windows.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#include <QString>

#include "ProbeLibraryWindows.h"
#include "ProbeScenes.h"
#include "QelDisplay64t.h"

namespace {

constexpr int kNoSuchWay = 91;

/// A display in a window of its own, and one of GDI in the same window.
class Alive {
  public:
    Alive() {
        HWND const window =
            CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 64, 64, nullptr, nullptr, nullptr, nullptr);
        const auto number = qel::handleNumber(window);
        display = exported<IQelDisplay* (*)()>("newScreenDisplay")();
        display->attachWindow(number, false);
        display->setViewSize(64, 64);
        flat = exported<IQelScrDisplay2D* (*)()>("newGDIScrDisplay")();
        flat->attachWindow(number);
        flat->beginDraw();
    }

    void draw() {
        display->beginFrame(0);
        display->beginDraw();
        display->printText("%d", 7);
        display->endFrame();
        display->beginDraw();
        display->endDraw();
        display->finishFrame();
        flat->drawRect({1.0, 1.0, 5.0, 5.0}, false);
    }

    IQelDisplay* display;
    IQelScrDisplay2D* flat;
};

/// Calls on a thread of its own and never comes back.
template <class Function>
[[noreturn]] void onAnotherThread(Function function) {
    std::thread(function).detach();
    for (;;) {
        Sleep(1000);
    }
}

void leaveFrameOpen(Alive& alive) {
    alive.display->beginFrame(0);
    alive.display->beginDraw();
}

int byReturn() {
    Alive first;
    Alive second;
    first.draw();
    leaveFrameOpen(second);
    return 41;
}

int byExitProcess() {
    Alive first;
    Alive second;
    first.draw();
    leaveFrameOpen(second);
    ExitProcess(42);
}

int byExit() {
    Alive alive;
    leaveFrameOpen(alive);
    std::exit(43);
}

int fromAnotherThread() {
    Alive alive;
    leaveFrameOpen(alive);
    onAnotherThread([] { ExitProcess(44); });
}

int byExitFromAnotherThread() {
    Alive alive;
    leaveFrameOpen(alive);
    onAnotherThread([] { std::exit(45); });
}

/// The thread that ends the process meets the other one anywhere in a frame.
int fromAnotherThreadWhileFramesAreDrawn() {
    static std::atomic<int> frames = 0;
    std::thread([] {
        while (frames < 20) {
            Sleep(0);
        }
        ExitProcess(46);
    }).detach();
    Alive alive;
    for (;;) {
        alive.draw();
        ++frames;
    }
}

int byReturnWhileAnotherThreadDraws() {
    static std::atomic<int> frames = 0;
    std::thread([] {
        Alive alive;
        for (;;) {
            alive.draw();
            ++frames;
        }
    }).detach();
    while (frames < 20) {
        Sleep(0);
    }
    return 47;
}

int inTheMiddleOfACapture() {
    Alive alive;
    qel::Enve2d extent(0.0, 0.0, 64.0, 64.0);
    const std::int32_t begun = alive.display->beginCapture(32, 32, &extent, QString("never written.bmp"));
    return begun == 0 ? 48 : kNoSuchWay;
}

/// When the thread of the load has gone already.
int afterTheSleep() {
    Alive alive;
    alive.draw();
    Sleep(6000);
    return 49;
}

}  // namespace

int endTheProcess(const char* way) {
    const struct {
        const char* name;
        int (*end)();
    } ways[] = {
        {"by-return", &byReturn},
        {"by-exit-process", &byExitProcess},
        {"by-exit", &byExit},
        {"from-another-thread", &fromAnotherThread},
        {"by-exit-from-another-thread", &byExitFromAnotherThread},
        {"from-another-thread-while-frames-are-drawn", &fromAnotherThreadWhileFramesAreDrawn},
        {"by-return-while-another-thread-draws", &byReturnWhileAnotherThreadDraws},
        {"in-the-middle-of-a-capture", &inTheMiddleOfACapture},
        {"after-the-sleep", &afterTheSleep},
    };
    LoadLibraryW(kLibrary);
    for (const auto& known : ways) {
        if (std::strcmp(way, known.name) == 0) {
            return known.end();
        }
    }
    return kNoSuchWay;
}
