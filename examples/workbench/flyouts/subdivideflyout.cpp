// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/subdivideflyout.h"

#include "commands/subdividecommand.h"
#include "flyouts/settingspanel.h"
#include "language.h"
#include "mesh/meshoperations.h"

#include <QKeySequence>
#include <QLocale>
#include <QSlider>

#include <utility>

namespace Workbench {

SubdivideFlyout::SubdivideFlyout(std::shared_ptr<MeshDocument> document)
    : SubdivideFlyout(std::move(document), new SettingsPanel)
{ }

SubdivideFlyout::SubdivideFlyout(std::shared_ptr<MeshDocument> document, SettingsPanel *settings)
    : MeshPanelCommand(settings, nullptr, std::move(document))
{
    const auto plain = [](int value) { return QLocale().toString(value); };
    m_times = settings->addSlider([] { return tr("Times"); }, 1, 4, 1, plain);
    inEveryLanguage(*this, [this] {
        setTitle(tr("Subdivide"));
        setText(tr("Subdivide with settings"));
        setToolTip(tr("Make many faces of each and round the surface"));
        setWhatsThis(
            tr("Opens a panel that tells how many times each face becomes four. Every time the "
               "surface gets rounder and the mesh four times as large."));
        setExecutionNotificationMessage(ENotification::ExecutionBegan, tr("Subdividing the faces"));
    });
    setObjectName(QStringLiteral("subdivide_flyout"));
    setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_D));
    setDrawing(QStringLiteral("cmd_subdivide_flyout"));
}

bool SubdivideFlyout::onBeforeExecute()
{
    // What the last time starts from.
    const qint64 faces = qint64(document().mesh().faces.size()) << (2 * (m_times->value() - 1));
    if (faces <= SubdivideCommand::maximumFaces)
        return MeshPanelCommand::onBeforeExecute();
    document().reportProblem(tr("A mesh with more than %1 faces is too large to be subdivided.")
                                 .arg(QLocale().toString(SubdivideCommand::maximumFaces)));
    return false;
}

MeshPanelCommand::Operation SubdivideFlyout::operation() const
{
    return [times = m_times->value()](const Mesh &mesh, const Cancellation &cancellation) {
        Mesh result = mesh;
        for (int i = 0; i < times; ++i)
            result = subdivided(result, cancellation);
        return result;
    };
}

} // namespace Workbench
