#include "Models.h"

#include <cmath>
#include <numbers>

namespace qel::bench {

namespace {

constexpr double kRadius = 0.85;
constexpr double kBump = 0.1;
constexpr double kBumpsAround = 12.0;
constexpr double kTurnsOfTheSpiral = 60.0;

struct OnSphere {
    double x;
    double y;
    double z;
};

OnSphere directionAt(double around, double upward) {
    return {std::cos(around) * std::sin(upward), std::sin(around) * std::sin(upward), std::cos(upward)};
}

float narrow(double value) {
    return static_cast<float>(value);
}

/// Signed bytes, of which 127 is one.
std::int8_t asByte(double share) {
    return static_cast<std::int8_t>(share * 127.0);
}

/// From a coordinate of the box to full and no intensity.
double intensity(double coordinate) {
    return 0.5 + 0.5 * coordinate;
}

void addVertex(MeshData& mesh, double around, double upward) {
    const OnSphere normal = directionAt(around, upward);
    const double radius = kRadius + kBump * std::sin(kBumpsAround * around) * std::sin(kBumpsAround * upward);
    const OnSphere place{normal.x * radius, normal.y * radius, normal.z * radius};
    mesh.vertices.push_back({narrow(place.x), narrow(place.y), narrow(place.z), {}});
    mesh.byteNormals.push_back({asByte(normal.x), asByte(normal.y), asByte(normal.z)});
    mesh.floatNormals.push_back({narrow(normal.x), narrow(normal.y), narrow(normal.z), 0.0F});
    mesh.colors.push_back(
        {narrow(intensity(normal.x)), narrow(intensity(normal.y)), narrow(intensity(normal.z)), 1.0F});
}

}  // namespace

MeshData bumpySphere(std::int32_t triangles) {
    // Twice as many fields around as upward, two triangles each.
    const auto upward = static_cast<std::uint32_t>(std::ceil(std::sqrt(triangles / 4.0)));
    const std::uint32_t around = 2 * upward;
    MeshData mesh;
    for (std::uint32_t row = 0; row <= upward; ++row) {
        for (std::uint32_t column = 0; column <= around; ++column) {
            addVertex(mesh, 2.0 * std::numbers::pi * column / around, std::numbers::pi * row / upward);
        }
    }
    const std::uint32_t toNextRow = around + 1;
    for (std::uint32_t row = 0; row < upward; ++row) {
        for (std::uint32_t column = 0; column < around; ++column) {
            const std::uint32_t corner = row * toNextRow + column;
            for (const std::uint32_t index : {corner, corner + toNextRow, corner + 1, corner + 1,
                                              corner + toNextRow, corner + toNextRow + 1}) {
                mesh.indices.push_back(index);
            }
        }
    }
    return mesh;
}

MeshData unshared(const MeshData& mesh) {
    MeshData result;
    for (const ArrayIndex index : mesh.indices) {
        result.vertices.push_back(mesh.vertices[index]);
        result.byteNormals.push_back(mesh.byteNormals[index]);
        result.floatNormals.push_back(mesh.floatNormals[index]);
        result.colors.push_back(mesh.colors[index]);
    }
    return result;
}

CloudData spiralCloud(std::int32_t points) {
    CloudData cloud;
    for (std::int32_t i = 0; i < points; ++i) {
        const double share = static_cast<double>(i) / points;
        const double angle = 2.0 * std::numbers::pi * kTurnsOfTheSpiral * share;
        const double radius = 0.2 + 0.75 * std::fabs(std::sin(1000.0 * share));
        const OnSphere place{radius * std::cos(angle), radius * std::sin(angle), 2.0 * share - 1.0};
        cloud.vertices.push_back({narrow(place.x), narrow(place.y), narrow(place.z), {}});
        cloud.byteColors.push_back(
            {asByte(intensity(place.x)), asByte(intensity(place.y)), asByte(intensity(place.z))});
        cloud.floatColors.push_back(
            {narrow(intensity(place.x)), narrow(intensity(place.y)), narrow(intensity(place.z)), 1.0F});
    }
    return cloud;
}

std::vector<XPnt3d> wave(std::int32_t index, std::int32_t count, std::int32_t points) {
    std::vector<XPnt3d> line;
    const double y = 2.0 * index / count - 1.0;
    for (std::int32_t i = 0; i < points; ++i) {
        const double x = 2.0 * i / (points - 1) - 1.0;
        line.emplace_back(x, y, 0.3 * std::sin(6.0 * x + 4.0 * y));
    }
    return line;
}

}  // namespace qel::bench
