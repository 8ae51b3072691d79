#include <windows.h>

#include <memory>

#include "AllBenches.h"
#include "ContextByHand.h"
#include "FrameByHand.h"
#include "TestWindow.h"

/// From a window to its first frame, and everything given back.

namespace qel::bench {

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr bool kNoStereo = false;

void firstFrameByModule() {
    const test::TestWindow window(kWidth, kHeight);
    const ref_ptr<IQelDisplay> display = adopt(newScreenDisplay());
    display->attachWindow(static_cast<std::int32_t>(window.hwnd()), kNoStereo);
    display->setViewSize(kWidth, kHeight);
    display->beginFrame(0);
    display->beginDraw();
    display->updateView();
    display->endFrame();
    glFinish();
}

void firstFrameByHand(BareView& view) {
    const test::TestWindow window(kWidth, kHeight);
    HWND const hwnd = reinterpret_cast<HWND>(window.hwnd());
    RECT client{};
    GetClientRect(hwnd, &client);
    view.dc = GetDC(hwnd);
    view.rc = contextByHand(view.dc, PFD_DRAW_TO_WINDOW | PFD_DOUBLEBUFFER, 16, 16);
    buildLettersByHand(view.dc);
    glViewport(0, 0, kWidth, kHeight);
    beginFrameByHand(view);
    beginDrawByHand(view);
    loadCamera(view);
    endFrameByHand(view);
    glFinish();
    wglMakeCurrent(view.dc, nullptr);
    wglDeleteContext(view.rc);
    ReleaseDC(hwnd, view.dc);
}

Forms firstFrameForms(Size) {
    // The camera of another display, whose context is not used.
    const auto view = std::make_shared<BareView>(Rig(kWidth, kHeight));
    Forms forms;
    forms.hasOwnCost = false;
    forms.module = repeated(firstFrameByModule);
    forms.bare = repeated([view] { firstFrameByHand(*view); });
    return forms;
}

}  // namespace

void addStartBenches(Operations& all) {
    all.push_back({"first frame after attach, with the window's context", "start", Kind::Start,
                   firstFrameForms, false});
}

}  // namespace qel::bench
