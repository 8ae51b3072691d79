#pragma once

#include <cstdint>

namespace qel {

/// Status values that operations of several interfaces return. Each operation names its value for success.

/// A refused argument: nothing was done.
inline constexpr std::int32_t kRefused = -1;
/// The result of every `ITask` default: the message was not handled.
inline constexpr std::int32_t kNotHandled = -99999;
/// The result of reserved slots (the COM code 0x80004001).
inline constexpr std::int32_t kNotImplemented = static_cast<std::int32_t>(0x80004001U);

}  // namespace qel
