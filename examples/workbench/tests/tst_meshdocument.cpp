// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "meshdocument.h"

#include "mesh/meshreader.h"
#include "mesh/meshwriter.h"
#include "testmeshes.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace Workbench;

namespace {

class DocumentTest : public testing::Test
{
protected:
    void SetUp() override { document.open(QStringLiteral("test.obj"), TestMeshes::tetrahedron()); }

    MeshDocument document;
};

/// The places of the corners of all faces, one face after the other, whatever order the vertices
/// have.
QVector<QVector3D> cornersOf(const Mesh &mesh)
{
    QVector<QVector3D> corners;
    for (const Face &face : mesh.faces) {
        for (const quint32 corner : face)
            corners << mesh.positions[int(corner)];
    }
    return corners;
}

} // namespace

TEST_F(DocumentTest, isUnmodifiedAfterOpening)
{
    EXPECT_FALSE(MeshDocument().isModified());
    EXPECT_FALSE(document.isModified());
    document.flipNormals();
    EXPECT_TRUE(document.isModified());
    document.open(QStringLiteral("other.obj"), TestMeshes::grid(1));
    EXPECT_FALSE(document.isModified());
}

TEST_F(DocumentTest, keepsTheMeshOfTheFile)
{
    const QVector3D normal = document.mesh().normals.first();
    document.flipNormals();
    EXPECT_EQ(document.mesh().normals.first(), -normal);
    EXPECT_EQ(document.originalMesh().normals.first(), normal);
}

TEST_F(DocumentTest, savingAnOlderStateLeavesItModified)
{
    document.flipNormals();
    const int older = document.snapshot().revision;
    document.flipNormals();
    document.noteSaved(QStringLiteral("copy.obj"), older);
    EXPECT_TRUE(document.isModified());
    document.noteSaved(QStringLiteral("copy.obj"), document.snapshot().revision);
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(document.filePath(), QStringLiteral("copy.obj"));
}

TEST_F(DocumentTest, changesThatAreGivenUpComeBackWithTheNextOne)
{
    document.flipNormals();
    document.giveUpChanges();
    EXPECT_FALSE(document.isModified());
    document.flipNormals();
    EXPECT_TRUE(document.isModified());
}

TEST_F(DocumentTest, tellsAnotherSelectionOnce)
{
    int count = 0;
    QObject::connect(&document, &MeshDocument::selectionChanged, [&count] { ++count; });
    document.select({0, 2});
    document.select({0, 2});
    EXPECT_EQ(count, 1);
    EXPECT_EQ(document.selection(), (QVector<int> {0, 2}));
}

TEST_F(DocumentTest, aChangeLeavesNothingSelected)
{
    document.select({0, 2});
    int selectedDuringTheChange = -1;
    QObject::connect(&document, &MeshDocument::meshChanged,
                     [&] { selectedDuringTheChange = document.selection().size(); });
    document.open(QStringLiteral("other.obj"), TestMeshes::grid(1));
    EXPECT_EQ(selectedDuringTheChange, 0);
    EXPECT_TRUE(document.selection().isEmpty());
}

TEST(MeshWriter, writesWhatTheReaderReads)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("mesh.obj"));
    const Mesh mesh = TestMeshes::bumpyGrid(3, 0.1234567F);
    EXPECT_EQ(MeshWriter::write(path, mesh), QString());
    const ReadResult result = MeshReader::read(path);
    EXPECT_EQ(result.error, QString());
    EXPECT_EQ(cornersOf(result.mesh), cornersOf(mesh));
}

TEST(MeshWriter, tellsWhyAFileCannotBeWritten)
{
    const QString problem =
        MeshWriter::write(QStringLiteral("/nowhere/mesh.obj"), TestMeshes::grid(1));
    EXPECT_TRUE(problem.startsWith(QLatin1String("/nowhere/mesh.obj could not be written: ")));
    EXPECT_TRUE(problem.endsWith(QLatin1Char('.')));
}
