#pragma once

#include "IQelDisplay.h"

/// A display on the screen; it adds nothing to `IQelDisplay`.
class QEL_DISPLAY_API IQelScrDisplay : public IQelDisplay {
  public:
    /// @{
    /// A copy is an object of its own: it starts without references.
    IQelScrDisplay();
    IQelScrDisplay(const IQelScrDisplay& other);
    IQelScrDisplay& operator=(const IQelScrDisplay& other);
    /// @}

  protected:
    ~IQelScrDisplay() override;
};
