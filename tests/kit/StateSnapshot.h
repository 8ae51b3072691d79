#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace qel::test {

/// A photograph of all documented state of OpenGL 1.1 of the current context: enables, matrices and the
/// depths of the stacks, client arrays, pixel store and transfer, current values, points, lines and polygons,
/// buffers and masks, lights, materials and fog, lists, texture bindings, hints. Textures, the contents of
/// lists, stacks and evaluators are not in it.
///
/// Each entry has the name of what asks for it ("GL_LINE_WIDTH", "GL_LIGHT1 GL_POSITION", "GL_FRONT
/// GL_AMBIENT") and its values. "glGetError" is the error that waited when the photograph was taken, which is
/// thereby taken away; so a call that raised an error shows as a difference.
///
/// Must not be taken between glBegin and glEnd. Leaves OpenGL as it was and no mark in a CallTrace.
class StateSnapshot {
  public:
    using Values = std::vector<double>;

    /// Photographs the current context.
    static StateSnapshot take();

    /// All entries by name.
    const std::map<std::string, Values>& entries() const { return all; }

    /// The values of one entry; throws std::out_of_range for a name that is none.
    const Values& at(const std::string& name) const { return all.at(name); }

  private:
    std::map<std::string, Values> all;
};

/// Names of the entries that differ, in alphabetical order. A NaN is the same as another.
std::vector<std::string> differences(const StateSnapshot& before, const StateSnapshot& after);

/// Succeeds if no entries differ but those named; else tells the others with their values. A name that ends
/// in `*` allows all entries that begin so. A name that is no entry fails, as it would allow nothing.
::testing::AssertionResult changesOnly(const StateSnapshot& before, const StateSnapshot& after,
                                       const std::vector<std::string>& allowed = {});

}  // namespace qel::test
