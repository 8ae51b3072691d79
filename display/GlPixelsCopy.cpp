#include "GlPixelsCopy.h"

#include <cstddef>
#include <iterator>

#include "PixelTransferScope.h"

namespace {

struct Store {
    GLenum name;
    GLint plain;
};

constexpr Store kStoreNames[] = {
    {GL_PACK_SWAP_BYTES, 0},   {GL_PACK_LSB_FIRST, 0},   {GL_PACK_ROW_LENGTH, 0},    {GL_PACK_SKIP_ROWS, 0},
    {GL_PACK_SKIP_PIXELS, 0},  {GL_PACK_ALIGNMENT, 4},   {GL_UNPACK_SWAP_BYTES, 0},  {GL_UNPACK_LSB_FIRST, 0},
    {GL_UNPACK_ROW_LENGTH, 0}, {GL_UNPACK_SKIP_ROWS, 0}, {GL_UNPACK_SKIP_PIXELS, 0}, {GL_UNPACK_ALIGNMENT, 4},
};
constexpr std::size_t kPackNames = 6;
struct Map {
    GLenum name;
    GLenum size;
};

constexpr Map kMapNames[] = {
    {GL_PIXEL_MAP_I_TO_I, GL_PIXEL_MAP_I_TO_I_SIZE}, {GL_PIXEL_MAP_S_TO_S, GL_PIXEL_MAP_S_TO_S_SIZE},
    {GL_PIXEL_MAP_I_TO_R, GL_PIXEL_MAP_I_TO_R_SIZE}, {GL_PIXEL_MAP_I_TO_G, GL_PIXEL_MAP_I_TO_G_SIZE},
    {GL_PIXEL_MAP_I_TO_B, GL_PIXEL_MAP_I_TO_B_SIZE}, {GL_PIXEL_MAP_I_TO_A, GL_PIXEL_MAP_I_TO_A_SIZE},
    {GL_PIXEL_MAP_R_TO_R, GL_PIXEL_MAP_R_TO_R_SIZE}, {GL_PIXEL_MAP_G_TO_G, GL_PIXEL_MAP_G_TO_G_SIZE},
    {GL_PIXEL_MAP_B_TO_B, GL_PIXEL_MAP_B_TO_B_SIZE}, {GL_PIXEL_MAP_A_TO_A, GL_PIXEL_MAP_A_TO_A_SIZE},
};

/// Stipple and maps are written with the default pixel store for as long as this lives.
class PlainPacking {
  public:
    explicit PlainPacking(const GLint* stores) : hostStores(stores) {
        for (std::size_t index = 0; index < kPackNames; ++index) {
            if (hostStores[index] != kStoreNames[index].plain) {
                glPixelStorei(kStoreNames[index].name, kStoreNames[index].plain);
            }
        }
    }
    ~PlainPacking() {
        for (std::size_t index = 0; index < kPackNames; ++index) {
            if (hostStores[index] != kStoreNames[index].plain) {
                glPixelStorei(kStoreNames[index].name, hostStores[index]);
            }
        }
    }
    PlainPacking(const PlainPacking&) = delete;
    PlainPacking& operator=(const PlainPacking&) = delete;

  private:
    const GLint* hostStores;
};

}  // namespace

void GlPixelsCopy::take() {
    static_assert(std::size(kStoreNames) == kStores && std::size(kPixelTransfers) == kTransfers &&
                  std::size(kMapNames) == kMaps);
    for (int index = 0; index < kStores; ++index) {
        stores[index] = kStoreNames[index].plain;
        glGetIntegerv(kStoreNames[index].name, &stores[index]);
    }
    for (int index = 0; index < kTransfers; ++index) {
        glGetFloatv(kPixelTransfers[index].name, &transfers[index]);
    }
    glGetFloatv(GL_ZOOM_X, &zoom[0]);
    glGetFloatv(GL_ZOOM_Y, &zoom[1]);
    takeStippleAndMaps();
}

void GlPixelsCopy::takeStippleAndMaps() {
    const PlainPacking packing(stores);
    glGetPolygonStipple(stipple);
    for (int index = 0; index < kMaps; ++index) {
        GLint size = 0;
        glGetIntegerv(kMapNames[index].size, &size);
        maps[index].assign(static_cast<std::size_t>(size > 0 ? size : 0), 0.0F);
        if (size > 0) {
            glGetPixelMapfv(kMapNames[index].name, maps[index].data());
        }
    }
}

void GlPixelsCopy::put() const {
    // Before the pixel store is the host's: the copy has the layout that a new context reads.
    glPolygonStipple(stipple);
    for (int index = 0; index < kMaps; ++index) {
        if (!maps[index].empty()) {
            glPixelMapfv(kMapNames[index].name, static_cast<GLsizei>(maps[index].size()), maps[index].data());
        }
    }
    for (int index = 0; index < kStores; ++index) {
        glPixelStorei(kStoreNames[index].name, stores[index]);
    }
    for (int index = 0; index < kTransfers; ++index) {
        glPixelTransferf(kPixelTransfers[index].name, transfers[index]);
    }
    glPixelZoom(zoom[0], zoom[1]);
}
