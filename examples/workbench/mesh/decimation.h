// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

namespace Workbench {

class Cancellation;

/// How a mesh is brought to fewer faces.
struct DecimateSettings
{
    double keptShare = 0.5;     ///< of the faces, above 0 to 1
    double largestError = 0.05; ///< by which the surface may move, as a share of the mesh's extent
    bool keepsRim = false;      ///< leaves the rim of an open mesh alone
};

/// A mesh with fewer faces in nearly the same shape. It stops above the share that was asked for when
/// the surface would move too far. Vertices that no face needs any more are left out.
/// @return an empty mesh when @p cancellation is thrown, and for an empty mesh
Mesh decimated(const Mesh &mesh, const DecimateSettings &settings,
               const Cancellation &cancellation);

} // namespace Workbench
