// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "controllers/meshviewcontroller.h"
#include "mainwindow.h"
#include "tour/steps.h"
#include "tour/tourguide.h"
#include "view/meshview.h"

#include <ui_base/NotificationBar>

#include <QWindow>

namespace Workbench {
namespace {

/// Where the bar stands in the view.
QPoint offsetOf(const TourGuide &guide)
{
    return guide.view().mapFromGlobal(guide.bar()->mapToGlobal({}));
}

void show(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Notification"));
    guide.viewPictureAtRest();
    guide.controller().showNotification(TourGuide::tr("This message stays over the view."),
                                        Vela::UiBase::eNotificationFadeOutOnly, 600'000, true,
                                        nullptr, nullptr);
    guide.check(TourGuide::tr("the message appears"), guide.waitUntil([&] {
        return guide.bar() && guide.bar()->isShowing()
            && (!guide.hasGraphics() || guide.isBarSeen());
    }));
    guide.check(TourGuide::tr("the view keeps the keyboard"),
                !guide.hasGraphics() || guide.window().isActiveWindow());
    guide.finishWithPicture();
}

void move(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Notification moves along"));
    const QPoint offset = offsetOf(guide);
    const QPoint before = guide.view().mapToGlobal({});
    guide.window().move(guide.window().pos() + QPoint(60, 45));
    const auto hasFollowed = [&] {
        return guide.view().mapToGlobal({}) != before && offsetOf(guide) == offset
            && (!guide.hasGraphics() || guide.isBarSeen());
    };
    guide.check(TourGuide::tr("the message is at the same place of the view"),
                guide.waitUntil(hasFollowed));
    guide.finishWithPicture();
}

void minimise(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Notification comes back"));
    const QPoint offset = offsetOf(guide);
    guide.window().showMinimized();
    guide.check(TourGuide::tr("the message goes with the window"), guide.waitUntil([&] {
        return !guide.window().windowHandle()->isExposed() && !guide.bar()->isVisible();
    }));
    guide.check(TourGuide::tr("the message comes back with the window"), guide.waitUntil([&] {
        // The window manager may not be done yet with putting it away.
        if (guide.window().isMinimized())
            guide.window().showNormal();
        return guide.window().windowHandle()->isExposed() && guide.bar()->isVisible()
            && guide.isSettled() && offsetOf(guide) == offset
            && (!guide.hasGraphics() || guide.isBarSeen());
    }));
    guide.finishWithPicture();
}

} // namespace

void visitNotifications(TourGuide &guide)
{
    show(guide);
    if (!guide.bar())
        return;
    move(guide);
    // Other platforms have no window manager that would do it.
    if (guide.hasGraphics())
        minimise(guide);
    guide.viewPictureAtRest();
}

} // namespace Workbench
