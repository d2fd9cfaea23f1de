// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/cancellation.h"
#include "mesh/decimation.h"
#include "mesh/measures.h"
#include "testmeshes.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Workbench;
using namespace Workbench::TestMeshes;

namespace {

/// The faces of a mesh whose corners exist and differ.
int soundFaces(const Mesh &mesh)
{
    int sound = 0;
    for (const Face &face : mesh.faces) {
        const bool exist = int(face[0]) < mesh.positions.size()
            && int(face[1]) < mesh.positions.size() && int(face[2]) < mesh.positions.size();
        sound += exist && face[0] != face[1] && face[1] != face[2] && face[2] != face[0];
    }
    return sound;
}

} // namespace

TEST(Decimate, aFlatSurfaceNeedsFewFaces)
{
    const Mesh mesh = grid(20);
    const Cancellation none;
    DecimateSettings settings;
    settings.keptShare = 0.1;
    const Mesh result = decimated(mesh, settings, none);
    EXPECT_GT(result.faces.size(), 0);
    EXPECT_LE(result.faces.size(), mesh.faces.size() / 10);
    EXPECT_EQ(soundFaces(result), result.faces.size());
    EXPECT_EQ(result.normals.size(), result.positions.size());
    EXPECT_NEAR(areaOf(result), 400.0, 0.01);
}

TEST(Decimate, leavesOutVerticesThatNoFaceNeeds)
{
    DecimateSettings settings;
    settings.keptShare = 0.1;
    const Mesh result = decimated(grid(20), settings, Cancellation());
    QVector<bool> isNeeded(result.positions.size(), false);
    for (const Face &face : result.faces) {
        for (const quint32 vertex : face)
            isNeeded[int(vertex)] = true;
    }
    EXPECT_FALSE(isNeeded.contains(false));
}

TEST(Decimate, everythingKeptIsTheSameShape)
{
    const Mesh mesh = bumpyGrid(6, 1.0F);
    DecimateSettings settings;
    settings.keptShare = 1.0;
    const Mesh result = decimated(mesh, settings, Cancellation());
    EXPECT_EQ(result.faces.size(), mesh.faces.size());
    EXPECT_NEAR(areaOf(result), areaOf(mesh), 1e-4);
}

TEST(Decimate, aSmallErrorKeepsBumps)
{
    const Mesh mesh = bumpyGrid(10, 3.0F);
    DecimateSettings settings;
    settings.keptShare = 0.05;
    settings.largestError = 0.001;
    const int careful = decimated(mesh, settings, Cancellation()).faces.size();
    settings.largestError = 0.5;
    const int bold = decimated(mesh, settings, Cancellation()).faces.size();
    EXPECT_LT(bold, careful);
}

TEST(Decimate, leavesTheRimAloneIfToldSo)
{
    DecimateSettings settings;
    settings.keptShare = 0.01;
    settings.keepsRim = true;
    const Mesh result = decimated(grid(12), settings, Cancellation());
    int onRim = 0;
    for (const QVector3D &point : result.positions)
        onRim += point.x() == 0.0F || point.y() == 0.0F || point.x() == 12.0F || point.y() == 12.0F;
    EXPECT_EQ(onRim, 48);
}

TEST(Decimate, nothingComesOfNothingAndOfCancelledWork)
{
    EXPECT_TRUE(decimated(Mesh(), DecimateSettings(), Cancellation()).isEmpty());
    Cancellation cancellation;
    cancellation.cancel();
    EXPECT_TRUE(decimated(grid(4), DecimateSettings(), cancellation).isEmpty());
}

TEST(Measures, ofATetrahedron)
{
    const Mesh mesh = tetrahedron(); // with edges of the length sqrt(8)
    EXPECT_NEAR(areaOf(mesh), 8.0 * std::sqrt(3.0), 1e-5);
    EXPECT_NEAR(std::abs(volumeOf(mesh)), 8.0 / 3.0, 1e-5);
    EXPECT_NEAR(areaOf(mesh, {0, 2}), 4.0 * std::sqrt(3.0), 1e-5);
    EXPECT_EQ(areaOf(mesh, {}), 0.0);
}

TEST(Measures, volumeTurnsItsSignWithTheMeshAndStaysWhereverItIs)
{
    Mesh mesh = tetrahedron();
    const double volume = volumeOf(mesh);
    for (QVector3D &point : mesh.positions)
        point += QVector3D(4096, -4096, 4096);
    EXPECT_NEAR(volumeOf(mesh), volume, 1e-4);
    flipNormals(mesh);
    EXPECT_NEAR(volumeOf(mesh), -volume, 1e-4);
}

TEST(Measures, sidesAndCornersOfFaces)
{
    const SideLengths flat = sideLengthsOf(grid(2));
    EXPECT_NEAR(flat.shortest, 1.0, 1e-6);
    EXPECT_NEAR(flat.longest, std::sqrt(2.0), 1e-6);
    EXPECT_NEAR(flat.mean, (2.0 + std::sqrt(2.0)) / 3.0, 1e-6);
    EXPECT_NEAR(sharpestCornerOf(grid(2)), 45.0, 1e-4);
    EXPECT_NEAR(sharpestCornerOf(tetrahedron()), 60.0, 1e-4);
}

TEST(Measures, aFaceThatIsALineHasACornerOfZero)
{
    Mesh mesh = tetrahedron();
    mesh.positions[1] = mesh.positions[0];
    EXPECT_EQ(sharpestCornerOf(mesh), 0.0);
    EXPECT_EQ(sideLengthsOf(mesh).shortest, 0.0);
}

TEST(Measures, ofNothingAreZero)
{
    EXPECT_EQ(areaOf(Mesh()), 0.0);
    EXPECT_EQ(volumeOf(Mesh()), 0.0);
    EXPECT_EQ(sideLengthsOf(Mesh()).mean, 0.0);
    EXPECT_EQ(sharpestCornerOf(Mesh()), 0.0);
}
