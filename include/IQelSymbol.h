#pragma once

#include <cstdint>

#include "Enve2d.h"
#include "Enve3d.h"
#include "IQelArray.h"
#include "QelArrayElements.h"
#include "QelColor.h"
#include "QelDisplayExport.h"
#include "QelMeshStyle.h"
#include "QelRefPtr.h"
#include "QelReferenced.h"
#include "XPnt3d.h"

class IQelGeometry;
class QString;

namespace qel {

/// The corners of a triangle, owned by the caller.
struct TrianglePoints {
    /// @{
    /// The corners in model units; none may be null.
    const XPnt3d* p0 = nullptr;
    const XPnt3d* p1 = nullptr;
    const XPnt3d* p2 = nullptr;
    /// @}
};

}  // namespace qel

/// A drawing style and the renderer that draws with it: host geometries, markers, meshes and point clouds.
///
/// Created by `newQelSymbol`, which adds no reference: keep it in a `qel::ref_ptr`. A symbol draws at once
/// and keeps nothing of what it drew.
///
/// - Context: draws into the context that is current on the calling thread. Setters and getters need none.
/// - Units: coordinates, lengths and radii in model units, widths and sizes in pixels.
/// - Arguments: `lighting` and `depthTest` switch GL_LIGHTING and GL_DEPTH_TEST for the call. A null pointer
///   draws nothing. Numbers are not checked; OpenGL gets them as they are, finite or not.
/// - State: markers restore every OpenGL state they change unless they say what they leave. What is drawn
///   from arrays (host curves, points, meshes) leaves the client arrays disabled, pointing at the memory they
///   read last.
/// - Results: drawing operations return 0 unless they say otherwise.
///
/// OpenGL reads arrays and curve points from host memory. Unbind GL_ARRAY_BUFFER and GL_ELEMENT_ARRAY_BUFFER
/// first: while a buffer object is bound, OpenGL takes the addresses for offsets into it.
class QEL_DISPLAY_API IQelSymbol : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is a separate object and starts without references.
    IQelSymbol();
    IQelSymbol(const IQelSymbol& other);
    IQelSymbol& operator=(const IQelSymbol& other);
    /// @}

    /// @{
    /// A name kept for the host; empty at first. The setter returns 1.
    virtual std::int32_t setName(QString name) = 0;
    virtual QString getName() = 0;
    /// @}
    virtual std::int32_t reservedSlot3() = 0;
    virtual std::int32_t reservedSlot4() = 0;
    /// Draws a host geometry by its kind with the symbol's colour and line width. Points are always green,
    /// two pixels wide, unlit and not depth-tested; other kinds take GL_LIGHTING and GL_DEPTH_TEST as they
    /// are. Line segments and balls use OpenGL's current colour and width. Unknown kinds draw nothing.
    /// Curves, rings, polylines and polygons leave the symbol's colour and line width set; a ball leaves the
    /// current normal changed.
    virtual std::int32_t drawGeometry(IQelGeometry* geometry) = 0;
    /// Draws a polyline, polygon, ring, curve or line segment; other kinds draw nothing. `color` applies to
    /// rings, curves and segments, `width` to segments only; polylines and polygons use the symbol's own.
    virtual std::int32_t drawGeometryWith(IQelGeometry* geometry, double width, qel::QelColor3b color) = 0;
    virtual std::int32_t reservedSlot7() = 0;
    /// A line with a 16-bit stipple pattern, one bit per pixel. Leaves the pattern set and GL_LINE_STIPPLE
    /// off.
    virtual std::int32_t drawStippledLine(const qel::XPnt3d& from, const qel::XPnt3d& to, double width,
                                          qel::QelColor3f color, bool lighting, bool depthTest,
                                          std::uint16_t pattern) = 0;
    /// Three lines through a centre along x, y and z.
    virtual std::int32_t drawCross(const qel::XPnt3d& center, double halfLength, float width,
                                   qel::QelColor3f color, bool lighting, bool depthTest) = 0;
    /// Two diagonals in the plane of x and y, and a line along z.
    virtual std::int32_t drawDiagonalCross(const qel::XPnt3d& center, double halfLength, float width,
                                           qel::QelColor3f color, bool lighting, bool depthTest) = 0;
    /// The outline of a rectangle at z = 0.
    virtual std::int32_t drawRect2d(const qel::Enve2d& rect, double width, qel::QelColor3f color,
                                    bool lighting, bool depthTest) = 0;
    /// The outline of a square in the plane of x and y through its centre.
    virtual std::int32_t drawSquare(const qel::XPnt3d& center, double halfSide, double width,
                                    qel::QelColor3f color, bool lighting, bool depthTest) = 0;
    /// `drawRect2d` of a box seen from above.
    virtual std::int32_t drawEnvelopeOutline(const qel::Enve3d& box, double width, qel::QelColor3f color,
                                             bool lighting, bool depthTest) = 0;
    /// The twelve edges of a box.
    virtual std::int32_t drawBox(const qel::Enve3d& box, double width, qel::QelColor3f color, bool lighting,
                                 bool depthTest) = 0;
    /// A rectangle at z = 0: its outline, then its fill.
    virtual std::int32_t drawFilledRect2d(const qel::Enve2d& rect, float width, qel::QelColor3f outline,
                                          qel::QelColor3f fill, bool lighting, bool depthTest) = 0;
    /// A frame around a segment, 0.7071 units away from it in the plane of x and y.
    virtual std::int32_t drawSegmentFrame(const qel::XPnt3d& from, const qel::XPnt3d& to, double unused,
                                          float width, qel::QelColor3f color, bool lighting,
                                          bool depthTest) = 0;
    /// A line between two points.
    virtual std::int32_t drawLine(const qel::XPnt3d& from, const qel::XPnt3d& to, double width,
                                  qel::QelColor3f color, bool lighting, bool depthTest) = 0;
    /// A circle of 21 segments at z = 0, whatever the z of its centre.
    virtual std::int32_t drawCircle(const qel::XPnt3d& center, double radius, float width,
                                    qel::QelColor3f color, bool lighting, bool depthTest) = 0;
    /// Points of one size in pixels.
    /// @param points `count` pointers to three floats each; null ones are skipped.
    /// @param count not above 0 draws none.
    virtual std::int32_t drawPointsF(const float* const* points, std::int32_t count, double size,
                                     qel::QelColor3f color, bool lighting, bool depthTest) = 0;
    /// Points of one size in pixels. A null pointer or a count not above 0 draws none.
    virtual std::int32_t drawPoints(const qel::XPnt3d* points, std::int32_t count, double size,
                                    qel::QelColor3f color, bool lighting, bool depthTest) = 0;
    /// One point; `size` in pixels.
    virtual std::int32_t drawPoint(double x, double y, double z, float size, qel::QelColor3f color,
                                   bool lighting, bool depthTest) = 0;
    /// The same in single precision.
    virtual std::int32_t drawPointF(float x, float y, float z, float size, qel::QelColor3f color,
                                    bool lighting, bool depthTest) = 0;
    /// Points from host memory, unlit and not depth-tested.
    /// @param type OpenGL type of a coordinate, three per vertex: any that the current OpenGL accepts
    /// (GL_FLOAT, GL_DOUBLE, GL_HALF_FLOAT, ...).
    /// @param stride bytes from one vertex to the next; 0 for tightly packed vertices.
    /// @param count number of vertices to draw if there are no indices; not above 0 draws nothing.
    /// @param indices which vertices to draw, all of which must exist; empty pointer for all.
    /// @param colors one colour per vertex, for every vertex drawn; their number is not checked. Empty
    /// pointer for `color`.
    /// @return 0, also for null vertices and a count below 0; -1 for an index array without indices, an array
    /// without memory, or a type or stride that OpenGL does not accept.
    virtual std::int32_t drawVertexArrayPoints(std::uint32_t type, std::int32_t stride, const void* vertices,
                                               std::int32_t count,
                                               qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                               qel::ref_ptr<IQelArray<qel::ArrayColor3b>> colors, float size,
                                               qel::QelColor3f color) = 0;
    /// A point cloud, unlit and not depth-tested. Indices and colours may be empty pointers.
    /// @return 0; -1 if there are no vertices, an index array has no indices, the number of colours differs
    /// from the number of vertices, or an array has a count but no memory.
    virtual std::int32_t drawPointCloud(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                        qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                        qel::ref_ptr<IQelArray<qel::ArrayColor3b>> colors, float size,
                                        qel::QelColor3f color) = 0;
    /// The same with float colours.
    virtual std::int32_t drawPointCloudF(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                         qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                         qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors, float size,
                                         qel::QelColor3f color) = 0;
    /// A triangle mesh. Every array except the vertices may be an empty pointer; without indices, every three
    /// vertices form a triangle. Indices must name existing vertices. Leaves the current colour, normal and
    /// texture coordinate changed if their arrays are given, and the texture bound if it is used.
    /// @param texture name of an OpenGL texture, used if it exists and texture coordinates are given; 0 for
    /// none.
    /// @param shadeModel GL_SMOOTH or GL_FLAT.
    /// @param frontMode, backMode polygon modes: GL_FILL, GL_LINE or GL_POINT. The front is where the corners
    /// run counter-clockwise, unless the host called `glFrontFace`.
    /// @return 0; -1 if there are no vertices, the number of indices is not a multiple of three, the number
    /// of normals, colours or texture coordinates differs from the number of vertices, or an array has a
    /// count but no memory.
    virtual std::int32_t drawMesh(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                  qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                  qel::ref_ptr<IQelArray<qel::ArrayNormal3b>> normals,
                                  qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors,
                                  qel::ref_ptr<IQelArray<qel::ArrayTexCoord2f>> texCoords,
                                  std::uint32_t texture, std::uint32_t shadeModel, std::uint32_t frontMode,
                                  std::uint32_t backMode, const qel::MeshStyle& style) = 0;
    /// The same with float normals; draws through indices only.
    virtual std::int32_t drawIndexedMesh(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                         qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                         qel::ref_ptr<IQelArray<qel::ArrayNormal4f>> normals,
                                         qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors,
                                         qel::ref_ptr<IQelArray<qel::ArrayTexCoord2f>> texCoords,
                                         std::uint32_t texture, std::uint32_t shadeModel,
                                         std::uint32_t frontMode, std::uint32_t backMode,
                                         const qel::MeshStyle& style) = 0;
    /// A line strip with a stipple pattern, which shows only if the caller enabled GL_LINE_STIPPLE. Leaves
    /// the pattern set.
    virtual std::int32_t drawStippledPolyline(qel::ref_ptr<IQelArray<qel::XPnt3d>> points, double width,
                                              qel::QelColor3f color, bool lighting, bool depthTest,
                                              std::uint16_t pattern) = 0;
    /// The same, closed.
    virtual std::int32_t drawStippledLoop(qel::ref_ptr<IQelArray<qel::XPnt3d>> points, double width,
                                          qel::QelColor3f color, bool lighting, bool depthTest,
                                          std::uint16_t pattern) = 0;
    /// The three edges of a triangle in OpenGL's current colour and width. Returns 0; -1 if the triangle or a
    /// corner is null.
    virtual std::int32_t drawTriangleOutline(const qel::TrianglePoints* triangle) = 0;
    /// @{
    /// A size kept for the host; 1.5 at first. The setter returns 1.
    virtual std::int32_t setSymbolSize(float size) = 0;
    virtual float getSymbolSize() = 0;
    /// @}
    /// @{
    /// A second colour kept for the host; opaque black at first. The setter returns 1.
    virtual std::int32_t setAuxColor(qel::QelColor4b color) = 0;
    virtual qel::QelColor4b getAuxColor() = 0;
    /// @}
    /// @{
    /// Line width of host geometries in pixels; 1 at first. The setter returns 0.
    virtual std::int32_t setLineWidth(float width) = 0;
    virtual float getLineWidth() = 0;
    /// @}
    /// Colour of host geometries, drawn without its alpha; the very light grey (250, 250, 254) at first.
    /// Returns 0.
    virtual std::int32_t setColor(qel::QelColor4b color) = 0;
    /// Writes the colour to `color`. Returns 0.
    virtual std::int32_t getColor(qel::QelColor4b& color) = 0;

  protected:
    ~IQelSymbol() override;
};
