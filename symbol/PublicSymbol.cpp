#include "PublicSymbol.h"

#include "QelDisplay64t.h"

#if defined(_WIN32)
// Declared by hand: the portable folders include no Windows header.
extern "C" __declspec(dllimport) void AcquireSRWLockExclusive(void** lock);
extern "C" __declspec(dllimport) void ReleaseSRWLockExclusive(void** lock);
#else
#include <atomic>
#endif

namespace qel {

namespace {

// Hosts may start threads at any time, and each start and end replaces the symbol: the lock is held for the
// few instructions in which a reader copies the pointer and adds its reference. A waiting thread sleeps, so
// that a holder of lower priority can run: a replacement waits while holding the loader lock.
#if defined(_WIN32)
class SlotLock {
  public:
    void lock() noexcept { AcquireSRWLockExclusive(&word); }
    void unlock() noexcept { ReleaseSRWLockExclusive(&word); }
    void forgetHolder() noexcept { word = nullptr; }

  private:
    void* word = nullptr;
};
#else
class SlotLock {
  public:
    void lock() noexcept {
        while (isHeld.test_and_set(std::memory_order_acquire)) {
            isHeld.wait(true, std::memory_order_relaxed);
        }
    }
    void unlock() noexcept {
        isHeld.clear(std::memory_order_release);
        isHeld.notify_one();
    }
    void forgetHolder() noexcept { isHeld.clear(); }

  private:
    std::atomic_flag isHeld;
};
#endif

SlotLock slotLock;

/// Deliberately never destroyed: threads may still end, and hosts still call, during process exit.
IQelSymbol* slot = nullptr;

}  // namespace

void setPublicSymbol(IQelSymbol* fresh) {
    if (fresh != nullptr) {
        fresh->ref();
    }
    slotLock.lock();
    IQelSymbol* const old = slot;
    slot = fresh;
    slotLock.unlock();
    // Outside the lock: the last reference runs a destructor.
    if (old != nullptr) {
        old->unref();
    }
}

void unlockPublicSymbolForGood() {
    slotLock.forgetHolder();
}

ref_ptr<IQelSymbol> getPubSymbol() {
    slotLock.lock();
    ref_ptr<IQelSymbol> symbol(slot);
    slotLock.unlock();
    return symbol;
}

}  // namespace qel
