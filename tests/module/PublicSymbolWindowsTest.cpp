#include <gtest/gtest.h>
#include <windows.h>

#include <QString>
#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "QelDisplay64t.h"
#include "kit/CallTrace.h"
#include "kit/ImportTable.h"

namespace qel::test {
namespace {

/// The library's own import of a function, or nothing.
const Import* importNamed(const std::vector<Import>& imports, const char* name) {
    for (const Import& import : imports) {
        if (import.name == name) {
            return &import;
        }
    }
    return nullptr;
}

constexpr DWORD kErrorOfTheStandIn = 1234;

DWORD WINAPI noPath(HMODULE /*module*/, LPWSTR /*path*/, DWORD /*size*/) {
    SetLastError(kErrorOfTheStandIn);
    return 0;
}

TEST(PublicSymbolOfTheLibrary, IsThereFromTheLoadOn) {
    const ref_ptr<IQelSymbol> symbol = getPubSymbol();
    ASSERT_TRUE(symbol);
    EXPECT_EQ(getPubSymbol().get(), symbol.get());
    EXPECT_EQ(symbol->referenceCount(), 2);
}

TEST(PublicSymbolOfTheLibrary, IsRenewedWhenAThreadStartsAndWhenItEnds) {
    const ref_ptr<IQelSymbol> before = getPubSymbol();
    ref_ptr<IQelSymbol> during;
    std::thread([&during] { during = getPubSymbol(); }).join();
    const ref_ptr<IQelSymbol> after = getPubSymbol();
    ASSERT_TRUE(during);
    ASSERT_TRUE(after);
    EXPECT_NE(during.get(), before.get());
    EXPECT_NE(after.get(), during.get());
    EXPECT_NE(after.get(), before.get());
}

TEST(PublicSymbolOfTheLibrary, LivesOnWithItsHolder) {
    const ref_ptr<IQelSymbol> held = getPubSymbol();
    ASSERT_EQ(held->referenceCount(), 2);
    std::thread([] {}).join();
    EXPECT_EQ(held->referenceCount(), 1);
    held->setName(QString("held"));
    EXPECT_TRUE(held->getName() == QString("held"));
}

TEST(PublicSymbolOfTheLibrary, MayBeAskedForWhileThreadsStartAndEnd) {
    std::atomic<bool> stop = false;
    std::atomic<int> asked = 0;
    std::atomic<int> empty = 0;
    std::thread reader([&] {
        while (!stop) {
            const ref_ptr<IQelSymbol> symbol = getPubSymbol();
            empty += symbol ? 0 : 1;
            ++asked;
        }
    });
    for (int i = 0; i < 200; ++i) {
        std::thread([] {}).join();
    }
    stop = true;
    reader.join();
    EXPECT_EQ(empty, 0);
    EXPECT_GT(asked, 0);
}

/// A waiter that polls keeps a holder of lower priority from running, with the loader's lock held.
TEST(PublicSymbolOfTheLibrary, IsWaitedForInTheSystem) {
    const std::vector<Import> imports = importsOf(GetModuleHandleW(L"QelDisplay64t.dll"));
    EXPECT_NE(importNamed(imports, "AcquireSRWLockExclusive"), nullptr);
    for (const Import& import : imports) {
        EXPECT_EQ(import.library.find("pthread"), std::string::npos) << import.name;
    }
}

/// The trace is made on the ending thread, so that it sees what the library calls when that thread has ended.
TEST(PublicSymbolAtLoad, AsksForThePathOfTheProgramWhenAThreadEnds) {
    std::unique_ptr<CallTrace> trace;
    std::thread([&trace] { trace = std::make_unique<CallTrace>(); }).join();
    const Calls calls = trace->calls("GetModuleFileNameW", "_beginthread", "_endthread", "Sleep", "exit");
    trace.reset();
    EXPECT_TRUE(callsMatch(calls, {call("GetModuleFileNameW", nullptr, any, MAX_PATH)}));
}

TEST(PublicSymbolAtLoad, SaysThatThePathCannotBeHadAndLeavesTheSymbol) {
    const ref_ptr<IQelSymbol> before = getPubSymbol();
    ref_ptr<IQelSymbol> during;
    const std::vector<Import> imports = importsOf(GetModuleHandleW(L"QelDisplay64t.dll"));
    const Import* const pathOf = importNamed(imports, "GetModuleFileNameW");
    ASSERT_NE(pathOf, nullptr);
    ::testing::internal::CaptureStdout();
    {
        ImportPatches patches;
        patches.redirect(*pathOf, reinterpret_cast<void*>(&noPath));
        std::thread([&during] { during = getPubSymbol(); }).join();
    }
    // Once at the start of the thread and once at its end.
    const std::string line = "GetModuleFileName failed (1234)\n";
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), line + line);
    EXPECT_EQ(during.get(), before.get());
    EXPECT_EQ(getPubSymbol().get(), before.get());
}

TEST(PublicSymbolExports, AreFoundUnderTheirPlainNames) {
    HMODULE const library = GetModuleHandleW(L"QelDisplay64t.dll");
    ASSERT_NE(library, nullptr);
    const struct {
        const char* name;
        void* function;
    } cases[] = {
        {"newScreenDisplay", reinterpret_cast<void*>(&newScreenDisplay)},
        {"newGDIScrDisplay", reinterpret_cast<void*>(&newGDIScrDisplay)},
        {"newQelSymbol", reinterpret_cast<void*>(&newQelSymbol)},
        {"getPubSymbol", reinterpret_cast<void*>(&getPubSymbol)},
    };
    for (const auto& tested : cases) {
        auto* const found = reinterpret_cast<void*>(GetProcAddress(library, tested.name));
        EXPECT_NE(found, nullptr) << tested.name;
        EXPECT_EQ(found, tested.function) << tested.name;
    }
}

}  // namespace
}  // namespace qel::test
