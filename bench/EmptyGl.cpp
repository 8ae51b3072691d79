#include "EmptyGl.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <map>
#include <string_view>

#include "QelGl.h"

namespace qel::bench {

namespace {

struct Answers {
    std::array<double, 16> modelview{};
    std::array<double, 16> projection{};
    std::array<GLint, 4> viewport{};
    HDC dc = nullptr;
    HGLRC rc = nullptr;
    float depth = 1.0F;
};

Answers answers;

/// Stands for any function whose result is not needed: the calling convention leaves the arguments to the
/// caller.
std::intptr_t nothing() {
    return 0;
}

std::intptr_t done() {
    return 1;
}

void WINAPI getDoubles(GLenum name, GLdouble* values) {
    if (name == GL_MODELVIEW_MATRIX) {
        std::copy(answers.modelview.begin(), answers.modelview.end(), values);
    } else if (name == GL_PROJECTION_MATRIX) {
        std::copy(answers.projection.begin(), answers.projection.end(), values);
    } else {
        *values = 1.0;
    }
}

void WINAPI getFloats(GLenum name, GLfloat* values) {
    std::fill_n(values, name == GL_CURRENT_COLOR ? 4 : 1, 1.0F);
}

void WINAPI getIntegers(GLenum name, GLint* values) {
    if (name == GL_VIEWPORT) {
        std::copy(answers.viewport.begin(), answers.viewport.end(), values);
    } else if (name == GL_POLYGON_MODE) {
        values[0] = values[1] = GL_FILL;
    } else if (name == GL_PACK_ALIGNMENT) {
        *values = 4;
    } else {
        *values = name == GL_SHADE_MODEL ? GL_SMOOTH : 0;
    }
}

/// The middle of the view, halfway into it: what a camera that looks at its model sees.
GLint WINAPI projectToMiddle(GLdouble, GLdouble, GLdouble, const GLdouble*, const GLdouble*,
                             const GLint* viewport, GLdouble* x, GLdouble* y, GLdouble* z) {
    *x = 0.5 * viewport[2];
    *y = 0.5 * viewport[3];
    *z = 0.5;
    return GL_TRUE;
}

/// A model that is as many units wide as the window is pixels.
GLint WINAPI unProjectStraight(GLdouble x, GLdouble y, GLdouble z, const GLdouble*, const GLdouble*,
                               const GLint*, GLdouble* modelX, GLdouble* modelY, GLdouble* modelZ) {
    *modelX = x;
    *modelY = y;
    *modelZ = z;
    return GL_TRUE;
}

void WINAPI readPixels(GLint, GLint, GLsizei width, GLsizei height, GLenum, GLenum, void* pixels) {
    if (width == 1 && height == 1) {
        *static_cast<float*>(pixels) = answers.depth;
    }
}

HDC WINAPI currentDc() {
    return answers.dc;
}

HGLRC WINAPI currentContext() {
    return answers.rc;
}

template <class Function>
void* address(Function* function) {
    return reinterpret_cast<void*>(function);
}

void* replacementOf(std::string_view name) {
    static const std::map<std::string_view, void*> special = {
        {"glGetDoublev", address(&getDoubles)},
        {"glGetFloatv", address(&getFloats)},
        {"glGetIntegerv", address(&getIntegers)},
        {"glReadPixels", address(&readPixels)},
        {"gluProject", address(&projectToMiddle)},
        {"gluUnProject", address(&unProjectStraight)},
        {"gluNewQuadric", address(&done)},
        {"glGenLists", address(&done)},
        {"wglMakeCurrent", address(&done)},
        {"wglGetCurrentDC", address(&currentDc)},
        {"wglGetCurrentContext", address(&currentContext)},
        {"SwapBuffers", address(&done)},
    };
    const auto found = special.find(name);
    return found != special.end() ? found->second : address(&nothing);
}

bool isReplaced(const test::Import& import) {
    constexpr std::string_view kLibraries[] = {"opengl32.dll", "glu32.dll", "gdi32.dll"};
    return std::find(std::begin(kLibraries), std::end(kLibraries), import.library) != std::end(kLibraries);
}

}  // namespace

EmptyGl::EmptyGl() {
    glGetDoublev(GL_MODELVIEW_MATRIX, answers.modelview.data());
    glGetDoublev(GL_PROJECTION_MATRIX, answers.projection.data());
    glGetIntegerv(GL_VIEWPORT, answers.viewport.data());
    answers.dc = wglGetCurrentDC();
    answers.rc = wglGetCurrentContext();
    for (const char* name : test::kTestedLibraries) {
        HMODULE const module = GetModuleHandleA(name);
        if (module == nullptr) {
            continue;
        }
        for (const test::Import& import : test::importsOf(module)) {
            if (isReplaced(import)) {
                patches.redirect(import, replacementOf(import.name));
            }
        }
    }
}

void EmptyGl::answerDepth(float depth) {
    answers.depth = depth;
}

void EmptyGl::callEmpty(std::int64_t times) {
    // Read from memory for each call, as an import is.
    static std::intptr_t (*volatile slot)() = &nothing;
    for (std::int64_t i = 0; i < times; ++i) {
        slot();
    }
}

}  // namespace qel::bench
