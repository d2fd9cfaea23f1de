// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/qtui/tooltip/atooltipobject.h"

#include <QMetaObject>
#include <QPointer>
#include <QSharedPointer>
#include <QTimer>
#include <QWidget>

namespace Vela::UiBase {

/// The state of an ATooltipObject. Times are milliseconds.
class LUMO_UI_BASE_EXPORT ATooltipObjectPrivate
{
    Q_DECLARE_PUBLIC(ATooltipObject)

public:
    ATooltipObjectPrivate();
    virtual ~ATooltipObjectPrivate();

    /// Enters the tooltip in the manager.
    void Initialize(ATooltipObject *q, const QString &name);
    /// Makes timers, calculator and window when they are not there yet, and runs the preparation.
    /// Whoever needs one of them calls this first; they are null before.
    void EnsureMade();
    /// Sets up, in a subclass, what depends on them. Called once, before the preparation.
    virtual void OnMade();

    void InitializeTooltipTimers();
    void InitializeTooltipTimer();
    void InitializeTooltipDismissTimer();
    void InitializeTooltipCheckTimer();
    void InitializePosCalculator();
    void InitializeArrowedWindow();

    /// Events of watched objects that no operation of the tooltip is for.
    virtual void OnOtherEvent(QObject *watched, QEvent *event);
    void DispatchEvent(QObject *watched, QEvent *event);
    bool HandleToolTipEvent(QEvent *event);

    QWidget *ParentWidget() const;
    void FloatWindow();
    void WatchParent();
    /// What the window stays in, on the screen: the view that the tooltip belongs to, or else the
    /// window.
    QRect AvailableArea() const;
    /// Works the place out and moves the window there.
    void PlaceWindow();
    void MoveWindow(const QPoint &globalPosition);
    void PlaceAfterResize();
    void StartDismissTimer();
    void StopDismissTimer();
    void StopTooltipTimer();
    QWidget *FrameControl();
    QWidget *AdoptControl();
    void LandControl();
    void ReleaseWindows();

    bool enabled = true;
    bool floating = false;            ///< the window has been made floating
    QPointer<QWidget> tooltipControl; ///< the content
    QPointer<QWidget> tooltipWindow;  ///< what is shown: the arrowed window or the content itself
    QPointer<QWidget> pendingControl; ///< the content that was given last
    QTimer *tooltipTimer = nullptr;   ///< single shot, brings the tooltip; a child
    int showUpTime = 500;
    QSharedPointer<QTimer> dismissTimer; ///< single shot, takes the tooltip down
    int dismissTime = 1000;
    QSharedPointer<QTimer> checkTimer; ///< repeats, takes the tooltip down
    int checkTime = 20000;
    bool hoveredOnLeave = false; ///< the pointer was over host or window at the last leaving
    bool clickToDismiss = true;
    bool useCustomSettings = true;
    bool checkTimerEnabled = true;
    bool overrideDismissTimer = true;
    bool hoverEventsEnabled = false;
    ATooltipObject::IHoverCallbackHandler *hoveredHandler = nullptr;
    ATooltipObject::IHoverCallbackHandler *normalHandler = nullptr;
    bool visible = false;
    bool hoverHold = false; ///< a subclass keeps the tooltip up by this while the pointer moves on
    WidgetPosCalculator *posCalculator = nullptr; ///< a child
    QPointer<ArrowedWindow> arrowedWindow;
    QString groupName;
    bool useArrow = true;
    ATooltipObject::ETooltipType tooltipType {};

    int registrations = 0; ///< how many groups of managers it was entered in, at most
    bool isMade = false;
    bool ownsControl = false; ///< the content came without a parent and stands in no frame
    bool isPlacing = false;
    bool isEnding = false;
    QMetaObject::Connection endOfControl;
    QObject *parentWatch = nullptr; ///< a child
    std::function<void(ATooltipObject &)> preparation;

protected:
    ATooltipObject *q_ptr = nullptr;

private:
    Q_DISABLE_COPY(ATooltipObjectPrivate)
};

} // namespace Vela::UiBase
