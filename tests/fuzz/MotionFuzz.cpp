#include <cstddef>
#include <cstdint>
#include <string_view>

#include "MotionFile.h"
#include "ReadError.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        static_cast<void>(qelview::parseMotion({reinterpret_cast<const char*>(data), size}));
    } catch (const qelview::ReadError&) {
        // Refused, as it may be; anything else that is thrown ends the program.
    }
    return 0;
}
