// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <lumo_app_service/ApplicationStateProtocol>

#include <QDialog>
#include <QMargins>
#include <QPoint>

#include <memory>

namespace Vela::UiBase {

class FloatingLayerPrivate;

/// Lifts a widget above native child views, which no ordinary child widget can paint over. The layer
/// is a small frameless, translucent window that holds the widget as its only child, stands where
/// the widget stood over its old parent, and follows that parent wherever it goes, so that to the
/// user the widget still seems a child of it.
///
/// The widget keeps its manners: move() takes coordinates of the old parent and moves the layer;
/// resize(), show() and hide() do to the layer what they do to the widget. Only pos() tells the
/// place inside the layer now, which is getWidgetOffset(), and a move() to just that place is
/// nothing new to Qt and moves nothing while the widget is visible. The layer takes no focus when
/// it is shown; F6, where nothing in the window below takes that key, brings the user into it.
///
/// Layers are made by makeWidgetFloating() and never by hand. Main thread only.
///
/// docs/floating.md tells the whole of it.
class LUMO_UI_BASE_EXPORT FloatingLayer : public QDialog, public Services::ApplicationStateProtocol
{
    Q_OBJECT

public:
    /// Hands the widget back without a parent, hidden and with both properties still set. This is
    /// also what happens when the old parent dies: from then on the widget belongs to whoever
    /// floated it.
    ~FloatingLayer() override;

    /// Puts @p w into a layer of its own over its parent, at the place that it has now. A visible
    /// widget is hidden by this, as by any change of its parent; the next show() shows it in the
    /// layer.
    ///
    /// The layer belongs to the old parent and stays until that dies, empty once the widget has
    /// gone or was given another parent. A widget without a parent gets a layer without one: its
    /// coordinates are global, and the layer goes when it loses the widget.
    ///
    /// Sets the dynamic properties "vela_widget_orig_parent", the old parent as a QWidget*, and
    /// "vela_widget_is_floating", true. The first one becomes null when the old parent dies. A
    /// widget that has the first one from an earlier layer floats over that parent again.
    ///
    /// @param w the widget; null is refused
    /// @param margins room in logical pixels between the edge of the layer and the widget, as a
    ///                shadow needs it
    /// @return whether the widget floats now; true at once for one that does already
    static bool makeWidgetFloating(QWidget *w, QMargins margins);

    /// Whether the property "vela_widget_orig_parent" of @p w reads as true. A pointer to a widget
    /// does not: for a widget that makeWidgetFloating() has put into a layer the answer is false,
    /// while a host can mark a widget, by setting the property to true, as one to leave alone. Ask
    /// getWidgetOriginalParent() to learn whether a widget has been floated.
    /// @return false for null
    static bool isWidgetFloating(QWidget *w);

    /// The parent that @p w had before it was floated.
    /// @return null for null, for a widget that never was in a layer, for one that had no parent,
    ///         and once the parent has gone
    static QWidget *getWidgetOriginalParent(QWidget *w);

    /// Where @p w stands inside its layer: the left and the top margin, in logical pixels.
    /// @return (0,0) for null and for a widget that is not the child of a layer
    static QPoint getWidgetOffset(QWidget *w);

    /// Shown, the layer also comes to the front. Hidden while it is the active window, it leaves
    /// that to the window below it.
    void setVisible(bool visible) override;

    /// The main window was moved: takes the layer along.
    void appMoved(const QPoint &position) override;
    /// The main window was resized: fits the layer to its widget.
    void appResized(const QSize &size) override;
    /// Does nothing: the window system minimises and restores a layer with the window below it.
    void appWindowStateChanged(const Qt::WindowStates &oldState,
                               const Qt::WindowStates &newState) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// Sees to it that the window manager leaves the layer all of its size.
    void showEvent(QShowEvent *event) override;
    /// Ignores Escape, Return and Enter, which would close a dialog. F6 goes on to the next layer
    /// over the window that has something for the keyboard in it, and from the last one to the
    /// window; with Shift the other way round.
    void keyPressEvent(QKeyEvent *event) override;
    /// What the user closes while the layer is active, as by Alt+F4, is the window that the old
    /// parent stands in, as it would be with a child. close() closes the layer.
    void closeEvent(QCloseEvent *event) override;

private:
    FloatingLayer(QWidget *w, const QMargins &margins);

    void initialize();
    void attach(QWidget *w);
    void detach();
    void setMargins(const QMargins &margins);
    void setEventFilterForAttachedWidget(bool on);
    void setEventFilterForParentWidget(bool on);

    friend class FloatingLayerPrivate;
    const std::unique_ptr<FloatingLayerPrivate> d;
    Q_DISABLE_COPY(FloatingLayer)
};

} // namespace Vela::UiBase
