#pragma once
// libc++'s threads include the small headers of the Windows SDK; Wine has one large one.
#include <windows.h>
