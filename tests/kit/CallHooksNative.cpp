#include <pthread.h>

#include "CallHook.h"

/// The linker gives every call of a traced function NAME to __wrap_NAME and calls the function itself
/// __real_NAME. The signature of the hook follows from the declaration of NAME, which leaves no place to
/// write a body of __wrap_NAME with named parameters; so the loader asks `qelHookOf_NAME` for the address of
/// the hook.

#define QEL_TRACED_WINDOWS(name, ...)
#define QEL_TRACED_GL(name, ...)                                                    \
    extern "C" decltype(name) __real_##name;                                        \
    namespace qel::test::rules {                                                    \
    using HookOf_##name = CallHook<Traced::k_##name, __VA_ARGS__, decltype(&name)>; \
    }                                                                               \
    template <>                                                                     \
    decltype(&name) qel::test::rules::HookOf_##name::original = &__real_##name;     \
    extern "C" auto qelHookOf_##name()->decltype(&name) {                           \
        return &qel::test::rules::HookOf_##name::call;                              \
    }                                                                               \
    extern "C" [[gnu::ifunc("qelHookOf_" #name)]] decltype(name) __wrap_##name;
#include "TracedFunctions.def"

namespace qel::test {

KeptLastError::KeptLastError() : value(0) {}

KeptLastError::~KeptLastError() = default;

std::uintptr_t currentThread() {
    return pthread_self();
}

void installHooks() {}

void removeHooks() {}

}  // namespace qel::test
