#pragma once

#include <cstdint>

#include "ICancelTail.h"

/// The cancel check by elapsed time. Its decision is the same for every elapsed time: yes.
class QEL_DISPLAY_API CQelCancelTail : public ICancelTail {
  public:
    /// Always true.
    bool checkCancel() override;

    /// Tick count in milliseconds at which the operation began, owned by the caller; null counts from tick 0.
    const std::uint32_t* startTick = nullptr;

  protected:
    ~CQelCancelTail() override;
};
