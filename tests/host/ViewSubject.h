#pragma once

#include <cstdint>

#include "IQelDisplay.h"
#include "IQelTrackBall.h"
#include "QelRefPtr.h"
#include "kit/GlSurface.h"

class CQelTrackBall;

namespace qel::test {

/// A view controller with a surface to look at. Under Windows it is the one of a real display of the module,
/// attached to the surface; natively it stands alone and draws into the surface, whose context is current.
class ViewSubject {
  public:
    /// Sizes are in pixels; the controller knows them already.
    explicit ViewSubject(int width = 200, int height = 100);
    ~ViewSubject();
    ViewSubject(const ViewSubject&) = delete;
    ViewSubject& operator=(const ViewSubject&) = delete;

    IQelTrackBall& operator*() const { return *controller; }
    IQelTrackBall* operator->() const { return controller; }

    GlSurface surface;

  private:
    /// Null natively.
    ref_ptr<IQelDisplay> display;
    ref_ptr<IQelTrackBall> held;
    IQelTrackBall* controller = nullptr;
};

/// A view controller of the class itself, in both builds alike, for what hosts do not see of it. It has no
/// size and no display yet.
ref_ptr<CQelTrackBall> newTrackBall();

/// Throws away what waits as an OpenGL error. A surface of one buffer refuses to read from the back buffer,
/// and has no other; natively every depth read leaves that error. Fails the test for any other one.
void expectNoGlErrorButTheMissingBackBuffer();

}  // namespace qel::test
