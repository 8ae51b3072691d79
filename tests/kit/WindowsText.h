#pragma once

#include <windows.h>

#include <string>

#include "CallText.h"

/// The structures of the system that stand in traced calls, field by field. Use the same structures in
/// expected calls: `call("FillRect", dc, RECT{0, 0, 10, 10}, brush)`.

namespace qel::test {

template <>
struct StructText<POINT> {
    static constexpr bool kInput = false;
    static std::string text(const POINT& point);
};

template <>
struct StructText<SIZE> {
    static constexpr bool kInput = false;
    static std::string text(const SIZE& size);
};

/// `[left top right bottom]`
template <>
struct StructText<RECT> {
    static constexpr bool kInput = false;
    static std::string text(const RECT& rectangle);
};

/// `{nSize=40 nVersion=1 dwFlags=37 iPixelType=0 cColorBits=24 cDepthBits=32 iLayerType=0}` and further
/// fields that are not zero.
template <>
struct StructText<PIXELFORMATDESCRIPTOR> {
    static constexpr bool kInput = false;
    static std::string text(const PIXELFORMATDESCRIPTOR& format);
};

/// `{dmSize=220 dmFields=1572864 dmPelsWidth=800 dmPelsHeight=600}` and further fields that are not zero.
template <>
struct StructText<DEVMODEW> {
    static constexpr bool kInput = true;
    static std::string text(const DEVMODEW& mode);
};

/// The header, `{biSize=40 biWidth=4 biHeight=4 biPlanes=1 biBitCount=24 biCompression=0}` and further fields
/// that are not zero.
template <>
struct StructText<BITMAPINFO> {
    static constexpr bool kInput = true;
    static std::string text(const BITMAPINFO& info);
};

template <>
struct StructText<TEXTMETRICW> {
    static constexpr bool kInput = false;
    static std::string text(const TEXTMETRICW& metrics);
};

template <>
struct StructText<GLYPHMETRICSFLOAT> {
    static constexpr bool kInput = false;
    static std::string text(const GLYPHMETRICSFLOAT& metrics);
};

}  // namespace qel::test
