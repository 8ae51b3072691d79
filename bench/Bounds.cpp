#include "Bounds.h"

namespace qel::bench {

Bound boundOf(Kind kind) {
    switch (kind) {
        case Kind::Mesh:
            return {1.02, 1000.0};
        case Kind::Cloud:
        case Kind::FrameOfMesh:
        case Kind::FrameOfCloud:
        case Kind::SceneInParts:
            return {1.02, 0.0};
        case Kind::Polyline:
        case Kind::Polygon:
            return {1.10, 120.0};
        case Kind::Marker:
            return {1.10, 150.0};
        case Kind::Ball:
        case Kind::CameraLoad:
        case Kind::FrameOfPolylines:
        case Kind::Projection:
        case Kind::Gdi:
        case Kind::Growth:
            return {1.10, 0.0};
        case Kind::FrameBracket:
        case Kind::Capture:
            return {1.05, 0.0};
        case Kind::SceneInView:
            return {0.05, 0.0};
        case Kind::PlanarLoad:
            return {0.0, 100.0};
        case Kind::Drag:
            return {0.0, 3000.0};
        case Kind::Text:
        case Kind::Fit:
        case Kind::Arithmetic:
        case Kind::Start:
            return {};
    }
    return {};
}

}  // namespace qel::bench
