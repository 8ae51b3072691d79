#pragma once

#include <cstdint>

#include "QelDisplayExport.h"
#include "QelReferenced.h"

/// One light of a host's light set. The displays of this module do not use it.
class QEL_DISPLAY_API IQelLight : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelLight();
    IQelLight(const IQelLight& other);
    IQelLight& operator=(const IQelLight& other);
    /// @}

    virtual std::int32_t reservedSlot1() = 0;

  protected:
    ~IQelLight() override;
};
