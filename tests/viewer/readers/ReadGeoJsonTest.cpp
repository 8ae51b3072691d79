#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ReadGeoJson.h"
#include "kit/LongRun.h"
#include "viewer/ViewerData.h"

/// GeoJSON, good and bad.

namespace {

using qel::test::refusalOf;

qelview::Scene readGeoJsonOf(const std::string& text) {
    qelview::Progress progress;
    return qelview::readGeoJson(text, qelview::ProgressStretch(progress, 0.0, 1.0));
}

std::string feature(const std::string& geometry) {
    return R"({"type":"Feature","properties":{},"geometry":)" + geometry + "}";
}

std::string collection(const std::string& features) {
    return R"({"type":"FeatureCollection","features":[)" + features + "]}";
}

constexpr const char* kSquareWithHole =
    R"({"type":"Polygon","coordinates":[[[0,0],[4,0],[4,4],[0,4],[0,0]],[[1,1],[2,1],[2,2],[1,2],[1,1]]]})";

TEST(ReadGeoJson, KeepsPolygonsWithTheirHoles) {
    const qelview::Scene scene = readGeoJsonOf(collection(feature(kSquareWithHole)));
    ASSERT_EQ(scene.polygons.size(), 1U);
    ASSERT_EQ(scene.polygons[0].rings.size(), 2U);
    EXPECT_EQ(scene.polygons[0].rings[0].size(), 5U);
    EXPECT_EQ(scene.polygons[0].rings[1][2].x, 2.0);
    EXPECT_EQ(scene.polygons[0].rings[1][2].y, 2.0);
}

TEST(ReadGeoJson, ReadsAGeometryAFeatureAndACollectionAlike) {
    for (const std::string& text :
         {std::string(kSquareWithHole), feature(kSquareWithHole), collection(feature(kSquareWithHole)),
          R"({"type":"GeometryCollection","geometries":[)" + std::string(kSquareWithHole) + "]}",
          collection(
              feature(R"({"type":"MultiPolygon","coordinates":[[[[0,0],[4,0],[4,4],[0,4],[0,0]]]]})"))}) {
        EXPECT_EQ(readGeoJsonOf(text).polygons.size(), 1U) << text;
    }
}

TEST(ReadGeoJson, MakesOneCloudOfAllPoints) {
    const qelview::Scene scene =
        readGeoJsonOf(collection(feature(R"({"type":"Point","coordinates":[1.5,-2.5]})") + "," +
                                 feature(R"({"type":"MultiPoint","coordinates":[[3,4,5],[6,7,8,9]]})")));
    ASSERT_EQ(scene.clouds.size(), 1U);
    const qelview::Points& points = scene.clouds[0].positions;
    ASSERT_EQ(points.size(), 3U);
    EXPECT_EQ(points[0].x, 1.5);
    EXPECT_EQ(points[0].y, -2.5);
    EXPECT_EQ(points[0].z, 0.0);
    EXPECT_EQ(points[1].z, 5.0);
    EXPECT_EQ(points[2].z, 8.0);
}

TEST(ReadGeoJson, NamesPlaces) {
    const qelview::Scene scene = readGeoJsonOf(collection(
        R"({"type":"Feature","properties":{"name":"Sund"},"geometry":{"type":"Point","coordinates":[1,2]}},)"
        R"({"type":"Feature","properties":{"name":7},"geometry":{"type":"Point","coordinates":[3,4]}},)"
        R"({"type":"Feature","properties":null,"geometry":{"type":"Point","coordinates":[5,6]}})"));
    ASSERT_EQ(scene.labels.size(), 1U);
    EXPECT_EQ(scene.labels[0].text, "Sund");
    EXPECT_EQ(scene.labels[0].at.y, 2.0);
}

TEST(ReadGeoJson, KeepsEachLineByItself) {
    const qelview::Scene scene = readGeoJsonOf(collection(
        feature(R"({"type":"LineString","coordinates":[[0,0],[1,1]]})") + "," +
        feature(R"({"type":"MultiLineString","coordinates":[[[0,0],[1,1]],[[2,2],[3,3],[4,5]]]})")));
    ASSERT_EQ(scene.polylines.size(), 3U);
    EXPECT_EQ(scene.polylines[2].parts.at(0).size(), 3U);
}

TEST(ReadGeoJson, LeavesOutWhatHasNoGeometry) {
    const qelview::Scene scene =
        readGeoJsonOf(collection(R"({"type":"Feature","properties":null,"geometry":null},)" +
                                 feature(R"({"type":"Point","coordinates":[1,2]})") + "," +
                                 feature(R"({"type":"Polygon","coordinates":[]})") + "," +
                                 feature(R"({"type":"MultiPoint","coordinates":[]})")));
    EXPECT_EQ(scene.clouds.at(0).positions.size(), 1U);
    EXPECT_TRUE(scene.polygons.empty());
    EXPECT_TRUE(readGeoJsonOf(collection("")).isEmpty());
}

TEST(ReadGeoJson, NamesPlacesInAnyOfThreeWaysAndOnlySinglePoints) {
    const auto named = [](const char* properties, const char* geometry) {
        const qelview::Scene scene =
            readGeoJsonOf(R"({"type":"Feature","properties":)" + std::string(properties) + R"(,"geometry":)" +
                          geometry + "}");
        return scene.labels.empty() ? "" : scene.labels[0].text;
    };
    constexpr const char* kPoint = R"({"type":"Point","coordinates":[1,2]})";
    EXPECT_EQ(named(R"({"NAME":"A"})", kPoint), "A");
    EXPECT_EQ(named(R"({"Name":"B"})", kPoint), "B");
    EXPECT_EQ(named(R"({"Name":"B","NAME":"A","name":"C"})", kPoint), "C");
    EXPECT_EQ(named(R"({"name":"","NAME":"A"})", kPoint), "A");
    EXPECT_EQ(named(R"({"title":"A"})", kPoint), "");
    EXPECT_EQ(named(R"(["name"])", kPoint), "");
    EXPECT_EQ(named(R"({"name":"A"})", R"({"type":"MultiPoint","coordinates":[[1,2]]})"), "A");
    EXPECT_EQ(named(R"({"name":"A"})", R"({"type":"MultiPoint","coordinates":[[1,2],[3,4]]})"), "");
    EXPECT_EQ(named(R"({"name":"A"})", kSquareWithHole), "");
}

TEST(ReadGeoJson, GivesEachKindItsColourAndWidth) {
    const qelview::Scene scene = readGeoJsonOf(
        collection(feature(R"({"type":"Point","coordinates":[1,2]})") + "," + feature(kSquareWithHole) + "," +
                   feature(R"({"type":"LineString","coordinates":[[0,0],[1,1]]})")));
    const auto rgb = [](const qel::QelColor4b& color) { return std::vector<int>{color.r, color.g, color.b}; };
    EXPECT_EQ(rgb(scene.polylines.at(0).style.color), (std::vector<int>{240, 225, 190}));
    EXPECT_EQ(scene.polylines[0].style.width, 1.0F);
    EXPECT_EQ(rgb(scene.polygons.at(0).style.color), (std::vector<int>{150, 205, 235}));
    EXPECT_EQ(scene.polygons[0].style.width, 1.0F);
    EXPECT_EQ(scene.clouds.at(0).color.r, 1.0F);
    EXPECT_EQ(scene.clouds[0].color.g, 0.55F);
    EXPECT_EQ(scene.clouds[0].color.b, 0.25F);
    EXPECT_EQ(scene.clouds[0].size, 5.0F);
    EXPECT_TRUE(readGeoJsonOf(kSquareWithHole).clouds.empty());
}

TEST(ReadGeoJson, ReadsCollectionsSixteenDeep) {
    std::string geometry = kSquareWithHole;
    for (int depth = 0; depth < 16; ++depth) {
        geometry = R"({"type":"GeometryCollection","geometries":[)" + geometry + "]}";
    }
    EXPECT_EQ(readGeoJsonOf(geometry).polygons.size(), 1U);
    EXPECT_NE(refusalOf([&] {
                  return readGeoJsonOf(R"({"type":"GeometryCollection","geometries":[)" + geometry + "]}");
              }),
              "");
}

TEST(ReadGeoJson, ReportsItsProgressFeatureByFeature) {
    qelview::Progress progress;
    const std::string point = feature(R"({"type":"Point","coordinates":[1,2]})");
    static_cast<void>(qelview::readGeoJson(collection(point + "," + point + "," + point + "," + point),
                                           qelview::ProgressStretch(progress, 0.0, 1.0)));
    // Reading the text is 0.6 of the work; three of four features are behind the last report.
    EXPECT_NEAR(progress.done(), 0.6 + 0.4 * 0.75, 1e-12);
    static_cast<void>(qelview::readGeoJson(point, qelview::ProgressStretch(progress, 0.0, 1.0)));
    EXPECT_NEAR(progress.done(), 0.6, 1e-12);
}

struct Bad {
    const char* text;
    const char* reason;
};

TEST(ReadGeoJson, SaysInOneLineWhereAFileIsWrongAndWhy) {
    std::string deep;
    for (int depth = 0; depth < 40; ++depth) {
        deep = R"({"type":"GeometryCollection","geometries":[)" + deep + "]}";
    }
    const Bad cases[] = {
        {"{\n\"type\":", "line 2: the file ends in the middle of the JSON text"},
        {"{\n\n nonsense }", "line 3: no JSON at 'onsense }'"},
        {"[1,2]", "file: expected an object with a type"},
        {"{}", "file: there is no type"},
        {R"({"type":7})", "file: there is no type"},
        {R"({"type":"Blob","coordinates":[]})", "file: unknown type 'Blob'"},
        {R"({"type":"MultiBlob","coordinates":[]})", "file: unknown type 'MultiBlob'"},
        {R"({"type":"FeatureCollection"})", "file: the features are not an array"},
        {R"({"type":"FeatureCollection","features":[7]})", "feature 1: expected an object with a type"},
        {R"({"type":"Feature","geometry":"x"})", "feature 1: expected an object with a type"},
        {R"({"type":"Point"})", "file: the coordinates are not an array"},
        {R"({"type":"Point","coordinates":[1]})", "file: a position is not an array of two or more numbers"},
        {R"({"type":"Point","coordinates":[1,"2"]})", "file: a coordinate is not a number"},
        {R"({"type":"Point","coordinates":[1,null]})", "file: a coordinate is not a number"},
        {R"({"type":"Point","coordinates":[1,1e99]})", "file: is beyond 1e15"},
        {R"({"type":"Point","coordinates":[-1e99,1]})", "file: is beyond 1e15"},
        {R"({"type":"Point","coordinates":[1,2,"3"]})", "file: a coordinate is not a number"},
        {R"({"type":"Point","coordinates":{"x":1,"y":2}})", "file: the coordinates are not an array"},
        {R"({"type":"MultiPoint","coordinates":[7]})", "file, part 1: the coordinates are not an array"},
        {R"({"type":"GeometryCollection"})", "file: the geometries are not an array"},
        {R"({"type":"GeometryCollection","geometries":[7]})",
         "file, geometry 1: expected an object with a type"},
        // What was read before leaves no trace in the place.
        {R"({"type":"GeometryCollection","geometries":[{"type":"MultiPoint","coordinates":[[1,2]]},)"
         R"({"type":"Polygon","coordinates":[[[0,0],[1,0],[1,1],[0,0]]]},{"type":"Fog"}]})",
         "file, geometry 3: unknown type 'Fog'"},
        {R"({"type":"MultiPolygon","coordinates":[[[[0,0],[1,0],[1,1],[0,0]]],[[[0,0]]]]})",
         "file, part 2, ring 1: 1 positions instead of at least 4"},
        {R"({"type":"FeatureCollection","features":[{"type":"Feature","geometry":)"
         R"({"type":"GeometryCollection","geometries":[]}},{"type":"Feature","geometry":{}}]})",
         "feature 2: there is no type"},
        {R"({"type":"Polygon","coordinates":[[[0,0],[1,0],[1,1],[5,0]]]})",
         "file, ring 1: the ring is not closed"},
        {R"({"type":"Polygon","coordinates":[[[0,0],[1,0],[1,1],[0,5]]]})",
         "file, ring 1: the ring is not closed"},
        {R"({"type":"Point","coordinates":[1,1e999]})", "file: a number is too large"},
        {R"({"type":"LineString","coordinates":[[1,2]]})", "file: 1 positions instead of at least 2"},
        {R"({"type":"MultiLineString","coordinates":[[[0,0],[1,1]],[[2,2]]]})",
         "file, part 2: 1 positions instead of at least 2"},
        {R"({"type":"Polygon","coordinates":[[[0,0],[1,0],[0,0]]]})",
         "file, ring 1: 3 positions instead of at least 4"},
        {R"({"type":"Polygon","coordinates":[[[0,0],[1,0],[1,1],[0,1]]]})",
         "file, ring 1: the ring is not closed: its last position is not its first"},
        {R"({"type":"Polygon","coordinates":[7]})", "file, ring 1: the positions are not an array"},
        {R"({"type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[]},{"type":"Fog"}]})",
         "file, geometry 2: unknown type 'Fog'"},
        {deep.c_str(), "collections are nested more than 16 deep"},
        {"", "line 1: the file ends in the middle of the JSON text"},
    };
    for (const Bad& bad : cases) {
        const std::string refusal = refusalOf([&] { return readGeoJsonOf(bad.text); });
        EXPECT_NE(refusal.find(bad.reason), std::string::npos) << bad.text << "\n" << refusal;
        EXPECT_EQ(refusal.find('\n'), std::string::npos) << refusal;
    }
}

TEST(ReadGeoJson, TakesNoHarmFromDeepNesting) {
    const std::size_t depth = qel::test::shortOrLong(std::size_t{50000}, std::size_t{200000});
    const std::string text = R"({"type":"Point","coordinates":)" + std::string(depth, '[');
    EXPECT_NE(refusalOf([&] { return readGeoJsonOf(text); }), "");
    const std::string closed =
        R"({"type":"Point","coordinates":)" + std::string(depth / 2, '[') + std::string(depth / 2, ']') + "}";
    EXPECT_EQ(refusalOf([&] { return readGeoJsonOf(closed); }),
              "file: a position is not an array of two or more numbers");
}

TEST(ReadGeoJson, ReadsTheMapsWhole) {
    QEL_SKIP_WITHOUT_VIEWER_DATA();
    const std::filesystem::path maps = qel::test::viewerData() / "maps";
    const auto positionsOf = [](const qelview::Scene& scene) { return scene.lineVertexCount(); };
    const qelview::Scene countries = qel::test::readWhole(maps / "ne_110m_admin_0_countries.geojson");
    EXPECT_EQ(positionsOf(countries), 10654U);
    std::size_t rings = 0;
    for (const qelview::Polygon& polygon : countries.polygons) {
        rings += polygon.rings.size();
    }
    EXPECT_EQ(rings, 289U);
    const qelview::Scene coast = qel::test::readWhole(maps / "coastline_3857.geojson");
    EXPECT_EQ(coast.polylines.size(), 134U);
    EXPECT_EQ(positionsOf(coast), 5128U);
    const qelview::Scene places = qel::test::readWhole(maps / "ne_110m_populated_places_simple.geojson");
    EXPECT_EQ(places.clouds.at(0).positions.size(), 243U);
    EXPECT_EQ(places.labels.size(), 243U);
}

}  // namespace
