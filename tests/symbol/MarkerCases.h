#pragma once

#include <array>
#include <cmath>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "SymbolFixture.h"
#include "host/HostGeometries.h"

namespace qel::test {

/// A marker that is drawn within the guards of its style, and what it draws there.
struct MarkerCase {
    std::string name;
    std::uint32_t parameter;
    std::function<std::int32_t(IQelSymbol&, const MarkerStyle&)> draw;
    Calls drawn;
    /// OpenGL state that it leaves changed.
    std::vector<std::string> leaves = {};
};

inline void PrintTo(const MarkerCase& marker, std::ostream* stream) {
    *stream << marker.name;
}

/// Coordinates without symmetry, so that no two of them can change places unseen.
inline const XPnt3d kFrom(1.0, 2.0, 3.0);
inline const XPnt3d kTo(4.0, 6.0, 8.0);
inline const XPnt3d kCenter(10.0, 20.0, 30.0);
inline const Enve2d kRect(1.0, 2.0, 5.0, 7.0);
inline const Enve3d kBox{1.0, 5.0, 2.0, 7.0, 3.0, 9.0};

/// The rectangle's loop: five corners, the first one again at the end.
inline Calls rectLoop(double z) {
    return primitive(GL_LINE_LOOP,
                     {{1.0, 2.0, z}, {5.0, 2.0, z}, {5.0, 7.0, z}, {1.0, 7.0, z}, {1.0, 2.0, z}});
}

inline Calls circleStrip(const XPnt3d& center, double radius) {
    Calls all{call("glBegin", GL_LINE_STRIP)};
    float angle = 0.0F;
    for (int i = 0; i < 22; ++i) {
        const auto radians = static_cast<double>(angle);
        all.push_back(call("glVertex3f", static_cast<float>(std::sin(radians) * radius + center.x),
                           static_cast<float>(std::cos(radians) * radius + center.y), 0));
        angle += 0.3F;
    }
    all.push_back(call("glEnd"));
    return all;
}

inline ref_ptr<IQelArray<XPnt3d>> threePoints() {
    return {new VectorArray<XPnt3d>({{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}, {7.0, 8.0, 10.0}})};
}

/// Every marker that scopes colour, width or size, lighting and depth test in the common way.
std::vector<MarkerCase> markerCases();

}  // namespace qel::test
