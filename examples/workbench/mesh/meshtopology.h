// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

#include <vector>

namespace Workbench {

/// An edge between two vertices and the faces beside it.
struct Edge
{
    quint32 first = 0;
    quint32 second = 0;
    std::array<int, 2> faces = {-1, -1}; ///< the first two faces beside it, in order of the mesh
    int faceCount = 0;

    /// An edge with one face lies on the rim. One with more than two is treated the same way: the
    /// surface has no single continuation there.
    bool isRim() const { return faceCount != 2; }
};

/// Which vertices, edges and faces of a mesh are next to each other. It is built once from a mesh
/// and does not follow its changes.
class MeshTopology
{
public:
    explicit MeshTopology(const Mesh &mesh);

    const std::vector<Edge> &edges() const { return m_edges; }

    /// The indices of the edges that join corners 0-1, 1-2 and 2-0 of @p face.
    const std::array<int, 3> &edgesOfFace(int face) const { return m_faceEdges[std::size_t(face)]; }

    bool isOnRim(int vertex) const { return m_onRim[std::size_t(vertex)] != 0; }

    /// The vertices that @p vertex follows when the surface is smoothed: all that it shares an edge
    /// with, or on the rim those it shares a rim edge with, so that the rim stays a curve of its
    /// own.
    class Neighbours;
    Neighbours neighboursOf(int vertex) const;

private:
    void buildEdges(const Mesh &mesh);
    void buildNeighbours(int vertexCount);
    bool isLink(const Edge &edge, quint32 vertex) const;

    std::vector<Edge> m_edges;
    std::vector<std::array<int, 3>> m_faceEdges;
    std::vector<char> m_onRim;
    std::vector<int> m_firstNeighbour; // one entry more than vertices: where each list begins
    std::vector<int> m_neighbours;
};

/// A list of vertex indices inside a MeshTopology, valid as long as that.
class MeshTopology::Neighbours
{
public:
    Neighbours(const int *begin, const int *end)
        : m_begin(begin)
        , m_end(end)
    { }
    const int *begin() const { return m_begin; }
    const int *end() const { return m_end; }
    int size() const { return int(m_end - m_begin); }

private:
    const int *m_begin;
    const int *m_end;
};

} // namespace Workbench
