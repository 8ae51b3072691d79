#include <QString>

#include "ICancelTail.h"
#include "IQelDisplay.h"
#include "IQelDisplayEvent.h"
#include "IQelGL.h"
#include "IQelLight.h"
#include "IQelLights.h"
#include "IQelScrDisplay.h"
#include "IQelScrDisplay2D.h"
#include "IQelSymbol.h"
#include "IQelTrackBall.h"
#include "IQelTransform.h"
#include "IQelTransform2D.h"
#include "ITask.h"
#include "QelStatus.h"

// The default bodies of the interfaces. A copy never copies references.

namespace {

constexpr std::int32_t kNoView = -1;

/// OpenGL guarantees this many lights.
constexpr std::int32_t kMostLights = 8;

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

ICancelTail::ICancelTail() = default;

ICancelTail::ICancelTail(const ICancelTail& other) = default;

ICancelTail& ICancelTail::operator=(const ICancelTail& other) = default;

ICancelTail::~ICancelTail() = default;

IQelDisplay::IQelDisplay() = default;

IQelDisplay::IQelDisplay(const IQelDisplay& other) = default;

IQelDisplay& IQelDisplay::operator=(const IQelDisplay& other) = default;

IQelDisplay::~IQelDisplay() = default;

std::int32_t IQelDisplay::getActiveCache() {
    return 0;
}

std::int32_t IQelDisplay::setActiveCache(std::int32_t /*cache*/) {
    return 0;
}

std::int32_t IQelDisplay::getCacheDC(std::int32_t /*cache*/) {
    return 0;
}

std::int32_t IQelDisplay::UpdateWindow() {
    return 0;
}

IQelScrDisplay::IQelScrDisplay() = default;

IQelScrDisplay::IQelScrDisplay(const IQelScrDisplay& other) = default;

IQelScrDisplay& IQelScrDisplay::operator=(const IQelScrDisplay& other) = default;

IQelScrDisplay::~IQelScrDisplay() = default;

IQelScrDisplay2D::IQelScrDisplay2D() = default;

IQelScrDisplay2D::IQelScrDisplay2D(const IQelScrDisplay2D& other) = default;

IQelScrDisplay2D& IQelScrDisplay2D::operator=(const IQelScrDisplay2D& other) = default;

IQelScrDisplay2D::~IQelScrDisplay2D() = default;

std::int32_t IQelScrDisplay2D::getActiveCache() {
    return 0;
}

std::int32_t IQelScrDisplay2D::setActiveCache(std::int32_t /*cache*/) {
    return 0;
}

std::int32_t IQelScrDisplay2D::getCacheDC(std::int32_t /*cache*/) {
    return 0;
}

std::int32_t IQelScrDisplay2D::UpdateWindow() {
    return 0;
}

IQelDisplayEvent::IQelDisplayEvent() = default;

IQelDisplayEvent::IQelDisplayEvent(const IQelDisplayEvent& other) = default;

IQelDisplayEvent& IQelDisplayEvent::operator=(const IQelDisplayEvent& other) = default;

IQelDisplayEvent::~IQelDisplayEvent() = default;

IQelGL::IQelGL() = default;

IQelGL::IQelGL(const IQelGL& other) = default;

IQelGL& IQelGL::operator=(const IQelGL& other) = default;

IQelGL::~IQelGL() = default;

IQelLight::IQelLight() = default;

IQelLight::IQelLight(const IQelLight& other) = default;

IQelLight& IQelLight::operator=(const IQelLight& other) = default;

IQelLight::~IQelLight() = default;

IQelLights::IQelLights() = default;

IQelLights::IQelLights(const IQelLights& other) = default;

IQelLights& IQelLights::operator=(const IQelLights& other) = default;

IQelLights::~IQelLights() = default;

std::int32_t IQelLights::getNumMaxLight() {
    return kMostLights;
}

IQelSymbol::IQelSymbol() = default;

IQelSymbol::IQelSymbol(const IQelSymbol& other) = default;

IQelSymbol& IQelSymbol::operator=(const IQelSymbol& other) = default;

IQelSymbol::~IQelSymbol() = default;

IQelTrackBall::IQelTrackBall() = default;

IQelTrackBall::IQelTrackBall(const IQelTrackBall& other) = default;

IQelTrackBall& IQelTrackBall::operator=(const IQelTrackBall& other) = default;

IQelTrackBall::~IQelTrackBall() = default;

IQelTransform::IQelTransform() = default;

IQelTransform::IQelTransform(const IQelTransform& other) = default;

IQelTransform& IQelTransform::operator=(const IQelTransform& other) = default;

IQelTransform::~IQelTransform() = default;

IQelTransform2D::IQelTransform2D() = default;

IQelTransform2D::IQelTransform2D(const IQelTransform2D& other) = default;

IQelTransform2D& IQelTransform2D::operator=(const IQelTransform2D& other) = default;

IQelTransform2D::~IQelTransform2D() = default;
