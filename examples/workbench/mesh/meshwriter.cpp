// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/meshwriter.h"

#include <QSaveFile>

namespace Workbench {
namespace {

QByteArray lineOf(const char *keyword, const QVector3D &vector)
{
    QByteArray line(keyword);
    for (int axis = 0; axis < 3; ++axis)
        line += ' ' + QByteArray::number(double(vector[axis]), 'g', 9);
    return line + '\n';
}

QByteArray lineOf(const Face &face)
{
    QByteArray line("f");
    for (const quint32 corner : face) {
        const QByteArray number = QByteArray::number(corner + 1);
        line += ' ' + number + "//" + number;
    }
    return line + '\n';
}

} // namespace

QString MeshWriter::write(const QString &path, const Mesh &mesh)
{
    QSaveFile file(path);
    file.open(QIODevice::WriteOnly);
    if (file.isOpen()) {
        for (const QVector3D &position : mesh.positions)
            file.write(lineOf("v", position));
        for (const QVector3D &normal : mesh.normals)
            file.write(lineOf("vn", normal));
        for (const Face &face : mesh.faces)
            file.write(lineOf(face));
        if (file.commit())
            return {};
    }
    return tr("%1 could not be written: %2.").arg(path, file.errorString());
}

} // namespace Workbench
