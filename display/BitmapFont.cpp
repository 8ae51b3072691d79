#include "BitmapFont.h"

#include <cstring>

#include "QelGl.h"

namespace {

constexpr GLuint kFirstCharacter = 32;
constexpr GLsizei kCharacters = 96;
/// Negative: the height of the characters, not of the line.
constexpr int kCharacterHeight = -18;

HFONT createFont() {
    return CreateFontW(kCharacterHeight, 0, 0, 0, FW_THIN, FALSE, FALSE, FALSE, ANSI_CHARSET, OUT_TT_PRECIS,
                       CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, 0, L"Segoe UI");
}

/// Some drivers refuse an empty bitmap and leave an error that the host did not cause. If an error of the
/// host was pending, OpenGL has kept that one: it is raised again.
void clearOwnError() {
    switch (glGetError()) {
        case GL_INVALID_ENUM:
            glEnable(GL_NONE);
            break;
        case GL_INVALID_VALUE:
            glLineWidth(-1.0F);
            break;
        case GL_INVALID_OPERATION:
        case GL_STACK_OVERFLOW:
        case GL_STACK_UNDERFLOW:
            glEnd();
            break;
        default:
            break;
    }
}

/// Some drivers refuse the empty bitmap that the system compiles for a character without ink, and words run
/// together. All accept one with a pointer.
void recordSpace(HDC deviceContext, GLuint list) {
    constexpr GLubyte kNoInk[] = {0};
    clearOwnError();
    INT advance = 0;
    GetCharWidth32W(deviceContext, kFirstCharacter, kFirstCharacter, &advance);
    glNewList(list, GL_COMPILE);
    glBitmap(0, 0, 0.0F, 0.0F, static_cast<GLfloat>(advance), 0.0F, kNoInk);
    glEndList();
}

/// Compiles the glyphs of a font as lists. Without a font it compiles none: the system would use its own
/// font.
void recordGlyphs(HDC deviceContext, HFONT font, GLuint listBase) {
    const HGDIOBJ previous = font != nullptr ? SelectObject(deviceContext, font) : nullptr;
    if (previous == nullptr) {
        return;
    }
    if (wglUseFontBitmapsW(deviceContext, kFirstCharacter, kCharacters, listBase) != FALSE) {
        recordSpace(deviceContext, listBase);
    }
    SelectObject(deviceContext, previous);
}

}  // namespace

BitmapFont::BitmapFont(const ContextBinding& current) : listBase(glGenLists(kCharacters)), home(current) {
    // Without lists of our own the glyphs would overwrite lists of the host.
    if (listBase == 0) {
        return;
    }
    const HFONT font = createFont();
    recordGlyphs(home.dc, font, listBase);
    DeleteObject(font);
}

void BitmapFont::draw(const char* text) const {
    // A base of 0 would wrap around to whatever lists the host has.
    if (listBase == 0) {
        return;
    }
    glPushAttrib(GL_LIST_BIT);
    glListBase(listBase - kFirstCharacter);
    glCallLists(static_cast<GLsizei>(std::strlen(text)), GL_UNSIGNED_BYTE, text);
    glPopAttrib();
}

void BitmapFont::follow(const ContextBinding& binding) noexcept {
    if (isIn(binding.rc)) {
        home = binding;
    }
}

void BitmapFont::destroy() {
    if (listBase != 0 && home.makeCurrent()) {
        glDeleteLists(listBase, kCharacters);
    }
    listBase = 0;
}
