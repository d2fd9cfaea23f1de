// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/selectioncommand.h"

#include "commands/meshcommand.h"
#include "language.h"
#include "mesh/selection.h"
#include "meshdocument.h"

#include <ui_base/QtUiToolkit>

#include <utility>

namespace Workbench {
namespace {

struct Description
{
    const char *name;
    const char *text;
    const char *toolTip;
    const char *whatsThis;
    int key;
};

Description descriptionOf(ESelectionChange change)
{
    switch (change) {
    case ESelectionChange::Grow:
        return {"Grow", QT_TRANSLATE_NOOP("Workbench::SelectionCommand", "&Grow Selection"),
                QT_TRANSLATE_NOOP("Workbench::SelectionCommand", "Select the faces around, too"),
                QT_TRANSLATE_NOOP("Workbench::SelectionCommand",
                                  "Lets the faces join that share a vertex with a selected one."),
                Qt::CTRL + Qt::Key_Plus};
    case ESelectionChange::Invert:
        return {"Invert", QT_TRANSLATE_NOOP("Workbench::SelectionCommand", "&Invert Selection"),
                QT_TRANSLATE_NOOP("Workbench::SelectionCommand", "Select the other faces instead"),
                QT_TRANSLATE_NOOP("Workbench::SelectionCommand",
                                  "Selects all faces that are not selected, and only those."),
                Qt::CTRL + Qt::Key_I};
    case ESelectionChange::Delete:
        return {"Delete", QT_TRANSLATE_NOOP("Workbench::SelectionCommand", "&Delete Faces"),
                QT_TRANSLATE_NOOP("Workbench::SelectionCommand", "Take the faces out of the mesh"),
                QT_TRANSLATE_NOOP("Workbench::SelectionCommand",
                                  "Takes the selected faces out of the mesh, and the vertices that "
                                  "no other face has."),
                Qt::Key_Delete};
    case ESelectionChange::Clear:
        break;
    }
    return {"Clear", QT_TRANSLATE_NOOP("Workbench::SelectionCommand", "&Clear Selection"),
            QT_TRANSLATE_NOOP("Workbench::SelectionCommand", "Select nothing"),
            QT_TRANSLATE_NOOP("Workbench::SelectionCommand", "Leaves no face selected."),
            Qt::CTRL + Qt::SHIFT + Qt::Key_A};
}

} // namespace

SelectionCommand::SelectionCommand(ESelectionChange change, std::shared_ptr<MeshDocument> document)
    : CommandBase(nullptr)
    , m_change(change)
    , m_document(std::move(document))
{
    if (change == ESelectionChange::Delete)
        addTag(MeshCommand::editTag());
    const Description description = descriptionOf(change);
    inEveryLanguage(*this, [this, description] {
        setText(tr(description.text));
        setToolTip(tr(description.toolTip));
        setWhatsThis(tr(description.whatsThis));
    });
    setObjectName(QString::fromLatin1(description.name).toLower() + QLatin1String("_selection"));
    setShortcut(description.key);
    // The library has no such icons: they are drawings of the program's own.
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(
        QLatin1String("cmd_selection_") + QString::fromLatin1(description.name).toLower(), this,
        Vela::UiBase::EIconType::IconSvg, QSize(24, 24)));
}

const QString SelectionCommand::commandId() const
{
    return QString::fromLatin1(staticMetaObject.className())
        + QString::fromLatin1(descriptionOf(m_change).name);
}

bool SelectionCommand::onExecuteAsync(bool checked)
{
    Q_UNUSED(checked)
    if (m_document->selection().isEmpty())
        return false;
    switch (m_change) {
    case ESelectionChange::Grow:
        m_document->select(grownFaces(m_document->mesh(), m_document->selection()));
        break;
    case ESelectionChange::Invert:
        m_document->select(invertedFaces(m_document->mesh(), m_document->selection()));
        break;
    case ESelectionChange::Clear:
        m_document->select({});
        break;
    case ESelectionChange::Delete:
        return deleteFaces();
    }
    return true;
}

// A mesh without faces could not be shown, saved or undone, so the last ones stay.
bool SelectionCommand::deleteFaces()
{
    const MeshDocument::Snapshot before = m_document->snapshot();
    const Mesh rest = withoutFaces(before.mesh, m_document->selection());
    if (rest.isEmpty()) {
        m_document->reportProblem(tr("The last faces of a mesh can't be deleted."));
        return false;
    }
    return m_document->replaceMesh(rest, before.revision);
}

} // namespace Workbench
