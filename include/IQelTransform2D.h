#pragma once

#include <cstdint>

#include "IQelTransform.h"

/// A planar transform with four numbers kept for the host.
class QEL_DISPLAY_API IQelTransform2D : public IQelTransform {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelTransform2D();
    IQelTransform2D(const IQelTransform2D& other);
    IQelTransform2D& operator=(const IQelTransform2D& other);
    /// @}

    /// @{
    /// Numbers kept for the host; 0 at first. The setters return 0.
    virtual std::int32_t setParamA(double value) = 0;
    virtual double getParamA() = 0;
    virtual std::int32_t setParamB(double value) = 0;
    virtual double getParamB() = 0;
    virtual std::int32_t setParamC(double value) = 0;
    virtual double getParamC() = 0;
    virtual std::int32_t setParamD(double value) = 0;
    virtual double getParamD() = 0;
    /// @}
    virtual std::int32_t reservedSlot26() = 0;

  protected:
    ~IQelTransform2D() override;
};
