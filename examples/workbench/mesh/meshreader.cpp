// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/meshreader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

namespace Workbench {
namespace {

struct PositionHash
{
    std::size_t operator()(const QVector3D &position) const
    {
        const std::hash<float> hash;
        std::size_t seed = hash(position.x());
        seed = seed * 1000003U ^ hash(position.y());
        return seed * 1000003U ^ hash(position.z());
    }
};

struct PositionEqual
{
    // QVector3D::operator== takes neighbouring points for equal, which would close thin gaps.
    bool operator()(const QVector3D &one, const QVector3D &other) const
    {
        return one.x() <= other.x() && one.x() >= other.x() && one.y() <= other.y()
            && one.y() >= other.y() && one.z() <= other.z() && one.z() >= other.z();
    }
};

/// Collects the triangles of a scene into one mesh in which no two vertices lie at the same place.
class Welder
{
public:
    void addNode(const aiScene &scene, const aiNode &node, const aiMatrix4x4 &parent)
    {
        const aiMatrix4x4 placement = parent * node.mTransformation;
        for (unsigned part = 0; part < node.mNumMeshes; ++part)
            addFaces(*scene.mMeshes[node.mMeshes[part]], placement);
        for (unsigned child = 0; child < node.mNumChildren; ++child)
            addNode(scene, *node.mChildren[child], placement);
    }

    bool hasOnlyNumbers() const { return m_hasOnlyNumbers; }
    const Mesh &mesh() const { return m_mesh; }

private:
    void addFaces(const aiMesh &part, const aiMatrix4x4 &placement)
    {
        const bool isMirrored = placement.Determinant() < 0.0F;
        for (unsigned index = 0; index < part.mNumFaces; ++index) {
            const aiFace &source = part.mFaces[index];
            if (source.mNumIndices != 3)
                continue;
            Face face;
            for (unsigned corner = 0; corner < 3; ++corner)
                face[corner] = vertexAt(placement * part.mVertices[source.mIndices[corner]]);
            if (isMirrored)
                std::swap(face[1], face[2]);
            const bool isDegenerate =
                face[0] == face[1] || face[1] == face[2] || face[2] == face[0];
            if (!isDegenerate)
                m_mesh.faces.append(face);
        }
    }

    quint32 vertexAt(const aiVector3D &source)
    {
        const QVector3D position(source.x, source.y, source.z);
        for (int axis = 0; axis < 3; ++axis)
            m_hasOnlyNumbers = m_hasOnlyNumbers && std::isfinite(position[axis]);
        const auto [place, isNew] = m_vertices.emplace(position, quint32(m_mesh.positions.size()));
        if (isNew)
            m_mesh.positions.append(position);
        return place->second;
    }

    Mesh m_mesh;
    std::unordered_map<QVector3D, quint32, PositionHash, PositionEqual> m_vertices;
    bool m_hasOnlyNumbers = true;
};

bool isSound(const aiMesh &part, const aiFace &face)
{
    unsigned *const end = face.mIndices + face.mNumIndices;
    const auto isInside = [&part](unsigned index) { return index < part.mNumVertices; };
    return face.mIndices && face.mNumIndices > 0 && std::all_of(face.mIndices, end, isInside);
}

bool isSound(const aiScene &scene)
{
    const auto isSoundPart = [](const aiMesh *part) {
        const auto isSoundFace = [part](const aiFace &face) { return isSound(*part, face); };
        return std::all_of(part->mFaces, part->mFaces + part->mNumFaces, isSoundFace);
    };
    return std::all_of(scene.mMeshes, scene.mMeshes + scene.mNumMeshes, isSoundPart);
}

/// Whether the PLY file at @p path has the line that ends its header. Without that line the
/// importer never returns.
bool hasWholePlyHeader(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    while (!file.atEnd()) {
        if (file.readLine(4096).trimmed() == "end_header")
            return true;
    }
    return false;
}

} // namespace

QStringList MeshReader::suffixes()
{
    return {QStringLiteral("obj"), QStringLiteral("stl"),  QStringLiteral("ply"),
            QStringLiteral("off"), QStringLiteral("gltf"), QStringLiteral("glb")};
}

QString MeshReader::unreadable(const QString &path, const QString &reason)
{
    return tr("%1 could not be read: %2.").arg(QDir::toNativeSeparators(path), reason);
}

/// Why @p path can't be read without looking inside, or an empty text. The importer's own words for
/// these cases are meant for programmers.
QString MeshReader::obstacle(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return tr("there is no such file");
    if (file.isDir())
        return tr("it is a folder");
    if (!file.isReadable())
        return tr("you are not allowed to read it");
    if (file.size() == 0)
        return tr("it is empty");
    if (!suffixes().contains(file.suffix().toLower()))
        return tr("its format is not one of %1")
            .arg(suffixes().join(QStringLiteral(", ")).toUpper());
    if (file.suffix().toLower() == QLatin1String("ply") && !hasWholePlyHeader(path))
        return tr("its contents are damaged (the header has no end)");
    return {};
}

QString MeshReader::damage(const QString &path, const QString &importerText)
{
    if (importerText.startsWith(QLatin1String("No suitable reader")))
        return tr("its contents are not %1").arg(QFileInfo(path).suffix().toUpper());
    QString detail = importerText.simplified();
    while (detail.endsWith(QLatin1Char('.')))
        detail.chop(1);
    return tr("its contents are damaged (%1)").arg(detail);
}

ReadResult MeshReader::read(const QString &path)
{
    const QString reason = obstacle(path);
    if (!reason.isEmpty())
        return {{}, unreadable(path, reason)};

    Assimp::Importer importer;
    const aiScene *scene = importer.ReadFile(QFile::encodeName(path).toStdString(), 0);
    if (!scene) {
        const QString text = QString::fromUtf8(importer.GetErrorString());
        return {{}, unreadable(path, damage(path, text))};
    }
    // A file that lies about its faces would make an assertion of the next step end the program.
    if (!isSound(*scene))
        return {{}, unreadable(path, tr("its contents are damaged (a face lacks its corners)"))};
    scene = importer.ApplyPostProcessing(aiProcess_Triangulate);

    Welder welder;
    welder.addNode(*scene, *scene->mRootNode, aiMatrix4x4());
    if (welder.mesh().isEmpty())
        return {{}, tr("%1 holds no faces.").arg(QDir::toNativeSeparators(path))};
    if (!welder.hasOnlyNumbers())
        return {{}, unreadable(path, tr("it holds coordinates that are not numbers"))};

    Mesh mesh = welder.mesh();
    updateNormals(mesh);
    return {mesh, {}};
}

} // namespace Workbench
