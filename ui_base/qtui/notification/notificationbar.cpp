// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/notification/notificationbar.h"

#include "ui_base/qtui/notification/notificationbar_p.h"

#include "ui_base/popup/floatinglayer.h"
#include "ui_base/popup/layershape_p.h"
#include "ui_base/qtui/devicepixmap_p.h"
#include "ui_base/qtui/notification/messagelabel_p.h"

#include <lumo_common_res/Fonts>
#include <lumo_common_res/String>
#include <lumo_common_res/Styles>
#include <lumo_math/LumoMath>

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QMouseEvent>
#include <QMoveEvent>
#include <QPainter>
#include <QPainterPath>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QSequentialAnimationGroup>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Vela::UiBase {
namespace {

constexpr int SwitchDelay = 100;
constexpr int DefaultDismissInterval = 3000;
constexpr int DistanceFromBottom = 56;
constexpr int CloseButtonSize = 20;
constexpr int CloseButtonGap = 4;
constexpr int LargestSpinner = 4096;
constexpr double LastAngle = -359.0;
constexpr double Tolerance = 1e-5;

QString closeButtonSheet()
{
    return QStringLiteral(
        "QToolButton {"
        "                                            background-color: transparent;"
        "                                            width: 20px;"
        "                                            height: 20px;"
        "                                            image: url(:/resources/images/sys_close.png);"
        "                                            }"
        "                                            QToolButton:hover {"
        "                                            image:"
        " url(:/resources/images/sys_close_hover.png);"
        "                                            }");
}

QString holderSheet(const QString &name)
{
    return QStringLiteral("QWidget#%1"
                          "                    {background-color: #FFFFFF;"
                          "                    border: 1px solid #A0A0A0;"
                          "        }"
                          "        QLabel {"
                          "            font-size: 12px;"
                          "            font-family: 'Arial';"
                          "            color: #606060;"
                          "        }"
                          "        ")
        .arg(name);
}

// The box of the message. Its sheet gives the white ground and the border; the colour of the
// message, which pulses, lies above that, since a sheet does not ask the palette.
class HolderBox : public QWidget
{
public:
    HolderBox(QWidget *bar, const QColor &color)
        : QWidget(bar)
        , m_color(color)
    { }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(rect().adjusted(1, 1, -1, -1), m_color);
    }

private:
    const QColor &m_color;
};

// Draws the pictures that its sheet names by itself: Qt leaves them out where a sheet gives a button no
// border, and stretches the smallest on screens of a higher ratio.
class CloseButton : public QToolButton
{
public:
    using QToolButton::QToolButton;

protected:
    void paintEvent(QPaintEvent *) override
    {
        prepare();
        QPainter(this).drawPixmap(rect(), underMouse() ? m_hovered : m_atRest);
    }

private:
    void prepare()
    {
        const qreal ratio = Internal::devicePixelRatioFor(*this);
        if (LumoMath::equals(ratio, m_ratio, Tolerance))
            return;
        m_ratio = ratio;
        m_atRest = Internal::loadPixmap(QStringLiteral(":/resources/images/sys_close.png"), ratio);
        m_hovered =
            Internal::loadPixmap(QStringLiteral(":/resources/images/sys_close_hover.png"), ratio);
    }

    QPixmap m_atRest;
    QPixmap m_hovered;
    qreal m_ratio = 0;
};

QRect squareAround(const QPoint &centre, int size)
{
    return {centre.x() - size / 2, centre.y() - size / 2, size, size};
}

// A layout shows a widget in the size that it prefers, whichever it was given, and one without any
// preference not at all. What has no size yet would count with the one that Qt gives to every new
// widget.
void giveSize(QWidget &control)
{
    if (control.testAttribute(Qt::WA_Resized))
        control.setFixedSize(control.size());
    else
        control.adjustSize();
}

} // namespace

NotificationBarPrivate::NotificationBarPrivate()
    : font(QStringLiteral("LATO Regular"))
{
    const auto &fonts = Resource::Styles::Instance().Font();
    font.setPixelSize(fonts.FontPixelSize12Value(1, QString()));
}

NotificationBarPrivate::~NotificationBarPrivate() = default;

QAccessibleInterface *NotificationBarPrivate::makeAccessible(const QString &className,
                                                             QObject *object)
{
    class AccessibleMessage : public QAccessibleWidget
    {
    public:
        using QAccessibleWidget::QAccessibleWidget;
        QString text(QAccessible::Text type) const override
        {
            QString own = QAccessibleWidget::text(type);
            if (type != QAccessible::Name || !own.isEmpty())
                return own;
            // Of one that is being destroyed only the widget may be left.
            const auto *const bar = qobject_cast<const NotificationBar *>(object());
            return bar ? bar->d_func()->spokenText() : QString();
        }
    };
    if (className != QLatin1String(NotificationBar::staticMetaObject.className()))
        return nullptr;
    return new AccessibleMessage(static_cast<QWidget *>(object), QAccessible::AlertMessage);
}

QString NotificationBarPrivate::spokenText() const
{
    if (!control)
        return label ? text : QString();
    QAccessibleInterface *const content = QAccessible::queryAccessibleInterface(control);
    return content ? content->text(QAccessible::Name) : QString();
}

void NotificationBarPrivate::Initialize(QWidget *parent)
{
    Q_Q(NotificationBar);
    QAccessible::installFactory(makeAccessible);
    parentWidget = parent;
    if (parent) {
        parent->installEventFilter(q);
        dieWithParent();
    }
    q->setFocusPolicy(Qt::NoFocus);
    q->setAttribute(Qt::WA_TranslucentBackground);
    q->hide();
    spinnerPixmap =
        Internal::loadPixmap(QStringLiteral(":/resources/images/sys_create_icon_hover_48x48.png"),
                             Internal::highestDevicePixelRatio());
    makeTimers();
    animationGroup = new QParallelAnimationGroup(q);
    opacityEffect = new QGraphicsOpacityEffect(q);
    opacityEffect->setOpacity(0.0);
    q->lower();
    makeHolder();
    makeCloseButton();
    holder->setGraphicsEffect(opacityEffect);
    holder->setStyleSheet(holderSheet(holder->objectName()));
    q->SetBackColor(backColor);
}

void NotificationBarPrivate::makeTimers()
{
    Q_Q(NotificationBar);
    dismissTimer = new QTimer(q);
    dismissTimer->setSingleShot(true);
    dismissTimer->setInterval(dismissInterval);
    QObject::connect(dismissTimer, &QTimer::timeout, q, &NotificationBar::OnDismissTimerTimeOut);
    switchTimer = new QTimer(q);
    switchTimer->setSingleShot(true);
    switchTimer->setInterval(SwitchDelay);
    QObject::connect(switchTimer, &QTimer::timeout, q, &NotificationBar::OnSwitchTimerTimeOut);
}

void NotificationBarPrivate::makeHolder()
{
    Q_Q(NotificationBar);
    holder = new HolderBox(q, lastBackColor);
    holder->setFocusPolicy(Qt::NoFocus);
    holder->setObjectName(QStringLiteral("notification_holder"));
    holder->setAutoFillBackground(true);
    // All of the box within its border is for the message: long ones need it.
    auto *const layout = new QVBoxLayout(holder);
    layout->setContentsMargins(1, 1, 1, 1);
}

void NotificationBarPrivate::makeCloseButton()
{
    Q_Q(NotificationBar);
    closeButton = new CloseButton(holder);
    closeButton->setFocusPolicy(Qt::NoFocus);
    closeButton->setFixedSize(CloseButtonSize, CloseButtonSize);
    closeButton->setStyleSheet(closeButtonSheet());
    closeButton->hide();
    QObject::connect(closeButton, &QToolButton::clicked, q, &NotificationBar::OnCloseButtonClicked);
}

void NotificationBarPrivate::makeLabel()
{
    Q_Q(NotificationBar);
    label = new Internal::MessageLabel(q);
    label->setFocusPolicy(Qt::NoFocus);
    label->setTextFormat(Qt::PlainText);
    label->setAutoFillBackground(true);
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    label->setScaledContents(true);
    label->setMaximumWidth(maxWidth);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    label->setWordWrap(true);
    label->setStyleSheet(QStringLiteral("QLabel{border-radius: 0; border-width: 0;}"));
    label->setFont(font);
    q->SetTextColor(textColor);
    holder->layout()->addWidget(label);
    holder->layout()->setAlignment(label, Qt::AlignHCenter | Qt::AlignVCenter);
    // The sheet of the holder decides on the font that the text is measured with.
    label->ensurePolished();
}

// A layer that dies with the parent hands the bar back, and nobody else would take it.
void NotificationBarPrivate::dieWithParent()
{
    Q_Q(NotificationBar);
    QObject::connect(parentWidget, &QObject::destroyed, q, [q](const QObject *parent) {
        const auto *const layer = qobject_cast<FloatingLayer *>(q->parentWidget());
        const bool isLeftOver = !q->parent() && q->property("vela_widget_is_floating").toBool();
        if (isLeftOver || (layer && layer->parent() == parent))
            delete q;
    });
}

bool NotificationBarPrivate::isOpaqueAtAll() const
{
    return !LumoMath::zero(opacityEffect->opacity(), Tolerance);
}

bool NotificationBarPrivate::hasContent() const
{
    return label || control;
}

bool NotificationBarPrivate::canHold(const QWidget *content) const
{
    const bool isPart = content == holder || content == closeButton || content == label;
    return content && content != q_ptr && !isPart && !content->isAncestorOf(q_ptr);
}

void NotificationBarPrivate::startMessage(ENotificationFadeOption fade, int milliseconds,
                                          bool showCloseButton)
{
    fadeOption = fade;
    dismissTimer->setInterval(std::max(milliseconds, 0));
    dismissTimer->stop();
    stopAnimations();
    switchTimer->stop();
    closeButtonVisible = showCloseButton;
    closeButton->setAccessibleName(Resource::String::CLOSE_BUTTON_TEXT);
    closeButton->setVisible(showCloseButton);
}

// An endless group says that it has finished when it is stopped, which must not end a message.
void NotificationBarPrivate::stopAnimations()
{
    QObject::disconnect(endOfFade);
    animationGroup->stop();
}

void NotificationBarPrivate::clearAnimations()
{
    stopAnimations();
    animationGroup->clear();
}

QString NotificationBarPrivate::ProcessSimpleText(const QString &simpleText) const
{
    const QFontMetrics metrics = label->fontMetrics();
    QString result;
    const QStringList parts = simpleText.split(QLatin1Char(' '));
    for (const QString &part : parts)
        result += metrics.elidedText(part, Qt::ElideMiddle, maxWidth) + QLatin1Char(' ');
    return result.trimmed();
}

void NotificationBarPrivate::takeOutControl()
{
    if (!control)
        return;
    holder->layout()->removeWidget(control);
    delete control;
}

// Some window managers give the keyboard to whatever is shown, and all of them to what is clicked. Only
// a widget of a host has use for it; what comes after that gives it back.
void NotificationBarPrivate::tellWhetherKeysAreTaken()
{
    Q_Q(NotificationBar);
    const auto *const layer = qobject_cast<FloatingLayer *>(q->parentWidget());
    if (!layer || !layer->windowHandle())
        return;
    layer->windowHandle()->setFlag(Qt::WindowDoesNotAcceptFocus, !control);
    if (!control && layer->isActiveWindow() && layer->parentWidget())
        layer->parentWidget()->activateWindow();
}

void NotificationBarPrivate::takeOutLabel()
{
    if (!label)
        return;
    holder->layout()->removeWidget(label);
    delete label;
}

void NotificationBarPrivate::ResizeMe(bool isText)
{
    Q_Q(NotificationBar);
    if (isText ? !label : !control)
        return;
    wantedSize = QSize(spinnerSize, spinnerSize);
    if (!spinnerOnly) {
        const QSize box = boxSizeFor(isText);
        layOutBox(box);
        wantedSize = QSize(box.width(), box.height() + spinnerGap + spinnerSize);
    }
    layOutSpinner(wantedSize.width());
    cutOutLayer(seenRegion());
    if (q->size() != wantedSize) {
        q->resize(wantedSize);
        q->repaint();
    }
    q->adjustSize();
    UpdatePos();
}

QSize NotificationBarPrivate::boxSizeFor(bool isText)
{
    const QSize content =
        isText ? label->fontMetrics().boundingRect(label->text()).size() : control->size();
    QSize box(std::max(int(content.width() * 1.3), minSize.width()),
              std::max(int(content.height() * 1.4), minSize.height()));
    if (isText)
        box = fitLabel(box);
    if (closeButtonVisible)
        box.rheight() += closeButton->height();
    return box;
}

QSize NotificationBarPrivate::fitLabel(QSize box)
{
    label->setFixedWidth(int(std::min(box.width(), maxWidth) / 1.1));
    label->adjustSize();
    const QSize content = label->size();
    box.setWidth(std::min(std::max(int(content.width() * 1.3), minSize.width()), maxWidth));
    int heightForWidth = label->heightForWidth(box.width());
    if (heightForWidth < 0)
        heightForWidth = content.height();
    box.setHeight(minSize.height());
    if (heightForWidth * 1.4 >= minSize.height())
        box.setHeight(int(heightForWidth * 1.4 - content.height() + minSize.height()));
    return box;
}

void NotificationBarPrivate::layOutBox(const QSize &box)
{
    holder->resize(box);
    holder->move(0, spinnerGap + spinnerSize);
    if (closeButtonVisible)
        closeButton->move(box.width() - CloseButtonGap - closeButton->width(), CloseButtonGap);
    // The repaint that follows does not wait for a layout that was only asked for.
    holder->layout()->activate();
}

void NotificationBarPrivate::layOutSpinner(int width)
{
    const QPoint centre(width / 2, spinnerSize / 2);
    outerRect = squareAround(centre, spinnerSize);
    discRect = squareAround(centre, spinnerDiscSize);
    centreRect = squareAround(centre, spinnerCentreSize);
    pixmapRect = squareAround(centre, pixmapSize);
}

QRegion NotificationBarPrivate::seenRegion() const
{
    QRegion region;
    if (!holder->isHidden())
        region += holder->geometry();
    if (spinnerVisible)
        region += QRegion(outerRect.adjusted(-1, -1, 1, 1), QRegion::Ellipse);
    return region;
}

// The room around box and spinner belongs to the view below.
void NotificationBarPrivate::cutOutLayer(const QRegion &seen)
{
    Internal::cutOutLayer(*q_func(), seen);
}

void NotificationBarPrivate::UpdatePos()
{
    Q_Q(NotificationBar);
    if (!parentWidget)
        return;
    const QRect room = parentWidget->rect();
    const QPoint position((room.width() - q->width()) >> 1,
                          room.bottom() - DistanceFromBottom - q->height());
    const bool isInLayer = q->parentWidget() != parentWidget;
    if (isInLayer && q->pos() == position) {
        // No move to Qt, but one to the layer around the bar.
        QMoveEvent moved(position, position);
        QCoreApplication::sendEvent(q, &moved);
        return;
    }
    q->move(position);
}

void NotificationBarPrivate::ShowMe()
{
    Q_Q(NotificationBar);
    dismissTimer->stop();
    // The message before this one may have been sent away while this one waited.
    stopAnimations();
    closedByUser = false;
    holder->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    showing = true;
    const bool isPulse = fadeOption == eNotificationPulse;
    q->SetBackColor(isPulse ? backColor : fullBackColor);
    if (!isPulse)
        dismissTimer->start();
    if (fadeOption == eNotificationFadeOutOnly || fadeOption == eNotificationNoFade) {
        opacityEffect->setOpacity(1.0);
        q->SetBackColor(fullBackColor);
    } else {
        animateAppearance();
    }
    cutOutLayer(seenRegion());
    q->update();
    ShowInCorrectStackOrder(); // last: who hears of it may end the bar
}

void NotificationBarPrivate::animateAppearance()
{
    clearAnimations();
    auto *const appearance = new QSequentialAnimationGroup;
    const double opacity = opacityEffect->opacity();
    appearance->addAnimation(
        makeAnimation(opacityEffect, "opacity", opacity, 1.0, int(fadeDuration * (1.0 - opacity))));
    if (fadeOption == eNotificationPulse)
        appearance->addAnimation(makePulse());
    animationGroup->addAnimation(appearance);
    if (spinnerVisible) {
        auto *const turn = makeAnimation(q_ptr, "SpinnerAngle", 0.0, LastAngle, spinnerPeriod);
        turn->setLoopCount(-1);
        animationGroup->addAnimation(turn);
    }
    animationGroup->start();
    if (!q_ptr->isVisible())
        holdEndlessAnimations(true);
}

QAbstractAnimation *NotificationBarPrivate::makePulse()
{
    // Qt can't loop for ever over what takes no time, and both halves are added up.
    const int halfPeriod = std::clamp(dismissInterval, 1, std::numeric_limits<int>::max() / 4);
    auto *const pulse = new QSequentialAnimationGroup;
    pulse->addAnimation(makeAnimation(q_ptr, "BackColor", backColor, pulseBackColor, halfPeriod));
    pulse->addAnimation(makeAnimation(q_ptr, "BackColor", pulseBackColor, backColor, halfPeriod));
    pulse->setLoopCount(-1);
    return pulse;
}

QPropertyAnimation *NotificationBarPrivate::makeAnimation(QObject *target,
                                                          const QByteArray &property,
                                                          const QVariant &from, const QVariant &to,
                                                          int duration) const
{
    auto *const animation = new QPropertyAnimation(target, property);
    animation->setStartValue(from);
    animation->setEndValue(to);
    animation->setDuration(duration);
    animation->setEasingCurve(easingCurve);
    return animation;
}

// Not the declared property, so that the spinner stands still while it is shown alone. Made once: a
// second one would only do the same work again.
void NotificationBarPrivate::turnDynamicProperty()
{
    Q_Q(NotificationBar);
    delete dynamicPropertyAnimation;
    q->setProperty("TimerAngle", 0.0);
    dynamicPropertyAnimation = makeAnimation(q_ptr, "TimerAngle", 0.0, LastAngle, spinnerPeriod);
    dynamicPropertyAnimation->setParent(q);
    dynamicPropertyAnimation->setLoopCount(-1);
    dynamicPropertyAnimation->start();
    if (!q->isVisible())
        holdEndlessAnimations(true);
}

// What never ends would wake the process for ever behind a hidden bar. A fade goes on: its end is
// the end of the message.
void NotificationBarPrivate::holdEndlessAnimations(bool hold)
{
    const auto holdOne = [hold](QAbstractAnimation *animation) {
        if (!animation || animation->totalDuration() >= 0)
            return;
        if (hold && animation->state() == QAbstractAnimation::Running)
            animation->pause();
        else if (!hold && animation->state() == QAbstractAnimation::Paused)
            animation->resume();
    };
    holdOne(animationGroup);
    holdOne(dynamicPropertyAnimation);
}

void NotificationBarPrivate::ShowInCorrectStackOrder()
{
    Q_Q(NotificationBar);
    if (closeButtonVisible)
        q->raise();
    q->show();
    QAccessibleEvent alert(q, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void NotificationBarPrivate::preparePictures()
{
    Q_Q(NotificationBar);
    const qreal ratio = Internal::devicePixelRatioFor(*q);
    const bool isReady = preparedFrom == spinnerPixmap.cacheKey()
        && preparedSize == pixmapRect.size() && LumoMath::equals(ratio, preparedRatio, Tolerance);
    if (isReady)
        return;
    preparedFrom = spinnerPixmap.cacheKey();
    preparedSize = pixmapRect.size();
    preparedRatio = ratio;
    preparedPixmap = Internal::fitted(spinnerPixmap, pixmapRect.size(), ratio);
}

void NotificationBarPrivate::paintSpinner(QPainter &painter) const
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                           | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(spinnerOuterColor);
    painter.drawEllipse(outerRect);
    painter.setPen(spinnerPenColor);
    painter.setBrush(spinnerDiscColor);
    painter.drawEllipse(discRect);
    painter.setBrush(spinnerSweepColor);
    painter.drawPath(sector());
    painter.setBrush(spinnerOuterColor);
    painter.drawEllipse(centreRect);
    painter.drawPixmap(pixmapRect, preparedPixmap);
}

QPainterPath NotificationBarPrivate::sector() const
{
    const QRectF disc(discRect);
    const double start = deterministicSpinner ? 0.0 : spinnerAngle;
    const double length = deterministicSpinner ? spinnerAngle : spinnerSweep;
    QPainterPath path;
    path.arcMoveTo(disc, start);
    const QPointF edge = path.currentPosition();
    path.moveTo(disc.center());
    path.lineTo(edge);
    path.arcTo(disc, start, -length);
    path.closeSubpath();
    return path;
}

NotificationBar::NotificationBar(QWidget *parent)
    : NotificationBar(*new NotificationBarPrivate, parent)
{ }

NotificationBar::NotificationBar(NotificationBarPrivate &dd, QWidget *parent)
    : QWidget(parent)
    , d_ptr(&dd)
{
    dd.q_ptr = this;
    dd.Initialize(parent);
}

NotificationBar::~NotificationBar() = default;

void NotificationBar::ShowSimpleText(const QString &text, ENotificationFadeOption fade,
                                     int milliseconds, bool showCloseButton)
{
    Q_D(NotificationBar);
    d->startMessage(fade, milliseconds, showCloseButton);
    if (d->label)
        d->label->setVisible(!d->spinnerOnly);
    if (text.isEmpty()) {
        OnDismissTimerTimeOut();
        return;
    }
    d->closedByUser = false;
    d->spinnerVisible = fade == eNotificationPulse;
    SetSimpleText(text);
    d->switchTimer->start();
}

void NotificationBar::ShowControl(QWidget *control, ENotificationFadeOption fade, int milliseconds,
                                  bool showCloseButton)
{
    Q_D(NotificationBar);
    const bool isNew = d->canHold(control);
    if (!isNew && !d->hasContent())
        return;
    d->startMessage(fade, milliseconds, showCloseButton);
    d->holder->setVisible(!d->spinnerOnly);
    d->closedByUser = false;
    d->spinnerVisible = fade == eNotificationPulse;
    if (isNew)
        SetControl(control);
    else
        d->ResizeMe(d->label);
    d->switchTimer->start();
}

void NotificationBar::DismissMe()
{
    if (isVisible())
        OnDismissTimerTimeOut();
}

bool NotificationBar::isShowing() const
{
    Q_D(const NotificationBar);
    return d->showing;
}

void NotificationBar::SetDismissInterval(int milliseconds)
{
    Q_D(NotificationBar);
    d->dismissInterval = std::max(milliseconds, 0);
    d->dismissTimer->setInterval(d->dismissInterval);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is the interface.
void NotificationBar::SetBackColor(QColor color)
{
    Q_D(NotificationBar);
    d->lastBackColor = color;
    QPalette palette = d->holder->palette();
    palette.setColor(d->holder->backgroundRole(), color);
    d->holder->setPalette(palette);
    d->holder->update();
}

// Remembered here: the style sheet of the box puts its own colour into the palette.
QColor NotificationBar::BackColor() const
{
    Q_D(const NotificationBar);
    return d->lastBackColor;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is the interface.
void NotificationBar::SetTextColor(QColor)
{
    Q_D(NotificationBar);
    if (!d->label)
        return;
    QPalette palette = d->label->palette();
    palette.setColor(d->label->foregroundRole(), d->textColor);
    d->label->setPalette(palette);
}

void NotificationBar::SetSimpleText(QString text)
{
    Q_D(NotificationBar);
    if (text.isEmpty())
        return;
    d->takeOutControl();
    d->text = std::move(text);
    if (!d->label)
        d->makeLabel();
    d->label->setText(d->ProcessSimpleText(d->text));
    d->tellWhetherKeysAreTaken();
    d->ResizeMe(true);
}

void NotificationBar::SetControl(QWidget *control)
{
    Q_D(NotificationBar);
    if (!d->canHold(control))
        return;
    if (d->control == control) {
        d->holder->layout()->removeWidget(control);
    } else {
        control->setParent(this); // may stand in the present one
        d->takeOutControl();
        giveSize(*control);
    }
    d->takeOutLabel();
    d->control = control;
    d->holder->layout()->addWidget(control);
    d->holder->layout()->setAlignment(control, Qt::AlignHCenter | Qt::AlignVCenter);
    d->holder->layout()->setContentsMargins(0, 0, 0, 0);
    d->tellWhetherKeysAreTaken();
    d->ResizeMe(false);
}

void NotificationBar::SetShowSpinnerOnly(bool on)
{
    Q_D(NotificationBar);
    setAttribute(Qt::WA_TranslucentBackground);
    d->spinnerOnly = on;
    if (on)
        d->spinnerVisible = true;
    SetSimpleText(QStringLiteral("Will not show")); // there for its size alone
    d->ShowInCorrectStackOrder();
    d->label->setVisible(!on);
    d->holder->setVisible(!on);
    d->cutOutLayer(d->seenRegion());
    if (d->spinnerVisible)
        d->turnDynamicProperty();
    d->dismissTimer->stop();
}

void NotificationBar::SetDeterministicSpinner(bool on)
{
    Q_D(NotificationBar);
    d->deterministicSpinner = on;
    update();
}

void NotificationBar::SetSpinnerSize(int size)
{
    Q_D(NotificationBar);
    d->spinnerSize = std::clamp(size, 0, LargestSpinner);
    d->spinnerDiscSize = d->spinnerSize * 40 / 48;
    d->spinnerCentreSize = d->spinnerSize * 28 / 48;
    d->pixmapSize = d->spinnerSize * 18 / 48;
    d->ResizeMe(d->label);
}

void NotificationBar::SetSpinnerAngle(double degrees)
{
    Q_D(NotificationBar);
    if (!std::isfinite(degrees))
        return;
    d->spinnerAngle = degrees;
    update();
}

double NotificationBar::SpinnerAngle() const
{
    Q_D(const NotificationBar);
    return d->spinnerAngle;
}

QSize NotificationBar::sizeHint() const
{
    Q_D(const NotificationBar);
    return d->wantedSize;
}

void NotificationBar::OnSwitchTimerTimeOut()
{
    Q_D(NotificationBar);
    d->ShowMe();
}

void NotificationBar::OnDismissTimerTimeOut()
{
    Q_D(NotificationBar);
    if (!d->spinnerOnly && d->fadeOption == eNotificationNoFade) {
        d->opacityEffect->setOpacity(0.0);
        d->closedByUser = false;
        d->spinnerVisible = false;
        // What cannot be seen any more is not in the way of the view below.
        d->holder->setAttribute(Qt::WA_TransparentForMouseEvents);
        d->cutOutLayer(QRegion());
        update();
        lower();
    } else if (!d->spinnerOnly && !d->endOfFade) {
        HideMe(); // one that is going already would flash
    }
    d->dismissInterval = DefaultDismissInterval;
    d->closeButtonVisible = false;
    d->showing = false;
}

void NotificationBar::HideMe()
{
    Q_D(NotificationBar);
    d->dismissTimer->stop();
    d->clearAnimations();
    d->animationGroup->addAnimation(
        d->makeAnimation(d->opacityEffect, "opacity", 1.0, 0.0, d->fadeDuration));
    d->endOfFade = connect(d->animationGroup, &QAbstractAnimation::finished, this,
                           &NotificationBar::OnAnimationFinished);
    d->animationGroup->start();
    d->deterministicSpinner = false;
    d->showing = false;
}

void NotificationBar::OnAnimationFinished()
{
    Q_D(NotificationBar);
    disconnect(d->endOfFade);
    d->opacityEffect->setOpacity(0.0);
    d->spinnerVisible = false;
    d->closedByUser = false;
    d->showing = false;
    // A leave that followed the close button has started it again.
    d->dismissTimer->stop();
    update();
    lower();
    hide(); // last: who hears of it may end the bar
}

void NotificationBar::OnCloseButtonClicked()
{
    Q_D(NotificationBar);
    d->closedByUser = true;
    HideMe();
}

void NotificationBar::changeEvent(QEvent *event)
{
    Q_D(NotificationBar);
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        d->closeButton->setAccessibleName(Resource::String::CLOSE_BUTTON_TEXT);
}

void NotificationBar::enterEvent(QEvent *)
{
    Q_D(NotificationBar);
    if (!d->isOpaqueAtAll() || d->closedByUser || d->fadeOption == eNotificationPulse)
        return;
    d->dismissTimer->stop();
    d->stopAnimations();
    d->opacityEffect->setOpacity(1.0);
    SetBackColor(d->fullBackColor);
}

void NotificationBar::leaveEvent(QEvent *)
{
    Q_D(NotificationBar);
    if (d->isOpaqueAtAll() && d->fadeOption != eNotificationPulse)
        d->dismissTimer->start();
}

void NotificationBar::mousePressEvent(QMouseEvent *event)
{
    Q_D(NotificationBar);
    if (!d->isOpaqueAtAll() || d->closedByUser) {
        event->ignore();
        return;
    }
    Q_EMIT mouseClicked();
}

void NotificationBar::paintEvent(QPaintEvent *event)
{
    Q_D(NotificationBar);
    if (!d->spinnerVisible) {
        QWidget::paintEvent(event);
        return;
    }
    d->preparePictures();
    QPainter painter(this);
    painter.save();
    d->paintSpinner(painter);
    painter.restore();
}

void NotificationBar::showEvent(QShowEvent *event)
{
    Q_D(NotificationBar);
    d->holdEndlessAnimations(false);
    d->tellWhetherKeysAreTaken();
    QWidget::showEvent(event);
}

void NotificationBar::hideEvent(QHideEvent *event)
{
    Q_D(NotificationBar);
    d->holdEndlessAnimations(true);
    QWidget::hideEvent(event);
}

bool NotificationBar::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(NotificationBar);
    if (watched == d->parentWidget && event->type() == QEvent::Resize)
        d->UpdatePos();
    return QWidget::eventFilter(watched, event);
}

} // namespace Vela::UiBase
