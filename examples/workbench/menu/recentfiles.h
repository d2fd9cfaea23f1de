// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QStringList>

namespace Workbench {

/// The files that the user worked with, the latest first. Main thread only.
class RecentFiles : public QObject
{
    Q_OBJECT

public:
    /// As many as a menu shows without being a burden.
    static constexpr int Limit = 8;

    RecentFiles() = default;

    /// Absolute paths, each once.
    const QStringList &paths() const { return m_paths; }

    /// Takes over @p paths, without those that are empty, there already or too many. Emits changed()
    /// if that makes a difference, as all below.
    void setPaths(const QStringList &paths);
    /// Puts @p path first.
    void add(const QString &path);
    void remove(const QString &path);
    void clear();

Q_SIGNALS:
    void changed();

private:
    QStringList m_paths;
};

/// Reads the list from the settings at @p file; empty when there is none.
QStringList readRecentFiles(const QString &file);

/// Writes the list to the settings at @p file and leaves alone what else is in it.
/// @return whether that worked
bool writeRecentFiles(const QString &file, const QStringList &paths);

} // namespace Workbench
