// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/selection.h"

#include "testmeshes.h"

#include <gtest/gtest.h>

using namespace Workbench;
using Faces = QVector<int>;

TEST(SelectionTest, invertedFacesAreTheOthers)
{
    const Mesh mesh = TestMeshes::tetrahedron();
    EXPECT_EQ(invertedFaces(mesh, {1, 3}), Faces({0, 2}));
    EXPECT_EQ(invertedFaces(mesh, {}), Faces({0, 1, 2, 3}));
    EXPECT_EQ(invertedFaces(mesh, {0, 1, 2, 3}), Faces());
}

TEST(SelectionTest, facesThatAreNotThereAreLeftOut)
{
    const Mesh mesh = TestMeshes::tetrahedron();
    EXPECT_EQ(invertedFaces(mesh, {-1, 2, 4, 1000}), Faces({0, 1, 3}));
    EXPECT_EQ(grownFaces(mesh, {-1, 4}), Faces());
    EXPECT_EQ(withoutFaces(mesh, {-1, 4}).faces, mesh.faces);
}

TEST(SelectionTest, grownFacesShareAVertexWithOneOfBefore)
{
    // Two triangles per cell; the first one has the corner of the grid and touches three cells.
    const Mesh mesh = TestMeshes::grid(3);
    EXPECT_EQ(grownFaces(mesh, {0}), Faces({0, 1, 2, 3, 6, 8, 9}));
    EXPECT_EQ(grownFaces(mesh, {}), Faces());
}

TEST(SelectionTest, deletedFacesTakeTheirOwnVerticesAlong)
{
    const Mesh mesh = TestMeshes::grid(1);
    const Mesh rest = withoutFaces(mesh, {0});
    ASSERT_EQ(rest.faces.size(), 1);
    EXPECT_EQ(rest.positions.size(), 3);
    EXPECT_EQ(rest.normals.size(), 3);
    for (std::size_t corner = 0; corner < 3; ++corner) {
        EXPECT_EQ(rest.positions[int(rest.faces[0][corner])],
                  mesh.positions[int(mesh.faces[1][corner])]);
    }
}

TEST(SelectionTest, nothingIsLeftWithoutAllFaces)
{
    const Mesh rest = withoutFaces(TestMeshes::tetrahedron(), {0, 1, 2, 3});
    EXPECT_TRUE(rest.isEmpty());
    EXPECT_TRUE(rest.positions.isEmpty());
}
