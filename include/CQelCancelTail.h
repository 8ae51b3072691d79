#pragma once

#include <cstdint>

#include "ICancelTail.h"

/// The cancel check of an operation with a known start. It allows the stop at any time.
class QEL_DISPLAY_API CQelCancelTail : public ICancelTail {
  public:
    /// Always true.
    bool checkCancel() override;

    /// The tick count in milliseconds at which the operation began, owned by the caller; null stands for 0.
    const std::uint32_t* startTick = nullptr;

  protected:
    ~CQelCancelTail() override;
};
