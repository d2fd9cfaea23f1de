// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/facetree.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace Workbench {
namespace {

constexpr int largestLeaf = 8;
constexpr float unreachable = std::numeric_limits<float>::infinity();

QVector3D cornerOf(const Mesh &mesh, const Face &face, std::size_t corner)
{
    return mesh.positions.at(int(face[corner]));
}

void include(Bounds &bounds, const QVector3D &point)
{
    for (int axis = 0; axis < 3; ++axis) {
        bounds.lowest[axis] = std::min(bounds.lowest[axis], point[axis]);
        bounds.highest[axis] = std::max(bounds.highest[axis], point[axis]);
    }
}

int longestAxis(const Bounds &bounds)
{
    const QVector3D extent = bounds.highest - bounds.lowest;
    const int longer = extent.x() >= extent.y() ? 0 : 1;
    return extent[longer] >= extent.z() ? longer : 2;
}

/// How far away @p ray enters @p bounds, in lengths of its direction; unreachable when it misses.
float distanceTo(const Bounds &bounds, const Ray &ray)
{
    float enter = 0.0F;
    float leave = unreachable;
    for (int axis = 0; axis < 3; ++axis) {
        const float direction = ray.direction[axis];
        const float low = bounds.lowest[axis] - ray.origin[axis];
        const float high = bounds.highest[axis] - ray.origin[axis];
        if (direction == 0.0F) {
            if (low > 0.0F || high < 0.0F)
                return unreachable;
            continue;
        }
        enter = std::max(enter, std::min(low / direction, high / direction));
        leave = std::min(leave, std::max(low / direction, high / direction));
    }
    return enter <= leave ? enter : unreachable;
}

} // namespace

QVector3D centerOf(const Mesh &mesh, const Face &face)
{
    return (cornerOf(mesh, face, 0) + cornerOf(mesh, face, 1) + cornerOf(mesh, face, 2)) / 3.0F;
}

FaceTree::FaceTree(const Mesh &mesh)
    : m_mesh(mesh)
    , m_order(std::size_t(mesh.faces.size()))
{
    std::iota(m_order.begin(), m_order.end(), 0);
    m_centers.reserve(m_order.size());
    for (const Face &face : mesh.faces)
        m_centers.push_back(centerOf(mesh, face));
    if (!m_order.empty())
        build(0, int(m_order.size()));
}

int FaceTree::build(int first, int count)
{
    const int node = int(m_nodes.size());
    const QVector3D start = cornerOf(m_mesh, m_mesh.faces.at(m_order[std::size_t(first)]), 0);
    m_nodes.push_back({{start, start}, first, count, 0});
    for (int i = first; i < first + count; ++i) {
        const Face &face = m_mesh.faces.at(m_order[std::size_t(i)]);
        for (std::size_t corner = 0; corner < face.size(); ++corner)
            include(m_nodes.back().bounds, cornerOf(m_mesh, face, corner));
    }
    if (count > largestLeaf)
        split(node, first, count);
    return node;
}

/// Halves the faces by their middles, so that the depth does not depend on how they are spread.
void FaceTree::split(int node, int first, int count)
{
    const int axis = longestAxis(m_nodes[std::size_t(node)].bounds);
    const int half = count / 2;
    const auto begin = m_order.begin() + first;
    std::nth_element(begin, begin + half, begin + count, [this, axis](int one, int other) {
        return m_centers[std::size_t(one)][axis] < m_centers[std::size_t(other)][axis];
    });
    build(first, half);
    const int right = build(first + half, count - half);
    m_nodes[std::size_t(node)].right = right;
    m_nodes[std::size_t(node)].count = 0;
}

Hit FaceTree::firstHit(const Ray &ray) const
{
    Hit nearest {-1, unreachable};
    if (!m_nodes.empty())
        visit(m_nodes.front(), ray, nearest);
    return nearest;
}

void FaceTree::visit(const Node &node, const Ray &ray, Hit &nearest) const
{
    for (int i = node.first; i < node.first + node.count; ++i) {
        const int face = m_order[std::size_t(i)];
        const float distance = distanceTo(face, ray);
        if (distance < nearest.distance)
            nearest = {face, distance};
    }
    if (node.count > 0)
        return;
    const Node *closer = &node + 1;
    const Node *further = &m_nodes[std::size_t(node.right)];
    float closerDistance = Workbench::distanceTo(closer->bounds, ray);
    float furtherDistance = Workbench::distanceTo(further->bounds, ray);
    if (furtherDistance < closerDistance) {
        std::swap(closer, further);
        std::swap(closerDistance, furtherDistance);
    }
    if (closerDistance < nearest.distance)
        visit(*closer, ray, nearest);
    if (furtherDistance < nearest.distance)
        visit(*further, ray, nearest);
}

float FaceTree::distanceTo(int face, const Ray &ray) const
{
    const Face &corners = m_mesh.faces.at(face);
    const QVector3D first = cornerOf(m_mesh, corners, 0);
    const QVector3D one = cornerOf(m_mesh, corners, 1) - first;
    const QVector3D two = cornerOf(m_mesh, corners, 2) - first;
    const QVector3D across = QVector3D::crossProduct(ray.direction, two);
    const float determinant = QVector3D::dotProduct(one, across);
    if (determinant == 0.0F)
        return unreachable;
    const QVector3D offset = ray.origin - first;
    const float u = QVector3D::dotProduct(offset, across) / determinant;
    const QVector3D along = QVector3D::crossProduct(offset, one);
    const float v = QVector3D::dotProduct(ray.direction, along) / determinant;
    const float distance = QVector3D::dotProduct(two, along) / determinant;
    const bool isInside = u >= 0.0F && v >= 0.0F && u + v <= 1.0F;
    return isInside && distance > 0.0F ? distance : unreachable;
}

} // namespace Workbench
