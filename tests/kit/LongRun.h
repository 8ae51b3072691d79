#pragma once

#include <cstdlib>

namespace qel::test {

/// True if the tests were asked for their full length (`./test --long` sets QEL_LONG_TESTS).
inline bool isLongRun() {
    const char* const wanted = std::getenv("QEL_LONG_TESTS");
    return wanted != nullptr && *wanted != '\0';
}

/// How often something is repeated: one number for every day, one for the full length.
template <class Number>
Number shortOrLong(Number everyDay, Number fullLength) {
    return isLongRun() ? fullLength : everyDay;
}

}  // namespace qel::test
