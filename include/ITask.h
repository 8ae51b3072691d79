#pragma once

#include <cstdint>

#include "QelDisplayExport.h"
#include "QelReferenced.h"

class QString;

/// A host's tool that receives the window's messages while it is active. The module never calls a task; it
/// only defines the interface that hosts and their libraries share.
///
/// - Arguments: those of the window message, unchanged: the window, then flags and coordinates (pixels of the
///   client area, y down); the wheel handler has the signed wheel distance before the coordinates.
/// - Results: every default handler returns `qel::kNotHandled` (-99999); a task overrides what it handles.
class QEL_DISPLAY_API ITask : public qel::QelReferenced {
  public:
    /// Starts with active view -1.
    ITask();
    /// @{
    /// Copies the active view. A copy is a separate object and starts without references.
    ITask(const ITask& other);
    ITask& operator=(const ITask& other);
    /// @}

    virtual std::int32_t reservedSlot1() = 0;
    /// @{
    /// Name, start and end of the task. The defaults store nothing and return `qel::kNotHandled`.
    virtual std::int32_t setName(QString name);
    virtual std::int32_t startup();
    virtual std::int32_t finish();
    /// @}
    virtual std::int32_t reservedSlot5() = 0;
    virtual std::int32_t reservedSlot6() = 0;
    /// @{
    /// A message of the window. The defaults return `qel::kNotHandled`.
    virtual std::int32_t OnTimer(std::int32_t window, std::int32_t timer);
    virtual std::int32_t OnPaint(std::int32_t window);
    virtual std::int32_t OnLButtonDblClk(std::int32_t window, std::uint32_t flags, std::int32_t x,
                                         std::int32_t y);
    virtual std::int32_t OnLButtonDown(std::int32_t window, std::uint32_t flags, std::int32_t x,
                                       std::int32_t y);
    virtual std::int32_t OnLButtonUp(std::int32_t window, std::uint32_t flags, std::int32_t x,
                                     std::int32_t y);
    virtual std::int32_t OnMouseMove(std::int32_t window, std::uint32_t flags, std::int32_t x,
                                     std::int32_t y);
    virtual std::int32_t OnMouseWheel(std::int32_t window, std::uint32_t flags, std::int16_t distance,
                                      std::int32_t x, std::int32_t y);
    virtual std::int32_t OnRButtonDblClk(std::int32_t window, std::uint32_t flags, std::int32_t x,
                                         std::int32_t y);
    virtual std::int32_t OnRButtonDown(std::int32_t window, std::uint32_t flags, std::int32_t x,
                                       std::int32_t y);
    virtual std::int32_t OnRButtonUp(std::int32_t window, std::uint32_t flags, std::int32_t x,
                                     std::int32_t y);
    virtual std::int32_t OnKeyDown(std::int32_t window, std::uint32_t key, std::uint32_t repeat,
                                   std::uint32_t flags);
    virtual std::int32_t OnKeyUp(std::int32_t window, std::uint32_t key, std::uint32_t repeat,
                                 std::uint32_t flags);
    virtual std::int32_t onSetCursor(std::int32_t window, std::int32_t cursorWindow, std::uint32_t hitTest,
                                     std::uint32_t message);
    /// @}
    /// Stores the number of the view that the task works in. Returns 0.
    virtual std::int32_t setActiveViewID(std::int32_t view);
    /// The number of the view stored last; -1 at first.
    virtual std::int32_t getActiveViewID();
    virtual std::int32_t reservedSlot22() = 0;
    virtual std::int32_t reservedSlot23() = 0;

  protected:
    ~ITask() override;

  private:
    std::int32_t activeViewID;
};
