#include "CQelTransform2d.h"
#include "QelStatus.h"
#include "detail/FlatBox.h"

CQelTransform2d::CQelTransform2d() = default;

CQelTransform2d::CQelTransform2d(const CQelTransform2d& other) = default;

CQelTransform2d& CQelTransform2d::operator=(const CQelTransform2d& other) = default;

CQelTransform2d::~CQelTransform2d() = default;

std::int32_t CQelTransform2d::getKind() {
    return -1;
}

bool CQelTransform2d::setAnchorPoint(qel::XPnt3d /*point*/) {
    return false;
}

qel::XPnt3d CQelTransform2d::getAnchorPoint() {
    return {};
}

bool CQelTransform2d::hasRotation() {
    return false;
}

bool CQelTransform2d::isPerspective() {
    return false;
}

std::int32_t CQelTransform2d::isPlanar() {
    return 1;
}

// A view extent set earlier keeps its coordinates relative to the origin and so moves with it: callers set
// the model's extent first.
std::int32_t CQelTransform2d::setModelExtent(qel::Enve3d extent) {
    modelExtent = extent;
    // A missing z range gives the origin a height of 0.
    origin.set(extent.xmin, extent.ymin, qel::withZRange(extent).zmin);
    modelExtent.offset(-origin.x, -origin.y, -origin.z);
    modelExtent.Normalize();
    return 0;
}

qel::Enve3d CQelTransform2d::getModelExtent() {
    qel::Enve3d extent = modelExtent;
    extent.offset(origin.x, origin.y, origin.z);
    return extent;
}

std::int32_t CQelTransform2d::setDeviceExtent(qel::Enve3d extent) {
    deviceExtent = extent;
    return 0;
}

qel::Enve3d CQelTransform2d::getDeviceExtent() {
    return deviceExtent;
}

qel::XPnt3d CQelTransform2d::getOrigin() {
    return origin;
}

std::int32_t CQelTransform2d::setViewExtent(qel::Enve3d extent) {
    viewExtent = extent;
    viewExtent.offset(-origin.x, -origin.y, -origin.z);
    viewExtent.Normalize();
    return 0;
}

qel::Enve3d CQelTransform2d::getViewExtent() {
    qel::Enve3d extent = viewExtent;
    extent.offset(origin.x, origin.y, origin.z);
    return extent;
}

std::int32_t CQelTransform2d::setModeValue(std::int32_t value) {
    modeValue = value;
    return 0;
}

std::int32_t CQelTransform2d::getModeValue() {
    return modeValue;
}

std::int32_t CQelTransform2d::setParamA(double value) {
    paramA = value;
    return 0;
}

double CQelTransform2d::getParamA() {
    return paramA;
}

std::int32_t CQelTransform2d::setParamB(double value) {
    paramB = value;
    return 0;
}

double CQelTransform2d::getParamB() {
    return paramB;
}

std::int32_t CQelTransform2d::setParamC(double value) {
    paramC = value;
    return 0;
}

double CQelTransform2d::getParamC() {
    return paramC;
}

std::int32_t CQelTransform2d::setParamD(double value) {
    paramD = value;
    return 0;
}

double CQelTransform2d::getParamD() {
    return paramD;
}

std::int32_t CQelTransform2d::reservedSlot26() {
    return qel::kNotImplemented;
}

bool CQelTransform2d::setDepthPicking(bool enabled) {
    depthPicking = enabled;
    return false;
}

bool CQelTransform2d::getDepthPicking() {
    return depthPicking;
}

std::int32_t CQelTransform2d::reservedSlot29() {
    return 0;
}

void CQelTransform2d::setFitPending(bool pending) {
    fitPending = pending;
}
