// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/savecommand.h"

#include "language.h"
#include "mesh/meshwriter.h"
#include "meshdocument.h"

#include <ui_base/QtUiToolkit>

#include <utility>

namespace Workbench {
namespace {

bool noteResult(MeshDocument &document, const QString &path, int revision, const QString &problem)
{
    if (problem.isEmpty())
        document.noteSaved(path, revision);
    else
        document.reportProblem(problem);
    return problem.isEmpty();
}

} // namespace

SaveCommand::SaveCommand(std::shared_ptr<MeshDocument> document, Chooser chooser)
    : m_document(std::move(document))
    , m_chooser(std::move(chooser))
{
    inEveryLanguage(*this, [this] {
        setText(tr("Save &As..."));
        setToolTip(tr("Write the mesh to a file"));
        setWhatsThis(
            tr("Writes the mesh with all its changes to an OBJ file. The window carries the "
               "name of that file then."));
    });
    setObjectName(QStringLiteral("save"));
    setShortcut(QKeySequence::Save);
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_save")));
}

bool SaveCommand::saveNow()
{
    const QString path = m_chooser();
    const MeshDocument::Snapshot kept = m_document->snapshot();
    return !path.isEmpty()
        && noteResult(*m_document, path, kept.revision, MeshWriter::write(path, kept.mesh));
}

BackgroundCommand::Work SaveCommand::prepare()
{
    const QString path = m_document->isEmpty() ? QString() : m_chooser();
    if (path.isEmpty())
        return {};
    return [document = m_document, held = m_document->snapshot(),
            path](const Cancellation &) -> TakeOver {
        const QString problem = MeshWriter::write(path, held.mesh);
        return [document, path, revision = held.revision, problem] {
            noteResult(*document, path, revision, problem);
        };
    };
}

void SaveCommand::handleOutOfMemory()
{
    m_document->reportProblem(tr("There is not enough memory to write the mesh."));
}

} // namespace Workbench
