#include <array>
#include <bit>

#include "Monkey.h"
#include "gdi/GdiFixtureWindows.h"

namespace qel::test {
namespace {

/// Everything that a display tells about itself, with doubles as their bits: a value that is not a number is
/// equal to itself.
struct Told {
    std::int32_t window = 0;
    std::int32_t dc = 0;
    std::int32_t penWidth = 0;
    std::uint32_t penColor = 0;
    std::uint32_t brushColor = 0;
    std::array<std::uint64_t, 4> extent{};
    std::array<std::uint64_t, 4> corners{};
    std::array<std::int32_t, 4> pixels{};

    static std::uint64_t bitsOf(double value) { return std::bit_cast<std::uint64_t>(value); }

    static Told by(IQelScrDisplay2D& display) {
        const Enve2d extent = display.getViewExtent();
        const XPnt2d first = display.screenToWorld(0, 0);
        const XPnt2d second = display.screenToWorld(100, 70);
        const PixelPoint one = display.worldToScreen({1.0, 2.0});
        const PixelPoint other = display.worldToScreen({60.0, 40.0});
        return {display.getWindow(),
                display.getDC(),
                display.getPenWidth(),
                display.getPenColor(),
                display.getBrushColor(),
                {bitsOf(extent.xmin), bitsOf(extent.xmax), bitsOf(extent.ymin), bitsOf(extent.ymax)},
                {bitsOf(first.x), bitsOf(first.y), bitsOf(second.x), bitsOf(second.y)},
                {one.x, one.y, other.x, other.y}};
    }

    bool operator==(const Told&) const = default;
};

/// A display and the windows it may be attached to, one of which is gone.
struct FlatDisplayAndWindows {
    TestWindow first{120, 80};
    TestWindow second{90, 140};
    std::int32_t gone = 0;
    HeldGdiDisplay display;
    Told before;
    /// Whether the call that was made may have changed what the display tells.
    bool mayChange = false;

    FlatDisplayAndWindows() {
        const TestWindow passing;
        gone = number32(passing.hwnd());
    }
};

using FlatOperation = MonkeyOperation<FlatDisplayAndWindows>;
using Subject = FlatDisplayAndWindows;

std::uint32_t anyColor(WildArguments& wild) {
    return wild.pick(4) == 0 ? wild.size() : static_cast<std::uint32_t>(wild.pick(0x1000000));
}

constexpr FlatOperation kFlatOperations[] = {
    {"attachWindow",
     [](Subject& s, WildArguments& w) {
         const std::int32_t windows[] = {number32(s.first.hwnd()), number32(s.second.hwnd()), s.gone, 0};
         const std::int32_t window = windows[w.pick(std::size(windows))];
         EXPECT_EQ(s.display->attachWindow(window), window == 0 ? -1 : 0);
         s.mayChange = window != 0;
         EXPECT_TRUE(window == 0 || s.display->getWindow() == window);
     }},
    {"setPixelSize",
     [](Subject& s, WildArguments& w) {
         const std::int32_t width = w.whole();
         EXPECT_EQ(s.display->setPixelSize(width, w.whole()), 0);
         s.mayChange = true;
     }},
    {"beginDraw", [](Subject& s, WildArguments&) { EXPECT_EQ(s.display->beginDraw(), 1); }},
    {"endDraw", [](Subject& s, WildArguments&) { EXPECT_EQ(s.display->endDraw(), 1); }},
    {"reservedSlots",
     [](Subject& s, WildArguments&) {
         IQelScrDisplay2D& display = *s.display.operator->();
         EXPECT_EQ(display.reservedSlot7() + display.reservedSlot8() + display.reservedSlot9(), 3);
         EXPECT_EQ(display.reservedSlot10() + display.reservedSlot11() + display.reservedSlot12() +
                       display.reservedSlot13() + display.reservedSlot26() + display.reservedSlot34(),
                   -6);
     }},
    {"caches",
     [](Subject& s, WildArguments& w) {
         EXPECT_EQ(s.display->getActiveCache(), 0);
         EXPECT_EQ(s.display->setActiveCache(w.whole()), 0);
         EXPECT_EQ(s.display->getCacheDC(w.whole()), 0);
         EXPECT_EQ(s.display->UpdateWindow(), 0);
     }},
    {"setFullExtent", [](Subject& s, WildArguments& w) { EXPECT_EQ(s.display->setFullExtent(w.rect()), 0); }},
    {"zoomToFull",
     [](Subject& s, WildArguments&) {
         EXPECT_EQ(s.display->zoomToFull(), 0);
         s.mayChange = true;
     }},
    {"setViewExtent",
     [](Subject& s, WildArguments& w) {
         EXPECT_EQ(s.display->setViewExtent(w.rect()), 0);
         s.mayChange = true;
     }},
    {"worldToScreen",
     [](Subject& s, WildArguments& w) {
         const XPnt3d point = w.point();
         const PixelPoint flat = s.display->worldToScreen({point.x, point.y});
         const PixelPoint deep = s.display->worldToScreen3d(point);
         EXPECT_EQ(flat.x, deep.x);
         EXPECT_EQ(flat.y, deep.y);
     }},
    {"screenToWorld",
     [](Subject& s, WildArguments& w) {
         const std::int32_t x = w.pixel();
         const std::int32_t y = w.pixel();
         const XPnt2d one = s.display->screenToWorld(x, y);
         const XPnt2d other = s.display->screenToWorldPoint({x, y});
         EXPECT_EQ(Told::bitsOf(one.x), Told::bitsOf(other.x));
         EXPECT_EQ(Told::bitsOf(one.y), Told::bitsOf(other.y));
     }},
    {"setPenWidth",
     [](Subject& s, WildArguments& w) {
         const std::int32_t width = w.whole();
         EXPECT_EQ(s.display->setPenWidth(width), 0);
         EXPECT_EQ(s.display->getPenWidth(), width);
         s.mayChange = true;
     }},
    {"setPenColor",
     [](Subject& s, WildArguments& w) {
         const std::uint32_t color = anyColor(w);
         EXPECT_EQ(s.display->setPenColor(color), 0);
         EXPECT_EQ(s.display->getPenColor(), color);
         s.mayChange = true;
     }},
    {"setBrushColor",
     [](Subject& s, WildArguments& w) {
         const std::uint32_t color = anyColor(w);
         EXPECT_EQ(s.display->setBrushColor(color), 0);
         EXPECT_EQ(s.display->getBrushColor(), color);
         s.mayChange = true;
     }},
    {"drawRect",
     [](Subject& s, WildArguments& w) {
         const Enve2d rect = w.rect();
         EXPECT_EQ(s.display->drawRect(rect, w.flag()), 1);
     }},
    {"drawLineSeg",
     [](Subject& s, WildArguments& w) {
         const XPnt3d from = w.point();
         EXPECT_EQ(s.display->drawLineSeg({from, w.point()}), 1);
     }},
    {"computeScale",
     [](Subject& s, WildArguments& w) {
         const Enve2d extent = w.rect();
         const double scale = s.display.own().computeScale(extent);
         EXPECT_TRUE(extent.Width() != 0.0 || scale == 0.0);
         EXPECT_TRUE(extent.Hight() != 0.0 || scale == 0.0);
     }},
    {"fitExtent",
     [](Subject& s, WildArguments& w) {
         Enve2d extent = w.rect();
         EXPECT_EQ(s.display.own().fitExtent(extent), 0);
         s.mayChange = true;
     }},
    {"references",
     [](Subject& s, WildArguments&) {
         s.display->AddRef();
         s.display->Release();
     }},
};

/// What a display draws on a bitmap that stands for its window.
Picture drawnOnABitmap(const HeldGdiDisplay& display, const TestWindow& window) {
    const Canvas canvas(100, 60);
    CallTrace trace;
    trace.answerPointer("GetDC", canvas.handle(), 1);
    EXPECT_EQ(display->attachWindow(number32(window.hwnd())), 0);
    display->setPixelSize(100, 60);
    display->setViewExtent({0.0, 0.0, 100.0, 60.0});
    display->beginDraw();
    display->setPenWidth(2);
    display->setPenColor(0x0000FF);
    display->setBrushColor(0x00FF00);
    display->drawRect({10.0, 10.0, 80.0, 40.0}, false);
    display->drawLineSeg({{0.0, 0.0, 0.0}, {99.0, 59.0, 0.0}});
    display->endDraw();
    Picture picture = canvas.picture();
    // The bitmap goes: back to the window, without deleting the bitmap's device context twice.
    trace.answer("DeleteDC", 1, 1);
    EXPECT_EQ(display->attachWindow(number32(window.hwnd())), 0);
    return picture;
}

class GdiMonkey : public ::testing::TestWithParam<std::uint64_t> {};

TEST_P(GdiMonkey, EndsWithADisplayThatDrawsAsANewOneAndGivesEverythingBack) {
    const auto play = [] {
        Subject subject;
        letMonkeyPlay<Subject>(
            subject, kFlatOperations, GetParam(),
            [&subject] {
                subject.before = Told::by(*subject.display.operator->());
                subject.mayChange = false;
            },
            [&subject](const FlatOperation&, const WildArguments&) {
                ASSERT_TRUE(subject.mayChange || Told::by(*subject.display.operator->()) == subject.before)
                    << "changed what it tells";
                ASSERT_EQ(subject.display->referenceCount(), 1);
            });
        const HeldGdiDisplay fresh;
        EXPECT_TRUE(drawnOnABitmap(subject.display, subject.second) == drawnOnABitmap(fresh, subject.first));
    };
    play();
    const Census before = Census::now();
    play();
    EXPECT_EQ(Census::now().gdiHandles, before.gdiHandles);
    EXPECT_EQ(Census::now().userHandles, before.userHandles);
    RecordProperty("calls", 2 * shortOrLong(kCallsOfAShortRun, kCallsOfALongRun) / 4);
    RecordProperty("seed", static_cast<int>(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Seed, GdiMonkey, ::testing::ValuesIn(monkeySeeds()),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace qel::test
