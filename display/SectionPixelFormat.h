#pragma once

#include "QelSystem.h"

/// Chooses a pixel format for a memory device context with a 24-bit section; 0 if there is none.
///
/// Some systems answer a format whose channels stand in the opposite order of the section's, and red and blue
/// come out swapped. Then the format with the same depths and the section's order is taken; a choice that is
/// right stays.
[[nodiscard]] int chooseSectionPixelFormat(HDC deviceContext, const PIXELFORMATDESCRIPTOR& wanted);
