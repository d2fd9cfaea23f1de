// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/facetree.h"

#include "testmeshes.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace Workbench;

namespace {

/// What the tree finds, by looking at one face after the other.
Hit firstHitOneByOne(const Mesh &mesh, const Ray &ray)
{
    Hit nearest {-1, std::numeric_limits<float>::infinity()};
    for (int face = 0; face < mesh.faces.size(); ++face) {
        Mesh single;
        single.positions = mesh.positions;
        single.faces = {mesh.faces[face]};
        const Hit hit = FaceTree(single).firstHit(ray);
        if (hit.isHit() && hit.distance < nearest.distance)
            nearest = {face, hit.distance};
    }
    return nearest;
}

} // namespace

TEST(FaceTree, anEmptyMeshIsNeverHit)
{
    EXPECT_FALSE(FaceTree().firstHit({{0, 0, 5}, {0, 0, -1}}).isHit());
    EXPECT_FALSE(FaceTree(Mesh()).firstHit({{0, 0, 5}, {0, 0, -1}}).isHit());
}

TEST(FaceTree, tellsTheFaceAndItsDistance)
{
    const Hit hit = FaceTree(TestMeshes::grid(4)).firstHit({{2.7F, 1.2F, 5.0F}, {0, 0, -2}});
    EXPECT_EQ(hit.face,
              2 * (4 * 1 + 2)); // the lower right half of the third cell in the second row
    EXPECT_FLOAT_EQ(hit.distance, 2.5F);
}

TEST(FaceTree, findsFacesFromBothSides)
{
    const FaceTree tree(TestMeshes::grid(4));
    EXPECT_TRUE(tree.firstHit({{0.5F, 0.2F, 5}, {0, 0, -1}}).isHit());
    EXPECT_TRUE(tree.firstHit({{0.5F, 0.2F, -5}, {0, 0, 1}}).isHit());
}

TEST(FaceTree, overlooksWhatLiesBehindOrBeside)
{
    const FaceTree tree(TestMeshes::grid(4));
    EXPECT_FALSE(tree.firstHit({{0.5F, 0.2F, 5}, {0, 0, 1}}).isHit());
    EXPECT_FALSE(tree.firstHit({{4.5F, 0.2F, 5}, {0, 0, -1}}).isHit());
    EXPECT_FALSE(tree.firstHit({{0.5F, 0.2F, 5}, {1, 0, 0}}).isHit());
}

TEST(FaceTree, findsWhatLookingAtEveryFaceFinds)
{
    const Mesh mesh = TestMeshes::bumpyGrid(12, 2.0F);
    const FaceTree tree(mesh);
    std::mt19937 random(7);
    std::uniform_real_distribution<float> place(-2.0F, 14.0F);
    int hits = 0;
    for (int i = 0; i < 200; ++i) {
        const QVector3D from(place(random), place(random), place(random));
        const Ray ray {from, QVector3D(place(random), place(random), place(random)) - from};
        const Hit expected = firstHitOneByOne(mesh, ray);
        const Hit hit = tree.firstHit(ray);
        EXPECT_EQ(hit.isHit(), expected.isHit());
        EXPECT_FLOAT_EQ(hit.distance, expected.distance);
        hits += hit.isHit() ? 1 : 0;
    }
    EXPECT_GT(hits, 20);
}

TEST(FaceTree, knowsAMeshWhoseFacesAllLieAtOnePlace)
{
    Mesh mesh = TestMeshes::tetrahedron();
    const QVector<Face> once = mesh.faces;
    for (int copy = 0; copy < 50; ++copy)
        mesh.faces += once;
    EXPECT_TRUE(FaceTree(mesh).firstHit({{0, 0, 5}, {0.01F, 0.02F, -1}}).isHit());
}

TEST(FaceTree, doesNotFollowChangesOfItsMesh)
{
    Mesh mesh = TestMeshes::grid(4);
    const FaceTree tree(mesh);
    mesh.faces.clear();
    EXPECT_TRUE(tree.firstHit({{0.5F, 0.2F, 5}, {0, 0, -1}}).isHit());
}
