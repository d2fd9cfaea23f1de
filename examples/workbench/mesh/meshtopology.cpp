// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/meshtopology.h"

#include <tbb/parallel_sort.h>

#include <algorithm>
#include <tuple>

namespace Workbench {
namespace {

/// One side of one face, with its vertices in ascending order so that equal edges sort together.
struct Side
{
    quint32 low;
    quint32 high;
    int face;
    int corner;

    bool operator<(const Side &other) const
    {
        return std::tie(low, high, face, corner)
            < std::tie(other.low, other.high, other.face, other.corner);
    }
};

std::vector<Side> sortedSides(const Mesh &mesh)
{
    std::vector<Side> sides;
    sides.reserve(std::size_t(mesh.faces.size()) * 3);
    for (int face = 0; face < mesh.faces.size(); ++face) {
        for (int corner = 0; corner < 3; ++corner) {
            const quint32 from = mesh.faces[face][std::size_t(corner)];
            const quint32 to = mesh.faces[face][std::size_t((corner + 1) % 3)];
            sides.push_back({std::min(from, to), std::max(from, to), face, corner});
        }
    }
    tbb::parallel_sort(sides.begin(), sides.end());
    return sides;
}

} // namespace

MeshTopology::MeshTopology(const Mesh &mesh)
{
    buildEdges(mesh);
    buildNeighbours(mesh.positions.size());
}

void MeshTopology::buildEdges(const Mesh &mesh)
{
    m_faceEdges.resize(std::size_t(mesh.faces.size()));
    for (const Side &side : sortedSides(mesh)) {
        if (m_edges.empty() || m_edges.back().first != side.low
            || m_edges.back().second != side.high)
            m_edges.push_back({side.low, side.high, {-1, -1}, 0});
        Edge &edge = m_edges.back();
        if (edge.faceCount < 2)
            edge.faces[std::size_t(edge.faceCount)] = side.face;
        ++edge.faceCount;
        m_faceEdges[std::size_t(side.face)][std::size_t(side.corner)] = int(m_edges.size()) - 1;
    }
}

bool MeshTopology::isLink(const Edge &edge, quint32 vertex) const
{
    return edge.isRim() || !isOnRim(int(vertex));
}

void MeshTopology::buildNeighbours(int vertexCount)
{
    m_onRim.assign(std::size_t(vertexCount), 0);
    for (const Edge &edge : m_edges) {
        if (edge.isRim())
            m_onRim[edge.first] = m_onRim[edge.second] = 1;
    }

    m_firstNeighbour.assign(std::size_t(vertexCount) + 1, 0);
    for (const Edge &edge : m_edges) {
        m_firstNeighbour[edge.first + 1] += isLink(edge, edge.first) ? 1 : 0;
        m_firstNeighbour[edge.second + 1] += isLink(edge, edge.second) ? 1 : 0;
    }
    for (std::size_t vertex = 1; vertex < m_firstNeighbour.size(); ++vertex)
        m_firstNeighbour[vertex] += m_firstNeighbour[vertex - 1];

    m_neighbours.resize(std::size_t(m_firstNeighbour.back()));
    std::vector<int> next(m_firstNeighbour.begin(), m_firstNeighbour.end() - 1);
    for (const Edge &edge : m_edges) {
        if (isLink(edge, edge.first))
            m_neighbours[std::size_t(next[edge.first]++)] = int(edge.second);
        if (isLink(edge, edge.second))
            m_neighbours[std::size_t(next[edge.second]++)] = int(edge.first);
    }
}

MeshTopology::Neighbours MeshTopology::neighboursOf(int vertex) const
{
    const int *all = m_neighbours.data();
    return {all + m_firstNeighbour[std::size_t(vertex)],
            all + m_firstNeighbour[std::size_t(vertex) + 1]};
}

} // namespace Workbench
