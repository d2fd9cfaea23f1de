// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/atooltipobject.h"

#include "ui_base/qtui/tooltip/atooltipobject_p.h"

#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/popup/direction.h"
#include "ui_base/popup/floatinglayer.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/popup/windowarea_p.h"
#include "ui_base/qtui/tooltip/tooltipmanager.h"

#include <lumo_common_res/Styles>

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QLabel>
#include <QMargins>
#include <QMoveEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {
namespace {

struct SPreset
{
    EArrowPosition arrow; ///< None leaves arrow and border as they are
    EDirection direction;
    EWidgetsAlign alignment;
    int baseOffset;
    int showUpTime;
    int dismissTime;
    bool isForHovering;
};

// In the order of ETooltipType.
constexpr SPreset presets[] = {
    {EArrowPosition::Left, EDirection::Right, EWidgetsAlign::AlignCenter, 5, 0, 0, false},
    {EArrowPosition::Bottom, EDirection::Top, EWidgetsAlign::AlignCenter, 10, 0, 0, false},
    {EArrowPosition::Left, EDirection::Right, EWidgetsAlign::AlignCenter, 10, 0, 0, false},
    {EArrowPosition::None, EDirection::Bottom, EWidgetsAlign::AlignStart, 10, 500, 1000, true},
    {EArrowPosition::Left, EDirection::Left, EWidgetsAlign::AlignStart, 10, 500, 1000, true},
};

const SPreset *presetOf(ATooltipObject::ETooltipType type)
{
    const auto index = static_cast<int>(type);
    return index >= 0 && index < static_cast<int>(std::size(presets)) ? &presets[index] : nullptr;
}

void dressWindow(ArrowedWindow &window, EArrowPosition position)
{
    window.SetBorder(Resource::Styles::Instance().ColorActionPanelBorder(), 1, Qt::SolidLine,
                     Qt::BevelJoin);
    ArrowedWindow::SArrowParam arrow;
    arrow.position = position;
    arrow.angle = 0;
    window.SetArrow(arrow);
}

// A click on the window would make it the active one, whatever it does when it is shown.
void refuseFocus(QWidget *window)
{
    if (qobject_cast<FloatingLayer *>(window) && !window->internalWinId())
        window->overrideWindowFlags(window->windowFlags() | Qt::WindowDoesNotAcceptFocus);
}

// A window that dies has left the chain of focus when its children die, and to put a widget into it
// would crash.
bool isDying(const QWidget &window)
{
    return !window.nextInFocusChain();
}

// Takes a tooltip down with its parent, above which it floats in a window of its own.
class ParentWatch : public QObject
{
public:
    explicit ParentWatch(ATooltipObject *tooltip)
        : QObject(tooltip)
        , m_tooltip(tooltip)
    { }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Hide && watched == m_tooltip->parent())
            m_tooltip->ForceHideTooltip();
        return false;
    }

private:
    ATooltipObject *const m_tooltip;
};

QLabel *makeTextLabel(const QString &text, const QString &styleSheet)
{
    auto *const label = new QLabel(text);
    label->setAttribute(Qt::WA_ShowWithoutActivating);
    label->setFocusPolicy(Qt::NoFocus);
    label->setStyleSheet(styleSheet);
    return label;
}

} // namespace

ATooltipObjectPrivate::ATooltipObjectPrivate() = default;

ATooltipObjectPrivate::~ATooltipObjectPrivate() = default;

void ATooltipObjectPrivate::Initialize(ATooltipObject *q, const QString &name)
{
    q_ptr = q;
    groupName = name;
    TooltipManager::GetInstance().AddTooltip(q, name);
}

void ATooltipObjectPrivate::EnsureMade()
{
    if (isMade)
        return;
    isMade = true;
    InitializeTooltipTimers();
    InitializePosCalculator();
    InitializeArrowedWindow();
    OnMade();
    if (const auto prepare = std::exchange(preparation, nullptr))
        prepare(*q_ptr);
}

void ATooltipObjectPrivate::OnMade() { }

void ATooltipObjectPrivate::InitializeTooltipTimers()
{
    if (useCustomSettings)
        InitializeTooltipTimer();
    InitializeTooltipDismissTimer();
    if (checkTimerEnabled)
        InitializeTooltipCheckTimer();
}

void ATooltipObjectPrivate::InitializeTooltipTimer()
{
    tooltipTimer = new QTimer(q_ptr);
    tooltipTimer->setSingleShot(true);
    tooltipTimer->setInterval(showUpTime);
    QObject::connect(tooltipTimer, &QTimer::timeout, q_ptr, &ATooltipObject::OnTooltipTimerTimeOut);
}

void ATooltipObjectPrivate::InitializeTooltipDismissTimer()
{
    dismissTimer.reset(new QTimer(q_ptr));
    dismissTimer->setSingleShot(true);
    dismissTimer->setInterval(dismissTime);
    QObject::connect(dismissTimer.data(), &QTimer::timeout, q_ptr,
                     &ATooltipObject::OnTooltipDismissTimerTimeOut);
}

void ATooltipObjectPrivate::InitializeTooltipCheckTimer()
{
    checkTimer.reset(new QTimer(q_ptr));
    checkTimer->setInterval(checkTime);
    QObject::connect(checkTimer.data(), &QTimer::timeout, q_ptr,
                     &ATooltipObject::OnTooltipCheckTimerTimeOut);
}

void ATooltipObjectPrivate::InitializePosCalculator()
{
    posCalculator = new WidgetPosCalculator(q_ptr);
    posCalculator->SetAlignment(EWidgetsAlign::AlignCenter);
    posCalculator->SetDirection(EDirection::Top);
    posCalculator->setCalcGlobalPos(true);
}

void ATooltipObjectPrivate::InitializeArrowedWindow()
{
    arrowedWindow = new ArrowedWindow(ParentWidget());
    arrowedWindow->SetBorder(QColor(150, 150, 150, 100), 0, Qt::SolidLine, Qt::BevelJoin);
    // As a mere child it would appear with its parent.
    arrowedWindow->hide();
}

QWidget *ATooltipObjectPrivate::ParentWidget() const
{
    return qobject_cast<QWidget *>(q_ptr->parent());
}

QWidget *ATooltipObjectPrivate::FrameControl()
{
    if (!arrowedWindow)
        InitializeArrowedWindow();
    arrowedWindow->AttachWidget(tooltipControl);
    ownsControl = false;
    return arrowedWindow;
}

QWidget *ATooltipObjectPrivate::AdoptControl()
{
    ownsControl = !tooltipControl->parentWidget();
    if (ownsControl)
        tooltipControl->setParent(ParentWidget());
    return tooltipControl;
}

void ATooltipObjectPrivate::FloatWindow()
{
    if (!tooltipWindow || (floating && tooltipWindow->parentWidget()))
        return;
    if (!tooltipWindow->parentWidget())
        tooltipWindow->setParent(ParentWidget());
    const QPointer<ATooltipObject> guard(q_ptr);
    const bool isFloating = FloatingLayer::makeWidgetFloating(tooltipWindow, QMargins());
    if (!guard)
        return;
    floating = isFloating;
    if (tooltipWindow)
        refuseFocus(tooltipWindow->window());
}

void ATooltipObjectPrivate::WatchParent()
{
    QWidget *const parent = ParentWidget();
    if (!parent)
        return;
    if (!parentWatch)
        parentWatch = new ParentWatch(q_ptr);
    parent->installEventFilter(parentWatch);
}

QRect ATooltipObjectPrivate::AvailableArea() const
{
    if (const QWidget *root = TooltipManager::GetInstance().getRootViewOfTooltip(q_ptr))
        return Internal::areaOnScreen(*root);
    const QWidget *const parent = ParentWidget();
    return parent ? Internal::windowAreaOnScreen(*parent) : QRect();
}

void ATooltipObjectPrivate::PlaceWindow()
{
    posCalculator->setMaxAvailableRect(AvailableArea());
    const auto *const frame = qobject_cast<ArrowedWindow *>(tooltipWindow);
    const QPoint arrowPoint = frame ? frame->GetArrowPoint() : QPoint();
    QPoint position;
    isPlacing = true;
    posCalculator->GetPosition(position, tooltipWindow->rect(), frame != nullptr, arrowPoint);
    isPlacing = false;
    MoveWindow(position);
}

void ATooltipObjectPrivate::MoveWindow(const QPoint &globalPosition)
{
    const QWidget *const old = FloatingLayer::getWidgetOriginalParent(tooltipWindow);
    const QWidget *const origin = old ? old : ParentWidget();
    const QPoint position = origin ? origin->mapFromGlobal(globalPosition) : globalPosition;
    const bool standsThereInLayer = tooltipWindow->pos() == position;
    tooltipWindow->move(position);
    if (!standsThereInLayer || !tooltipWindow)
        return;
    // To Qt this was no move, but the layer takes the place in its parent from the event.
    QMoveEvent event(position, position);
    QCoreApplication::sendEvent(tooltipWindow, &event);
}

// The content has taken another size while it was up. Later, since the frame is in the middle of
// its layout now, and before the next picture. The slot is looked up by its name.
void ATooltipObjectPrivate::PlaceAfterResize()
{
    if (isPlacing || !visible)
        return;
    QMetaObject::invokeMethod(q_ptr, "OnWindowResized", Qt::QueuedConnection);
}

void ATooltipObjectPrivate::StartDismissTimer()
{
    if (dismissTimer)
        dismissTimer->start();
}

void ATooltipObjectPrivate::StopDismissTimer()
{
    if (dismissTimer)
        dismissTimer->stop();
}

void ATooltipObjectPrivate::StopTooltipTimer()
{
    if (enabled && useCustomSettings && tooltipTimer)
        tooltipTimer->stop();
}

// A content without a frame comes down again from the layer that it was put into.
void ATooltipObjectPrivate::LandControl()
{
    auto *const layer =
        tooltipControl ? qobject_cast<FloatingLayer *>(tooltipControl->parentWidget()) : nullptr;
    if (!layer)
        return;
    QWidget *const origin = FloatingLayer::getWidgetOriginalParent(tooltipControl);
    tooltipControl->setParent(origin && !isDying(*origin->window()) ? origin : nullptr);
    layer->deleteLater();
}

void ATooltipObjectPrivate::ReleaseWindows()
{
    QObject::disconnect(endOfControl);
    if (tooltipWindow) {
        tooltipWindow->removeEventFilter(q_ptr);
        tooltipWindow->hide();
    }
    if (tooltipControl && tooltipWindow == tooltipControl) {
        LandControl();
        // One that floated over a parent that has died meanwhile has nobody else any more.
        const QWidget *const keeper = tooltipControl->parentWidget();
        if (!keeper || (ownsControl && keeper == q_ptr->parent()))
            delete tooltipControl.data();
    }
    auto *const layer =
        arrowedWindow ? qobject_cast<FloatingLayer *>(arrowedWindow->parentWidget()) : nullptr;
    delete arrowedWindow.data();
    if (layer)
        layer->deleteLater();
}

bool ATooltipObjectPrivate::HandleToolTipEvent(QEvent *event)
{
    Q_Q(ATooltipObject);
    if (!enabled) {
        event->ignore();
    } else if (!useCustomSettings && hoveredOnLeave) {
        hoverHold = false;
        q->ShowTooltip();
    }
    return true;
}

void ATooltipObjectPrivate::DispatchEvent(QObject *watched, QEvent *event)
{
    Q_Q(ATooltipObject);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        q->EventFilterOnMouseButtonPress(watched, event);
        break;
    case QEvent::MouseMove:
        q->EventFilterOnMouseMove(watched, event);
        break;
    case QEvent::Enter:
        q->EventFilterOnEnter(watched);
        break;
    case QEvent::Leave:
        q->EventFilterOnLeave(watched);
        break;
    case QEvent::Hide:
        // Hidden by others, such as a close button in the content, it is down as well. A
        // spontaneous event tells of a minimised window, which brings it back when it is restored.
        if (watched == tooltipWindow && !event->spontaneous())
            visible = false;
        q->EventFilterOnHide(watched);
        break;
    default:
        OnOtherEvent(watched, event);
        break;
    }
}

void ATooltipObjectPrivate::OnOtherEvent(QObject *watched, QEvent *event)
{
    if (watched == tooltipWindow && event->type() == QEvent::Resize)
        PlaceAfterResize();
}

ATooltipObject::ATooltipObject(const QString &groupName, QWidget *parent)
    : ATooltipObject(*new ATooltipObjectPrivate, groupName, parent)
{ }

ATooltipObject::ATooltipObject(ATooltipObjectPrivate &dd, const QString &groupName, QWidget *parent)
    : QObject(parent)
    , d_ptr(&dd)
{
    d_ptr->Initialize(this, groupName);
}

ATooltipObject::~ATooltipObject()
{
    TooltipManager::GetInstance().RemoveTooltip(this);
    TooltipManager::GetInstance().forget(this);
    // What is watched sends events on the way, and the subclass has gone.
    d_ptr->isEnding = true;
    d_ptr->ReleaseWindows();
}

void ATooltipObject::SetPreparation(std::function<void(ATooltipObject &)> preparation)
{
    Q_D(ATooltipObject);
    if (!d->isMade)
        d->preparation = std::move(preparation);
    else if (preparation)
        preparation(*this);
}

QWidget *ATooltipObject::SetTooltipControl(QWidget *control, bool useArrow)
{
    Q_D(ATooltipObject);
    d->EnsureMade();
    d->pendingControl = control;
    d->useArrow = useArrow;
    return InternalSetTooltipControl();
}

QWidget *ATooltipObject::InternalSetTooltipControl()
{
    Q_D(ATooltipObject);
    QWidget *const control = d->pendingControl;
    if (!control || control == d->tooltipControl)
        return nullptr;
    QWidget *const former = DetachTooltipControl();
    AttachTooltipControl(control);
    HideTooltip();
    return former;
}

void ATooltipObject::AttachTooltipControl(QWidget *control)
{
    Q_D(ATooltipObject);
    if (!control)
        return;
    d->EnsureMade();
    if (d->tooltipWindow)
        d->tooltipWindow->removeEventFilter(this);
    d->tooltipControl = control;
    d->tooltipWindow = d->useArrow ? d->FrameControl() : d->AdoptControl();
    d->floating = qobject_cast<FloatingLayer *>(d->tooltipWindow->parentWidget());
    d->tooltipWindow->installEventFilter(this);
    disconnect(d->endOfControl);
    d->endOfControl = connect(control, &QObject::destroyed, this, [this] { HideTooltip(); });
    d->posCalculator->SetWidget(d->tooltipWindow);
}

QWidget *ATooltipObject::DetachTooltipControl()
{
    Q_D(ATooltipObject);
    d->EnsureMade();
    if (!d->tooltipWindow)
        return nullptr;
    HideTooltip();
    QWidget *const control = d->tooltipControl;
    if (d->tooltipWindow)
        d->tooltipWindow->removeEventFilter(this);
    disconnect(d->endOfControl);
    if (d->tooltipWindow == control)
        d->LandControl();
    else if (d->arrowedWindow)
        d->arrowedWindow->DetachWidget();
    d->tooltipControl.clear();
    d->tooltipWindow.clear();
    d->ownsControl = false;
    return control;
}

QWidget *ATooltipObject::TooltipControl() const
{
    d_ptr->EnsureMade();
    return d_ptr->tooltipControl;
}

QWidget *ATooltipObject::CreateTooltipControl(const QString &text)
{
    if (text.isNull())
        return nullptr;
    const QString styleSheet = Resource::Styles::Instance().DialogToolTip();
    auto *const control = new QWidget;
    control->setAttribute(Qt::WA_ShowWithoutActivating);
    control->setFocusPolicy(Qt::NoFocus);
    control->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    control->setStyleSheet(styleSheet);
    auto *const layout = new QVBoxLayout(control);
    layout->setContentsMargins(5, 5, 5, 5);
    layout->setAlignment(Qt::AlignTop);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(makeTextLabel(text, styleSheet));
    control->adjustSize();
    return control;
}

bool ATooltipObject::setText(const QString &text)
{
    const QWidget *const control = TooltipControl();
    auto *const label = control ? control->findChild<QLabel *>() : nullptr;
    if (!label)
        return false;
    label->setText(text);
    return true;
}

void ATooltipObject::SetTooltipType(ETooltipType type)
{
    Q_D(ATooltipObject);
    d->EnsureMade();
    d->tooltipType = type;
    const SPreset *const preset = presetOf(type);
    if (!preset)
        return;
    if (d->arrowedWindow && preset->arrow != EArrowPosition::None)
        dressWindow(*d->arrowedWindow, preset->arrow);
    d->posCalculator->SetDirection(preset->direction);
    d->posCalculator->SetAlignment(preset->alignment);
    d->posCalculator->SetBaseOffset(preset->baseOffset);
    d->posCalculator->SetAdditionalOffset(QPoint(0, 0));
    SetUseCustomTooltipSettings(true);
    SetCustomTooltipShowUpTime(preset->showUpTime);
    SetCustomTooltipDismissTime(preset->dismissTime);
    if (preset->isForHovering) {
        SetClickToDismissTooltip(false);
        SetEnableHoverEvents(true);
    }
}

bool ATooltipObject::IsTooltipEnabled() const
{
    return d_ptr->enabled;
}

void ATooltipObject::SetEnableTooltip(bool enable)
{
    Q_D(ATooltipObject);
    d->enabled = enable;
    if (!enable)
        HideTooltip();
}

void ATooltipObject::OnEnableTooltip(bool enable)
{
    SetEnableTooltip(enable);
}

bool ATooltipObject::IsVisible() const
{
    return d_ptr->visible;
}

bool ATooltipObject::IsHoverEventsEnabled() const
{
    return d_ptr->hoverEventsEnabled;
}

void ATooltipObject::SetUseCustomTooltipSettings(bool use)
{
    Q_D(ATooltipObject);
    d->useCustomSettings = use;
    if (!d->isMade)
        return;
    if (!use)
        delete std::exchange(d->tooltipTimer, nullptr);
    else if (!d->tooltipTimer)
        d->InitializeTooltipTimer();
}

void ATooltipObject::SetCustomTooltipShowUpTime(int milliseconds)
{
    Q_D(ATooltipObject);
    d->showUpTime = std::max(0, milliseconds);
    if (d->tooltipTimer)
        d->tooltipTimer->setInterval(d->showUpTime);
}

void ATooltipObject::SetCustomTooltipDismissTime(int milliseconds)
{
    Q_D(ATooltipObject);
    d->dismissTime = std::max(0, milliseconds);
    if (d->dismissTimer)
        d->dismissTimer->setInterval(d->dismissTime);
}

void ATooltipObject::SetCustomTooltipCheckTime(int milliseconds)
{
    Q_D(ATooltipObject);
    d->checkTime = std::max(0, milliseconds);
    if (d->checkTimer)
        d->checkTimer->setInterval(d->checkTime);
}

void ATooltipObject::SetEnableCheckTimer(bool enable)
{
    Q_D(ATooltipObject);
    d->checkTimerEnabled = enable;
    if (!enable)
        d->checkTimer.reset();
    else if (d->isMade && !d->checkTimer)
        d->InitializeTooltipCheckTimer();
}

void ATooltipObject::SetClickToDismissTooltip(bool dismiss)
{
    Q_D(ATooltipObject);
    d->clickToDismiss = dismiss;
}

void ATooltipObject::SetOverrideTooltipDismissTimer(bool overrideTimer)
{
    Q_D(ATooltipObject);
    d->overrideDismissTimer = overrideTimer;
}

void ATooltipObject::SetDismissTooltipOnMouseLeave(bool) { }

void ATooltipObject::SetHoveredStateCallbackHandler(IHoverCallbackHandler *handler)
{
    Q_D(ATooltipObject);
    d->hoveredHandler = handler;
}

void ATooltipObject::SetNormalStateCallbackHandler(IHoverCallbackHandler *handler)
{
    Q_D(ATooltipObject);
    d->normalHandler = handler;
}

void ATooltipObject::OnHoverStatusChanged(bool status)
{
    Q_D(ATooltipObject);
    if (IHoverCallbackHandler *handler = status ? d->hoveredHandler : d->normalHandler)
        handler->OnHoverStatusChanged(status);
}

void ATooltipObject::SetTooltipIndex(int index)
{
    Q_EMIT SetPageIndex(index);
}

void ATooltipObject::SetTooltipKeyword(const QString &keyword)
{
    Q_EMIT SetKeyword(keyword);
}

void ATooltipObject::ForceHideTooltip()
{
    HideTooltip();
}

ArrowedWindow *ATooltipObject::GetArrowedWindow() const
{
    d_ptr->EnsureMade();
    return d_ptr->arrowedWindow;
}

WidgetPosCalculator *ATooltipObject::GetPosCalculator() const
{
    d_ptr->EnsureMade();
    return d_ptr->posCalculator;
}

void ATooltipObject::SetEnableHoverEvents(bool) { }

void ATooltipObject::ShowTooltip()
{
    Q_D(ATooltipObject);
    d->EnsureMade();
    if (!d->tooltipWindow)
        InternalSetTooltipControl();
    const QPointer<ATooltipObject> self(this);
    d->FloatWindow();
    if (!self)
        return;
    if (!CanTooltipBeShown()) {
        HideTooltip();
        return;
    }
    d->WatchParent();
    d->PlaceWindow();
    d->visible = true;
    const QSize placedSize = d->tooltipWindow->size();
    // Showing runs code of the content, which may take another size or take the tooltip away.
    d->tooltipWindow->show();
    if (!self || !d->tooltipWindow)
        return;
    if (d->visible && d->tooltipWindow->size() != placedSize)
        d->PlaceWindow();
    d->tooltipWindow->raise();
    TooltipManager::GetInstance().HideAllTooltipsInGroupExcept(this, d->groupName);
}

void ATooltipObject::HideTooltip()
{
    Q_D(ATooltipObject);
    if (!d->tooltipWindow)
        return;
    const QPointer<ATooltipObject> self(this);
    d->tooltipWindow->hide();
    if (!self)
        return;
    d->visible = false;
    if (std::exchange(d->hoverHold, false) && d->hoverEventsEnabled && d->normalHandler)
        d->normalHandler->OnHoverStatusChanged(false);
}

bool ATooltipObject::CanTooltipBeShown()
{
    Q_D(ATooltipObject);
    d->EnsureMade();
    return d->enabled && d->tooltipWindow && d->tooltipControl;
}

bool ATooltipObject::CheckMouseHover() const
{
    const QWidget *const window = d_ptr->tooltipWindow;
    if (!window)
        return false;
    const QRect rect(window->mapToGlobal(window->rect().topLeft()),
                     window->mapToGlobal(window->rect().bottomRight()));
    return rect.contains(QCursor::pos());
}

void ATooltipObject::OnTooltipClicked()
{
    Q_D(ATooltipObject);
    if (d->clickToDismiss)
        HideTooltip();
}

void ATooltipObject::EventFilterOnEnter(QObject *)
{
    Q_D(ATooltipObject);
    d->StopDismissTimer();
}

void ATooltipObject::EventFilterOnLeave(QObject *)
{
    Q_D(ATooltipObject);
    d->StopTooltipTimer();
    if (!d->hoverHold)
        d->hoveredOnLeave = CheckMouseHover();
    d->StartDismissTimer();
}

void ATooltipObject::EventFilterOnMouseMove(QObject *, QEvent *) { }

void ATooltipObject::EventFilterOnMouseButtonPress(QObject *watched, QEvent *)
{
    Q_D(ATooltipObject);
    if (watched == d->tooltipWindow)
        OnTooltipClicked();
}

void ATooltipObject::EventFilterOnHide(QObject *) { }

bool ATooltipObject::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(ATooltipObject);
    if (d->isEnding)
        return false;
    if (event->type() == QEvent::ToolTip)
        return d->HandleToolTipEvent(event);
    if (!d->enabled)
        return QObject::eventFilter(watched, event);
    // Handlers and contents may delete the tooltip, and what it watches.
    const QPointer<ATooltipObject> self(this);
    const QPointer<QObject> receiver(watched);
    d->DispatchEvent(watched, event);
    if (!receiver)
        return true;
    return self && QObject::eventFilter(watched, event);
}

void ATooltipObject::OnWindowResized()
{
    Q_D(ATooltipObject);
    if (d->visible && d->tooltipWindow)
        d->PlaceWindow();
}

void ATooltipObject::OnTooltipTimerTimeOut()
{
    ShowTooltip();
}

void ATooltipObject::OnTooltipDismissTimerTimeOut()
{
    Q_D(ATooltipObject);
    if (!d->hoverEventsEnabled || !CheckMouseHover())
        HideTooltip();
}

void ATooltipObject::OnTooltipCheckTimerTimeOut()
{
    HideTooltip();
}

} // namespace Vela::UiBase
