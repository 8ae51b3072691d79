#include "ExtremeNumbers.h"
#include "GdiFixtureWindows.h"

namespace qel::test {
namespace {

using GdiDisplayTrace = GdiTest;

TEST_F(GdiDisplayTrace, OfAnAttachTakesTheDeviceContextAndTheOuterSize) {
    const TestWindow other(321, 123);
    const HeldGdiDisplay attached;
    const CallTrace trace;
    EXPECT_EQ(attached->attachWindow(number32(other.hwnd())), 0);
    EXPECT_TRUE(
        callsMatch(trace.calls(), {call("GetDC", hwndOf(other)), call("GetWindowRect", hwndOf(other), out)}));
    EXPECT_EQ(attached->getWindow(), number32(other.hwnd()));
    EXPECT_NE(attached->getDC(), 0);
    attached->setViewExtent({0, 0, 321, 123});
    EXPECT_EQ(attached->worldToScreen({0, 0}).y, 122);
    EXPECT_EQ(attached->worldToScreen({320, 0}).x, 320);
}

TEST_F(GdiDisplayTrace, OfAnAttachCountsTheFrameOfTheWindow) {
    HWND const framed = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr,
                                        nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(framed, nullptr);
    RECT outer{};
    RECT client{};
    GetWindowRect(framed, &outer);
    GetClientRect(framed, &client);
    ASSERT_LT(client.bottom, outer.bottom - outer.top);
    {
        const HeldGdiDisplay attached;
        attached->attachWindow(handleNumber(framed));
        attached->setViewExtent({0, 0, 1, 1});
        const Enve2d shown = attached->getViewExtent();
        EXPECT_DOUBLE_EQ(shown.Width() / shown.Hight(),
                         double(outer.right - outer.left) / double(outer.bottom - outer.top));
    }
    DestroyWindow(framed);
}

TEST_F(GdiDisplayTrace, OfAnAttachToNoWindowIsEmpty) {
    const CallTrace trace;
    EXPECT_EQ(display->attachWindow(0), -1);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
    EXPECT_EQ(display->getWindow(), number32(window.hwnd()));
    EXPECT_EQ(display->getDC(), number32(window.dc()));
}

TEST_F(GdiDisplayTrace, OfASecondAttachGivesTheFirstDeviceContextBack) {
    const TestWindow other(50, 60);
    const CallTrace trace;
    EXPECT_EQ(display->attachWindow(number32(other.hwnd())), 0);
    EXPECT_TRUE(callsMatch(trace.calls(), {call("DeleteDC", dc), call("GetDC", hwndOf(other)),
                                           call("GetWindowRect", hwndOf(other), out)}));
    EXPECT_EQ(display->getWindow(), number32(other.hwnd()));
}

TEST_F(GdiDisplayTrace, OfASecondAttachInABracketGivesTheToolsBackFirst) {
    HGDIOBJ const oldPen = selected(dc, OBJ_PEN);
    HGDIOBJ const oldBrush = selected(dc, OBJ_BRUSH);
    display->beginDraw();
    HGDIOBJ const pen = selected(dc, OBJ_PEN);
    HGDIOBJ const brush = selected(dc, OBJ_BRUSH);
    const TestWindow other(50, 60);
    const CallTrace trace;
    EXPECT_EQ(display->attachWindow(number32(other.hwnd())), 0);
    Calls expected = toolsGone(dc, oldPen, oldBrush, pen, brush);
    for (const std::string& text :
         {call("DeleteDC", dc), call("GetDC", hwndOf(other)), call("GetWindowRect", hwndOf(other), out)}) {
        expected.push_back(text);
    }
    EXPECT_TRUE(callsMatch(trace.calls(), expected));
}

/// The window has one device context all its life.
TEST_F(GdiDisplayTrace, OfADisplayThatIsDestroyedLeavesTheToolsOfAnotherOne) {
    for (const bool isOtherInItsBracket : {false, true}) {
        HeldGdiDisplay other;
        other->attachWindow(number32(window.hwnd()));
        other->beginDraw();
        if (!isOtherInItsBracket) {
            other->endDraw();
        }
        display->beginDraw();
        HGDIOBJ const pen = selected(dc, OBJ_PEN);
        HGDIOBJ const brush = selected(dc, OBJ_BRUSH);
        const CallTrace trace;
        other.release();
        EXPECT_EQ(trace.count("SelectObject"), 0U);
        EXPECT_EQ(selected(dc, OBJ_PEN), pen);
        EXPECT_EQ(selected(dc, OBJ_BRUSH), brush);
        display->endDraw();
    }
}

TEST_F(GdiDisplayTrace, OfADisplayThatIsDestroyedInItsBracketGivesTheToolsBack) {
    HGDIOBJ const oldPen = selected(dc, OBJ_PEN);
    HGDIOBJ const oldBrush = selected(dc, OBJ_BRUSH);
    display->beginDraw();
    HGDIOBJ const pen = selected(dc, OBJ_PEN);
    HGDIOBJ const brush = selected(dc, OBJ_BRUSH);
    const CallTrace trace;
    display.release();
    Calls expected = toolsGone(dc, oldPen, oldBrush, pen, brush);
    expected.push_back(call("ReleaseDC", hwndOf(window), dc));
    EXPECT_TRUE(callsMatch(trace.calls("SelectObject", "DeleteObject", "ReleaseDC"), expected));
}

TEST_F(GdiDisplayTrace, OfABracketMakesSelectsAndDeletesTheTools) {
    HGDIOBJ const oldPen = selected(dc, OBJ_PEN);
    HGDIOBJ const oldBrush = selected(dc, OBJ_BRUSH);
    CallTrace trace;
    EXPECT_EQ(display->beginDraw(), 1);
    EXPECT_TRUE(callsMatch(trace.calls(), toolsMade()));
    HGDIOBJ const pen = selected(dc, OBJ_PEN);
    HGDIOBJ const brush = selected(dc, OBJ_BRUSH);
    EXPECT_NE(pen, oldPen);
    EXPECT_NE(brush, oldBrush);

    trace.clear();
    EXPECT_EQ(display->endDraw(), 1);
    EXPECT_TRUE(callsMatch(trace.calls(), toolsGone(dc, oldPen, oldBrush, pen, brush)));
    EXPECT_EQ(selected(dc, OBJ_PEN), oldPen);
    EXPECT_EQ(selected(dc, OBJ_BRUSH), oldBrush);
}

TEST_F(GdiDisplayTrace, OfAToolChangeInABracketReplacesBothTools) {
    HGDIOBJ const oldPen = selected(dc, OBJ_PEN);
    HGDIOBJ const oldBrush = selected(dc, OBJ_BRUSH);
    display->beginDraw();
    CallTrace trace;
    const auto expectReplaced = [&](const std::function<std::int32_t()>& change, const Calls& made) {
        HGDIOBJ const pen = selected(dc, OBJ_PEN);
        HGDIOBJ const brush = selected(dc, OBJ_BRUSH);
        trace.clear();
        EXPECT_EQ(change(), 0);
        Calls expected = toolsGone(dc, oldPen, oldBrush, pen, brush);
        expected.insert(expected.end(), made.begin(), made.end());
        EXPECT_TRUE(callsMatch(trace.calls(), expected));
    };
    expectReplaced([&] { return display->setPenWidth(5); }, toolsMade(5));
    expectReplaced([&] { return display->setPenColor(0x00FF00); }, toolsMade(5, 0x00FF00));
    expectReplaced([&] { return display->setBrushColor(0x0000FF); }, toolsMade(5, 0x00FF00, 0x0000FF));
    expectReplaced([&] { return display.own().createTools(); }, toolsMade(5, 0x00FF00, 0x0000FF));
    display->endDraw();
    EXPECT_EQ(selected(dc, OBJ_PEN), oldPen);
    EXPECT_EQ(selected(dc, OBJ_BRUSH), oldBrush);
}

TEST_F(GdiDisplayTrace, OfARectangleFillsItAndThenGoesRoundIt) {
    display->setPixelSize(kWidth, kHeight);
    display->setViewExtent({0, 0, kWidth, kHeight});
    display->beginDraw();
    HGDIOBJ const brush = selected(dc, OBJ_BRUSH);
    CallTrace trace;
    // Lower left at (10, 20) is pixel (10, 79), upper right at (60, 50) pixel (60, 49).
    const Calls outline{call("MoveToEx", dc, 10, 79, nullptr), call("LineTo", dc, 60, 79),
                        call("LineTo", dc, 60, 49), call("LineTo", dc, 10, 49), call("LineTo", dc, 10, 79)};
    EXPECT_EQ(display->drawRect({10, 20, 60, 50}, true), 1);
    EXPECT_TRUE(callsMatch(trace.calls(), outline));

    trace.clear();
    EXPECT_EQ(display->drawRect({10, 20, 60, 50}, false), 1);
    Calls filled{call("FillRect", dc, RECT{10, 79, 60, 49}, brush)};
    filled.insert(filled.end(), outline.begin(), outline.end());
    EXPECT_TRUE(callsMatch(trace.calls(), filled));
}

TEST_F(GdiDisplayTrace, OfAnInvertedRectangleKeepsItsOrder) {
    display->setViewExtent({0, 0, kWidth, kHeight});
    display->beginDraw();
    HGDIOBJ const brush = selected(dc, OBJ_BRUSH);
    const CallTrace trace;
    display->drawRect({60, 50, 10, 20}, false);
    EXPECT_TRUE(callsMatch(
        trace.calls(), {call("FillRect", dc, RECT{60, 49, 10, 79}, brush),
                        call("MoveToEx", dc, 60, 49, nullptr), call("LineTo", dc, 10, 49),
                        call("LineTo", dc, 10, 79), call("LineTo", dc, 60, 79), call("LineTo", dc, 60, 49)}));
}

TEST_F(GdiDisplayTrace, OfASegmentMovesAndDrawsInThePlane) {
    display->setViewExtent({0, 0, kWidth, kHeight});
    display->beginDraw();
    const CallTrace trace;
    EXPECT_EQ(display->drawLineSeg({{10, 20, 5}, {60, 50, -1e9}}), 1);
    EXPECT_EQ(display->drawLineSeg({{-1e300, 20, 0}, {60, 1e300, 0}}), 1);
    EXPECT_TRUE(callsMatch(
        trace.calls(), {call("MoveToEx", dc, 10, 79, nullptr), call("LineTo", dc, 60, 49),
                        call("MoveToEx", dc, kSmallest, 79, nullptr), call("LineTo", dc, 60, kSmallest)}));
}

TEST_F(GdiDisplayTrace, OfTheMappingIsEmpty) {
    const CallTrace trace;
    display->setPixelSize(10, 10);
    display->setFullExtent({0, 0, 1, 1});
    display->zoomToFull();
    display->worldToScreen({0, 0});
    display->screenToWorld(0, 0);
    EXPECT_TRUE(callsMatch(trace.calls(), {}));
}

}  // namespace
}  // namespace qel::test
