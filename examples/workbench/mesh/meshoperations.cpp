// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/meshoperations.h"

#include "mesh/meshtopology.h"
#include "mesh/parallel.h"

#include <cmath>

namespace Workbench {
namespace {

using Points = QVector<QVector3D>;

QVector3D meanOfNeighbours(const QVector3D *points, const MeshTopology::Neighbours &neighbours)
{
    QVector3D sum;
    for (const int neighbour : neighbours)
        sum += points[neighbour];
    return sum / float(neighbours.size());
}

/// Moves every point by @p factor of the way to the mean of its neighbours; negative moves away.
Points movedToMean(const Points &from, float factor, const MeshTopology &topology,
                   const Cancellation &cancellation)
{
    Points to(from.size());
    const QVector3D *source = from.constData();
    QVector3D *target = to.data();
    forEachIndex(from.size(), cancellation, [&](int vertex) {
        const MeshTopology::Neighbours neighbours = topology.neighboursOf(vertex);
        const QVector3D &point = source[vertex];
        target[vertex] = neighbours.size() == 0
            ? point
            : point + factor * (meanOfNeighbours(source, neighbours) - point);
    });
    return to;
}

/// The share of each neighbour in the new place of a vertex with @p valence neighbours.
float loopWeight(int valence)
{
    constexpr double pi = 3.14159265358979323846;
    const double middle = 3.0 / 8.0 + std::cos(2.0 * pi / valence) / 4.0;
    return float((5.0 / 8.0 - middle * middle) / valence);
}

QVector3D loopVertex(const QVector3D *points, int vertex, const MeshTopology &topology)
{
    const MeshTopology::Neighbours neighbours = topology.neighboursOf(vertex);
    const int valence = neighbours.size();
    const bool isCorner = valence < 2 || (topology.isOnRim(vertex) && valence != 2);
    if (isCorner)
        return points[vertex];
    const float weight = topology.isOnRim(vertex) ? 1.0F / 8.0F : loopWeight(valence);
    const float share = weight * float(valence);
    return (1.0F - share) * points[vertex] + share * meanOfNeighbours(points, neighbours);
}

quint32 cornerOpposite(const Face &face, const Edge &edge)
{
    for (const quint32 corner : face) {
        if (corner != edge.first && corner != edge.second)
            return corner;
    }
    return edge.first;
}

QVector3D loopEdge(const Mesh &mesh, const Edge &edge)
{
    const QVector3D *points = mesh.positions.constData();
    const QVector3D ends = points[edge.first] + points[edge.second];
    if (edge.isRim())
        return ends / 2.0F;
    const Face *faces = mesh.faces.constData();
    const QVector3D wings = points[cornerOpposite(faces[edge.faces[0]], edge)]
        + points[cornerOpposite(faces[edge.faces[1]], edge)];
    return ends * (3.0F / 8.0F) + wings / 8.0F;
}

Points loopPoints(const Mesh &mesh, const MeshTopology &topology, const Cancellation &cancellation)
{
    const int vertexCount = mesh.positions.size();
    const int edgeCount = int(topology.edges().size());
    Points points(vertexCount + edgeCount);
    const QVector3D *source = mesh.positions.constData();
    QVector3D *target = points.data();
    forEachIndex(vertexCount, cancellation,
                 [&](int vertex) { target[vertex] = loopVertex(source, vertex, topology); });
    forEachIndex(edgeCount, cancellation, [&](int edge) {
        target[vertexCount + edge] = loopEdge(mesh, topology.edges()[std::size_t(edge)]);
    });
    return points;
}

QVector<Face> loopFaces(const Mesh &mesh, const MeshTopology &topology,
                        const Cancellation &cancellation)
{
    QVector<Face> faces(mesh.faces.size() * 4);
    const quint32 firstEdgePoint = quint32(mesh.positions.size());
    const Face *source = mesh.faces.constData();
    Face *target = faces.data();
    forEachIndex(mesh.faces.size(), cancellation, [&](int face) {
        const Face &corners = source[face];
        const std::array<int, 3> &edges = topology.edgesOfFace(face);
        const Face middles = {firstEdgePoint + quint32(edges[0]),
                              firstEdgePoint + quint32(edges[1]),
                              firstEdgePoint + quint32(edges[2])};
        Face *quarter = target + 4 * face;
        quarter[0] = {corners[0], middles[0], middles[2]};
        quarter[1] = {corners[1], middles[1], middles[0]};
        quarter[2] = {corners[2], middles[2], middles[1]};
        quarter[3] = middles;
    });
    return faces;
}

} // namespace

Mesh smoothed(const Mesh &mesh, const SmoothSettings &settings, const Cancellation &cancellation)
{
    const MeshTopology topology(mesh);
    Mesh result = mesh;
    for (int step = 0; step < settings.steps; ++step) {
        for (const float factor : {settings.pull, -settings.push}) {
            result.positions = movedToMean(result.positions, factor, topology, cancellation);
            if (cancellation.isCancelled())
                return {};
        }
    }
    updateNormals(result);
    return result;
}

Mesh subdivided(const Mesh &mesh, const Cancellation &cancellation)
{
    const MeshTopology topology(mesh);
    Mesh result;
    result.positions = loopPoints(mesh, topology, cancellation);
    result.faces = loopFaces(mesh, topology, cancellation);
    if (cancellation.isCancelled())
        return {};
    updateNormals(result);
    return result;
}

double roughness(const Mesh &mesh)
{
    const MeshTopology topology(mesh);
    double sum = 0.0;
    int count = 0;
    for (const Edge &edge : topology.edges()) {
        if (edge.isRim())
            continue;
        const QVector3D one = areaVector(mesh, mesh.faces[edge.faces[0]]);
        const QVector3D other = areaVector(mesh, mesh.faces[edge.faces[1]]);
        const double lengths = double(one.length()) * double(other.length());
        if (lengths > 0.0) {
            sum += 1.0 - double(QVector3D::dotProduct(one, other)) / lengths;
            ++count;
        }
    }
    return count > 0 ? sum / count : 0.0;
}

} // namespace Workbench
