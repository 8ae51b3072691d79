#pragma once

#include "IQelCurve.h"

/// A ring (kind 5): a curve that `IQelSymbol::drawGeometry` closes from its last point to its first.
class IQelRing : public IQelCurve {};
