#pragma once

#include <windows.h>

#include <array>

#include "MouseGesture.h"

namespace qelview {

/// What the system sends for a mouse button.
struct ButtonMessages {
    MouseButton button;
    UINT down;
    /// In place of the second press of two.
    UINT twice;
    UINT up;
    /// Among the keys that a message says are held.
    WPARAM held;
};

/// In the order of `MouseButton`.
inline constexpr std::array<ButtonMessages, 3> kButtonMessages{{
    {MouseButton::Left, WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_LBUTTONUP, MK_LBUTTON},
    {MouseButton::Middle, WM_MBUTTONDOWN, WM_MBUTTONDBLCLK, WM_MBUTTONUP, MK_MBUTTON},
    {MouseButton::Right, WM_RBUTTONDOWN, WM_RBUTTONDBLCLK, WM_RBUTTONUP, MK_RBUTTON},
}};

}  // namespace qelview
