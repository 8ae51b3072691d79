#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

/// What the hooks of the traced functions and the CallTrace share. Tests use CallTrace.h.

namespace qel::test {

/// Position of each traced function in the table.
enum class Traced : std::size_t {
#define QEL_TRACED_GL(name, ...) k_##name,
#ifdef _WIN32
#define QEL_TRACED_WINDOWS(name, ...) k_##name,
#else
#define QEL_TRACED_WINDOWS(name, ...)
#endif
#include "TracedFunctions.def"
#undef QEL_TRACED_GL
#undef QEL_TRACED_WINDOWS
    kCount
};

inline constexpr std::size_t kTracedCount = static_cast<std::size_t>(Traced::kCount);

/// Name of a traced function.
const char* tracedName(Traced function);

/// A number of its own for each running thread. Leaves the thread's last error alone.
std::uintptr_t currentThread();

/// A prepared answer.
struct Answer {
    Traced function{};
    int nth = 0;
    int seen = 0;
    std::int64_t result = 0;
    bool setsError = false;
    std::uint32_t lastError = 0;
};

struct RecordedCall {
    static constexpr auto kNote = Traced::kCount;
    Traced function{};
    std::string text;
};

/// The recording of the trace that is alive.
class CallRecord {
  public:
    std::vector<RecordedCall> calls;
    std::vector<Answer> answers;

    /// True on the thread of the trace, while nothing holds it back.
    bool listens() const { return pauses == 0 && belongsHere(); }

    /// True on the thread of the trace.
    bool belongsHere() const { return currentThread() == thread; }

    /// The answer prepared for this call of the function, or null. Counts the call.
    const Answer* answerFor(Traced function);

    int pauses = 0;

    /// The recording of the trace that is alive, or null. One load is all that a call costs without a trace.
    static std::atomic<CallRecord*> active;

  private:
    std::uintptr_t thread = currentThread();
};

/// Puts the hooks in the place of the traced functions, wherever the traced modules import them. Natively
/// they always stand there.
void installHooks();

/// Gives the imports back, except those that keepHooks keeps.
void removeHooks();

#ifdef _WIN32
/// Keeps the hooks of these functions in place also while no trace is alive, for what counts their calls.
void keepHooks(std::initializer_list<Traced> functions);

/// How many more OpenGL contexts were made than deleted, and device contexts of windows fetched than
/// released, through kept hooks.
struct HeldObjects {
    std::atomic<int> glContexts = 0;
    std::atomic<int> windowDcs = 0;
};
HeldObjects& heldObjects();
#endif

}  // namespace qel::test
