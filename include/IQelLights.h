#pragma once

#include <cstdint>

#include "QelDisplayExport.h"
#include "QelReferenced.h"

/// A host's own light set. The displays of this module use a fixed rig and do not ask for it.
class QEL_DISPLAY_API IQelLights : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is an object of its own: it starts without references.
    IQelLights();
    IQelLights(const IQelLights& other);
    IQelLights& operator=(const IQelLights& other);
    /// @}

    /// The most lights the set can hold: 8, what every OpenGL offers at least.
    virtual std::int32_t getNumMaxLight();
    virtual std::int32_t reservedSlot2() = 0;
    virtual std::int32_t reservedSlot3() = 0;
    virtual std::int32_t reservedSlot4() = 0;

  protected:
    ~IQelLights() override;
};
