// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/showallcommand.h"
#include "dialogs/aboutcommand.h"
#include "dialogs/preferencescommand.h"
#include "flyouts/measureflyout.h"
#include "flyouts/smoothflyout.h"
#include "language.h"
#include "mainwindow.h"
#include "menu/mainmenu.h"
#include "statusline.h"
#include "tour/steps.h"
#include "tour/tourguide.h"

#include <ui_base/FlyoutBase>

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QWindow>

#include <algorithm>

namespace Workbench {
namespace {

/// Whether a text of @p widget stands where it has less room than it wants.
bool isCut(const QWidget &widget)
{
    const auto *const label = qobject_cast<const QLabel *>(&widget);
    if (label && (label->wordWrap() || label->text().isEmpty()))
        return label->wordWrap() && label->height() < label->heightForWidth(label->width());
    const auto *const button = qobject_cast<const QAbstractButton *>(&widget);
    const bool hasText =
        label || (button && !button->text().isEmpty()) || qobject_cast<const QComboBox *>(&widget);
    return hasText && widget.width() < widget.minimumSizeHint().width();
}

/// Checks that German, which needs more room than English, has it in @p window.
void checkRoom(TourGuide &guide, const QWidget &window)
{
    const QList<QWidget *> children = window.findChildren<QWidget *>();
    const auto cut = std::find_if(children.begin(), children.end(), [](const QWidget *child) {
        return child->isVisible() && isCut(*child);
    });
    const QString name = cut == children.end() ? QString() : (*cut)->objectName();
    guide.check(TourGuide::tr("no text is cut off%1")
                    .arg(name.isEmpty() ? name : QStringLiteral(": ") + name),
                cut == children.end());
}

bool isExposed(const QWidget *widget)
{
    return widget && widget->isVisible() && widget->windowHandle()
        && widget->windowHandle()->isExposed();
}

QDialog *bringUp(TourGuide &guide, DialogCommand &command)
{
    command.trigger();
    guide.check(TourGuide::tr("the dialog is there"),
                guide.waitUntil([&] { return isExposed(command.dialog()); }));
    return command.dialog();
}

QString textOfFirstItem(const TourGuide &guide)
{
    const MainMenu &menu = guide.window().menu();
    return menu.GetMenuBarItem(menu.names().constFirst())->text();
}

void chooseGerman(TourGuide &guide)
{
    guide.viewPictureAtRest(); // a message speaks the language of when it came
    guide.begin(TourGuide::tr("German"));
    PreferencesCommand &command = *guide.window().commands().preferences;
    QDialog *const dialog = bringUp(guide, command);
    if (!dialog)
        return;
    guide.pressKey(*dialog->findChild<QComboBox *>(QStringLiteral("language")), Qt::Key_End);
    guide.check(TourGuide::tr("the dialog follows at once"), guide.waitUntil([dialog] {
        return dialog->windowTitle() == QStringLiteral("Einstellungen");
    }));
    guide.check(TourGuide::tr("so do the menus"),
                textOfFirstItem(guide) == QStringLiteral("&Datei"));
    guide.check(TourGuide::tr("and the status line"),
                guide.window().statusLine().meshText().contains(QStringLiteral("Eckpunkte")));
    guide.settle();
    checkRoom(guide, *dialog);
    guide.finishWithPicture();
    dialog->findChild<QAbstractButton *>(QStringLiteral("apply_button"))->click();
    guide.check(TourGuide::tr("the dialog closes"),
                guide.waitUntil([&command] { return !command.dialog(); }));
}

void showMenu(TourGuide &guide, const QString &name)
{
    const MainMenu &bar = guide.window().menu();
    QMenu &menu = *bar.menuOf(name);
    guide.begin(TourGuide::tr("German menu %1").arg(QString(name).remove(QLatin1Char('&'))));
    bar.GetMenuBarItem(name)->click();
    guide.check(TourGuide::tr("the menu is shown"),
                guide.waitUntil([&menu] { return isExposed(&menu); }));
    guide.finishWithPicture();
    guide.pressKey(menu, Qt::Key_Escape);
    guide.check(TourGuide::tr("Escape closes it"),
                guide.waitUntil([&menu] { return !menu.isVisible(); }));
}

void showPanel(TourGuide &guide, PanelCommand &command)
{
    guide.begin(TourGuide::tr("German panel %1").arg(command.objectName()));
    command.trigger();
    const auto isOpen = [&command] { return command.isActive() && command.flyout()->isVisible(); };
    guide.check(TourGuide::tr("the panel opens"), guide.waitUntil(isOpen));
    guide.check(TourGuide::tr("all of it is on the screen"),
                guide.waitUntil([&] { return guide.isSeen(*command.flyout()); }));
    checkRoom(guide, *command.flyout());
    guide.finishWithPicture();
    command.onExitCommand();
    guide.check(TourGuide::tr("it closes"), guide.waitUntil([&] { return !isOpen(); }));
    guide.settle();
}

void showAbout(TourGuide &guide)
{
    AboutCommand &command = *guide.window().commands().about;
    guide.begin(TourGuide::tr("German about"));
    if (const QDialog *const dialog = bringUp(guide, command))
        checkRoom(guide, *dialog);
    guide.finishWithPicture();
    guide.pressKey(*command.dialog(), Qt::Key_Escape);
    guide.check(TourGuide::tr("Escape closes it"),
                guide.waitUntil([&command] { return !command.dialog(); }));
}

void returnToEnglish(TourGuide &guide)
{
    guide.begin(TourGuide::tr("English again"));
    PreferencesCommand &command = *guide.window().commands().preferences;
    const QDialog *const dialog = bringUp(guide, command);
    if (!dialog)
        return;
    for (const char *const button : {"reset_button", "apply_button"})
        dialog->findChild<QAbstractButton *>(QLatin1String(button))->click();
    guide.check(TourGuide::tr("the dialog closes"),
                guide.waitUntil([&command] { return !command.dialog(); }));
    guide.check(TourGuide::tr("the menus are English"),
                textOfFirstItem(guide) == QStringLiteral("&File"));
    guide.checkStatus();
    guide.finishWithPicture();
}

} // namespace

void visitLanguages(TourGuide &guide)
{
    chooseGerman(guide);
    for (const QString &name : guide.window().menu().names())
        showMenu(guide, name);
    showPanel(guide, *guide.window().commands().smoothFlyout);
    showPanel(guide, *guide.window().commands().measureFlyout);
    showAbout(guide);
    returnToEnglish(guide);
}

} // namespace Workbench
