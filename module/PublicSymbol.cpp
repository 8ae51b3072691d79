#include "PublicSymbol.h"

#include <atomic>
#include <thread>

#include "QelDisplay64t.h"

namespace qel {

namespace {

/// Hosts start threads whenever they like, and each start and end renews the symbol: the slot is locked for
/// the few instructions in which a reader copies the pointer and takes its reference. A spin lock, since the
/// loader's lock is held while it is renewed and nothing that may wait for another thread is allowed there.
class SpinLock {
  public:
    void lock() noexcept {
        while (held.test_and_set(std::memory_order_acquire)) {
            std::this_thread::yield();
        }
    }
    void unlock() noexcept { held.clear(std::memory_order_release); }

  private:
    std::atomic_flag held;
};

SpinLock slotLock;

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
    slotLock.unlock();
}

ref_ptr<IQelSymbol> getPubSymbol() {
    slotLock.lock();
    ref_ptr<IQelSymbol> symbol(slot);
    slotLock.unlock();
    return symbol;
}

}  // namespace qel
