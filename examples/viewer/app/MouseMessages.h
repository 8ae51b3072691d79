#pragma once

#include <windows.h>

#include <array>

#include "MouseGesture.h"

namespace qelview {

/// The window messages of a mouse button.
struct ButtonMessages {
    MouseButton button;
    UINT down;
    /// Sent instead of the second press of a double click.
    UINT twice;
    UINT up;
    /// The button's flag in the flags of a message.
    WPARAM held;
};

/// In the order of `MouseButton`.
inline constexpr std::array<ButtonMessages, 3> kButtonMessages{{
    {MouseButton::Left, WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_LBUTTONUP, MK_LBUTTON},
    {MouseButton::Middle, WM_MBUTTONDOWN, WM_MBUTTONDBLCLK, WM_MBUTTONUP, MK_MBUTTON},
    {MouseButton::Right, WM_RBUTTONDOWN, WM_RBUTTONDBLCLK, WM_RBUTTONUP, MK_RBUTTON},
}};

}  // namespace qelview
