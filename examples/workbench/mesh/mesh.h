// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector3D>
#include <QVector>

#include <array>

namespace Workbench {

/// The indices of a triangle's three corners, counter-clockwise as seen from outside.
using Face = std::array<quint32, 3>;

/// The box around a mesh, in the units of its file.
struct Bounds
{
    QVector3D lowest;
    QVector3D highest;

    QVector3D center() const;
    /// Half the diagonal: the radius of a sphere around center() that holds the mesh.
    float radius() const;
};

/// An indexed triangle mesh with one normal per vertex.
///
/// It is a value whose arrays are implicitly shared: a copy costs nothing and is a snapshot that a
/// background job can read while the original is changed. Every index in faces is below
/// positions.size(), and normals is as long as positions.
struct Mesh
{
    QVector<QVector3D> positions;
    QVector<QVector3D> normals;
    QVector<Face> faces;

    bool isEmpty() const { return faces.isEmpty(); }
};

Bounds boundsOf(const Mesh &mesh);

/// The vector at right angles to @p face, as long as twice its area.
QVector3D areaVector(const Mesh &mesh, const Face &face);

/// Works out every vertex normal anew, as the mean of the adjacent faces weighted by their area. A
/// vertex without area around it gets the z axis.
void updateNormals(Mesh &mesh);

/// Turns the mesh inside out: the corners of each face change their order, the normals their sign.
void flipNormals(Mesh &mesh);

} // namespace Workbench
