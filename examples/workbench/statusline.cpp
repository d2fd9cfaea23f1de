// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "statusline.h"

#include "language.h"
#include "mesh/mesh.h"

#include <QAction>
#include <QLabel>
#include <QLocale>
#include <QPointer>

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
    , m_mesh {new QLabel(this), {}}
    , m_command {new QLabel(this), {}}
{
    setSizeGripEnabled(false);
    m_mesh.label->setContentsMargins(8, 3, 8, 3);
    m_command.label->setContentsMargins(8, 3, 8, 3);
    addWidget(m_mesh.label);
    addPermanentWidget(m_command.label);
    showMesh({}, 0);
    inEveryLanguage(*this, [this] {
        for (const SPart &part : {m_mesh, m_command}) {
            if (part.text)
                part.label->setText(part.text());
        }
    });
}

QString StatusLine::meshText() const
{
    return m_mesh.label->text();
}

QString StatusLine::commandText() const
{
    return m_command.label->text();
}

void StatusLine::tell(EPlace place, const Text &text)
{
    SPart &part = place == EPlace::Mesh ? m_mesh : m_command;
    part.text = text;
    part.label->setText(text());
}

/// The command has another name in another language.
void StatusLine::tellOf(const QAction &command,
                        const std::function<QString(const QString &name)> &text)
{
    tell(EPlace::Command,
         [told = QPointer<const QAction>(&command), name = command.iconText(), text] {
             return text(told ? told->iconText() : name);
         });
}

void StatusLine::showMesh(const Mesh &mesh, int selected)
{
    const int vertices = mesh.positions.size();
    const int faces = mesh.faces.size();
    tell(EPlace::Mesh, [vertices, faces, selected] {
        const QLocale locale;
        const QString text = faces == 0
            ? tr("No mesh is open")
            : tr("%1 vertices, %2 faces").arg(locale.toString(vertices), locale.toString(faces));
        return selected > 0 ? tr("%1, %2 selected").arg(text, locale.toString(selected)) : text;
    });
}

void StatusLine::showImage(const QSize &size)
{
    tell(EPlace::Mesh, [size] {
        const QLocale locale;
        return tr("%1 x %2 pixels")
            .arg(locale.toString(size.width()), locale.toString(size.height()));
    });
}

void StatusLine::showRunning(const QAction &command)
{
    tellOf(command, [](const QString &name) { return tr("%1 is running").arg(name); });
}

void StatusLine::showFinished(const QAction &command, qint64 microseconds)
{
    tellOf(command, [microseconds](const QString &name) {
        return tr("%1: %2").arg(name, durationText(microseconds));
    });
}

void StatusLine::showStopped(const QAction &command)
{
    tellOf(command, [](const QString &name) { return tr("%1 was stopped").arg(name); });
}

} // namespace Workbench
