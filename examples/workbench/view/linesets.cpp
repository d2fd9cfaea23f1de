// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/linesets.h"

#include <array>
#include <initializer_list>

namespace Workbench {
namespace {

/// The strokes of a letter in a square from -1 to 1.
using Strokes = std::initializer_list<std::array<QVector2D, 2>>;

const Strokes letterX = {{{{-1, -1}, {1, 1}}}, {{{-1, 1}, {1, -1}}}};
const Strokes letterY = {{{{-1, 1}, {0, 0}}}, {{{1, 1}, {0, 0}}}, {{{0, 0}, {0, -1}}}};
const Strokes letterZ = {{{{-1, 1}, {1, 1}}}, {{{1, 1}, {-1, -1}}}, {{{-1, -1}, {1, -1}}}};

void append(LineSet &lines, const QVector3D &from, const QVector3D &to, const QVector3D &color)
{
    lines << LineEnd {from, color} << LineEnd {to, color};
}

void appendLetter(LineSet &lines, const Strokes &strokes, const QVector3D &middle, float size,
                  const QVector3D &color)
{
    for (const std::array<QVector2D, 2> &stroke : strokes)
        append(lines, middle + QVector3D(stroke[0] * size), middle + QVector3D(stroke[1] * size),
               color);
}

QVector3D corner(const Bounds &bounds, int index)
{
    return {(index & 1) != 0 ? bounds.highest.x() : bounds.lowest.x(),
            (index & 2) != 0 ? bounds.highest.y() : bounds.lowest.y(),
            (index & 4) != 0 ? bounds.highest.z() : bounds.lowest.z()};
}

} // namespace

LineSet normalLines(const Mesh &mesh)
{
    const QVector3D color(0.77F, 0.46F, 0.0F);
    const float length = boundsOf(mesh).radius() * 0.03F;
    LineSet lines;
    lines.reserve(mesh.positions.size() * 2);
    for (int vertex = 0; vertex < mesh.positions.size(); ++vertex) {
        const QVector3D foot = mesh.positions.at(vertex);
        append(lines, foot, foot + mesh.normals.at(vertex) * length, color);
    }
    return lines;
}

LineSet boxLines(const Bounds &bounds)
{
    const QVector3D color(0.16F, 0.40F, 0.64F);
    LineSet lines;
    for (int from = 0; from < 8; ++from) {
        for (const int axis : {1, 2, 4}) {
            if ((from & axis) == 0)
                append(lines, corner(bounds, from), corner(bounds, from | axis), color);
        }
    }
    return lines;
}

LineSet axisLines(const QMatrix4x4 &rotation, const QVector2D &middle, float length)
{
    struct Axis
    {
        QVector3D direction;
        QVector3D color;
        const Strokes &letter;
    };
    const std::array<Axis, 3> axes = {{{{1, 0, 0}, {0.80F, 0.20F, 0.20F}, letterX},
                                       {{0, 1, 0}, {0.18F, 0.55F, 0.24F}, letterY},
                                       {{0, 0, 1}, {0.16F, 0.40F, 0.64F}, letterZ}}};
    LineSet lines;
    for (const Axis &axis : axes) {
        QVector3D arm = rotation.mapVector(axis.direction);
        arm.setZ(0.0F);
        append(lines, middle, QVector3D(middle) + arm * length, axis.color);
        const QVector3D beyond = arm * length + arm.normalized() * (length * 0.3F);
        appendLetter(lines, axis.letter, QVector3D(middle) + beyond, length * 0.1F, axis.color);
    }
    return lines;
}

} // namespace Workbench
