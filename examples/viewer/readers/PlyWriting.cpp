#include "PlyWriting.h"

#include "ByteOrder.h"

namespace qelview {

namespace {

template <class Numbers>
void appendAll(std::string& bytes, const Numbers& numbers) {
    for (const auto number : numbers) {
        appendScalar(bytes, number, ByteOrder::Little);
    }
}

std::string propertiesOf(std::initializer_list<const char*> names) {
    std::string lines;
    for (const char* const name : names) {
        lines += std::string("property double ") + name + "\n";
    }
    return lines;
}

}  // namespace

void PlyWriting::addVertex(const PlyVertex& vertex) {
    appendAll(vertices, vertex.position);
    if (hasNormals) {
        appendAll(vertices, vertex.normal);
    }
    if (hasColors) {
        appendAll(vertices, vertex.color);
    }
    ++vertexCount;
}

void PlyWriting::addFace(std::span<const std::uint32_t> corners) {
    appendScalar(faces, static_cast<std::uint32_t>(corners.size()), ByteOrder::Little);
    appendAll(faces, corners);
    ++faceCount;
}

std::string PlyWriting::header() const {
    std::string text = "ply\nformat binary_little_endian 1.0\n";
    text += "element vertex " + std::to_string(vertexCount) + "\n" + propertiesOf({"x", "y", "z"});
    if (hasNormals) {
        text += propertiesOf({"nx", "ny", "nz"});
    }
    if (hasColors) {
        text += propertiesOf({"red", "green", "blue"});
    }
    if (faceCount > 0) {
        text += "element face " + std::to_string(faceCount) + "\nproperty list uint uint vertex_indices\n";
    }
    // With CR LF the importer takes one LF away, which without it could be a byte of the first number.
    return text + "end_header\r\n";
}

std::string PlyWriting::take() {
    std::string bytes = header();
    bytes.reserve(bytes.size() + vertices.size() + faces.size());
    bytes += vertices;
    vertices = {};
    bytes += faces;
    faces = {};
    return bytes;
}

}  // namespace qelview
