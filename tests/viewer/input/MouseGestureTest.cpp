#include "MouseGesture.h"

#include <gtest/gtest.h>

namespace {

using qelview::DragTool;
using qelview::MouseButton;
using qelview::MouseGesture;

struct Press {
    const char* name;
    MouseButton button;
    qelview::LeftButton left;
    DragTool tool;
};

class MouseGestureOfAButton : public testing::TestWithParam<Press> {};

TEST_P(MouseGestureOfAButton, DrivesItsTool) {
    const Press& press = GetParam();
    MouseGesture gesture;
    EXPECT_TRUE(gesture.press(press.button, press.left, {10, 10}));
    EXPECT_EQ(gesture.tool(), press.tool);
    EXPECT_TRUE(gesture.move({30, 10}));
    EXPECT_EQ(gesture.release(press.button), press.tool);
    EXPECT_FALSE(gesture.isActive());
    EXPECT_EQ(gesture.tool(), DragTool::Nothing);
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, MouseGestureOfAButton,
    testing::Values(Press{"Left", MouseButton::Left, {}, DragTool::Rotate},
                    Press{"ShiftLeft", MouseButton::Left, {false, true, false}, DragTool::Pan},
                    Press{"ControlLeft", MouseButton::Left, {false, false, true}, DragTool::Section},
                    Press{"ShiftControlLeft", MouseButton::Left, {false, true, true}, DragTool::Pan},
                    Press{"Middle", MouseButton::Middle, {}, DragTool::Pan},
                    Press{"ControlMiddle", MouseButton::Middle, {false, false, true}, DragTool::Pan},
                    Press{"Right", MouseButton::Right, {}, DragTool::Zoom},
                    Press{"LeftForARectangle", MouseButton::Left, {true, false, false}, DragTool::Rectangle},
                    Press{"AnyLeftForARectangle", MouseButton::Left, {true, true, true}, DragTool::Rectangle},
                    Press{"RightBesideARectangle", MouseButton::Right, {true, false, false}, DragTool::Zoom}),
    [](const auto& each) { return each.param.name; });

TEST(MouseGesture, IsAClickWhileTheMouseHardlyMoves) {
    MouseGesture gesture;
    gesture.press(MouseButton::Left, {}, {10, 10});
    EXPECT_FALSE(gesture.move({13, 7}));
    EXPECT_FALSE(gesture.isDrag());
    EXPECT_EQ(gesture.release(MouseButton::Left), DragTool::Nothing);
}

TEST(MouseGesture, StaysADragWhenTheMouseComesBack) {
    MouseGesture gesture;
    gesture.press(MouseButton::Left, {}, {10, 10});
    EXPECT_TRUE(gesture.move({10, 14}));
    EXPECT_TRUE(gesture.move({10, 10}));
    EXPECT_EQ(gesture.release(MouseButton::Left), DragTool::Rotate);
}

TEST(MouseGesture, KeepsToTheFirstButton) {
    MouseGesture gesture;
    gesture.press(MouseButton::Left, {}, {10, 10});
    EXPECT_FALSE(gesture.press(MouseButton::Right, {}, {50, 50}));
    EXPECT_EQ(gesture.release(MouseButton::Right), std::nullopt);
    EXPECT_EQ(gesture.tool(), DragTool::Rotate);
    EXPECT_EQ(gesture.box().from, (qelview::PixelPlace{10, 10}));
}

TEST(MouseGesture, ForgetsADragThatWasTakenAway) {
    MouseGesture gesture;
    gesture.press(MouseButton::Left, {}, {10, 10});
    gesture.move({40, 40});
    gesture.cancel();
    EXPECT_FALSE(gesture.move({60, 60}));
    EXPECT_EQ(gesture.release(MouseButton::Left), std::nullopt);
    EXPECT_FALSE(gesture.isDrag());
}

TEST(MouseGesture, SpansTheRectangleFromThePressToTheMouse) {
    MouseGesture gesture;
    gesture.press(MouseButton::Left, {true, false, false}, {40, 10});
    gesture.move({10, 30});
    EXPECT_EQ(gesture.box().width(), 30);
    EXPECT_EQ(gesture.box().height(), 20);
    EXPECT_EQ(gesture.box().middle(), (qelview::PixelPlace{25, 20}));
}

}  // namespace
