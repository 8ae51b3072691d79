#include "Thinning.h"

#include <algorithm>
#include <numeric>

namespace qelview {

void findDrawnCorners(const std::vector<DrawnRange>& ranges, const std::vector<std::uint32_t>& indices,
                      std::vector<std::uint32_t>& corners) {
    corners.clear();
    for (const DrawnRange& range : ranges) {
        const std::size_t together = range.step == 1 ? range.end - range.begin : kTrianglesOfABlock;
        for (std::size_t block = range.begin; block < range.end; block += together * range.step) {
            const std::size_t begin = block * 3;
            const std::size_t end = std::min(block + together, range.end) * 3;
            const std::size_t place = corners.size();
            corners.resize(place + end - begin);
            if (indices.empty()) {
                std::iota(corners.data() + place, corners.data() + corners.size(),
                          static_cast<std::uint32_t>(begin));
            } else {
                std::copy(indices.data() + begin, indices.data() + end, corners.data() + place);
            }
        }
    }
}

}  // namespace qelview
