// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/notification/notificationbar_p.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QSequentialAnimationGroup>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace Lumo::Test {

/// A bar whose time the test drives: nothing waits for its timers and animations.
class DrivenBar : public Vela::UiBase::NotificationBar
{
public:
    explicit DrivenBar(QWidget *parent)
        : NotificationBar(parent)
    { }
    DrivenBar(Vela::UiBase::NotificationBarPrivate &dd, QWidget *parent)
        : NotificationBar(dd, parent)
    { }

    using NotificationBar::HideMe;
    using NotificationBar::OnAnimationFinished;
    using NotificationBar::OnDismissTimerTimeOut;
    using NotificationBar::SetControl;

    Vela::UiBase::NotificationBarPrivate &data() const { return *d_ptr; }
    double opacity() const { return data().opacityEffect->opacity(); }

    /// The delay before a message appears is over.
    void appear()
    {
        QVERIFY(data().switchTimer->isActive());
        data().switchTimer->stop();
        OnSwitchTimerTimeOut();
    }

    /// The time of the message is over.
    void expire()
    {
        QVERIFY(data().dismissTimer->isActive());
        data().dismissTimer->stop();
        OnDismissTimerTimeOut();
    }

    /// Brings the running animations to @p milliseconds after their start, and keeps them there.
    void goTo(int milliseconds)
    {
        if (data().animationGroup->state() == QAbstractAnimation::Running)
            data().animationGroup->pause();
        data().animationGroup->setCurrentTime(milliseconds);
    }

    /// Shows a text up to the moment at which it has faded in.
    void showNow(Vela::UiBase::ENotificationFadeOption fade, bool closeButton = false)
    {
        ShowSimpleText(QStringLiteral("Saved."), fade, 60'000, closeButton);
        appear();
        if (data().animationGroup->state() == QAbstractAnimation::Running)
            goTo(data().fadeDuration);
    }

    void send(QEvent::Type type)
    {
        QEvent event(type);
        QCoreApplication::sendEvent(this, &event);
    }
};

} // namespace Lumo::Test
