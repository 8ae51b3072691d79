#pragma once

namespace qelview {

/// From now on the process finds DLLs in its program's folder and in the system's, never in the current
/// folder or on the search path: a model may lie beside a file that only looks like a DLL of the system. What
/// the program names in its import table is already loaded by then; the loader looks for that in the
/// program's folder first.
void restrictLibraryFolders();

}  // namespace qelview
