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
#include "TextLines.h"

namespace qelview {

namespace {

/// Files are held in memory while they are checked.
constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

using Reader = Scene (*)(std::string_view bytes, const std::filesystem::path& file,
                         const ProgressStretch& progress);

/// Of formats whose files name no others.
template <Scene (*kRead)(std::string_view, const ProgressStretch&)>
Scene readAlone(std::string_view bytes, const std::filesystem::path& /*file*/,
                const ProgressStretch& progress) {
    return kRead(bytes, progress);
}

Scene readAsset(std::string_view bytes, const std::filesystem::path& file, const ProgressStretch& progress) {
    return readGltf(bytes, file, progress);
}

struct Format {
    std::string_view extension;
    Reader read;
};

constexpr std::array<Format, 12> kFormats{{
    {".obj", readObj},
    {".ply", readPly},
    {".stl", readAlone<readStl>},
    {".off", readAlone<readOff>},
    {".gltf", readAsset},
    {".glb", readAsset},
    {".xyz", readAlone<readPoints>},
    {".csv", readAlone<readPoints>},
    {".txt", readAlone<readPoints>},
    {".asc", readAlone<readPoints>},
    {".geojson", readAlone<readGeoJson>},
    {".json", readAlone<readGeoJson>},
}};

const Format& formatOf(const std::filesystem::path& file) {
    std::string extension = utf8(file.extension());
    std::transform(extension.begin(), extension.end(), extension.begin(), lowered);
    for (const Format& format : kFormats) {
        if (format.extension == extension) {
            return format;
        }
    }
    throw ReadError("unknown format; known are " + knownExtensions());
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
        Scene scene =
            formatOf(file).read(readBytes(file, kLargestFile), file, progress.part(0.0, kShareOfReading));
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
