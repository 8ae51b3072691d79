#include "CallTrace.h"

#include <array>
#include <stdexcept>

#include "CallRecord.h"

namespace qel::test {

namespace {

constexpr std::array<const char*, kTracedCount> kNames = {
#define QEL_TRACED_GL(name, ...) #name,
#ifdef _WIN32
#define QEL_TRACED_WINDOWS(name, ...) #name,
#else
#define QEL_TRACED_WINDOWS(name, ...)
#endif
#include "TracedFunctions.def"
#undef QEL_TRACED_GL
#undef QEL_TRACED_WINDOWS
};

/// Position of the function in the table, or kCount.
Traced find(std::string_view name) {
    std::size_t i = 0;
    while (i < kTracedCount && name != kNames[i]) {
        ++i;
    }
    return static_cast<Traced>(i);
}

/// As find, but a name that cannot be traced fails the test: it would make an expectation that never fails.
Traced traced(const char* name) {
    const Traced function = find(name);
    if (function == Traced::kCount) {
        throw std::invalid_argument(std::string(name) + " is not a traced function of this build");
    }
    return function;
}

CallRecord& record() {
    return *CallRecord::active.load();
}

template <class Predicate>
Calls filtered(Predicate wanted) {
    Calls result;
    for (const RecordedCall& recorded : record().calls) {
        if (wanted(recorded)) {
            result.push_back(recorded.text);
        }
    }
    return result;
}

bool isGl(const RecordedCall& recorded) {
    return recorded.function != RecordedCall::kNote && recorded.text.compare(0, 2, "gl") == 0;
}

void prepare(const char* name, int nth, std::int64_t result, const std::uint32_t* lastError) {
    const std::string_view asked = name;
    if (asked == "exit" || asked == "abort") {
        throw std::invalid_argument("a function that never returns cannot be answered");
    }
    Answer answer;
    answer.function = traced(name);
    answer.nth = nth;
    answer.result = result;
    answer.setsError = lastError != nullptr;
    answer.lastError = lastError != nullptr ? *lastError : 0;
    record().answers.push_back(answer);
}

}  // namespace

std::atomic<CallRecord*> CallRecord::active = nullptr;

const char* tracedName(Traced function) {
    return kNames[static_cast<std::size_t>(function)];
}

const Answer* CallRecord::answerFor(Traced function) {
    const Answer* prepared = nullptr;
    for (Answer& answer : answers) {
        if (answer.function == function) {
            ++answer.seen;
            prepared = answer.nth == 0 || answer.seen == answer.nth ? &answer : prepared;
        }
    }
    return prepared;
}

CallTrace::CallTrace() : recording(std::make_unique<CallRecord>()) {
    if (CallRecord::active.load() != nullptr) {
        throw std::logic_error("only one CallTrace may be alive at a time");
    }
    installHooks();
    CallRecord::active = recording.get();
}

CallTrace::~CallTrace() {
    CallRecord::active = nullptr;
    removeHooks();
}

void CallTrace::clear() {
    record().calls.clear();
}

Calls CallTrace::calls() const {
    return filtered([](const RecordedCall&) { return true; });
}

Calls CallTrace::startingWith(std::initializer_list<std::string_view> prefixes) const {
    return filtered([&](const RecordedCall& recorded) {
        for (const std::string_view prefix : prefixes) {
            if (recorded.text.compare(0, prefix.size(), prefix) == 0) {
                return true;
            }
        }
        return false;
    });
}

Calls CallTrace::glCalls() const {
    return filtered(isGl);
}

Calls CallTrace::glCallsAndNotes() const {
    return filtered([](const RecordedCall& recorded) {
        return recorded.function == RecordedCall::kNote || isGl(recorded);
    });
}

Calls CallTrace::callsOf(const char* name) const {
    const Traced function = traced(name);
    return filtered([&](const RecordedCall& recorded) { return recorded.function == function; });
}

std::size_t CallTrace::count(const char* name) const {
    return callsOf(name).size();
}

void CallTrace::note(const std::string& text) {
    record().calls.push_back({RecordedCall::kNote, text});
}

void CallTrace::noteIfAlive(const std::string& text) {
    CallRecord* const alive = CallRecord::active.load();
    if (alive != nullptr && alive->listens()) {
        alive->calls.push_back({RecordedCall::kNote, text});
    }
}

void CallTrace::answer(const char* name, std::int64_t result, int nth) {
    prepare(name, nth, result, nullptr);
}

void CallTrace::answerPointer(const char* name, const void* result, int nth) {
    prepare(name, nth, std::int64_t{reinterpret_cast<std::intptr_t>(result)}, nullptr);
}

void CallTrace::answerError(const char* name, std::int64_t result, std::uint32_t lastError, int nth) {
    prepare(name, nth, result, &lastError);
}

void CallTrace::passOn() {
    record().answers.clear();
}

bool CallTrace::knows(std::string_view name) {
    return find(name) != Traced::kCount;
}

CallTrace::Pause::Pause() {
    CallRecord* const alive = CallRecord::active.load();
    if (alive != nullptr && alive->belongsHere()) {
        held = alive;
        ++held->pauses;
    }
}

CallTrace::Pause::~Pause() {
    if (held != nullptr && CallRecord::active.load() == held) {
        --held->pauses;
    }
}

}  // namespace qel::test
