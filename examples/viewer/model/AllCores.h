#pragma once

#include <algorithm>
#include <cstddef>
#include <future>
#include <thread>
#include <vector>

namespace qelview {

/// A range of indices that one core works on.
struct Piece {
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Splits the indices below `count` into one piece a core, or fewer if there are few indices.
[[nodiscard]] inline std::vector<Piece> piecesOf(std::size_t count) {
    constexpr std::size_t kSmallest = 16384;
    const std::size_t cores = std::max(std::thread::hardware_concurrency(), 1U);
    std::vector<Piece> pieces(std::clamp<std::size_t>(count / kSmallest, 1, cores));
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        pieces[i] = {count * i / pieces.size(), count * (i + 1) / pieces.size()};
    }
    return pieces;
}

/// Runs `work` for all pieces in parallel.
/// @param work called with the number of each piece. Its exception is rethrown after all have ended.
template <class Work>
void onAllCores(const std::vector<Piece>& pieces, const Work& work) {
    std::vector<std::future<void>> others;
    for (std::size_t number = 1; number < pieces.size(); ++number) {
        others.push_back(std::async(std::launch::async, [&work, number] { work(number); }));
    }
    work(std::size_t{0});
    for (std::future<void>& other : others) {
        other.get();
    }
}

/// Runs `work` for all indices below `count` in parallel.
/// @param work called with each index.
template <class Work>
void forEachOnAllCores(std::size_t count, const Work& work) {
    const std::vector<Piece> pieces = piecesOf(count);
    onAllCores(pieces, [&](std::size_t number) {
        for (std::size_t i = pieces[number].begin; i < pieces[number].end; ++i) {
            work(i);
        }
    });
}

}  // namespace qelview
