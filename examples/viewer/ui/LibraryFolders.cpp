#include "LibraryFolders.h"

#include <windows.h>

namespace qelview {

void restrictLibraryFolders() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
    // Takes the current folder from the older way of searching, which some calls still ask for.
    SetDllDirectoryW(L"");
}

}  // namespace qelview
