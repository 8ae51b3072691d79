#include "CameraHistory.h"

namespace qelview {

namespace {

constexpr std::size_t kMost = 200;

bool isSame(const qel::XPnt3d& a, const qel::XPnt3d& b) {
    return qel::dist(a, b) == 0.0;
}

}  // namespace

bool CameraState::isSameAs(const CameraState& other) const {
    return isOrthographic == other.isOrthographic && isSame(place.eye, other.place.eye) &&
           isSame(place.target, other.place.target) && isSame(place.up, other.place.up);
}

void CameraHistory::add(const CameraState& camera) {
    if (!cameras.empty() && cameras.back().isSameAs(camera)) {
        return;
    }
    if (cameras.size() == kMost) {
        cameras.erase(cameras.begin());
    }
    cameras.push_back(camera);
}

std::optional<CameraState> CameraHistory::back(const CameraState& now) {
    while (!cameras.empty()) {
        const CameraState last = cameras.back();
        cameras.pop_back();
        if (!last.isSameAs(now)) {
            return last;
        }
    }
    return std::nullopt;
}

}  // namespace qelview
