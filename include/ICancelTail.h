#pragma once

#include "QelDisplayExport.h"
#include "QelReferenced.h"

/// Asked by a long operation whether it may be cut short.
class QEL_DISPLAY_API ICancelTail : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is an object of its own: it starts without references.
    ICancelTail();
    ICancelTail(const ICancelTail& other);
    ICancelTail& operator=(const ICancelTail& other);
    /// @}

    /// True if the operation may be cut short now.
    virtual bool checkCancel() = 0;

  protected:
    ~ICancelTail() override;
};
