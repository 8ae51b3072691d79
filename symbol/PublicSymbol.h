#pragma once

class IQelSymbol;

namespace qel {

/// Puts a fresh symbol into the slot that `getPubSymbol` reads, which adds a reference to it; null empties the
/// slot. Symbols handed out earlier live on with their holders.
void setPublicSymbol(IQelSymbol* fresh);

/// For a process that goes down: its other threads are gone already, and one of them may have held the slot's
/// lock.
void unlockPublicSymbolForGood();

}  // namespace qel
