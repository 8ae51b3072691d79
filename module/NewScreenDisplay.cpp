#include "CQelScreenDisplay.h"
#include "QelDisplay64t.h"

IQelDisplay* newScreenDisplay() {
    auto* const display = new CQelScreenDisplay();
    display->AddRef();
    return display;
}
