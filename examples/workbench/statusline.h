// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStatusBar>

#include <functional>

class QAction;
class QLabel;

namespace Workbench {

struct Mesh;

/// The line at the bottom of the window: the size of the mesh and of the selection, or of the image,
/// on the left, the latest command on the right.
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
    void showRunning(const QAction &command);
    void showFinished(const QAction &command, qint64 microseconds);
    void showStopped(const QAction &command);

private:
    /// What is told is said again in another language, so it is kept as what says it.
    using Text = std::function<QString()>;

    enum class EPlace {
        Mesh,
        Command
    };
    struct SPart
    {
        QLabel *label;
        Text text;
    };

    void tell(EPlace place, const Text &text);
    void tellOf(const QAction &command, const std::function<QString(const QString &name)> &text);

    SPart m_mesh;
    SPart m_command;
};

} // namespace Workbench
