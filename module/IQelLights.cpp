#include "IQelLights.h"

namespace {

/// OpenGL guarantees this many lights.
constexpr std::int32_t kMostLights = 8;

}  // namespace

IQelLights::IQelLights() = default;

IQelLights::IQelLights(const IQelLights& other) = default;

IQelLights& IQelLights::operator=(const IQelLights& other) = default;

IQelLights::~IQelLights() = default;

std::int32_t IQelLights::getNumMaxLight() {
    return kMostLights;
}
