#include "MouseGesture.h"

#include <gtest/gtest.h>

namespace {

using qelview::DragTool;
using qelview::MouseButton;
using qelview::MouseGesture;

struct Press {
    const char* name;
    MouseButton button;
    bool withShift;
    bool drawsRectangle;
    DragTool tool;
};

class MouseGestureOfAButton : public testing::TestWithParam<Press> {};

TEST_P(MouseGestureOfAButton, DrivesItsTool) {
    const Press& press = GetParam();
    MouseGesture gesture;
    EXPECT_TRUE(gesture.press(press.button, press.withShift, press.drawsRectangle, {10, 10}));
    EXPECT_EQ(gesture.tool(), press.tool);
    EXPECT_TRUE(gesture.move({30, 10}));
    EXPECT_EQ(gesture.release(press.button), press.tool);
    EXPECT_FALSE(gesture.isActive());
    EXPECT_EQ(gesture.tool(), DragTool::Nothing);
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, MouseGestureOfAButton,
    testing::Values(Press{"Left", MouseButton::Left, false, false, DragTool::Rotate},
                    Press{"ShiftLeft", MouseButton::Left, true, false, DragTool::Pan},
                    Press{"Middle", MouseButton::Middle, false, false, DragTool::Pan},
                    Press{"Right", MouseButton::Right, false, false, DragTool::Zoom},
                    Press{"LeftForARectangle", MouseButton::Left, false, true, DragTool::Rectangle},
                    Press{"ShiftLeftForARectangle", MouseButton::Left, true, true, DragTool::Rectangle},
                    Press{"RightBesideARectangle", MouseButton::Right, false, true, DragTool::Zoom}),
    [](const auto& each) { return each.param.name; });

TEST(MouseGesture, IsAClickWhileTheMouseHardlyMoves) {
    MouseGesture gesture;
    gesture.press(MouseButton::Left, false, false, {10, 10});
    EXPECT_FALSE(gesture.move({13, 7}));
    EXPECT_FALSE(gesture.isDrag());
    EXPECT_EQ(gesture.release(MouseButton::Left), DragTool::Nothing);
}

TEST(MouseGesture, StaysADragWhenTheMouseComesBack) {
    MouseGesture gesture;
    gesture.press(MouseButton::Left, false, false, {10, 10});
    EXPECT_TRUE(gesture.move({10, 14}));
    EXPECT_TRUE(gesture.move({10, 10}));
    EXPECT_EQ(gesture.release(MouseButton::Left), DragTool::Rotate);
}

TEST(MouseGesture, KeepsToTheFirstButton) {
    MouseGesture gesture;
    gesture.press(MouseButton::Left, false, false, {10, 10});
    EXPECT_FALSE(gesture.press(MouseButton::Right, false, false, {50, 50}));
    EXPECT_EQ(gesture.release(MouseButton::Right), std::nullopt);
    EXPECT_EQ(gesture.tool(), DragTool::Rotate);
    EXPECT_EQ(gesture.box().from, (qelview::PixelPlace{10, 10}));
}

TEST(MouseGesture, ForgetsADragThatWasTakenAway) {
    MouseGesture gesture;
    gesture.press(MouseButton::Left, false, false, {10, 10});
    gesture.move({40, 40});
    gesture.cancel();
    EXPECT_FALSE(gesture.move({60, 60}));
    EXPECT_EQ(gesture.release(MouseButton::Left), std::nullopt);
    EXPECT_FALSE(gesture.isDrag());
}

TEST(MouseGesture, SpansTheRectangleFromThePressToTheMouse) {
    MouseGesture gesture;
    gesture.press(MouseButton::Left, false, true, {40, 10});
    gesture.move({10, 30});
    EXPECT_EQ(gesture.box().width(), 30);
    EXPECT_EQ(gesture.box().height(), 20);
    EXPECT_EQ(gesture.box().middle(), (qelview::PixelPlace{25, 20}));
}

}  // namespace
