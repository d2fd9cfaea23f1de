// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/flipnormalscommand.h"

#include "commands/meshcommand.h"
#include "language.h"
#include "meshdocument.h"

#include <ui_base/QtUiToolkit>

#include <utility>

namespace Workbench {

FlipNormalsCommand::FlipNormalsCommand(std::shared_ptr<MeshDocument> document)
    : CommandBase(nullptr)
    , m_document(std::move(document))
{
    addTag(MeshCommand::editTag());
    inEveryLanguage(*this, [this] {
        setText(tr("&Flip Normals"));
        setToolTip(tr("Turn the surface inside out"));
        setWhatsThis(tr("Turns all faces round, so that the inside becomes the outside. For meshes "
                        "that come with their faces the wrong way."));
    });
    setObjectName(QStringLiteral("flip_normals"));
    setShortcut(Qt::CTRL + Qt::Key_F);
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_flip_normals")));
}

bool FlipNormalsCommand::onExecuteAsync(bool checked)
{
    Q_UNUSED(checked)
    if (m_document->isEmpty())
        return false;
    m_document->flipNormals();
    return true;
}

} // namespace Workbench
