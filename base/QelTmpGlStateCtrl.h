#pragma once

#include <cstdint>

#include "QelBaseExport.h"
#include "QelColor.h"

/// A scoped guard of one piece of OpenGL state: the constructor saves and sets the state, the destructor
/// restores exactly what was saved. Guards nest if they are destroyed in reverse order of construction.
///
/// - Context: it acts on the context that is current on the calling thread; the destructor needs the same
///   one.
/// - Errors: OpenGL errors are not reported.
class QEL_GEOMETRY_API QelTmpGlStateCtrl {
  public:
    /// Guards a capability such as GL_LIGHTING and enables or disables it.
    QelTmpGlStateCtrl(std::uint32_t capability, bool enabled);
    /// Guards GL_LINE_WIDTH or GL_POINT_SIZE and sets it, in pixels. OpenGL refuses a size that is not
    /// positive; other parameters are ignored.
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
