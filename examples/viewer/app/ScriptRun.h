#pragma once

#include "Options.h"
#include "Scene.h"
#include "Script.h"

namespace qelview {

class ViewerWindow;

/// Sends the messages of a script's step to a viewer window and lets it draw.
/// @return false if the step's file cannot be written or its recording is invalid; the reason is on standard
/// error.
[[nodiscard]] bool playStep(ViewerWindow& viewer, const ScriptStep& step);

/// Plays the script that the options name in a hidden viewer window, until its end or until it closes the
/// viewer.
[[nodiscard]] ExitCode playScript(const Options& options, Scene scene);

}  // namespace qelview
