// Compiled for its virtual tables only: a class with a constructor out of line makes the compiler lay out the
// table of its base.

#include "QelDisplay64t.h"

#define QEL_PROBE(interface_)                \
    struct Probe_##interface_ : interface_ { \
        Probe_##interface_();                \
    };                                       \
    Probe_##interface_::Probe_##interface_() = default;

using IQelArrayOfBytes = IQelArray<unsigned char>;

QEL_PROBE(ITask)
QEL_PROBE(ICancelTail)
QEL_PROBE(CQelCancelTail)
QEL_PROBE(IQelLight)
QEL_PROBE(IQelLights)
QEL_PROBE(IQelDisplayEvent)
QEL_PROBE(IQelGL)
QEL_PROBE(IQelDisplay)
QEL_PROBE(IQelScrDisplay)
QEL_PROBE(IQelTrackBall)
QEL_PROBE(IQelSymbol)
QEL_PROBE(IQelTransform)
QEL_PROBE(IQelTransform2D)
QEL_PROBE(IQelScrDisplay2D)
QEL_PROBE(IQelGeometry)
QEL_PROBE(IQelPoint)
QEL_PROBE(IQelPolyline)
QEL_PROBE(IQelPolygon)
QEL_PROBE(IQelCurve)
QEL_PROBE(IQelRing)
QEL_PROBE(IQelBall)
QEL_PROBE(IQelPointArray)
QEL_PROBE(IQelArrayOfBytes)

#undef QEL_PROBE
