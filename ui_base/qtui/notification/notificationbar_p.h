// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/notification/notificationbar.h"

#include <QEasingCurve>
#include <QFont>
#include <QMetaObject>
#include <QPixmap>
#include <QPointer>
#include <QRect>
#include <QRegion>
#include <QSize>
#include <QString>

class QAbstractAnimation;
class QAccessibleInterface;
class QGraphicsOpacityEffect;
class QLabel;
class QParallelAnimationGroup;
class QPainter;
class QPropertyAnimation;
class QToolButton;
class QTimer;

namespace Vela::UiBase {

/// The state of a NotificationBar. A subclass with other measures or colours derives from this and
/// sets them in its constructor, before the bar takes it over. Sizes are logical pixels, times
/// milliseconds.
class LUMO_UI_BASE_EXPORT NotificationBarPrivate
{
    Q_DECLARE_PUBLIC(NotificationBar)

public:
    NotificationBarPrivate();
    virtual ~NotificationBarPrivate();

    /// What assistive tools see of a bar.
    static QAccessibleInterface *makeAccessible(const QString &className, QObject *object);
    /// The whole message, also when it is shown abridged; that of a widget is its name.
    QString spokenText() const;

    void Initialize(QWidget *parent);
    QString ProcessSimpleText(const QString &simpleText) const;
    void ResizeMe(bool isText);
    void UpdatePos();
    void ShowMe();
    void ShowInCorrectStackOrder();

    QString text; ///< as it was given
    QPointer<QWidget> control;
    QTimer *dismissTimer = nullptr;
    int dismissInterval = 3000;
    int fadeDuration = 700;
    QEasingCurve easingCurve {QEasingCurve::Linear};
    int maxWidth = 600;
    QSize minSize {200, 40};
    QFont font;
    QPointer<QLabel> label;
    QWidget *holder = nullptr;
    QPointer<QWidget> parentWidget; ///< whose size is watched
    QParallelAnimationGroup *animationGroup = nullptr;
    QGraphicsOpacityEffect *opacityEffect = nullptr;
    QColor backColor {245, 245, 245, 230};
    QColor fullBackColor {245, 245, 245, 230};
    QColor pulseBackColor {232, 232, 232, 230};
    QColor textColor {96, 96, 96, 255};
    ENotificationFadeOption fadeOption = eNotificationFadeInOut;
    bool spinnerVisible = false;
    QColor spinnerOuterColor {190, 182, 173, 255};
    QColor spinnerDiscColor {128, 128, 128, 255};
    QColor spinnerSweepColor {163, 207, 233, 255};
    QColor spinnerPenColor {96, 96, 96, 255};
    QPixmap spinnerPixmap;
    int spinnerPeriod = 1000;
    int spinnerSize = 48;
    int spinnerDiscSize = 40;
    int spinnerCentreSize = 28;
    double spinnerSweep = 90.0;
    double spinnerAngle = 0.0;
    int spinnerGap = 10;
    QRect outerRect;
    QRect discRect;
    QRect centreRect;
    QRect pixmapRect;
    int pixmapSize = 18;
    QTimer *switchTimer = nullptr;
    bool spinnerOnly = false;
    bool deterministicSpinner = false;
    bool closeButtonVisible = false; ///< wanted by the message, not whether it can be seen
    QToolButton *closeButton = nullptr;
    bool closedByUser = false; ///< while the fade-out after the close button runs
    bool showing = false;

protected:
    NotificationBar *q_ptr = nullptr;

private:
    friend class NotificationBar;

    void makeTimers();
    void makeHolder();
    void makeCloseButton();
    void makeLabel();
    void dieWithParent();

    bool isOpaqueAtAll() const;
    bool hasContent() const;
    bool canHold(const QWidget *content) const;
    void startMessage(ENotificationFadeOption fade, int milliseconds, bool showCloseButton);
    void clearAnimations();
    void stopAnimations();
    void animateAppearance();
    QAbstractAnimation *makePulse();
    QPropertyAnimation *makeAnimation(QObject *target, const QByteArray &property,
                                      const QVariant &from, const QVariant &to, int duration) const;
    void turnDynamicProperty();
    void holdEndlessAnimations(bool hold);

    void takeOutControl();
    void takeOutLabel();
    void tellWhetherKeysAreTaken();
    QSize boxSizeFor(bool isText);
    QSize fitLabel(QSize box);
    void layOutBox(const QSize &box);
    void layOutSpinner(int width);
    QRegion seenRegion() const;
    void cutOutLayer(const QRegion &seen);

    void preparePictures();
    void paintSpinner(QPainter &painter) const;
    QPainterPath sector() const;

    QSize wantedSize;
    QColor lastBackColor;
    QMetaObject::Connection endOfFade;
    QPointer<QPropertyAnimation> dynamicPropertyAnimation;
    // The picture of the spinner in the pixels that it takes up on the screen, and what it is for.
    QPixmap preparedPixmap;
    qint64 preparedFrom = 0;
    QSize preparedSize;
    qreal preparedRatio = 0;

    Q_DISABLE_COPY(NotificationBarPrivate)
};

} // namespace Vela::UiBase
