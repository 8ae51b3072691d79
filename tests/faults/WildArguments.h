#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "Enve2d.h"
#include "Enve3d.h"
#include "IQelTrackBall.h"
#include "QelColor.h"
#include "XPnt2d.h"
#include "XPnt3d.h"

namespace qel::test {

/// Arguments for calls that nobody in his right mind would make, mixed with ordinary ones. The same seed
/// gives the same arguments on every system.
class WildArguments {
  public:
    explicit WildArguments(std::uint64_t seed) : bits(seed) {}

    /// A number from 0 to `count` - 1.
    std::size_t pick(std::size_t count) { return bits() % count; }
    bool flag() { return pick(2) == 0; }

    /// Mostly ordinary; sometimes huge, tiny, infinite or not a number.
    double real();
    float single();
    std::int32_t whole();
    std::uint32_t size();
    /// A pixel of a small view, or far outside of it.
    std::int32_t pixel();

    XPnt3d point();
    PNT3D plainPoint();
    XPnt2d flatPoint();
    Enve3d box();
    Enve2d rect();
    PixelRect pixelRect();
    QelColor3f color();
    QelColor3b byteColor();
    QelColor4b colorWithAlpha();
    /// With characters that mean something to printf, or none; up to 10,000 characters.
    const std::string& text();

    /// Begins a call: no argument of it was wrong yet.
    void startCall() { isCallSound = true; }
    /// False once a number that is not finite was handed out since `startCall`.
    [[nodiscard]] bool isSound() const { return isCallSound; }

  private:
    double ordinary();

    std::mt19937_64 bits;
    bool isCallSound = true;
    std::string lastText;
};

}  // namespace qel::test
