// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

namespace Workbench {

class Cancellation;

/// How a mesh is smoothed: each step pulls every vertex towards the mean of its neighbours and
/// pushes it back a little further, which takes the noise away and keeps the volume.
struct SmoothSettings
{
    int steps = 25;
    float pull = 0.5F;
    float push = 0.53F;
};

/// A smoother mesh with the same vertices and faces as @p mesh. The rim of an open mesh is smoothed
/// as a curve of its own. Uses all cores; the result does not depend on how many there are.
/// @return an empty mesh when @p cancellation is thrown
Mesh smoothed(const Mesh &mesh, const SmoothSettings &settings, const Cancellation &cancellation);

/// One step of Loop subdivision: every face becomes four, and the surface gets rounder. Uses all
/// cores; the result does not depend on how many there are.
/// @return an empty mesh when @p cancellation is thrown
Mesh subdivided(const Mesh &mesh, const Cancellation &cancellation);

/// How far neighbouring faces are from lying in one plane: 0 for a flat mesh, at most 2. It is the
/// mean of 1 - cos(angle) over all edges between two faces.
double roughness(const Mesh &mesh);

} // namespace Workbench
