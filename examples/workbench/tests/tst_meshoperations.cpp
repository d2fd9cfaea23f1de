// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/meshoperations.h"

#include "mesh/cancellation.h"
#include "mesh/meshtopology.h"
#include "mesh/parallel.h"
#include "testmeshes.h"

#include <gtest/gtest.h>

#include <tbb/global_control.h>

#include <atomic>
#include <cstring>
#include <map>
#include <set>

using namespace Workbench;

namespace {

using Points = QVector<QVector3D>;

Mesh smoothedFreely(const Mesh &mesh, const SmoothSettings &settings = {})
{
    return smoothed(mesh, settings, Cancellation());
}

Mesh subdividedFreely(const Mesh &mesh)
{
    return subdivided(mesh, Cancellation());
}

bool isBitEqual(const Points &one, const Points &other)
{
    return one.size() == other.size()
        && std::memcmp(one.constData(), other.constData(),
                       std::size_t(one.size()) * sizeof(QVector3D))
        == 0;
}

/// One smoothing move in the plainest form: neighbours collected in sets, vertices one by one.
Points plainlyMoved(const Mesh &mesh, const Points &from, float factor)
{
    std::map<quint32, std::set<quint32>> neighbours;
    for (const Face &face : mesh.faces) {
        for (std::size_t corner = 0; corner < 3; ++corner) {
            neighbours[face[corner]].insert(face[(corner + 1) % 3]);
            neighbours[face[corner]].insert(face[(corner + 2) % 3]);
        }
    }
    Points to = from;
    for (const auto &[vertex, around] : neighbours) {
        QVector3D sum;
        for (const quint32 neighbour : around)
            sum += from[int(neighbour)];
        const QVector3D &point = from[int(vertex)];
        to[int(vertex)] = point + factor * (sum / float(around.size()) - point);
    }
    return to;
}

double volume(const Mesh &mesh)
{
    double sum = 0.0;
    for (const Face &face : mesh.faces)
        sum += double(QVector3D::dotProduct(mesh.positions[int(face[0])], areaVector(mesh, face)));
    return sum / 6.0;
}

/// A sphere by subdivision, with radial noise that repeats on every run.
Mesh noisySphere()
{
    Mesh mesh = TestMeshes::tetrahedron();
    for (int level = 0; level < 5; ++level)
        mesh = subdividedFreely(mesh);
    quint32 seed = 7;
    for (QVector3D &position : mesh.positions) {
        seed = seed * 1664525U + 1013904223U;
        position = position.normalized() * (1.0F + 0.02F * float(seed >> 16) / 65536.0F);
    }
    updateNormals(mesh);
    return mesh;
}

} // namespace

TEST(Subdivide, tetrahedronGetsTheKnownPlaces)
{
    const Mesh before = TestMeshes::tetrahedron();
    const Mesh after = subdividedFreely(before);
    ASSERT_EQ(after.positions.size(), 10);
    ASSERT_EQ(after.faces.size(), 16);
    // All corners add up to zero, so both rules come down to a quarter.
    for (int vertex = 0; vertex < 4; ++vertex)
        EXPECT_LT((after.positions[vertex] - before.positions[vertex] / 4).length(), 1e-6F);
    const MeshTopology topology(before);
    for (int edge = 0; edge < 6; ++edge) {
        const Edge &ends = topology.edges()[std::size_t(edge)];
        const QVector3D sum =
            before.positions[int(ends.first)] + before.positions[int(ends.second)];
        EXPECT_LT((after.positions[4 + edge] - sum / 4).length(), 1e-6F);
    }
}

TEST(Subdivide, aClosedMeshStaysClosedAndKeepsItsOrientation)
{
    const Mesh mesh = subdividedFreely(subdividedFreely(TestMeshes::tetrahedron()));
    const MeshTopology topology(mesh);
    for (const Edge &edge : topology.edges())
        EXPECT_FALSE(edge.isRim());
    EXPECT_EQ(mesh.positions.size() - int(topology.edges().size()) + mesh.faces.size(), 2);
    EXPECT_GT(volume(mesh), 0.0);
}

TEST(Subdivide, aRegularPlaneStaysWhereItIs)
{
    const Mesh before = TestMeshes::grid(4);
    const Mesh after = subdividedFreely(before);
    ASSERT_EQ(after.faces.size(), 4 * before.faces.size());
    for (const QVector3D &position : after.positions)
        EXPECT_EQ(position.z(), 0.0F);
    const int inner = 2 * 5 + 2;
    EXPECT_LT((after.positions[inner] - before.positions[inner]).length(), 1e-6F);
}

TEST(Subdivide, theRimIsSubdividedAsACurve)
{
    const Mesh before = TestMeshes::grid(2);
    const Mesh after = subdividedFreely(before);
    EXPECT_LT((after.positions[1] - QVector3D(1, 0, 0)).length(), 1e-6F);
    EXPECT_LT((after.positions[0] - QVector3D(0.125F, 0.125F, 0)).length(), 1e-6F);
    const MeshTopology topology(before);
    for (std::size_t edge = 0; edge < topology.edges().size(); ++edge) {
        const Edge &ends = topology.edges()[edge];
        if (!ends.isRim())
            continue;
        const QVector3D middle =
            (before.positions[int(ends.first)] + before.positions[int(ends.second)]) / 2;
        EXPECT_EQ(after.positions[before.positions.size() + int(edge)], middle);
    }
}

TEST(Subdivide, aVertexWhereSurfacesTouchStaysInPlace)
{
    Mesh mesh;
    mesh.positions = {{0, 0, 0}, {1, 1, 0}, {1, -1, 0}, {-1, 1, 0}, {-1, -1, 0}};
    mesh.faces = {{0, 2, 1}, {0, 3, 4}};
    updateNormals(mesh);
    EXPECT_EQ(subdividedFreely(mesh).positions[0], QVector3D(0, 0, 0));
}

TEST(Smooth, lowersTheRoughnessOfANoisySurface)
{
    const Mesh before = noisySphere();
    const Mesh after = smoothedFreely(before);
    EXPECT_LT(roughness(after), 0.5 * roughness(before));
    EXPECT_EQ(after.faces, before.faces);
    EXPECT_EQ(after.positions.size(), before.positions.size());
}

TEST(Smooth, keepsTheVolume)
{
    const Mesh before = noisySphere();
    EXPECT_NEAR(volume(smoothedFreely(before)) / volume(before), 1.0, 0.01);
}

TEST(Smooth, equalsThePlainSerialForm)
{
    const Mesh mesh = noisySphere();
    const SmoothSettings settings {2, 0.5F, 0.53F};
    Points expected = mesh.positions;
    for (int step = 0; step < settings.steps; ++step) {
        expected = plainlyMoved(mesh, expected, settings.pull);
        expected = plainlyMoved(mesh, expected, -settings.push);
    }
    const Points actual = smoothedFreely(mesh, settings).positions;
    ASSERT_EQ(actual.size(), expected.size());
    for (int vertex = 0; vertex < actual.size(); ++vertex)
        EXPECT_LT((actual[vertex] - expected[vertex]).length(), 1e-6F);
}

TEST(Smooth, noStepsChangeNothing)
{
    const Mesh mesh = TestMeshes::tetrahedron();
    EXPECT_EQ(smoothedFreely(mesh, {0, 0.5F, 0.53F}).positions, mesh.positions);
}

TEST(Smooth, theRimOfAFlatMeshStaysInItsPlane)
{
    const Mesh mesh = smoothedFreely(TestMeshes::grid(6));
    for (const QVector3D &position : mesh.positions)
        EXPECT_EQ(position.z(), 0.0F);
}

TEST(Smooth, normalsFollowTheNewSurface)
{
    const Mesh mesh = smoothedFreely(noisySphere());
    Mesh recomputed = mesh;
    updateNormals(recomputed);
    EXPECT_TRUE(isBitEqual(mesh.normals, recomputed.normals));
}

TEST(Parallel, oneThreadAndManyGiveTheSameBits)
{
    const Mesh mesh = noisySphere();
    Mesh smoothAlone;
    Mesh fineAlone;
    {
        const tbb::global_control alone(tbb::global_control::max_allowed_parallelism, 1);
        smoothAlone = smoothedFreely(mesh);
        fineAlone = subdividedFreely(mesh);
    }
    const tbb::global_control many(tbb::global_control::max_allowed_parallelism, 4);
    EXPECT_TRUE(isBitEqual(smoothedFreely(mesh).positions, smoothAlone.positions));
    EXPECT_TRUE(isBitEqual(subdividedFreely(mesh).positions, fineAlone.positions));
    EXPECT_EQ(subdividedFreely(mesh).faces, fineAlone.faces);
}

TEST(Parallel, visitsEveryIndexOnce)
{
    std::vector<std::atomic<int>> visits(10000);
    forEachIndex(10000, Cancellation(), [&](int index) { ++visits[std::size_t(index)]; });
    for (const std::atomic<int> &count : visits)
        EXPECT_EQ(count, 1);
}

TEST(Parallel, cancellingFromInsideLeavesTheRestOut)
{
    Cancellation cancellation;
    std::atomic<int> visits {0};
    constexpr int count = 10'000'000;
    forEachIndex(count, cancellation, [&](int) {
        ++visits;
        cancellation.cancel();
    });
    EXPECT_TRUE(cancellation.isCancelled());
    EXPECT_LT(visits, count);
}

TEST(Cancellation, cancelledWorkGivesNoMesh)
{
    Cancellation cancellation;
    EXPECT_FALSE(cancellation.isCancelled());
    cancellation.cancel();
    EXPECT_TRUE(smoothed(TestMeshes::tetrahedron(), {}, cancellation).isEmpty());
    EXPECT_TRUE(subdivided(TestMeshes::tetrahedron(), cancellation).isEmpty());
}

TEST(Roughness, isZeroForAFlatMeshAndGrowsWithTheBumps)
{
    EXPECT_EQ(roughness(TestMeshes::grid(4)), 0.0);
    const double small = roughness(TestMeshes::bumpyGrid(4, 0.1F));
    EXPECT_GT(small, 0.0);
    EXPECT_GT(roughness(TestMeshes::bumpyGrid(4, 0.5F)), small);
}

TEST(Roughness, ofATetrahedronIsOneMinusTheCosineOfItsEdges)
{
    EXPECT_NEAR(roughness(TestMeshes::tetrahedron()), 4.0 / 3.0, 1e-6);
}

TEST(Roughness, ofNothingIsZero)
{
    EXPECT_EQ(roughness(Mesh()), 0.0);
}
