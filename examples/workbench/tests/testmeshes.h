// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

namespace Workbench::TestMeshes {

/// A regular tetrahedron around the origin.
inline Mesh tetrahedron()
{
    Mesh mesh;
    mesh.positions = {{1, 1, 1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}};
    mesh.faces = {{0, 1, 2}, {0, 3, 1}, {0, 2, 3}, {1, 3, 2}};
    updateNormals(mesh);
    return mesh;
}

/// A square of @p cells by @p cells unit cells in the plane z = 0, each of two triangles.
inline Mesh grid(int cells)
{
    Mesh mesh;
    const quint32 row = quint32(cells) + 1;
    for (int y = 0; y <= cells; ++y) {
        for (int x = 0; x <= cells; ++x)
            mesh.positions.append(QVector3D(float(x), float(y), 0.0F));
    }
    for (quint32 y = 0; y < quint32(cells); ++y) {
        for (quint32 x = 0; x < quint32(cells); ++x) {
            const quint32 corner = y * row + x;
            mesh.faces.append({corner, corner + 1, corner + row + 1});
            mesh.faces.append({corner, corner + row + 1, corner + row});
        }
    }
    updateNormals(mesh);
    return mesh;
}

/// grid(), with every second vertex lifted by @p height.
inline Mesh bumpyGrid(int cells, float height)
{
    Mesh mesh = grid(cells);
    for (int vertex = 0; vertex < mesh.positions.size(); vertex += 2)
        mesh.positions[vertex].setZ(height);
    updateNormals(mesh);
    return mesh;
}

} // namespace Workbench::TestMeshes
