#include "FramePixels.h"

#include "QelGl.h"
#include "QelTmpGlStateCtrl.h"

namespace qelview {

PixelImage readPixels(int width, int height) {
    PixelImage image{width, height,
                     std::vector<std::uint8_t>(static_cast<std::size_t>(width) *
                                               static_cast<std::size_t>(height) * PixelImage::kChannels)};
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, image.rgb.data());
    return image;
}

void drawPixels(const PixelImage& image) {
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    const QelTmpGlStateCtrl lighting(GL_LIGHTING, false);
    const QelTmpGlStateCtrl texture(GL_TEXTURE_2D, false);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glRasterPos2d(0.0, 0.0);
    glDrawPixels(image.width, image.height, GL_RGB, GL_UNSIGNED_BYTE, image.rgb.data());
}

}  // namespace qelview
