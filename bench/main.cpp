#include <cstdio>
#include <exception>
#include <memory>

#include "AllBenches.h"
#include "BenchOptions.h"
#include "EmptyGl.h"
#include "Pairs.h"
#include "QelGl.h"
#include "Quantities.h"
#include "Report.h"
#include "Rig.h"
#include "Traces.h"

/// qel_bench: the cost of each call of the module compared with the raw calls that it makes.

namespace qel::bench {

namespace {

/// How wide the interval of a ratio may be where nothing is promised.
constexpr double kWidthWithoutBound = 0.05;

/// What draws much in one call has few rounds in the usual time.
bool isLarge(Kind kind) {
    return kind == Kind::Mesh || kind == Kind::Cloud || kind == Kind::Capture || kind == Kind::FrameOfMesh ||
           kind == Kind::FrameOfCloud || kind == Kind::FrameOfPolylines || kind == Kind::Growth ||
           kind == Kind::SceneInParts || kind == Kind::SceneInView;
}

Plan planOf(Kind kind, const Options& options) {
    Plan plan;
    plan.mostSeconds = isLarge(kind) ? 45.0 : 15.0;
    if (options.quick) {
        plan.mostSeconds = 3.0;
    }
    if (options.seconds > 0.0) {
        plan.mostSeconds = options.seconds;
    }
    return plan;
}

PairResult pairOf(const Forms& forms, Kind kind, const Options& options) {
    const Bound bound = boundOf(kind);
    const double wantedWidth = bound.ratio > 1.0 ? bound.ratio - 1.0 : kWidthWithoutBound;
    return comparePairs(forms, bound.ratio, wantedWidth, planOf(kind, options));
}

/// A plan for what touches no OpenGL: short samples, of which many are disturbed by nothing.
Plan planOfOwnCost() {
    Plan plan;
    plan.sampleSeconds = 0.3e-3;
    plan.mostSeconds = 1.0;
    return plan;
}

TimeResult ownCostOf(const Forms& forms) {
    constexpr int kRounds = 400;
    return timeOf(forms, forms.module, kRounds, planOfOwnCost());
}

double emptyCallNanoseconds() {
    Forms empty;
    empty.module = EmptyGl::callEmpty;
    return ownCostOf(empty).undisturbed;
}

/// Own cost of the module's form, and how many calls it makes. The calls are those of little data: as many
/// for one unit.
void measureOwnCost(const Operation& operation, Forms forms, double emptyCall, Finding& finding) {
    {
        const EmptyGl empty;
        forms.settle = nullptr;
        EmptyGl::answerDepth(forms.depthRead);
        finding.own = ownCostOf(forms);
    }
    const Forms few = operation.prepare(Size::Small);
    finding.calls = static_cast<double>(tracedCalls(few.module).size()) / static_cast<double>(few.units);
    finding.emptyCallsNanoseconds = finding.calls * emptyCall;
}

Finding measure(const Operation& operation, double emptyCall, const Options& options) {
    Finding finding;
    finding.name = operation.name;
    finding.unit = operation.unit;
    finding.bound = boundOf(operation.kind);
    const Forms forms = operation.prepare(Size::Full);
    if (!options.onlyOwnCost && forms.bare) {
        finding.pair = pairOf(forms, operation.kind, options);
    }
    if (!options.onlyPairs && forms.hasOwnCost) {
        measureOwnCost(operation, forms, emptyCall, finding);
    }
    return finding;
}

std::string rendererName() {
    const Rig rig(16, 16);
    const auto* const name = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    return name != nullptr ? name : "unknown";
}

int measureAll(const Operations& operations, const Options& options) {
    Report report;
    report.renderer = rendererName();
    report.emptyCallNanoseconds = emptyCallNanoseconds();
    std::printf("%s; an empty call takes %.2f ns. * marks intervals that stayed wider than wanted.\n",
                report.renderer.c_str(), report.emptyCallNanoseconds);
    printHead();
    for (const Operation& operation : operations) {
        if (options.wants(operation.name)) {
            report.findings.push_back(measure(operation, report.emptyCallNanoseconds, options));
            printFinding(report.findings.back());
        }
    }
    for (const Measurement& measurement : allMeasurements()) {
        if (options.wants(measurement.name)) {
            report.quantities.push_back(measurement.measure());
            printQuantity(report.quantities.back());
        }
    }
    if (!options.json.empty()) {
        writeJson(report, options.json);
    }
    if (const std::size_t unclear = report.unclearCount()) {
        std::printf(
            "%u operations could not be told from their bounds: the machine was too busy, or the time too "
            "short.\n",
            static_cast<unsigned>(unclear));
    }
    return report.isWithinBounds() ? 0 : 1;
}

int verifyAll(const Operations& operations, const Options& options) {
    int compared = 0;
    int different = 0;
    for (const Operation& operation : operations) {
        if (!operation.makesSameCalls || !options.wants(operation.name)) {
            continue;
        }
        const Forms forms = operation.prepare(Size::Small);
        if (!forms.bare) {
            continue;
        }
        ++compared;
        if (const std::optional<std::string> difference = differenceOfForms(forms)) {
            ++different;
            std::printf("%s: %s\n", operation.name.c_str(), difference->c_str());
        }
    }
    std::printf("%d of %d operations differ from their raw calls\n", different, compared);
    return different == 0 && compared > 0 ? 0 : 1;
}

void printTraces(const Operations& operations, const Options& options) {
    for (const Operation& operation : operations) {
        if (options.wants(operation.name)) {
            std::printf("%s:\n", operation.name.c_str());
            for (const std::string& call : tracedCalls(operation.prepare(Size::Small).module)) {
                std::printf("    %s\n", call.c_str());
            }
        }
    }
}

int run(const Options& options) {
    const Operations operations = allOperations();
    if (options.verify) {
        return verifyAll(operations, options);
    }
    if (options.trace) {
        printTraces(operations, options);
        return 0;
    }
    if (options.list) {
        for (const Operation& operation : operations) {
            std::printf("%s\n", operation.name.c_str());
        }
        for (const Measurement& measurement : allMeasurements()) {
            std::printf("%s\n", measurement.name.c_str());
        }
        return 0;
    }
    return measureAll(operations, options);
}

}  // namespace

}  // namespace qel::bench

int main(int count, char** arguments) {
    try {
        return qel::bench::run(qel::bench::Options::parse(count, arguments));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "qel_bench: %s\n", error.what());
        return 2;
    }
}
