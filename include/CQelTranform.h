#pragma once

#include <cstdint>

#include "QelDisplayExport.h"

/// Reports whether transforms are supported. It has no base class and no fields.
class QEL_DISPLAY_API CQelTranform {
  public:
    /// @{
    /// There is no state to initialise or copy.
    CQelTranform();
    CQelTranform(const CQelTranform& other);
    CQelTranform& operator=(const CQelTranform& other);
    virtual ~CQelTranform();
    /// @}

    /// Returns 1.
    virtual std::int32_t isSupported();
};
