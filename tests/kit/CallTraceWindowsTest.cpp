#include <windows.h>

#include <gtest/gtest.h>
#include <process.h>

#include <array>
#include <map>
#include <set>
#include <string>

#include "CallTrace.h"
#include "GlSurface.h"
#include "ImportTable.h"
#include "QelGl.h"
#include "TestWindow.h"
#include "WindowsText.h"

namespace qel::test {
namespace {

HDC deviceContext(const GlSurface& surface) {
    return reinterpret_cast<HDC>(surface.dc());
}

TEST(CallTraceOfTheModule, KnowsEveryDrawingFunctionThatTheModuleImports) {
    const std::set<std::string> drawing = {"opengl32.dll", "glu32.dll", "gdi32.dll", "user32.dll"};
    std::size_t checked = 0;
    for (const char* const library : {"QelDisplay64t.dll", "QelGeometry64t.dll"}) {
        HMODULE const module = LoadLibraryA(library);
        ASSERT_NE(module, nullptr) << library;
        for (const Import& import : importsOf(module)) {
            if (drawing.count(import.library) != 0) {
                ++checked;
                EXPECT_TRUE(CallTrace::knows(import.name))
                    << library << " imports " << import.name << " of " << import.library;
            }
        }
        FreeLibrary(module);
    }
    EXPECT_GT(checked, 0U);
}

/// What the module's imports lead to, by name. A census keeps some of them hooked for good, so those are left
/// out.
std::map<std::string, void*> importedBy(HMODULE module) {
    const std::set<std::string> counted = {"wglCreateContext", "wglDeleteContext", "GetDC", "ReleaseDC"};
    std::map<std::string, void*> imported;
    for (const Import& import : importsOf(module)) {
        if (counted.count(import.name) == 0) {
            imported[import.name] = *import.slot;
        }
    }
    return imported;
}

TEST(CallTraceOfTheModule, StandsInTheModulesImportsOnlyWhileItLives) {
    HMODULE const module = LoadLibraryA("QelDisplay64t.dll");
    ASSERT_NE(module, nullptr);
    const std::map<std::string, void*> before = importedBy(module);
    std::map<std::string, void*> during;
    {
        const CallTrace trace;
        during = importedBy(module);
    }
    EXPECT_EQ(importedBy(module), before);
    for (const auto& [name, function] : before) {
        EXPECT_EQ(during[name] != function, CallTrace::knows(name)) << name;
    }
    FreeLibrary(module);
}

TEST(CallTraceUnderWindows, ReadsPixelFormats) {
    const TestWindow window;
    HDC const dc = reinterpret_cast<HDC>(window.dc());
    PIXELFORMATDESCRIPTOR format{};
    format.nSize = sizeof(format);
    format.nVersion = 1;
    format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
    format.cColorBits = 24;
    format.cDepthBits = 24;
    const CallTrace trace;
    EXPECT_GT(ChoosePixelFormat(dc, &format), 0);
    PIXELFORMATDESCRIPTOR described{};
    DescribePixelFormat(dc, 1, sizeof(described), &described);
    EXPECT_TRUE(
        callsMatch(trace.calls("ChoosePixelFormat", "DescribePixelFormat"),
                   {call("ChoosePixelFormat", dc, format), call("DescribePixelFormat", dc, 1, 40, out)}));
    EXPECT_EQ(
        trace.callsOf("ChoosePixelFormat").front(),
        "ChoosePixelFormat(" + addressText(dc) +
            ", {nSize=40 nVersion=1 dwFlags=37 iPixelType=0 cColorBits=24 cDepthBits=24 iLayerType=0})");
}

TEST(CallTraceUnderWindows, ReadsFontsFiguresAndModes) {
    const TestWindow window;
    HDC const dc = reinterpret_cast<HDC>(window.dc());
    const RECT area = {1, 2, 3, 4};
    DEVMODEW mode{};
    mode.dmSize = sizeof(mode);
    mode.dmPelsWidth = 800;
    CallTrace trace;
    trace.answer("ChangeDisplaySettingsW", DISP_CHANGE_BADMODE);
    HFONT const font = CreateFontW(-18, 0, 0, 0, 100, 0, 0, 0, 0, 4, 0, 4, 0, L"Segoe UI");
    FillRect(dc, &area, nullptr);
    MoveToEx(dc, 5, 6, nullptr);
    LineTo(dc, 7, 8);
    EXPECT_EQ(ChangeDisplaySettingsW(&mode, CDS_FULLSCREEN), DISP_CHANGE_BADMODE);
    DeleteObject(font);
    EXPECT_TRUE(
        callsMatch(trace.calls("CreateFont", "FillRect", "MoveTo", "LineTo", "ChangeDisplay", "DeleteObject"),
                   {
                       call("CreateFontW", -18, 0, 0, 0, 100, 0, 0, 0, 0, 4, 0, 4, 0, "Segoe UI"),
                       call("FillRect", dc, area, nullptr),
                       call("MoveToEx", dc, 5, 6, nullptr),
                       call("LineTo", dc, 7, 8),
                       call("ChangeDisplaySettingsW", mode, CDS_FULLSCREEN),
                       call("DeleteObject", font),
                   }));
    EXPECT_EQ(trace.callsOf("FillRect").front(), "FillRect(" + addressText(dc) + ", [1 2 3 4], null)");
    EXPECT_EQ(trace.callsOf("ChangeDisplaySettingsW").front(),
              "ChangeDisplaySettingsW({dmSize=220 dmFields=0 dmPelsWidth=800 dmPelsHeight=0}, 4)");
}

TEST(CallTraceUnderWindows, ReadsBitmapsAsInputAndPixelsAsOutput) {
    const TestWindow window;
    HDC const dc = CreateCompatibleDC(reinterpret_cast<HDC>(window.dc()));
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = 4;
    info.bmiHeader.biHeight = 2;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    void* bits = nullptr;
    std::array<BYTE, 24> pixels{};
    CallTrace trace;
    HBITMAP const bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    EXPECT_EQ(GetDIBits(dc, bitmap, 0, 2, pixels.data(), &info, DIB_RGB_COLORS), 2);
    EXPECT_TRUE(callsMatch(trace.calls("CreateDIB", "GetDIB"),
                           {
                               call("CreateDIBSection", dc, any, DIB_RGB_COLORS, any, nullptr, 0),
                               call("GetDIBits", dc, bitmap, 0, 2, out, any, DIB_RGB_COLORS),
                           }));
    EXPECT_NE(trace.callsOf("CreateDIBSection")
                  .front()
                  .find("{biSize=40 biWidth=4 biHeight=2 biPlanes=1 biBitCount=24 biCompression=0}"),
              std::string::npos);
    DeleteObject(bitmap);
    DeleteDC(dc);
}

TEST(CallTraceUnderWindows, AnswersWithTheErrorThatATestWants) {
    CallTrace trace;
    trace.answerError("CreateFileW", -1, ERROR_DISK_FULL, 1);
    HANDLE const file = CreateFileW(L"nowhere.bmp", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    EXPECT_EQ(file, INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DISK_FULL));
    EXPECT_TRUE(callsMatch(
        trace.calls("CreateFileW", "GetLastError"),
        {
            call("CreateFileW", "nowhere.bmp", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr),
            call("GetLastError"),
        }));
    EXPECT_EQ(GetFileAttributesW(L"nowhere.bmp"), INVALID_FILE_ATTRIBUTES);
}

TEST(CallTraceUnderWindows, LeavesTheLastErrorOfACallAlone) {
    const CallTrace trace;
    EXPECT_EQ(CreateFileW(L"no such folder\\file", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr),
              INVALID_HANDLE_VALUE);
    GetTickCount();
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
}

TEST(CallTraceUnderWindows, AnswersHandlesAndThreads) {
    const GlSurface surface(16, 16);
    CallTrace trace;
    trace.answerPointer("wglCreateContext", nullptr);
    trace.answer("_beginthread", -1);
    EXPECT_EQ(wglCreateContext(deviceContext(surface)), nullptr);
    EXPECT_EQ(_beginthread([](void*) { ADD_FAILURE() << "must not run"; }, 0, nullptr),
              static_cast<uintptr_t>(-1));
    EXPECT_TRUE(callsMatch(trace.calls("wgl", "_begin"), {
                                                             call("wglCreateContext", deviceContext(surface)),
                                                             call("_beginthread", any, 0, nullptr),
                                                         }));
}

TEST(CallTraceUnderWindows, SeesTheDifferenceBetweenAWrittenAndAReadRectangle) {
    const TestWindow window(30, 20);
    HWND const handle = reinterpret_cast<HWND>(window.hwnd());
    const CallTrace trace;
    RECT area{};
    GetClientRect(handle, &area);
    EXPECT_EQ(area.right, 30);
    EXPECT_TRUE(callsMatch(trace.callsOf("GetClientRect"), {call("GetClientRect", handle, out)}));
}

TEST(CallTraceTestWindow, HasTheClientSizeItWasGiven) {
    TestWindow window(123, 45);
    EXPECT_EQ(window.width(), 123);
    EXPECT_EQ(window.height(), 45);
    window.resize(60, 70);
    EXPECT_EQ(window.width(), 60);
    EXPECT_EQ(window.height(), 70);
}

TEST(CallTraceTestWindow, IsHiddenUnlessShown) {
    TestWindow window;
    HWND const handle = reinterpret_cast<HWND>(window.hwnd());
    EXPECT_EQ(IsWindowVisible(handle), FALSE);
    window.show();
    EXPECT_NE(IsWindowVisible(handle), FALSE);
    window.hide();
    EXPECT_EQ(IsWindowVisible(handle), FALSE);
}

TEST(CallTraceTestWindow, KeepsOneDeviceContext) {
    const TestWindow window;
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(GetDC(reinterpret_cast<HWND>(window.hwnd()))), window.dc());
}

}  // namespace
}  // namespace qel::test
