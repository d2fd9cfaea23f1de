// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/displaymodecommand.h"

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
    const char *icon;
};

Description descriptionOf(EDisplayMode mode)
{
    switch (mode) {
    case EDisplayMode::Flat:
        return {"Flat", QT_TRANSLATE_NOOP("Workbench::DisplayModeCommand", "&Flat"),
                QT_TRANSLATE_NOOP("Workbench::DisplayModeCommand", "Draw each face as it is"),
                QT_TRANSLATE_NOOP(
                    "Workbench::DisplayModeCommand",
                    "Gives each face one shade, so that its size and direction can be seen."),
                "cmd_decimate"};
    case EDisplayMode::Wireframe:
        return {"Wireframe", QT_TRANSLATE_NOOP("Workbench::DisplayModeCommand", "&Wireframe"),
                QT_TRANSLATE_NOOP("Workbench::DisplayModeCommand", "Draw the edges alone"),
                QT_TRANSLATE_NOOP(
                    "Workbench::DisplayModeCommand",
                    "Draws the edges and leaves the faces out. What lies behind is seen, too."),
                "cmd_wireframe"};
    case EDisplayMode::Points:
        return {"Points", QT_TRANSLATE_NOOP("Workbench::DisplayModeCommand", "&Points"),
                QT_TRANSLATE_NOOP("Workbench::DisplayModeCommand", "Draw the vertices alone"),
                QT_TRANSLATE_NOOP("Workbench::DisplayModeCommand",
                                  "Draws a point for each vertex and leaves the faces out."),
                "cmd_points"};
    case EDisplayMode::Shaded:
        break;
    }
    return {"Shaded", QT_TRANSLATE_NOOP("Workbench::DisplayModeCommand", "&Shaded"),
            QT_TRANSLATE_NOOP("Workbench::DisplayModeCommand", "Draw a smooth surface"),
            QT_TRANSLATE_NOOP(
                "Workbench::DisplayModeCommand",
                "Draws the surface as if it were smooth: the light changes from vertex to vertex."),
            "cmd_shaded"};
}

} // namespace

DisplayModeCommand::DisplayModeCommand(EDisplayMode mode)
    : m_mode(mode)
{
    const Description description = descriptionOf(mode);
    inEveryLanguage(*this, [this, description] {
        setText(tr(description.text));
        setToolTip(tr(description.toolTip));
        setWhatsThis(tr(description.whatsThis));
    });
    setObjectName(QString::fromLatin1(description.name).toLower());
    setShortcut(QKeySequence(int(Qt::ALT) | (int(Qt::Key_1) + int(mode))));
    setIcon(
        Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QString::fromLatin1(description.icon)));
}

const QString DisplayModeCommand::commandId() const
{
    return QString::fromLatin1(staticMetaObject.className())
        + QString::fromLatin1(descriptionOf(m_mode).name);
}

void DisplayModeCommand::apply(MeshViewController &controller, bool checked)
{
    if (!checked || !controller.meshView())
        return;
    Appearance appearance = controller.meshView()->appearance();
    appearance.mode = m_mode;
    controller.meshView()->setAppearance(appearance);
}

} // namespace Workbench
