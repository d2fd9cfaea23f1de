// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "toolbar/commandcard.h"

#include <ui_base/CommandBase>
#include <ui_base/ToolButton>
#include <ui_base/TooltipEx>
#include <ui_base/TooltipExFactory>
#include <ui_base/TooltipObject>
#include <ui_base/WidgetPosCalculator>

#include <QCoreApplication>
#include <QPointer>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

const int cardWidth = 300;
const QSize pictureSize(264, 165);

QString titleOf(const CommandBase &command)
{
    if (command.shortcut().isEmpty())
        return command.iconText();
    return QCoreApplication::translate("Workbench::CommandCard", "%1 (%2)")
        .arg(command.iconText(), command.shortcut().toString(QKeySequence::NativeText));
}

QWidget *makeCard(const CommandBase &command)
{
    return TooltipExFactory::GetInstance().CreateExtendedTooltip(
        nullptr, titleOf(command), command.whatsThis(),
        QStringLiteral(":/workbench/pictures/%1.png").arg(command.objectName()), pictureSize, true,
        cardWidth, ATooltipEx::EWidgetExVisibility::ExHidden, QStringLiteral("TooltipEx"));
}

} // namespace

void explainByCard(ToolButton &button, const CommandBase &command, EDirection side)
{
    button.GetTooltipObject()->SetPreparation(
        [asked = QPointer<const CommandBase>(&command), side](ATooltipObject &tooltip) {
            if (!asked)
                return;
            // The card has a frame of its own. The one of the language before is given back.
            delete tooltip.SetTooltipControl(makeCard(*asked), false);
            tooltip.SetTooltipType(ATooltipObject::ETooltipType::TooltipHoverBottom);
            tooltip.GetPosCalculator()->SetDirection(side);
        });
}

} // namespace Workbench
