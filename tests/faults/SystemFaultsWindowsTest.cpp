#include <filesystem>

#include "HostSessionWindows.h"
#include "kit/LongRun.h"
#include "kit/Picture.h"

namespace qel::test {
namespace {

/// A function of the system that a session calls, and what it answers when it fails.
struct Failing {
    const char* function;
    std::int64_t answer;
};

constexpr std::int64_t kNoFile = -1;

const Failing kFailing[] = {
    {"GetClientRect", FALSE},   {"GetDC", 0},
    {"ChoosePixelFormat", 0},   {"SetPixelFormat", FALSE},
    {"DescribePixelFormat", 0}, {"wglCreateContext", 0},
    {"wglMakeCurrent", FALSE},  {"wglGetCurrentContext", 0},
    {"wglGetCurrentDC", 0},     {"SwapBuffers", FALSE},
    {"glGenLists", 0},          {"CreateFontW", 0},
    {"SelectObject", 0},        {"wglUseFontBitmapsW", FALSE},
    {"GetCharWidth32W", FALSE}, {"gluNewQuadric", 0},
    {"gluUnProject", GL_FALSE}, {"gluProject", GL_FALSE},
    {"CreateCompatibleDC", 0},  {"CreateDIBSection", 0},
    {"GetDIBits", 0},           {"CreateFileW", kNoFile},
    {"WriteFile", FALSE},       {"GetWindowRect", FALSE},
    {"CreatePen", 0},           {"CreateHatchBrush", 0},
};

class SystemFaults : public ::testing::TestWithParam<Failing> {
  protected:
    // Cameras print when their matrix cannot be inverted.
    void SetUp() override { ::testing::internal::CaptureStdout(); }
    void TearDown() override { ::testing::internal::GetCapturedStdout(); }

    /// A session on a display and in a window of its own, to their end, in which one call of the function
    /// fails; no call for 0.
    void session(int failingCall) {
        const TestWindow window(kWidth, kHeight);
        HeldDisplay display;
        CallTrace trace;
        if (failingCall > 0) {
            trace.answer(GetParam().function, GetParam().answer, failingCall);
        }
        sessionOf(*display, window, model);
        // No bracket of the session is left open.
        EXPECT_EQ(display->beginDraw(), 1);
        EXPECT_EQ(display->endDraw(), 0);
        display.release();
        calls = trace.count(GetParam().function);
    }

    /// A display in the window that shows its back colour and writes its bitmap.
    void expectHealthyDisplay() {
        std::filesystem::remove(captureName().toStdWString());
        const TestWindow window(kWidth, kHeight);
        const HeldDisplay display;
        sessionOf(*display, window, model);
        EXPECT_EQ(std::filesystem::file_size(captureName().toStdWString()), 54U + 20 * 10 * 3);
        display->setBackColor({0.0F, 1.0F, 0.0F});
        display->beginFrame(0);
        EXPECT_EQ(Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK).countOf({0, 255, 0, 255}),
                  static_cast<std::size_t>(kWidth * kHeight));
    }

    static constexpr int kWidth = 100;
    static constexpr int kHeight = 80;
    const HostsModel model{};
    std::size_t calls = 0;
};

TEST_P(SystemFaults, AtAnyCallOfASessionLeaveNothingBehindAndTheNextDisplayWell) {
    constexpr int kMostOfAShortRun = 2;
    censusAfterFirstUse();
    session(0);
    const int callsOfASession = static_cast<int>(calls);
    ASSERT_GT(callsOfASession, 0);
    const Census before = Census::now();
    const int step = shortOrLong((callsOfASession + kMostOfAShortRun - 1) / kMostOfAShortRun, 1);
    int faults = 0;
    for (int nth = 1; nth <= callsOfASession && !HasFailure(); nth += step) {
        SCOPED_TRACE("call " + std::to_string(nth) + " of " + std::to_string(callsOfASession));
        session(nth);
        ++faults;
        EXPECT_EQ(Census::now(), before);
        expectHealthyDisplay();
    }
    RecordProperty("faults", faults);
}

INSTANTIATE_TEST_SUITE_P(Of, SystemFaults, ::testing::ValuesIn(kFailing),
                         [](const auto& tested) { return std::string(tested.param.function); });

}  // namespace
}  // namespace qel::test
