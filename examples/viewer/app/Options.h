#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "SceneParts.h"

namespace qelview {

/// How the program ends.
enum class ExitCode : std::uint8_t {
    Success = 0,
    /// The command line, a script or a recording is wrong, or a picture cannot be written.
    Usage = 1,
    /// A file is refused.
    BadFile = 2,
    /// The window gets no OpenGL context.
    NoContext = 3,
};

/// What the command line asks for.
struct Options {
    /// In UTF-8; none shows the sample scene.
    std::vector<std::string> files;
    /// Of the view, in pixels.
    int width = 1280;
    int height = 800;
    /// One of the eight standard views.
    unsigned view = 6;
    bool isOrthographic = false;
    /// Where the format of a file does not say; nothing for what was chosen for the file before.
    std::optional<UpAxis> up;
    /// Picture of the view, in UTF-8; empty opens a window.
    std::string out;
    /// Beginning of the names of eight pictures, one of each standard view; empty for none.
    std::string viewsOut;
    /// Bitmap file of a capture: of the view, and of the key C in a window and in a script. Empty for none.
    std::string capture;
    /// Script of mouse and keys; empty for none.
    std::string script;
    /// Recorded six-axis input, replayed in the window; empty for none.
    std::string motion;
    /// Picture with a tile for each thing that the viewer shows; empty for none.
    std::string tour;
    /// Prints what the parts of a run that writes pictures took.
    bool isTimed = false;
    /// Shows the files as a map instead of a model.
    bool isMap = false;
    /// Beginning of the names of the pictures of a map; empty opens a window.
    std::string mapOut;

    /// True if pictures are wanted instead of a window.
    [[nodiscard]] bool writesPictures() const {
        return !out.empty() || !viewsOut.empty() || !mapOut.empty() || (!capture.empty() && script.empty());
    }
    /// True if somebody is to sit in front of a window.
    [[nodiscard]] bool isAttended() const { return !writesPictures() && script.empty() && tour.empty(); }
    [[nodiscard]] bool showsMap() const { return isMap || !mapOut.empty(); }
};

/// A text to print, and how to end then: the help, the version, or what is wrong with the command line.
struct Ending {
    ExitCode code = ExitCode::Success;
    std::string text;
};

/// @param arguments in UTF-8, without the name of the program.
[[nodiscard]] std::variant<Options, Ending> parseOptions(std::vector<std::string> arguments);

}  // namespace qelview
