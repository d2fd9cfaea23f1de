// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/floatinglayer.h"

#include "ui_base/popup/windowsize_p.h"

#include <lumo_app_service/ApplicationService>

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QMoveEvent>
#include <QPointer>
#include <QResizeEvent>
#include <QTimer>
#include <QVariant>
#include <QVector>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {
namespace {

const char *const OriginalParentProperty = "vela_widget_orig_parent";
const char *const IsFloatingProperty = "vela_widget_is_floating";

QPoint corner(const QMargins &margins)
{
    return {margins.left(), margins.top()};
}

QSize grown(const QSize &size, const QMargins &margins)
{
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

const QWidget *outermost(const QWidget *widget)
{
    while (widget->parentWidget())
        widget = widget->parentWidget();
    return widget;
}

// The modal dialog that blocks the window which a layer floats over.
QWidget *dialogBefore(const QWidget &layer)
{
    QWidget *const dialog = QApplication::activeModalWidget();
    if (!dialog || outermost(dialog) != outermost(&layer))
        return nullptr;
    for (const QWidget *above = &layer; above; above = above->parentWidget()) {
        if (above == dialog)
            return nullptr; // it floats over the dialog
    }
    return dialog;
}

// The parent that a position of the widget is relative to; a window stands on the screen whoever
// its parent is.
QWidget *parentOnScreen(const QWidget &widget)
{
    return widget.isWindow() ? nullptr : widget.parentWidget();
}

// The property is a plain pointer and has to be null before it dangles.
void recordOriginalParent(QWidget *w, QWidget *parent)
{
    const bool isKnown = parent && FloatingLayer::getWidgetOriginalParent(w) == parent;
    w->setProperty(OriginalParentProperty, QVariant::fromValue(parent));
    if (!parent || isKnown)
        return;
    QObject::connect(parent, &QObject::destroyed, w, [w, parent] {
        if (FloatingLayer::getWidgetOriginalParent(w) == parent)
            w->setProperty(OriginalParentProperty, QVariant::fromValue<QWidget *>(nullptr));
    });
}

// The window that a child of the widget would be closed with; layers in between only look like one.
QWidget *windowOf(const QWidget &widget)
{
    QWidget *window = widget.window();
    while (qobject_cast<FloatingLayer *>(window) && window->parentWidget())
        window = window->parentWidget()->window();
    return window;
}

bool isForKeys(const QWidget &widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.isEnabled();
}

/// Whether there is something in a widget that the keyboard is for. What floats over it has keys of
/// its own.
bool hasTabStop(const QWidget &widget)
{
    const auto parts = widget.findChildren<QWidget *>();
    return std::any_of(parts.begin(), parts.end(), [&widget](const QWidget *part) {
        return part->window() == widget.window() && isForKeys(*part);
    });
}

/// The window, and what floats over it that the keyboard is for.
QVector<QWidget *> panesOf(QWidget &window)
{
    QVector<QWidget *> panes {&window};
    const auto layers = window.findChildren<FloatingLayer *>();
    for (FloatingLayer *layer : layers) {
        if (layer->isVisible() && hasTabStop(*layer))
            panes << layer;
    }
    return panes;
}

/// Which way a key leads among the panes of a window; 0 for a key that is for something else.
int stepOf(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_F6)
        return 0;
    if (event.modifiers() == Qt::NoModifier)
        return 1;
    return event.modifiers() == Qt::ShiftModifier ? -1 : 0;
}

/// A layer is a dialog when there is something to be done in it, and called as its widget is.
class AccessibleLayer : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::Role role() const override
    {
        return hasTabStop(*widget()) ? QAccessible::Dialog : QAccessible::Pane;
    }

    // The widget may be in a frame with an arrow.
    QString text(QAccessible::Text type) const override
    {
        QString text = QAccessibleWidget::text(type);
        const bool isOfWidget = type == QAccessible::Name || type == QAccessible::Description;
        const QAccessibleInterface *content = this;
        for (int depth = 0; isOfWidget && text.isEmpty() && depth < 2; ++depth) {
            content = content->childCount() == 1 ? content->child(0) : nullptr;
            if (!content)
                break;
            text = content->text(type);
            // Qt asks windows only for their titles, and the widget is none any more.
            const auto *const widget = qobject_cast<const QWidget *>(content->object());
            if (text.isEmpty() && type == QAccessible::Name && widget)
                text = widget->windowTitle();
        }
        return text;
    }
};

QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    if (className != QLatin1String(FloatingLayer::staticMetaObject.className()))
        return nullptr;
    return new AccessibleLayer(static_cast<QWidget *>(object));
}

} // namespace

class FloatingLayerPrivate
{
public:
    /// Goes on from one window to the next pane around it.
    /// @return whether there is another one
    static bool goOnFrom(QWidget &pane, int step);
    static bool takeKey(QObject *watched, QEvent *event);

    explicit FloatingLayerPrivate(FloatingLayer *layer)
        : q(layer)
    {
        followTimer.setSingleShot(true);
        QObject::connect(&followTimer, &QTimer::timeout, q, [this] { followIntoOtherWindow(); });
    }

    void takeFocus();
    void handleWidgetEvent(QEvent *event);
    void handleParentEvent(QObject *watched, QEvent *event);
    void onAttachedWidgetMove(const QPoint &position);
    void onAttachedWidgetResize(const QSize &size);
    void onParentWidgetMove(const QPoint &position);
    void updateGeometry();
    void putWidgetAtCorner();
    void takePendingMove();
    void followIntoOtherWindow();
    void letGo();
    void forgetMinimised();
    void comeUp();

    FloatingLayer *const q;
    QPointer<QWidget> attachedWidget;
    QPoint widgetPos {-1, -1};
    QMargins margins;
    // The parent and what it stands in, up to its window: each of them can carry it along.
    QVector<QPointer<QWidget>> watchedParents;
    // A call from outside shows the layer and brings it up afterwards.
    bool isComing = false;
    QTimer followTimer;
};

bool FloatingLayerPrivate::goOnFrom(QWidget &pane, int step)
{
    const QVector<QWidget *> panes = panesOf(*windowOf(pane));
    const int index = panes.indexOf(&pane);
    const int count = panes.size();
    if (step == 0 || count < 2 || index < 0)
        return false;
    QWidget *const next = panes.at((index + step + count) % count);
    next->activateWindow();
    if (auto *const layer = qobject_cast<FloatingLayer *>(next))
        layer->d->takeFocus();
    return true;
}

// A key that nothing in a window has taken. Of the layers over the window the first one to hear of it
// acts for all.
bool FloatingLayerPrivate::takeKey(QObject *watched, QEvent *event)
{
    auto *const window = qobject_cast<QWidget *>(watched);
    return event->type() == QEvent::KeyPress && window && window->isWindow()
        && goOnFrom(*window, stepOf(static_cast<const QKeyEvent &>(*event)));
}

// A panel that has the focus itself passes it on to its first control, where it is seen.
void FloatingLayerPrivate::takeFocus()
{
    q->setAttribute(Qt::WA_KeyboardFocusChange);
    const QWidget *const present = q->focusWidget();
    if (!present || hasTabStop(*present))
        q->focusNextChild();
}

void FloatingLayerPrivate::handleWidgetEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move:
        onAttachedWidgetMove(static_cast<QMoveEvent *>(event)->pos());
        break;
    case QEvent::Resize:
        onAttachedWidgetResize(static_cast<QResizeEvent *>(event)->size());
        break;
    case QEvent::Show:
    case QEvent::ShowToParent:
        // A spontaneous one says that the layer itself was restored or minimised.
        if (!event->spontaneous()) {
            takePendingMove();
            q->show();
        }
        break;
    case QEvent::Hide:
    case QEvent::HideToParent:
        if (!event->spontaneous())
            q->hide();
        break;
    case QEvent::ParentChange:
        if (attachedWidget->parentWidget() != q)
            letGo();
        break;
    default:
        break;
    }
}

void FloatingLayerPrivate::handleParentEvent(QObject *watched, QEvent *event)
{
    QWidget *const parent = q->parentWidget();
    if (event->type() == QEvent::Move) {
        const bool isParent = watched == parent;
        onParentWidgetMove(isParent ? static_cast<QMoveEvent *>(event)->pos() : parent->pos());
    } else if (event->type() == QEvent::ParentChange || event->type() == QEvent::Show) {
        // Qt announces no change of parent for what becomes a window where it is, but shows it anew.
        q->setEventFilterForParentWidget(true);
        onParentWidgetMove(parent->pos());
        // Later: the other window has to be on the screen before what stands above it.
        followTimer.start();
    }
}

void FloatingLayerPrivate::onAttachedWidgetMove(const QPoint &position)
{
    if (!attachedWidget)
        return;
    q->setEventFilterForAttachedWidget(false);
    widgetPos = position;
    const QWidget *const parent = q->parentWidget();
    const QPoint origin = parent ? parent->mapToGlobal(QPoint(0, 0)) : QPoint(0, 0);
    const QSize size = grown(attachedWidget->size(), margins);
    Internal::claimSize(*q, size);
    // A window system reports sizes late, and a mere move would ask for the last one that it told.
    q->setGeometry(QRect(origin + position - corner(margins), size));
    putWidgetAtCorner();
    q->setEventFilterForAttachedWidget(true);
}

void FloatingLayerPrivate::putWidgetAtCorner()
{
    attachedWidget->move(corner(margins));
    // A hidden widget keeps the event of a move until it is shown, where it would be taken for a
    // move by the owner. An owner who moves the widget in the meantime sets the mark again.
    attachedWidget->setAttribute(Qt::WA_PendingMoveEvent, false);
}

/// A move by the owner while the widget was hidden. Qt tells of it while the widget is shown, but not
/// any more when it was made in the middle of that, as by a widget that hears of its size then.
void FloatingLayerPrivate::takePendingMove()
{
    if (attachedWidget && attachedWidget->testAttribute(Qt::WA_PendingMoveEvent))
        onAttachedWidgetMove(attachedWidget->pos());
}

void FloatingLayerPrivate::onAttachedWidgetResize(const QSize &size)
{
    const QSize withMargins = grown(size, margins);
    Internal::claimSize(*q, withMargins);
    q->resize(withMargins);
}

void FloatingLayerPrivate::onParentWidgetMove(const QPoint &position)
{
    const QWidget *const parent = q->parentWidget();
    if (!attachedWidget || !parent)
        return;
    const QWidget *const grandparent = parentOnScreen(*parent);
    const QPoint origin =
        grandparent ? grandparent->mapToGlobal(position) : parent->mapToGlobal(QPoint(0, 0));
    q->move(origin + widgetPos - corner(margins));
}

void FloatingLayerPrivate::updateGeometry()
{
    if (!attachedWidget)
        return;
    onAttachedWidgetMove(widgetPos);
    onAttachedWidgetResize(attachedWidget->size());
    if (const QWidget *parent = q->parentWidget())
        onParentWidgetMove(parent->pos());
}

// A dock widget that is pulled out takes its children to a window of its own: the layer has to stand
// above that one from now on, which a window system learns when a window is shown.
void FloatingLayerPrivate::followIntoOtherWindow()
{
    const QWidget *const parent = q->parentWidget();
    QWindow *const window = q->windowHandle();
    QWindow *const below = parent ? parent->window()->windowHandle() : nullptr;
    if (!window || !below || window->transientParent() == below)
        return;
    const bool wasVisible = q->isVisible();
    q->hide();
    window->setTransientParent(below);
    q->setVisible(wasVisible);
}

// A window system minimises the layer with the window below it. Hidden before that window came back,
// the layer would ask to be shown minimised, and some managers minimise the window below with it.
void FloatingLayerPrivate::forgetMinimised()
{
    const QWidget *const parent = q->parentWidget();
    if (q->isMinimized() && !(parent && parent->window()->isMinimized()))
        q->setWindowState(q->windowState() & ~Qt::WindowMinimized);
}

// What comes up in a blocked window is not to cover the dialog.
void FloatingLayerPrivate::comeUp()
{
    q->raise();
    if (QWidget *const dialog = dialogBefore(*q))
        dialog->raise();
}

void FloatingLayerPrivate::letGo()
{
    q->setEventFilterForAttachedWidget(false);
    if (attachedWidget)
        QObject::disconnect(attachedWidget, &QObject::destroyed, q, nullptr);
    attachedWidget.clear();
    q->hide();
    if (!q->parentWidget())
        q->deleteLater();
}

FloatingLayer::FloatingLayer(QWidget *w, const QMargins &margins)
    : QDialog(w->parentWidget(), Qt::FramelessWindowHint)
    , d(std::make_unique<FloatingLayerPrivate>(this))
{
    initialize();
    attach(w);
    setMargins(margins);
    Services::ApplicationService::GetInstance().addAppStateDelegate(this);
}

FloatingLayer::~FloatingLayer()
{
    Services::ApplicationService::GetInstance().removeAppStateDelegate(this);
    detach();
}

void FloatingLayer::initialize()
{
    QAccessible::installFactory(makeAccessible);
    setObjectName(QStringLiteral("floating layer"));
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
}

bool FloatingLayer::makeWidgetFloating(QWidget *w, QMargins margins)
{
    if (!w)
        return false;
    if (isWidgetFloating(w) || qobject_cast<FloatingLayer *>(w->parentWidget()))
        return true;
    // Owned by the parent of the widget; without one it goes when it loses the widget.
    const auto *const layer = new FloatingLayer(w, margins);
    return w->parentWidget() == layer;
}

bool FloatingLayer::isWidgetFloating(QWidget *w)
{
    return w && w->property(OriginalParentProperty).toBool();
}

QWidget *FloatingLayer::getWidgetOriginalParent(QWidget *w)
{
    return w ? w->property(OriginalParentProperty).value<QWidget *>() : nullptr;
}

QPoint FloatingLayer::getWidgetOffset(QWidget *w)
{
    const auto *const layer = w ? qobject_cast<FloatingLayer *>(w->parentWidget()) : nullptr;
    return layer ? corner(layer->d->margins) : QPoint(0, 0);
}

void FloatingLayer::attach(QWidget *w)
{
    d->attachedWidget = w;
    d->widgetPos = w->pos();
    QWidget *const recorded = getWidgetOriginalParent(w);
    QWidget *const parent = recorded ? recorded : w->parentWidget();
    // Without the flags the layer would become an ordinary child.
    if (parentWidget() != parent)
        setParent(parent, windowFlags());
    w->setParent(this);
    recordOriginalParent(w, parent);
    w->setProperty(IsFloatingProperty, true);
    setEventFilterForParentWidget(true);
    setEventFilterForAttachedWidget(true);
    // Qt tells nobody that a visible child dies, and an empty layer would swallow the mouse.
    connect(w, &QObject::destroyed, this, [this] { d->letGo(); });
    d->updateGeometry();
}

void FloatingLayer::detach()
{
    QWidget *const w = d->attachedWidget;
    if (!w)
        return;
    setEventFilterForParentWidget(false);
    setEventFilterForAttachedWidget(false);
    w->setParent(nullptr);
    setParent(nullptr, windowFlags());
}

void FloatingLayer::setMargins(const QMargins &margins)
{
    d->margins = margins;
    d->updateGeometry();
}

void FloatingLayer::setEventFilterForAttachedWidget(bool on)
{
    if (!d->attachedWidget)
        return;
    d->attachedWidget->removeEventFilter(this);
    if (on)
        d->attachedWidget->installEventFilter(this);
}

void FloatingLayer::setEventFilterForParentWidget(bool on)
{
    for (const QPointer<QWidget> &watched : std::as_const(d->watchedParents)) {
        if (watched)
            watched->removeEventFilter(this);
    }
    d->watchedParents.clear();
    for (QWidget *w = on ? parentWidget() : nullptr; w; w = parentOnScreen(*w)) {
        w->installEventFilter(this);
        d->watchedParents << w;
    }
}

void FloatingLayer::setVisible(bool visible)
{
    // The widget, which is shown with the layer, asks for that again.
    if (visible && d->isComing && isVisible())
        return;
    const QPointer<FloatingLayer> self(this);
    const bool hadKeys = !visible && isActiveWindow();
    if (visible && !isVisible())
        d->forgetMinimised();
    const bool wasComing = d->isComing;
    d->isComing = visible || wasComing;
    QDialog::setVisible(visible);
    if (!self)
        return;
    d->isComing = wasComing;
    if (visible)
        d->comeUp();
    else if (QWidget *const window = windowOf(*this); hadKeys && window->isVisible())
        window->activateWindow();
}

void FloatingLayer::appMoved(const QPoint &)
{
    if (const QWidget *parent = parentWidget())
        d->onParentWidgetMove(parent->pos());
}

void FloatingLayer::appResized(const QSize &)
{
    if (d->attachedWidget)
        d->onAttachedWidgetResize(d->attachedWidget->size());
}

void FloatingLayer::appWindowStateChanged(const Qt::WindowStates &, const Qt::WindowStates &) { }

bool FloatingLayer::eventFilter(QObject *watched, QEvent *event)
{
    // Showing and hiding the layer runs code of others, which may end the one or the other.
    const QPointer<FloatingLayer> self(this);
    const QPointer<QObject> receiver(watched);
    if (watched == d->attachedWidget)
        d->handleWidgetEvent(event);
    else if (d->attachedWidget && parentWidget() && FloatingLayerPrivate::takeKey(watched, event))
        return true;
    else if (d->attachedWidget && parentWidget())
        d->handleParentEvent(watched, event);
    if (!receiver)
        return true;
    return self && QDialog::eventFilter(watched, event);
}

void FloatingLayer::showEvent(QShowEvent *event)
{
    Internal::claimSize(*this, size());
    QDialog::showEvent(event);
}

void FloatingLayer::keyPressEvent(QKeyEvent *event)
{
    if (FloatingLayerPrivate::goOnFrom(*this, stepOf(*event)))
        return;
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        event->ignore();
        break;
    default:
        QDialog::keyPressEvent(event);
    }
}

void FloatingLayer::closeEvent(QCloseEvent *event)
{
    if (!event->spontaneous() || !parentWidget()) {
        QDialog::closeEvent(event);
        return;
    }
    event->ignore();
    windowOf(*this)->close(); // last: the layer may go with it
}

} // namespace Vela::UiBase
