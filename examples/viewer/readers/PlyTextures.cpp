#include "PlyTextures.h"

#include <algorithm>

#include "ModelImages.h"
#include "PlyVertices.h"
#include "ReadError.h"

namespace qelview {

namespace {

bool choosesImages(const PlyHeader& header) {
    return std::any_of(header.elements.begin(), header.elements.end(),
                       [](const PlyElement& element) { return uses(element, PlyUse::Image); });
}

}  // namespace

bool hasFaces(const PlyHeader& header) {
    return std::any_of(header.elements.begin(), header.elements.end(), [](const PlyElement& element) {
        return element.count > 0 && (uses(element, PlyUse::Corners) || uses(element, PlyUse::Strips));
    });
}

bool hasTexturedFaces(const PlyHeader& header) {
    return !header.textureFiles.empty() &&
           std::any_of(header.elements.begin(), header.elements.end(), [](const PlyElement& element) {
               return element.count > 0 && uses(element, PlyUse::Corners) &&
                      uses(element, PlyUse::CornerTexCoords);
           });
}

std::shared_ptr<const Texture> textureOfVertices(const PlyHeader& header, const std::filesystem::path& file,
                                                 Warnings& warnings) {
    if (header.textureFiles.empty() || !hasFaces(header)) {
        return nullptr;
    }
    const bool areOfFaces = hasTexturedFaces(header);
    if (!areOfFaces && !uses(*header.find("vertex"), PlyUse::TexCoord)) {
        warnings.add("header", "a texture without texture coordinates is left out");
        return nullptr;
    }
    if (header.textureFiles.size() > 1 && !(areOfFaces && choosesImages(header))) {
        warnings.add("header", "textures after the first one are left out");
    }
    if (areOfFaces) {
        return nullptr;
    }
    try {
        return std::make_shared<const Texture>(Texture{ModelImages(file).fileNamed(header.textureFiles[0])});
    } catch (const ReadError& error) {
        warnings.add("header", error.what());
        return nullptr;
    }
}

}  // namespace qelview
