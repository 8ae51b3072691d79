#include "CQelSimpSymbol.h"
#include "ClientArrays.h"
#include "LentArray.h"
#include "QelGl.h"
#include "QelStatus.h"
#include "QelTmpGlStateCtrl.h"

namespace {

/// Where elements lie and how they are laid out, as OpenGL asks for it.
struct Layout {
    std::uint32_t type;
    std::int32_t stride;
    const void* data;
};

struct PointStyle {
    float size;
    qel::QelColor3f color;
};

/// Draws points from arrays that are known to hold what is read from them.
void drawPointArrays(const Layout& vertices, std::int32_t count, const LentArray& indices,
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

/// Bytes are read as signed ones, which is what hosts' colour arrays are made for: 127 is full intensity.
constexpr std::uint32_t kByteColor = GL_BYTE;

// OpenGL refuses any other layout and would then draw from the memory of an earlier call, which may be gone.
bool isVertexLayout(std::uint32_t type, std::int32_t stride) {
    const bool known = type == GL_SHORT || type == GL_INT || type == GL_FLOAT || type == GL_DOUBLE;
    return known && stride >= 0;
}

std::int32_t drawCloud(const LentArray& vertices, const LentArray& indices, const LentArray& colors,
                       std::uint32_t colorType, const PointStyle& style) {
    if (!vertices.holdsElements() || (indices.given && !indices.holdsElements()) ||
        !colors.isAbsentOrMatches(vertices)) {
        return qel::kRefused;
    }
    drawPointArrays({GL_FLOAT, vertices.stride, vertices.data}, vertices.count, indices,
                    {colorType, colors.stride, colors.data}, style);
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
    const LentArray lentIndices(indices);
    const LentArray lentColors(colors);
    // An array that was given but has no memory would be read through a null pointer.
    if ((lentIndices.given && !lentIndices.holdsElements()) ||
        (lentColors.given && lentColors.data == nullptr) || !isVertexLayout(type, stride)) {
        return qel::kRefused;
    }
    // OpenGL refuses a negative count with an error of the host's.
    if (!lentIndices.given && count < 0) {
        return 0;
    }
    drawPointArrays({type, stride, vertices}, count, lentIndices,
                    {kByteColor, lentColors.stride, lentColors.data}, {size, given});
    return 0;
}

std::int32_t CQelSimpSymbol::drawPointCloud(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                            qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                            qel::ref_ptr<IQelArray<qel::ArrayColor3b>> colors, float size,
                                            qel::QelColor3f given) {
    return drawCloud(LentArray(vertices), LentArray(indices), LentArray(colors), kByteColor, {size, given});
}

std::int32_t CQelSimpSymbol::drawPointCloudF(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                             qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                             qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors, float size,
                                             qel::QelColor3f given) {
    return drawCloud(LentArray(vertices), LentArray(indices), LentArray(colors), GL_FLOAT, {size, given});
}
