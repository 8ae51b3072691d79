#pragma once

namespace qel {

/// Puts a fresh symbol into the slot that `getPubSymbol` reads. Symbols handed out earlier live on with their
/// holders.
void renewPublicSymbol();

/// Empties the slot: the library leaves the process, and what it kept would never be freed.
void emptyPublicSymbol();

/// For a process that goes down: its other threads are gone already, and one of them may have held the slot's
/// lock.
void unlockPublicSymbolForGood();

}  // namespace qel
