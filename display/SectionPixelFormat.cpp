#include "SectionPixelFormat.h"

namespace {

/// A section holds blue, green, red: red stands 16 bits up.
constexpr BYTE kRedShiftOfSection = 16;

bool hasSameDepths(const PIXELFORMATDESCRIPTOR& a, const PIXELFORMATDESCRIPTOR& b) {
    return a.cColorBits == b.cColorBits && a.cDepthBits == b.cDepthBits && a.iPixelType == b.iPixelType;
}

}  // namespace

int chooseSectionPixelFormat(HDC deviceContext, const PIXELFORMATDESCRIPTOR& wanted) {
    const int chosen = ChoosePixelFormat(deviceContext, &wanted);
    if (chosen == 0) {
        return 0;
    }
    PIXELFORMATDESCRIPTOR found{};
    const int count = DescribePixelFormat(deviceContext, chosen, sizeof found, &found);
    if (count == 0 || found.cRedShift == kRedShiftOfSection) {
        return chosen;
    }
    for (int index = 1; index <= count; ++index) {
        PIXELFORMATDESCRIPTOR other{};
        if (DescribePixelFormat(deviceContext, index, sizeof other, &other) != 0 &&
            (other.dwFlags & wanted.dwFlags) == wanted.dwFlags && (other.dwFlags & PFD_DOUBLEBUFFER) == 0 &&
            hasSameDepths(found, other) && other.cRedShift == kRedShiftOfSection) {
            return index;
        }
    }
    return chosen;
}
