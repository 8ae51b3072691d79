#pragma once

#include "Options.h"
#include "Scene.h"
#include "Script.h"

namespace qelview {

class ViewerWindow;

/// Sends the messages that a step of a script means to a viewer window, and lets it draw.
/// @return false if the step has a file that cannot be written, or a recording that is refused; the reason
/// is on standard error.
[[nodiscard]] bool playStep(ViewerWindow& viewer, const ScriptStep& step);

/// Plays the script that the options name in a viewer window that is never shown, until its end or until it
/// leaves the viewer.
[[nodiscard]] ExitCode playScript(const Options& options, Scene scene);

}  // namespace qelview
