#pragma once

#include <type_traits>

#include "ArgumentRules.h"
#include "CallRecord.h"

namespace qel::test {

/// The thread's last error, kept from being changed by the recording. Does nothing natively.
class KeptLastError {
  public:
    KeptLastError();
    ~KeptLastError();
    KeptLastError(const KeptLastError&) = delete;
    KeptLastError& operator=(const KeptLastError&) = delete;
    void replaceWith(std::uint32_t error) { value = error; }

  private:
    std::uint32_t value;
};

template <class R>
R answeredResult(std::int64_t result) {
    if constexpr (std::is_pointer_v<R>) {
        return reinterpret_cast<R>(std::intptr_t{result});
    } else if constexpr (!std::is_void_v<R>) {
        return static_cast<R>(result);
    }
}

/// Sees the result of each call of the function that was passed on. Specialise with kWatches true and
/// `after(result, arguments...)`.
template <Traced kFunction>
struct Observer {
    static constexpr bool kWatches = false;
};

/// What stands in a traced function's place: records the call if a trace listens, then passes it on to
/// `original` or gives the prepared answer.
template <Traced kFunction, class Rule, class Signature>
struct CallHook;

template <Traced kFunction, class Rule, class R, class... A>
struct CallHook<kFunction, Rule, R (*)(A...)> {
    static R (*original)(A...);

    static R call(A... arguments) {
        CallRecord* const record = CallRecord::active.load(std::memory_order_relaxed);
        if (record == nullptr || !record->listens()) [[likely]] {
            return passOn(arguments...);
        }
        return recorded(*record, arguments...);
    }

  private:
    static R passOn(A... arguments) {
        if constexpr (Observer<kFunction>::kWatches) {
            const R result = original(arguments...);
            Observer<kFunction>::after(result, arguments...);
            return result;
        } else {
            return original(arguments...);
        }
    }

    static R recorded(CallRecord& record, A... arguments) {
        const Answer* prepared = nullptr;
        {
            // Writing the text may itself call what is traced.
            ++record.pauses;
            KeptLastError kept;
            record.calls.push_back({kFunction, rules::callText<Rule>(tracedName(kFunction), arguments...)});
            prepared = record.answerFor(kFunction);
            if (prepared != nullptr && prepared->setsError) {
                kept.replaceWith(prepared->lastError);
            }
        }
        --record.pauses;
        if (prepared != nullptr) {
            return answeredResult<R>(prepared->result);
        }
        return passOn(arguments...);
    }
};

template <Traced kFunction, class Rule, class R, class... A>
R (*CallHook<kFunction, Rule, R (*)(A...)>::original)
(A...) = nullptr;

template <Traced kFunction, class Rule, class R, class... A>
struct CallHook<kFunction, Rule, R (*)(A...) noexcept> : CallHook<kFunction, Rule, R (*)(A...)> {};

}  // namespace qel::test
