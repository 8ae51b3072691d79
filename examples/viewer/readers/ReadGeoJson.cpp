#include "ReadFormats.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "JsonText.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

using nlohmann::json;

constexpr LineStyle kLineStyle{{240, 225, 190}, 1.0F};
constexpr LineStyle kPolygonStyle{{150, 205, 235}, 1.0F};
constexpr qel::QelColor3f kPointColor{1.0F, 0.55F, 0.25F};
constexpr float kPointSize = 5.0F;
constexpr std::size_t kFewestOfALine = 2;
constexpr std::size_t kFewestOfARing = 4;
constexpr std::size_t kFewestOfAPosition = 2;
/// Collections within collections: more is no map.
constexpr int kDeepestCollection = 16;

std::string numbered(const char* what, std::size_t index) {
    return std::string(what) + " " + std::to_string(index + 1);
}

class GeoJsonReader {
  public:
    explicit GeoJsonReader(const ProgressStretch& progressOfFile) : progress(progressOfFile) {}

    Scene run(const json& root) {
        place = "file";
        const json& object = requireObject(root);
        const std::string_view type = textOf(memberOf(object, "type"));
        if (type == "FeatureCollection") {
            readCollection(object);
        } else if (type == "Feature") {
            readFeature(object, 0);
        } else {
            readGeometry(object, 0);
        }
        if (!points.positions.empty()) {
            points.color = kPointColor;
            points.size = kPointSize;
            scene.clouds.push_back(std::move(points));
        }
        return std::move(scene);
    }

  private:
    [[noreturn]] void refuseHere(const std::string& reason) const { refuse(place, reason); }

    const json& requireObject(const json& value) const {
        if (!value.is_object()) {
            refuseHere("expected an object with a type");
        }
        return value;
    }

    const json& requireArray(const json& value, const char* what) const {
        if (!value.is_array()) {
            refuseHere(std::string("the ") + what + " are not an array");
        }
        return value;
    }

    void readCollection(const json& object) {
        const json& features = requireArray(memberOf(object, "features"), "features");
        for (std::size_t i = 0; i < features.size(); ++i) {
            readFeature(features[i], i);
            progress.report(static_cast<double>(i) / static_cast<double>(features.size()));
        }
    }

    void readFeature(const json& feature, std::size_t index) {
        place = numbered("feature", index);
        const json& geometry = memberOf(requireObject(feature), "geometry");
        if (!geometry.is_null()) {
            const std::size_t pointsBefore = points.positions.size();
            readGeometry(requireObject(geometry), 0);
            if (points.positions.size() == pointsBefore + 1) {
                addName(feature, points.positions.back());
            }
        }
    }

    /// Features of one point are often places with a name.
    void addName(const json& feature, const qel::XPnt3d& at) {
        const json& properties = memberOf(feature, "properties");
        for (const char* const key : {"name", "NAME", "Name"}) {
            const json& name = memberOf(properties, key);
            if (!textOf(name).empty()) {
                scene.labels.push_back({at, name.get<std::string>()});
                return;
            }
        }
    }

    void readGeometry(const json& geometry, int depth) {
        const std::string_view type = textOf(memberOf(geometry, "type"));
        if (type == "GeometryCollection") {
            readGeometries(geometry, depth);
            return;
        }
        const json& coordinates = memberOf(geometry, "coordinates");
        const std::string_view collected = type.starts_with("Multi") ? type.substr(5) : "";
        const std::string_view single = collected.empty() ? type : collected;
        if (single != "Point" && single != "LineString" && single != "Polygon") {
            refuseHere(type.empty() ? "there is no type" : "unknown type " + inQuotes(type));
        }
        requireArray(coordinates, "coordinates");
        if (collected.empty()) {
            readSingle(single, coordinates);
            return;
        }
        readEach(coordinates, "part",
                 [&](const json& part) { readSingle(single, requireArray(part, "coordinates")); });
    }

    /// Reads the members of an array; what is wrong is named after the number of its member.
    template <class Read>
    void readEach(const json& members, const char* what, const Read& read) {
        const std::string outside = place;
        for (std::size_t i = 0; i < members.size(); ++i) {
            place = outside + ", " + numbered(what, i);
            read(members[i]);
        }
        place = outside;
    }

    void readGeometries(const json& collection, int depth) {
        if (depth >= kDeepestCollection) {
            refuseHere("collections are nested more than " + std::to_string(kDeepestCollection) + " deep");
        }
        const json& members = requireArray(memberOf(collection, "geometries"), "geometries");
        readEach(members, "geometry",
                 [&](const json& member) { readGeometry(requireObject(member), depth + 1); });
    }

    void readSingle(std::string_view type, const json& coordinates) {
        // A geometry without coordinates is an empty one.
        if (coordinates.empty()) {
            return;
        }
        if (type == "Point") {
            points.positions.push_back(positionOf(coordinates));
        } else if (type == "LineString") {
            scene.polylines.push_back({{positionsOf(coordinates, kFewestOfALine)}, kLineStyle});
        } else {
            readPolygon(coordinates);
        }
    }

    void readPolygon(const json& coordinates) {
        Polygon polygon;
        polygon.style = kPolygonStyle;
        readEach(coordinates, "ring", [&](const json& positions) {
            Points ring = positionsOf(requireArray(positions, "positions"), kFewestOfARing);
            if (ring.front().x != ring.back().x || ring.front().y != ring.back().y) {
                refuseHere("the ring is not closed: its last position is not its first");
            }
            polygon.rings.push_back(std::move(ring));
        });
        scene.polygons.push_back(std::move(polygon));
    }

    Points positionsOf(const json& array, std::size_t fewest) const {
        if (array.size() < fewest) {
            refuseHere(std::to_string(array.size()) + " positions instead of at least " +
                       std::to_string(fewest));
        }
        Points positions;
        positions.reserve(array.size());
        std::transform(array.begin(), array.end(), std::back_inserter(positions),
                       [this](const json& position) { return positionOf(position); });
        return positions;
    }

    qel::XPnt3d positionOf(const json& position) const {
        if (!position.is_array() || position.size() < kFewestOfAPosition) {
            refuseHere("a position is not an array of two or more numbers");
        }
        const double z = position.size() > kFewestOfAPosition ? coordinateOf(position[2]) : 0.0;
        return {coordinateOf(position[0]), coordinateOf(position[1]), z};
    }

    double coordinateOf(const json& value) const {
        if (!value.is_number()) {
            refuseHere("a coordinate is not a number");
        }
        const double coordinate = value.get<double>();
        const std::string fault = faultOfCoordinate(coordinate);
        if (!fault.empty()) {
            refuseHere(fault);
        }
        return coordinate;
    }

    ProgressStretch progress;
    Scene scene;
    PointCloud points;
    std::string place;
};

}  // namespace

Scene readGeoJson(std::string_view text, const ProgressStretch& progress) {
    requireText(text);
    constexpr double kParseShare = 0.6;
    const json root = parseJson(text);
    progress.report(kParseShare);
    return GeoJsonReader(progress.part(kParseShare, 1.0)).run(root);
}

}  // namespace qelview
