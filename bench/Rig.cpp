#include "Rig.h"

#include <windows.h>

#include <stdexcept>

#include "QelGl.h"

namespace qel::bench {

Enve3d modelExtent() {
    return {-1.0, 1.0, -1.0, 1.0, -1.0, 1.0};
}

Rig::Rig(int widthPx, int heightPx)
    : frame(widthPx, heightPx),
      shown(adopt(newScreenDisplay())),
      drawing(newQelSymbol()),
      pixelWidth(widthPx),
      pixelHeight(heightPx) {
    shown->attachWindow(static_cast<std::int32_t>(frame.hwnd()), false);
    shown->setViewSize(widthPx, heightPx);
    context = wglGetCurrentContext();
    if (context == nullptr) {
        throw std::runtime_error("the window gives no OpenGL context");
    }
    camera().setExtent(modelExtent(), true);
    shown->beginFrame(0);
    glGetError();
}

void* Rig::dc() const {
    return reinterpret_cast<void*>(frame.dc());
}

void Rig::finish() {
    glFinish();
}

}  // namespace qel::bench
