// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "menu/recentfiles.h"

#include <QFileInfo>
#include <QSettings>

namespace Workbench {
namespace {

const QString key = QStringLiteral("files/recent");

QString absolute(const QString &path)
{
    return QFileInfo(path).absoluteFilePath();
}

} // namespace

void RecentFiles::setPaths(const QStringList &paths)
{
    QStringList taken;
    for (const QString &path : paths) {
        if (!path.isEmpty())
            taken << absolute(path);
    }
    taken.removeDuplicates();
    taken = taken.mid(0, Limit);
    if (taken == m_paths)
        return;
    m_paths = taken;
    Q_EMIT changed();
}

void RecentFiles::add(const QString &path)
{
    setPaths(QStringList(path) + m_paths);
}

void RecentFiles::remove(const QString &path)
{
    QStringList left = m_paths;
    left.removeAll(absolute(path));
    setPaths(left);
}

void RecentFiles::clear()
{
    setPaths({});
}

QStringList readRecentFiles(const QString &file)
{
    return QSettings(file, QSettings::IniFormat).value(key).toStringList();
}

bool writeRecentFiles(const QString &file, const QStringList &paths)
{
    QSettings settings(file, QSettings::IniFormat);
    settings.setValue(key, paths);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

} // namespace Workbench
