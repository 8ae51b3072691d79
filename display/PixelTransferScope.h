#pragma once

#include "QelGl.h"

/// Pixel transfer state of OpenGL, and the value with which it has no effect.
struct PixelTransfer {
    GLenum name;
    GLfloat plain;
};

inline constexpr int kTransfersOfColorAndDepth = 11;
inline constexpr PixelTransfer kPixelTransfers[] = {
    {GL_MAP_COLOR, 0.0F},
    {GL_RED_SCALE, 1.0F},
    {GL_RED_BIAS, 0.0F},
    {GL_GREEN_SCALE, 1.0F},
    {GL_GREEN_BIAS, 0.0F},
    {GL_BLUE_SCALE, 1.0F},
    {GL_BLUE_BIAS, 0.0F},
    {GL_ALPHA_SCALE, 1.0F},
    {GL_ALPHA_BIAS, 0.0F},
    {GL_DEPTH_SCALE, 1.0F},
    {GL_DEPTH_BIAS, 0.0F},
    // Not for colour and depth.
    {GL_MAP_STENCIL, 0.0F},
    {GL_INDEX_SHIFT, 0.0F},
    {GL_INDEX_OFFSET, 0.0F},
};

/// Disables the host's pixel transfer settings for a scope, so that colours and depths are read and drawn
/// unchanged.
class PixelTransferScope {
  public:
    PixelTransferScope() {
        for (int index = 0; index < kTransfersOfColorAndDepth; ++index) {
            const PixelTransfer& transfer = kPixelTransfers[index];
            kept[index] = transfer.plain;
            glGetFloatv(transfer.name, &kept[index]);
            if (kept[index] != transfer.plain) {
                glPixelTransferf(transfer.name, transfer.plain);
            }
        }
    }
    ~PixelTransferScope() {
        for (int index = 0; index < kTransfersOfColorAndDepth; ++index) {
            if (kept[index] != kPixelTransfers[index].plain) {
                glPixelTransferf(kPixelTransfers[index].name, kept[index]);
            }
        }
    }
    PixelTransferScope(const PixelTransferScope&) = delete;
    PixelTransferScope& operator=(const PixelTransferScope&) = delete;

  private:
    GLfloat kept[kTransfersOfColorAndDepth];
};
