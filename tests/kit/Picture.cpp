#include "Picture.h"

#include <algorithm>
#include <cstdlib>

#include "CallTrace.h"
#include "QelGl.h"

namespace qel::test {

namespace {

GLenum bufferOfTheFrame() {
    GLboolean doubleBuffered = GL_FALSE;
    glGetBooleanv(GL_DOUBLEBUFFER, &doubleBuffered);
    return doubleBuffered != GL_FALSE ? GL_BACK : GL_FRONT;
}

/// Smallest area around the pixels for which `wanted` holds.
template <class Predicate>
std::optional<PixelArea> boundsWhere(const Picture& picture, Predicate wanted) {
    int left = picture.width();
    int right = -1;
    int bottom = picture.height();
    int top = -1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (wanted(picture.at(x, y))) {
                left = std::min(left, x);
                right = std::max(right, x);
                bottom = std::min(bottom, y);
                top = std::max(top, y);
            }
        }
    }
    if (right < 0) {
        return std::nullopt;
    }
    return PixelArea{left, bottom, right - left + 1, top - bottom + 1};
}

}  // namespace

int difference(const Rgba& one, const Rgba& other) {
    int largest = 0;
    for (std::size_t i = 0; i < one.size(); ++i) {
        largest = std::max(largest, std::abs(int{one[i]} - int{other[i]}));
    }
    return largest;
}

Picture::Picture(int width, int height, const Rgba& colour)
    : columns(width),
      rows(height),
      bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = colour[i % 4];
    }
}

Picture Picture::ofFrame() {
    const CallTrace::Pause unrecorded;
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    return ofFrame({viewport[0], viewport[1], viewport[2], viewport[3]}, bufferOfTheFrame());
}

Picture Picture::ofFrame(const PixelArea& area, unsigned buffer) {
    const CallTrace::Pause unrecorded;
    Picture picture(area.width, area.height);
    glPushAttrib(GL_PIXEL_MODE_BIT);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glReadBuffer(buffer);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glReadPixels(area.x, area.y, area.width, area.height, GL_RGBA, GL_UNSIGNED_BYTE, picture.bytes.data());
    glPopClientAttrib();
    glPopAttrib();
    return picture;
}

std::size_t Picture::offset(int x, int y) const {
    return (static_cast<std::size_t>(y) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(x)) *
           4;
}

Rgba Picture::at(int x, int y) const {
    Rgba colour{};
    const std::size_t first = offset(x, y);
    for (std::size_t i = 0; i < colour.size(); ++i) {
        colour[i] = bytes.at(first + i);
    }
    return colour;
}

void Picture::set(int x, int y, const Rgba& colour) {
    const std::size_t first = offset(x, y);
    for (std::size_t i = 0; i < colour.size(); ++i) {
        bytes.at(first + i) = colour[i];
    }
}

std::size_t Picture::countOf(const Rgba& colour, int tolerance, const PixelArea& where) const {
    std::size_t count = 0;
    for (int y = std::max(where.y, 0); y < std::min(where.y + where.height, rows); ++y) {
        for (int x = std::max(where.x, 0); x < std::min(where.x + where.width, columns); ++x) {
            count += difference(at(x, y), colour) <= tolerance ? 1U : 0U;
        }
    }
    return count;
}

std::size_t Picture::countOf(const Rgba& colour, int tolerance) const {
    return countOf(colour, tolerance, area());
}

std::size_t Picture::countOtherThan(const Rgba& background, int tolerance) const {
    return bytes.size() / 4 - countOf(background, tolerance);
}

std::optional<PixelArea> Picture::boundsOtherThan(const Rgba& background, int tolerance) const {
    return boundsWhere(*this, [&](const Rgba& colour) { return difference(colour, background) > tolerance; });
}

std::optional<PixelArea> Picture::boundsOf(const Rgba& colour, int tolerance) const {
    return boundsWhere(*this, [&](const Rgba& pixel) { return difference(pixel, colour) <= tolerance; });
}

PictureDifference compare(const Picture& expected, const Picture& actual, int channelTolerance) {
    PictureDifference result;
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            const int differs = difference(expected.at(x, y), actual.at(x, y));
            result.largest = std::max(result.largest, differs);
            result.pixels += differs > channelTolerance ? 1U : 0U;
        }
    }
    const double all = static_cast<double>(expected.width()) * expected.height();
    result.share = all > 0 ? static_cast<double>(result.pixels) / all : 0;
    return result;
}

}  // namespace qel::test
