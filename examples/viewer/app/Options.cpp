#include "Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>

#include "Commands.h"
#include "MotionFile.h"
#include "ReadFile.h"
#include "Script.h"

namespace qelview {

namespace {

constexpr int kSmallestSide = 16;
constexpr int kLargestSide = 8192;

std::string inputHelp() {
    constexpr std::size_t kColumn = 18;
    std::string help;
    for (const HelpLine& line : kHelpLines) {
        std::string input(line.input);
        input.resize(kColumn, ' ');
        help += "  " + input + std::string(line.meaning) + "\n";
    }
    return help;
}

constexpr std::string_view kFilesHelp = R"(
  Meshes show polygons, normals, vertex colours and materials; missing normals are computed.
  Point files have lines of 'x y z' or 'x y z red green blue' (0 to 255), separated by blanks,
  commas or semicolons; a first line may name the columns. A column of times makes the points
  a path, drawn as a line. Without a file a sample scene is shown.

Views: 0 top, 1 bottom, 2 back, 3 front, 4 right, 5 left, 6 isometric, 7 isometric from below.

In the window:
)";

constexpr std::string_view kWindowHelp =
    R"(  The menu has the same commands. The last eight file names, and size and projection of
  the last window, are stored in the registry, under HKEY_CURRENT_USER\Software\QelDisplay64t\qelview;
  runs without a window store nothing.

In the window of a map (--map): 1 GDI, 2 OpenGL, 3 three dimensions, F fit, Esc quit; drag to
  pan, turn the wheel to zoom at the cursor. Without a file a generated map is shown.

Scripts control a hidden window. Positions count from the upper left. Each line is one of:
)";

constexpr std::string_view kExitHelp = R"(
Exit codes: 0 success; 1 wrong command line, script or recording, or a picture was not written;
  2 a file could not be opened (the reason is on standard error); 3 no OpenGL context.)";

std::string helpFooter() {
    std::string help = "Files: " + knownExtensions();
    help.append(kFilesHelp).append(inputHelp()).append(kWindowHelp).append(scriptHelp());
    help.append("\nRecorded six-axis input:\n").append(motionHelp()).append(kExitHelp);
    return help;
}

std::optional<std::pair<int, int>> parseSize(const std::string& text) {
    std::istringstream stream(text);
    int width = 0;
    int height = 0;
    char cross = '\0';
    stream >> std::noskipws >> width >> cross >> height;
    const bool isSize = cross == 'x' && stream.peek() == std::istringstream::traits_type::eof() &&
                        std::min(width, height) >= kSmallestSide && std::max(width, height) <= kLargestSide;
    return isSize ? std::optional(std::pair(width, height)) : std::nullopt;
}

void addWindowOptions(CLI::App& app, Options& options) {
    app.add_option("--capture", options.capture,
                   "Capture the view to a BMP or PNG file and exit; with --script, the file for the key C")
        ->type_name("FILE");
    app.add_option("--capture-size", options.captureTimes,
                   "How many times as large as the view captures are (1)")
        ->check(CLI::IsMember({1, 2, 4}))
        ->type_name("1|2|4");
    CLI::Option* const script =
        app.add_option("--script", options.script, "Play a script of mouse and keys and exit")
            ->type_name("FILE");
    app.add_option("--motion", options.motion, "Replay recorded six-axis input in the window")
        ->type_name("FILE")
        ->excludes(script)
        ->excludes("--out")
        ->excludes("--views-out")
        ->excludes("--capture");
}

void addMapOptions(CLI::App& app, Options& options) {
    CLI::Option* const map =
        app.add_flag("--map", options.isMap, "Show the files as a map: by GDI, by OpenGL, in 3D");
    CLI::Option* const out =
        app.add_option("--map-out", options.mapOut,
                       "Write pictures PREFIX-gdi.png, PREFIX-gl.png and PREFIX-3d.png of the map and exit")
            ->type_name("PREFIX");
    for (const char* const ofModels : {"--capture", "--script", "--motion"}) {
        map->excludes(app.get_option(ofModels));
        out->excludes(app.get_option(ofModels));
    }
}

void addOptions(CLI::App& app, Options& options) {
    app.add_option("FILE", options.files, "Files to show together");
    app.add_option_function<std::string>(
           "--size",
           [&options](const std::string& text) {
               const auto size = parseSize(text);
               if (!size) {
                   throw CLI::ValidationError("--size",
                                              "'" + text + "' is not WIDTHxHEIGHT with 16 to 8192 pixels");
               }
               std::tie(options.width, options.height) = *size;
               options.hasSize = true;
           },
           "Size of the view in pixels (that of the last window, else 1280x800)")
        ->type_name("WxH");
    app.add_option("--view", options.view, "Standard view to start with (6)")
        ->check(CLI::Range(0, 7))
        ->type_name("N");
    app.add_flag("--ortho", options.isOrthographic, "Orthographic instead of perspective");
    app.add_option_function<std::string>(
           "--up", [&options](const std::string& axis) { options.up = axis == "y" ? UpAxis::Y : UpAxis::Z; },
           "Axis that points up, for formats that do not define one (z)")
        ->check(CLI::IsMember({"y", "z"}))
        ->type_name("y|z");
    app.add_option("--out", options.out, "Write a picture of the view and exit")->type_name("FILE.png");
    app.add_flag("--times", options.isTimed, "With --out, print how long each step took");
    app.add_option("--views-out", options.viewsOut,
                   "Write pictures PREFIX0.png to PREFIX7.png of the eight standard views and exit")
        ->type_name("PREFIX");
    addWindowOptions(app, options);
    addMapOptions(app, options);
}

}  // namespace

std::variant<Options, Ending> parseOptions(std::vector<std::string> arguments) {
    Options options;
    CLI::App app("qelview shows 3D models, point files and maps.", "qelview");
    // A slash starts a path, on Windows too.
    app.allow_windows_style_options(false);
    addOptions(app, options);
    app.footer(helpFooter());
    app.set_version_flag("--version", "qelview " QELVIEW_VERSION);
    // The library reads them from the end.
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return Ending{ExitCode::Success, app.help()};
    } catch (const CLI::CallForVersion&) {
        return Ending{ExitCode::Success, app.version() + "\n"};
    } catch (const CLI::ParseError& error) {
        return Ending{ExitCode::Usage, std::string("qelview: ") + error.what() + " (see --help)\n"};
    }
    return options;
}

}  // namespace qelview
