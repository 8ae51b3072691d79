#include "ArraysOfAHost.h"

namespace qel::test {

namespace {

/// The arrays of a mesh, normals in both forms.
struct MeshOfAHost {
    const char* name = "";
    ref_ptr<IQelArray<ArrayVertex>> vertices;
    ref_ptr<IQelArray<ArrayIndex>> indices;
    ref_ptr<IQelArray<ArrayNormal3b>> byteNormals;
    ref_ptr<IQelArray<ArrayNormal4f>> floatNormals;
    ref_ptr<IQelArray<ArrayColor4f>> colors;
    ref_ptr<IQelArray<ArrayTexCoord2f>> texCoords;
};

/// A square of two triangles with everything a mesh can have.
MeshOfAHost fullMesh() {
    return {"full",
            arrayOf<ArrayVertex>(4),
            indicesOf(6, 4),
            arrayOf<ArrayNormal3b>(4),
            arrayOf<ArrayNormal4f>(4),
            arrayOf<ArrayColor4f>(4),
            arrayOf<ArrayTexCoord2f>(4)};
}

template <class Element>
const void* memory(const ref_ptr<IQelArray<Element>>& array) {
    return array->data();
}

class SymbolMeshes : public SymbolTest {
  protected:
    SymbolMeshes() {
        // Modes of the host's that no mesh here draws with.
        glShadeModel(GL_FLAT);
        glPolygonMode(GL_FRONT, GL_POINT);
        glPolygonMode(GL_BACK, GL_FILL);
        glGenTextures(1, &texture);
        glBindTexture(GL_TEXTURE_2D, texture);
        glBindTexture(GL_TEXTURE_2D, 0);
    }
    ~SymbolMeshes() override { glDeleteTextures(1, &texture); }

    std::int32_t drawMesh(const MeshOfAHost& mesh, std::uint32_t textureName = 0) {
        return symbol->drawMesh(mesh.vertices, mesh.indices, mesh.byteNormals, mesh.colors, mesh.texCoords,
                                textureName, GL_SMOOTH, GL_LINE, GL_POINT, style);
    }
    std::int32_t drawIndexedMesh(const MeshOfAHost& mesh, std::uint32_t textureName = 0) {
        return symbol->drawIndexedMesh(mesh.vertices, mesh.indices, mesh.floatNormals, mesh.colors,
                                       mesh.texCoords, textureName, GL_SMOOTH, GL_LINE, GL_POINT, style);
    }

    /// The guards and modes around a mesh.
    Calls inMeshStyle(const Calls& drawn) const {
        Calls all = HostState::beginSwitch(GL_LIGHTING, style.lighting);
        append(all, HostState::beginSwitch(GL_DEPTH_TEST, style.depthTest));
        append(all, HostState::beginSize(GL_LINE_WIDTH, style.width));
        append(all, HostState::beginSize(GL_POINT_SIZE, style.width));
        append(all, HostState::beginSwitch(GL_TEXTURE_2D, false));
        append(all, {call("glGetIntegerv", GL_SHADE_MODEL, out), call("glShadeModel", GL_SMOOTH),
                     call("glGetIntegerv", GL_POLYGON_MODE, out), call("glPolygonMode", GL_FRONT, GL_LINE),
                     call("glPolygonMode", GL_BACK, GL_POINT)});
        append(all, drawn);
        append(all, {call("glShadeModel", GL_FLAT), call("glPolygonMode", GL_FRONT, GL_POINT),
                     call("glPolygonMode", GL_BACK, GL_FILL), callToSwitch(GL_TEXTURE_2D, false),
                     host.endSize(GL_POINT_SIZE), host.endSize(GL_LINE_WIDTH), host.endDepthTest(),
                     host.endLighting()});
        return all;
    }

    static Calls beginArray(std::uint32_t state, const std::string& pointerCall) {
        return {call("glEnableClientState", state), pointerCall};
    }
    static Calls beginVertices(const MeshOfAHost& mesh) {
        return beginArray(GL_VERTEX_ARRAY, call("glVertexPointer", 3, GL_FLOAT, 28, memory(mesh.vertices)));
    }
    static Calls beginColors(const MeshOfAHost& mesh) {
        return beginArray(GL_COLOR_ARRAY, call("glColorPointer", 3, GL_FLOAT, 16, memory(mesh.colors)));
    }
    static Calls beginTexture(const MeshOfAHost& mesh, std::uint32_t name) {
        return {call("glIsTexture", name), call("glEnable", GL_TEXTURE_2D),
                call("glEnableClientState", GL_TEXTURE_COORD_ARRAY),
                call("glTexCoordPointer", 2, GL_FLOAT, 8, memory(mesh.texCoords)),
                call("glBindTexture", GL_TEXTURE_2D, name)};
    }
    static Calls endArrays(std::initializer_list<std::uint32_t> states) {
        Calls all;
        for (const std::uint32_t state : states) {
            all.push_back(call("glDisableClientState", state));
        }
        return all;
    }
    static std::string drawIndices(const MeshOfAHost& mesh) {
        return call("glDrawElements", GL_TRIANGLES, mesh.indices->count(), GL_UNSIGNED_INT,
                    memory(mesh.indices));
    }

    MeshStyle style{.lighting = false, .depthTest = true, .width = 2.5F};
    GLuint texture = 0;
};

TEST_F(SymbolMeshes, DrawMeshDrawsVerticesAloneThreeByThree) {
    MeshOfAHost mesh;
    mesh.vertices = arrayOf<ArrayVertex>(6);
    const CallTrace trace;

    EXPECT_EQ(drawMesh(mesh), 0);

    Calls drawn = beginVertices(mesh);
    append(drawn, {call("glIsTexture", 0), call("glDrawArrays", GL_TRIANGLES, 0, 6)});
    append(drawn, endArrays({GL_VERTEX_ARRAY}));
    append(drawn, {call("glIsTexture", 0)});
    EXPECT_TRUE(callsMatch(trace.glCalls(), inMeshStyle(drawn)));
}

TEST_F(SymbolMeshes, DrawMeshTakesByteNormalsColoursTextureAndIndices) {
    const MeshOfAHost mesh = fullMesh();
    const CallTrace trace;

    EXPECT_EQ(drawMesh(mesh, texture), 0);

    Calls drawn = beginVertices(mesh);
    append(drawn, beginArray(GL_NORMAL_ARRAY, call("glNormalPointer", GL_BYTE, 3, memory(mesh.byteNormals))));
    append(drawn, beginColors(mesh));
    append(drawn, beginTexture(mesh, texture));
    append(drawn, {drawIndices(mesh)});
    append(drawn, endArrays({GL_VERTEX_ARRAY, GL_NORMAL_ARRAY, GL_COLOR_ARRAY}));
    append(drawn, {call("glIsTexture", texture)});
    append(drawn, endArrays({GL_TEXTURE_COORD_ARRAY}));
    EXPECT_TRUE(callsMatch(trace.glCalls(), inMeshStyle(drawn)));
}

TEST_F(SymbolMeshes, DrawIndexedMeshTakesFloatNormalsColoursTextureAndIndices) {
    const MeshOfAHost mesh = fullMesh();
    const CallTrace trace;

    EXPECT_EQ(drawIndexedMesh(mesh, texture), 0);

    Calls drawn = beginVertices(mesh);
    append(drawn,
           beginArray(GL_NORMAL_ARRAY, call("glNormalPointer", GL_FLOAT, 16, memory(mesh.floatNormals))));
    append(drawn, beginColors(mesh));
    append(drawn, beginTexture(mesh, texture));
    append(drawn, {drawIndices(mesh)});
    append(drawn, endArrays({GL_VERTEX_ARRAY, GL_NORMAL_ARRAY, GL_COLOR_ARRAY}));
    append(drawn, {call("glIsTexture", texture)});
    append(drawn, endArrays({GL_TEXTURE_COORD_ARRAY}));
    EXPECT_TRUE(callsMatch(trace.glCalls(), inMeshStyle(drawn)));
}

TEST_F(SymbolMeshes, DrawIndexedMeshWithoutIndicesSetsEverythingAndDrawsNothing) {
    MeshOfAHost mesh;
    mesh.vertices = arrayOf<ArrayVertex>(6);
    const CallTrace trace;

    EXPECT_EQ(drawIndexedMesh(mesh), 0);

    Calls drawn = beginVertices(mesh);
    append(drawn, {call("glIsTexture", 0)});
    append(drawn, endArrays({GL_VERTEX_ARRAY}));
    append(drawn, {call("glIsTexture", 0)});
    EXPECT_TRUE(callsMatch(trace.glCalls(), inMeshStyle(drawn)));
}

TEST_F(SymbolMeshes, EachOptionalArrayIsUsedOnlyIfGiven) {
    MeshOfAHost onlyNormals = fullMesh();
    onlyNormals.colors.reset();
    onlyNormals.texCoords.reset();
    MeshOfAHost onlyColors = fullMesh();
    onlyColors.byteNormals.reset();
    onlyColors.floatNormals.reset();
    onlyColors.texCoords.reset();
    for (const MeshOfAHost& mesh : {onlyNormals, onlyColors}) {
        const std::uint32_t expectedState = mesh.colors ? GL_COLOR_ARRAY : GL_NORMAL_ARRAY;
        const CallTrace trace;
        drawMesh(mesh, texture);
        drawIndexedMesh(mesh, texture);
        const Calls enabled{call("glEnableClientState", GL_VERTEX_ARRAY),
                            call("glEnableClientState", expectedState)};
        Calls twice = enabled;
        append(twice, enabled);
        EXPECT_TRUE(callsMatch(trace.callsOf("glEnableClientState"), twice));
        Calls disabled = endArrays({GL_VERTEX_ARRAY, expectedState});
        append(disabled, disabled);
        EXPECT_TRUE(callsMatch(trace.callsOf("glDisableClientState"), disabled));
        EXPECT_EQ(trace.count("glBindTexture"), 0U);
    }
}

TEST_F(SymbolMeshes, ATextureThatDoesNotExistIsNotUsed) {
    const MeshOfAHost mesh = fullMesh();
    const GLuint missing = texture + 1000;
    ASSERT_EQ(glIsTexture(missing), GL_FALSE);
    for (const bool indexed : {false, true}) {
        const CallTrace trace;
        EXPECT_EQ(indexed ? drawIndexedMesh(mesh, missing) : drawMesh(mesh, missing), 0);
        EXPECT_EQ(trace.count("glIsTexture"), 2U);
        EXPECT_EQ(trace.count("glBindTexture"), 0U);
        EXPECT_EQ(trace.count("glTexCoordPointer"), 0U);
        EXPECT_EQ(trace.count("glDrawElements"), 1U);
    }
}

TEST_F(SymbolMeshes, StyleSwitchesLightingAndDepthTest) {
    MeshOfAHost mesh;
    mesh.vertices = arrayOf<ArrayVertex>(3);
    style.lighting = true;
    style.depthTest = false;
    const CallTrace trace;
    drawMesh(mesh);
    Calls drawn = beginVertices(mesh);
    append(drawn, {call("glIsTexture", 0), call("glDrawArrays", GL_TRIANGLES, 0, 3)});
    append(drawn, endArrays({GL_VERTEX_ARRAY}));
    append(drawn, {call("glIsTexture", 0)});
    EXPECT_TRUE(callsMatch(trace.glCalls(), inMeshStyle(drawn)));
}

TEST_F(SymbolMeshes, AnIndexArrayWithoutIndicesIsAMeshWithoutTriangles) {
    MeshOfAHost mesh = fullMesh();
    mesh.indices = indicesOf(0);
    for (const bool indexed : {false, true}) {
        const CallTrace trace;
        EXPECT_EQ(indexed ? drawIndexedMesh(mesh) : drawMesh(mesh), 0);
        EXPECT_EQ(trace.callsOf("glDrawElements"),
                  (Calls{call("glDrawElements", GL_TRIANGLES, 0, GL_UNSIGNED_INT, nullptr)}));
        EXPECT_EQ(trace.count("glDrawArrays"), 0U);
    }
}

MeshOfAHost broken(const char* name, const std::function<void(MeshOfAHost&)>& breakIt) {
    MeshOfAHost mesh = fullMesh();
    mesh.name = name;
    breakIt(mesh);
    return mesh;
}

template <class Element>
ref_ptr<IQelArray<Element>> hollow(std::int32_t claimed) {
    return {new HollowArray<Element>(claimed)};
}

std::vector<MeshOfAHost> brokenMeshes() {
    std::vector<MeshOfAHost> all{
        broken("no vertices", [](MeshOfAHost& m) { m.vertices.reset(); }),
        broken("no vertex",
               [](MeshOfAHost& m) {
                   m = {};
                   m.vertices = arrayOf<ArrayVertex>(0);
               }),
        broken("negative vertices", [](MeshOfAHost& m) { m.vertices = countingBackwards<ArrayVertex>(-4); }),
        broken("vertices without memory", [](MeshOfAHost& m) { m.vertices = hollow<ArrayVertex>(4); }),
        broken("one index", [](MeshOfAHost& m) { m.indices = indicesOf(1, 4); }),
        broken("two indices", [](MeshOfAHost& m) { m.indices = indicesOf(2, 4); }),
        broken("seven indices", [](MeshOfAHost& m) { m.indices = indicesOf(7, 4); }),
        broken("negative indices", [](MeshOfAHost& m) { m.indices = countingBackwards<ArrayIndex>(-3); }),
        broken("indices without memory", [](MeshOfAHost& m) { m.indices = hollow<ArrayIndex>(3); }),
        broken("normals without memory",
               [](MeshOfAHost& m) {
                   m.byteNormals = hollow<ArrayNormal3b>(4);
                   m.floatNormals = hollow<ArrayNormal4f>(4);
               }),
        broken("colours without memory", [](MeshOfAHost& m) { m.colors = hollow<ArrayColor4f>(4); }),
        broken("texture coordinates without memory",
               [](MeshOfAHost& m) { m.texCoords = hollow<ArrayTexCoord2f>(4); }),
    };
    for (const std::size_t count : {0U, 3U, 5U}) {
        all.push_back(broken("other count of normals", [count](MeshOfAHost& m) {
            m.byteNormals = arrayOf<ArrayNormal3b>(count);
            m.floatNormals = arrayOf<ArrayNormal4f>(count);
        }));
        all.push_back(broken("other count of colours",
                             [count](MeshOfAHost& m) { m.colors = arrayOf<ArrayColor4f>(count); }));
        all.push_back(broken("other count of texture coordinates",
                             [count](MeshOfAHost& m) { m.texCoords = arrayOf<ArrayTexCoord2f>(count); }));
    }
    return all;
}

void expectAllGivenBack(const MeshOfAHost& mesh) {
    const QelReferenced* const arrays[] = {mesh.vertices.get(),    mesh.indices.get(),
                                           mesh.byteNormals.get(), mesh.floatNormals.get(),
                                           mesh.colors.get(),      mesh.texCoords.get()};
    for (const QelReferenced* const array : arrays) {
        if (array != nullptr) {
            EXPECT_EQ(array->referenceCount(), 1) << mesh.name;
        }
    }
}

TEST_F(SymbolMeshes, ThatBreakARuleAreRefusedBeforeAnyCallAndGivenBack) {
    for (const MeshOfAHost& mesh : brokenMeshes()) {
        // The table's own copies are gone by now: one reference is the case's.
        const CallTrace trace;
        EXPECT_EQ(static_cast<std::uint32_t>(drawMesh(mesh, texture)), 0xFFFFFFFFU) << mesh.name;
        EXPECT_EQ(static_cast<std::uint32_t>(drawIndexedMesh(mesh, texture)), 0xFFFFFFFFU) << mesh.name;
        EXPECT_TRUE(callsMatch(trace.glCalls(), {})) << mesh.name;
        expectAllGivenBack(mesh);
    }
}

TEST_F(SymbolMeshes, ThatAreDrawnAreGivenBack) {
    const MeshOfAHost mesh = fullMesh();
    EXPECT_EQ(drawMesh(mesh, texture), 0);
    EXPECT_EQ(drawIndexedMesh(mesh, texture), 0);
    expectAllGivenBack(mesh);
}

}  // namespace

}  // namespace qel::test
