#include "ScreenFont.h"

#include <array>

#include "QelGl.h"
#include "SystemWindow.h"

namespace qelview {

namespace {

constexpr const wchar_t* kFace = L"Segoe UI";
/// Coordinates under the mouse are another text with each move.
constexpr std::size_t kMostImages = 400;

/// Blends what is drawn in the current colour over what is there, and restores all that for it.
class BlendScope {
  public:
    BlendScope() {
        std::array<GLfloat, 4> color{};
        glGetFloatv(GL_CURRENT_COLOR, color.data());
        glPushAttrib(GL_COLOR_BUFFER_BIT | GL_ENABLE_BIT | GL_PIXEL_MODE_BIT);
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        constexpr std::array<GLenum, 4> kOff{GL_TEXTURE_2D, GL_LIGHTING, GL_DEPTH_TEST, GL_ALPHA_TEST};
        for (const GLenum off : kOff) {
            glDisable(off);
        }
        // Pixels of alpha alone are black: this adds the colour.
        glPixelTransferf(GL_RED_BIAS, color[0]);
        glPixelTransferf(GL_GREEN_BIAS, color[1]);
        glPixelTransferf(GL_BLUE_BIAS, color[2]);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    }
    ~BlendScope() {
        glPopClientAttrib();
        glPopAttrib();
    }
    BlendScope(const BlendScope&) = delete;
    BlendScope& operator=(const BlendScope&) = delete;
};

}  // namespace

ScreenFont::ScreenFont()
    : memory(CreateCompatibleDC(nullptr)), firstFont(GetCurrentObject(memory, OBJ_FONT)) {
    SetTextColor(memory, RGB(255, 255, 255));
    SetBkColor(memory, RGB(0, 0, 0));
}

ScreenFont::~ScreenFont() {
    SelectObject(memory, firstFont);
    for (const auto& [height, font] : fonts) {
        DeleteObject(font);
    }
    DeleteDC(memory);
}

HFONT ScreenFont::handle(int height) {
    HFONT& font = fonts[height];
    if (font == nullptr) {
        font = CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS,
                           CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, 0, kFace);
    }
    return font;
}

int ScreenFont::widthOf(const std::string& text, int height) {
    SelectObject(memory, handle(height));
    const std::wstring wide = toWide(text);
    SIZE size{};
    GetTextExtentPoint32W(memory, wide.c_str(), static_cast<int>(wide.size()), &size);
    return size.cx;
}

void ScreenFont::print(const std::string& text, int height, int right, int up) {
    const TextImage& image = imageOf(text, height);
    if (image.coverage.empty()) {
        return;
    }
    const BlendScope scope;
    // Moved by a bitmap of no size, the raster position stays valid outside the view.
    glBitmap(0, 0, 0.0F, 0.0F, static_cast<GLfloat>(right), static_cast<GLfloat>(up - image.descent),
             nullptr);
    glDrawPixels(image.width, image.height, GL_ALPHA, GL_UNSIGNED_BYTE, image.coverage.data());
}

const ScreenFont::TextImage& ScreenFont::imageOf(const std::string& text, int height) {
    const auto found = images.find({height, text});
    if (found != images.end()) {
        return found->second;
    }
    if (images.size() >= kMostImages) {
        images.clear();
    }
    SelectObject(memory, handle(height));
    return images.emplace(std::pair(height, text), draw(toWide(text))).first->second;
}

ScreenFont::TextImage ScreenFont::draw(const std::wstring& text) const {
    const int length = static_cast<int>(text.size());
    SIZE size{};
    GetTextExtentPoint32W(memory, text.c_str(), length, &size);
    TEXTMETRICW metrics{};
    GetTextMetricsW(memory, &metrics);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = size.cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    HBITMAP const bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    TextImage image{size.cx, size.cy, metrics.tmDescent, {}};
    if (bitmap != nullptr) {
        HGDIOBJ const before = SelectObject(memory, bitmap);
        TextOutW(memory, 0, 0, text.c_str(), length);
        GdiFlush();
        const auto* const bytes = static_cast<const std::uint8_t*>(pixels);
        const std::size_t count = static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy);
        image.coverage.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            // White letters on black: green, the middle of three, is how much is covered.
            image.coverage.push_back(bytes[4 * i + 1]);
        }
        SelectObject(memory, before);
        DeleteObject(bitmap);
    }
    return image;
}

}  // namespace qelview
