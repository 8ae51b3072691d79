#pragma once

#include <cstdint>

namespace qel {

/// Status values that operations of several interfaces answer. Which value means success is said at each
/// operation.

/// A refused argument: nothing was done.
inline constexpr std::int32_t kRefused = -1;
/// The answer of every `ITask` default: the message was not handled.
inline constexpr std::int32_t kNotHandled = -99999;
/// The answer of slots that nothing uses (the COM code 0x80004001).
inline constexpr std::int32_t kNotImplemented = static_cast<std::int32_t>(0x80004001U);

}  // namespace qel
