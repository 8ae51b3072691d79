#include <windows.h>

#include <cstdint>
#include <cstring>
#include <exception>

// std::rethrow_exception throws a copy on the stack. Wine's msvcp140 would throw the object that the pointers
// own, and a handler would find it destroyed if the last pointer was in a frame in between.

extern "C" [[noreturn]] void __stdcall _CxxThrowException(void* object, const void* throwInfo);

namespace {

/// What the compiler writes about a thrown object. The numbers are offsets from the start of the module that
/// threw.
struct ThrowInfo {
    std::uint32_t attributes;
    std::int32_t destructor;
    std::int32_t compatibility;
    std::int32_t catchableTypes;
};

struct CatchableType {
    std::uint32_t properties;
    std::int32_t type;
    std::int32_t place[3];
    std::int32_t size;
    std::int32_t copyConstructor;
};

/// The first is the type of the object itself, the others its bases.
struct CatchableTypes {
    std::int32_t count;
    std::int32_t first;
};

/// How Wine keeps a std::exception_ptr.
struct ExceptionPointer {
    const EXCEPTION_RECORD* record;
    long* count;
};

template <class T>
T* at(std::uintptr_t module, std::int32_t offset) {
    return reinterpret_cast<T*>(module + static_cast<std::uint32_t>(offset));
}

void copyObject(void* to, void* from, const CatchableType& type, std::uintptr_t module) {
    constexpr std::uint32_t kHasVirtualBase = 4;
    if (type.copyConstructor == 0) {
        std::memcpy(to, from, static_cast<std::size_t>(type.size));
        return;
    }
    void* const constructor = at<void>(module, type.copyConstructor);
    if ((type.properties & kHasVirtualBase) != 0) {
        reinterpret_cast<void (*)(void*, void*, int)>(constructor)(to, from, 1);
    } else {
        reinterpret_cast<void (*)(void*, void*)>(constructor)(to, from);
    }
}

void rethrow(const void* pointer) {
    const EXCEPTION_RECORD* const record = static_cast<const ExceptionPointer*>(pointer)->record;
    if (record == nullptr) {
        throw std::bad_exception();
    }
    void* const object = reinterpret_cast<void*>(record->ExceptionInformation[1]);
    const auto* const info = reinterpret_cast<const ThrowInfo*>(record->ExceptionInformation[2]);
    const std::uintptr_t module = record->ExceptionInformation[3];
    const auto* const types = at<const CatchableTypes>(module, info->catchableTypes);
    const auto* const type = at<const CatchableType>(module, types->first);
    void* const copy = __builtin_alloca(static_cast<std::size_t>(type->size));
    copyObject(copy, object, *type, module);
    _CxxThrowException(copy, info);
}

}  // namespace

/// libc++ calls it as a function of a DLL.
extern void (*const importOfRethrow)(const void*) __asm__("__imp_?__ExceptionPtrRethrow@@YAXPEBX@Z");
void (*const importOfRethrow)(const void*) = &rethrow;
