#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "PlyHeader.h"
#include "Progress.h"
#include "Warnings.h"

namespace qelview {

/// Hands out the values of the body one by one, and knows where it stands.
class PlyBody {
  public:
    virtual ~PlyBody() = default;
    /// @throws ReadError if the file ends before.
    virtual void beginInstance(const PlyElement& element, std::uint64_t index) = 0;
    /// @throws ReadError if there is none.
    virtual double next(ScalarType type) = 0;
    /// @throws ReadError if there is more, where that is not harmless.
    virtual void endInstance() = 0;
    [[noreturn]] virtual void refuseHere(const std::string& reason) const = 0;
    /// "line 12", "face 7": the current instance.
    [[nodiscard]] virtual std::string here() const = 0;
    /// All that follows, if instances are records of bytes; nothing for lines of text.
    [[nodiscard]] virtual std::string_view records() const = 0;
    /// Leaves so many bytes of records behind.
    virtual void passRecords(std::size_t bytes) = 0;
    /// How many instances of an element can follow at most, to go by the size of the file.
    [[nodiscard]] virtual std::uint64_t mostInstances(const PlyElement& element) const = 0;
};

/// @param bytes of the whole file, which must live as long as the body.
[[nodiscard]] std::unique_ptr<PlyBody> bodyOf(std::string_view bytes, const PlyHeader& header,
                                              Warnings& warnings, const ProgressStretch& progress);

}  // namespace qelview
