#pragma once
// Included before libc++'s sources of <filesystem>.
#include <windows.h>
// The member of FILE_DISPOSITION_INFO with this name is renamed by the macro where it is declared, not where
// libc++ uses it.
#undef DeleteFile
#ifndef SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE
#define SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE 2
#endif
