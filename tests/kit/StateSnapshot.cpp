#include "StateSnapshot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "CallText.h"
#include "CallTrace.h"
#include "StateNames.h"

namespace qel::test {

namespace {

using Entries = std::map<std::string, StateSnapshot::Values>;

constexpr std::size_t kMostValues = 16;
constexpr std::size_t kStippleBytes = 128;

template <class T>
StateSnapshot::Values firstOf(const std::array<T, kMostValues>& values, int count) {
    return {values.begin(), values.begin() + count};
}

std::string joined(const char* first, const char* second) {
    return std::string(first) + " " + second;
}

void addPlainState(Entries& entries) {
    for (const state::Flag& flag : state::kFlags) {
        entries[flag.name] = {static_cast<double>(glIsEnabled(flag.key))};
    }
    for (const state::Value& value : state::kValues) {
        std::array<GLdouble, kMostValues> numbers{};
        glGetDoublev(value.key, numbers.data());
        entries[value.name] = firstOf(numbers, value.count);
    }
    for (const state::Flag& pointer : state::kPointers) {
        GLvoid* address = nullptr;
        glGetPointerv(pointer.key, &address);
        entries[pointer.name] = {static_cast<double>(reinterpret_cast<std::uintptr_t>(address))};
    }
}

void addLightsAndMaterials(Entries& entries) {
    std::array<GLfloat, kMostValues> numbers{};
    for (const state::Flag& light : state::kLights) {
        for (const state::Value& value : state::kLightValues) {
            glGetLightfv(light.key, value.key, numbers.data());
            entries[joined(light.name, value.name)] = firstOf(numbers, value.count);
        }
    }
    for (const state::Flag& face : state::kFaces) {
        for (const state::Value& value : state::kMaterialValues) {
            glGetMaterialfv(face.key, value.key, numbers.data());
            entries[joined(face.name, value.name)] = firstOf(numbers, value.count);
        }
    }
}

void addClipPlanesAndTextures(Entries& entries) {
    for (const state::Flag& plane : state::kClipPlanes) {
        std::array<GLdouble, kMostValues> equation{};
        glGetClipPlane(plane.key, equation.data());
        entries[joined(plane.name, "equation")] = firstOf(equation, 4);
    }
    std::array<GLfloat, kMostValues> numbers{};
    glGetTexEnvfv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, numbers.data());
    entries["GL_TEXTURE_ENV_MODE"] = firstOf(numbers, 1);
    glGetTexEnvfv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_COLOR, numbers.data());
    entries["GL_TEXTURE_ENV_COLOR"] = firstOf(numbers, 4);
}

/// The pattern is packed like any other pixels, so it is read with the pixel store at its defaults.
void addPolygonStipple(Entries& entries) {
    std::array<GLubyte, kStippleBytes> pattern{};
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glPixelStorei(GL_PACK_LSB_FIRST, GL_FALSE);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glGetPolygonStipple(pattern.data());
    glPopClientAttrib();
    entries["glPolygonStipple"] = StateSnapshot::Values(pattern.begin(), pattern.end());
}

bool same(const StateSnapshot::Values& one, const StateSnapshot::Values& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); });
}

bool allows(const std::string& pattern, const std::string& name) {
    if (!pattern.empty() && pattern.back() == '*') {
        return name.compare(0, pattern.size() - 1, pattern, 0, pattern.size() - 1) == 0;
    }
    return pattern == name;
}

}  // namespace

StateSnapshot StateSnapshot::take() {
    const CallTrace::Pause unrecorded;
    StateSnapshot snapshot;
    snapshot.all["glGetError"] = {static_cast<double>(glGetError())};
    addPlainState(snapshot.all);
    addLightsAndMaterials(snapshot.all);
    addClipPlanesAndTextures(snapshot.all);
    addPolygonStipple(snapshot.all);
    return snapshot;
}

std::vector<std::string> differences(const StateSnapshot& before, const StateSnapshot& after) {
    std::vector<std::string> names;
    for (const auto& [name, values] : before.entries()) {
        if (!same(values, after.at(name))) {
            names.push_back(name);
        }
    }
    return names;
}

::testing::AssertionResult changesOnly(const StateSnapshot& before, const StateSnapshot& after,
                                       const std::vector<std::string>& allowed) {
    for (const std::string& pattern : allowed) {
        const bool known = std::any_of(before.entries().begin(), before.entries().end(),
                                       [&](const auto& entry) { return allows(pattern, entry.first); });
        if (!known) {
            return ::testing::AssertionFailure() << pattern << " is no state";
        }
    }
    ::testing::AssertionResult result = ::testing::AssertionSuccess();
    for (const std::string& name : differences(before, after)) {
        const bool allowedToo = std::any_of(allowed.begin(), allowed.end(), [&](const std::string& pattern) {
            return allows(pattern, name);
        });
        if (!allowedToo) {
            const StateSnapshot::Values& was = before.at(name);
            const StateSnapshot::Values& is = after.at(name);
            result = (result ? ::testing::AssertionFailure() : result)
                     << name << " was " << valuesText(was.data(), was.size()) << ", is "
                     << valuesText(is.data(), is.size()) << "\n";
        }
    }
    return result;
}

}  // namespace qel::test
