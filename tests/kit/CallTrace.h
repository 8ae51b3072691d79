#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "CallText.h"

namespace qel::test {

class CallRecord;

/// Records, in order and with their arguments, the calls that the module makes to OpenGL, GLU and, under
/// Windows, to WGL, GDI, USER, KERNEL32 and the C runtime, and passes each on, unless an answer was prepared
/// for it.
///
/// Under Windows the import tables of QelDisplay64t.dll, QelGeometry64t.dll, QelBase64t.dll and of the
/// running executable are patched while a trace is alive, so the finished DLLs are what is traced. Natively
/// the linker leads the calls of OpenGL and GLU here. What one of these functions calls in turn is not seen.
///
/// Only the calls of the thread that made the trace are recorded and answered. TracedFunctions.def lists the
/// functions; asking for one that is not listed fails the test. Only one trace may be alive at a time.
class CallTrace {
  public:
    CallTrace();
    ~CallTrace();
    CallTrace(const CallTrace&) = delete;
    CallTrace& operator=(const CallTrace&) = delete;

    /// Forgets what was recorded. Prepared answers stay.
    void clear();

    /// Every call and note so far.
    Calls calls() const;

    /// The calls and notes that begin with one of the prefixes.
    template <class... Prefix>
    Calls calls(std::string_view first, const Prefix&... more) const {
        return startingWith({first, std::string_view(more)...});
    }

    /// The calls of OpenGL and GLU, without WGL and notes.
    Calls glCalls() const;

    /// The same with the notes among them.
    Calls glCallsAndNotes() const;

    /// The calls of one function.
    Calls callsOf(const char* name) const;
    std::size_t count(const char* name) const;

    /// Puts a text of the test's own into the sequence, for instance from an object that the module calls.
    void note(const std::string& text);

    /// Puts a note into the trace that is alive; does nothing if there is none.
    static void noteIfAlive(const std::string& text);

    /// The `nth` coming call of the function (1 is the next, 0 stands for all coming ones) is recorded but
    /// not passed on; it answers `result`. Pointer results and handles are given as their number. A function
    /// that never returns (exit, abort) cannot be answered.
    void answer(const char* name, std::int64_t result, int nth = 0);

    /// The same for a function that answers a pointer or a handle.
    void answerPointer(const char* name, const void* result, int nth = 0);

    /// The same, and the last error of the thread is then `lastError`. Windows only in its effect.
    void answerError(const char* name, std::int64_t result, std::uint32_t lastError, int nth = 0);

    /// Forgets the prepared answers.
    void passOn();

    /// True if the function is in the table of this build.
    static bool knows(std::string_view name);

    /// Holds the recording back while it lives, so that a test can look at OpenGL without leaving a mark.
    /// Calls are passed on meanwhile, prepared answers are not given. Needs no trace to be alive.
    class Pause {
      public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

      private:
        CallRecord* held = nullptr;
    };

  private:
    Calls startingWith(std::initializer_list<std::string_view> prefixes) const;

    std::unique_ptr<CallRecord> recording;
};

}  // namespace qel::test
