// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/toolbutton.h"

#include "ui_base/toolbar/toolbar_p.h"
#include "ui_base/toolbar/toolbutton_p.h"

#include "ui_base/command/commandbase.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/qtui/accessibleopener_p.h"
#include "ui_base/qtui/devicepixmap_p.h"
#include "ui_base/qtui/mouseeventclone_p.h"
#include "ui_base/toolbar/sharedsheet_p.h"
#include "ui_base/toolbar/sheetscope_p.h"
#include "ui_base/toolbar/toolbuttonwithmenu.h"

#include <lumo_common_res/Fonts>
#include <lumo_common_res/Styles>

#include <QActionEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionToolButton>
#include <QTextDocumentFragment>

#include <algorithm>
#include <typeinfo>
#include <utility>

namespace Vela::UiBase {
namespace {

QPixmap preparedPicture(const ToolButton &button, QIcon::Mode mode)
{
    const qreal ratio = Internal::devicePixelRatioFor(button);
    return Internal::pixmapOf(button.icon(), button.iconSize(), ratio, mode, QIcon::On);
}

// In the style sheet of each button it would cost far more.
QFont textFont()
{
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(Resource::Styles::Instance().Font().FontPixelSize12Value(1, QString()));
    return font;
}

std::shared_ptr<QIcon> iconWith(const QPixmap &pixmap)
{
    return std::make_shared<QIcon>(Internal::iconOf(pixmap, QPixmap()));
}

QString plainText(const QString &text)
{
    return QTextDocumentFragment::fromHtml(text).toPlainText();
}

QString nameOf(const QAction &action)
{
    if (!action.text().isEmpty())
        return action.iconText();
    QString tooltip = plainText(action.toolTip());
    if (!tooltip.isEmpty())
        return tooltip;
    const auto *const command = qobject_cast<const CommandBase *>(&action);
    return command ? command->commandId() : QString();
}

// Qt asks while the button is still being made, when it has no menu yet and is of no subclass, and
// keeps the answer.
QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    using Internal::AccessibleOpener;
    if (className != QLatin1String(ToolButton::staticMetaObject.className()))
        return nullptr;
    auto *const button = static_cast<ToolButton *>(object);
    return new AccessibleOpener(*button, [button]() -> AccessibleOpener::SOpened {
        const auto *const menuButton = qobject_cast<ToolButtonWithMenu *>(button);
        QWidget *const menu = menuButton ? menuButton->GetMenu() : nullptr;
        return {menu,
                qobject_cast<ToolBar *>(menu) ? AccessibleOpener::EKind::Menu
                                              : AccessibleOpener::EKind::Popup};
    });
}

} // namespace

const QString ToolButton::COMMANDID_PROPERTY = QStringLiteral("CMDID_PROP");

ToolButton::IToolButtonCallbackHandler::~IToolButtonCallbackHandler() = default;

ToolButtonPrivate::ToolButtonPrivate() = default;

ToolButtonPrivate::~ToolButtonPrivate()
{
    // Before the fields that its preparation needs.
    delete tooltipObject;
}

void ToolButtonPrivate::SetDefaults()
{
    action = nullptr;
    buttonKind = EButtonKind::Plain;
    tooltipText.clear();
    toolBar = nullptr;
    callbackHandlers.clear();
    locked = false;
    activeIcon.reset();
    normalIcon.reset();
    iconPinned = false;
    hideMenuWhenUnchecked = false;
    suppressClickedHandler = false;
    clickedHandlerRequested = false;
}

bool ToolButtonPrivate::hasMenu() const
{
    return false;
}

bool ToolButtonPrivate::isEnabledByHandlers(QAction *asked) const
{
    // A handler may register others, delete the button, and delete the action.
    const auto handlers = callbackHandlers.value(asked);
    const QPointer<QAction> living(asked);
    return std::all_of(handlers.begin(), handlers.end(), [&living](auto *handler) {
        return living && handler->IsActionEnabled(living);
    });
}

// The watcher goes with this object, and so before the actions that are children of the button.
void ToolButtonPrivate::forgetHandlersWith(QAction *watched)
{
    if (!actionWatcher)
        actionWatcher = std::make_unique<QObject>();
    QObject::connect(watched, &QObject::destroyed, actionWatcher.get(),
                     [this, watched] { callbackHandlers.remove(watched); });
}

void ToolButtonPrivate::initialize(QAction *newAction, ToolBar *newToolBar)
{
    Q_Q(ToolButton);
    SetDefaults();
    QAccessible::installFactory(makeAccessible);
    q->setMouseTracking(true);
    q->setAttribute(Qt::WA_ShowWithoutActivating);
    q->setFocusPolicy(Qt::NoFocus);
    q->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Preferred);
    q->setFont(textFont());
    setSheet();
    QObject::connect(q, &ToolButton::clicked, q, &ToolButton::OnClicked);
    QObject::connect(q, &ToolButton::toggled, q, &ToolButton::OnToggled);
    if (!newAction || !newToolBar)
        return;
    action = newAction;
    toolBar = newToolBar;
    q->setDefaultAction(newAction);
    noteIconOfAction();
    tooltipText = newAction->toolTip();
    updateAccessibleName();
    initializeTooltipObject();
}

// Content and window wait until the pointer comes: a bar has many buttons, of which few are pointed
// at.
void ToolButtonPrivate::initializeTooltipObject()
{
    Q_Q(ToolButton);
    tooltipObject = new TooltipObject(toolBar ? toolBar->GetTooltipGroupName() : QString(), q);
    tooltipObject->setObjectName(tooltipText);
    tooltipObject->SetUseCustomTooltipSettings(true);
    tooltipObject->SetCustomTooltipShowUpTime(0);
    tooltipObject->SetCustomTooltipDismissTime(0);
    tooltipObject->SetPreparation([this](ATooltipObject &tooltip) { prepareTooltip(tooltip); });
    tooltipObject->AttachTo(q);
}

void ToolButtonPrivate::prepareTooltip(ATooltipObject &tooltip)
{
    isTooltipPrepared = true;
    if (ArrowedWindow *const window = tooltip.GetArrowedWindow())
        window->SetBorder(Resource::Styles::Instance().ColorActionPanelBorder(), 1, Qt::SolidLine,
                          Qt::BevelJoin);
    tooltipControl = ATooltipObject::CreateTooltipControl(tooltipText);
    tooltip.SetTooltipControl(tooltipControl, true);
    tooltip.ForceHideTooltip();
    if (tooltipPlace)
        placeTooltip(*tooltipPlace);
    tooltipPlace.reset();
}

/// Says in the present language what the tooltip says. A text or content of the host's own stays.
void ToolButtonPrivate::followTooltip()
{
    Q_Q(ToolButton);
    const QAction *const source = action ? action : tooltipSource;
    if (!source || source->toolTip() == tooltipText)
        return;
    const QString before = std::exchange(tooltipText, source->toolTip());
    if (!action && q->accessibleName() == plainText(before))
        q->setAccessibleName(plainText(tooltipText));
    if (q->toolTip() == before)
        q->setToolTip(tooltipText);
    const auto *const label = tooltipControl ? tooltipControl->findChild<QLabel *>() : nullptr;
    const bool isOurs = label && label->text() == before;
    if (tooltipObject && isOurs && tooltipObject->TooltipControl() == tooltipControl)
        tooltipObject->setText(tooltipText);
}

void ToolButtonPrivate::placeTooltip(const STooltipPlace &place)
{
    Q_Q(ToolButton);
    if (ArrowedWindow *const window = tooltipObject->GetArrowedWindow())
        window->SetArrow(place.arrow);
    if (WidgetPosCalculator *const calculator = tooltipObject->GetPosCalculator())
        q->SetPosParameters(*calculator, place.direction, place.baseOffset, place.align,
                            place.additionalOffset);
}

void ToolButtonPrivate::postToToolBar(const QMouseEvent &event) const
{
    if (toolBar)
        QCoreApplication::postEvent(toolBar, Internal::mouseEventFor(*toolBar, event).release());
}

bool ToolButtonPrivate::iconsAreStale() const
{
    Q_Q(const ToolButton);
    if (q->icon().isNull())
        return false;
    // Not the size of the pictures, which may be smaller than their room.
    return (!activeIcon && !normalIcon) || q->iconSize() != preparedSize;
}

void ToolButtonPrivate::showIcon(bool active)
{
    Q_Q(ToolButton);
    q->InitIcons();
    if (iconPinned || !activeIcon || !normalIcon)
        return;
    const QIcon &icon = active ? *activeIcon : *normalIcon;
    // The pointer moves far more often than the picture changes.
    if (q->icon().cacheKey() != icon.cacheKey())
        q->setIcon(icon);
}

bool ToolButtonPrivate::shows(const std::shared_ptr<QIcon> &prepared) const
{
    Q_Q(const ToolButton);
    return prepared && q->icon().cacheKey() == prepared->cacheKey();
}

bool ToolButtonPrivate::showsPrepared() const
{
    return shows(activeIcon) || shows(normalIcon);
}

bool ToolButtonPrivate::noteIconOfAction()
{
    const qint64 key = action->icon().cacheKey();
    return std::exchange(actionIcon, key) != key;
}

void ToolButtonPrivate::updateAccessibleName()
{
    Q_Q(ToolButton);
    if (!action || q->accessibleName() != accessibleName)
        return;
    accessibleName = nameOf(*action);
    q->setAccessibleName(accessibleName);
}

// Without the change of style that comes with a sheet, for nothing of the button has been asked yet.
void ToolButtonPrivate::setSheet()
{
    Q_Q(ToolButton);
    isSheetBeingSet = true;
    Internal::setSharedSheet(*q, Resource::Styles::Instance().ToolButtonOnToolPalette());
    isSheetBeingSet = false;
}

void ToolButtonPrivate::polish(QEvent *event)
{
    Q_Q(ToolButton);
    const auto asUsual = [q, event] { q->QToolButton::event(event); };
    // A subclass may ask the style, as for painting, without having it polish the button before.
    const bool isOfSubclass = typeid(*q) != typeid(ToolButton);
    if (toolBar && !isOfSubclass
        && q->styleSheet() == Resource::Styles::Instance().ToolButtonOnToolPalette())
        isPolishedAlike = Internal::polishAlike(*q, asUsual);
    else
        asUsual();
}

void ToolButtonPrivate::polishInFull()
{
    Q_Q(ToolButton);
    if (std::exchange(isPolishedAlike, false))
        Internal::polishInFull(*q);
}

// With another style sheet, be it one of a widget around the button, a plate of the bar's would be
// wrong.
bool ToolButtonPrivate::isPlain() const
{
    Q_Q(const ToolButton);
    return toolBar && q->toolButtonStyle() == Qt::ToolButtonIconOnly && !q->icon().isNull()
        && !q->menu() && q->arrowType() == Qt::NoArrow && !q->autoRaise()
        && q->styleSheet() == Resource::Styles::Instance().ToolButtonOnToolPalette()
        && Internal::isStyledByClass(*q);
}

// A check from code leaves the icon alone, and the plate of a checked button asks for the active one.
QIcon ToolButtonPrivate::iconToPaint() const
{
    Q_Q(const ToolButton);
    if (!q->isChecked() || !q->isEnabled() || iconPinned || shows(activeIcon))
        return q->icon();
    if (shows(normalIcon))
        return *activeIcon;
    const QPixmap active = preparedPicture(*q, QIcon::Active);
    return active.isNull() ? q->icon() : *iconWith(active);
}

bool ToolButtonPrivate::paintPlainly(QPainter &painter, const QStyleOptionToolButton &option)
{
    Q_Q(ToolButton);
    if (!isPlain())
        return false;
    Internal::ButtonPlates &plates = toolBar->d_func()->plates;
    if (!plates.know(painter, option, *q))
        polishInFull();
    return plates.paint(painter, option, *q);
}

void ToolButtonPrivate::paint(QPainter &painter, QStyleOptionToolButton &option)
{
    Q_Q(ToolButton);
    option.icon = iconToPaint();
    if (paintPlainly(painter, option))
        return;
    polishInFull();
    q->style()->drawComplexControl(QStyle::CC_ToolButton, &option, &painter, q);
}

ToolButton::ToolButton(QAction *action, ToolBar *toolBar, QWidget *parent)
    : ToolButton(*new ToolButtonPrivate, action, toolBar, parent)
{ }

ToolButton::ToolButton(QWidget *parent)
    : ToolButton(*new ToolButtonPrivate, parent)
{ }

ToolButton::ToolButton(ToolButtonPrivate &dd, QAction *action, ToolBar *toolBar, QWidget *parent)
    : QToolButton(parent)
    , d_ptr(&dd)
{
    d_ptr->q_ptr = this;
    d_ptr->initialize(action, toolBar);
}

ToolButton::ToolButton(ToolButtonPrivate &dd, QWidget *parent)
    : ToolButton(dd, nullptr, nullptr, parent)
{ }

ToolButton::~ToolButton()
{
    Q_D(ToolButton);
    if (d->toolBar)
        d->toolBar->d_func()->forget(this);
}

QIcon ToolButton::CreateToolButtonIcon(const QString &normal, const QString &active)
{
    const qreal ratio = Internal::highestDevicePixelRatio();
    return Internal::iconOf(Internal::loadPixmap(normal, ratio),
                            Internal::loadPixmap(active.isEmpty() ? normal : active, ratio),
                            QIcon::On);
}

QAction *ToolButton::CreateToolButtonAction(QWidget *parent, const QString &text,
                                            const QString &normalIcon, const QString &activeIcon,
                                            const QString &tooltip, QObject *receiver,
                                            const char *slot)
{
    return CreateToolButtonAction(parent, text, CreateToolButtonIcon(normalIcon, activeIcon),
                                  tooltip, receiver, slot);
}

QAction *ToolButton::CreateToolButtonAction(QWidget *parent, const QString &text, const QIcon &icon,
                                            const QString &tooltip, QObject *receiver,
                                            const char *slot)
{
    auto *const action = new QAction(icon, text, parent);
    if (!tooltip.isEmpty())
        action->setToolTip(tooltip);
    // By name: the caller says which slot it is to be.
    if (receiver && slot)
        connect(action, SIGNAL(triggered()), receiver, slot);
    return action;
}

QAction *ToolButton::Action() const
{
    Q_D(const ToolButton);
    return d->action;
}

TooltipObject *ToolButton::GetTooltipObject() const
{
    Q_D(const ToolButton);
    return d->tooltipObject;
}

void ToolButton::SetTooltipParameters(const ArrowedWindow::SArrowParam &arrow, EDirection direction,
                                      int baseOffset, EWidgetsAlign align, QPoint additionalOffset)
{
    Q_D(ToolButton);
    if (!d->tooltipObject)
        return;
    const STooltipPlace place {arrow, direction, baseOffset, align, additionalOffset};
    if (d->isTooltipPrepared)
        d->placeTooltip(place);
    else
        d->tooltipPlace = place;
}

void ToolButton::RaiseTooltip()
{
    Q_D(ToolButton);
    if (!d->tooltipObject || !d->isTooltipPrepared)
        return;
    if (ArrowedWindow *const window = d->tooltipObject->GetArrowedWindow())
        window->raise();
}

void ToolButton::RefreshTooltip()
{
    Q_D(ToolButton);
    if (d->tooltipObject && d->action)
        d->tooltipObject->setText(d->action->toolTip());
}

void ToolButton::SetPosParameters(WidgetPosCalculator &calc, EDirection direction, int baseOffset,
                                  EWidgetsAlign align, QPoint additionalOffset)
{
    calc.SetDirection(direction);
    calc.SetBaseOffset(baseOffset);
    calc.SetAlignment(align);
    calc.SetAdditionalOffset(additionalOffset);
}

bool ToolButton::Hovered() const
{
    return rect().contains(mapFromGlobal(QCursor::pos()));
}

void ToolButton::IconState(bool hovered)
{
    Q_D(ToolButton);
    d->showIcon(hovered && isEnabled());
}

void ToolButton::InitIcons()
{
    Q_D(ToolButton);
    if (!d->iconsAreStale())
        return;
    const QPixmap normal = preparedPicture(*this, QIcon::Normal);
    const QPixmap active = preparedPicture(*this, QIcon::Active);
    d->activeIcon = iconWith(active.isNull() ? normal : active);
    d->normalIcon = iconWith(normal);
    d->preparedSize = iconSize();
}

void ToolButton::SetCallbackHandler(QAction *action, IToolButtonCallbackHandler *handler)
{
    Q_D(ToolButton);
    if (!action || !handler)
        return;
    if (!d->callbackHandlers.contains(action))
        d->forgetHandlersWith(action);
    d->callbackHandlers[action].append(handler);
}

void ToolButton::SetLocked(bool locked)
{
    Q_D(ToolButton);
    if (d->locked != locked)
        update(); // a locked menu button is without its arrow
    d->locked = locked;
    // The release that would lift a pressed button does not get to it.
    if (locked)
        setDown(false);
    if (d->tooltipObject)
        d->tooltipObject->SetEnableTooltip(!locked);
}

void ToolButton::SetHideMenuWhenUnchecked(bool hide)
{
    Q_D(ToolButton);
    d->hideMenuWhenUnchecked = hide;
}

void ToolButton::SuppressClickedHandler(bool suppress)
{
    Q_D(ToolButton);
    d->suppressClickedHandler = suppress;
}

bool ToolButton::ClickedHandlerRequested() const
{
    Q_D(const ToolButton);
    return d->clickedHandlerRequested;
}

void ToolButton::SetExtendMode(bool) { }

void ToolButton::ClickedHandler() { }

void ToolButton::EnableActions()
{
    Q_D(ToolButton);
    const QPointer<QAction> action = d->action;
    if (!d->callbackHandlers.contains(action))
        return;
    const QPointer<ToolButton> self(this);
    const bool enabled = d->isEnabledByHandlers(action);
    if (action)
        action->setEnabled(enabled);
    if (self)
        setEnabled(enabled);
}

bool ToolButton::IsActionAssociated(QAction *action)
{
    Q_D(const ToolButton);
    return action == d->action;
}

QSize ToolButton::sizeHint() const
{
    const_cast<ToolButtonPrivate *>(d_func())->polishInFull();
    return QToolButton::sizeHint();
}

QSize ToolButton::minimumSizeHint() const
{
    const_cast<ToolButtonPrivate *>(d_func())->polishInFull();
    return QToolButton::minimumSizeHint();
}

void ToolButton::OnClicked(bool)
{
    Q_D(ToolButton);
    if (d->locked)
        return;
    const QPointer<ToolButton> self(this);
    Q_EMIT ToolButtonClicked();
    if (!self)
        return;
    d->clickedHandlerRequested = false;
    if (d->suppressClickedHandler)
        d->suppressClickedHandler = false;
    else
        ClickedHandler();
}

void ToolButton::OnToggled(bool checked)
{
    Q_D(ToolButton);
    const QPointer<ToolButton> self(this);
    // Also when it becomes checked: a button that opens its menu closes those of the others.
    if (d->hasMenu() && isCheckable() && d->hideMenuWhenUnchecked && d->toolBar)
        d->toolBar->HideAllButtonMenusExcept(true, this);
    if (self && !checked)
        IconState(Hovered());
}

bool ToolButton::event(QEvent *event)
{
    Q_D(ToolButton);
    switch (event->type()) {
    case QEvent::Polish:
        d->polish(event);
        return true;
    case QEvent::StyleChange:
        if (d->isSheetBeingSet)
            return true;
        d->polishInFull();
        break;
    case QEvent::HoverEnter: // The style is asked what is under the pointer.
        d->polishInFull();
        break;
    default:
        break;
    }
    return QToolButton::event(event);
}

void ToolButton::mousePressEvent(QMouseEvent *event)
{
    Q_D(ToolButton);
    d->postToToolBar(*event);
    if (!d->locked)
        QToolButton::mousePressEvent(event);
}

void ToolButton::mouseReleaseEvent(QMouseEvent *event)
{
    Q_D(ToolButton);
    d->postToToolBar(*event);
    if (d->locked)
        return;
    const QPointer<ToolButton> self(this);
    d->clickedHandlerRequested = true;
    QToolButton::mouseReleaseEvent(event);
    // A release that was no click must not leave its mark on the next one from code.
    if (self)
        d->clickedHandlerRequested = false;
}

void ToolButton::mouseMoveEvent(QMouseEvent *event)
{
    Q_D(ToolButton);
    d->postToToolBar(*event);
    d->showIcon(isEnabled());
    if (!d->locked)
        QToolButton::mouseMoveEvent(event);
}

void ToolButton::enterEvent(QEvent *)
{
    Q_D(ToolButton);
    d->showIcon(isEnabled());
}

void ToolButton::leaveEvent(QEvent *)
{
    Q_D(ToolButton);
    d->showIcon(isChecked() && isEnabled());
}

void ToolButton::paintEvent(QPaintEvent *)
{
    Q_D(ToolButton);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    QPainter painter(this);
    d->paint(painter, option);
}

void ToolButton::actionEvent(QActionEvent *event)
{
    Q_D(ToolButton);
    const bool wasActive = d->shows(d->activeIcon);
    const bool wasPrepared = d->showsPrepared();
    QToolButton::actionEvent(event);
    if (event->type() != QEvent::ActionChanged || event->action() != d->action)
        return;
    d->updateAccessibleName();
    // Qt gives the button the icon of its action again whatever has changed about that.
    const bool isNewIcon = d->noteIconOfAction();
    if (wasPrepared && !isNewIcon && !d->showsPrepared())
        d->showIcon(isEnabled() && (wasActive || Hovered()));
}

void ToolButton::changeEvent(QEvent *event)
{
    Q_D(ToolButton);
    QToolButton::changeEvent(event);
    // The pointer need not move when the button is enabled or disabled below it.
    if (event->type() == QEvent::EnabledChange && d->showsPrepared())
        d->showIcon(isEnabled() && (isChecked() || Hovered()));
    // The host may give the action its new texts at the same change, and later than this.
    if (event->type() == QEvent::LanguageChange)
        QMetaObject::invokeMethod(
            this, [d] { d->followTooltip(); }, Qt::QueuedConnection);
}

} // namespace Vela::UiBase
