#pragma once

/// The scenes of the load probe. Each prints what it sees and returns the exit code of the program.

/// Loads the library and gives it back at once; waits until it has left the process.
int loadAndUnload();
/// The same with the named library `rounds` times, with a short sleep in the place of the long one; ends at the
/// first failure.
int reload(const wchar_t* name, int rounds);
/// Loads while the program's path cannot be had.
int loadWithoutPath();
/// Loads while no thread can be started; only returns if the load does.
int loadWithoutThread();
/// Loads while the library cannot be held by its own thread.
int loadWithoutHold();
/// Loads and says how the sleeping thread was started and how long it sleeps.
int loadAndWatchThread();
/// Ends with displays that are still attached and a symbol that is still held.
int endWithDisplays();
/// Ends while threads ask for the public symbol.
int endWhileThreadsAsk();
/// Loads and unloads `copies` copies of the library, each on a thread of its own, `cycles` times in all, and
/// gives each back at a random moment of the first six seconds. The library's sleep and these moments are
/// shortened `hurry` times.
int loadStorm(int cycles, int copies, unsigned seed, int hurry);
/// Ends the process with displays and symbols alive, in the named way.
int endTheProcess(const char* way);
