#include "HostTextures.h"

#include <cstdlib>
#include <initializer_list>

#include "PowersOfTwo.h"
#include "QelGl.h"

namespace qelview {

namespace {

/// Of OpenGL 1.2.
constexpr GLint kClampToEdge = 0x812F;

/// True for a current context of OpenGL 1.2 or later.
bool canClampToEdge() {
    const auto* const version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    // It begins with major and minor number, of one digit each: "1.1.0 by a vendor".
    return version != nullptr && std::strtod(version, nullptr) >= 1.2;
}

void setWrapping(GLenum direction, Wrapping wrapping, GLint clamping) {
    glTexParameteri(GL_TEXTURE_2D, direction, wrapping == Wrapping::Clamp ? clamping : GL_REPEAT);
}

void setParameters(const Texture& texture) {
    const bool isClamped = texture.acrossU == Wrapping::Clamp || texture.acrossV == Wrapping::Clamp;
    const bool canClamp = canClampToEdge();
    // Where edges are mixed with a border, which no image has, only its pixels themselves are right.
    const bool isMixed = canClamp || !isClamped;
    const bool isMixedNearby = isMixed && !texture.hasSharpPixels;
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, isMixedNearby ? GL_LINEAR : GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER,
                    isMixed ? GL_LINEAR_MIPMAP_LINEAR : GL_NEAREST_MIPMAP_NEAREST);
    setWrapping(GL_TEXTURE_WRAP_S, texture.acrossU, canClamp ? kClampToEdge : GL_CLAMP);
    setWrapping(GL_TEXTURE_WRAP_T, texture.acrossV, canClamp ? kClampToEdge : GL_CLAMP);
}

/// Loads the bound texture; false if there is no memory for it.
bool loadImage(const TextureImage& image) {
    const GLint channels = image.channels;
    const GLenum format = channels == 4 ? GL_RGBA : GL_RGB;
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    for (const GLenum gap :
         std::initializer_list<GLenum>{GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS}) {
        glPixelStorei(gap, 0);
    }
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    const bool isLoaded = gluBuild2DMipmaps(GL_TEXTURE_2D, channels, image.width, image.height, format,
                                            GL_UNSIGNED_BYTE, image.pixels.data()) == 0;
    glPopClientAttrib();
    return isLoaded;
}

/// GLU would scale images itself, but leaves the last row of some black.
bool loadInAnySize(const TextureImage& image) {
    GLint most = 1;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &most);
    const int width = nearestPowerOfTwo(image.width, most);
    const int height = nearestPowerOfTwo(image.height, most);
    if (width == image.width && height == image.height) {
        return loadImage(image);
    }
    return loadImage(scaledImage(image, width, height));
}

}  // namespace

std::uint32_t HostTextures::nameOf(const Texture& texture) {
    const auto [known, isNew] =
        names.try_emplace({texture.image, texture.acrossU, texture.acrossV, texture.hasSharpPixels}, 0);
    if (!isNew) {
        return known->second;
    }
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    setParameters(texture);
    if (!loadInAnySize(*texture.image)) {
        glDeleteTextures(1, &name);
        name = 0;
    }
    known->second = name;
    return name;
}

void HostTextures::release() {
    for (const auto& [key, name] : names) {
        glDeleteTextures(1, &name);
    }
    names.clear();
}

}  // namespace qelview
