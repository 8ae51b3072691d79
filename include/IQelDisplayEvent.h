#pragma once

#include <cstdint>

#include "QelDisplayExport.h"
#include "QelReferenced.h"

/// A host's listener to display events. The displays of this module never call it; the order of its slots is
/// fixed for the listeners that exist.
class QEL_DISPLAY_API IQelDisplayEvent : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelDisplayEvent();
    IQelDisplayEvent(const IQelDisplayEvent& other);
    IQelDisplayEvent& operator=(const IQelDisplayEvent& other);
    /// @}

    virtual std::int32_t reservedSlot1() = 0;
    virtual std::int32_t reservedSlot2() = 0;
    virtual std::int32_t reservedSlot3() = 0;
    virtual std::int32_t reservedSlot4() = 0;
    virtual std::int32_t reservedSlot5() = 0;
    virtual std::int32_t reservedSlot6() = 0;

  protected:
    ~IQelDisplayEvent() override;
};
