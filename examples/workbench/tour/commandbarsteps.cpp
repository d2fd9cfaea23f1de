// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/smoothflyout.h"
#include "mainwindow.h"
#include "toolbar/commandbars.h"
#include "tour/steps.h"
#include "tour/tourguide.h"
#include "view/meshview.h"

#include <ui_base/ATooltipEx>
#include <ui_base/CommandBase>
#include <ui_base/ToolButton>
#include <ui_base/TooltipObject>

#include <QApplication>
#include <QLabel>
#include <QStackedWidget>

namespace Workbench {
namespace {

using Vela::UiBase::ATooltipEx;
using Vela::UiBase::CommandBase;
using Vela::UiBase::ToolButton;

ATooltipEx *cardOf(const ToolButton &button)
{
    return qobject_cast<ATooltipEx *>(button.GetTooltipObject()->TooltipControl());
}

void checkButtons(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Buttons"));
    for (const CommandBase *command : guide.window().commands().withButtons()) {
        const ToolButton *button = command->toolButton();
        guide.check(TourGuide::tr("%1 has a button with a picture").arg(command->iconText()),
                    button && !button->icon().isNull());
        guide.check(TourGuide::tr("it is enabled and checked as the command is"),
                    button && button->isEnabled() == command->isEnabled()
                        && button->isChecked() == command->isChecked());
    }
    guide.finishWithPicture();
}

void showCard(TourGuide &guide, const CommandBase &command)
{
    const ToolButton &button = *command.toolButton();
    guide.begin(TourGuide::tr("Card of %1").arg(command.iconText()));
    guide.pointAt(button, button.rect().center());
    const auto isUp = [&] { return guide.window().bars().explainedButton() == &button; };
    guide.check(TourGuide::tr("a card comes up"), guide.waitUntil(isUp));
    ATooltipEx *card = cardOf(button);
    guide.check(TourGuide::tr("it is on the screen"),
                card && guide.waitUntil([&] { return guide.isSeen(*card); }));
    guide.check(TourGuide::tr("it tells nothing but the name and the text"),
                card && !card->IsAdvancedWidgetVisible());
    guide.finishWithPicture();
}

/// As a user does it: from the button over the card to its sign.
void openDetails(TourGuide &guide, const CommandBase &command)
{
    guide.begin(TourGuide::tr("Picture of %1").arg(command.iconText()));
    ATooltipEx &card = *cardOf(*command.toolButton());
    const auto &sign = *card.findChild<QLabel *>(QStringLiteral("info_label"));
    guide.pointAt(sign, sign.rect().center());
    const auto isOpen = [&] { return card.IsAdvancedWidgetVisible(); };
    guide.check(TourGuide::tr("the card opens over its sign"), guide.waitUntil(isOpen));
    const auto *page = qobject_cast<QLabel *>(card.AdvancedWidgets()->currentWidget());
    guide.check(TourGuide::tr("it shows a picture"),
                page && page->isVisible() && !page->pixmap(Qt::ReturnByValue).isNull());
    guide.check(TourGuide::tr("all of it is on the screen"),
                guide.waitUntil([&] { return guide.isSeen(card); }));
    guide.finishWithPicture();
}

void leaveCard(TourGuide &guide, const CommandBase &command, const QImage &before)
{
    guide.begin(TourGuide::tr("Card of %1 goes").arg(command.iconText()));
    guide.pointAt(guide.window(), guide.window().rect().bottomLeft() + QPoint(20, -60));
    const auto isGone = [&] { return !guide.window().bars().explainedButton(); };
    guide.check(TourGuide::tr("the card goes with the pointer"), guide.waitUntil(isGone));
    guide.checkViewChanged(TourGuide::tr("it is gone from the screen"), before, 0.0, 0.0);
    guide.finishWithPicture();
}

} // namespace

void visitCommandBar(TourGuide &guide)
{
    checkButtons(guide);
    // What has no screen has no pointer to be followed.
    if (!guide.hasGraphics())
        return;
    const QImage before = guide.viewPicture();
    const QWidget *focus = QApplication::focusWidget();
    const QWidget *active = QApplication::activeWindow();
    const CommandBase &command = *guide.window().commands().smoothFlyout;
    showCard(guide, command);
    openDetails(guide, command);
    guide.check(TourGuide::tr("the focus has stayed where it was"),
                QApplication::focusWidget() == focus && QApplication::activeWindow() == active);
    leaveCard(guide, command, before);
}

} // namespace Workbench
