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
/// Made by `newQelSymbol`, which takes no reference: keep it in a `qel::ref_ptr`. A symbol draws at once into
/// the OpenGL context that is current on the calling thread and keeps nothing of what it drew. Coordinates
/// are model units, widths and sizes pixels. Markers restore every OpenGL state they change, but for the line
/// stipple where they say so. What is drawn from arrays (host curves, points, meshes) leaves OpenGL's client
/// arrays switched off and pointing at the last memory they read.
///
/// The drawing operations return 0 unless they say otherwise. `lighting` and `depthTest` switch GL_LIGHTING
/// and GL_DEPTH_TEST for the call. A null pointer draws nothing. Numbers are not checked: OpenGL gets them as
/// they are, finite or not. Setters disagree in their result; none of it is a failure.
///
/// OpenGL reads arrays and the points of curves from the host's memory. While a buffer object is bound it
/// takes their addresses for offsets into that: unbind GL_ARRAY_BUFFER and GL_ELEMENT_ARRAY_BUFFER.
class QEL_DISPLAY_API IQelSymbol : public qel::QelReferenced {
  public:
    /// @{
    /// A copy is an object of its own: it starts without references.
    IQelSymbol();
    IQelSymbol(const IQelSymbol& other);
    IQelSymbol& operator=(const IQelSymbol& other);
    /// @}

    /// Returns 1.
    virtual std::int32_t setName(QString name) = 0;
    /// The name; empty at first.
    virtual QString getName() = 0;
    virtual std::int32_t reservedSlot3() = 0;
    virtual std::int32_t reservedSlot4() = 0;
    /// Draws a host geometry by its kind with the symbol's colour and line width, which stay set in OpenGL.
    /// Points are always green and two pixels wide; line segments and balls take OpenGL's current colour and
    /// width. Kinds the symbol does not know draw nothing. A ball leaves OpenGL's current normal changed.
    virtual std::int32_t drawGeometry(IQelGeometry* geometry) = 0;
    /// Draws a polyline, polygon, ring, curve or line segment; other kinds draw nothing. The colour given
    /// holds for rings, curves and segments, the width for segments; polylines and polygons keep the symbol's
    /// own.
    virtual std::int32_t drawGeometryWith(IQelGeometry* geometry, double width, qel::QelColor3b color) = 0;
    virtual std::int32_t reservedSlot7() = 0;
    /// A line with a 16-bit stipple pattern, one pixel a bit. Leaves the pattern set and GL_LINE_STIPPLE off.
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
    /// @param points `count` pointers to three floats each; null ones are skipped.
    virtual std::int32_t drawPointsF(const float* const* points, std::int32_t count, double size,
                                     qel::QelColor3f color, bool lighting, bool depthTest) = 0;
    /// Points of one size, in pixels. A null pointer or a count that is not above 0 draws none.
    virtual std::int32_t drawPoints(const qel::XPnt3d* points, std::int32_t count, double size,
                                    qel::QelColor3f color, bool lighting, bool depthTest) = 0;
    /// One point; `size` in pixels.
    virtual std::int32_t drawPoint(double x, double y, double z, float size, qel::QelColor3f color,
                                   bool lighting, bool depthTest) = 0;
    /// The same with single precision.
    virtual std::int32_t drawPointF(float x, float y, float z, float size, qel::QelColor3f color,
                                    bool lighting, bool depthTest) = 0;
    /// Points from memory of the host's, unlit and not depth-tested.
    /// @param type OpenGL type of a coordinate: whatever the current OpenGL takes (GL_FLOAT, GL_DOUBLE,
    /// GL_HALF_FLOAT, ...); three to a vertex.
    /// @param stride bytes from one vertex to the next; 0 stands for tightly packed vertices.
    /// @param count of the vertices to draw where there are no indices; not above 0 draws nothing.
    /// @param indices which vertices to draw, all of which must exist; empty pointer for all.
    /// @param colors a colour a vertex, as many as vertices are named; their number is not checked. Empty
    /// pointer for `color`.
    /// @return 0, also for null vertices and for a count below 0; -1 for an index array without indices, an
    /// array without memory, and a type or stride that OpenGL does not take.
    virtual std::int32_t drawVertexArrayPoints(std::uint32_t type, std::int32_t stride, const void* vertices,
                                               std::int32_t count,
                                               qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                               qel::ref_ptr<IQelArray<qel::ArrayColor3b>> colors, float size,
                                               qel::QelColor3f color) = 0;
    /// A point cloud, unlit and not depth-tested. Indices and colours may be empty pointers.
    /// @return 0; -1 if there is no vertex, an index array has no index, the colours are not as many as the
    /// vertices, or an array counts elements and has no memory for them.
    virtual std::int32_t drawPointCloud(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                        qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                        qel::ref_ptr<IQelArray<qel::ArrayColor3b>> colors, float size,
                                        qel::QelColor3f color) = 0;
    /// The same with colours of floats.
    virtual std::int32_t drawPointCloudF(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                         qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                         qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors, float size,
                                         qel::QelColor3f color) = 0;
    /// A triangle mesh. Every array but the vertices may be an empty pointer; without indices each three
    /// vertices are a triangle. Indices must name existing vertices. Leaves OpenGL's current colour, normal
    /// and texture coordinate changed if their arrays are given, and the texture bound if it is used.
    /// @param texture name of an OpenGL texture, used if it exists and texture coordinates are given.
    /// @param shadeModel GL_SMOOTH or GL_FLAT.
    /// @param frontMode, backMode polygon modes: GL_FILL, GL_LINE or GL_POINT.
    /// @return 0; -1 if there is no vertex, the indices are not a multiple of three, normals, colours or
    /// texture coordinates are not as many as the vertices, or an array counts elements and has no memory for
    /// them.
    virtual std::int32_t drawMesh(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                  qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                  qel::ref_ptr<IQelArray<qel::ArrayNormal3b>> normals,
                                  qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors,
                                  qel::ref_ptr<IQelArray<qel::ArrayTexCoord2f>> texCoords,
                                  std::uint32_t texture, std::uint32_t shadeModel, std::uint32_t frontMode,
                                  std::uint32_t backMode, const qel::MeshStyle& style) = 0;
    /// The same with normals of floats, drawn through indices only.
    virtual std::int32_t drawIndexedMesh(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                         qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                         qel::ref_ptr<IQelArray<qel::ArrayNormal4f>> normals,
                                         qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors,
                                         qel::ref_ptr<IQelArray<qel::ArrayTexCoord2f>> texCoords,
                                         std::uint32_t texture, std::uint32_t shadeModel,
                                         std::uint32_t frontMode, std::uint32_t backMode,
                                         const qel::MeshStyle& style) = 0;
    /// A line strip with a stipple pattern, which stays set and shows only if the caller enabled
    /// GL_LINE_STIPPLE.
    virtual std::int32_t drawStippledPolyline(qel::ref_ptr<IQelArray<qel::XPnt3d>> points, double width,
                                              qel::QelColor3f color, bool lighting, bool depthTest,
                                              std::uint16_t pattern) = 0;
    /// The same, closed.
    virtual std::int32_t drawStippledLoop(qel::ref_ptr<IQelArray<qel::XPnt3d>> points, double width,
                                          qel::QelColor3f color, bool lighting, bool depthTest,
                                          std::uint16_t pattern) = 0;
    /// The three edges of a triangle with OpenGL's current colour and width. Returns 0; -1 for a null record
    /// or corner.
    virtual std::int32_t drawTriangleOutline(const qel::TrianglePoints* triangle) = 0;
    /// @{
    /// A size kept for the host; 1.5 at first. Returns 1.
    virtual std::int32_t setSymbolSize(float size) = 0;
    virtual float getSymbolSize() = 0;
    /// @}
    /// @{
    /// A second colour kept for the host. Returns 1.
    virtual std::int32_t setAuxColor(qel::QelColor4b color) = 0;
    virtual qel::QelColor4b getAuxColor() = 0;
    /// @}
    /// @{
    /// Line width of host geometries in pixels; 1 at first. Returns 0.
    virtual std::int32_t setLineWidth(float width) = 0;
    virtual float getLineWidth() = 0;
    /// @}
    /// Colour of host geometries, without alpha; the very light grey (250, 250, 254) at first. Returns 0.
    virtual std::int32_t setColor(qel::QelColor4b color) = 0;
    /// Writes the colour to `color`; returns 0.
    virtual std::int32_t getColor(qel::QelColor4b& color) = 0;

  protected:
    ~IQelSymbol() override;
};
