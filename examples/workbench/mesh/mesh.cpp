// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/mesh.h"

#include <algorithm>
#include <utility>

namespace Workbench {

QVector3D Bounds::center() const
{
    return (lowest + highest) / 2.0F;
}

float Bounds::radius() const
{
    return (highest - lowest).length() / 2.0F;
}

Bounds boundsOf(const Mesh &mesh)
{
    if (mesh.positions.isEmpty())
        return {};
    Bounds bounds {mesh.positions.first(), mesh.positions.first()};
    for (const QVector3D &position : mesh.positions) {
        for (int axis = 0; axis < 3; ++axis) {
            bounds.lowest[axis] = std::min(bounds.lowest[axis], position[axis]);
            bounds.highest[axis] = std::max(bounds.highest[axis], position[axis]);
        }
    }
    return bounds;
}

QVector3D areaVector(const Mesh &mesh, const Face &face)
{
    const QVector3D *corners = mesh.positions.constData();
    const QVector3D &first = corners[face[0]];
    return QVector3D::crossProduct(corners[face[1]] - first, corners[face[2]] - first);
}

void updateNormals(Mesh &mesh)
{
    QVector<QVector3D> normals(mesh.positions.size());
    for (const Face &face : std::as_const(mesh.faces)) {
        const QVector3D area = areaVector(mesh, face);
        for (const quint32 corner : face)
            normals[static_cast<int>(corner)] += area;
    }
    for (QVector3D &normal : normals) {
        // QVector3D::normalized() takes the small areas of a mesh modelled in metres for zero.
        const float length = normal.length();
        normal = length > 0.0F ? normal / length : QVector3D(0.0F, 0.0F, 1.0F);
    }
    mesh.normals = std::move(normals);
}

void flipNormals(Mesh &mesh)
{
    for (Face &face : mesh.faces)
        std::swap(face[1], face[2]);
    for (QVector3D &normal : mesh.normals)
        normal = -normal;
}

} // namespace Workbench
