#include "Start.h"

// /MD makes the compiler ask for msvcrt.lib alone; that library names the others.
#pragma comment(lib, "vcruntime")
#pragma comment(lib, "ucrt")
#pragma comment(lib, "msvcprt")
#pragma comment(lib, "kernel32")

// The linker sorts the sections by the letters behind the dollar: the compiler's initializers lie between
// these ends.
#pragma section(".CRT$XIA", read)
#pragma section(".CRT$XIZ", read)
#pragma section(".CRT$XCA", read)
#pragma section(".CRT$XCZ", read)

extern "C" {
__declspec(allocate(".CRT$XIA")) CheckedInitializer firstChecked = nullptr;
__declspec(allocate(".CRT$XIZ")) CheckedInitializer lastChecked = nullptr;
__declspec(allocate(".CRT$XCA")) Initializer firstInitializer = nullptr;
__declspec(allocate(".CRT$XCZ")) Initializer lastInitializer = nullptr;

int __cdecl atexit(Initializer function) {
    if (start::isDll) {
        return _register_onexit_function(&start::exitFunctions,
                                         reinterpret_cast<CheckedInitializer>(function));
    }
    return _crt_atexit(function);
}
}

namespace start {

ExitFunctions exitFunctions;
bool isDll = false;

bool initialize() {
    if (_initterm_e(&firstChecked, &lastChecked) != 0) {
        return false;
    }
    _initterm(&firstInitializer, &lastInitializer);
    return true;
}

void beginProgram(int type) {
    constexpr int kWithoutWildcards = 1;
    constexpr int kRefused = 255;
    _set_app_type(type);
    _configure_narrow_argv(kWithoutWildcards);
    _initialize_narrow_environment();
    if (!initialize()) {
        exit(kRefused);
    }
}

}  // namespace start
