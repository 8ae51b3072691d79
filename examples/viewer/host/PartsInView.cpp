#include "PartsInView.h"

#include <algorithm>
#include <cmath>

#include "Reach.h"
#include "SectionPlane.h"

namespace qelview {

namespace {

/// The parts that a camera sees.
class PartsSeen {
  public:
    PartsSeen(IQelTrackBall& asked, const std::vector<SpatialPart>& allParts)
        : camera(asked), parts(allParts), eye(asked.getEye()), ahead(asked.getTarget() - eye) {
        find(0, parts.size());
    }

    [[nodiscard]] const std::vector<std::size_t>& numbers() const { return found; }
    /// Share of the view's width; even a single point has some.
    [[nodiscard]] double widthOf(const SpatialPart& part) const {
        constexpr double kLeast = 1e-4;
        return isAtEye(part.box) ? 1.0 : std::max(double{camera.getScreenCoverage(part.box)}, kLeast);
    }

  private:
    /// Neighbours are asked for together, as long as they may be seen: the answer takes some microseconds.
    void find(std::size_t begin, std::size_t end) {
        constexpr std::size_t kGroups = 8;
        Reach reach;
        for (std::size_t i = begin; i < end; ++i) {
            const qel::Enve3d& part = parts[i].box;
            reach.include({part.xmin, part.ymin, part.zmin});
            reach.include({part.xmax, part.ymax, part.zmax});
        }
        const qel::Enve3d box = reach.box();
        if (!isAtEye(box) && !camera.isBoxVisible(box)) {
            return;
        }
        if (end - begin == 1) {
            found.push_back(begin);
            return;
        }
        const std::size_t size = (end - begin + kGroups - 1) / kGroups;
        for (std::size_t group = begin; group < end; group += size) {
            find(group, std::min(group + size, end));
        }
    }

    /// In perspective the camera does not tell what it sees of a box that reaches behind the eye.
    [[nodiscard]] bool isAtEye(const qel::Enve3d& box) const {
        const auto [low, high] = rangeAlong(ahead, box);
        const double place = qel::dot(ahead, eye);
        return low <= place && place <= high && !camera.isOrtho();
    }

    IQelTrackBall& camera;
    const std::vector<SpatialPart>& parts;
    qel::XPnt3d eye;
    qel::XPnt3d ahead;
    std::vector<std::size_t> found;
};

/// Joins a range to the one before where it continues it.
void append(std::vector<DrawnRange>& ranges, const DrawnRange& next) {
    if (!ranges.empty() && ranges.back().end == next.begin && ranges.back().step == 1 && next.step == 1) {
        ranges.back().end = next.end;
    } else {
        ranges.push_back(next);
    }
}

}  // namespace

void findPartsInView(IQelTrackBall& camera, const std::vector<SpatialPart>& parts, std::size_t thinning,
                     std::vector<DrawnRange>& ranges) {
    ranges.clear();
    const PartsSeen seen(camera, parts);
    if (thinning == 1) {
        for (const std::size_t number : seen.numbers()) {
            append(ranges, {parts[number].begin, parts[number].end, 1});
        }
        return;
    }
    std::vector<double> areas;
    double area = 0.0;
    std::size_t inView = 0;
    for (const std::size_t number : seen.numbers()) {
        const double width = seen.widthOf(parts[number]);
        areas.push_back(width * width);
        area += areas.back();
        inView += parts[number].end - parts[number].begin;
    }
    const double drawnPerArea = static_cast<double>(inView) / static_cast<double>(thinning) / area;
    for (std::size_t i = 0; i < areas.size(); ++i) {
        const SpatialPart& part = parts[seen.numbers()[i]];
        const auto size = static_cast<double>(part.end - part.begin);
        const double step = std::clamp(std::ceil(size / (drawnPerArea * areas[i])), 1.0, size);
        append(ranges, {part.begin, part.end, static_cast<std::size_t>(step)});
    }
}

}  // namespace qelview
