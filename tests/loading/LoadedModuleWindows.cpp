#include "LoadedModuleWindows.h"

#include "QelGl.h"

namespace qel::test {

LoadedModule::LoadedModule() : library(LoadLibraryW(kModule)) {
    WNDCLASSW description{};
    description.style = CS_OWNDC;
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"QelLoadingHost";
    RegisterClassW(&description);
    window = CreateWindowExW(0, description.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 0, 0, kSide, kSide,
                             nullptr, nullptr, description.hInstance, nullptr);
    shown = adopt(ofModule<decltype(newScreenDisplay)>("newScreenDisplay")());
    shown->attachWindow(handleNumber(window), false);
    shown->setViewSize(kSide, kSide);
    drawn = ofModule<decltype(newQelSymbol)>("newQelSymbol")();
}

LoadedModule::~LoadedModule() {
    drawn.reset();
    shown.reset();
    DestroyWindow(window);
    FreeLibrary(library);
}

void LoadedModule::beginFrame() {
    shown->beginFrame(0);
    shown->beginDraw();
    glDisable(GL_LIGHTING);
    shown->setOrtho2D();
}

std::vector<unsigned char> LoadedModule::endFrame() {
    std::vector<unsigned char> pixels(3U * kSide * kSide);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, kSide, kSide, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    shown->endDraw();
    return pixels;
}

int inkOf(const std::vector<unsigned char>& pixels) {
    int count = 0;
    for (std::size_t i = 0; i < pixels.size(); i += 3) {
        count += pixels[i] != 0 || pixels[i + 1] != 0 || pixels[i + 2] != 0 ? 1 : 0;
    }
    return count;
}

}  // namespace qel::test
