#include "Verdict.h"

namespace qel::bench {

Verdict verdictOf(const MedianInterval& ratio, bool stayedWide, double bound) {
    if (bound > 0.0 && stayedWide && ratio.low <= bound && bound < ratio.high) {
        return Verdict::Unclear;
    }
    return verdictOf(ratio.median, bound);
}

Verdict verdictOf(double value, double bound) {
    if (bound <= 0.0) {
        return Verdict::NotHeld;
    }
    return value > bound ? Verdict::TooSlow : Verdict::Ok;
}

const char* textOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::NotHeld:
            return "";
        case Verdict::Ok:
            return "ok";
        case Verdict::Unclear:
            return "unclear";
        case Verdict::TooSlow:
            return "too slow";
    }
    return "";
}

}  // namespace qel::bench
