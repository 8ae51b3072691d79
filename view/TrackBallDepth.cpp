#include <algorithm>

#include "CQelTrackBall.h"
#include "QelGl.h"
#include "detail/PixelArea.h"
#include "detail/PixelDepth.h"
#include "detail/PixelPackScope.h"
#include "detail/QelTruncate.h"

namespace {

/// A tenth of the pixels is enough for the mean depth that zooming needs.
constexpr std::size_t kSampleStep = 10;
constexpr double kNearestMean = 0.00001;
constexpr double kFarthestMean = 0.99999;

}  // namespace

std::int32_t CQelTrackBall::refreshDepth() {
    readDepthBuffer();
    if (!orthoPending) {
        return 0;
    }
    updateOrthoBox(false);
    applyProjection();
    orthoPending = false;
    return 1;
}

void CQelTrackBall::readDepthBuffer() {
    const std::int32_t width = qel::truncateToInt(static_cast<double>(viewWidth));
    const std::int32_t height = qel::truncateToInt(static_cast<double>(viewHeight));
    if (width != depthCopy.width || height != depthCopy.height) {
        if (qel::pixelArea(depthCopy.width, depthCopy.height) < qel::pixelArea(width, height)) {
            // The old copy and its size are released first: if there is no memory, the camera has no copy.
            depthCopy.values.reset();
            depthCopy.width = depthCopy.height = 0;
            depthCopy.values = std::make_unique<float[]>(qel::pixelArea(width, height));
        }
        depthCopy.width = width;
        depthCopy.height = height;
        // Pixels outside OpenGL's buffer are never read and stay background.
        std::fill_n(depthCopy.values.get(), qel::pixelArea(width, height), qel::kBackgroundDepth);
    }
    if (!ownerDetached) {
        glReadBuffer(GL_BACK);
        const qel::PixelPackScope packing;
        glReadPixels(0, 0, depthCopy.width, depthCopy.height, GL_DEPTH_COMPONENT, GL_FLOAT,
                     depthCopy.values.get());
    }
    depthCopy.isMeanStale = true;
}

double CQelTrackBall::meanOfDepthCopy(std::size_t& count) const {
    double sum = 0.0;
    count = 0;
    const std::size_t area = qel::pixelArea(depthCopy.width, depthCopy.height);
    for (std::size_t index = 0; index < area; index += kSampleStep) {
        if (depthCopy.values[index] < qel::kBackgroundDepth) {
            sum += static_cast<double>(depthCopy.values[index]);
            ++count;
        }
    }
    return count > 0 ? sum / static_cast<double>(count) : 0.0;
}

double CQelTrackBall::clampMeanDepth(double depth) {
    // Not std::clamp: NaN becomes the nearest depth too.
    if (depth > kNearestMean) {
        return depth > kFarthestMean ? kFarthestMean : depth;
    }
    return kNearestMean;
}

double CQelTrackBall::getMeanDepth() {
    if (!depthCopy.isMeanStale) {
        return static_cast<double>(depthCopy.mean);
    }
    std::size_t count = 0;
    double mean = meanOfDepthCopy(count);
    if (count == 0) {
        mean = projectPnt(extent.MidPoint()).z;
    }
    mean = clampMeanDepth(mean);
    depthCopy.mean = static_cast<float>(mean);
    depthCopy.isMeanStale = false;
    return mean;
}
