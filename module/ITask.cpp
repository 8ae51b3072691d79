#include "ITask.h"

#include <QString>

#include "QelStatus.h"

namespace {

constexpr std::int32_t kNoView = -1;

}  // namespace

ITask::ITask() : activeViewID(kNoView) {}

ITask::ITask(const ITask& other) = default;

ITask& ITask::operator=(const ITask& other) = default;

ITask::~ITask() = default;

std::int32_t ITask::setName(QString /*name*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::startup() {
    return qel::kNotHandled;
}

std::int32_t ITask::finish() {
    return qel::kNotHandled;
}

std::int32_t ITask::OnTimer(std::int32_t /*window*/, std::int32_t /*timer*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnPaint(std::int32_t /*window*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnLButtonDblClk(std::int32_t /*window*/, std::uint32_t /*flags*/, std::int32_t /*x*/,
                                    std::int32_t /*y*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnLButtonDown(std::int32_t /*window*/, std::uint32_t /*flags*/, std::int32_t /*x*/,
                                  std::int32_t /*y*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnLButtonUp(std::int32_t /*window*/, std::uint32_t /*flags*/, std::int32_t /*x*/,
                                std::int32_t /*y*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnMouseMove(std::int32_t /*window*/, std::uint32_t /*flags*/, std::int32_t /*x*/,
                                std::int32_t /*y*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnMouseWheel(std::int32_t /*window*/, std::uint32_t /*flags*/, std::int16_t /*distance*/,
                                 std::int32_t /*x*/, std::int32_t /*y*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnRButtonDblClk(std::int32_t /*window*/, std::uint32_t /*flags*/, std::int32_t /*x*/,
                                    std::int32_t /*y*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnRButtonDown(std::int32_t /*window*/, std::uint32_t /*flags*/, std::int32_t /*x*/,
                                  std::int32_t /*y*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnRButtonUp(std::int32_t /*window*/, std::uint32_t /*flags*/, std::int32_t /*x*/,
                                std::int32_t /*y*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnKeyDown(std::int32_t /*window*/, std::uint32_t /*key*/, std::uint32_t /*repeat*/,
                              std::uint32_t /*flags*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::OnKeyUp(std::int32_t /*window*/, std::uint32_t /*key*/, std::uint32_t /*repeat*/,
                            std::uint32_t /*flags*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::onSetCursor(std::int32_t /*window*/, std::int32_t /*cursorWindow*/,
                                std::uint32_t /*hitTest*/, std::uint32_t /*message*/) {
    return qel::kNotHandled;
}

std::int32_t ITask::setActiveViewID(std::int32_t view) {
    activeViewID = view;
    return 0;
}

std::int32_t ITask::getActiveViewID() {
    return activeViewID;
}
