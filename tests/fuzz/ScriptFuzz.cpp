#include <cstddef>
#include <cstdint>
#include <string_view>

#include "ReadError.h"
#include "Script.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        static_cast<void>(qelview::parseScript({reinterpret_cast<const char*>(data), size}));
    } catch (const qelview::ReadError&) {
        // Refused, as it may be; anything else that is thrown ends the program.
    }
    return 0;
}
