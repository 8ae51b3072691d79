#include <GL/osmesa.h>

#include <stdexcept>

#include "CallTrace.h"
#include "GlSurface.h"

/// OSMesa keeps a little for each context until the process ends, which is not ours to free. The sanitizer's
/// leak check asks these functions, by their names, what to pass over.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libOSMesa.so\n";
}
extern "C" const char* __lsan_default_options() {
    return "print_suppressions=0";
}

namespace qel::test {

/// The buffer stays where it is until another size replaces it: OSMesa draws straight into it.
struct GlSurface::Native {
    OSMesaContext context = nullptr;
    std::vector<std::uint8_t> buffer;
    OSMesaContext formerContext = nullptr;
    void* formerBuffer = nullptr;
    GLint formerWidth = 0;
    GLint formerHeight = 0;

    /// OSMesa binds a context together with its buffer, so what was current is remembered with both.
    void rememberFormer() {
        formerContext = OSMesaGetCurrentContext();
        GLint format = 0;
        if (formerContext != nullptr) {
            OSMesaGetColorBuffer(formerContext, &formerWidth, &formerHeight, &format, &formerBuffer);
        }
    }
};

GlSurface::GlSurface(int width, int height)
    : pixelWidth(width), pixelHeight(height), native(std::make_unique<Native>()) {
    native->rememberFormer();
    native->context = OSMesaCreateContextExt(OSMESA_RGBA, 24, 8, 0, nullptr);
    if (native->context == nullptr) {
        throw std::runtime_error("OSMesa gives no context");
    }
    makeCurrent();
    startOver();
}

GlSurface::~GlSurface() {
    if (native->formerContext != nullptr) {
        OSMesaMakeCurrent(native->formerContext, native->formerBuffer, GL_UNSIGNED_BYTE, native->formerWidth,
                          native->formerHeight);
    } else {
        OSMesaMakeCurrent(nullptr, nullptr, GL_UNSIGNED_BYTE, 0, 0);
    }
    OSMesaDestroyContext(native->context);
}

void GlSurface::makeCurrent() {
    native->buffer.resize(static_cast<std::size_t>(pixelWidth) * static_cast<std::size_t>(pixelHeight) * 4);
    if (OSMesaMakeCurrent(native->context, native->buffer.data(), GL_UNSIGNED_BYTE, pixelWidth,
                          pixelHeight) == GL_FALSE) {
        throw std::runtime_error("OSMesa cannot draw into a buffer of this size");
    }
}

void GlSurface::resize(int width, int height) {
    pixelWidth = width;
    pixelHeight = height;
    makeCurrent();
    startOver();
}

std::uintptr_t GlSurface::hwnd() const {
    return 0;
}

std::uintptr_t GlSurface::dc() const {
    return 0;
}

std::uintptr_t GlSurface::rc() const {
    return 0;
}

}  // namespace qel::test
