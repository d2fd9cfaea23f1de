// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/mesh.h"

#include "mesh/meshtopology.h"
#include "testmeshes.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Workbench;

TEST(Mesh, boundsHoldEveryVertex)
{
    const Bounds bounds = boundsOf(TestMeshes::tetrahedron());
    EXPECT_EQ(bounds.lowest, QVector3D(-1, -1, -1));
    EXPECT_EQ(bounds.highest, QVector3D(1, 1, 1));
    EXPECT_EQ(bounds.center(), QVector3D(0, 0, 0));
    EXPECT_FLOAT_EQ(bounds.radius(), std::sqrt(3.0F));
}

TEST(Mesh, anEmptyMeshHasNoExtent)
{
    EXPECT_EQ(boundsOf(Mesh()).radius(), 0.0F);
    EXPECT_TRUE(Mesh().isEmpty());
}

TEST(Mesh, normalsOfAClosedMeshPointOutwards)
{
    const Mesh mesh = TestMeshes::tetrahedron();
    for (int vertex = 0; vertex < mesh.positions.size(); ++vertex) {
        EXPECT_NEAR(mesh.normals[vertex].length(), 1.0F, 1e-6);
        EXPECT_NEAR(
            QVector3D::dotProduct(mesh.normals[vertex], mesh.positions[vertex].normalized()), 1.0F,
            1e-6);
    }
}

TEST(Mesh, normalsDoNotDependOnTheUnitOfTheFile)
{
    Mesh mesh = TestMeshes::tetrahedron();
    for (QVector3D &position : mesh.positions)
        position *= 1e-6F;
    updateNormals(mesh);
    const Mesh large = TestMeshes::tetrahedron();
    for (int vertex = 0; vertex < mesh.normals.size(); ++vertex)
        EXPECT_LT((mesh.normals[vertex] - large.normals[vertex]).length(), 1e-5F);
}

TEST(Mesh, largeFacesWeighMoreInANormal)
{
    Mesh mesh;
    mesh.positions = {{0, 0, 0}, {3, 0, 0}, {0, 3, 0}, {0, 0, 1}};
    mesh.faces = {{0, 1, 2}, {0, 2, 3}};
    updateNormals(mesh);
    EXPECT_LT((mesh.normals[0] - QVector3D(3, 0, 9).normalized()).length(), 1e-5F);
}

TEST(Mesh, aVertexWithoutAreaGetsANormalToo)
{
    Mesh mesh;
    mesh.positions = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}};
    mesh.faces = {{0, 1, 2}};
    updateNormals(mesh);
    EXPECT_EQ(mesh.normals[1], QVector3D(0, 0, 1));
}

TEST(Mesh, flippingTurnsFacesAndNormalsAround)
{
    const Mesh before = TestMeshes::tetrahedron();
    Mesh after = before;
    flipNormals(after);
    for (int vertex = 0; vertex < before.normals.size(); ++vertex)
        EXPECT_EQ(after.normals[vertex], -before.normals[vertex]);
    for (int face = 0; face < before.faces.size(); ++face) {
        EXPECT_EQ(areaVector(after, after.faces[face]), -areaVector(before, before.faces[face]));
    }
    EXPECT_EQ(after.positions, before.positions);
}

TEST(Mesh, aCopyIsASnapshot)
{
    Mesh mesh = TestMeshes::tetrahedron();
    const Mesh snapshot = mesh;
    flipNormals(mesh);
    EXPECT_EQ(snapshot.faces, TestMeshes::tetrahedron().faces);
    EXPECT_EQ(snapshot.normals, TestMeshes::tetrahedron().normals);
}

TEST(MeshTopology, aClosedMeshHasTwoFacesAtEachEdge)
{
    const Mesh mesh = TestMeshes::tetrahedron();
    const MeshTopology topology(mesh);
    EXPECT_EQ(topology.edges().size(), 6U);
    for (const Edge &edge : topology.edges())
        EXPECT_FALSE(edge.isRim());
    for (int vertex = 0; vertex < 4; ++vertex) {
        EXPECT_FALSE(topology.isOnRim(vertex));
        EXPECT_EQ(topology.neighboursOf(vertex).size(), 3);
    }
}

TEST(MeshTopology, edgesOfAFaceFollowItsCorners)
{
    const Mesh mesh = TestMeshes::grid(3);
    const MeshTopology topology(mesh);
    for (int face = 0; face < mesh.faces.size(); ++face) {
        for (std::size_t side = 0; side < 3; ++side) {
            const Edge &edge = topology.edges()[std::size_t(topology.edgesOfFace(face)[side])];
            const quint32 from = mesh.faces[face][side];
            const quint32 to = mesh.faces[face][(side + 1) % 3];
            EXPECT_EQ(edge.first, std::min(from, to));
            EXPECT_EQ(edge.second, std::max(from, to));
        }
    }
}

TEST(MeshTopology, aRimVertexFollowsTheRimOnly)
{
    const MeshTopology topology(TestMeshes::grid(2));
    EXPECT_TRUE(topology.isOnRim(1));
    EXPECT_EQ(topology.neighboursOf(1).size(), 2);
    EXPECT_FALSE(topology.isOnRim(4));
    EXPECT_EQ(topology.neighboursOf(4).size(), 6);
}

TEST(MeshTopology, anEdgeOfThreeFacesCountsAsRim)
{
    Mesh mesh;
    mesh.positions = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}};
    mesh.faces = {{0, 1, 2}, {1, 0, 3}, {0, 1, 4}};
    const MeshTopology topology(mesh);
    EXPECT_EQ(topology.edges().front().faceCount, 3);
    EXPECT_TRUE(topology.edges().front().isRim());
}

TEST(MeshTopology, anEmptyMeshHasNoEdges)
{
    EXPECT_TRUE(MeshTopology(Mesh()).edges().empty());
}
