#include "PlainModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "ViewerData.h"

namespace {

using Plain = qelview::PlainModel (*)(std::string, const std::filesystem::path&,
                                      const qelview::ProgressStretch&);

std::string plainTextOf(Plain plain, const std::string& content) {
    qelview::Progress progress;
    return plain(content, "nowhere/model", qelview::ProgressStretch(progress, 0.0, 1.0)).model;
}

std::string refusal(Plain plain, const std::string& content) {
    return qel::test::refusalOf([&] { return plainTextOf(plain, content); });
}

struct FileCase {
    const char* name;
    Plain plain;
    const char* content;
    /// The refusal, empty if the file is sound; or the plain text.
    const char* expected;
};

class MeshFile : public testing::TestWithParam<FileCase> {};

TEST_P(MeshFile, SaysWhatIsWrongAndWhere) {
    EXPECT_EQ(refusal(GetParam().plain, GetParam().content), GetParam().expected);
}

constexpr Plain kObj = qelview::plainObj;
constexpr Plain kPly = qelview::plainPly;
constexpr Plain kStl = qelview::plainStl;
constexpr Plain kOff = qelview::plainOff;

#define PLY_HEAD \
    "ply\nformat ascii 1.0\nelement vertex 2\nproperty float x\nproperty float y\nproperty float z\n"
#define PLY_FACE "element face 1\nproperty list uchar int vertex_indices\n"

const std::vector<FileCase> kCases{
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
    {"ObjWeight", kObj, "v 2 4 6 0\n", "line 1: with its weight, a coordinate is not finite"},
    {"ObjColourAndAlpha", kObj, "v 0 0 0 1 1 1 1\n",
     "line 1: a vertex has 3 coordinates, and a weight or a colour; this one has 7 values"},
    {"ObjShortLine", kObj, "v 0 0 0\nl 1\n", "line 2: a line with one vertex"},
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
    {"PlyIndexIsNoNumber", kPly,
     PLY_HEAD
     "element face 1\nproperty list uchar float vertex_indices\nend_header\n0 0 0\n1 0 0\n3 0 1 nan\n",
     "line 12: vertex without a number does not exist: there are 2, counted from 0"},
    {"PlyNotFinite", kPly, PLY_HEAD "end_header\n0 0 inf\n1 0 0\n", "line 8: the coordinate z is not finite"},
    {"PlyNegativeLength", kPly, PLY_HEAD PLY_FACE "end_header\n0 0 0\n1 0 0\n-3 0 1 1\n",
     "line 12: a list cannot have -3.000000 values"},
    {"PlyElementTwice", kPly, "ply\nformat ascii 1.0\nelement vertex 1\nelement vertex 2\n",
     "line 4: element 'vertex' is there already"},
    {"PlyPropertyTwice", kPly,
     "ply\nformat ascii 1.0\nelement vertex 1\nproperty float x\nproperty double x\n",
     "line 5: property 'x' is there already"},
    {"PlyNoCorners", kPly, PLY_HEAD PLY_FACE "end_header\n0 0 0\n1 0 0\n0\n",
     "line 12: a face without corners"},
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
    {"StlControlCharacter", kStl, "solid a\ffacet\n", "line 1: there is a control character"},
    {"StlEmpty", kStl, "solid a\nendsolid a\n", "end of file: there is no triangle"},
    {"StlTiny", kStl, "none", "header: the file has 4 bytes, too few for a binary STL file"},
    {"OffSound", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", ""},
    {"OffCountsBehindTheWord", kOff, "OFF 3 1 3\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", ""},
    {"OffRemarksBeforeTheCounts", kOff,
     "OFF\n# corners, faces\n\n3 1 3\n\n0 0 0\n1 0 0\n0 1 0 # the last\n3 0 1 2\n", ""},
    {"OffPlusSign", kOff, "OFF\n1 1 0\n+0 0 0\n+1 0\n", ""},
    {"OffRemarkAmongVertices", kOff, "OFF\n3 1 3\n# corners\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", ""},
    {"OffBlanksAmongFaces", kOff, "OFF\n3 2 3\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n  \n3 2 1 0\n", ""},
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
INSTANTIATE_TEST_SUITE_P(Of, MeshFile, testing::ValuesIn(kCases),
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

TEST(StlFile, KnowsBinaryFilesThatBeginLikeText) {
    EXPECT_EQ(refusal(kStl, binaryStl(2, 2)), "");
}

TEST(StlFile, ComparesThePromisedTrianglesWithTheSizeOfTheFile) {
    EXPECT_EQ(refusal(kStl, binaryStl(13, 12)), "header: it promises 13 triangles, the file has room for 12");
    EXPECT_EQ(refusal(kStl, binaryStl(4294967295U, 1)),
              "header: it promises 4294967295 triangles, the file has room for 1");
    EXPECT_EQ(refusal(kStl, binaryStl(0, 0)), "header: there is no triangle");
}

TEST(StlFile, NamesTheTriangleThatIsNotFinite) {
    EXPECT_EQ(refusal(kStl, binaryStl(3, 3, std::numeric_limits<float>::quiet_NaN())),
              "triangle 3: a coordinate is not finite");
}

/// A binary PLY file of the vertex (1, 0, 0) in doubles and one face.
std::string binaryPly(char index, bool isBigEndian = true) {
    std::string one("\x3F\xF0\0\0\0\0\0\0", 8);
    if (!isBigEndian) {
        std::reverse(one.begin(), one.end());
    }
    return std::string("ply\nformat binary_") + (isBigEndian ? "big" : "little") +
           "_endian 1.0\nelement vertex 1\nproperty double x\nproperty double y\n"
           "property double z\nelement face 1\nproperty list uchar uchar vertex_indices\nend_header\n" +
           one + std::string(16, '\0') + std::string("\x03\0\0", 3) + index;
}

/// A number of a plain PLY file, counted from the first one of its vertices.
double plyNumber(const std::string& plain, std::size_t index) {
    const std::string end = "end_header\r\n";
    double number = 0.0;
    std::memcpy(&number, plain.data() + plain.find(end) + end.size() + index * sizeof number, sizeof number);
    return number;
}

TEST(PlyFile, ReadsBinaryFilesOfBothByteOrders) {
    for (const bool isBigEndian : {true, false}) {
        EXPECT_EQ(plyNumber(plainTextOf(kPly, binaryPly('\0', isBigEndian)), 0), 1.0);
    }
    EXPECT_EQ(refusal(kPly, binaryPly('\1')), "face 0: vertex 1 does not exist: there are 1, counted from 0");
}

TEST(PlyFile, NamesTheInstanceAtWhichABinaryFileEnds) {
    const std::string whole = binaryPly('\0');
    EXPECT_EQ(refusal(kPly, whole.substr(0, whole.size() - 1)), "face 0: the file ends here");
    EXPECT_EQ(refusal(kPly, whole.substr(0, whole.size() - 5)), "vertex 0: the file ends here");
}

class PlainText : public testing::TestWithParam<FileCase> {};

TEST_P(PlainText, HoldsWhatIsShownAndNothingElse) {
    EXPECT_EQ(plainTextOf(GetParam().plain, GetParam().content), GetParam().expected);
}

const std::vector<FileCase> kTexts{
    {"ObjRelativeNumbers", kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf -1/ -2 -3\nv 9 9 9\nl -1 1\n",
     "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 9 9 9\nf 3 2 1\nl 4 1\n"},
    {"ObjNormalsOfWholeFaces", kObj, "vt 0 0\nv 1 2 3\nvn 0 0 1\nf 1/1/1 1//1 1//1\nf 1//1 1 1\n",
     "v 1 2 3\nvn 0 0 1\nf 1//1 1//1 1//1\nf 1 1 1\n"},
    {"ObjWhiteWhereOthersHaveColours", kObj, "v 0 0 0\nv 1 0 0 1 0 0.5\nv 2 0 0\np 1 2 3\n",
     "v 0 0 0 1 1 1\nv 1 0 0 1 0 5e-01\nv 2 0 0 1 1 1\np 1 2 3\n"},
    {"ObjWeights", kObj, "v 2 4 6 2\n", "v 1 2 3\n"},
    {"ObjGroupsThatHoldSomething", kObj, "o none\ng  two words # told\nv 0 0 0\nusemtl red\ns 1\nf 1 1 1\n",
     "v 0 0 0\ng two words\nusemtl DefaultMaterial\nf 1 1 1\n"},
    {"OffWithoutRemarks", kOff, "COFF # told\n1 1 5\n\n0.25 -1e2 3 255 128\n+1 0 7 7\n",
     "COFF\n1 1 0\n2.5e-01 -100 3 255 128 0 1\n1 0\n"},
    {"OffNormals", kOff, "CNOFF\n1 1 0\n1 2 3 0 0 1 0.5 0 0 1\n1 0\n",
     "CNOFF\n1 1 0\n1 2 3 0 0 1 5e-01 0 0 1\n1 0\n"},
    {"StlSolids", kStl,
     "solid empty\nendsolid\nsolid part one\nfacet normal nan 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\n"
     "vertex 0 1 0\nendloop\nendfacet\nendsolid part\n",
     "solid part\nfacet normal 0 0 0\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 "
     "0\nendloop\nendfacet\nendsolid\n"},
};
INSTANTIATE_TEST_SUITE_P(Of, PlainText, testing::ValuesIn(kTexts),
                         [](const auto& each) { return each.param.name; });

TEST(PlyFile, BecomesVerticesAndFacesInBinary) {
    const std::string plain = plainTextOf(
        kPly,
        "ply\nformat ascii 1.0\nelement other 1\nproperty list uchar int junk\nelement vertex 2\n"
        "property uchar red\nproperty float z\nproperty float y\nproperty float x\nproperty float "
        "nz\nelement face 1\nproperty int tag\nproperty list uchar int vertex_index\nend_header\n"
        "2 7 8\n255 3 2 1 0.5\n51 6 5 4 1e300\n9 3 0 1 0\n");
    const std::string head =
        "ply\nformat binary_little_endian 1.0\nelement vertex 2\nproperty double x\nproperty double "
        "y\nproperty double z\nproperty double nx\nproperty double ny\nproperty double nz\n"
        "property double red\nproperty double green\nproperty double blue\n"
        "element face 1\nproperty list uint uint vertex_indices\nend_header\r\n";
    ASSERT_EQ(plain.size(), head.size() + 2 * 9 * sizeof(double) + 4 * sizeof(std::uint32_t));
    EXPECT_EQ(plain.substr(0, head.size()), head);
    const std::vector<double> expected{1, 2, 3, 0, 0, 0.5, 1, 0, 0, 4, 5, 6, 0, 0, 1e300, 0.2, 0, 0};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(plyNumber(plain, i), expected[i]) << i;
    }
}

TEST(PlyFile, HasNotThousandsOfNames) {
    std::string elements = "ply\nformat ascii 1.0\n";
    std::string properties = elements + "element vertex 1\n";
    for (int i = 0; i <= 1000; ++i) {
        elements += "element e" + std::to_string(i) + " 1\n";
        properties += "property float p" + std::to_string(i) + "\n";
    }
    EXPECT_EQ(refusal(kPly, elements), "line 1003: there are more than 1000 elements or properties");
    EXPECT_EQ(refusal(kPly, properties), "line 1004: there are more than 1000 elements or properties");
}

TEST(PlyFile, TurnsStripsIntoTriangles) {
    const std::string plain =
        plainTextOf(kPly, PLY_HEAD
                    "element tristrips 1\nproperty list int int vertex_indices\nend_header\n"
                    "0 0 0\n1 0 0\n8 0 1 0 1 -1 1 0 1\n");
    const std::vector<std::uint32_t> expected{3, 0, 1, 0, 3, 0, 1, 1, 3, 1, 0, 1};
    std::vector<std::uint32_t> faces(expected.size());
    ASSERT_GT(plain.size(), faces.size() * 4);
    std::memcpy(faces.data(), plain.data() + plain.size() - faces.size() * 4, faces.size() * 4);
    EXPECT_EQ(faces, expected);
}

TEST(PlyFile, PassesElementsWithoutPropertiesOverHoweverMany) {
    EXPECT_EQ(refusal(kPly,
                      "ply\nformat binary_little_endian 1.0\nelement none 2147483648\nelement vertex 1\n"
                      "property uchar x\nproperty uchar y\nproperty uchar z\nend_header\n123"),
              "");
}

}  // namespace
