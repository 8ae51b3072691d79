#pragma once

#include <QString>
#include <cstdint>

#include "IQelGeometry.h"
#include "IQelSymbol.h"

class IQelCurve;
class IQelPolygon;
class IQelPolyline;

/// The symbol that `newQelSymbol` makes.
///
/// `IQelSymbol` describes its operations. Drawing allocates no memory and changes no attribute.
class CQelSimpSymbol : public IQelSymbol {
  public:
    CQelSimpSymbol();

    std::int32_t setName(QString newName) override;
    QString getName() override;
    std::int32_t reservedSlot3() override;
    std::int32_t reservedSlot4() override;
    std::int32_t drawGeometry(IQelGeometry* geometry) override;
    std::int32_t drawGeometryWith(IQelGeometry* geometry, double width, qel::QelColor3b given) override;
    std::int32_t reservedSlot7() override;
    std::int32_t drawStippledLine(const qel::XPnt3d& from, const qel::XPnt3d& to, double width,
                                  qel::QelColor3f given, bool lighting, bool depthTest,
                                  std::uint16_t pattern) override;
    std::int32_t drawCross(const qel::XPnt3d& center, double halfLength, float width, qel::QelColor3f given,
                           bool lighting, bool depthTest) override;
    std::int32_t drawDiagonalCross(const qel::XPnt3d& center, double halfLength, float width,
                                   qel::QelColor3f given, bool lighting, bool depthTest) override;
    std::int32_t drawRect2d(const qel::Enve2d& rect, double width, qel::QelColor3f given, bool lighting,
                            bool depthTest) override;
    std::int32_t drawSquare(const qel::XPnt3d& center, double halfSide, double width, qel::QelColor3f given,
                            bool lighting, bool depthTest) override;
    std::int32_t drawEnvelopeOutline(const qel::Enve3d& box, double width, qel::QelColor3f given,
                                     bool lighting, bool depthTest) override;
    std::int32_t drawBox(const qel::Enve3d& box, double width, qel::QelColor3f given, bool lighting,
                         bool depthTest) override;
    std::int32_t drawFilledRect2d(const qel::Enve2d& rect, float width, qel::QelColor3f outline,
                                  qel::QelColor3f fill, bool lighting, bool depthTest) override;
    std::int32_t drawSegmentFrame(const qel::XPnt3d& from, const qel::XPnt3d& to, double unused, float width,
                                  qel::QelColor3f given, bool lighting, bool depthTest) override;
    std::int32_t drawLine(const qel::XPnt3d& from, const qel::XPnt3d& to, double width, qel::QelColor3f given,
                          bool lighting, bool depthTest) override;
    std::int32_t drawCircle(const qel::XPnt3d& center, double radius, float width, qel::QelColor3f given,
                            bool lighting, bool depthTest) override;
    std::int32_t drawPointsF(const float* const* points, std::int32_t count, double size,
                             qel::QelColor3f given, bool lighting, bool depthTest) override;
    std::int32_t drawPoints(const qel::XPnt3d* points, std::int32_t count, double size, qel::QelColor3f given,
                            bool lighting, bool depthTest) override;
    std::int32_t drawPoint(double x, double y, double z, float size, qel::QelColor3f given, bool lighting,
                           bool depthTest) override;
    std::int32_t drawPointF(float x, float y, float z, float size, qel::QelColor3f given, bool lighting,
                            bool depthTest) override;
    std::int32_t drawVertexArrayPoints(std::uint32_t type, std::int32_t stride, const void* vertices,
                                       std::int32_t count, qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                       qel::ref_ptr<IQelArray<qel::ArrayColor3b>> colors, float size,
                                       qel::QelColor3f given) override;
    std::int32_t drawPointCloud(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                qel::ref_ptr<IQelArray<qel::ArrayColor3b>> colors, float size,
                                qel::QelColor3f given) override;
    std::int32_t drawPointCloudF(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                 qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                 qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors, float size,
                                 qel::QelColor3f given) override;
    std::int32_t drawMesh(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                          qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                          qel::ref_ptr<IQelArray<qel::ArrayNormal3b>> normals,
                          qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors,
                          qel::ref_ptr<IQelArray<qel::ArrayTexCoord2f>> texCoords, std::uint32_t texture,
                          std::uint32_t shadeModel, std::uint32_t frontMode, std::uint32_t backMode,
                          const qel::MeshStyle& style) override;
    std::int32_t drawIndexedMesh(qel::ref_ptr<IQelArray<qel::ArrayVertex>> vertices,
                                 qel::ref_ptr<IQelArray<qel::ArrayIndex>> indices,
                                 qel::ref_ptr<IQelArray<qel::ArrayNormal4f>> normals,
                                 qel::ref_ptr<IQelArray<qel::ArrayColor4f>> colors,
                                 qel::ref_ptr<IQelArray<qel::ArrayTexCoord2f>> texCoords,
                                 std::uint32_t texture, std::uint32_t shadeModel, std::uint32_t frontMode,
                                 std::uint32_t backMode, const qel::MeshStyle& style) override;
    std::int32_t drawStippledPolyline(qel::ref_ptr<IQelArray<qel::XPnt3d>> points, double width,
                                      qel::QelColor3f given, bool lighting, bool depthTest,
                                      std::uint16_t pattern) override;
    std::int32_t drawStippledLoop(qel::ref_ptr<IQelArray<qel::XPnt3d>> points, double width,
                                  qel::QelColor3f given, bool lighting, bool depthTest,
                                  std::uint16_t pattern) override;
    std::int32_t drawTriangleOutline(const qel::TrianglePoints* triangle) override;
    std::int32_t setSymbolSize(float size) override;
    float getSymbolSize() override;
    std::int32_t setAuxColor(qel::QelColor4b given) override;
    qel::QelColor4b getAuxColor() override;
    std::int32_t setLineWidth(float width) override;
    float getLineWidth() override;
    std::int32_t setColor(qel::QelColor4b given) override;
    std::int32_t getColor(qel::QelColor4b& result) override;

    virtual std::int32_t reservedSlot39();
    virtual std::int32_t reservedSlot40();
    /// Draws a white line from a point to point + offset, over whatever is there, and releases the reference
    /// to `object`. Returns 0.
    virtual std::int32_t drawOffsetMark(qel::ref_ptr<qel::QelReferenced> object, const qel::XPnt3d& point,
                                        double unused, const qel::XPnt3d& offset);

  protected:
    ~CQelSimpSymbol() override;

  private:
    void drawPartedOrSegment(IQelGeometry* geometry, qel::GeometryKind kind) const;
    void drawCurvePoints(std::uint32_t primitive, IQelCurve& curve, qel::QelColor3b given) const;
    void drawLineStripArray(IQelCurve& curve, qel::QelColor3b given) const;
    void drawRingLoop(IQelCurve& ring) const;
    void drawPolylineParts(IQelPolyline& polyline) const;
    void drawPolygonRings(IQelPolygon& polygon) const;

    float symbolSize = 1.5F;
    double lineWidth = 1.0;
    qel::QelColor4b color;
    qel::QelColor4b auxColor;
    QString name;
};
