#pragma once

class IQelSymbol;

namespace qel {

/// Puts a new symbol into the slot that `getPubSymbol` reads, and adds a reference to it; null empties the
/// slot. Symbols returned earlier stay alive with their holders.
void setPublicSymbol(IQelSymbol* fresh);

/// For process exit: the other threads are stopped wherever they are, perhaps with the slot's lock held. From
/// now on nothing waits for it.
void unlockPublicSymbolForGood();

}  // namespace qel
