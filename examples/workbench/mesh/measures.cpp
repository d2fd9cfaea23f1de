// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/measures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace Workbench {
namespace {

double areaOf(const Mesh &mesh, const Face &face)
{
    return 0.5 * double(areaVector(mesh, face).length());
}

/// From each corner of a face to the next one.
std::array<QVector3D, 3> sidesOf(const Mesh &mesh, const Face &face)
{
    const auto corner = [&](std::size_t i) { return mesh.positions.at(int(face[i % 3])); };
    return {corner(1) - corner(0), corner(2) - corner(1), corner(3) - corner(2)};
}

/// The angle between the side that ends in a corner and the one that begins there, in degrees.
double cornerBetween(const QVector3D &ending, const QVector3D &beginning)
{
    constexpr double degrees = 57.29577951308232;
    const double across = double(QVector3D::crossProduct(ending, beginning).length());
    return degrees * std::atan2(across, -double(QVector3D::dotProduct(ending, beginning)));
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

SideLengths sideLengthsOf(const Mesh &mesh)
{
    SideLengths lengths;
    if (mesh.faces.isEmpty())
        return lengths;
    lengths.shortest = std::numeric_limits<double>::max();
    double sum = 0;
    for (const Face &face : mesh.faces) {
        for (const QVector3D &side : sidesOf(mesh, face)) {
            const double length = double(side.length());
            lengths.shortest = std::min(lengths.shortest, length);
            lengths.longest = std::max(lengths.longest, length);
            sum += length;
        }
    }
    lengths.mean = sum / (3.0 * mesh.faces.size());
    return lengths;
}

double sharpestCornerOf(const Mesh &mesh)
{
    double sharpest = mesh.faces.isEmpty() ? 0 : 60;
    for (const Face &face : mesh.faces) {
        const std::array<QVector3D, 3> sides = sidesOf(mesh, face);
        for (std::size_t i = 0; i < 3; ++i)
            sharpest = std::min(sharpest, cornerBetween(sides[i], sides[(i + 1) % 3]));
    }
    return sharpest;
}

} // namespace Workbench
