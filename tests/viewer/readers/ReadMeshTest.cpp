#include "ReadFormats.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MeshFormats.h"

/// What the readers of meshes say about faults.

namespace {

using qel::test::kObj;
using qel::test::kOff;
using qel::test::kPly;
using qel::test::kStl;
using qel::test::Reader;
using qel::test::refusal;
using qel::test::sceneOf;

struct FileCase {
    const char* name;
    Reader reader;
    const char* content;
    /// What the reader says: the refusal, or a warning; empty if the file is sound.
    const char* expected;
};

class ReadMesh : public testing::TestWithParam<FileCase> {};

TEST_P(ReadMesh, SaysWhatIsWrongAndWhere) {
    EXPECT_EQ(refusal(GetParam().reader, GetParam().content), GetParam().expected);
}

class ReadMeshTolerable : public testing::TestWithParam<FileCase> {};

TEST_P(ReadMeshTolerable, IsShownWithAWarning) {
    const qelview::Scene scene = sceneOf(GetParam().reader, GetParam().content);
    ASSERT_EQ(scene.warnings.size(), 1U);
    EXPECT_EQ(scene.warnings[0], GetParam().expected);
    EXPECT_FALSE(scene.isEmpty());
}

const std::vector<FileCase> kCases{
    {"ObjTriangle", kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n", ""},
    {"ObjRelative", kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf -1 -2 -3\n", ""},
    {"ObjDefinedBelow", kObj, "f 1 2 3\nv 0 0 0\nv 1 0 0\nv 0 1 0\n", ""},
    {"ObjNormals", kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nvn 0 0 1\nf 1//1 2//1 3//1\n", ""},
    {"ObjColours", kObj, "v 0 0 0 1 0.5 0\nv 1 0 0 0 0 0\nv 0 1 0 1 1 1\nf 1 2 3\n", ""},
    {"ObjContinued", kObj, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 \\\n3\n", ""},
    {"ObjZero", kObj, "v 0 0 0\nf 0\n", "line 2: vertex 0 does not exist: numbers begin at 1"},
    {"ObjTooHigh", kObj, "v 0 0 0\nf 1 1 2\n", "line 2: vertex 2 does not exist: the file has 1"},
    {"ObjTooLow", kObj, "v 0 0 0\nf -2\n", "line 2: vertex -2 does not exist: there are 1 above this line"},
    {"ObjNoTexture", kObj, "v 0 0 0\nf 1/1\n", "line 2: texture coordinate 1 does not exist: the file has 0"},
    {"ObjNoNormal", kObj, "v 0 0 0\nf 1//1\n", "line 2: normal 1 does not exist: the file has 0"},
    {"ObjTwoCoordinates", kObj, "v 0 0\n", "line 1: a vertex has 3 coordinates, this one has 2"},
    {"ObjWord", kObj, "v 0 zero 0\n", "line 1: 'zero' is not a number"},
    {"ObjFourParts", kObj, "v 0 0 0\nf 1/1/1/1\n", "line 2: '1/1/1/1' is not a corner of an element"},
    {"ObjWeight", kObj, "v 2 4 6 0\n", "line 1: with its weight, a coordinate is not finite"},
    {"ObjNothing", kObj, "# empty\n", "end of file: there is no vertex"},
    {"PlySound", kPly, PLY_HEAD PLY_FACE "end_header\n0 0 0\n1 0 0\n3 0 1 1\n", ""},
    {"PlyPoints", kPly, PLY_HEAD "end_header\n0 0 0\n1 0 0\n", ""},
    {"PlyNoMagic", kPly, "plx\n", "line 1: a PLY file begins with the line 'ply'"},
    {"PlyNoFormat", kPly, "ply\nelement vertex 1\nproperty float x\nend_header\n",
     "line 4: the header has no format"},
    {"PlyNoZ", kPly,
     "ply\nformat ascii 1.0\nelement vertex 1\nproperty float x\nproperty float y\nend_header\n0 0\n",
     "line 6: vertices have no property 'z'"},
    {"PlyUnknownType", kPly, "ply\nformat ascii 1.0\nelement vertex 1\nproperty quaternion x\n",
     "line 4: unknown type 'quaternion'"},
    {"PlyNegativeCount", kPly, "ply\nformat ascii 1.0\nelement vertex -8\n",
     "line 3: invalid count '-8' of element 'vertex'"},
    {"PlyHugeCount", kPly, "ply\nformat ascii 1.0\nelement vertex 99999999999\n",
     "line 3: invalid count '99999999999' of element 'vertex'"},
    {"PlyEndless", kPly, "ply\nformat ascii 1.0\ncomment nothing\n", "line 3: the header has no end_header"},
    {"PlyShort", kPly, PLY_HEAD "end_header\n0 0 0\n",
     "line 8: the file ends after 1 of 2 instances of element 'vertex'"},
    {"PlyFewValues", kPly, PLY_HEAD "end_header\n0 0 0\n1 0\n", "line 9: too few values"},
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
     "line 12: invalid list length -3.000000"},
    {"PlyElementTwice", kPly, "ply\nformat ascii 1.0\nelement vertex 1\nelement vertex 2\n",
     "line 4: duplicate element 'vertex'"},
    {"PlyPropertyTwice", kPly,
     "ply\nformat ascii 1.0\nelement vertex 1\nproperty float x\nproperty double x\n",
     "line 5: duplicate property 'x'"},
    {"ObjRemark", kObj, "v 0 0 0 # first\nv 1 0 0 # \rsecond\nl 1 2 # both\n", ""},
    {"ObjPassedOver", kObj, "o a\ng b\ns 1\nv 0 0 0\np 1\n", ""},
    {"StlCapitals", kStl,
     "SOLID a\nFACET NORMAL 0 0 1\nOUTER LOOP\nVERTEX 0 0 0\nVERTEX 1 0 0\nVERTEX 0 1 "
     "0\nENDLOOP\nENDFACET\nENDSOLID\n",
     ""},
    {"StlNormalOfNoNumbers", kStl,
     "solid a\nfacet normal nan 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 "
     "0\nendloop\nendfacet\nendsolid\n",
     ""},
    {"StlCut", kStl, "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\n",
     "line 4: the file ends inside a triangle"},
    {"StlTwoCoordinates", kStl, "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0\n",
     "line 4: a vertex has 3 coordinates, this one has 2"},
    {"PlyManyValuesAfterAList", kPly, PLY_HEAD PLY_FACE "end_header\n0 0 0\n1 0 0\n3 0 1 1 0\n",
     "line 12: 5 values where the header declares 4"},
    {"PlyDigitsInTheHeader", kPly, "ply\nformat ascii 1.0\n0 0 0\n",
     "line 3: '0' is not a statement of a PLY header; end_header may be missing"},
    {"OffPlusSign", kOff, "OFF\n1 0 0\n+0 0 0\n", ""},
    {"OffWithoutTheWord", kOff, "3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", ""},
    {"OffNegativeCount", kOff, "OFF\n-3 1 0\n", "line 2: invalid number of vertices: -3"},
    {"OffHalfANormal", kOff, "NOFF\n1 1 0\n0 0 0 1 1\n",
     "line 3: a vertex has 6 coordinates, this one has 5"},
    {"OffNoCorners", kOff, "OFF\n1 1 0\n0 0 0\n0\n", "line 4: a face declares 0 corners and has 0"},
    {"StlSound", kStl,
     "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 "
     "0\nendloop\nendfacet\nendsolid\n",
     ""},
    {"StlTwoCorners", kStl, "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nendloop\n",
     "line 6: a triangle has 3 corners, this one has 2"},
    {"StlOutOfOrder", kStl, "solid a\nvertex 0 0 0\n", "line 2: unexpected 'vertex'"},
    {"StlEmpty", kStl, "solid a\nendsolid a\n", "end of file: there is no triangle"},
    {"StlTiny", kStl, "none", "header: the file has 4 bytes, too few for a binary STL file"},
    {"OffSound", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", ""},
    {"OffCountsBehindTheWord", kOff, "OFF 3 1 3\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", ""},
    {"OffRemarksBeforeTheCounts", kOff,
     "OFF\n# corners, faces\n\n3 1 3\n\n0 0 0\n1 0 0\n0 1 0 # the last\n3 0 1 2\n", ""},
    {"OffRemarkAmongVertices", kOff, "OFF\n3 1 3\n# corners\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", ""},
    {"OffBlanksAmongFaces", kOff, "OFF\n3 2 3\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n  \n3 2 1 0\n", ""},
    {"OffNoWord", kOff, "ON\n3 1 0\n", "line 1: an OFF file begins with the word OFF, COFF, NOFF or CNOFF"},
    {"OffIndex", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 3\n",
     "line 6: vertex 3 does not exist: there are 3, counted from 0"},
    {"OffShort", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n", "line 4: the file ends before vertex 2"},
    {"OffFewCorners", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1\n",
     "line 6: a face declares 3 corners and has 2"},
    {"OffNothing", kOff, "OFF\n0 0 0\n", "line 2: there are no vertices"},
};
INSTANTIATE_TEST_SUITE_P(Of, ReadMesh, testing::ValuesIn(kCases),
                         [](const auto& each) { return each.param.name; });

/// A format whose files are text, and a sound one.
struct TextFormat {
    const char* name;
    Reader reader;
    std::string content;
};

class ReadMeshText : public testing::TestWithParam<TextFormat> {};

TEST_P(ReadMeshText, IsRefusedWithZerosInItOrInUtf16) {
    const auto& [name, reader, content] = GetParam();
    EXPECT_EQ(refusal(reader, content), "");
    // In a comment, where they would do no harm.
    EXPECT_EQ(refusal(reader, content + "#" + std::string(1, '\0')),
              "byte " + std::to_string(content.size() + 1) + ": the file is not text");
    EXPECT_EQ(refusal(reader, "\xFF\xFE" + content),
              "line 1: the file is UTF-16 text; save it as UTF-8 or ASCII");
}

INSTANTIATE_TEST_SUITE_P(Of, ReadMeshText,
                         testing::Values(TextFormat{"Obj", kObj, OBJ_TRIANGLE},
                                         TextFormat{"Off", kOff, "OFF\n1 0 0\n0 0 0\n"},
                                         TextFormat{"Xyz", qelview::readPoints, "1 2 3\n"}),
                         [](const auto& each) { return std::string(each.param.name); });

const std::vector<FileCase> kTolerable{
    {"ObjUnknownStatement", kObj, OBJ_TRIANGLE "frobnicate 7\n", "line 5: unknown statement 'frobnicate'"},
    {"ObjColourAndAlpha", kObj, "v 0 0 0 1 1 1 1\n",
     "line 1: a vertex has 3 coordinates, and a weight or a colour; the rest is ignored"},
    {"ObjTextureOfFour", kObj, OBJ_TRIANGLE "vt 0 0 0 0\n", "line 5: vt with more than 3 values"},
    {"ObjShortFace", kObj, OBJ_TRIANGLE "f 1 2\n", "line 5: a face of fewer than 3 vertices is left out"},
    {"ObjShortLine", kObj, OBJ_TRIANGLE "l 1\n", "line 5: a line of fewer than 2 vertices is left out"},
    {"ObjNoPoint", kObj, OBJ_TRIANGLE "p\n", "line 5: a point of fewer than 1 vertices is left out"},
    {"ObjManyTimes", kObj, OBJ_TRIANGLE "f 1 2\nf 1\nf 3 2\n",
     "line 5: a face of fewer than 3 vertices is left out (3 times)"},
    {"ObjNoLibrary", kObj, "mtllib none.mtl\n" OBJ_TRIANGLE,
     "line 1: the file of materials 'none.mtl' cannot be read"},
    {"ObjNoMaterial", kObj, "usemtl red\n" OBJ_TRIANGLE, "line 1: there is no material 'red'"},
    {"PlyUnknownStatement", kPly,
     "ply\nformat ascii 1.0\nauthor somebody\nelement vertex 1\nproperty float x\nproperty float "
     "y\nproperty float z\nend_header\n0 0 0\n",
     "line 3: unknown statement 'author'"},
    {"PlyExtraColumn", kPly, PLY_HEAD "end_header\n0 0 0\n1 0 0 7\n",
     "line 9: 4 values where the header declares 3"},
    {"PlyShortFace", kPly, PLY_HEAD PLY_FACE "end_header\n0 0 0\n1 0 0\n2 0 1\n",
     "line 12: a face of fewer than 3 vertices is left out"},
    {"StlNoEnd", kStl, "solid a\n" STL_TRIANGLE, "line 8: the line 'endsolid' is missing"},
    {"StlShortNormal", kStl,
     "solid a\nfacet\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 "
     "0\nendloop\nendfacet\nendsolid\n",
     "line 2: too few words for 'facet'"},
    {"StlMoreInALine", kStl,
     "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 "
     "0\nendloop now\nendfacet\nendsolid\n",
     "line 7: too many words for 'endloop'"},
    {"StlFourCoordinates", kStl,
     "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0 1\nvertex 0 1 "
     "0\nendloop\nendfacet\nendsolid\n",
     "line 5: a vertex with more than 3 coordinates"},
    {"OffExtraNumbers", kOff, "OFF\n3 1 0\n0 0 0 9\n1 0 0\n0 1 0\n3 0 1 2\n",
     "line 3: a vertex with more numbers than the first line declares"},
    {"OffColouredFace", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2 255 0 0\n",
     "line 6: colours of faces are left out"},
    {"OffShortFace", kOff, "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n2 0 1\n",
     "line 6: a face of fewer than 3 vertices is left out"},
};
INSTANTIATE_TEST_SUITE_P(Of, ReadMeshTolerable, testing::ValuesIn(kTolerable),
                         [](const auto& each) { return each.param.name; });

}  // namespace
