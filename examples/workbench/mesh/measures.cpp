// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/measures.h"

namespace Workbench {
namespace {

double areaOf(const Mesh &mesh, const Face &face)
{
    return 0.5 * double(areaVector(mesh, face).length());
}

} // namespace

double areaOf(const Mesh &mesh)
{
    double area = 0;
    for (const Face &face : mesh.faces)
        area += areaOf(mesh, face);
    return area;
}

double areaOf(const Mesh &mesh, const QVector<int> &faces)
{
    double area = 0;
    for (const int face : faces)
        area += areaOf(mesh, mesh.faces.at(face));
    return area;
}

double volumeOf(const Mesh &mesh)
{
    // From the middle, so that a mesh far from the origin loses no digits.
    const QVector3D middle = boundsOf(mesh).center();
    double volume = 0;
    for (const Face &face : mesh.faces) {
        const QVector3D corner = mesh.positions.at(int(face[0])) - middle;
        volume += double(QVector3D::dotProduct(corner, areaVector(mesh, face))) / 6.0;
    }
    return volume;
}

} // namespace Workbench
