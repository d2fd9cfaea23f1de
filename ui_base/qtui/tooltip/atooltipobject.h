// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QMetaType>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class QWidget;

namespace Vela::UiBase {

class ArrowedWindow;
class ATooltipObjectPrivate;
class WidgetPosCalculator;

/// The engine of a tooltip: it watches a floating window and decides by timers of its own when the
/// window appears, where it stands and when it goes. TooltipObject adds a host widget whose
/// hovering brings the tooltip, TooltipWrapper shows one on request; take one of these, or derive
/// from this for another way of bringing a tooltip up.
///
/// The content is any widget. By default it stands in an ArrowedWindow; the window, or the content
/// itself when no arrow is wanted, floats above the parent by a FloatingLayer and stays inside the
/// view that the parent belongs to. It takes no focus, and is hidden with whatever it belongs to.
/// A tooltip that appears hides the others of its group, see TooltipManager.
///
/// A tooltip that is never needed costs little: timers, calculator and window are made with the
/// first operation that looks at them or the first showing. SetPreparation() puts the making of the
/// content off in the same way.
///
/// The tooltip belongs to its parent. Its window and a content that was given without a parent die
/// with it. Times are milliseconds. Main thread only.
///
/// docs/tooltips.md tells the whole of it.
class LUMO_UI_BASE_EXPORT ATooltipObject : public QObject
{
    Q_OBJECT

public:
    /// Ready-made settings for SetTooltipType(): where the tooltip stands, its arrow and its times.
    /// The two for hovering are meant for contents without an arrow: one with an arrow stands where
    /// the arrow points from, which is to the right of the host with TooltipHoverLeft.
    enum class ETooltipType : int {
        TooltipRight = 0,       ///< 5 pixels to the right, at once
        TooltipTop = 1,         ///< 10 pixels above, at once
        TooltipRightFar = 2,    ///< 10 pixels to the right, at once
        TooltipHoverBottom = 3, ///< 10 pixels below after 500; stays while it is pointed at
        TooltipHoverLeft = 4    ///< 10 pixels to the left after 500; stays while it is pointed at
    };

    /// Hears when the pointer comes over the host or leaves it.
    class IHoverCallbackHandler
    {
    public:
        virtual ~IHoverCallbackHandler() = default;
        /// @param hovered whether the pointer is over the host now
        virtual void OnHoverStatusChanged(bool hovered) = 0;
    };

    /// A tooltip without content, entered in the TooltipManager.
    /// @param groupName tooltips of one group are never up together. Those with an empty name do
    ///                  not clear each other
    /// @param parent owns the tooltip; the tooltip floats over it. Null gives a tooltip that
    ///               belongs to the caller and whose window is bounded by no view
    ATooltipObject(const QString &groupName, QWidget *parent);
    /// Leaves the TooltipManager and takes the window down.
    ~ATooltipObject() override;

    /// Runs @p preparation once, just before timers, calculator, window or content are first
    /// needed: before the first accessor of one of them, the first showing, the first timer.
    /// Everything that it sets up costs nothing until then, so a bar can give each of a thousand
    /// buttons a tooltip. When they have been needed already it is run at once. A second call
    /// replaces a preparation that has not been run.
    /// @param preparation is given this tooltip; has to stay valid as long as the tooltip lives.
    ///                    An empty one takes the former away
    void SetPreparation(std::function<void(ATooltipObject &tooltip)> preparation);

    /// Gives the tooltip its content and hides it. Null, and the present content, change nothing.
    ///
    /// @param control with an arrow, becomes a child of the arrowed window and dies with it.
    ///                Without, it keeps its parent; when it has none it belongs to the tooltip
    /// @param useArrow whether the content stands in an ArrowedWindow. Taken note of in any case,
    ///                 and used with the next change of the content
    /// @return the former content, hidden, or null. One from the arrowed window stays its child
    ///         until it is given another parent; another one has the parent back that it came with
    QWidget *SetTooltipControl(QWidget *control, bool useArrow);
    /// Makes @p control the content, as SetTooltipControl() does with the arrow chosen last,
    /// without looking at the former one: take that out with DetachTooltipControl() first.
    /// @param control null is ignored
    void AttachTooltipControl(QWidget *control);
    /// Takes the content out and hides it.
    /// @return the content, as SetTooltipControl() returns the former one, or null
    QWidget *DetachTooltipControl();
    /// The content, or null.
    QWidget *TooltipControl() const;

    /// Makes a content of one line or paragraph of text in the style of Styles::DialogToolTip(). It
    /// is as large as the text.
    /// @param text plain or rich; null (not the empty string) makes nothing
    /// @return without a parent and the caller's, or null
    static QWidget *CreateTooltipControl(const QString &text);
    /// Sets the text of the first QLabel in the content.
    /// @return false, with nothing changed, when there is no content or no label in it
    bool setText(const QString &text);

    /// Sets arrow, border, side, distance, alignment and times in one go, and turns the times of
    /// the tooltip's own on. TooltipHoverBottom leaves arrow and border as they are; both hover
    /// types turn hover events on and dismissal by a click off, which the others leave as they are.
    /// @param type a value that is none of the enumerators is only taken note of
    void SetTooltipType(ETooltipType type);

    /// Whether the tooltip may come up; true by default.
    bool IsTooltipEnabled() const;
    /// Allows or forbids the tooltip; one that is up is hidden. A disabled one still keeps Qt's own
    /// tool tip of a watched widget away.
    void SetEnableTooltip(bool enable);

    /// Whether the tooltip is up.
    bool IsVisible() const;
    /// Whether the tooltip stays while the pointer is over it or its host; false by default.
    bool IsHoverEventsEnabled() const;

    /// Whether the tooltip comes after a time of its own, which is the default. If not, it comes
    /// with Qt's own tool tip event, when the pointer was over host or tooltip at the last leaving.
    void SetUseCustomTooltipSettings(bool use);
    /// How long the pointer has to rest until the tooltip comes; 500 by default. Starts nothing.
    /// A negative time counts as 0, here and below.
    void SetCustomTooltipShowUpTime(int milliseconds);
    /// How long the tooltip stays once the pointer has left; 1000 by default. Starts nothing.
    void SetCustomTooltipDismissTime(int milliseconds);
    /// Interval of the check timer, which hides the tooltip each time; 20000 by default. Only a
    /// subclass starts that timer.
    void SetCustomTooltipCheckTime(int milliseconds);
    /// Whether there is a check timer; true by default.
    void SetEnableCheckTimer(bool enable);

    /// Whether a press on the tooltip hides it; true by default.
    void SetClickToDismissTooltip(bool dismiss);
    /// Taken note of for subclasses; nothing here uses it.
    void SetOverrideTooltipDismissTimer(bool overrideTimer);
    /// Has no effect: a tooltip always goes some time after the pointer has left.
    void SetDismissTooltipOnMouseLeave(bool dismiss);

    /// Sets who is told that the pointer has come over the host; null for nobody. Not owned: take
    /// it back before it dies. Told only while hover events are enabled.
    void SetHoveredStateCallbackHandler(IHoverCallbackHandler *handler);
    /// Sets who is told that the pointer has left the host, as SetHoveredStateCallbackHandler()
    /// does.
    void SetNormalStateCallbackHandler(IHoverCallbackHandler *handler);
    /// Tells the handler of the one or the other state.
    /// @param status true for the hovered state
    void OnHoverStatusChanged(bool status);

    /// Asks an extended content for one of its pages: emits SetPageIndex().
    void SetTooltipIndex(int index);
    /// Asks an extended content for the page of a keyword: emits SetKeyword().
    void SetTooltipKeyword(const QString &keyword);

    /// Hides the tooltip now, whatever the pointer does.
    void ForceHideTooltip();

    /// The frame with the arrow. It belongs to the tooltip. Null once somebody has deleted it.
    ArrowedWindow *GetArrowedWindow() const;
    /// What works out the place, in global coordinates. It belongs to the tooltip.
    WidgetPosCalculator *GetPosCalculator() const;

    /// Does nothing here: this class knows no hovering. \sa TooltipObject
    virtual void SetEnableHoverEvents(bool enable);
    /// Works out the place, brings the tooltip up there and hides the others of its group. Hides it
    /// instead when CanTooltipBeShown() says no. One that is up takes its place anew.
    virtual void ShowTooltip();
    /// Takes the tooltip down. Does nothing without a content.
    virtual void HideTooltip();
    /// Whether ShowTooltip() would bring it up: it is enabled and has a content.
    virtual bool CanTooltipBeShown();
    /// Whether the pointer is over the window of the tooltip, also while that is hidden.
    virtual bool CheckMouseHover() const;

public Q_SLOTS:
    /// The same as SetEnableTooltip().
    void OnEnableTooltip(bool enable);

Q_SIGNALS:
    /// An extended content has to show the page of this index.
    void SetPageIndex(int index);
    /// An extended content has to show the page of this keyword.
    void SetKeyword(const QString &keyword);

protected:
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the tooltip
    ATooltipObject(ATooltipObjectPrivate &dd, const QString &groupName, QWidget *parent);

    /// The tooltip was pressed: hides it when a click dismisses it.
    virtual void OnTooltipClicked();
    /// The pointer came over @p watched: the tooltip stays.
    virtual void EventFilterOnEnter(QObject *watched);
    /// The pointer left @p watched: nothing comes up any more, and the time to go begins.
    virtual void EventFilterOnLeave(QObject *watched);
    /// The pointer moved over @p watched. Does nothing here.
    virtual void EventFilterOnMouseMove(QObject *watched, QEvent *event);
    /// A button was pressed on @p watched; a press on the window goes to OnTooltipClicked().
    virtual void EventFilterOnMouseButtonPress(QObject *watched, QEvent *event);
    /// @p watched was hidden. Does nothing here.
    virtual void EventFilterOnHide(QObject *watched);

    /// Hands the events of the window, and of what a subclass watches, to the operations above.
    /// Qt's own tool tip events end here.
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Puts the content that was given last in its place.
    /// @return the former content, or null; null too when there is nothing to do
    QWidget *InternalSetTooltipControl();

protected Q_SLOTS:
    /// The pointer has rested long enough: shows the tooltip.
    void OnTooltipTimerTimeOut();
    /// The time to go: hides the tooltip, unless hover events are on and the pointer is over it.
    void OnTooltipDismissTimerTimeOut();
    /// Hides the tooltip.
    void OnTooltipCheckTimerTimeOut();

private Q_SLOTS:
    void OnWindowResized();

protected:
    /// The state of the tooltip; what subclasses cast to their own.
    const std::unique_ptr<ATooltipObjectPrivate> d_ptr;

private:
    friend class TooltipManager;

    Q_DECLARE_PRIVATE(ATooltipObject)
    Q_DISABLE_COPY(ATooltipObject)
};

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::ATooltipObject::ETooltipType)
