#include "WindowsText.h"

#include <concepts>

namespace qel::test {

namespace {

/// Collects `name=value` pairs between braces.
class Fields {
  public:
    template <std::integral T>
    Fields& always(const char* name, T value) {
        text += (text.empty() ? "" : " ") + std::string(name) + "=" + std::to_string(+value);
        return *this;
    }

    template <std::integral T>
    Fields& unlessZero(const char* name, T value) {
        return value == 0 ? *this : always(name, value);
    }

    std::string braced() const { return "{" + text + "}"; }

  private:
    std::string text;
};

}  // namespace

std::string StructText<POINT>::text(const POINT& point) {
    const LONG numbers[] = {point.x, point.y};
    return valuesText(numbers, 2);
}

std::string StructText<SIZE>::text(const SIZE& size) {
    const LONG numbers[] = {size.cx, size.cy};
    return valuesText(numbers, 2);
}

std::string StructText<RECT>::text(const RECT& rectangle) {
    const LONG numbers[] = {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
    return valuesText(numbers, 4);
}

std::string StructText<PIXELFORMATDESCRIPTOR>::text(const PIXELFORMATDESCRIPTOR& format) {
    return Fields()
        .always("nSize", format.nSize)
        .always("nVersion", format.nVersion)
        .always("dwFlags", format.dwFlags)
        .always("iPixelType", format.iPixelType)
        .always("cColorBits", format.cColorBits)
        .always("cDepthBits", format.cDepthBits)
        .always("iLayerType", format.iLayerType)
        .unlessZero("cRedBits", format.cRedBits)
        .unlessZero("cRedShift", format.cRedShift)
        .unlessZero("cGreenBits", format.cGreenBits)
        .unlessZero("cGreenShift", format.cGreenShift)
        .unlessZero("cBlueBits", format.cBlueBits)
        .unlessZero("cBlueShift", format.cBlueShift)
        .unlessZero("cAlphaBits", format.cAlphaBits)
        .unlessZero("cAlphaShift", format.cAlphaShift)
        .unlessZero("cAccumBits", format.cAccumBits)
        .unlessZero("cAccumRedBits", format.cAccumRedBits)
        .unlessZero("cAccumGreenBits", format.cAccumGreenBits)
        .unlessZero("cAccumBlueBits", format.cAccumBlueBits)
        .unlessZero("cAccumAlphaBits", format.cAccumAlphaBits)
        .unlessZero("cStencilBits", format.cStencilBits)
        .unlessZero("cAuxBuffers", format.cAuxBuffers)
        .unlessZero("bReserved", format.bReserved)
        .unlessZero("dwLayerMask", format.dwLayerMask)
        .unlessZero("dwVisibleMask", format.dwVisibleMask)
        .unlessZero("dwDamageMask", format.dwDamageMask)
        .braced();
}

std::string StructText<DEVMODEW>::text(const DEVMODEW& mode) {
    return Fields()
        .always("dmSize", mode.dmSize)
        .always("dmFields", mode.dmFields)
        .always("dmPelsWidth", mode.dmPelsWidth)
        .always("dmPelsHeight", mode.dmPelsHeight)
        .unlessZero("dmSpecVersion", mode.dmSpecVersion)
        .unlessZero("dmDriverVersion", mode.dmDriverVersion)
        .unlessZero("dmDriverExtra", mode.dmDriverExtra)
        .unlessZero("dmPositionX", mode.dmPosition.x)
        .unlessZero("dmPositionY", mode.dmPosition.y)
        .unlessZero("dmBitsPerPel", mode.dmBitsPerPel)
        .unlessZero("dmDisplayFlags", mode.dmDisplayFlags)
        .unlessZero("dmDisplayFrequency", mode.dmDisplayFrequency)
        .braced();
}

std::string StructText<BITMAPINFO>::text(const BITMAPINFO& info) {
    const BITMAPINFOHEADER& header = info.bmiHeader;
    return Fields()
        .always("biSize", header.biSize)
        .always("biWidth", header.biWidth)
        .always("biHeight", header.biHeight)
        .always("biPlanes", header.biPlanes)
        .always("biBitCount", header.biBitCount)
        .always("biCompression", header.biCompression)
        .unlessZero("biSizeImage", header.biSizeImage)
        .unlessZero("biXPelsPerMeter", header.biXPelsPerMeter)
        .unlessZero("biYPelsPerMeter", header.biYPelsPerMeter)
        .unlessZero("biClrUsed", header.biClrUsed)
        .unlessZero("biClrImportant", header.biClrImportant)
        .braced();
}

std::string StructText<TEXTMETRICW>::text(const TEXTMETRICW& metrics) {
    return Fields().always("tmHeight", metrics.tmHeight).always("tmAscent", metrics.tmAscent).braced();
}

std::string StructText<GLYPHMETRICSFLOAT>::text(const GLYPHMETRICSFLOAT& metrics) {
    const float numbers[] = {metrics.gmfBlackBoxX, metrics.gmfBlackBoxY, metrics.gmfCellIncX,
                             metrics.gmfCellIncY};
    return valuesText(numbers, 4);
}

}  // namespace qel::test
