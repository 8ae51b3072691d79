#include "CameraText.h"

#include <array>
#include <charconv>

namespace qelview {

namespace {

void addLine(std::string& text, const char* name, const qel::XPnt3d& point) {
    text += name;
    for (const double value : {point.x, point.y, point.z}) {
        std::array<char, 64> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        text += " " + std::string(digits.data(), end);
    }
    text += "\n";
}

}  // namespace

std::string cameraText(const qel::XPnt3d& eye, const qel::XPnt3d& target, const qel::XPnt3d& up) {
    std::string text;
    addLine(text, "eye", eye);
    addLine(text, "target", target);
    addLine(text, "up", up);
    return text;
}

}  // namespace qelview
