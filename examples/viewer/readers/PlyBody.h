#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "PlyHeader.h"
#include "Progress.h"

namespace qelview {

/// Hands out the values of the body one by one, and knows where it stands.
class PlyBody {
  public:
    virtual ~PlyBody() = default;
    /// @throws ReadError if the file ends before.
    virtual void beginInstance(const PlyElement& element, std::uint64_t index) = 0;
    /// @throws ReadError if there is none.
    virtual double next(ScalarType type) = 0;
    /// @throws ReadError if there is more.
    virtual void endInstance() = 0;
    [[noreturn]] virtual void refuseHere(const std::string& reason) const = 0;
};

/// @param bytes of the whole file, which must live as long as the body.
[[nodiscard]] std::unique_ptr<PlyBody> bodyOf(std::string_view bytes, const PlyHeader& header,
                                              const ProgressStretch& progress);

}  // namespace qelview
