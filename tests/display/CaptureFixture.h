#pragma once

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "CacheFixture.h"
#include "kit/Picture.h"

/// What the tests of the capture share: files of their own, the bitmap in such a file, a scene with text.

namespace qel::test {

/// A file name of its own in the folder of temporary files; the file goes with it.
class CaptureFile {
  public:
    CaptureFile() { std::filesystem::remove(path); }
    ~CaptureFile() {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
    CaptureFile(const CaptureFile&) = delete;
    CaptureFile& operator=(const CaptureFile&) = delete;

    QString name() const { return QString::fromStdWString(path.wstring()); }
    bool exists() const { return std::filesystem::exists(path); }
    std::uint64_t size() const { return std::filesystem::file_size(path); }

    std::vector<std::uint8_t> bytes() const { return bytes(0, size()); }

    std::vector<std::uint8_t> bytes(std::uint64_t offset, std::uint64_t count) const {
        std::vector<std::uint8_t> part(count);
        std::ifstream stream(path, std::ios::binary);
        stream.seekg(static_cast<std::streamoff>(offset));
        stream.read(reinterpret_cast<char*>(part.data()), static_cast<std::streamsize>(count));
        part.resize(static_cast<std::size_t>(stream.gcount()));
        return part;
    }

  private:
    static std::filesystem::path nextPath() {
        static int number = 0;
        return std::filesystem::temp_directory_path() /
               ("capture-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++number) + ".bmp");
    }

    std::filesystem::path path = nextPath();
};

inline constexpr std::size_t kBitmapHeader = 54;

/// The little-endian number that stands at a place of a file.
template <class T>
T numberAt(const std::vector<std::uint8_t>& bytes, std::size_t offset) {
    T value{};
    if (offset + sizeof value <= bytes.size()) {
        std::memcpy(&value, bytes.data() + offset, sizeof value);
    }
    return value;
}

/// Bytes of a row as GDI gives it: three for each pixel, and up to the next multiple of four.
inline std::size_t paddedRow(std::uint32_t width) {
    return (std::size_t{width} * 3 + 3) / 4 * 4;
}

/// The picture in a file whose rows need no padding.
inline Picture pictureOf(const CaptureFile& file) {
    const std::vector<std::uint8_t> bytes = file.bytes();
    const int width = numberAt<std::int32_t>(bytes, 18);
    const int height = numberAt<std::int32_t>(bytes, 22);
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::size_t at = kBitmapHeader + static_cast<std::size_t>((y * width + x) * 3);
            picture.set(x, y, {bytes.at(at + 2), bytes.at(at + 1), bytes.at(at), 255});
        }
    }
    return picture;
}

class Capture : public Cache {
  protected:
    /// The extent of the whole view, which fills the bitmap.
    Enve2d wholeView() const { return {0, 0, double(window.width()), double(window.height())}; }

    std::int32_t begin(std::uint32_t width, std::uint32_t height) {
        Enve2d extent = wholeView();
        return display->beginCapture(width, height, &extent, file.name());
    }

    /// What a host draws into a frame: the scene, and text in model and in pixel coordinates.
    void drawHostsScene() {
        drawScene();
        const CallTrace::Pause unrecorded;
        glDisable(GL_DEPTH_TEST);
        glColor3f(1, 1, 0);
        glRasterPos3d(-10, 0, 0);
        display->printText("Model text %d", 7);
        display->setOrtho2D();
        glRasterPos2i(12, 14);
        display->printText("Corner");
        glEnable(GL_DEPTH_TEST);
        camera().updateView();
    }

    /// A frame in the window's back buffer.
    Picture windowFrame() {
        display->beginFrame(0);
        display->beginDraw();
        camera().updateView();
        drawHostsScene();
        display->endDraw();
        return Picture::ofFrame({0, 0, window.width(), window.height()}, GL_BACK);
    }

    CaptureFile file;
};

}  // namespace qel::test
