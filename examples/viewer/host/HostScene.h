#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "HostTextures.h"
#include "IQelSymbol.h"
#include "PointOrder.h"
#include "QelArrayElements.h"
#include "QelHostKit.h"
#include "QelRefPtr.h"
#include "Scene.h"

namespace qelview {

/// A scene in the form that symbols draw: host geometries for lines, arrays of floats for meshes and clouds.
/// Positions must be near the origin (`Scene::moveToOrigin`), since arrays are narrowed to float here.
class HostScene {
  public:
    /// Converts the arrays part by part, so that the scene is never in memory twice.
    explicit HostScene(Scene scene);

    /// Draws everything but labels. The context must be current. Enabled depth testing and disabled lighting
    /// are expected; the current colour and line width change.
    /// @param view the camera that OpenGL holds.
    /// @param textures of the context.
    /// @param partsPerDrawn draws only one of so many points of clouds and parts of meshes; 1 draws all.
    void draw(IQelSymbol& symbol, const PixelView& view, HostTextures& textures,
              std::size_t partsPerDrawn = 1);

    /// The point of a cloud that the last drawing showed at a place; nothing if there is none.
    /// @param view the camera of that drawing.
    /// @param x, y in pixels from the lower left of the view.
    [[nodiscard]] std::optional<qel::XPnt3d> cloudPointAt(const PixelView& view, double x, double y) const;

  private:
    template <class Element>
    using Array = qel::ref_ptr<qel::HostArray<Element>>;

    struct Mesh {
        Array<qel::ArrayVertex> vertices;
        Array<qel::ArrayIndex> indices;
        /// Those of a thinned mesh, for the number of parts that they were made for.
        Array<qel::ArrayIndex> thinned;
        std::size_t partsPerThinned = 0;
        Array<qel::ArrayNormal4f> normals;
        Array<qel::ArrayNormal3b> byteNormals;
        Array<qel::ArrayColor4f> colors;
        Array<qel::ArrayTexCoord2f> texCoords;
        /// Null for none.
        std::shared_ptr<const Texture> texture;
        qel::QelColor3f color;
        std::uint32_t shadeModel = 0;
    };
    struct Cloud {
        Points positions;
        Array<qel::ArrayVertex> vertices;
        Array<qel::ArrayIndex> order;
        Array<qel::ArrayColor3b> colors;
        qel::QelColor3f color;
        float size = 1.0F;
    };
    struct Geometry {
        qel::ref_ptr<IQelGeometry> geometry;
        LineStyle style;
    };

    void addMesh(TriangleMesh&& mesh);
    void addCloud(PointCloud&& cloud);
    void addGeometry(IQelGeometry* geometry, const LineStyle& style);
    void addGeometries(const Scene& scene);

    static void thin(Mesh& mesh, std::size_t partsPerDrawn);
    static void drawMesh(IQelSymbol& symbol, const Mesh& mesh, const Array<qel::ArrayIndex>& indices,
                         std::uint32_t texture);
    static void drawTextured(IQelSymbol& symbol, const Mesh& mesh, const Array<qel::ArrayIndex>& indices,
                             HostTextures& textures);
    static void drawGeometry(IQelSymbol& symbol, const Geometry& drawn);
    static void drawMarker(IQelSymbol& symbol, const Marker& marker);
    void drawMeshes(IQelSymbol& symbol, HostTextures& textures, std::size_t partsPerDrawn);
    void drawClouds(IQelSymbol& symbol, const PixelView& view, std::size_t partsPerDrawn);

    std::vector<Mesh> meshes;
    std::vector<Cloud> clouds;
    std::vector<Geometry> geometries;
    std::vector<Marker> markers;
};

}  // namespace qelview
