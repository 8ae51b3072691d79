#include <algorithm>

#include "CQelTrackBall.h"
#include "PixelArea.h"
#include "PixelPackScope.h"
#include "QelGl.h"
#include "QelTruncate.h"

namespace {

/// A tenth of the pixels tells the mean depth well enough for zooming.
constexpr std::size_t kSampleStep = 10;
constexpr double kNearestMean = 0.00001;
constexpr double kFarthestMean = 0.99999;

double clampMean(double depth) {
    if (depth > kNearestMean) {
        return depth > kFarthestMean ? kFarthestMean : depth;
    }
    return kNearestMean;
}

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
    if (width != depthWidth || height != depthHeight) {
        if (qel::pixelArea(depthWidth, depthHeight) < qel::pixelArea(width, height)) {
            // The old copy goes first, and its size with it: if there is no memory, the camera has no copy.
            depthBuffer.reset();
            depthWidth = depthHeight = 0;
            depthBuffer = std::make_unique<float[]>(qel::pixelArea(width, height));
        }
        depthWidth = width;
        depthHeight = height;
        // What lies outside OpenGL's buffer is never read and stays background.
        std::fill_n(depthBuffer.get(), qel::pixelArea(width, height), 1.0F);
    }
    if (!ownerGone) {
        glReadBuffer(GL_BACK);
        const qel::PixelPackScope packing;
        glReadPixels(0, 0, depthWidth, depthHeight, GL_DEPTH_COMPONENT, GL_FLOAT, depthBuffer.get());
    }
    depthStale = true;
}

double CQelTrackBall::meanOfDepthBuffer(std::size_t& count) const {
    double sum = 0.0;
    count = 0;
    const std::size_t area = qel::pixelArea(depthWidth, depthHeight);
    for (std::size_t index = 0; index < area; index += kSampleStep) {
        if (depthBuffer[index] < 1.0F) {
            sum += static_cast<double>(depthBuffer[index]);
            ++count;
        }
    }
    return count > 0 ? sum / static_cast<double>(count) : 0.0;
}

double CQelTrackBall::getMeanDepth() {
    if (!depthStale) {
        return static_cast<double>(averageDepth);
    }
    std::size_t count = 0;
    double mean = meanOfDepthBuffer(count);
    if (count == 0) {
        mean = projectPnt(extent.MidPoint()).z;
    }
    mean = clampMean(mean);
    averageDepth = static_cast<float>(mean);
    depthStale = false;
    return mean;
}
