#pragma once

#include <cstdint>

#include "QelDisplayExport.h"

/// Answers whether transforms are supported at all: always 1. It has no base and no fields.
class QEL_DISPLAY_API CQelTranform {
  public:
    /// @{
    /// It has no state to make or copy.
    CQelTranform();
    CQelTranform(const CQelTranform& other);
    CQelTranform& operator=(const CQelTranform& other);
    virtual ~CQelTranform();
    /// @}

    /// Always 1.
    virtual std::int32_t isSupported();
};
