#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "FuzzedFile.h"
#include "viewer/SceneSoundness.h"

/// Opens any bytes as a file of the extension that this program is built for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qel::test::FuzzedFile file(QEL_FUZZ_EXTENSION);
    file.write(data, size);
    const std::string fault = qel::test::faultOfOpening(file.path());
    if (!fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        std::abort();
    }
    return 0;
}
