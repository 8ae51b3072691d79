#include "ArrayView.h"
#include "CQelSimpSymbol.h"
#include "ClientArrays.h"
#include "QelGl.h"
#include "QelStatus.h"
#include "QelTmpGlStateCtrl.h"

namespace {

/// Address and layout of elements, as OpenGL expects them.
struct Layout {
    std::uint32_t type;
    std::int32_t stride;
    const void* data;
};

struct PointStyle {
    float size;
    qel::QelColor3f color;
};

/// Draws points from arrays that have been checked to hold what is read.
void drawPointArrays(const Layout& vertices, std::int32_t count, const ArrayView& indices,
                     const Layout& colors, const PointStyle& style) {
    const QelTmpGlStateCtrl lighting(GL_LIGHTING, false);
    const QelTmpGlStateCtrl depthTest(GL_DEPTH_TEST, false);
    const QelTmpGlStateCtrl size(GL_POINT_SIZE, style.size);
    const QelTmpGlStateCtrl color(style.color);
    ClientArrays arrays(vertices.type, vertices.stride, vertices.data);
    if (colors.data != nullptr) {
        arrays.addColors(colors.type, colors.stride, colors.data);
    }
    if (indices.given) {
        glDrawElements(GL_POINTS, indices.count, GL_UNSIGNED_INT, indices.data);
    } else {
        glDrawArrays(GL_POINTS, 0, count);
    }
}

/// Bytes are read as signed, 127 being full intensity: existing hosts rely on it.
constexpr std::uint32_t kByteColor = GL_BYTE;

/// Raises an OpenGL error of the host again, after it had to be read. The rarer errors cannot be raised
/// without side effects.
void restoreError(GLenum error) {
    constexpr GLenum kNoParameter = 0;
    constexpr GLint kNoAlignment = 3;
    if (error == GL_INVALID_ENUM) {
        glPixelStorei(kNoParameter, 0);
    } else if (error == GL_INVALID_VALUE) {
        glPixelStorei(GL_PACK_ALIGNMENT, kNoAlignment);
    } else if (error == GL_INVALID_OPERATION) {
        glEnd();
    }
}

/// Tests the layout by setting the pointer. A refused pointer would leave that of an earlier call, whose
/// memory may be gone. Some drivers set what they refuse, so the previous pointer is restored.
bool isAcceptedByOpenGl(const Layout& vertices) {
    GLint size = 0;
    GLint type = 0;
    GLint stride = 0;
    void* pointer = nullptr;
    const GLenum hostError = glGetError();
    glGetIntegerv(GL_VERTEX_ARRAY_SIZE, &size);
    glGetIntegerv(GL_VERTEX_ARRAY_TYPE, &type);
    glGetIntegerv(GL_VERTEX_ARRAY_STRIDE, &stride);
    glGetPointerv(GL_VERTEX_ARRAY_POINTER, &pointer);
    glVertexPointer(3, vertices.type, vertices.stride, vertices.data);
    const bool accepted = glGetError() == GL_NO_ERROR;
    if (!accepted) {
        glVertexPointer(size, static_cast<GLenum>(type), stride, pointer);
        static_cast<void>(glGetError());
    }
    restoreError(hostError);
    return accepted;
}

/// True if every OpenGL accepts the layout, so that testing is unnecessary.
bool isAcceptedEverywhere(const Layout& vertices) {
    constexpr std::int32_t kLargestStrideOfAll = 2048;
    const std::uint32_t type = vertices.type;
    return (type == GL_SHORT || type == GL_INT || type == GL_FLOAT || type == GL_DOUBLE) &&
           vertices.stride >= 0 && vertices.stride <= kLargestStrideOfAll;
}

std::int32_t drawCloud(const ArrayView& vertices, const ArrayView& indices, const ArrayView& colors,
                       std::uint32_t colorType, const PointStyle& style) {
    if (!vertices.holdsElements() || (indices.given && !indices.holdsElements()) ||
        !colors.isAbsentOrMatches(vertices)) {
        return qel::kRefused;
    }
    const Layout places{GL_FLOAT, vertices.stride, vertices.data};
    drawPointArrays(places, vertices.count, indices, {colorType, colors.stride, colors.data}, style);
    return 0;
}

}  // namespace

std::int32_t CQelSimpSymbol::drawVertexArrayPoints(std::uint32_t type, std::int32_t stride,
                                                   const void* vertices, std::int32_t count,
                                                   qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                                   qel::ref_ptr<IQelArray<qel::ArrayColor3b>> colors,
                                                   float size, qel::QelColor3f given) {
    if (vertices == nullptr) {
        return 0;
    }
    const ArrayView indexView(indices);
    const ArrayView colorView(colors);
    // An array without memory would be read through a null pointer.
    if ((indexView.given && !indexView.holdsElements()) || (colorView.given && colorView.data == nullptr)) {
        return qel::kRefused;
    }
    const Layout layout{type, stride, vertices};
    if (!isAcceptedEverywhere(layout) && !isAcceptedByOpenGl(layout)) {
        return qel::kRefused;
    }
    // OpenGL would refuse a negative count and leave an error for the host.
    if (!indexView.given && count < 0) {
        return 0;
    }
    drawPointArrays(layout, count, indexView, {kByteColor, colorView.stride, colorView.data}, {size, given});
    return 0;
}

std::int32_t CQelSimpSymbol::drawPointCloud(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                            qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                            qel::ref_ptr<IQelArray<qel::ArrayColor3b>> colors, float size,
                                            qel::QelColor3f given) {
    return drawCloud(ArrayView(vertices), ArrayView(indices), ArrayView(colors), kByteColor, {size, given});
}

std::int32_t CQelSimpSymbol::drawPointCloudF(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                             qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                             qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors, float size,
                                             qel::QelColor3f given) {
    return drawCloud(ArrayView(vertices), ArrayView(indices), ArrayView(colors), GL_FLOAT, {size, given});
}
