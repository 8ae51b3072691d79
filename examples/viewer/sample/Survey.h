#pragma once

#include "Scene.h"

namespace qelview {

/// The survey of the sample landscape; each function adds its part to the scene.

/// A scanned wood: one coloured cloud of points.
void addScannedWood(Scene& scene);

/// Three stations: balls, marks on the ground, sight lines, names.
void addStations(Scene& scene);

/// A parcel with a hole, corner points, the shore of a pond, the path of a flight.
void addOutlines(Scene& scene);

}  // namespace qelview
