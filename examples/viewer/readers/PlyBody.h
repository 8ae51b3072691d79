#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "PlyHeader.h"
#include "Progress.h"
#include "ReadError.h"
#include "Warnings.h"

namespace qelview {

/// Reads the values of a body one by one, and knows its position.
class PlyBody {
  public:
    virtual ~PlyBody() = default;
    /// @throws ReadError at the end of the file.
    virtual void beginInstance(const PlyElement& element, std::uint64_t index) = 0;
    /// @throws ReadError if there is none.
    virtual double next(ScalarType type) = 0;
    /// @throws ReadError if there are more values, unless they are harmless.
    virtual void endInstance() = 0;
    [[noreturn]] void refuseHere(const std::string& reason) const { refuse(here(), reason); }
    /// "line 12", "face 7": the current instance.
    [[nodiscard]] virtual std::string here() const = 0;
    /// The bytes that follow in a binary body; empty for text.
    [[nodiscard]] virtual std::string_view records() const = 0;
    /// Skips bytes of records.
    virtual void passRecords(std::size_t bytes) = 0;
};

/// @param bytes of the whole file, which must live as long as the body.
[[nodiscard]] std::unique_ptr<PlyBody> bodyOf(std::string_view bytes, const PlyHeader& header,
                                              Warnings& warnings, const ProgressStretch& progress);

}  // namespace qelview
