#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace qelview {

/// The font of what the viewer says. The display's own font has one size and no letters beyond ASCII. Texts are drawn as pixels, which need
/// no lists of a context: windows and captures look the same.
class ScreenFont {
  public:
    ScreenFont();
    ~ScreenFont();
    ScreenFont(const ScreenFont&) = delete;
    ScreenFont& operator=(const ScreenFont&) = delete;

    /// The font for GDI, as long as this lives.
    [[nodiscard]] HFONT handle(int height);
    /// Width of a text in UTF-8, in pixels.
    /// @param height of the letters in pixels.
    [[nodiscard]] int widthOf(const std::string& text, int height);
    /// Draws a text in OpenGL's current colour over what is there, with the start of its baseline at a distance from the current raster
    /// position. Parts outside the view are cut. Moves the raster position.
    /// @param right, up from the raster position in pixels.
    void print(const std::string& text, int height, int right, int up);

  private:
    /// How much of each pixel the letters cover, rows from bottom to top.
    struct TextImage {
        int width = 0;
        int height = 0;
        /// Rows below the baseline.
        int descent = 0;
        std::vector<std::uint8_t> coverage;
    };

    [[nodiscard]] const TextImage& imageOf(const std::string& text, int height);
    [[nodiscard]] TextImage draw(const std::wstring& text) const;

    HDC memory;
    HGDIOBJ firstFont;
    std::map<int, HFONT> fonts;
    std::map<std::pair<int, std::string>, TextImage> images;
};

}  // namespace qelview
