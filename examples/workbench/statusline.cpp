// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "statusline.h"

#include "mesh/mesh.h"

#include <QLabel>
#include <QLocale>

namespace Workbench {
namespace {

/// A duration with two digits that matter: nobody reads more in passing.
QString durationText(qint64 microseconds)
{
    const QLocale locale;
    const double milliseconds = double(microseconds) / 1000.0;
    if (milliseconds < 10.0)
        return StatusLine::tr("%1 ms").arg(locale.toString(milliseconds, 'f', 1));
    if (milliseconds < 1000.0)
        return StatusLine::tr("%1 ms").arg(locale.toString(milliseconds, 'f', 0));
    return StatusLine::tr("%1 s").arg(locale.toString(milliseconds / 1000.0, 'f', 1));
}

} // namespace

StatusLine::StatusLine(QWidget *parent)
    : QStatusBar(parent)
    , m_mesh(new QLabel(this))
    , m_command(new QLabel(this))
{
    setSizeGripEnabled(false);
    m_mesh->setContentsMargins(8, 3, 8, 3);
    m_command->setContentsMargins(8, 3, 8, 3);
    addWidget(m_mesh);
    addPermanentWidget(m_command);
    showMesh({}, 0);
}

QString StatusLine::meshText() const
{
    return m_mesh->text();
}

QString StatusLine::commandText() const
{
    return m_command->text();
}

void StatusLine::showMesh(const Mesh &mesh, int selected)
{
    const QLocale locale;
    QString text = tr("No mesh is open");
    if (!mesh.isEmpty()) {
        text = tr("%1 vertices, %2 faces")
                   .arg(locale.toString(mesh.positions.size()), locale.toString(mesh.faces.size()));
    }
    if (selected > 0)
        text = tr("%1, %2 selected").arg(text, locale.toString(selected));
    m_mesh->setText(text);
}

void StatusLine::showImage(const QSize &size)
{
    const QLocale locale;
    m_mesh->setText(
        tr("%1 x %2 pixels").arg(locale.toString(size.width()), locale.toString(size.height())));
}

void StatusLine::showRunning(const QString &command)
{
    m_command->setText(tr("%1 is running").arg(command));
}

void StatusLine::showFinished(const QString &command, qint64 microseconds)
{
    m_command->setText(tr("%1: %2").arg(command, durationText(microseconds)));
}

void StatusLine::showStopped(const QString &command)
{
    m_command->setText(tr("%1 was stopped").arg(command));
}

} // namespace Workbench
