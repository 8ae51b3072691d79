#include "ReadFile.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>
#include <string_view>
#include <utility>

#include "FileBytes.h"
#include "MeshNormals.h"
#include "ReadError.h"
#include "ReadFormats.h"

namespace qelview {

namespace {

/// Files are held in memory while they are checked.
constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

enum class Kind : std::uint8_t { Obj, Ply, Stl, Off, Gltf, Points, Map };

struct Format {
    std::string_view extension;
    Kind kind;
};

constexpr std::array<Format, 12> kFormats{{
    {".obj", Kind::Obj},
    {".ply", Kind::Ply},
    {".stl", Kind::Stl},
    {".off", Kind::Off},
    {".gltf", Kind::Gltf},
    {".glb", Kind::Gltf},
    {".xyz", Kind::Points},
    {".csv", Kind::Points},
    {".txt", Kind::Points},
    {".asc", Kind::Points},
    {".geojson", Kind::Map},
    {".json", Kind::Map},
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

Scene readAs(Kind kind, const std::filesystem::path& file, const ProgressStretch& progress) {
    const std::string bytes = readBytes(file, kLargestFile);
    switch (kind) {
        case Kind::Obj:
            return readObj(bytes, file, progress);
        case Kind::Ply:
            return readPly(bytes, file, progress);
        case Kind::Stl:
            return readStl(bytes, progress);
        case Kind::Off:
            return readOff(bytes, progress);
        case Kind::Gltf:
            return readGltf(bytes, file, progress);
        case Kind::Points:
            return readPoints(bytes, progress);
        case Kind::Map:
            break;
    }
    return readGeoJson(bytes, progress);
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

Scene readFile(const std::filesystem::path& file, const ProgressStretch& progress, Stopwatch& watch) {
    try {
        constexpr double kShareOfReading = 0.7;
        Scene scene = readAs(formatOf(file).kind, file, progress.part(0.0, kShareOfReading));
        progress.report(kShareOfReading);
        watch.lap("read");
        for (TriangleMesh& mesh : scene.meshes) {
            if (mesh.normals.empty()) {
                makeNormals(mesh);
            }
        }
        progress.report(1.0);
        watch.lap("normals");
        for (std::string& warning : scene.warnings) {
            warning.insert(0, utf8(file.filename()) + ": ");
        }
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
