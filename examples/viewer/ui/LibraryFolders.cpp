#include "LibraryFolders.h"

#include <windows.h>

namespace qelview {

void restrictLibraryFolders() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
    // Removes the current folder from the older search order, which some calls still use.
    SetDllDirectoryW(L"");
}

}  // namespace qelview
