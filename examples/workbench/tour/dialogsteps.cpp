// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/smoothcommand.h"
#include "dialogs/aboutcommand.h"
#include "dialogs/logcommand.h"
#include "dialogs/logdialog.h"
#include "dialogs/preferencescommand.h"
#include "mainwindow.h"
#include "preferences.h"
#include "tour/steps.h"
#include "tour/tourguide.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QWindow>

namespace Workbench {
namespace {

QDialog *bringUp(TourGuide &guide, DialogCommand &command)
{
    guide.begin(command.iconText());
    command.trigger();
    QDialog *const dialog = command.dialog();
    const auto isShown = [dialog] {
        return dialog && dialog->isVisible() && dialog->windowHandle()->isExposed();
    };
    guide.check(TourGuide::tr("a dialog comes up"), guide.waitUntil(isShown));
    guide.check(TourGuide::tr("it is on the screen"),
                dialog && guide.waitUntil([&] { return guide.isSeen(*dialog); }, 10'000));
    return dialog;
}

void closeByEscape(TourGuide &guide, const DialogCommand &command)
{
    guide.pressKey(*command.dialog(), Qt::Key_Escape);
    guide.check(TourGuide::tr("Escape closes it"),
                guide.waitUntil([&] { return !command.dialog(); }));
    guide.settle();
}

void press(const QDialog &dialog, const char *button)
{
    dialog.findChild<QAbstractButton *>(QLatin1String(button))->click();
}

/// As the user does, with the keyboard.
void chooseLastBackground(TourGuide &guide, const QDialog &dialog)
{
    guide.pressKey(*dialog.findChild<QComboBox *>(QStringLiteral("background")), Qt::Key_End);
}

void showPreferences(TourGuide &guide)
{
    PreferencesCommand &command = *guide.window().commands().preferences;
    const Preferences &preferences = guide.window().preferences();
    const QImage before = guide.viewPictureAtRest();
    QDialog *const dialog = bringUp(guide, command);
    guide.finishWithPicture();
    if (!dialog)
        return;

    guide.begin(TourGuide::tr("Preview of preferences"));
    const int height = dialog->height();
    press(*dialog, "advanced_button");
    guide.check(TourGuide::tr("the dialog grows with its contents"), dialog->height() > height);
    chooseLastBackground(guide, *dialog);
    guide.check(TourGuide::tr("the choice acts at once"),
                preferences.values().background == EBackground::Dark);
    guide.checkViewChanged(TourGuide::tr("the view is dark"), before, 0.4, 1.0);
    guide.finishWithPicture();
    closeByEscape(guide, command);
    guide.check(TourGuide::tr("what was not applied is given up"),
                preferences.values() == SPreferences());
    guide.checkViewChanged(TourGuide::tr("the view is light again"), before, 0.0, 0.02);
}

void applyPreferences(TourGuide &guide)
{
    PreferencesCommand &command = *guide.window().commands().preferences;
    const QImage before = guide.viewPictureAtRest();
    QDialog *dialog = bringUp(guide, command);
    if (!dialog)
        return;
    guide.begin(TourGuide::tr("Apply preferences"));
    chooseLastBackground(guide, *dialog);
    press(*dialog, "apply_button");
    guide.check(TourGuide::tr("the dialog closes"),
                guide.waitUntil([&] { return !command.dialog(); }));
    guide.checkViewChanged(TourGuide::tr("the view stays dark"), before, 0.4, 1.0);
    guide.finishWithPicture();

    dialog = bringUp(guide, command);
    guide.begin(TourGuide::tr("Reset preferences"));
    press(*dialog, "reset_button");
    press(*dialog, "apply_button");
    guide.check(TourGuide::tr("the defaults are back"),
                guide.window().preferences().values() == SPreferences());
    guide.checkViewChanged(TourGuide::tr("the view is light again"), before, 0.0, 0.02);
}

void showLog(TourGuide &guide)
{
    LogCommand &command = *guide.window().commands().log;
    auto *const dialog = static_cast<LogDialog *>(bringUp(guide, command));
    guide.runAndWait(*guide.window().commands().smooth);
    const QString end = QStringLiteral("CMD END   ") + SmoothCommand::className();
    guide.check(TourGuide::tr("the log tells of the command that runs meanwhile"),
                dialog && guide.waitUntil([&] { return dialog->text().contains(end); }));
    guide.finishWithPicture();
    closeByEscape(guide, command);
}

void showAbout(TourGuide &guide)
{
    AboutCommand &command = *guide.window().commands().about;
    bringUp(guide, command);
    guide.finishWithPicture();
    closeByEscape(guide, command);
}

} // namespace

void visitDialogs(TourGuide &guide)
{
    showPreferences(guide);
    applyPreferences(guide);
    showLog(guide);
    showAbout(guide);
}

} // namespace Workbench
