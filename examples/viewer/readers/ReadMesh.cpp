#include "ReadMesh.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <optional>
#include <type_traits>
#include <utility>

#include "AssimpHeaders.h"
#include "MeshLook.h"
#include "MeshNormals.h"
#include "ReadError.h"
#include "TextLines.h"

namespace qelview {

namespace {

/// Of the time of a load; the rest goes into normals and copies.
constexpr double kImportShare = 0.8;

/// The importer's numbers are doubles or floats, as it was built.
template <class Number, class Real>
Number numberOf(Real value) {
    if constexpr (std::is_same_v<Number, Real>) {
        return value;
    } else {
        return static_cast<Number>(value);
    }
}

/// Passes the importer's progress on. Throwing through the importer would leave it in the middle of its work,
/// so a cancelled load is noticed only after it. The importer takes its handler over.
class ImportProgress final : public Assimp::ProgressHandler {
  public:
    explicit ImportProgress(const ProgressStretch& stretchOfImport) : stretch(stretchOfImport) {}
    bool Update(float percentage) override {
        try {
            stretch.report(static_cast<double>(percentage));
        } catch (const ReadCancelled&) {
            return false;
        }
        return true;
    }

  private:
    ProgressStretch stretch;
};

/// The only files that the importer can open, and none that it can write. The importer takes it over.
class FilesInMemory final : public Assimp::IOSystem {
  public:
    FilesInMemory(const std::string& modelName, const PlainModel& plain)
        : files{{{modelName, plain.model}, {std::string(kMaterialsOfPlainModel), plain.materials}}} {}

    bool Exists(const char* name) const override { return find(name) != nullptr; }
    char getOsSeparator() const override { return '/'; }
    Assimp::IOStream* Open(const char* name, const char*) override {
        const File* const file = find(name);
        return file == nullptr
                   ? nullptr
                   : new Assimp::MemoryIOStream(reinterpret_cast<const std::uint8_t*>(file->bytes.data()),
                                                file->bytes.size());
    }
    void Close(Assimp::IOStream* stream) override { delete stream; }

  private:
    struct File {
        std::string name;
        std::string_view bytes;
    };
    const File* find(std::string_view name) const {
        const auto* const found = std::find_if(files.begin(), files.end(), [name](const File& file) {
            return file.name == name && !file.bytes.empty();
        });
        return found == files.end() ? nullptr : found;
    }

    std::array<File, 2> files;
};

std::string nameOf(const aiMesh& mesh, unsigned number) {
    const std::string name = oneLine({mesh.mName.C_Str(), mesh.mName.length});
    return "mesh " + std::to_string(number) + (name.empty() ? "" : " " + qelview::quoted(name));
}

/// The importers themselves check no index.
void checkImported(const aiScene& imported) {
    for (unsigned number = 0; number < imported.mNumMeshes; ++number) {
        const aiMesh& mesh = *imported.mMeshes[number];
        for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
            const aiFace& face = mesh.mFaces[i];
            if (face.mNumIndices == 0) {
                refuse(nameOf(mesh, number) + ", face " + std::to_string(i), "it has no vertices");
            }
            const unsigned* const begin = face.mIndices;
            const unsigned* const end = begin + face.mNumIndices;
            const unsigned* const wrong =
                std::find_if(begin, end, [&mesh](unsigned index) { return index >= mesh.mNumVertices; });
            if (wrong != end) {
                refuse(nameOf(mesh, number) + ", face " + std::to_string(i),
                       "vertex " + std::to_string(*wrong) + " does not exist: there are " +
                           std::to_string(mesh.mNumVertices));
            }
        }
    }
}

qel::QelColor3f colorOfMaterial(const aiScene& imported, const aiMesh& mesh) {
    aiColor4D color;
    if (mesh.mMaterialIndex < imported.mNumMaterials &&
        imported.mMaterials[mesh.mMaterialIndex]->Get(AI_MATKEY_COLOR_DIFFUSE, color) == aiReturn_SUCCESS) {
        return {numberOf<float>(color.r), numberOf<float>(color.g), numberOf<float>(color.b)};
    }
    return TriangleMesh().color;
}

/// Colours as shares of full intensity; some formats give bytes.
std::vector<qel::QelColor3f> colorsOf(const aiMesh& mesh) {
    std::vector<qel::QelColor3f> colors;
    if (!mesh.HasVertexColors(0)) {
        return colors;
    }
    const aiColor4D* const begin = mesh.mColors[0];
    const bool isBytes = std::any_of(begin, begin + mesh.mNumVertices, [](const aiColor4D& color) {
        return color.r > ai_real(1) || color.g > ai_real(1) || color.b > ai_real(1);
    });
    const auto share = [isBytes](ai_real channel) {
        return shownShare(numberOf<double>(channel) / (isBytes ? 255.0 : 1.0));
    };
    std::transform(begin, begin + mesh.mNumVertices, std::back_inserter(colors),
                   [&share](const aiColor4D& color) {
                       return qel::QelColor3f(share(color.r), share(color.g), share(color.b));
                   });
    return colors;
}

qel::XPnt3d toPoint(const aiVector3D& vector) {
    return {numberOf<double>(vector.x), numberOf<double>(vector.y), numberOf<double>(vector.z)};
}

/// Turns one imported mesh, placed by a node of the file, into parts of the scene.
class MeshPlacer {
  public:
    MeshPlacer(const aiScene& importedScene, std::optional<qel::QelColor3f> colorOfAll, Normals normalsToUse,
               Scene& target)
        : imported(importedScene), color(colorOfAll), normals(normalsToUse), scene(target) {}

    void place(const aiNode& node, const aiMatrix4x4& parent) {
        const aiMatrix4x4 placement = parent * node.mTransformation;
        for (unsigned i = 0; i < node.mNumMeshes; ++i) {
            placeMesh(*imported.mMeshes[node.mMeshes[i]], placement);
        }
        for (unsigned i = 0; i < node.mNumChildren; ++i) {
            place(*node.mChildren[i], placement);
        }
    }

  private:
    void placeMesh(const aiMesh& mesh, const aiMatrix4x4& placement) {
        Points positions;
        positions.reserve(mesh.mNumVertices);
        for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
            positions.push_back(toPoint(placement * mesh.mVertices[i]));
        }
        if ((mesh.mPrimitiveTypes & aiPrimitiveType_TRIANGLE) != 0) {
            placeTriangles(mesh, placement, std::move(positions));
        } else if ((mesh.mPrimitiveTypes & aiPrimitiveType_LINE) != 0) {
            placeLines(mesh, positions);
        } else {
            placePoints(mesh, std::move(positions));
        }
    }

    void placeTriangles(const aiMesh& mesh, const aiMatrix4x4& placement, Points&& positions) {
        TriangleMesh triangles;
        triangles.name = mesh.mName.C_Str();
        triangles.positions = std::move(positions);
        triangles.colors = colorsOf(mesh);
        triangles.color = color ? *color : colorOfMaterial(imported, mesh);
        triangles.indices.reserve(std::size_t{mesh.mNumFaces} * 3);
        for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
            const aiFace& face = mesh.mFaces[i];
            if (face.mNumIndices == 3) {
                triangles.indices.insert(triangles.indices.end(), face.mIndices, face.mIndices + 3);
            }
        }
        if (triangles.indices.empty()) {
            return;
        }
        if (mesh.HasNormals() && normals == Normals::OfTheFile) {
            copyNormals(mesh, placement, triangles);
        } else {
            makeNormals(triangles);
        }
        scene.meshes.push_back(std::move(triangles));
    }

    static void copyNormals(const aiMesh& mesh, const aiMatrix4x4& placement, TriangleMesh& triangles) {
        const aiMatrix3x3 turn = aiMatrix3x3(placement).Inverse().Transpose();
        triangles.normals.reserve(mesh.mNumVertices);
        for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
            triangles.normals.push_back(unitNormal(toPoint(turn * mesh.mNormals[i])));
        }
    }

    void placeLines(const aiMesh& mesh, const Points& positions) {
        Polyline polyline;
        polyline.style = kLinesOfMeshFiles;
        for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
            const aiFace& line = mesh.mFaces[i];
            Points part;
            for (unsigned corner = 0; corner < line.mNumIndices; ++corner) {
                part.push_back(positions[line.mIndices[corner]]);
            }
            polyline.parts.push_back(std::move(part));
        }
        scene.polylines.push_back(std::move(polyline));
    }

    void placePoints(const aiMesh& mesh, Points&& positions) {
        PointCloud cloud;
        const std::vector<qel::QelColor3f> colors = colorsOf(mesh);
        std::transform(colors.begin(), colors.end(), std::back_inserter(cloud.colors), colorOfDot);
        cloud.positions = std::move(positions);
        scene.clouds.push_back(std::move(cloud));
    }

    const aiScene& imported;
    /// Instead of those of the materials.
    std::optional<qel::QelColor3f> color;
    Normals normals;
    Scene& scene;
};

/// Files of points alone have meshes without faces, which the importer's further steps would take away.
bool hasFaces(const aiScene& imported) {
    return std::any_of(imported.mMeshes, imported.mMeshes + imported.mNumMeshes,
                       [](const aiMesh* mesh) { return mesh->mNumFaces > 0; });
}

}  // namespace

Scene readMesh(const PlainModel& model, std::string_view extension, Normals normals,
               const ProgressStretch& progress) {
    const std::string name = "model" + std::string(extension);
    Assimp::Importer importer;
    importer.SetIOHandler(new FilesInMemory(name, model));
    importer.SetProgressHandler(new ImportProgress(progress.part(0.0, kImportShare)));
    const aiScene* imported = importer.ReadFile(name, 0);
    if (imported != nullptr) {
        checkImported(*imported);
        if (hasFaces(*imported)) {
            imported = importer.ApplyPostProcessing(aiProcess_Triangulate | aiProcess_SortByPType);
        }
    }
    const std::string fault = oneLine(importer.GetErrorString());
    progress.report(kImportShare);
    if (imported == nullptr || imported->mRootNode == nullptr) {
        refuse("importer", fault.empty() ? "no scene in the file" : fault);
    }
    Scene scene;
    MeshPlacer(*imported, model.color, normals, scene).place(*imported->mRootNode, aiMatrix4x4());
    progress.report(1.0);
    return scene;
}

bool readsMeshesInDoublePrecision() {
    return std::is_same_v<ai_real, double>;
}

}  // namespace qelview
