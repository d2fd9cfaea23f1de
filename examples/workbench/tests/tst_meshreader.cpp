// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/meshreader.h"

#include "mesh/meshtopology.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Workbench;

namespace {

QString testFile(const char *name)
{
    return QStringLiteral(WORKBENCH_TEST_FILES "/") + QLatin1String(name);
}

QString dataFile(const char *name)
{
    return QStringLiteral(WORKBENCH_DATA "/") + QLatin1String(name);
}

double volume(const Mesh &mesh)
{
    double sum = 0.0;
    for (const Face &face : mesh.faces)
        sum += double(QVector3D::dotProduct(mesh.positions[int(face[0])], areaVector(mesh, face)));
    return sum / 6.0;
}

std::string errorOf(const QString &path)
{
    const ReadResult result = MeshReader::read(path);
    EXPECT_TRUE(result.mesh.isEmpty());
    return result.error.toStdString();
}

class EveryFormat : public testing::TestWithParam<const char *>
{ };

class BadFile : public testing::TestWithParam<std::pair<const char *, const char *>>
{ };

} // namespace

TEST_P(EveryFormat, givesAConnectedSurfaceWithNormals)
{
    const ReadResult result = MeshReader::read(testFile(GetParam()));
    EXPECT_EQ(result.error.toStdString(), "");
    ASSERT_EQ(result.mesh.positions.size(), 4);
    ASSERT_EQ(result.mesh.faces.size(), 4);
    ASSERT_EQ(result.mesh.normals.size(), 4);
    const MeshTopology topology(result.mesh);
    for (const Edge &edge : topology.edges())
        EXPECT_FALSE(edge.isRim());
    EXPECT_NEAR(volume(result.mesh), 1.0 / 6.0, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(MeshReader, EveryFormat,
                         testing::Values("tetrahedron.obj", "tetrahedron.stl", "binary.stl",
                                         "tetrahedron.ply", "tetrahedron.off", "tetrahedron.gltf",
                                         "tetrahedron.glb"));

TEST_P(BadFile, isToldInASentence)
{
    const QString path = testFile(GetParam().first);
    EXPECT_EQ(errorOf(path), path.toStdString() + GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(
    MeshReader, BadFile,
    testing::Values(
        std::pair("missing.obj", " could not be read: there is no such file."),
        std::pair("empty.obj", " could not be read: it is empty."),
        std::pair("pointsonly.obj", " holds no faces."),
        std::pair("wrongindex.obj",
                  " could not be read: its contents are damaged (OBJ: vertex index out of range)."),
        std::pair("notanumber.obj",
                  " could not be read: it holds coordinates that are not numbers."),
        std::pair("notaply.ply",
                  " could not be read: its contents are damaged (the header has no end)."),
        std::pair("headless.ply",
                  " could not be read: its contents are damaged (the header has no end)."),
        std::pair("cut.off",
                  " could not be read: its contents are damaged (a face lacks its corners)."),
        std::pair("broken.gltf", " could not be read: its contents are not GLTF."),
        std::pair("unknown.xyz",
                  " could not be read: its format is not one of OBJ, STL, PLY, OFF, GLTF, GLB."),
        std::pair("", " could not be read: it is a folder.")));

TEST(MeshReader, readsTheBunnyAsAClosedSurface)
{
    const Mesh mesh = MeshReader::read(dataFile("bunny.obj")).mesh;
    const MeshTopology topology(mesh);
    EXPECT_EQ(mesh.positions.size(), 1839);
    EXPECT_EQ(mesh.faces.size(), 3674);
    EXPECT_EQ(mesh.positions.size() - int(topology.edges().size()) + mesh.faces.size(), 2);
    EXPECT_GT(volume(mesh), 0.0);
}

TEST(MeshReader, polygonsBecomeTrianglesAndTheRestIsLeftOut)
{
    const ReadResult result = MeshReader::read(testFile("square.obj"));
    EXPECT_EQ(result.error.toStdString(), "");
    EXPECT_EQ(result.mesh.positions.size(), 4);
    EXPECT_EQ(result.mesh.faces.size(), 2);
}

TEST(MeshReader, aMirroredPlacementKeepsTheOutsideOutside)
{
    const Mesh mesh = MeshReader::read(testFile("mirrored.gltf")).mesh;
    EXPECT_EQ(boundsOf(mesh).lowest, QVector3D(-2, 0, 0));
    EXPECT_NEAR(volume(mesh), 8.0 / 6.0, 1e-5);
}

TEST(MeshReader, theEndingOfANameMayBeInCapitals)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("M\u00E4use.OBJ"));
    ASSERT_TRUE(QFile::copy(testFile("tetrahedron.obj"), path));
    EXPECT_EQ(MeshReader::read(path).mesh.faces.size(), 4);
}
