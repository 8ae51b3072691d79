#pragma once

#include <optional>
#include <string>

#include "CallText.h"
#include "Operation.h"

namespace qel::bench {

/// The calls of OpenGL, GLU, WGL, GDI and USER of the second run of a form, without addresses.
[[nodiscard]] test::Calls tracedCalls(const Form& form);

/// Nothing if the two forms of the operation make the same calls; else where they part.
[[nodiscard]] std::optional<std::string> differenceOfForms(const Forms& forms);

}  // namespace qel::bench
