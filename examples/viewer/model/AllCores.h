#pragma once

#include <algorithm>
#include <cstddef>
#include <future>
#include <thread>
#include <vector>

namespace qelview {

/// Numbers of a row that are worked on one after the other.
struct Piece {
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Cuts the numbers below `count` into as many pieces as the machine has cores, or fewer where there are few.
[[nodiscard]] inline std::vector<Piece> piecesOf(std::size_t count) {
    constexpr std::size_t kSmallest = 16384;
    const std::size_t cores = std::max(std::thread::hardware_concurrency(), 1U);
    std::vector<Piece> pieces(std::clamp<std::size_t>(count / kSmallest, 1, cores));
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        pieces[i] = {count * i / pieces.size(), count * (i + 1) / pieces.size()};
    }
    return pieces;
}

/// Does the same with all pieces at once.
/// @param work called with the number of each piece. What it throws is thrown on when all have ended.
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

/// Does the same with all numbers below `count`.
/// @param work called with each number.
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
