#pragma once

#include <cstdint>

#include "QelDisplayExport.h"
#include "QelReferenced.h"

/// A host's light set. The displays of this module have fixed lights (`IQelDisplay::beginFrame`) and do not
/// use it.
class QEL_DISPLAY_API IQelLights : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelLights();
    IQelLights(const IQelLights& other);
    IQelLights& operator=(const IQelLights& other);
    /// @}

    /// The largest number of lights in the set; 8 by default, which every OpenGL supports.
    virtual std::int32_t getNumMaxLight();
    virtual std::int32_t reservedSlot2() = 0;
    virtual std::int32_t reservedSlot3() = 0;
    virtual std::int32_t reservedSlot4() = 0;

  protected:
    ~IQelLights() override;
};
