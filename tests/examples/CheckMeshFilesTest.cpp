#include "CheckMeshFiles.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "ViewerData.h"

namespace {

using Check = void (*)(std::string_view, const qelview::ProgressStretch&);

std::string refusal(Check check, const std::string& content) {
    return qel::test::refusalOf([&] {
        qelview::Progress progress;
        check(content, qelview::ProgressStretch(progress, 0.0, 1.0));
        return 0;
    });
}

struct CheckCase {
    const char* name;
    Check check;
    const char* content;
    /// Empty if the file is sound.
    const char* refusal;
};

class CheckMeshFiles : public testing::TestWithParam<CheckCase> {};

TEST_P(CheckMeshFiles, SaysWhatIsWrongAndWhere) {
    EXPECT_EQ(refusal(GetParam().check, GetParam().content), GetParam().refusal);
}

constexpr Check kObj = qelview::checkObj;
constexpr Check kPly = qelview::checkPly;
constexpr Check kStl = qelview::checkStl;
constexpr Check kOff = qelview::checkOff;
constexpr Check kGltf = qelview::checkGltf;
constexpr Check kGlb = qelview::checkGlb;

#define GLTF_URI(uri) "{\"asset\": {}, \"buffers\": [{\"uri\": \"" uri "\"}]}"

#define GLTF_ATTRIBUTES(attributes)                                                                        \
    "{\"asset\": {}, \"accessors\": [{\"bufferView\": 0, \"count\": 3}, {\"count\": 3}, {\"bufferView\": " \
    "0, \"count\": 2}], "                                                                                  \
    "\"meshes\": [{\"primitives\": [{\"attributes\": " attributes "}]}]}"

#define PLY_HEAD \
    "ply\nformat ascii 1.0\nelement vertex 2\nproperty float x\nproperty float y\nproperty float z\n"
#define PLY_FACE "element face 1\nproperty list uchar int vertex_indices\n"

const std::vector<CheckCase> kCases{
    {"ObjTriangle", kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n", ""},
    {"ObjRelative", kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf -1 -2 -3\n", ""},
    {"ObjDefinedBelow", kObj, "f 1 2 3\nv 0 0 0\nv 1 0 0\nv 0 1 0\n", ""},
    {"ObjNormals", kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nvn 0 0 1\nf 1//1 2//1 3//1\n", ""},
    {"ObjColours", kObj, "v 0 0 0 1 0.5 0\nv 1 0 0 0 0 0\nv 0 1 0 1 1 1\nf 1 2 3\n", ""},
    {"ObjContinued", kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 \\\n3\n", ""},
    {"ObjRemark", kObj, "v 0 0 0 # first\nf 1 # it\n", ""},
    {"ObjZero", kObj, "v 0 0 0\nf 0\n", "line 2: vertex 0 does not exist: numbers begin at 1"},
    {"ObjTooHigh", kObj, "v 0 0 0\nf 1 1 2\n", "line 2: vertex 2 does not exist: the file has 1"},
    {"ObjTooLow", kObj, "v 0 0 0\nf -2\n", "line 2: vertex -2 does not exist: there are 1 above this line"},
    {"ObjNoTexture", kObj, "v 0 0 0\nf 1/1\n", "line 2: texture coordinate 1 does not exist: the file has 0"},
    {"ObjNoNormal", kObj, "v 0 0 0\nf 1//1\n", "line 2: normal 1 does not exist: the file has 0"},
    {"ObjTwoCoordinates", kObj, "v 0 0\n",
     "line 1: a vertex has 3 coordinates, and a weight or a colour; this one has 2 values"},
    {"ObjWord", kObj, "v 0 zero 0\n", "line 1: 'zero' is not a number"},
    {"ObjFourParts", kObj, "v 0 0 0\nf 1/1/1/1\n", "line 2: '1/1/1/1' is not a corner of an element"},
    {"ObjEmptyElement", kObj, "v 0 0 0\nf\n", "line 2: an element without vertices"},
    {"ObjNothing", kObj, "# empty\n", "end of file: there is no vertex"},
    {"PlySound", kPly, PLY_HEAD PLY_FACE "end_header\n0 0 0\n1 0 0\n3 0 1 1\n", ""},
    {"PlyPoints", kPly, PLY_HEAD "end_header\n0 0 0\n1 0 0\n", ""},
    {"PlyNoMagic", kPly, "plx\n", "line 1: a PLY file begins with the line 'ply'"},
    {"PlyNoFormat", kPly, "ply\nelement vertex 1\nproperty float x\nend_header\n",
     "line 4: the header names no format"},
    {"PlyNoZ", kPly,
     "ply\nformat ascii 1.0\nelement vertex 1\nproperty float x\nproperty float y\nend_header\n0 0\n",
     "line 6: vertices have no property 'z'"},
    {"PlyUnknownType", kPly, "ply\nformat ascii 1.0\nelement vertex 1\nproperty quaternion x\n",
     "line 4: unknown type 'quaternion'"},
    {"PlyNegativeCount", kPly, "ply\nformat ascii 1.0\nelement vertex -8\n",
     "line 3: the count '-8' of element 'vertex' cannot be"},
    {"PlyHugeCount", kPly, "ply\nformat ascii 1.0\nelement vertex 99999999999\n",
     "line 3: the count '99999999999' of element 'vertex' cannot be"},
    {"PlyEndless", kPly, "ply\nformat ascii 1.0\ncomment nothing\n", "line 3: the header has no end_header"},
    {"PlyShort", kPly, PLY_HEAD "end_header\n0 0 0\n",
     "line 8: the file ends after 1 of 2 instances of element 'vertex'"},
    {"PlyFewValues", kPly, PLY_HEAD "end_header\n0 0 0\n1 0\n", "line 9: too few values"},
    {"PlyManyValues", kPly, PLY_HEAD "end_header\n0 0 0\n1 0 0 0\n",
     "line 9: 4 values where the header promises 3"},
    {"PlyIndex", kPly, PLY_HEAD PLY_FACE "end_header\n0 0 0\n1 0 0\n3 0 1 2\n",
     "line 12: vertex 2 does not exist: there are 2, counted from 0"},
    {"PlyNegativeIndex", kPly, PLY_HEAD PLY_FACE "end_header\n0 0 0\n1 0 0\n3 0 1 -1\n",
     "line 12: vertex -1 does not exist: there are 2, counted from 0"},
    {"PlyNotFinite", kPly, PLY_HEAD "end_header\n0 0 inf\n1 0 0\n", "line 8: the coordinate z is not finite"},
    {"PlyNegativeLength", kPly, PLY_HEAD PLY_FACE "end_header\n0 0 0\n1 0 0\n-3 0 1 1\n",
     "line 12: a list cannot have -3.000000 values"},
    {"StlSound", kStl,
     "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 "
     "0\nendloop\nendfacet\nendsolid\n",
     ""},
    {"StlCut", kStl, "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\n",
     "line 4: the file ends inside a solid"},
    {"StlTwoCorners", kStl, "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nendloop\n",
     "line 6: a triangle has 3 corners, this one has 2"},
    {"StlOutOfOrder", kStl, "solid a\nvertex 0 0 0\n", "line 2: 'vertex' is not expected here"},
    {"StlNoNormal", kStl, "solid a\nfacet 0 0 1\n", "line 2: a facet begins with 'facet normal X Y Z'"},
    {"StlWordForNormal", kStl, "solid a\nfacet normal 0 zero 1\n", "line 2: 'zero' is not a number"},
    {"StlKeywordsInALine", kStl, "solid a\nfacet normal 0 0 1\nouter loop vertex\n",
     "line 3: there is more than 'outer' needs"},
    {"StlKeywordInTheName", kStl, "solid a facet normal\n",
     "line 1: the name of the solid is too long or holds a keyword"},
    {"StlControlCharacter", kStl, "solid a\ffacet\n", "line 1: there is a control character"},
    {"GltfData", kGltf, GLTF_URI("data:application/octet-stream;base64,AAA="), ""},
    {"GltfBeside", kGltf, GLTF_URI("parts/wheel.bin"), ""},
    {"GltfNoAccessor", kGltf, GLTF_ATTRIBUTES("{\"POSITION\": 7}"),
     "mesh 0: it names an accessor that does not exist"},
    {"GltfNoData", kGltf, GLTF_ATTRIBUTES("{\"POSITION\": 0, \"NORMAL\": 1}"),
     "mesh 0: its accessor 1 has no data"},
    {"GltfShortAttribute", kGltf, GLTF_ATTRIBUTES("{\"POSITION\": 0, \"NORMAL\": 2}"),
     "mesh 0: its attribute 'NORMAL' is not as long as its positions"},
    {"GltfNoPositions", kGltf, "{\"asset\": {}, \"meshes\": [{\"primitives\": [{\"indices\": 2}]}]}",
     "mesh 0: it has no positions"},
    {"GltfCut", kGltf, "{\"asset\": {},\n\"buffers\": [", "line 2: the JSON text is damaged or ends here"},
    {"GltfNumber", kGltf, "{\"asset\": 1e999}", "file: a number is too large"},
    {"GltfNoAsset", kGltf, "[1, 2]", "file: there is no glTF asset"},
    {"GltfWrongLetter", kGltf, GLTF_URI("data:;base64,AA?="), "buffers 0: its data are not Base64 text"},
    {"GltfWrongLength", kGltf, GLTF_URI("data:;base64,AAA"), "buffers 0: its data are not Base64 text"},
    {"GltfPlainData", kGltf, GLTF_URI("data:,AAAA"), "buffers 0: its data are not Base64 text"},
    {"GltfAbove", kGltf, GLTF_URI("../a.bin"), "buffers 0: '../a.bin' is not a file beside this one"},
    {"GltfElsewhere", kGltf, GLTF_URI("C:/a.bin"), "buffers 0: 'C:/a.bin' is not a file beside this one"},
    {"GltfOtherMachine", kGltf, GLTF_URI("//host/a.bin"),
     "buffers 0: '//host/a.bin' is not a file beside this one"},
    {"GlbShort", kGlb, "glTF", "header: a binary glTF file begins with glTF, its version and its length"},
    {"GlbLength", kGlb, "glTF2222....aaaaJSON", "header: it promises 774778414 bytes, the file has 20"},
    {"StlEmpty", kStl, "solid a\nendsolid a\n", "end of file: there is no triangle"},
    {"StlTiny", kStl, "none", "header: the file has 4 bytes, too few for a binary STL file"},
    {"OffSound", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", ""},
    {"OffCountsBehindTheWord", kOff, "OFF 3 1 3\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", ""},
    {"OffRemarksBeforeTheCounts", kOff,
     "OFF\n# corners, faces\n\n3 1 3\n\n0 0 0\n1 0 0\n0 1 0 # the last\n3 0 1 2\n", ""},
    {"OffPlusSign", kOff, "OFF\n1 1 0\n+0 0 0\n+1 0\n", "line 4: '+1' has a plus sign"},
    {"OffRemarkAmongVertices", kOff, "OFF\n3 1 3\n# corners\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n",
     "line 3: a remark or blanks where a vertex or a face should stand"},
    {"OffBlanksAmongFaces", kOff, "OFF\n3 2 3\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n  \n3 2 1 0\n",
     "line 7: a remark or blanks where a vertex or a face should stand"},
    {"OffLineInALine", kOff, "OFF\n1 1 0\n0 1 0 1 \f0 1 0 1 1\n1 0\n",
     "line 3: there is a control character"},
    {"ObjLineInARemark", kObj, "v 0 0 0 # first\rf 1 2 3\n", "line 1: there is a control character"},
    {"PlyLineInALine", kPly, PLY_HEAD "end_header\n0 0 \f0\n1 0 0\n", "line 8: there is a control character"},
    {"OffNoWord", kOff, "ON\n3 1 0\n", "line 1: an OFF file begins with the word OFF, COFF, NOFF or CNOFF"},
    {"OffIndex", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 3\n",
     "line 6: vertex 3 does not exist: there are 3, counted from 0"},
    {"OffShort", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n", "line 4: the file ends where vertex 2 should stand"},
    {"OffFewCorners", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1\n",
     "line 6: a face of 3 corners that names 2"},
    {"OffManyCorners", kOff, "OFF\n1 1 0\n0 0 0\n12 0 0 0 0 0 0 0 0 0 0 0 0\n",
     "line 4: a face of 12 corners; 1 to 9 are read"},
    {"OffNothing", kOff, "OFF\n0 0 0\n", "line 2: there are no vertices"},
};
INSTANTIATE_TEST_SUITE_P(Files, CheckMeshFiles, testing::ValuesIn(kCases),
                         [](const auto& each) { return each.param.name; });

/// A binary STL file that promises `promised` triangles and holds `records`, the last coordinate being
/// `last`.
std::string binaryStl(std::uint32_t promised, std::size_t records, float last = 0.0F) {
    std::string bytes(84 + 50 * records, '\0');
    std::memcpy(bytes.data(), "solid", 5);
    std::memcpy(bytes.data() + 80, &promised, sizeof promised);
    if (records > 0) {
        std::memcpy(bytes.data() + bytes.size() - 2 - sizeof last, &last, sizeof last);
    }
    return bytes;
}

TEST(CheckStl, KnowsBinaryFilesThatBeginLikeText) {
    EXPECT_EQ(refusal(kStl, binaryStl(2, 2)), "");
}

TEST(CheckStl, ComparesThePromisedTrianglesWithTheSizeOfTheFile) {
    EXPECT_EQ(refusal(kStl, binaryStl(13, 12)), "header: it promises 13 triangles, the file has room for 12");
    EXPECT_EQ(refusal(kStl, binaryStl(4294967295U, 1)),
              "header: it promises 4294967295 triangles, the file has room for 1");
    EXPECT_EQ(refusal(kStl, binaryStl(0, 0)), "header: there is no triangle");
}

TEST(CheckStl, NamesTheTriangleThatIsNotFinite) {
    EXPECT_EQ(refusal(kStl, binaryStl(3, 3, std::numeric_limits<float>::quiet_NaN())),
              "triangle 3: a coordinate is not finite");
}

/// A binary PLY file of one vertex of big-endian doubles and one face.
std::string binaryPly(char index) {
    std::string bytes =
        "ply\nformat binary_big_endian 1.0\nelement vertex 1\nproperty double x\nproperty double y\n"
        "property double z\nelement face 1\nproperty list uchar uchar vertex_indices\nend_header\n";
    bytes += std::string("\x3F\xF0\0\0\0\0\0\0", 8) + std::string(16, '\0');
    bytes += std::string("\x03\0\0", 3) + index;
    return bytes;
}

TEST(CheckPly, ReadsBinaryFilesOfBothByteOrders) {
    EXPECT_EQ(refusal(kPly, binaryPly('\0')), "");
    EXPECT_EQ(refusal(kPly, binaryPly('\1')), "face 0: vertex 1 does not exist: there are 1, counted from 0");
}

TEST(CheckPly, NamesTheInstanceAtWhichABinaryFileEnds) {
    const std::string whole = binaryPly('\0');
    EXPECT_EQ(refusal(kPly, whole.substr(0, whole.size() - 1)), "face 0: the file ends here");
    EXPECT_EQ(refusal(kPly, whole.substr(0, whole.size() - 5)), "vertex 0: the file ends here");
}

}  // namespace
