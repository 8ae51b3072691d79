#pragma once

#include <cstdint>

#include "QelDisplayExport.h"
#include "QelReferenced.h"

/// One light of a host's own light set. The displays of this module do not ask for it.
class QEL_DISPLAY_API IQelLight : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is an object of its own: it starts without references.
    IQelLight();
    IQelLight(const IQelLight& other);
    IQelLight& operator=(const IQelLight& other);
    /// @}

    virtual std::int32_t reservedSlot1() = 0;

  protected:
    ~IQelLight() override;
};
