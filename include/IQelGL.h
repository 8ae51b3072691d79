#pragma once

#include <cstdint>

#include "QelDisplayExport.h"
#include "QelReferenced.h"

/// OpenGL state calls through an interface, for hosts that link no OpenGL of their own.
///
/// Every call acts on whatever context is current on the calling thread. Names and modes are OpenGL's own
/// constants; arrays must be as long as OpenGL fills or reads them for the given name. A null array makes no
/// OpenGL call. Every call returns 0 unless it says otherwise.
class QEL_DISPLAY_API IQelGL : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is an object of its own: it starts without references.
    IQelGL();
    IQelGL(const IQelGL& other);
    IQelGL& operator=(const IQelGL& other);
    /// @}

    /// @{
    /// Switches a capability on or off.
    virtual std::int32_t enable(std::uint32_t capability) = 0;
    virtual std::int32_t disable(std::uint32_t capability) = 0;
    /// @}
    /// True if the capability is enabled.
    virtual bool isEnabled(std::uint32_t capability) = 0;
    /// Which faces culling drops: GL_FRONT, GL_BACK or both.
    virtual std::int32_t cullFace(std::uint32_t mode) = 0;
    /// @{
    /// The current value or values of an OpenGL parameter.
    virtual std::int32_t getIntegerv(std::uint32_t name, std::int32_t* values) = 0;
    virtual std::int32_t getBooleanv(std::uint32_t name, std::uint8_t* values) = 0;
    virtual std::int32_t getDoublev(std::uint32_t name, double* values) = 0;
    virtual std::int32_t getFloatv(std::uint32_t name, float* values) = 0;
    /// @}
    /// @{
    /// A parameter of the lighting model.
    virtual std::int32_t lightModeli(std::uint32_t name, std::int32_t value) = 0;
    virtual std::int32_t lightModelf(std::uint32_t name, float value) = 0;
    virtual std::int32_t lightModeliv(std::uint32_t name, const std::int32_t* values) = 0;
    virtual std::int32_t lightModelfv(std::uint32_t name, const float* values) = 0;
    /// @}

  protected:
    ~IQelGL() override;
};
