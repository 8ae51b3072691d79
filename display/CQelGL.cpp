#include "CQelGL.h"

#include "QelGl.h"

namespace {

/// A null array makes no OpenGL call: the driver would write through it.
template <class Value, class Function>
std::int32_t withArray(Value* values, Function call) {
    if (values != nullptr) {
        call();
    }
    return 0;
}

}  // namespace

std::int32_t CQelGL::enable(std::uint32_t capability) {
    glEnable(capability);
    return 0;
}

std::int32_t CQelGL::disable(std::uint32_t capability) {
    glDisable(capability);
    return 0;
}

bool CQelGL::isEnabled(std::uint32_t capability) {
    return glIsEnabled(capability) != GL_FALSE;
}

std::int32_t CQelGL::cullFace(std::uint32_t mode) {
    glCullFace(mode);
    return 0;
}

std::int32_t CQelGL::getIntegerv(std::uint32_t name, std::int32_t* values) {
    return withArray(values, [&] { glGetIntegerv(name, values); });
}

std::int32_t CQelGL::getBooleanv(std::uint32_t name, std::uint8_t* values) {
    return withArray(values, [&] { glGetBooleanv(name, values); });
}

std::int32_t CQelGL::getDoublev(std::uint32_t name, double* values) {
    return withArray(values, [&] { glGetDoublev(name, values); });
}

std::int32_t CQelGL::getFloatv(std::uint32_t name, float* values) {
    return withArray(values, [&] { glGetFloatv(name, values); });
}

std::int32_t CQelGL::lightModeli(std::uint32_t name, std::int32_t value) {
    glLightModeli(name, value);
    return 0;
}

std::int32_t CQelGL::lightModelf(std::uint32_t name, float value) {
    glLightModelf(name, value);
    return 0;
}

std::int32_t CQelGL::lightModeliv(std::uint32_t name, const std::int32_t* values) {
    return withArray(values, [&] { glLightModeliv(name, values); });
}

std::int32_t CQelGL::lightModelfv(std::uint32_t name, const float* values) {
    return withArray(values, [&] { glLightModelfv(name, values); });
}
