#include <cstdio>
#include <memory>

#include "AllBenches.h"
#include "ByHand.h"
#include "CameraByHand.h"

/// Texts in the display's letters.

namespace qel::bench {

namespace {

constexpr int kViewWidth = 320;
constexpr int kViewHeight = 200;
constexpr std::size_t kLongestText = 256;
constexpr int kNumber = 4711;

struct TextScene {
    Rig rig{kViewWidth, kViewHeight};
    BareView view{rig};
};

Forms textForms(Size) {
    const auto scene = std::make_shared<const TextScene>();
    Forms forms;
    forms.module = repeated([scene] { scene->rig.display().printText("Number %d", kNumber); });
    forms.bare = repeated([scene] {
        char text[kLongestText];
        std::snprintf(text, sizeof text, "Number %d", kNumber);
        printLetters(scene->view, text);
    });
    forms.settle = Rig::finish;
    return forms;
}

void labelByHand(const BareView& view) {
    const XPnt3d window = projected(view, {0.1, 0.2, 0.3});
    loadPixels(view);
    char text[kLongestText];
    std::snprintf(text, sizeof text, "Number %d", kNumber);
    const bool wasTested = switched(GL_DEPTH_TEST, false);
    const bool wasTextured = switched(GL_TEXTURE_2D, false);
    glRasterPos2f(static_cast<float>(window.x + 3.0), static_cast<float>(window.y + 4.0));
    printLetters(view, text);
    loadCamera(view);
    switchTo(GL_TEXTURE_2D, wasTextured);
    switchTo(GL_DEPTH_TEST, wasTested);
}

Forms labelForms(Size) {
    const auto scene = std::make_shared<TextScene>();
    Forms forms;
    forms.module =
        repeated([scene] { scene->rig.camera().drawLabel(0.1, 0.2, 0.3, 3.0, 4.0, "Number %d", kNumber); });
    forms.bare = repeated([scene] {
        // The camera is loaded again behind each label, so the next one reads the matrices back.
        readMatrices(scene->view);
        labelByHand(scene->view);
    });
    forms.settle = Rig::finish;
    return forms;
}

}  // namespace

void addTextBenches(Operations& all) {
    all.push_back({"printText", "call", Kind::Text, textForms});
    all.push_back({"drawLabel", "call", Kind::Text, labelForms});
}

}  // namespace qel::bench
