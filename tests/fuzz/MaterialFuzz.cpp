#include <cstdint>
#include <string>

#include "FuzzedFile.h"
#include "ObjMaterials.h"

/// Takes any bytes for the materials of a model.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qel::test::FuzzedFile file(".mtl");
    file.write(data, size);
    qelview::ObjMaterials materials(file.path());
    static_cast<void>(materials.readLibrary(file.path().filename().string()));
    qelview::Warnings warnings;
    // Those of the corpus, and one that a mutation can hit.
    for (const char* const name : {"red", "two words", "x"}) {
        static_cast<void>(materials.lookOf(name, "line 1", warnings));
    }
    return 0;
}
