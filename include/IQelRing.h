#pragma once

#include "IQelCurve.h"

/// A host's ring (`qel::GeometryKind::Ring`): a curve that `IQelSymbol::drawGeometry` closes from its last
/// point to its first.
class IQelRing : public IQelCurve {};
