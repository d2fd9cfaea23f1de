// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFlags>

namespace Workbench {

/// How the surface of a mesh is drawn.
enum class EDisplayMode {
    Shaded,    ///< smooth, by the normals of the vertices
    Flat,      ///< each face in a shade of its own
    Wireframe, ///< the edges alone, those of the far side too
    Points     ///< the vertices of the near side
};

/// What is drawn besides the surface.
enum class EAttribute {
    Edges = 1, ///< the edges on the surface
    Normals = 2,
    Box = 4, ///< around the mesh
    Axes = 8 ///< the directions of the coordinates, in the corner
};
Q_DECLARE_FLAGS(Attributes, EAttribute)

/// What is behind the mesh.
enum class EBackground {
    Light,
    Grey,
    Dark
};

/// All that the user chooses of how a mesh looks.
struct Appearance
{
    EDisplayMode mode = EDisplayMode::Shaded;
    Attributes attributes;
    EBackground background = EBackground::Light;

    bool operator==(const Appearance &other) const
    {
        return mode == other.mode && attributes == other.attributes
            && background == other.background;
    }
};

} // namespace Workbench

Q_DECLARE_OPERATORS_FOR_FLAGS(Workbench::Attributes)
