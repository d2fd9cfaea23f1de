// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <lumo_app_service/ApplicationStateProtocol>

#include <QObject>
#include <QSizePolicy>
#include <qwindowdefs.h>

#include <memory>

class QCloseEvent;
class QCursor;
class QHideEvent;
class QLayout;
class QMoveEvent;
class QPaintEvent;
class QPoint;
class QRect;
class QRegion;
class QResizeEvent;
class QShowEvent;
class QSize;
class QWidget;

namespace Vela::UiBase {

class BaseViewController;
class BaseViewPrivate;

/// The glue between one widget and one view controller: all input of a view enters the library
/// here.
///
/// A view is no widget itself but a child of the one that it makes. It watches that widget,
/// translates its events into the calls of ViewResponder and of the controller's life cycle, and
/// hides and shows it with the minimised main window. Closing the widget deletes it, the view with
/// it, and with the view the last owner of the controller.
///
/// What the controller and the hooks below do in an event may close or move the view, let go of the
/// controller and delete the view. The widget may be deleted in its input and its close, but not
/// while Qt shows, hides, moves or resizes it: close it instead. An exception that they throw ends
/// in a warning, since Qt can't take it.
///
/// Forwarders of a view whose widget has gone do nothing and answer as of a widget that was closed:
/// hidden, of no size, with nothing set. Main thread only.
/// \sa BaseViewController, docs/views.md
class LUMO_UI_BASE_EXPORT BaseView : public QObject, public Services::ApplicationStateProtocol
{
    Q_OBJECT

public:
    /// Makes the view's widget, a plain one that is deleted when it is closed.
    /// @param parent parent of that widget and so its owner; null makes a window of it
    /// @param flags window flags of the widget
    BaseView(QWidget *parent, Qt::WindowFlags flags);
    /// The same with the widget of the view @p parent as the parent; null, or a view whose widget
    /// has gone, makes a window.
    BaseView(BaseView *parent, Qt::WindowFlags flags);
    /// Lets go of the controller. The widget, if it lives on, is a plain widget from then on.
    ~BaseView() override;

    /// The view of @p widget: null for null, and for a widget that has none of its own, also when
    /// one further up or down has.
    static BaseView *getBaseViewOfQtWidget(QWidget *widget);

    /// The widget, or null when it has gone.
    QWidget *getQtWidget() const;
    /// The same, so that what has no forwarder can be called; mind the null.
    QWidget *operator->() const;

    /// Takes over @p controller, which is adopted when nobody owns it yet. A controller that has
    /// another view leaves that, and its widget is closed, which the controller can't refuse. The
    /// controller that was here before has no view afterwards and dies unless somebody shares it.
    /// Null lets go of the present controller; the present one is ignored.
    ///
    /// A widget that is visible already stays as it is: the controller's life cycle begins with the
    /// next show.
    virtual void setViewController(BaseViewController *controller);
    /// The controller, or null.
    BaseViewController *getViewController() const;

    /// Makes the widget of @p parent the parent of this view's widget, which is hidden by that;
    /// null, or a view whose widget has gone, makes a window of it. A view inside this one is
    /// ignored.
    virtual void setParentView(BaseView *parent);

    /// Moves the view to @p widget, which takes over the parent of the present one and is deleted
    /// when it is closed. The present one is closed as by the user, so a loaded controller hears
    /// viewWillClose(), but can't hold it back, and is loaded again when the new widget is shown.
    /// Null, the present widget and a widget around it are ignored.
    virtual void setQtWidget(QWidget *widget);

    /// Whether the widget and all widgets below it, at any depth, are deleted when they are closed.
    void setDeleteOnCloseAttribute(bool on);

    /// Fits the widget to its content.
    void adjustSize();
    /// Takes the keyboard focus from the widget, if it has it.
    void clearFocus();
    /// Closes the widget; false when the view or its controller refused. True when it has gone.
    bool close();
    /// Hides the widget, until the next show().
    void hide();
    /// Brings the widget to the front of its siblings.
    void raise();
    /// Shows the widget. The first show loads the controller.
    void show();
    /// Asks for a repaint on the next turn of the event loop.
    void update();
    /// Gives the widget the cursor of its parent again.
    void unsetCursor();
    /// Gives the widget the keyboard focus.
    void setFocus();
    /// Sets by what the user can give the widget focus.
    void setFocusPolicy(Qt::FocusPolicy policy);
    /// Sets the size without the frame, in logical pixels.
    void resize(const QSize &size);
    /// Whether drags reach the view. Each show switches it on and each hide off.
    void setAcceptDrops(bool on);
    /// Sets or clears an attribute of the widget.
    void setAttribute(Qt::WidgetAttribute attribute, bool on = true);
    /// Whether the widget has the attribute.
    bool testAttribute(Qt::WidgetAttribute attribute) const;
    /// Whether Qt fills the background before the widget is painted.
    void setAutoFillBackground(bool enabled);
    /// Whether Qt fills the background before the widget is painted.
    bool getAutoFillBackground() const;
    /// Sets the cursor over the widget. The tools of a CmdsViewController set it too.
    void setCursor(const QCursor &cursor);
    /// The cursor over the widget, which may be that of its parent; else the arrow.
    QCursor getCursor() const;
    /// Sets place and size without the frame, in the parent's coordinates and logical pixels.
    void setGeometry(const QRect &geometry);
    /// The geometry in the parent's coordinates. The reference is good as long as the widget lives.
    const QRect &getGeometry() const;
    /// The rectangle of the widget in its own coordinates.
    QRect getRect() const;
    /// The size without the frame, in logical pixels.
    QSize getSize() const;
    /// The width without the frame, in logical pixels.
    int getWidth() const;
    /// The height without the frame, in logical pixels.
    int getHeight() const;
    /// The layout, which belongs to the widget; null when there is none.
    QLayout *getLayout() const;
    /// Hands @p layout to the widget. Null is ignored; without a widget it stays with the caller.
    void setLayout(QLayout *layout);
    /// The part of the widget that shows; empty when all of it does.
    QRegion getMask() const;
    /// Whether moves without a button arrive. Each show switches it on and each hide off.
    void setMouseTracking(bool enable);
    /// Sets how a layout may change the size.
    void setSizePolicy(QSizePolicy policy);
    /// The same with a policy for each direction.
    void setSizePolicy(QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical);
    /// The handle of the native window, which is made for it if need be; else 0.
    WId getWinId() const;
    /// The handle of the native window that the widget stands in; 0 when there is none yet.
    WId getEffectiveWinId() const;
    /// Whether the widget is hidden for itself, not only because its parent is.
    bool isHidden() const;
    /// Whether the widget is on the screen, also behind other windows.
    bool isVisible() const;
    /// The global position @p position in the widget's coordinates; unchanged without a widget.
    QPoint mapFromGlobal(const QPoint &position) const;
    /// The position @p position of the widget in global coordinates; unchanged without a widget.
    QPoint mapToGlobal(const QPoint &position) const;

    /// Translates the events of the widget. When the main window is deactivated with Alt held,
    /// posts the release of that key to this object, which reaches no controller.
    /// @return whether the event ends here, because the controller consumed it or refused a close
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Hides the widget with the minimised main window and shows it again when that is restored,
    /// unless it was hidden before.
    void appWindowStateChanged(const Qt::WindowStates &oldState,
                               const Qt::WindowStates &newState) override;

Q_SIGNALS:
    /// The widget was shown and the controller has heard of it. The controller's viewDidAppear()
    /// follows on the next turn of the event loop.
    void viewShown();

protected:
    /// Gives the widget focus and turns on mouse tracking and drops. Like all of these hooks it
    /// runs before the controller and the widget get the event.
    virtual void showEvent(QShowEvent *event);
    /// Takes focus, mouse tracking and drops from the widget.
    virtual void hideEvent(QHideEvent *event);
    /// Accepts the event. One that an override ignores keeps the widget open, and the controller is
    /// not asked.
    virtual void closeEvent(QCloseEvent *event);
    /// The widget has a new size. Nothing by default.
    virtual void resizeEvent(QResizeEvent *event);
    /// The widget has a new position. Nothing by default.
    virtual void moveEvent(QMoveEvent *event);
    /// The widget has a new native window. Nothing by default.
    virtual void winIdChangeEvent(QEvent *event);
    /// The widget is about to paint itself, and paints over what the hook does, which for a plain
    /// widget is nothing: a view that paints itself opens its QPainter on getQtWidget() here.
    /// Nothing by default.
    virtual void paintEvent(QPaintEvent *event);
    /// The pointer came in. Nothing by default.
    virtual void enterEvent(QEvent *event);
    /// The pointer left. Nothing by default.
    virtual void leaveEvent(QEvent *event);

private:
    friend class BaseViewPrivate;

    // A view belongs to its widget; setParentView() and setQtWidget() move it.
    using QObject::setParent;
    void init(QWidget *parent, Qt::WindowFlags flags);
    void closeRegardless();
    void giveUp(BaseViewController *controller);

    const std::unique_ptr<BaseViewPrivate> d;
    Q_DISABLE_COPY(BaseView)
};

} // namespace Vela::UiBase
