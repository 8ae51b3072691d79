#pragma once

#include "IQelDisplay.h"

/// A display on the screen. It adds no operations to `IQelDisplay`.
class QEL_DISPLAY_API IQelScrDisplay : public IQelDisplay {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelScrDisplay();
    IQelScrDisplay(const IQelScrDisplay& other);
    IQelScrDisplay& operator=(const IQelScrDisplay& other);
    /// @}

  protected:
    ~IQelScrDisplay() override;
};
