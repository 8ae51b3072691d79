#include <windows.h>

// What the system and its C runtime declare, before the table takes its signatures from there.
#include <process.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string_view>
#include <vector>

#include "CallHook.h"
#include "ImportTable.h"
#include "WindowsText.h"

namespace qel::test {

template <>
struct Observer<Traced::k_wglCreateContext> {
    static constexpr bool kWatches = true;
    static void after(HGLRC made, HDC) { heldObjects().glContexts += made != nullptr ? 1 : 0; }
};

template <>
struct Observer<Traced::k_wglDeleteContext> {
    static constexpr bool kWatches = true;
    static void after(BOOL deleted, HGLRC) { heldObjects().glContexts -= deleted != FALSE ? 1 : 0; }
};

template <>
struct Observer<Traced::k_GetDC> {
    static constexpr bool kWatches = true;
    static void after(HDC fetched, HWND) { heldObjects().windowDcs += fetched != nullptr ? 1 : 0; }
};

template <>
struct Observer<Traced::k_ReleaseDC> {
    static constexpr bool kWatches = true;
    static void after(int released, HWND, HDC) { heldObjects().windowDcs -= released != 0 ? 1 : 0; }
};

namespace {

/// The hook of one function, without its signature.
struct HookEntry {
    void* hook;
    void (*keepOriginal)(void* function);
};

/// The function comes as an argument and only its result and arguments count: for one compiler attributes
/// such as "never returns" are no part of a template's argument, for another they are part of a pointer's
/// type.
template <Traced kFunction, class Rule, class Result, class... Arguments>
HookEntry entryOf(Result (* /*function*/)(Arguments...)) {
    using Hook = CallHook<kFunction, Rule, Result (*)(Arguments...)>;
    return {reinterpret_cast<void*>(&Hook::call),
            [](void* function) { Hook::original = reinterpret_cast<decltype(Hook::original)>(function); }};
}

namespace hooked {
using namespace rules;
#define QEL_TRACED_GL(name, ...) entryOf<Traced::k_##name, __VA_ARGS__>(&name),
#define QEL_TRACED_WINDOWS(name, ...) QEL_TRACED_GL(name, __VA_ARGS__)
const std::array<HookEntry, kTracedCount>& table() {
    static const std::array<HookEntry, kTracedCount> entries = {
#include "TracedFunctions.def"
    };
    return entries;
}
}  // namespace hooked

const std::map<std::string_view, Traced>& tracedByName() {
    static const std::map<std::string_view, Traced> byName = [] {
        std::map<std::string_view, Traced> names;
        for (std::size_t i = 0; i < kTracedCount; ++i) {
            names.emplace(tracedName(static_cast<Traced>(i)), static_cast<Traced>(i));
        }
        return names;
    }();
    return byName;
}

ImportPatches& patches() {
    static ImportPatches redirected;
    return redirected;
}

std::vector<Traced>& keptFunctions() {
    static std::vector<Traced> functions;
    return functions;
}

/// Starts from the untouched tables and hooks the functions for which `wanted` holds.
template <class Predicate>
void hookAll(Predicate wanted) {
    patches().restore();
    for (HMODULE const module : testedModules()) {
        for (const Import& import : importsOf(module)) {
            const auto found = tracedByName().find(import.name);
            if (found != tracedByName().end() && wanted(found->second)) {
                const HookEntry& entry = hooked::table()[static_cast<std::size_t>(found->second)];
                entry.keepOriginal(*import.slot);
                patches().redirect(import, entry.hook);
            }
        }
    }
}

}  // namespace

KeptLastError::KeptLastError() : value(GetLastError()) {}

KeptLastError::~KeptLastError() {
    SetLastError(value);
}

std::uintptr_t currentThread() {
    return GetCurrentThreadId();
}

void installHooks() {
    hookAll([](Traced) { return true; });
}

void removeHooks() {
    if (keptFunctions().empty()) {
        patches().restore();
        return;
    }
    hookAll([](Traced function) {
        return std::find(keptFunctions().begin(), keptFunctions().end(), function) != keptFunctions().end();
    });
}

void keepHooks(std::initializer_list<Traced> functions) {
    keptFunctions().assign(functions);
    if (CallRecord::active.load() == nullptr) {
        removeHooks();
    }
}

HeldObjects& heldObjects() {
    static HeldObjects held;
    return held;
}

}  // namespace qel::test
