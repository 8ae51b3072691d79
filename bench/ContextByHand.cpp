#include "ContextByHand.h"

#include <stdexcept>

#include "QelGl.h"

namespace qel::bench {

HGLRC contextByHand(HDC dc, DWORD flags, BYTE colorBits, BYTE depthBits) {
    PIXELFORMATDESCRIPTOR format{};
    format.nSize = sizeof format;
    format.nVersion = 1;
    format.dwFlags = flags | PFD_SUPPORT_OPENGL;
    format.iPixelType = PFD_TYPE_RGBA;
    format.cColorBits = colorBits;
    format.cDepthBits = depthBits;
    format.iLayerType = PFD_MAIN_PLANE;
    if (SetPixelFormat(dc, ChoosePixelFormat(dc, &format), &format) == FALSE) {
        throw std::runtime_error("the device context takes no pixel format");
    }
    HGLRC const context = wglCreateContext(dc);
    wglMakeCurrent(dc, context);
    glShadeModel(GL_SMOOTH);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glCullFace(GL_BACK);
    glEnable(GL_AUTO_NORMAL);
    glEnable(GL_NORMALIZE);
    glEnable(GL_TEXTURE_2D);
    glClearDepth(1.0);
    glEnable(GL_DEPTH_TEST);
    return context;
}

void buildLettersByHand(HDC dc) {
    constexpr DWORD kFirst = 32;
    constexpr DWORD kCount = 96;
    constexpr GLubyte kNoInk[] = {0};
    const GLuint lists = glGenLists(kCount);
    HFONT const font = CreateFontW(-18, 0, 0, 0, FW_THIN, FALSE, FALSE, FALSE, ANSI_CHARSET, OUT_TT_PRECIS,
                                   CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, 0, L"Segoe UI");
    HGDIOBJ const previous = SelectObject(dc, font);
    wglUseFontBitmapsW(dc, kFirst, kCount, lists);
    INT advance = 0;
    GetCharWidth32W(dc, kFirst, kFirst, &advance);
    glNewList(lists, GL_COMPILE);
    glBitmap(0, 0, 0.0F, 0.0F, static_cast<GLfloat>(advance), 0.0F, kNoInk);
    glEndList();
    SelectObject(dc, previous);
    DeleteObject(font);
}

}  // namespace qel::bench
