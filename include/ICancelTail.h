#pragma once

#include "QelDisplayExport.h"
#include "QelReferenced.h"

/// A check that a long operation calls to find out whether to stop.
class QEL_DISPLAY_API ICancelTail : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    ICancelTail();
    ICancelTail(const ICancelTail& other);
    ICancelTail& operator=(const ICancelTail& other);
    /// @}

    /// True if the operation may stop now.
    virtual bool checkCancel() = 0;

  protected:
    ~ICancelTail() override;
};
