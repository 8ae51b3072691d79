#include <windows.h>

#include <climits>

// What the compiler's code for thread_local and for static locals asks of the runtime.

#pragma section(".tls", read, write)
#pragma section(".tls$ZZZ", read, write)
#pragma section(".CRT$XLA", read)
#pragma section(".CRT$XLZ", read)
#pragma section(".rdata$T", read)

extern "C" {

ULONG _tls_index = 0;
__declspec(allocate(".tls")) char _tls_start = 0;
__declspec(allocate(".tls$ZZZ")) char _tls_end = 0;
__declspec(allocate(".CRT$XLA")) PIMAGE_TLS_CALLBACK beforeCallbacks = nullptr;
__declspec(allocate(".CRT$XLZ")) PIMAGE_TLS_CALLBACK afterCallbacks = nullptr;

/// The linker writes the directory of thread-local data from the symbol with this name.
__declspec(allocate(".rdata$T")) extern const IMAGE_TLS_DIRECTORY64 _tls_used;
const IMAGE_TLS_DIRECTORY64 _tls_used = {reinterpret_cast<ULONGLONG>(&_tls_start),
                                         reinterpret_cast<ULONGLONG>(&_tls_end),
                                         reinterpret_cast<ULONGLONG>(&_tls_index),
                                         reinterpret_cast<ULONGLONG>(&beforeCallbacks + 1),
                                         0,
                                         0};

/// A static local is ready for a thread if its state is not above the thread's epoch.
int _Init_global_epoch = INT_MIN;
__declspec(thread) int _Init_thread_epoch = INT_MIN;
}

namespace {

constexpr int kNotMade = 0;
constexpr int kBeingMade = -1;

SRWLOCK lock = SRWLOCK_INIT;
CONDITION_VARIABLE changed = CONDITION_VARIABLE_INIT;

void finish(int* state, bool isMade) {
    AcquireSRWLockExclusive(&lock);
    *state = isMade ? ++_Init_global_epoch : kNotMade;
    _Init_thread_epoch = _Init_global_epoch;
    ReleaseSRWLockExclusive(&lock);
    WakeAllConditionVariable(&changed);
}

}  // namespace

extern "C" {

/// Leaves `kBeingMade` to the one thread that is to make the static.
void _Init_thread_header(int* state) {
    AcquireSRWLockExclusive(&lock);
    while (*state == kBeingMade) {
        SleepConditionVariableSRW(&changed, &lock, INFINITE, 0);
    }
    if (*state == kNotMade) {
        *state = kBeingMade;
    } else {
        _Init_thread_epoch = _Init_global_epoch;
    }
    ReleaseSRWLockExclusive(&lock);
}

void _Init_thread_footer(int* state) {
    finish(state, true);
}

/// The constructor threw: the next thread tries again.
void _Init_thread_abort(int* state) {
    finish(state, false);
}
}
