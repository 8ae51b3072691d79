#pragma once

#include <vector>

#include "HostTextures.h"
#include "PartsInView.h"
#include "QelArrayElements.h"
#include "QelHostKit.h"
#include "QelRefPtr.h"

namespace qelview {

template <class Element>
using HostElements = qel::ref_ptr<qel::HostArray<Element>>;

/// What one view of a scene keeps from frame to frame. Views of the same scene have one each.
struct HostView {
    /// The corners of a mesh that the last frame drew if it did not draw all, and the ranges that they are of.
    struct MeshCorners {
        HostElements<qel::ArrayIndex> drawn;
        std::vector<DrawnRange> ranges;
    };

    /// Forgets everything; the view's context must be current.
    void release() {
        textures.release();
        meshes.clear();
        clouds.clear();
    }

    HostTextures textures;
    std::vector<MeshCorners> meshes;
    /// The points of each cloud that the last frame showed, in the order in which it drew them.
    std::vector<HostElements<qel::ArrayIndex>> clouds;
};

}  // namespace qelview
