// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/subdividecommand.h"

#include "language.h"
#include "mesh/meshoperations.h"
#include "meshdocument.h"

#include <ui_base/QtUiToolkit>

#include <QLocale>

#include <utility>

namespace Workbench {

SubdivideCommand::SubdivideCommand(std::shared_ptr<MeshDocument> document)
    : MeshCommand(std::move(document))
{
    inEveryLanguage(*this, [this] {
        setText(tr("S&ubdivide"));
        setToolTip(tr("Make four faces of each and round the surface"));
        setWhatsThis(tr("Makes four faces of each and moves the vertices onto a rounder surface. "
                        "Corners become soft, and the mesh four times as large."));
        setExecutionNotificationMessage(ENotification::ExecutionBegan, tr("Subdividing the faces"));
        setExecutionNotificationMessage(ENotification::ExecutionEnded,
                                        tr("Each face has become four."));
    });
    setObjectName(QStringLiteral("subdivide"));
    setShortcut(Qt::CTRL + Qt::Key_D);
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_subdivide")));
}

BackgroundCommand::Work SubdivideCommand::prepare()
{
    if (document().mesh().faces.size() <= maximumFaces)
        return MeshCommand::prepare();
    document().reportProblem(tr("A mesh with more than %1 faces is too large to be subdivided.")
                                 .arg(QLocale().toString(maximumFaces)));
    return {};
}

MeshCommand::Operation SubdivideCommand::operation() const
{
    return subdivided;
}

} // namespace Workbench
