// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/attributecommand.h"

#include "controllers/meshviewcontroller.h"
#include "language.h"
#include "view/meshview.h"

#include <ui_base/QtUiToolkit>

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

Description descriptionOf(EAttribute attribute)
{
    switch (attribute) {
    case EAttribute::Normals:
        return {"Normals", QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "&Normals"),
                QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "Draw the normal of each vertex"),
                QT_TRANSLATE_NOOP("Workbench::AttributeCommand",
                                  "Draws a line along the normal of each vertex. Lines that point "
                                  "inwards tell of faces that are turned the wrong way."),
                Qt::Key_N};
    case EAttribute::Box:
        return {"Box", QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "&Bounding Box"),
                QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "Draw a box around the mesh"),
                QT_TRANSLATE_NOOP("Workbench::AttributeCommand",
                                  "Draws the smallest box along the axes that holds the mesh."),
                Qt::Key_B};
    case EAttribute::Axes:
        return {"Axes", QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "&Axes"),
                QT_TRANSLATE_NOOP("Workbench::AttributeCommand",
                                  "Draw the directions of the coordinates"),
                QT_TRANSLATE_NOOP(
                    "Workbench::AttributeCommand",
                    "Draws the directions in which x, y and z grow in a corner of the view."),
                Qt::Key_A};
    case EAttribute::Edges:
        break;
    }
    return {
        "Edges", QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "&Edges"),
        QT_TRANSLATE_NOOP("Workbench::AttributeCommand", "Draw the edges on the surface"),
        QT_TRANSLATE_NOOP("Workbench::AttributeCommand",
                          "Draws the edges of all faces over the surface, in any display mode."),
        Qt::Key_E};
}

} // namespace

AttributeCommand::AttributeCommand(EAttribute attribute)
    : m_attribute(attribute)
{
    const Description description = descriptionOf(attribute);
    inEveryLanguage(*this, [this, description] {
        setText(tr(description.text));
        setToolTip(tr(description.toolTip));
        setWhatsThis(tr(description.whatsThis));
    });
    const QString name = QString::fromLatin1(description.name).toLower();
    setObjectName(name);
    // The library has no such icons: they are drawings of the program's own.
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(
        QStringLiteral("cmd_") + name, this, Vela::UiBase::EIconType::IconSvg, QSize(24, 24)));
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
