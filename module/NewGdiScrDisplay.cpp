#include "CGDIScrDisplay.h"
#include "QelDisplay64t.h"

IQelScrDisplay2D* newGDIScrDisplay() {
    auto* const display = new CGDIScrDisplay();
    display->AddRef();
    return display;
}
