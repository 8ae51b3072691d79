#include <memory>

#include "AllBenches.h"
#include "Rig.h"

/// Texts in the display's letters.

namespace qel::bench {

namespace {

constexpr int kViewWidth = 320;
constexpr int kViewHeight = 200;
constexpr int kNumber = 4711;

template <class Write>
void addText(Operations& all, const char* name, Write write) {
    const auto prepare = [write](Size) {
        const auto rig = std::make_shared<const Rig>(kViewWidth, kViewHeight);
        Forms forms;
        forms.module = repeated([rig, write] { write(*rig); });
        forms.settle = Rig::finish;
        return forms;
    };
    all.push_back({name, "call", Kind::Text, prepare});
}

}  // namespace

void addTextBenches(Operations& all) {
    addText(all, "printText", [](const Rig& rig) { rig.display().printText("Number %d", kNumber); });
    addText(all, "drawLabel",
            [](const Rig& rig) { rig.camera().drawLabel(0.1, 0.2, 0.3, 3.0, 4.0, "Number %d", kNumber); });
}

}  // namespace qel::bench
