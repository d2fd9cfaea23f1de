// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/opencommand.h"

#include "language.h"
#include "mesh/meshreader.h"
#include "meshdocument.h"

#include <ui_base/QtUiToolkit>

#include <utility>

namespace Workbench {

OpenCommand::OpenCommand(std::shared_ptr<MeshDocument> document, Chooser chooser)
    : m_document(std::move(document))
    , m_chooser(std::move(chooser))
{
    inEveryLanguage(*this, [this] {
        setText(tr("&Open..."));
        setToolTip(tr("Open a mesh from a file"));
        setWhatsThis(tr("Reads a mesh from an OBJ, STL, PLY, OFF, glTF or GLB file. It takes the "
                        "place of the mesh that is open."));
    });
    setObjectName(QStringLiteral("open"));
    setShortcut(QKeySequence::Open);
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_open")));
}

bool OpenCommand::open(const QString &path)
{
    m_path = path;
    const bool isAccepted = onExecute();
    m_path.clear();
    return isAccepted;
}

BackgroundCommand::Work OpenCommand::prepare()
{
    const QString path = m_path.isEmpty() ? m_chooser() : m_path;
    if (path.isEmpty())
        return {};
    return [document = m_document, path](const Cancellation &) -> TakeOver {
        const ReadResult result = MeshReader::read(path);
        return [document, path, result] {
            if (result.error.isEmpty())
                document->open(path, result.mesh);
            else
                document->reportProblem(result.error);
        };
    };
}

void OpenCommand::handleOutOfMemory()
{
    m_document->reportProblem(tr("There is not enough memory for this file."));
}

} // namespace Workbench
