#pragma once

/// Everything that a host needs of QelDisplay64t: all interfaces and the four exported functions.
///
/// The functions are exported under undecorated names, for hosts that load the library at run time and look
/// them up with GetProcAddress.

#include "CQelCancelTail.h"
#include "CQelTranform.h"
#include "CQelTransform2d.h"
#include "ICancelTail.h"
#include "IQelArray.h"
#include "IQelBall.h"
#include "IQelCurve.h"
#include "IQelDisplay.h"
#include "IQelDisplayEvent.h"
#include "IQelGL.h"
#include "IQelGeometry.h"
#include "IQelLight.h"
#include "IQelLights.h"
#include "IQelPoint.h"
#include "IQelPointArray.h"
#include "IQelPolygon.h"
#include "IQelPolyline.h"
#include "IQelRing.h"
#include "IQelScrDisplay.h"
#include "IQelScrDisplay2D.h"
#include "IQelSymbol.h"
#include "IQelTrackBall.h"
#include "IQelTransform.h"
#include "IQelTransform2D.h"
#include "ITask.h"
#include "QelArrayElements.h"
#include "QelDisplayExport.h"
#include "QelHandle.h"
#include "QelMeshStyle.h"
#include "QelRefPtr.h"
#include "QelStatus.h"

extern "C" {

/// Creates an OpenGL screen display. Call it on the thread that owns the window. Returns it with one
/// reference, which the caller releases with `Release`; the last release destroys the display and its own
/// context. Throws std::bad_alloc if out of memory.
[[nodiscard]] QEL_DISPLAY_API IQelDisplay* newScreenDisplay();

/// Creates a GDI display. Call it on the thread that owns the window. Returns it with one reference, which
/// the caller releases with `Release`. Throws std::bad_alloc if out of memory.
[[nodiscard]] QEL_DISPLAY_API IQelScrDisplay2D* newGDIScrDisplay();

/// Creates a symbol. Any thread may call it. Returns it without a reference, to be kept in a `qel::ref_ptr`,
/// which adds the first one; null if out of memory.
[[nodiscard]] QEL_DISPLAY_API IQelSymbol* newQelSymbol();
}

namespace qel {

#if defined(__clang__)
// The smart pointer is a class, and the function must still be found under its plain name.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#elif defined(_MSC_VER)
#pragma warning(push)
#pragma warning(disable : 4190)
#endif

/// The public symbol: one that the module keeps for hosts that draw markers and keep none of their own. The
/// module replaces it whenever a thread starts or ends; one that is held stays alive. Empty if called before
/// the module's entry point has run. Any thread may call it.
extern "C" [[nodiscard]] QEL_DISPLAY_API ref_ptr<IQelSymbol> getPubSymbol();

#if defined(__clang__)
#pragma clang diagnostic pop
#elif defined(_MSC_VER)
#pragma warning(pop)
#endif

}  // namespace qel
