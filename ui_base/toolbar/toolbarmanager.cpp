// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/toolbarmanager.h"

#include "ui_base/toolbar/toolbarmanager_p.h"

#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandbase.h"
#include "ui_base/popup/floatinglayer.h"
#include "ui_base/popup/windowshape_p.h"
#include "ui_base/qtui/devicepixmap_p.h"
#include "ui_base/toolbar/toolbar_p.h"
#include "ui_base/toolbar/toolbutton.h"

#include <tessel/dispatch.h>

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QMoveEvent>
#include <QTimer>

#include <algorithm>

namespace Vela::UiBase {
namespace {

// What showing and moving a widget runs may end any of the others.
template<typename Widget>
QList<QPointer<Widget>> guarded(const QList<Widget *> &widgets)
{
    return QList<QPointer<Widget>>(widgets.begin(), widgets.end());
}

QPoint toScreen(QWidget *floating, const QPoint &position)
{
    const QWidget *const origin = FloatingLayer::getWidgetOriginalParent(floating);
    return origin ? origin->mapToGlobal(position) : position;
}

QPoint fromScreen(QWidget *floating, const QPoint &position)
{
    const QWidget *const origin = FloatingLayer::getWidgetOriginalParent(floating);
    return origin ? origin->mapFromGlobal(position) : position;
}

// A layer hears of a move after others who watch its widget, and of that of a hidden one not before
// it is shown: until then the widget's place is still one over the old parent.
QPoint placeOnScreen(QWidget *widget)
{
    const bool isFloating = qobject_cast<FloatingLayer *>(widget->parentWidget());
    if (isFloating && widget->pos() != FloatingLayer::getWidgetOffset(widget))
        return toScreen(widget, widget->pos());
    return widget->mapToGlobal(QPoint(0, 0));
}

void moveFloating(QWidget *widget, const QPoint &position)
{
    const bool standsThereInLayer = widget->pos() == position;
    const QPointer<QWidget> guard(widget);
    widget->move(position);
    if (!standsThereInLayer || !guard)
        return;
    // To Qt this was no move, but the layer takes the place over its parent from the event.
    QMoveEvent event(position, position);
    QCoreApplication::sendEvent(widget, &event);
}

// The layer would stay behind empty until its parent ends. It may be in the middle of an event of the
// widget.
void endFloating(QWidget *widget)
{
    const QPointer<QWidget> layer = qobject_cast<FloatingLayer *>(widget->parentWidget());
    delete widget;
    if (layer)
        layer->deleteLater();
}

QPoint behind(const QRect &rect, int gap, bool isHorizontal)
{
    return isHorizontal ? QPoint(rect.right() + gap, rect.top())
                        : QPoint(rect.left(), rect.bottom() + gap);
}

bool shows(const ToolButton &button, QAction *action)
{
    return button.actions().contains(action);
}

} // namespace

const QString ToolbarManager::COMMANDGROUP_PROPERTY = QStringLiteral("CMDGROUP_PROP");

ToolbarManagerPrivate::ToolbarManagerPrivate() = default;
ToolbarManagerPrivate::~ToolbarManagerPrivate() = default;

void ToolbarManagerPrivate::initialize(ToolBar *mainBar)
{
    mainToolBar = mainBar;
    if (!mainToolBar)
        return;
    mainToolBar->installEventFilter(q_ptr);
    addSeparator();
    calcGeometries();
}

QWidget *ToolbarManagerPrivate::parentForBars() const
{
    QWidget *const origin = FloatingLayer::getWidgetOriginalParent(mainToolBar);
    return origin ? origin : mainToolBar->getRefParent();
}

void ToolbarManagerPrivate::addSeparator()
{
    if (!mainToolBar)
        return;
    auto *const label = new QLabel(parentForBars());
    label->setAttribute(Qt::WA_ShowWithoutActivating);
    label->setFocusPolicy(Qt::NoFocus);
    label->setAlignment(Qt::AlignCenter);
    // The line is half transparent, which without blending is dark all over.
    label->setAutoFillBackground(!Internal::areWindowsBlended());
    FloatingLayer::makeWidgetFloating(label, QMargins());
    const bool isHorizontal = mainToolBar->IsHorizontalLayout();
    const QPixmap pixmap =
        Internal::loadPixmap(isHorizontal ? QStringLiteral(":/resources/images/sys_hseparator.png")
                                          : QStringLiteral(":/resources/images/sys_vseparator.png"),
                             Internal::devicePixelRatioFor(*mainToolBar));
    label->setPixmap(pixmap);
    if (isHorizontal)
        label->setFixedWidth(Internal::logicalSize(pixmap).width());
    else
        label->setFixedHeight(Internal::logicalSize(pixmap).height());
    label->hide();
    label->move(0, 0);
    separators << label;
    QObject::connect(label, &QObject::destroyed, q_ptr,
                     [this, label] { separators.removeAll(label); });
}

void ToolbarManagerPrivate::removeSeparator(int index)
{
    if (index >= 0 && index < separators.size())
        endFloating(separators.takeAt(index));
}

void ToolbarManagerPrivate::setSeparatorVisible()
{
    const bool isVisible = visibleToolbarCount() != 0;
    for (const QPointer<QLabel> &separator : guarded(separators)) {
        if (separator)
            separator->setVisible(isVisible);
    }
}

void ToolbarManagerPrivate::addToolbar(ToolBar *bar)
{
    if (!bar || toolbars.contains(bar))
        return;
    toolbars << bar;
    QObject::connect(bar, &QObject::destroyed, q_ptr, [this, bar] { forgetToolbar(bar); });
}

void ToolbarManagerPrivate::forgetToolbar(ToolBar *bar)
{
    toolbars.removeAll(bar);
    toolbarActive.remove(bar);
}

ToolBar *ToolbarManagerPrivate::getToolbar(CommandGroup *group, bool &existed, bool create)
{
    ToolBar *const known = findDynamicToolbar(group->commandId());
    existed = known;
    if (known || !create || !mainToolBar)
        return known;
    auto *const bar = new ToolBar(parentForBars(), Qt::BottomToolBarArea);
    bar->setProperty(ToolbarManager::COMMANDGROUP_PROPERTY.toLatin1().constData(),
                     group->commandId());
    bar->CopyAllParametersFrom(mainToolBar);
    bar->SetTooltipGroup(mainToolBar->GetTooltipGroupName());
    bar->SetEnableAutoPosition(false);
    bar->SetCentered(false);
    bar->setEnabled(mainToolBar->isEnabled());
    FloatingLayer::makeWidgetFloating(bar, QMargins());
    return bar;
}

ToolBar *ToolbarManagerPrivate::findDynamicToolbar(const QString &groupId) const
{
    const QByteArray property = ToolbarManager::COMMANDGROUP_PROPERTY.toLatin1();
    for (ToolBar *const bar : toolbars) {
        if (bar->property(property.constData()).toString() == groupId)
            return bar;
    }
    return nullptr;
}

void ToolbarManagerPrivate::addCommand(CommandBase *command, CommandGroup *group)
{
    bool existed = false;
    const QPointer<ToolBar> bar = getToolbar(group, existed, true);
    if (!bar)
        return;
    const QPointer<ToolbarManager> self(q_ptr);
    bar->setDelayRelocationOnResize(true);
    const bool hasButton = bar->AddSingleCommand(command, group);
    if (!self || !bar)
        return;
    if (hasButton)
        addToolbar(bar);
    ToolBarPrivate::hide(bar);
    if (!self || !bar)
        return;
    if (!hasButton && !existed)
        endFloating(bar);
}

void ToolbarManagerPrivate::removeCommand(CommandBase *command)
{
    for (ToolBar *const known : qAsConst(toolbars)) {
        const QList<ToolButton *> buttons = known->d_func()->CollectButtons<ToolButton>();
        if (std::none_of(buttons.begin(), buttons.end(),
                         [command](const auto *button) { return shows(*button, command); }))
            continue;
        const QPointer<ToolbarManager> self(q_ptr);
        const QPointer<ToolBar> bar(known);
        bar->RemoveButton(command);
        if (!self || !bar)
            return;
        if (buttons.size() == 1)
            removeToolbar(bar);
        else if (bar->isVisible())
            calcInnerToolbarPositions();
        return;
    }
}

void ToolbarManagerPrivate::removeToolbar(ToolBar *bar)
{
    const QPointer<ToolbarManager> self(q_ptr);
    const QPointer<ToolBar> leaving(bar);
    forgetToolbar(bar);
    ToolBarPrivate::hide(bar);
    if (self)
        calcInnerToolbarPositions();
    // Never shown by this: all of them may be hidden at the host's wish.
    if (self && visibleToolbarCount() == 0)
        setSeparatorVisible();
    if (leaving)
        endFloating(leaving);
}

void ToolbarManagerPrivate::calcGeometries()
{
    if (mainToolBar)
        calcDynamicToolbarPanelGeometry();
}

void ToolbarManagerPrivate::calcDynamicToolbarPanelGeometry()
{
    const QRect mainRect(placeOnScreen(mainToolBar), mainToolBar->size());
    const bool isHorizontal = mainToolBar->IsHorizontalLayout();
    const QPoint corner = behind(mainRect, ToolbarManager::MAIN_SPACING, isHorizontal);
    const QPointer<ToolbarManager> self(q_ptr);
    for (const QPointer<QLabel> &separator : guarded(separators)) {
        if (!self || !separator)
            continue;
        if (isHorizontal)
            separator->setFixedHeight(mainRect.height());
        else
            separator->setFixedWidth(mainRect.width());
        panelPos = fromScreen(separator, corner);
        moveFloating(separator, panelPos - FloatingLayer::getWidgetOffset(separator));
    }
    if (self)
        calcInnerToolbarPositions();
}

// A menu that is open stands in a window of its own. It comes after, once for many moves.
void ToolbarManagerPrivate::moveBar(ToolBar *bar, const QPoint &globalPosition)
{
    const QPointer<ToolBar> guard(bar);
    const bool isThere = placeOnScreen(bar) == globalPosition;
    moveFloating(bar, fromScreen(bar, globalPosition));
    if (guard && !isThere)
        bar->d_func()->resizeTimer->start();
}

void ToolbarManagerPrivate::calcInnerToolbarPositions()
{
    if (separators.isEmpty() || !mainToolBar)
        return;
    const bool isHorizontal = mainToolBar->IsHorizontalLayout();
    const QMargins margins = mainToolBar->GetGroupContentMargins();
    const int step =
        mainToolBar->GetButtonGroupSpacing() + (isHorizontal ? margins.left() : margins.top());
    QRect previous(toScreen(separators.first(), panelPos), separators.first()->size());
    int gap = ToolbarManager::MAIN_SPACING;
    const QPointer<ToolbarManager> self(q_ptr);
    for (const QPointer<ToolBar> &bar : guarded(toolbars)) {
        if (!self || !bar || !toolbarActive.value(bar))
            continue;
        previous = QRect(behind(previous, gap, isHorizontal), bar->size());
        moveBar(bar, previous.topLeft());
        gap = step;
    }
}

void ToolbarManagerPrivate::remember(CommandGroup *group)
{
    const auto known = knownGroups.constFind(group);
    const bool isWatched = known != knownGroups.constEnd() && known->group;
    knownGroups.insert(group, {group, group->commandId()});
    if (!isWatched)
        QObject::connect(group, &QObject::destroyed, q_ptr, [this, group] { forgetLater(group); });
}

// Behind the announcements that wait for delivery. After these another group may stand at the address,
// which is not to be taken for the dead one.
void ToolbarManagerPrivate::forgetLater(CommandGroup *dead)
{
    const auto forget = [self = QPointer<ToolbarManager>(q_ptr), this, dead] {
        if (self && !knownGroups.value(dead).group)
            knownGroups.remove(dead);
    };
    Tessel::dispatchAsync(forget, Tessel::EQualityOfService::Main);
}

QString ToolbarManagerPrivate::idOf(CommandGroup *group) const
{
    const auto known = knownGroups.constFind(group);
    const bool hasDied = known != knownGroups.constEnd() && !known->group;
    return hasDied ? known->id : group->commandId();
}

void ToolbarManagerPrivate::onCommandGroupStateChanged(CommandGroup *group, bool active)
{
    const QPointer<ToolBar> bar = group ? findDynamicToolbar(idOf(group)) : nullptr;
    if (!bar)
        return;
    const bool wasActive = toolbarActive.value(bar);
    toolbarActive[bar] = active;
    if (wasActive == active)
        return;
    const QPointer<ToolbarManager> self(q_ptr);
    // What is shown is to be at its place from the first picture on.
    if (active)
        calcGeometries();
    if (self)
        setSeparatorVisible();
    if (self)
        setToolbarVisible(bar);
}

void ToolbarManagerPrivate::setToolbarVisible(ToolBar *bar)
{
    const QPointer<ToolbarManager> self(q_ptr);
    if (toolbarActive.value(bar))
        bar->show();
    else if (bar)
        ToolBarPrivate::hide(bar);
    if (self)
        calcInnerToolbarPositions();
}

void ToolbarManagerPrivate::setToolbarsVisible(bool visible)
{
    if (!visible)
        return;
    const QPointer<ToolbarManager> self(q_ptr);
    calcGeometries();
    if (!self)
        return;
    for (const QPointer<ToolBar> &bar : guarded(toolbars)) {
        setToolbarVisible(bar);
        if (!self)
            return;
    }
    setSeparatorVisible();
}

int ToolbarManagerPrivate::visibleToolbarCount() const
{
    return int(std::count_if(toolbars.begin(), toolbars.end(),
                             [this](ToolBar *bar) { return toolbarActive.value(bar); }));
}

void ToolbarManagerPrivate::enableLikeMainToolBar()
{
    const bool isEnabled = mainToolBar->isEnabled();
    for (const QPointer<ToolBar> &bar : guarded(toolbars)) {
        if (bar)
            bar->setEnabled(isEnabled);
    }
}

// A layer whose parent dies hands its widget back, so nobody else would end these.
void ToolbarManagerPrivate::release()
{
    while (!toolbars.isEmpty())
        endFloating(toolbars.takeFirst());
    while (!separators.isEmpty())
        removeSeparator(0);
}

ToolbarManager::ToolbarManager(ToolBar *mainToolBar)
    : ToolbarManager(*new ToolbarManagerPrivate, mainToolBar)
{ }

ToolbarManager::ToolbarManager(ToolbarManagerPrivate &dd, ToolBar *mainToolBar)
    : QObject(mainToolBar ? mainToolBar->parent() : nullptr)
    , d_ptr(&dd)
{
    d_ptr->q_ptr = this;
    d_ptr->initialize(mainToolBar);
}

ToolbarManager::~ToolbarManager()
{
    Q_D(ToolbarManager);
    d->release();
}

void ToolbarManager::addDynamicCommandGroup(CommandGroup *group)
{
    Q_D(ToolbarManager);
    if (!group)
        return;
    const auto keptAlive = group->weak_from_this().lock();
    const QPointer<ToolbarManager> self(this);
    d->remember(group);
    const CommandBag children = group->commandBag();
    for (const auto &[id, child] : children) {
        if (auto *const subGroup = qobject_cast<CommandGroup *>(child.get()))
            addDynamicCommandGroup(subGroup);
        else if (child)
            d->addCommand(child.get(), group);
        if (!self)
            return;
    }
}

void ToolbarManager::removeDynamicCommand(CommandBase *command)
{
    Q_D(ToolbarManager);
    if (!command)
        return;
    const auto *const group = qobject_cast<CommandGroup *>(command);
    if (!group) {
        d->removeCommand(command);
        return;
    }
    const QPointer<ToolbarManager> self(this);
    const CommandBag children = group->commandBag();
    for (const auto &[id, child] : children) {
        removeDynamicCommand(child.get());
        if (!self)
            return;
    }
}

bool ToolbarManager::findDynamicCommand(const QString &commandId)
{
    Q_D(ToolbarManager);
    const auto isWanted = [&commandId](QAction *action) {
        const auto *const command = qobject_cast<CommandBase *>(action);
        return command && command->commandId() == commandId;
    };
    for (ToolBar *const bar : qAsConst(d->toolbars)) {
        for (const ToolButton *const button : bar->d_func()->CollectButtons<ToolButton>()) {
            const QList<QAction *> actions = button->actions();
            if (std::any_of(actions.begin(), actions.end(), isWanted))
                return true;
        }
    }
    return false;
}

void ToolbarManager::setVisible(bool visible)
{
    Q_D(ToolbarManager);
    if (visible) {
        d->setToolbarsVisible(true);
        return;
    }
    const auto bars = guarded(d->toolbars);
    const auto separators = guarded(d->separators);
    for (const QPointer<ToolBar> &bar : bars) {
        if (bar)
            ToolBarPrivate::hide(bar);
    }
    for (const QPointer<QLabel> &separator : separators) {
        if (separator)
            separator->setVisible(false);
    }
}

void ToolbarManager::commandGroupBegan(CommandGroup *group)
{
    Q_D(ToolbarManager);
    d->onCommandGroupStateChanged(group, true);
}

void ToolbarManager::commandGroupEnded(CommandGroup *group)
{
    Q_D(ToolbarManager);
    d->onCommandGroupStateChanged(group, false);
}

bool ToolbarManager::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(ToolbarManager);
    const QPointer<ToolbarManager> self(this);
    const QPointer<QObject> receiver(watched);
    // The bar is looked at for these only: with its last events it is no bar any more.
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        if (watched == d->mainToolBar)
            d->calcDynamicToolbarPanelGeometry();
        break;
    case QEvent::Show:
        if (watched == d->mainToolBar)
            d->setToolbarsVisible(true);
        break;
    case QEvent::EnabledChange:
        if (watched == d->mainToolBar)
            d->enableLikeMainToolBar();
        break;
    default:
        break;
    }
    if (!receiver)
        return true;
    return self && QObject::eventFilter(watched, event);
}

} // namespace Vela::UiBase
