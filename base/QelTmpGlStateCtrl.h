#pragma once

#include <cstdint>

#include "QelBaseExport.h"
#include "QelColor.h"

/// A scoped guard of one piece of OpenGL state: it remembers the state, sets another, and puts back exactly
/// what it saw when it goes. Guards nest when they are destroyed in the reverse order of their creation.
///
/// It acts on the context that is current on the calling thread; the same one must be current when it goes.
class QEL_GEOMETRY_API QelTmpGlStateCtrl {
  public:
    /// Guards a capability (`glIsEnabled`) such as GL_LIGHTING and switches it on or off.
    QelTmpGlStateCtrl(std::uint32_t capability, bool enabled);
    /// Guards GL_LINE_WIDTH or GL_POINT_SIZE and sets it, in pixels. OpenGL itself refuses a size that is not
    /// positive; any other parameter is neither read nor set.
    QelTmpGlStateCtrl(std::uint32_t parameter, float value);
    /// Guards the current drawing colour, alpha included, and sets an opaque one.
    explicit QelTmpGlStateCtrl(qel::QelColor3f color);
    virtual ~QelTmpGlStateCtrl();

    QelTmpGlStateCtrl(const QelTmpGlStateCtrl&) = delete;
    QelTmpGlStateCtrl& operator=(const QelTmpGlStateCtrl&) = delete;

  private:
    enum class Kind : std::uint8_t { Capability, Parameter, Color };

    Kind kind;
    bool wasEnabled = false;
    std::uint32_t name = 0;
    float saved[4] = {};
};
