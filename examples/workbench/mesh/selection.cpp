// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/selection.h"

#include <vector>

namespace Workbench {
namespace {

std::vector<bool> marksOf(const Mesh &mesh, const QVector<int> &faces)
{
    std::vector<bool> marks(std::size_t(mesh.faces.size()), false);
    for (const int face : faces) {
        if (face >= 0 && face < mesh.faces.size())
            marks[std::size_t(face)] = true;
    }
    return marks;
}

std::vector<bool> verticesOf(const Mesh &mesh, const std::vector<bool> &marks)
{
    std::vector<bool> vertices(std::size_t(mesh.positions.size()), false);
    for (int face = 0; face < mesh.faces.size(); ++face) {
        for (const quint32 corner : mesh.faces[face])
            vertices[corner] = vertices[corner] || marks[std::size_t(face)];
    }
    return vertices;
}

} // namespace

QVector<int> invertedFaces(const Mesh &mesh, const QVector<int> &faces)
{
    const std::vector<bool> marks = marksOf(mesh, faces);
    QVector<int> others;
    for (int face = 0; face < mesh.faces.size(); ++face) {
        if (!marks[std::size_t(face)])
            others.append(face);
    }
    return others;
}

QVector<int> grownFaces(const Mesh &mesh, const QVector<int> &faces)
{
    const std::vector<bool> vertices = verticesOf(mesh, marksOf(mesh, faces));
    QVector<int> grown;
    for (int face = 0; face < mesh.faces.size(); ++face) {
        const auto &[first, second, third] = mesh.faces[face];
        if (vertices[first] || vertices[second] || vertices[third])
            grown.append(face);
    }
    return grown;
}

Mesh withoutFaces(const Mesh &mesh, const QVector<int> &faces)
{
    std::vector<bool> left = marksOf(mesh, faces);
    left.flip();
    const std::vector<bool> vertices = verticesOf(mesh, left);
    Mesh rest;
    std::vector<quint32> newIndex(vertices.size(), 0);
    for (std::size_t vertex = 0; vertex < vertices.size(); ++vertex) {
        newIndex[vertex] = quint32(rest.positions.size());
        if (vertices[vertex])
            rest.positions.append(mesh.positions[int(vertex)]);
    }
    for (int face = 0; face < mesh.faces.size(); ++face) {
        const auto &[first, second, third] = mesh.faces[face];
        if (left[std::size_t(face)])
            rest.faces.append({newIndex[first], newIndex[second], newIndex[third]});
    }
    updateNormals(rest);
    return rest;
}

} // namespace Workbench
