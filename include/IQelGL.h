#pragma once

#include <cstdint>

#include "QelDisplayExport.h"
#include "QelReferenced.h"

/// OpenGL state calls through an interface, for hosts that do not link OpenGL.
///
/// - Context: every call acts on the context that is current on the calling thread.
/// - Arguments: names and modes are OpenGL's constants. Arrays must be as long as OpenGL fills or reads them
///   for the given name; a null array makes no OpenGL call.
/// - State: a call leaves what the OpenGL function of its name leaves.
/// - Results: every call returns 0 unless it says otherwise; OpenGL errors are not reported.
class QEL_DISPLAY_API IQelGL : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelGL();
    IQelGL(const IQelGL& other);
    IQelGL& operator=(const IQelGL& other);
    /// @}

    /// @{
    /// Enables or disables a capability.
    virtual std::int32_t enable(std::uint32_t capability) = 0;
    virtual std::int32_t disable(std::uint32_t capability) = 0;
    /// @}
    /// True if the capability is enabled.
    virtual bool isEnabled(std::uint32_t capability) = 0;
    /// Sets which faces are culled: GL_FRONT, GL_BACK or GL_FRONT_AND_BACK.
    virtual std::int32_t cullFace(std::uint32_t mode) = 0;
    /// @{
    /// Writes the current value or values of an OpenGL parameter.
    virtual std::int32_t getIntegerv(std::uint32_t name, std::int32_t* values) = 0;
    virtual std::int32_t getBooleanv(std::uint32_t name, std::uint8_t* values) = 0;
    virtual std::int32_t getDoublev(std::uint32_t name, double* values) = 0;
    virtual std::int32_t getFloatv(std::uint32_t name, float* values) = 0;
    /// @}
    /// @{
    /// Sets a parameter of the lighting model.
    virtual std::int32_t lightModeli(std::uint32_t name, std::int32_t value) = 0;
    virtual std::int32_t lightModelf(std::uint32_t name, float value) = 0;
    virtual std::int32_t lightModeliv(std::uint32_t name, const std::int32_t* values) = 0;
    virtual std::int32_t lightModelfv(std::uint32_t name, const float* values) = 0;
    /// @}

  protected:
    ~IQelGL() override;
};
