#pragma once

#include <cstdint>

#include "QelDisplayExport.h"

/// Answers whether transforms are supported at all: always 1. It has no base and no fields.
class QEL_DISPLAY_API CQelTranform {
  public:
    CQelTranform();
    CQelTranform(const CQelTranform& other);
    CQelTranform& operator=(const CQelTranform& other);
    virtual ~CQelTranform();

    virtual std::int32_t isSupported();
};
