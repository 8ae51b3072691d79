#include <new>

#include "CQelSimpSymbol.h"
#include "QelDisplay64t.h"

#if defined(_WIN32)

#include "CGDIScrDisplay.h"
#include "CQelScreenDisplay.h"

namespace {

/// A display starts with one reference, which belongs to the caller.
template <class Display>
Display* newHeld() {
    auto* const display = new Display();
    display->AddRef();
    return display;
}

}  // namespace

IQelDisplay* newScreenDisplay() {
    return newHeld<CQelScreenDisplay>();
}

IQelScrDisplay2D* newGDIScrDisplay() {
    return newHeld<CGDIScrDisplay>();
}

#endif

IQelSymbol* newQelSymbol() {
    return new (std::nothrow) CQelSimpSymbol();
}
