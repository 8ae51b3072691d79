#include "SceneSoundness.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "HostScene.h"
#include "LoadTask.h"
#include "MapData.h"

namespace qel::test {

namespace {

bool isFinite(const XPnt3d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

bool areFinite(const qelview::Points& points) {
    return std::all_of(points.begin(), points.end(), isFinite);
}

std::string faultOfMesh(const qelview::TriangleMesh& mesh) {
    const std::size_t count = mesh.positions.size();
    if (!areFinite(mesh.positions)) {
        return "a position of a mesh is not finite";
    }
    if (mesh.indices.size() % 3 != 0 || (mesh.indices.empty() && count % 3 != 0)) {
        return "a mesh has a piece of a triangle";
    }
    if (std::any_of(mesh.indices.begin(), mesh.indices.end(), [&](auto index) { return index >= count; })) {
        return "an index of a mesh has no position";
    }
    if ((!mesh.normals.empty() && mesh.normals.size() != count) ||
        (!mesh.colors.empty() && mesh.colors.size() != count)) {
        return "a mesh has another number of normals or colours than positions";
    }
    if (!mesh.texCoords.empty() && mesh.texCoords.size() != count) {
        return "a mesh has another number of texture coordinates than positions";
    }
    if ((mesh.texture != nullptr) != !mesh.texCoords.empty()) {
        return "a mesh has a texture without coordinates, or coordinates without a texture";
    }
    if (mesh.texture) {
        const qelview::TextureImage& image = *mesh.texture->image;
        if (image.width <= 0 || image.height <= 0 ||
            image.pixels.size() != static_cast<std::size_t>(image.width) *
                                       static_cast<std::size_t>(image.height) *
                                       static_cast<std::size_t>(image.channels)) {
            return "a texture is not as large as its image";
        }
    }
    if (!std::all_of(mesh.texCoords.begin(), mesh.texCoords.end(),
                     [](const auto& each) { return std::isfinite(each.u) && std::isfinite(each.v); })) {
        return "a texture coordinate is not finite";
    }
    const bool areNormalsFinite = std::all_of(mesh.normals.begin(), mesh.normals.end(), [](const auto& each) {
        return std::isfinite(each.x) && std::isfinite(each.y) && std::isfinite(each.z);
    });
    return areNormalsFinite ? "" : "a normal of a mesh is not finite";
}

std::string faultOfCloud(const qelview::PointCloud& cloud) {
    if (!areFinite(cloud.positions)) {
        return "a position of a cloud is not finite";
    }
    const bool areColorsWhole = cloud.colors.empty() || cloud.colors.size() == cloud.positions.size();
    return areColorsWhole ? "" : "a cloud has another number of colours than positions";
}

}  // namespace

std::string faultOf(const qelview::Scene& scene) {
    if (scene.isEmpty()) {
        return "there is nothing to show";
    }
    const Enve3d box = scene.bounds();
    if (!box.isValid() || !std::isfinite(box.getDiagonal()) || !areFinite(scene.outline()) ||
        !isFinite(scene.origin)) {
        return "the box is not finite";
    }
    for (const qelview::TriangleMesh& mesh : scene.meshes) {
        if (const std::string fault = faultOfMesh(mesh); !fault.empty()) {
            return fault;
        }
    }
    for (const qelview::PointCloud& cloud : scene.clouds) {
        if (const std::string fault = faultOfCloud(cloud); !fault.empty()) {
            return fault;
        }
    }
    return "";
}

std::string faultOfOpening(const std::filesystem::path& file) {
    try {
        qelview::Progress progress;
        qelview::Stopwatch watch;
        const qelview::Scene scene = qelview::loadScene({file.string()}, qelview::UpAxis::Z, progress, watch);
        const std::string fault = faultOf(scene);
        if (fault.empty()) {
            const qelview::HostScene drawn(scene);
            static_cast<void>(qelview::mapOf(scene));
        }
        return fault;
    } catch (const qelview::ReadError& error) {
        const std::string text = error.what();
        const bool isOneLine = text.find_first_of("\r\n") == std::string::npos;
        const bool isNamed = text.rfind(file.string() + ": ", 0) == 0;
        return isOneLine && isNamed ? "" : "the refusal is not one line with the file's name: " + text;
    } catch (const std::exception& error) {
        return std::string("it ends with ") + error.what();
    }
}

}  // namespace qel::test
