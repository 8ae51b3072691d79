#include <tuple>

#include "CaptureFixture.h"
#include "kit/GuardedHeap.h"
#include "kit/Picture.h"

namespace qel::test {
namespace {

/// What stands for a file that could not be opened.
constexpr std::int64_t kNoFile = -1;

struct CaptureFault {
    const char* function;
    int nth;
    std::int64_t answer;
    std::int32_t begins;
    /// What a second attempt without the fault finds: the file that the first one wrote, or none.
    bool writes;
    const char* name;
};

/// How many more of the capture's objects were made than given back.
std::string balance(const CallTrace& trace) {
    const auto open = [&trace](std::initializer_list<const char*> made, const char* given) {
        long count = -static_cast<long>(trace.count(given));
        for (const char* const name : made) {
            count += static_cast<long>(trace.count(name));
        }
        return std::to_string(count);
    };
    return open({"CreateCompatibleDC"}, "DeleteDC") + " device contexts, " +
           open({"CreateDIBSection", "CreateFontW"}, "DeleteObject") + " GDI objects, " +
           open({"wglCreateContext"}, "wglDeleteContext") + " contexts";
}

constexpr char kBalanced[] = "0 device contexts, 0 GDI objects, 0 contexts";

class ScreenCaptureFaults : public Capture, public ::testing::WithParamInterface<CaptureFault> {};

TEST_P(ScreenCaptureFaults, LeaveADisplayThatWorksAndGivesEverythingBack) {
    const Census before = censusAfterFirstUse();
    const Picture picture = windowFrame();
    {
        CallTrace trace;
        trace.answer(GetParam().function, GetParam().answer, GetParam().nth);
        EXPECT_EQ(begin(64, 40), GetParam().begins);
        if (GetParam().begins != 0) {
            EXPECT_EQ(currentContext(), context);
        }
        drawHostsScene();
        EXPECT_EQ(display->saveBitmap(), 0);
    }
    EXPECT_EQ(file.exists() && file.size() == 54U + 64 * 40 * 3, GetParam().writes);

    // Without the fault: the bitmap is written and the window is back.
    if (!GetParam().writes) {
        ASSERT_EQ(begin(64, 40), 0);
        drawHostsScene();
        EXPECT_EQ(display->saveBitmap(), 0);
        EXPECT_EQ(file.size(), 54U + 64 * 40 * 3);
    }
    EXPECT_EQ(currentContext(), context);
    EXPECT_TRUE(windowFrame() == picture);
    EXPECT_EQ(Census::now(), before);
}

TEST_P(ScreenCaptureFaults, LeaveNoHandleBehind) {
    TestWindow other(64, 64);
    HeldDisplay passing;
    passing.attach(other);
    CallTrace trace;
    trace.answer(GetParam().function, GetParam().answer, GetParam().nth);
    Enve2d extent = wholeView();
    const std::int32_t begun = passing->beginCapture(64, 40, &extent, file.name());
    passing->saveBitmap();
    trace.passOn();
    passing.release();

    EXPECT_EQ(begun, GetParam().begins);
    // The window's context was made before the trace. What could not be made has nothing to give back.
    const std::string name = GetParam().function;
    const std::string expected = std::string(name == "CreateCompatibleDC" ? "1" : "0") +
                                 " device contexts, " + (name == "CreateDIBSection" ? "1" : "0") +
                                 " GDI objects, -1 contexts";
    EXPECT_EQ(balance(trace), expected);
}

INSTANTIATE_TEST_SUITE_P(
    In, ScreenCaptureFaults,
    ::testing::Values(CaptureFault{"CreateCompatibleDC", 1, 0, -1, false, "CreateCompatibleDC"},
                      CaptureFault{"CreateDIBSection", 1, 0, -1, false, "CreateDIBSection"},
                      CaptureFault{"CreateDIBSection", 2, 0, -1, false, "TheDeepSection"},
                      CaptureFault{"ChoosePixelFormat", 0, 0, -1, false, "ChoosePixelFormat"},
                      CaptureFault{"ChoosePixelFormat", 2, 0, -1, false, "TheLastChoosePixelFormat"},
                      CaptureFault{"SetPixelFormat", 1, 0, -1, false, "SetPixelFormat"},
                      CaptureFault{"DescribePixelFormat", 1, 0, 0, true, "DescribePixelFormat"},
                      CaptureFault{"wglCreateContext", 1, 0, 0, true, "wglCreateContext"},
                      CaptureFault{"glGenLists", 1, 0, 0, true, "glGenLists"},
                      CaptureFault{"CreateFontW", 1, 0, 0, true, "CreateFontW"},
                      CaptureFault{"wglUseFontBitmapsW", 1, 0, 0, true, "wglUseFontBitmapsW"},
                      CaptureFault{"GetDIBits", 1, 0, 0, true, "GetDIBits"},
                      CaptureFault{"CreateFileW", 1, kNoFile, 0, false, "CreateFileW"},
                      CaptureFault{"WriteFile", 0, 0, 0, false, "WriteFile"}),
    [](const auto& tested) { return std::string(tested.param.name); });

using ScreenCaptureFaultsAndHandles = Capture;

QString unwritableName() {
    return QString::fromStdWString(
        (std::filesystem::temp_directory_path() / "no such folder" / "picture.bmp").wstring());
}

TEST_F(ScreenCaptureFaultsAndHandles, OfACaptureThatCannotBeWrittenAreKeptAndTheDisplayStaysInTheCapture) {
    Enve2d extent = wholeView();
    ASSERT_EQ(display->beginCapture(100, 50, &extent, unwritableName()), 0);
    const HGLRC ofCapture = currentContext();
    const CallTrace trace;
    EXPECT_EQ(display->saveBitmap(), 0);
    const Calls expected{call("wglGetCurrentContext"),
                         call("wglMakeCurrent", any, ofCapture),
                         call("glFinish"),
                         call("GetDIBits", anyArguments),
                         call("DeleteDC", any),
                         call("CreateFileW", anyArguments)};
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
    EXPECT_EQ(currentContext(), ofCapture);
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 100);
}

TEST_F(ScreenCaptureFaultsAndHandles, OfACaptureThatCannotBeWrittenLeaveTheWindowToItsNextFrame) {
    const Picture inWindow = windowFrame();
    const XPnt3d pixel = camera().projectPnt({5, 6, 7});
    Enve2d extent = wholeView();
    ASSERT_EQ(display->beginCapture(100, 50, &extent, unwritableName()), 0);
    drawHostsScene();
    EXPECT_NE(camera().projectPnt({5, 6, 7}).x, pixel.x);
    EXPECT_EQ(display->saveBitmap(), 0);

    EXPECT_TRUE(windowFrame() == inWindow);
    EXPECT_EQ(currentContext(), context);
    const XPnt3d again = camera().projectPnt({5, 6, 7});
    EXPECT_EQ(std::tie(again.x, again.y, again.z), std::tie(pixel.x, pixel.y, pixel.z));
    const CallTrace trace;
    display->finishFrame();
    EXPECT_TRUE(callsMatch(trace.callsOf("SwapBuffers"), {swaps()}));
    display->restoreCache();
    EXPECT_LT(compare(inWindow, Picture::ofFrame({0, 0, kWidth, kHeight}, GL_BACK)).share, 0.001);
    display->endDraw();
}

/// Frames of the window between the attempts change nothing in the picture that is kept.
TEST_F(ScreenCaptureFaultsAndHandles, OfAPictureThatIsSavedAgainAfterFramesOfTheWindowHoldWhatWasCaptured) {
    ASSERT_EQ(begin(100, 50), 0);
    drawHostsScene();
    display->saveBitmap();
    const std::vector<std::uint8_t> expected = file.bytes();
    ASSERT_EQ(begin(100, 50), 0);
    drawHostsScene();
    CallTrace trace;
    trace.answer("CreateFileW", kNoFile);
    display->saveBitmap();
    display->setBackColor({0, 1, 0});
    windowFrame();
    display->finishFrame();
    display->saveBitmap();
    trace.passOn();
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_TRUE(file.bytes() == expected);
    EXPECT_EQ(currentContext(), context);
}

/// Each block that the module asks for while it begins a capture is refused once.
TEST_F(ScreenCaptureFaultsAndHandles, OfACaptureThatGetsNoMemoryLeaveTheWindowItsStateAndItsFrame) {
    constexpr GLint kRowLength = 200;
    const Picture inWindow = windowFrame();
    glPixelStorei(GL_PACK_ROW_LENGTH, kRowLength);
    GuardedHeap heap;
    int refused = 0;
    bool goesOn = true;
    for (std::size_t nth = 1; goesOn; ++nth) {
        heap.refuse(nth);
        try {
            begin(16, 12);
        } catch (const std::bad_alloc&) {
            ++refused;
        }
        goesOn = heap.hasRefused();
        heap.refuse(0);
        EXPECT_EQ(display->saveBitmap(), 0);
        display->makeCurrent();
        GLint rowLength = 0;
        glGetIntegerv(GL_PACK_ROW_LENGTH, &rowLength);
        EXPECT_EQ(rowLength, kRowLength);
        EXPECT_TRUE(windowFrame() == inWindow);
    }
    EXPECT_GT(refused, 0);
}

TEST_F(ScreenCaptureFaultsAndHandles, OfAFileThatBecomesWritableAreGivenBackByTheNextSave) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "capture made later";
    std::filesystem::remove_all(folder);
    const Picture inWindow = windowFrame();
    Enve2d extent = wholeView();
    ASSERT_EQ(display->beginCapture(kWidth, kHeight, &extent,
                                    QString::fromStdWString((folder / "picture.bmp").wstring())),
              0);
    drawHostsScene();
    EXPECT_EQ(display->saveBitmap(), 0);
    std::filesystem::create_directories(folder);
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_EQ(std::filesystem::file_size(folder / "picture.bmp"), 54U + kWidth * kHeight * 3);
    EXPECT_EQ(currentContext(), context);
    EXPECT_TRUE(windowFrame() == inWindow);
    std::filesystem::remove_all(folder);
}

TEST_F(ScreenCaptureFaultsAndHandles, OfRepeatedBeginsFailedSavesAndTheDestructorAreAllGivenBack) {
    const Census before = censusAfterFirstUse();
    const CallTrace trace;
    {
        const TestWindow other(64, 64);
        const HeldDisplay passing;
        passing.attach(other);
        for (int round = 0; round < 20; ++round) {
            Enve2d extent = wholeView();
            const bool writable = round % 4 == 3;
            ASSERT_EQ(passing->beginCapture(32, 20, &extent, writable ? file.name() : unwritableName()), 0);
            if (round % 2 == 1) {
                passing->saveBitmap();
            }
        }
    }
    EXPECT_EQ(balance(trace), kBalanced);
    EXPECT_EQ(trace.count("wglCreateContext"), 21U);
    EXPECT_EQ(Census::now(), before);
}

/// Leaves memory of the size of a capture's pixels behind that somebody else has used.
void leaveUsedMemory(std::size_t bytes) {
    constexpr unsigned char kUsed = 0xAB;
    std::vector<std::vector<unsigned char>> blocks;
    for (int block = 0; block < 40; ++block) {
        blocks.emplace_back(bytes, kUsed);
    }
}

TEST_F(ScreenCaptureFaultsAndHandles, OfPixelsThatTheSystemDoesNotGiveShowNobodysMemory) {
    leaveUsedMemory(64 * 40 * 3);
    CallTrace trace;
    trace.answer("GetDIBits", 0);
    ASSERT_EQ(begin(64, 40), 0);
    EXPECT_EQ(display->saveBitmap(), 0);
    EXPECT_EQ(file.bytes(54, 64 * 40 * 3), std::vector<std::uint8_t>(64 * 40 * 3, 0));
}

TEST_F(ScreenCaptureFaultsAndHandles, OfAWindowThatIsGoneDuringTheCaptureAreGivenBack) {
    const Census before = censusAfterFirstUse();
    {
        HeldDisplay passing;
        {
            const TestWindow other(64, 64);
            passing.attach(other);
            Enve2d extent = wholeView();
            ASSERT_EQ(passing->beginCapture(32, 20, &extent, file.name()), 0);
        }
        EXPECT_EQ(passing->saveBitmap(), 0);
        EXPECT_EQ(file.size(), 54U + 32 * 20 * 3);
    }
    const Census after = Census::now();
    EXPECT_EQ(after.gdiHandles, before.gdiHandles);
    EXPECT_EQ(after.glContexts, before.glContexts);
}

}  // namespace
}  // namespace qel::test
