#include "Pairs.h"

#include <algorithm>
#include <chrono>

namespace qel::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr double kNanoseconds = 1e9;
/// How often the interval is looked at.
constexpr int kRoundsBetweenLooks = 4;
/// A form this often in a sample is empty in effect; more would only overflow.
constexpr std::int64_t kMostTimes = std::int64_t{1} << 32;

double secondsSince(Clock::time_point begun) {
    return std::chrono::duration<double>(Clock::now() - begun).count();
}

double secondsOfSample(const Forms& forms, const Form& form, std::int64_t times) {
    const Clock::time_point begun = Clock::now();
    form(times);
    if (forms.settle) {
        forms.settle();
    }
    return secondsSince(begun);
}

/// The samples of both forms, round by round.
class Rounds {
  public:
    Rounds(const Forms& measured, std::int64_t repeats) : forms(measured), times(repeats) {}

    void addOne() {
        const bool moduleFirst = ratios.size() % 2 == 0;
        double module = 0.0;
        double bare = 0.0;
        if (moduleFirst) {
            module = secondsOfSample(forms, forms.module, times);
            bare = secondsOfSample(forms, forms.bare, times);
        } else {
            bare = secondsOfSample(forms, forms.bare, times);
            module = secondsOfSample(forms, forms.module, times);
        }
        const double toUnit = kNanoseconds / static_cast<double>(times * forms.units);
        modules.push_back(module * toUnit);
        bares.push_back(bare * toUnit);
        ratios.push_back(module / bare);
    }

    [[nodiscard]] int count() const { return static_cast<int>(ratios.size()); }
    [[nodiscard]] MedianInterval ratio() const { return medianInterval(ratios); }
    [[nodiscard]] PairResult result() const {
        return {.ratio = ratio(),
                .module = medianInterval(modules),
                .bare = medianInterval(bares),
                .times = times,
                .rounds = count()};
    }

  private:
    const Forms& forms;
    std::int64_t times;
    std::vector<double> modules;
    std::vector<double> bares;
    std::vector<double> ratios;
};

bool isTold(const MedianInterval& ratio, double bound, double wantedWidth) {
    const bool isInside = bound > 0.0 && ratio.low <= bound && bound < ratio.high;
    return ratio.width() <= (isInside ? wantedWidth / 4.0 : wantedWidth);
}

}  // namespace

double secondsOf(const std::function<void()>& work) {
    const Clock::time_point begun = Clock::now();
    work();
    return secondsSince(begun);
}

std::int64_t timesForSample(const Forms& forms, const Form& form, const Plan& plan) {
    std::int64_t times = 1;
    secondsOfSample(forms, form, times);
    while (times < kMostTimes) {
        const double seconds = secondsOfSample(forms, form, times);
        if (seconds >= plan.sampleSeconds) {
            break;
        }
        const double missing = plan.sampleSeconds * 1.2 / std::max(seconds, 1e-7);
        times = std::max(times + 1,
                         static_cast<std::int64_t>(static_cast<double>(times) * std::min(missing, 10.0)));
    }
    return times;
}

PairResult comparePairs(const Forms& forms, double bound, double wantedWidth, const Plan& plan) {
    forms.module(1);
    Rounds rounds(forms, timesForSample(forms, forms.bare, plan));
    const Clock::time_point begun = Clock::now();
    bool isNarrow = false;
    while (!isNarrow && secondsSince(begun) < plan.mostSeconds) {
        for (int round = 0; round < kRoundsBetweenLooks; ++round) {
            rounds.addOne();
        }
        isNarrow = rounds.count() >= plan.fewestRounds && isTold(rounds.ratio(), bound, wantedWidth);
    }
    PairResult result = rounds.result();
    result.cappedByTime = !isNarrow;
    return result;
}

TimeResult timeOf(const Forms& forms, const Form& form, int rounds, const Plan& plan) {
    const std::int64_t times = timesForSample(forms, form, plan);
    const double toUnit = kNanoseconds / static_cast<double>(times * forms.units);
    std::vector<double> samples;
    const Clock::time_point begun = Clock::now();
    while (static_cast<int>(samples.size()) < rounds &&
           (samples.empty() || secondsSince(begun) < plan.mostSeconds)) {
        samples.push_back(secondsOfSample(forms, form, times) * toUnit);
    }
    std::sort(samples.begin(), samples.end());
    return {.time = medianInterval(samples),
            .undisturbed = samples[samples.size() / 10],
            .rounds = static_cast<int>(samples.size())};
}

}  // namespace qel::bench
