// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStatusBar>

class QLabel;

namespace Workbench {

struct Mesh;

/// The line at the bottom of the window: the size of the mesh and of the selection, or of the
/// image, on the left, the
/// latest command on the right.
class StatusLine : public QStatusBar
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget *parent = nullptr);

    QString meshText() const;
    QString commandText() const;

    /// @param selected how many of its faces are selected
    void showMesh(const Mesh &mesh, int selected);
    /// @param size in pixels
    void showImage(const QSize &size);
    void showRunning(const QString &command);
    void showFinished(const QString &command, qint64 microseconds);
    void showStopped(const QString &command);

private:
    QLabel *const m_mesh;
    QLabel *const m_command;
};

} // namespace Workbench
