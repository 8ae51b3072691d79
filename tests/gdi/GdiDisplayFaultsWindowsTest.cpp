#include "GdiFixtureWindows.h"

namespace qel::test {
namespace {

struct Fault {
    const char* function;
    int nth;
    const char* name;
};

void drawSomething(const HeldGdiDisplay& display) {
    EXPECT_EQ(display->beginDraw(), 1);
    EXPECT_EQ(display->drawRect({10, 10, 190, 90}, false), 1);
    EXPECT_EQ(display->setPenWidth(3), 0);
    EXPECT_EQ(display->drawLineSeg({{10, 50, 0}, {190, 50, 0}}), 1);
    EXPECT_EQ(display->setPenWidth(1), 0);
    EXPECT_EQ(display->endDraw(), 1);
}

class GdiDisplayFaults : public GdiPictureTest, public ::testing::WithParamInterface<Fault> {};

TEST_P(GdiDisplayFaults, SkipTheDrawingAndTheNextBracketDrawsAgain) {
    HDC const dc = canvas.handle();
    HGDIOBJ const oldPen = selected(dc, OBJ_PEN);
    HGDIOBJ const oldBrush = selected(dc, OBJ_BRUSH);
    drawSomething(display);
    const Picture expected = canvas.picture();
    PatBlt(dc, 0, 0, kWidth, kHeight, WHITENESS);
    {
        CallTrace trace;
        trace.answer(GetParam().function, 0, GetParam().nth);
        drawSomething(display);
        const std::string fault = GetParam().function;
        if (GetParam().nth == 0 && fault != "SelectObject") {
            EXPECT_TRUE(callsMatch(trace.calls("FillRect", "MoveToEx", "LineTo"), {})) << "not skipped";
        }
    }
    PatBlt(dc, 0, 0, kWidth, kHeight, WHITENESS);
    drawSomething(display);
    EXPECT_TRUE(canvas.picture() == expected);
    EXPECT_EQ(selected(dc, OBJ_PEN), oldPen);
    EXPECT_EQ(selected(dc, OBJ_BRUSH), oldBrush);
}

TEST_P(GdiDisplayFaults, LeaveNoToolBehind) {
    drawSomething(display);
    const Census before = Census::now();
    for (int round = 0; round < 50; ++round) {
        CallTrace trace;
        trace.answer(GetParam().function, 0, GetParam().nth);
        drawSomething(display);
        trace.passOn();
        drawSomething(display);
    }
    EXPECT_EQ(Census::now(), before);
}

INSTANTIATE_TEST_SUITE_P(In, GdiDisplayFaults,
                         ::testing::Values(Fault{"CreatePen", 0, "EveryPen"},
                                           Fault{"CreatePen", 1, "TheFirstPen"},
                                           Fault{"CreatePen", 2, "ThePenOfAChange"},
                                           Fault{"CreateHatchBrush", 0, "EveryBrush"},
                                           Fault{"CreateHatchBrush", 2, "TheBrushOfAChange"},
                                           Fault{"SelectObject", 0, "EverySelection"},
                                           Fault{"SelectObject", 1, "TheSelectionOfThePen"},
                                           Fault{"SelectObject", 2, "TheSelectionOfTheBrush"}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(GdiDisplayFaultsOnce, OfTheDeviceContextSkipsTheDrawing) {
    const TestWindow window(200, 100);
    const HeldGdiDisplay display;
    CallTrace trace;
    trace.answer("GetDC", 0);
    EXPECT_EQ(display->attachWindow(number32(window.hwnd())), 0);
    trace.passOn();
    EXPECT_EQ(display->getDC(), 0);
    EXPECT_EQ(display->getWindow(), number32(window.hwnd()));
    drawSomething(display);
    EXPECT_TRUE(callsMatch(trace.calls("FillRect", "MoveToEx", "LineTo"), {}));

    EXPECT_EQ(display->attachWindow(number32(window.hwnd())), 0);
    EXPECT_NE(display->getDC(), 0);
    drawSomething(display);
    EXPECT_GT(trace.count("LineTo"), 0U);
}

TEST(GdiDisplayFaultsOnce, OfAWindowThatIsGoneSkipsTheDrawing) {
    std::int32_t gone = 0;
    {
        const TestWindow window;
        gone = number32(window.hwnd());
    }
    const HeldGdiDisplay display;
    EXPECT_EQ(display->attachWindow(gone), 0);
    drawSomething(display);
    EXPECT_EQ(display->getWindow(), gone);
}

/// Objects made by the display and not deleted again.
long openTools(const CallTrace& trace) {
    return static_cast<long>(trace.count("CreatePen") + trace.count("CreateHatchBrush")) -
           static_cast<long>(trace.count("DeleteObject"));
}

TEST(GdiDisplayFaultsAndHandles, StayFlatOver100000ToolChangesAndBrackets) {
    constexpr int kRounds = 20000;
    constexpr int kChangesOfARound = 5;
    const TestWindow window(200, 100);
    const HeldGdiDisplay display;
    display->attachWindow(number32(window.hwnd()));
    display->setViewExtent({0, 0, 200, 100});
    drawSomething(display);
    // By the table of GDI handles of this process.
    const Census before = Census::now();
    for (int round = 0; round < kRounds; ++round) {
        const auto color = static_cast<std::uint32_t>(round) & 0xFFFFFFU;
        display->beginDraw();
        display->setPenWidth(1 + round % 7);
        display->setPenColor(color);
        display->setBrushColor(color ^ 0xFFFFFFU);
        display->endDraw();
    }
    EXPECT_EQ(Census::now(), before) << kRounds * kChangesOfARound << " changes";
}

TEST(GdiDisplayFaultsAndHandles, AreGivenBackOneForOne) {
    const TestWindow window(200, 100);
    CallTrace trace;
    {
        const HeldGdiDisplay display;
        display->attachWindow(number32(window.hwnd()));
        for (int round = 0; round < 500; ++round) {
            display->beginDraw();
            display->setPenWidth(round);
            display->setBrushColor(0);
            if (round % 3 != 0) {
                display->endDraw();
            }
        }
        EXPECT_EQ(openTools(trace), 0);
        display->beginDraw();
        EXPECT_EQ(openTools(trace), 2);
    }
    EXPECT_EQ(openTools(trace), 0) << "after the display";
    EXPECT_EQ(trace.count("ReleaseDC"), 1U);
}

TEST(GdiDisplayFaultsAndHandles, OfADisplayThatGoesInABracketAreGivenBack) {
    const TestWindow window(200, 100);
    const auto once = [&window] {
        const HeldGdiDisplay display;
        display->attachWindow(number32(window.hwnd()));
        display->beginDraw();
    };
    once();
    const Census before = Census::now();
    for (int round = 0; round < 200; ++round) {
        once();
    }
    EXPECT_EQ(Census::now(), before);
}

TEST(GdiDisplayFaultsAndHandles, OfRepeatedAttachesStayFlat) {
    const TestWindow window(200, 100);
    const TestWindow other(100, 200);
    const HeldGdiDisplay display;
    const auto once = [&] {
        for (const TestWindow* const target : {&window, &other}) {
            display->attachWindow(number32(target->hwnd()));
            display->beginDraw();
        }
    };
    once();
    const Census before = Census::now();
    for (int round = 0; round < 200; ++round) {
        once();
    }
    EXPECT_EQ(Census::now().gdiHandles, before.gdiHandles);
}

}  // namespace
}  // namespace qel::test
