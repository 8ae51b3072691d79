#include <windows.h>

#include <QString>
#include <cstring>
#include <filesystem>
#include <memory>

#include "AllBenches.h"
#include "CameraByHand.h"
#include "ContextByHand.h"

/// A view drawn into a bitmap and written to a file. The bare form is the shortest one that gives the same
/// file on this machine: it draws into a section of the depth that the driver draws right, takes its buffer
/// for the time of the capture, as the module must, and does not carry the window's state over.

namespace qel::bench {

namespace {

namespace fs = std::filesystem;

constexpr int kViewWidth = 800;
constexpr int kViewHeight = 600;

struct CaptureScene {
    CaptureScene(int widthPx, int heightPx) : width(widthPx), height(heightPx) {}

    Rig rig{kViewWidth, kViewHeight};
    BareView view{rig};
    Enve2d extent{0.0, 0.0, kViewWidth, kViewHeight};
    std::wstring file = (fs::temp_directory_path() / "qel-bench.bmp").wstring();
    int width;
    int height;

    [[nodiscard]] DWORD pixelBytes() const {
        return static_cast<DWORD>(width) * static_cast<DWORD>(height) * 3;
    }
};

BITMAPINFO headerOf(const CaptureScene& scene, WORD bits) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = scene.width;
    info.bmiHeader.biHeight = scene.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = bits;
    return info;
}

void drawViewByHand(const CaptureScene& scene) {
    glViewport(0, 0, scene.width, scene.height);
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(scene.view.fieldOfView, scene.view.width / scene.view.height, scene.view.nearPlane,
                   scene.view.farPlane);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    const BareView& view = scene.view;
    gluLookAt(view.eye.x, view.eye.y, view.eye.z, view.target.x, view.target.y, view.target.z, view.up.x,
              view.up.y, view.up.z);
    setLights(view);
}

void writeFileByHand(const CaptureScene& scene, const std::uint8_t* pixels) {
    constexpr DWORD kHeaders = 54;
    std::uint8_t header[14] = {'B', 'M'};
    const DWORD fileBytes = scene.pixelBytes() + kHeaders;
    std::memcpy(header + 2, &fileBytes, sizeof fileBytes);
    std::memcpy(header + 10, &kHeaders, sizeof kHeaders);
    const BITMAPINFO info = headerOf(scene, 24);
    HANDLE const file = CreateFileW(scene.file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    DWORD written = 0;
    WriteFile(file, header, sizeof header, &written, nullptr);
    WriteFile(file, &info.bmiHeader, sizeof info.bmiHeader, &written, nullptr);
    WriteFile(file, pixels, scene.pixelBytes(), &written, nullptr);
    CloseHandle(file);
}

void captureByHand(CaptureScene& scene) {
    const auto pixels = std::make_unique_for_overwrite<std::uint8_t[]>(scene.pixelBytes());
    HDC const dc = CreateCompatibleDC(scene.view.dc);
    const BITMAPINFO sectionInfo = headerOf(scene, 32);
    void* bits = nullptr;
    HBITMAP const section = CreateDIBSection(dc, &sectionInfo, DIB_RGB_COLORS, &bits, nullptr, 0);
    SelectObject(dc, section);
    wglMakeCurrent(nullptr, nullptr);
    HGLRC const context = contextByHand(dc, PFD_DRAW_TO_BITMAP, 32, 32);
    buildLettersByHand(dc);
    drawViewByHand(scene);
    glFinish();
    BITMAPINFO fileInfo = headerOf(scene, 24);
    GetDIBits(dc, section, 0, static_cast<UINT>(scene.height), pixels.get(), &fileInfo, DIB_RGB_COLORS);
    DeleteDC(dc);
    writeFileByHand(scene, pixels.get());
    DeleteObject(section);
    wglMakeCurrent(nullptr, nullptr);
    wglDeleteContext(context);
    makeCurrent(scene.view);
    glViewport(0, 0, kViewWidth, kViewHeight);
    loadCamera(scene.view);
}

Forms captureForms(int width, int height) {
    const auto scene = std::make_shared<CaptureScene>(width, height);
    Forms forms;
    forms.hasOwnCost = false;
    forms.module = repeated([scene] {
        IQelDisplay& display = scene->rig.display();
        display.beginCapture(static_cast<std::uint32_t>(scene->width),
                             static_cast<std::uint32_t>(scene->height), &scene->extent,
                             QString::fromStdWString(scene->file));
        display.saveBitmap();
    });
    forms.bare = repeated([scene] { captureByHand(*scene); });
    return forms;
}

}  // namespace

void addCaptureBenches(Operations& all) {
    all.push_back(
        {"capture at 4096 x 4096", "capture", Kind::Capture,
         [](Size size) { return size == Size::Full ? captureForms(4096, 4096) : captureForms(64, 64); },
         false});
    all.push_back(
        {"capture at 800 x 600", "capture", Kind::Capture,
         [](Size size) { return size == Size::Full ? captureForms(800, 600) : captureForms(64, 48); },
         false});
}

}  // namespace qel::bench
