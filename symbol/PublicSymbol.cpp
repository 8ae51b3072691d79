#include "PublicSymbol.h"

#include <atomic>

#include "QelDisplay64t.h"

#if defined(_WIN32)
// Declared by hand: the portable folders include no Windows header.
extern "C" __declspec(dllimport) void AcquireSRWLockExclusive(void** lock);
extern "C" __declspec(dllimport) void ReleaseSRWLockExclusive(void** lock);
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

  private:
    std::atomic_flag isHeld;
};
#endif

SlotLock slotLock;

/// Set at process exit. The system may still be stopping the other threads then, and one that stops with the
/// lock would never release it.
std::atomic<bool> isUnlockedForGood = false;

/// Holds the lock for a scope, as long as there is one.
class SlotScope {
  public:
    SlotScope() noexcept : isLocked(!isUnlockedForGood) {
        if (isLocked) {
            slotLock.lock();
        }
    }
    ~SlotScope() {
        if (isLocked) {
            slotLock.unlock();
        }
    }
    SlotScope(const SlotScope&) = delete;
    SlotScope& operator=(const SlotScope&) = delete;

  private:
    const bool isLocked;
};

/// Deliberately never destroyed: threads may still end, and hosts still call, during process exit.
IQelSymbol* slot = nullptr;

}  // namespace

void setPublicSymbol(IQelSymbol* fresh) {
    if (fresh != nullptr) {
        fresh->ref();
    }
    IQelSymbol* old = nullptr;
    {
        const SlotScope scope;
        old = slot;
        slot = fresh;
    }
    // Outside the lock: the last reference runs a destructor.
    if (old != nullptr) {
        old->unref();
    }
}

void unlockPublicSymbolForGood() {
    isUnlockedForGood = true;
}

ref_ptr<IQelSymbol> getPubSymbol() {
    const SlotScope scope;
    return ref_ptr<IQelSymbol>(slot);
}

}  // namespace qel
