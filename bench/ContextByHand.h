#pragma once

#include <windows.h>

/// A context and its letters, for the bare forms.

namespace qel::bench {

/// A context for the device context, made current, in its first state.
HGLRC contextByHand(HDC dc, DWORD flags, BYTE colorBits, BYTE depthBits);

/// The letters 32 to 127 as display lists of the current context.
void buildLettersByHand(HDC dc);

}  // namespace qel::bench
