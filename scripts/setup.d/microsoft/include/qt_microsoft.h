#pragma once
// Included before every source of Qt's: what its code for Windows needs of the Windows SDK and of Microsoft's
// C++ library.
#ifdef __cplusplus

// Checked iterators, which Qt uses with every compiler that calls itself Microsoft's.
namespace stdext {
template <class Item>
Item* make_checked_array_iterator(Item* array, decltype(sizeof 0)) {
    return array;
}
template <class Item>
Item* make_unchecked_array_iterator(Item* array) {
    return array;
}
}  // namespace stdext

#define vsnprintf_s _vsnprintf_s
#endif
