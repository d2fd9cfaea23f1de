// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

#include <vector>

namespace Workbench {

/// A half line in the coordinates of a mesh. The direction may have any length but zero.
struct Ray
{
    QVector3D origin;
    QVector3D direction;
};

/// Where a ray meets a mesh first.
struct Hit
{
    int face = -1;         ///< the index of the face; -1 for none
    float distance = 0.0F; ///< from the origin, in lengths of the direction

    bool isHit() const { return face >= 0; }
};

/// Finds the face that a ray meets first, by a tree of boxes around the faces.
///
/// It is built once from a mesh, whose arrays it shares, and does not follow its changes. Questions
/// may be asked on several threads at the same time.
class FaceTree
{
public:
    FaceTree() = default;
    explicit FaceTree(const Mesh &mesh);

    /// The first face of @p mesh that @p ray meets, from whichever side.
    Hit firstHit(const Ray &ray) const;

private:
    struct Node
    {
        Bounds bounds;
        int first = 0; ///< the first of its faces in m_order
        int count = 0; ///< how many there are; 0 for an inner node
        int right = 0; ///< of an inner node: its right child; the left one follows it directly
    };

    int build(int first, int count);
    void split(int node, int first, int count);
    void visit(const Node &node, const Ray &ray, Hit &nearest) const;
    float distanceTo(int face, const Ray &ray) const;

    Mesh m_mesh;
    std::vector<QVector3D> m_centers;
    std::vector<int> m_order; // face indices, so that each node has a stretch of them
    std::vector<Node> m_nodes;
};

/// The middle of @p face.
QVector3D centerOf(const Mesh &mesh, const Face &face);

} // namespace Workbench
