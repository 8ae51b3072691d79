#include "Start.h"

int main(int count, char** arguments);

/// The entry that the linker writes into a console program.
extern "C" int mainCRTStartup() {
    constexpr int kConsole = 1;
    start::beginProgram(kConsole);
    exit(main(*__p___argc(), *__p___argv()));
}
