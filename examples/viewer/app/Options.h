#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "SceneParts.h"

namespace qelview {

/// Exit codes of the program.
enum class ExitCode : std::uint8_t {
    Success = 0,
    /// The command line, a script or a recording is wrong, or a picture cannot be written.
    Usage = 1,
    /// A file could not be opened.
    BadFile = 2,
    /// No OpenGL context could be created.
    NoContext = 3,
};

/// The command line.
struct Options {
    /// In UTF-8; empty shows the sample scene.
    std::vector<std::string> files;
    /// Size of the view in pixels.
    int width = 1280;
    int height = 800;
    /// True if the command line says so: then the last window's size does not count.
    bool hasSize = false;
    /// One of the eight standard views.
    unsigned view = 6;
    bool isOrthographic = false;
    /// Up axis for formats that do not define one; empty for what was chosen for the file before.
    std::optional<UpAxis> up;
    /// Picture of the view to write, in UTF-8; empty opens a window.
    std::string out;
    /// Prefix of the names of eight pictures, one for each standard view; empty for none.
    std::string viewsOut;
    /// BMP or PNG file of a capture: of the view, and for the key C in a window or script. Empty for none.
    std::string capture;
    /// How many times as large as the view captures are.
    int captureTimes = 1;
    /// Script of mouse and keys; empty for none.
    std::string script;
    /// Recorded six-axis input, replayed in the window; empty for none.
    std::string motion;
    /// Prints how long the steps of a run that writes pictures took.
    bool isTimed = false;
    /// Shows the files as a map instead of a model.
    bool isMap = false;
    /// Prefix of the names of a map's pictures; empty opens a window.
    std::string mapOut;

    /// True if pictures are written instead of opening a window.
    [[nodiscard]] bool writesPictures() const {
        return !out.empty() || !viewsOut.empty() || !mapOut.empty() || (!capture.empty() && script.empty());
    }
    /// True if a user works in the window.
    [[nodiscard]] bool isAttended() const { return !writesPictures() && script.empty(); }
    [[nodiscard]] bool showsMap() const { return isMap || !mapOut.empty(); }
};

/// A text to print and the exit code: help, version, or what is wrong with the command line.
struct Ending {
    ExitCode code = ExitCode::Success;
    std::string text;
};

/// @param arguments in UTF-8, without the program's name.
[[nodiscard]] std::variant<Options, Ending> parseOptions(std::vector<std::string> arguments);

}  // namespace qelview
