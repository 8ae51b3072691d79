#include "Thinning.h"

#include <algorithm>

namespace qelview {

std::vector<std::uint32_t> thinnedTriangles(const std::vector<std::uint32_t>& indices,
                                            std::size_t positionCount, std::size_t partsPerDrawn) {
    constexpr std::size_t kCornersOfAPart = kTrianglesOfAPart * 3;
    const std::size_t corners = indices.empty() ? positionCount / 3 * 3 : indices.size();
    std::vector<std::uint32_t> kept;
    for (std::size_t begin = 0; begin < corners; begin += kCornersOfAPart * partsPerDrawn) {
        const std::size_t end = std::min(begin + kCornersOfAPart, corners);
        for (std::size_t corner = begin; corner < end; ++corner) {
            kept.push_back(indices.empty() ? static_cast<std::uint32_t>(corner) : indices[corner]);
        }
    }
    return kept;
}

}  // namespace qelview
