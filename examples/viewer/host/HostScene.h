#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "HeightColors.h"
#include "HostView.h"
#include "IQelSymbol.h"
#include "IQelTrackBall.h"
#include "PartsInView.h"
#include "PointOrder.h"
#include "QelArrayElements.h"
#include "QelHostKit.h"
#include "QelRefPtr.h"
#include "Scene.h"
#include "SectionPlane.h"

namespace qelview {

/// How finely a scene is drawn.
struct DrawingDetail {
    /// Asked which parts are in view; null draws all of them.
    IQelTrackBall* camera = nullptr;
    /// With n, draws about one in n of the triangles and points in view, more of them where parts look large.
    std::size_t thinning = 1;
    /// Widths of lines and points are multiplied by it.
    float pixelScale = 1.0F;
    /// What cuts the scene; nothing for none. OpenGL must hold it as a clipping plane.
    std::optional<SectionPlane> section;
};

/// A scene in the form that symbols draw: host geometries for lines, arrays of floats for meshes and clouds.
/// Positions must be near the origin (`Scene::moveToOrigin`), since arrays are narrowed to float here.
class HostScene {
  public:
    /// Converts the arrays part by part, so that the scene is never in memory twice.
    explicit HostScene(Scene scene);

    /// Draws everything but labels. The context must be current. Enabled depth testing and disabled lighting
    /// are expected; the current colour and line width change.
    /// @param view the camera that OpenGL holds.
    /// @param kept of the same context and scene, or new.
    void draw(IQelSymbol& symbol, const PixelView& view, HostView& kept, const DrawingDetail& detail = {});

    /// The point of a cloud that the last drawing showed at a place; nothing if there is none.
    /// @param view, kept of that drawing.
    /// @param x, y in pixels from the lower left of the view.
    [[nodiscard]] std::optional<qel::XPnt3d> cloudPointAt(const PixelView& view, const HostView& kept,
                                                          double x, double y) const;

    /// The lines in which meshes meet a plane, two points for each.
    [[nodiscard]] Points sectionLines(const SectionPlane& plane) const;
    /// The heights of meshes and clouds; not valid if there are none.
    [[nodiscard]] HeightRange heights(UpAxis up) const;
    /// Colours meshes and clouds from now on.
    /// @param range with `Colouring::Height`, what the colours stand for.
    void setColouring(Colouring wanted, const HeightRange& range);
    [[nodiscard]] Colouring colouring() const { return shownColouring; }
    /// Makes the points of clouds larger or smaller.
    /// @return the size of the first cloud's points in pixels; 0 if there are none.
    float growPoints(float pixels);

  private:
    template <class Element>
    using Array = HostElements<Element>;

    struct Mesh {
        Array<qel::ArrayVertex> vertices;
        Array<qel::ArrayIndex> indices;
        std::vector<SpatialPart> parts;
        Array<qel::ArrayNormal4f> normals;
        Array<qel::ArrayNormal3b> byteNormals;
        Array<qel::ArrayColor4f> colors;
        /// Only while they are shown, here and in clouds.
        Array<qel::ArrayColor4f> heightColors;
        Array<qel::ArrayTexCoord2f> texCoords;
        /// Null for none.
        std::shared_ptr<const Texture> texture;
        qel::QelColor3f color;
        std::uint32_t shadeModel = 0;
    };
    struct Cloud {
        Points positions;
        std::vector<SpatialPart> parts;
        Array<qel::ArrayVertex> vertices;
        Array<qel::ArrayColor3b> colors;
        Array<qel::ArrayColor3b> heightColors;
        qel::QelColor3f color;
        float size = 1.0F;
    };
    struct Geometry {
        qel::ref_ptr<IQelGeometry> geometry;
        LineStyle style;
    };

    void addMesh(TriangleMesh&& mesh);
    void addCloud(PointCloud&& cloud);
    void addGeometries(const Scene& scene);

    /// Fills `ranges` with what a frame draws.
    void findRanges(const std::vector<SpatialPart>& parts, std::size_t count, const DrawingDetail& detail);
    /// The corners of a mesh in `ranges`; null for all.
    [[nodiscard]] const Array<qel::ArrayIndex>& cornersInRanges(const Mesh& mesh, std::size_t triangles,
                                                                HostView::MeshCorners& kept) const;
    /// The colours of a mesh or cloud, as they are coloured.
    template <class Part>
    [[nodiscard]] auto shownColors(const Part& part) const;
    void drawMesh(IQelSymbol& symbol, const Mesh& mesh, const Array<qel::ArrayIndex>& indices,
                  std::uint32_t texture) const;
    void drawTextured(IQelSymbol& symbol, const Mesh& mesh, const Array<qel::ArrayIndex>& indices,
                      HostTextures& textures) const;
    static void drawGeometry(IQelSymbol& symbol, const Geometry& drawn, float pixelScale);
    static void drawMarker(IQelSymbol& symbol, const Marker& marker, float pixelScale);
    void drawMeshes(IQelSymbol& symbol, HostView& kept, const DrawingDetail& detail);
    void drawClouds(IQelSymbol& symbol, const PixelView& view, HostView& kept, const DrawingDetail& detail);

    std::vector<Mesh> meshes;
    std::vector<Cloud> clouds;
    std::vector<Geometry> geometries;
    std::vector<Marker> markers;
    std::vector<DrawnRange> ranges;
    Colouring shownColouring = Colouring::Own;
};

}  // namespace qelview
