#include "Report.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace qel::bench {

namespace {

using Json = nlohmann::ordered_json;

/// Three digits and the unit that suits them.
std::string timeText(double nanoseconds) {
    constexpr const char* kUnits[] = {"ns", "us", "ms"};
    std::size_t unit = 0;
    while (nanoseconds >= 1000.0 && unit + 1 < std::size(kUnits)) {
        nanoseconds /= 1000.0;
        ++unit;
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.*f %s", nanoseconds < 10.0 ? 2 : (nanoseconds < 100.0 ? 1 : 0),
                  nanoseconds, kUnits[unit]);
    return text;
}

std::string ratioText(const PairResult& pair) {
    char text[64];
    std::snprintf(text, sizeof text, "%.3f [%.3f %.3f]%s", pair.ratio.median, pair.ratio.low, pair.ratio.high,
                  pair.cappedByTime ? "*" : "");
    return text;
}

/// A number with so many digits behind the point, or a dash for none.
std::string numberOrDash(double value, int digits, const char* unit = "") {
    if (value <= 0.0) {
        return "-";
    }
    char text[48];
    std::snprintf(text, sizeof text, "%.*f%s", digits, value, unit);
    return text;
}

Verdict ofRatio(const Finding& finding) {
    return finding.pair ? verdictOf(finding.pair->ratio, finding.pair->cappedByTime, finding.bound.ratio)
                        : Verdict::NotHeld;
}

Verdict ofOwnCost(const Finding& finding) {
    return finding.own ? verdictOf(finding.own->undisturbed, finding.bound.ownNanoseconds) : Verdict::NotHeld;
}

Json intervalJson(const MedianInterval& interval) {
    return {{"median", interval.median}, {"low", interval.low}, {"high", interval.high}};
}

Json findingJson(const Finding& finding) {
    Json json{{"name", finding.name}, {"unit", finding.unit}};
    if (finding.pair) {
        json["ratio"] = intervalJson(finding.pair->ratio);
        json["module_ns"] = intervalJson(finding.pair->module);
        json["bare_ns"] = intervalJson(finding.pair->bare);
        json["rounds"] = finding.pair->rounds;
        json["calls_in_a_sample"] = finding.pair->times;
        json["capped_by_time"] = finding.pair->cappedByTime;
    }
    if (finding.bound.ratio > 0.0) {
        json["ratio_bound"] = finding.bound.ratio;
    }
    if (finding.own) {
        json["own_ns"] = finding.own->undisturbed;
        json["own_ns_disturbed"] = intervalJson(finding.own->time);
        json["calls"] = finding.calls;
        json["empty_calls_ns"] = finding.emptyCallsNanoseconds;
    }
    if (finding.bound.ownNanoseconds > 0.0) {
        json["own_ns_bound"] = finding.bound.ownNanoseconds;
    }
    json["verdict"] = textOf(finding.verdict());
    return json;
}

Json quantityJson(const Quantity& quantity) {
    Json json{{"name", quantity.name}, {"unit", quantity.unit}, {"value", quantity.value}};
    if (quantity.bound > 0.0) {
        json["bound"] = quantity.bound;
    }
    json["too_large"] = quantity.isTooLarge();
    return json;
}

}  // namespace

Verdict Finding::verdict() const {
    return std::max(ofRatio(*this), ofOwnCost(*this));
}

bool Report::isWithinBounds() const {
    return std::none_of(findings.begin(), findings.end(),
                        [](const Finding& finding) { return finding.verdict() == Verdict::TooSlow; }) &&
           std::none_of(quantities.begin(), quantities.end(),
                        [](const Quantity& quantity) { return quantity.isTooLarge(); });
}

std::size_t Report::unclearCount() const {
    const auto isUnclear = [](const Finding& finding) { return finding.verdict() == Verdict::Unclear; };
    return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), isUnclear));
}

void printHead() {
    std::printf("%-42s %-9s %9s %9s  %-22s %-6s %9s %6s %9s %8s\n", "operation", "unit", "module", "bare",
                "ratio [95 %]", "bound", "own cost", "calls", "of empty", "bound");
}

void printFinding(const Finding& finding) {
    const bool isPaired = finding.pair.has_value();
    std::printf("%-42s %-9s %9s %9s  %-22s %-6s %9s %6s %9s %8s  %s\n", finding.name.c_str(),
                finding.unit.c_str(), isPaired ? timeText(finding.pair->module.median).c_str() : "-",
                isPaired ? timeText(finding.pair->bare.median).c_str() : "-",
                isPaired ? ratioText(*finding.pair).c_str() : "-",
                numberOrDash(finding.bound.ratio, 2).c_str(),
                finding.own ? timeText(finding.own->undisturbed).c_str() : "-",
                finding.own ? numberOrDash(finding.calls, 0).c_str() : "-",
                finding.own ? timeText(finding.emptyCallsNanoseconds).c_str() : "-",
                numberOrDash(finding.bound.ownNanoseconds, 0, " ns").c_str(), textOf(finding.verdict()));
    std::fflush(stdout);
}

void printQuantity(const Quantity& quantity) {
    std::printf("%-68s %12.4g %-10s bound %-10s %s\n", quantity.name.c_str(), quantity.value,
                quantity.unit.c_str(), numberOrDash(quantity.bound, 2).c_str(),
                quantity.isTooLarge() ? "too large" : (quantity.bound > 0.0 ? "ok" : ""));
    std::fflush(stdout);
}

void writeJson(const Report& report, const std::string& file) {
    Json json{{"renderer", report.renderer}, {"empty_call_ns", report.emptyCallNanoseconds}};
    json["operations"] = Json::array();
    for (const Finding& finding : report.findings) {
        json["operations"].push_back(findingJson(finding));
    }
    json["quantities"] = Json::array();
    for (const Quantity& quantity : report.quantities) {
        json["quantities"].push_back(quantityJson(quantity));
    }
    std::ofstream out(file);
    out << json.dump(2) << '\n';
    if (!out) {
        throw std::runtime_error("cannot write " + file);
    }
}

}  // namespace qel::bench
