// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/popup/direction.h"
#include "ui_base/uibaseexport.h"

#include <QList>
#include <QObject>
#include <QPair>
#include <QPoint>
#include <QRect>

#include <memory>

namespace Vela::UiBase {

class WidgetPosCalculatorPrivate;

/// Works out where a popup has to stand so that it is beside a reference, a widget or a point, in
/// the direction and with the alignment that are preferred, and inside the usable area of the
/// window.
///
/// In plain mode any widget is placed: the directions of the priority list are tried in their
/// order. In arrow mode an ArrowedWindow is placed: its arrows are tried, and one whose place
/// overflows is saved by sliding the arrow along the edge of the window.
///
/// The calculator only tells positions; its caller moves and shows the popup. In arrow mode it lays
/// the ArrowedWindow out on the way, which then has the size, the outline and the arrow that belong
/// to the position. Screens are not looked at: the area is a rectangle that is set, or the
/// rectangle of the active window, and whoever sets one gives it in the coordinates of the
/// reference.
///
/// Make one with its owner as the parent, set it up once and ask it for each showing. Setters
/// trigger nothing. The widgets belong to their owners; one that has died counts as not set. Main
/// thread only.
///
/// docs/popups.md shows it.
class LUMO_UI_BASE_EXPORT WidgetPosCalculator : public QObject
{
    Q_OBJECT

public:
    /// A calculator whose priority list holds Top and nothing else; the other directions come in
    /// with the first SetDirection() or SetDirections().
    explicit WidgetPosCalculator(QObject *parent = nullptr);
    ~WidgetPosCalculator() override;

    /// The popup; null by default.
    QWidget *Widget() const;
    /// \sa Widget()
    void SetWidget(QWidget *widget);

    /// The widget that the popup stands beside; null by default.
    QWidget *RefWidget() const;
    /// Takes a widget as the reference, in place of a point.
    void SetRefWidget(QWidget *widget);
    /// The point that the popup stands beside; (0,0) by default.
    const QPoint &RefWiget() const;
    /// Takes a point as the reference, in place of a widget: a square of 7 pixels with the point in
    /// its centre.
    /// @param point in the coordinates in which the position is wanted, which are those of the
    ///              popup's parent
    void SetRefPoint(const QPoint &point);

    /// The gap between reference and popup in logical pixels; 10 by default.
    int BaseOffset() const;
    /// \sa BaseOffset()
    void SetBaseOffset(int offset);

    /// How the popup is aligned with the reference in plain mode; AlignCenter by default. With
    /// AlignEnd the popup ends one pixel before the reference does.
    EWidgetsAlign Alignment() const;
    /// \sa Alignment()
    void SetAlignment(EWidgetsAlign alignment);

    /// A shift of the popup in plain mode, in logical pixels; (0,0) by default.
    QPoint AdditionalOffset() const;
    /// \sa AdditionalOffset()
    void SetAdditionalOffset(const QPoint &offset);

    /// The directions in the order in which they are tried.
    const QList<EDirection> &Directions() const;
    /// Prefers one direction. The opposite one comes after it, then the two others; NoDirection
    /// gives Left, Top, Right, Bottom.
    void SetDirection(EDirection direction);
    /// Sets the priority list and completes it: an opposite that is missing comes before what else
    /// is missing, at the end. NoDirection is dropped.
    void SetDirections(const QList<EDirection> &directions);
    /// The direction that was tried last, so after a GetPosition() the one in which the popup
    /// stands; before, the one that was preferred. NoDirection before any of that.
    /// @param index is ignored
    EDirection Direction(int index = 0) const;

    /// Whether positions are global ones, also for a popup that has a parent; false by default.
    /// What is set as a point or as an area has to be global then too.
    void setCalcGlobalPos(bool global);
    /// Sets the area that the popup has to stay in, less 30 pixels at each side, in the coordinates
    /// of the reference.
    /// @param rect an empty one stands for the active window's rectangle, which is the default.
    ///             Without an active window every position is good then
    void setMaxAvailableRect(const QRect &rect);

    /// Works out the position of the popup. In plain mode that is the first direction of the list
    /// in which it stays in the area. In arrow mode the first arrow on offer decides, with its
    /// arrow slid along the edge when the popup would overflow, as far as 70 pixels less than that
    /// edge. Where nothing fits, the place of the last one that was tried stands.
    ///
    /// @param result receives the position of the popup's top left corner: in coordinates of its
    ///               parent, or global ones without a parent and after setCalcGlobalPos()
    /// @param rect the popup's rectangle, of which only the size counts; an empty one stands for
    ///             the rectangle that the popup has. Not used in arrow mode
    /// @param useArrow whether the popup is an ArrowedWindow whose arrow is to be placed; for any
    ///                 other widget the position is (0,0)
    /// @param point is ignored
    /// @return false, with @p result untouched, when there is no popup, or no reference widget and
    ///         no point was chosen
    virtual bool GetPosition(QPoint &result, const QRect &rect, bool useArrow,
                             const QPoint &point) const;

    /// Sets a subclass up; does nothing here, and nobody calls it.
    virtual void Initialize();

    /// Whether the popup may stand at @p pos. Every candidate goes through this, so a subclass
    /// decides here what counts as fitting. Without a popup or an area everything is good.
    ///
    /// @param rect the popup's rectangle at the origin
    /// @param adjust receives how far the arrow has to slide when the answer is no: along x when
    ///               the left or the right side overflows, else along y; untouched otherwise
    virtual bool VerifyPosition(const QPoint &pos, const QRect &rect, QPoint &adjust) const;

protected:
    /// For subclasses with a private part of their own, which passes to the calculator.
    WidgetPosCalculator(WidgetPosCalculatorPrivate &dd, QObject *parent);

    /// Completes the priority list, opposite sides first.
    void GetFullPriorityDirectionList();
    /// The area less 30 pixels at each side, and less the visible sub-widgets of the popup or of an
    /// ArrowedWindow's content. Its dynamic property "sub_widgets" lists them, as a QVariantList of
    /// QWidget*; the property "direction_to" of each tells the side.
    /// @return false, with @p area untouched, without a popup, and with neither area nor active
    ///         window
    bool GetMaxAvailableMovingArea(QRect &area) const;
    /// The rectangle of the reference in the coordinates in which the position is wanted.
    /// @return false, with @p geometry untouched, when the reference is a widget and there is none
    bool GetRefGeometry(QRect &geometry) const;
    /// Makes the list of candidates of the arrow mode: @p params, and with @p autoDecide three
    /// arrows for each direction of the priority list and the first candidate once more.
    void PrepareArrowParamPairs(const QList<ArrowedWindow::SArrowParam> &params,
                                bool autoDecide) const;

    /// The position in plain mode.
    /// @param ref rectangle of the reference
    /// @param rect the popup's rectangle at the origin
    QPoint GetPosition(const QRect &ref, const QRect &rect) const;
    /// The position in arrow mode; (0,0) when the popup is not an ArrowedWindow.
    /// @param ref rectangle of the reference
    QPoint GetPosition(const QRect &ref, const QRect &rect, const QPoint &point) const;
    /// The position of one candidate of the arrow mode; (0,0) for a direction that is none.
    /// @param ref rectangle of the reference
    /// @param rect the window's rectangle at the origin
    /// @param arrowPoint the apex of the arrow in the window
    QPoint GetPosition(const QPair<ArrowedWindow::SArrowParam, EDirection> &candidate,
                       const QRect &ref, const QRect &rect, const QPoint &arrowPoint) const;

    /// The state of the calculator.
    const std::unique_ptr<WidgetPosCalculatorPrivate> d_ptr;

private:
    Q_DECLARE_PRIVATE(WidgetPosCalculator)
    Q_DISABLE_COPY(WidgetPosCalculator)
};

} // namespace Vela::UiBase
