#include "PublicSymbol.h"

#include "QelDisplay64t.h"

#if defined(_WIN32)
// Declared by hand: the portable part of the module sees no Windows header.
extern "C" __declspec(dllimport) void AcquireSRWLockExclusive(void** lock);
extern "C" __declspec(dllimport) void ReleaseSRWLockExclusive(void** lock);
#else
#include <atomic>
#endif

namespace qel {

namespace {

/// Hosts start threads whenever they like, and each start and end renews the symbol: the slot is locked for
/// the few instructions in which a reader copies the pointer and adds its reference. Whoever waits sleeps in
/// the system, so that a holder of lower priority gets to run: a renewal waits with the loader's lock held.
class SlotLock {
  public:
#if defined(_WIN32)
    void lock() noexcept {
        AcquireSRWLockExclusive(&word);
    }
    void unlock() noexcept {
        ReleaseSRWLockExclusive(&word);
    }
    void forgetHolder() noexcept {
        word = nullptr;
    }
#else
    void lock() noexcept {
        while (isHeld.test_and_set(std::memory_order_acquire)) {
            isHeld.wait(true, std::memory_order_relaxed);
        }
    }
    void unlock() noexcept {
        isHeld.clear(std::memory_order_release);
        isHeld.notify_one();
    }
    void forgetHolder() noexcept {
        isHeld.clear();
    }
#endif

  private:
#if defined(_WIN32)
    void* word = nullptr;
#else
    std::atomic_flag isHeld;
#endif
};

SlotLock slotLock;

/// Deliberately never destroyed: threads may still end, and hosts still ask, while the process goes down.
IQelSymbol* slot = nullptr;

void replacePublicSymbol(IQelSymbol* fresh) {
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

}  // namespace

void renewPublicSymbol() {
    replacePublicSymbol(newQelSymbol());
}

void emptyPublicSymbol() {
    replacePublicSymbol(nullptr);
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
