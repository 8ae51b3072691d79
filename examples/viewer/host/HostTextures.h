#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <tuple>

#include "Texture.h"

namespace qelview {

/// The textures of a scene in one OpenGL context, made when they are first drawn. OpenGL 1.1 is enough.
///
/// The names live as long as their context, unless they are released: nothing is deleted at the end, when the
/// context may be gone.
class HostTextures {
  public:
    HostTextures() = default;
    HostTextures(const HostTextures&) = delete;
    HostTextures& operator=(const HostTextures&) = delete;
    HostTextures(HostTextures&&) = default;
    HostTextures& operator=(HostTextures&&) = default;

    /// The name of a texture, always of the same context, which must be current. Images are scaled to powers
    /// of two that the driver takes. Leaves any texture bound. 0 if OpenGL has no memory for it.
    [[nodiscard]] std::uint32_t nameOf(const Texture& texture);
    /// Deletes all textures; their context must be current.
    void release();

  private:
    /// Keeps the image, so that no other one gets its address.
    using Key = std::tuple<std::shared_ptr<const TextureImage>, Wrapping, Wrapping, bool>;

    std::map<Key, std::uint32_t> names;
};

}  // namespace qelview
