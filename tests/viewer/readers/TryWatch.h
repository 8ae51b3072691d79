#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace qel::test {

/// Watches one of many tries. If the program crashes or aborts in it, or does not end it in time (which ends
/// the program), standard error tells which one it was: nothing else would. One at a time.
class TryWatch {
  public:
    TryWatch(const std::string& nameOfTry, double secondsAtMost);
    ~TryWatch();
    TryWatch(const TryWatch&) = delete;
    TryWatch& operator=(const TryWatch&) = delete;

  private:
    void waitForEnd(double seconds);

    std::mutex mutex;
    std::condition_variable changed;
    bool isDone = false;
    std::thread watcher;
};

}  // namespace qel::test
