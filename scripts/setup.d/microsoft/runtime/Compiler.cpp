#include <cstdint>

// What the compiler's own code asks for by name: type information, floating point, large frames, checked
// frames, and handlers that the C++ library still asks for.

extern "C" {

int _fltused = 0x9875;

using Handler = void(__cdecl*)();

static Handler unexpectedHandler = nullptr;

Handler __cdecl set_unexpected(Handler handler) {
    const Handler previous = unexpectedHandler;
    unexpectedHandler = handler;
    return previous;
}

Handler __cdecl _get_unexpected() {
    return unexpectedHandler;
}

static void* keepTypeInfo(void* self, unsigned /*flags*/) {
    return self;
}

/// Every type descriptor begins with a pointer to this table. clang does not write it for any declaration of
/// the class, so it is laid out here: the one entry is the destructor, which nobody calls.
extern const void* const tableOfTypeInfo[] __asm__("??_7type_info@@6B@");
const void* const tableOfTypeInfo[] = {reinterpret_cast<const void*>(&keepTypeInfo)};

/// One number serves for all modules: this runtime finds the faults of tests and protects nobody.
extern const std::uintptr_t __security_cookie = 0x00002B992DDFA232;

/// Keeps every register. A changed cookie ends the process as a corrupted stack.
__attribute__((naked)) void __security_check_cookie(std::uintptr_t /*cookie*/) {
    __asm__(
        "cmpq __security_cookie(%rip), %rcx\n"
        "jne 1f\n"
        "retq\n"
        "1: movl $2, %ecx\n"
        "int $0x29\n");
}

/// Touches each page of a frame of rax bytes, since a stack grows by one guard page at a time. Keeps every
/// register but r10 and r11.
__attribute__((naked)) void __chkstk() {
    __asm__(
        "leaq 8(%rsp), %r10\n"
        "movq %rax, %r11\n"
        "1: cmpq $4096, %r11\n"
        "jb 2f\n"
        "subq $4096, %r10\n"
        "subq $4096, %r11\n"
        "testb %al, (%r10)\n"
        "jmp 1b\n"
        "2: subq %r11, %r10\n"
        "testb %al, (%r10)\n"
        "retq\n");
}
}
