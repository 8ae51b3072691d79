#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>

#include "ReadError.h"

namespace qelview {

/// Progress of a load: written by the loading thread, read by the thread that shows it.
class Progress {
  public:
    /// @param done from 0 to 1.
    /// @throws ReadCancelled after `cancel`.
    void report(double done) {
        share = std::clamp(done, 0.0, 1.0);
        if (cancelled) {
            throw ReadCancelled();
        }
    }
    [[nodiscard]] double done() const { return share; }
    void cancel() { cancelled = true; }

  private:
    std::atomic<double> share = 0.0;
    std::atomic<bool> cancelled = false;
};

/// A range of a progress: a reader reports its own work from 0 to 1.
class ProgressStretch {
  public:
    ProgressStretch(Progress& whole, double from, double to) : progress(&whole), begin(from), end(to) {}
    void report(double done) const { progress->report(begin + (end - begin) * std::clamp(done, 0.0, 1.0)); }
    /// For work in many small pieces: reports once in thousands, since a report costs more than a piece.
    void reportPiece(std::size_t piece, std::size_t pieces) const {
        constexpr std::size_t kPiecesBetweenReports = 65536;
        if (piece % kPiecesBetweenReports == 0) {
            report(static_cast<double>(piece) / static_cast<double>(pieces));
        }
    }
    /// A range of this range.
    [[nodiscard]] ProgressStretch part(double from, double to) const {
        const double length = end - begin;
        return {*progress, begin + from * length, begin + to * length};
    }

  private:
    Progress* progress;
    double begin;
    double end;
};

}  // namespace qelview
