// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/attributecommand.h"

#include "controllers/meshviewcontroller.h"
#include "view/meshview.h"

namespace Workbench {
namespace {

struct Description
{
    const char *name;
    const char *text;
    const char *toolTip;
    int key;
};

Description descriptionOf(EAttribute attribute)
{
    switch (attribute) {
    case EAttribute::Normals:
        return {"Normals", QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "&Normals"),
                QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "Draw the normal of each vertex"),
                Qt::Key_N};
    case EAttribute::Box:
        return {"Box", QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "&Bounding Box"),
                QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "Draw a box around the mesh"),
                Qt::Key_B};
    case EAttribute::Axes:
        return {"Axes", QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "&Axes"),
                QT_TRANSLATE_NOOP("Workbench::AttributeCommand",
                                  "Draw the directions of the coordinates"),
                Qt::Key_A};
    case EAttribute::Edges:
        break;
    }
    return {"Edges", QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "&Edges"),
            QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "Draw the edges on the surface"),
            Qt::Key_E};
}

} // namespace

AttributeCommand::AttributeCommand(EAttribute attribute)
    : m_attribute(attribute)
{
    const Description description = descriptionOf(attribute);
    setText(tr(description.text));
    setToolTip(tr(description.toolTip));
    setShortcut(QKeySequence(int(Qt::ALT) | int(Qt::SHIFT) | description.key));
}

const QString AttributeCommand::commandId() const
{
    return QString::fromLatin1(staticMetaObject.className())
        + QString::fromLatin1(descriptionOf(m_attribute).name);
}

void AttributeCommand::apply(MeshViewController &controller, bool checked)
{
    if (!controller.meshView())
        return;
    Appearance appearance = controller.meshView()->appearance();
    appearance.attributes.setFlag(m_attribute, checked);
    controller.meshView()->setAppearance(appearance);
}

} // namespace Workbench
