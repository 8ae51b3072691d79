#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace qel::test {

/// The slot of a virtual function, counted as the Microsoft C++ ABI counts: one slot for the destructor, then
/// the functions in the order of their declarations. Read from the pointer to member, which in the compiler's
/// own ABI holds one more than the function's offset in bytes, behind two slots for the destructor.
template <class Function>
std::size_t slotOf(Function function) {
    std::uintptr_t place = 0;
    static_assert(sizeof function >= sizeof place);
    std::memcpy(&place, &function, sizeof place);
    constexpr std::size_t kMoreDestructors = 1;
    return (place - 1) / sizeof(void*) - kMoreDestructors;
}

}  // namespace qel::test
