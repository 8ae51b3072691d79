#pragma once

namespace qelview {

/// Makes the process search DLLs only in its program's folder and the system's, never in the current folder
/// or on the search path: a model may lie next to a file that only looks like a system DLL. DLLs of the
/// program's import table are loaded before; the loader searches the program's folder first for those.
void restrictLibraryFolders();

}  // namespace qelview
