#pragma once
// GoogleTest tells the debugging runtime where to report; Wine's header lacks the functions, and there is no
// such runtime.
#include_next <crtdbg.h>
#include <stdlib.h>
#ifndef _CRTDBG_FILE_STDERR
#define _CRTDBG_FILE_STDERR ((void*)-5)
#endif
#ifndef _CrtSetReportFile
#define _CrtSetReportFile(type, file) ((void)(file))
#endif
