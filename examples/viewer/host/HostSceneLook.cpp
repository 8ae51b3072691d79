#include <algorithm>
#include <cmath>

#include "AllCores.h"
#include "HostScene.h"

/// How a scene is coloured, how large its points are, and where a plane meets it.

namespace qelview {

namespace {

void convert(const qel::QelColor3f& color, qel::ArrayColor4f& converted) {
    converted = {color.r, color.g, color.b, 1.0F};
}

void convert(const qel::QelColor3f& color, qel::ArrayColor3b& converted) {
    const auto byte = [](float part) { return static_cast<std::int8_t>(std::lround(part * 127.0F)); };
    converted = {byte(color.r), byte(color.g), byte(color.b)};
}

template <class Color>
void makeHeightColors(const std::vector<qel::ArrayVertex>& vertices, const HeightRange& range,
                      qel::ref_ptr<qel::HostArray<Color>>& made) {
    std::vector<Color> colors(vertices.size());
    forEachOnAllCores(vertices.size(),
                      [&](std::size_t i) { convert(colorIn(range, vertices[i]), colors[i]); });
    made = new qel::HostArray<Color>(std::move(colors));
}

}  // namespace

Points HostScene::sectionLines(const SectionPlane& plane) const {
    static const std::vector<qel::ArrayIndex> kNone;
    Points lines;
    for (const Mesh& mesh : meshes) {
        if (mesh.vertices) {
            appendSectionLines(plane, mesh.vertices->content(),
                               mesh.indices ? mesh.indices->content() : kNone, lines);
        }
    }
    return lines;
}

HeightRange HostScene::heights(UpAxis up) const {
    HeightRange range{.up = up};
    const auto include = [&range](const auto& parts) {
        for (const auto& part : parts) {
            for (int i = 0; part.vertices && i < part.vertices->count(); ++i) {
                range.include(part.vertices->data()[i]);
            }
        }
    };
    include(meshes);
    include(clouds);
    return range;
}

void HostScene::setColouring(Colouring wanted, const HeightRange& range) {
    shownColouring = wanted;
    const auto color = [&](auto& parts) {
        for (auto& part : parts) {
            part.heightColors = {};
            if (wanted == Colouring::Height && part.vertices) {
                makeHeightColors(part.vertices->content(), range, part.heightColors);
            }
        }
    };
    color(meshes);
    color(clouds);
}

float HostScene::growPoints(float pixels) {
    constexpr float kSmallest = 1.0F;
    constexpr float kLargest = 16.0F;
    for (Cloud& cloud : clouds) {
        cloud.size = std::clamp(cloud.size + pixels, kSmallest, kLargest);
    }
    return clouds.empty() ? 0.0F : clouds.front().size;
}

}  // namespace qelview
