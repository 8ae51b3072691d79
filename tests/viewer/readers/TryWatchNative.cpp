#include "TryWatch.h"

#include <sanitizer/asan_interface.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>

namespace qel::test {

namespace {

/// Signal handlers can reach nothing but what lives for ever.
std::array<char, 200> nameOfTry{};
std::size_t lengthOfName = 0;

void tellName() {
    static_cast<void>(!write(STDERR_FILENO, nameOfTry.data(), lengthOfName));
}

void tellNameAndAbort(int signal) {
    tellName();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

}  // namespace

TryWatch::TryWatch(const std::string& name, double secondsAtMost) {
    const std::string text = "the program ends in the try " + name + "\n";
    lengthOfName = text.copy(nameOfTry.data(), nameOfTry.size());
    std::signal(SIGABRT, tellNameAndAbort);
#ifdef __SANITIZE_ADDRESS__
    __asan_set_death_callback(tellName);
#endif
    watcher = std::thread([this, secondsAtMost] { waitForEnd(secondsAtMost); });
}

TryWatch::~TryWatch() {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isDone = true;
    }
    changed.notify_one();
    watcher.join();
    lengthOfName = 0;
    std::signal(SIGABRT, SIG_DFL);
}

void TryWatch::waitForEnd(double seconds) {
    std::unique_lock<std::mutex> lock(mutex);
    if (!changed.wait_for(lock, std::chrono::duration<double>(seconds), [this] { return isDone; })) {
        std::abort();
    }
}

}  // namespace qel::test
