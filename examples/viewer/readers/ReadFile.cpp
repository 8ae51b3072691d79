#include "ReadFile.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>
#include <string_view>
#include <utility>

#include "FileBytes.h"
#include "PlainModel.h"
#include "ReadError.h"
#include "ReadGeoJson.h"
#include "ReadGltf.h"
#include "ReadMesh.h"
#include "ReadPoints.h"

namespace qelview {

namespace {

/// Files are held in memory while they are checked.
constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

using Plain = PlainModel (*)(std::string, const std::filesystem::path&, const ProgressStretch&);

enum class Kind : std::uint8_t { Mesh, Gltf, Points, Map };

struct Format {
    std::string_view extension;
    Kind kind;
    /// Of meshes that are imported.
    Plain plain;
    Normals normals;
};

constexpr std::array<Format, 12> kFormats{{
    {".obj", Kind::Mesh, plainObj, Normals::OfTheFile},
    {".ply", Kind::Mesh, plainPly, Normals::OfTheFile},
    // STL gives each triangle the normal of its plane, which would make every surface look faceted.
    {".stl", Kind::Mesh, plainStl, Normals::MadeAnew},
    {".off", Kind::Mesh, plainOff, Normals::OfTheFile},
    {".gltf", Kind::Gltf, nullptr, Normals::OfTheFile},
    {".glb", Kind::Gltf, nullptr, Normals::OfTheFile},
    {".xyz", Kind::Points, nullptr, Normals::OfTheFile},
    {".csv", Kind::Points, nullptr, Normals::OfTheFile},
    {".txt", Kind::Points, nullptr, Normals::OfTheFile},
    {".asc", Kind::Points, nullptr, Normals::OfTheFile},
    {".geojson", Kind::Map, nullptr, Normals::OfTheFile},
    {".json", Kind::Map, nullptr, Normals::OfTheFile},
}};

const Format& formatOf(const std::filesystem::path& file) {
    std::string extension = utf8(file.extension());
    std::transform(extension.begin(), extension.end(), extension.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    const auto* const found = std::find_if(kFormats.begin(), kFormats.end(), [&](const Format& format) {
        return format.extension == extension;
    });
    if (found == kFormats.end()) {
        throw ReadError("unknown format; known are " + knownExtensions());
    }
    return *found;
}

Scene readAs(const Format& format, const std::filesystem::path& file, const ProgressStretch& progress) {
    constexpr double kPlainShare = 0.3;
    std::string bytes = readBytes(file, kLargestFile);
    switch (format.kind) {
        case Kind::Gltf:
            return readGltf(bytes, file, progress);
        case Kind::Points:
            return readPoints(bytes, progress);
        case Kind::Map:
            return readGeoJson(bytes, progress);
        case Kind::Mesh:
            break;
    }
    const PlainModel plain = format.plain(std::move(bytes), file, progress.part(0.0, kPlainShare));
    return readMesh(plain, format.extension, format.normals, progress.part(kPlainShare, 1.0));
}

}  // namespace

std::string knownExtensions() {
    std::string list;
    for (const Format& format : kFormats) {
        list += (list.empty() ? "" : " ") + std::string(format.extension);
    }
    return list;
}

std::string readTextFile(const std::filesystem::path& file) {
    return readBytes(file, kLargestFile);
}

Scene readFile(const std::filesystem::path& file, const ProgressStretch& progress) {
    try {
        Scene scene = readAs(formatOf(file), file, progress);
        if (scene.isEmpty()) {
            throw ReadError("there is nothing to show");
        }
        return scene;
    } catch (const ReadError& error) {
        throw ReadError(utf8(file) + ": " + error.what());
    } catch (const std::bad_alloc&) {
        throw ReadError(utf8(file) + ": too large for the memory of this machine");
    }
}

}  // namespace qelview
