#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace qel::test {

#if defined(_MSC_VER)

/// The slot that a few instructions jump through: mov rax, [rcx], then mov rax, [rax + offset] or jmp [rax +
/// offset], with an offset of no byte, one or four. Before them are a jump, if the linker links in steps, and
/// a few bytes that store the arguments, if the code is not optimised.
inline std::size_t slotOfCode(const unsigned char* code) {
    constexpr unsigned char kJump = 0xE9;
    if (*code == kJump) {
        std::int32_t distance = 0;
        std::memcpy(&distance, code + 1, sizeof distance);
        code += 1 + std::ptrdiff_t{sizeof distance} + distance;
    }
    constexpr unsigned char kTableOfObject[] = {0x48, 0x8B, 0x01};
    constexpr int kLongestStart = 16;
    for (int skipped = 0; skipped < kLongestStart; ++skipped) {
        if (std::memcmp(code, kTableOfObject, sizeof kTableOfObject) == 0) {
            break;
        }
        ++code;
    }
    constexpr unsigned char kWide = 0x48;
    const unsigned char* const access = code + (code[3] == kWide ? 4 : 3);
    const unsigned sizeOfOffset = access[1] >> 6U;
    std::int32_t offset = 0;
    std::memcpy(&offset, access + 2, sizeOfOffset == 2 ? 4 : sizeOfOffset);
    return static_cast<std::size_t>(offset) / sizeof(void*);
}

#endif

/// The slot of a virtual function, counted as the Microsoft C++ ABI counts: one slot for the destructor, then
/// the functions in the order of their declarations. Read from the pointer to member: in that ABI it points
/// to code that jumps through the slot; in the other it holds one more than the function's offset in bytes,
/// behind two slots for the destructor.
template <class Function>
std::size_t slotOf(Function function) {
    std::uintptr_t place = 0;
    static_assert(sizeof function >= sizeof place);
    std::memcpy(&place, &function, sizeof place);
#if defined(_MSC_VER)
    return slotOfCode(reinterpret_cast<const unsigned char*>(place));  // NOLINT(performance-no-int-to-ptr)
#else
    constexpr std::size_t kMoreDestructors = 1;
    return (place - 1) / sizeof(void*) - kMoreDestructors;
#endif
}

}  // namespace qel::test
