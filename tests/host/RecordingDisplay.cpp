#include "RecordingDisplay.h"

#include <QString>

namespace qel::test {

std::int32_t RecordingDisplay::beginCapture(std::uint32_t, std::uint32_t, Enve2d*, QString) {
    return 0;
}

}  // namespace qel::test
