// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QList>
#include <QMetaType>
#include <QPoint>
#include <QWidget>

#include <memory>

class QGraphicsDropShadowEffect;

namespace Vela::UiBase {

class ArrowedWindowPrivate;

/// Where the arrow of an ArrowedWindow stands on the rectangle of its content. With an arrow at its
/// left edge the window stands to the right of what it points at.
enum class EArrowPosition : int {
    None = 0,        ///< no arrow; refused by every operation that takes a position
    Top = 1,         ///< centre of the top edge, points at 270 degrees
    Bottom = 2,      ///< centre of the bottom edge, points at 90 degrees
    Left = 3,        ///< centre of the left edge, points at 180 degrees
    Right = 4,       ///< centre of the right edge, points at 0 degrees
    TopLeft = 5,     ///< top left corner, points at 225 degrees
    TopRight = 6,    ///< top right corner, points at 315 degrees
    BottomRight = 7, ///< bottom right corner, points at 45 degrees
    BottomLeft = 8   ///< bottom left corner, points at 135 degrees
};

/// The frame of every popup: a frameless widget that holds one content widget and draws a rounded
/// outline around it, with an arrow that points at what the popup belongs to. It is always just as
/// large as content, margins and arrow need: the content keeps its size and the window grows
/// around it.
///
/// Use it for tooltips, menus and flyouts that stand beside something; a popup that points at
/// nothing is better off as a plain widget. The window decides neither where it stands, which
/// WidgetPosCalculator works out, nor whether it is translucent, which is a matter of the
/// attributes that its owner sets. Without a parent it is a window of its own, with one a child
/// widget; a FloatingLayer lifts it above native views.
///
/// The owner makes the window, attaches the content, offers one or more arrows, and for each
/// showing asks a WidgetPosCalculator for the position, moves the window there and shows it. The
/// window takes no focus. Hiding the content hides the window.
///
/// Angles are degrees in the window's coordinates, whose y grows downwards: 0 points to the right,
/// 90 down. Lengths are logical pixels. Main thread only.
///
/// docs/popups.md shows it.
class LUMO_UI_BASE_EXPORT ArrowedWindow : public QWidget
{
    Q_OBJECT

public:
    /// One arrow: where it stands on the content, where it points and how large it is.
    struct SArrowParam
    {
        /// Edge or corner of the content.
        EArrowPosition position = EArrowPosition::Bottom;
        /// Distance of the apex from @c tip. The outline runs its corner radius outside of the
        /// content, so less of the arrow than this stands out of it.
        int length = 10;
        /// Whether @c angle is used; if not, the one of the position takes its place.
        bool customAngle = false;
        /// Where the arrow points. One that would point into the content is turned outwards.
        int angle = 90;
        /// Opening at the apex. It is narrowed in steps of 10 when no arrow comes out of it.
        int apexAngle = 90;
        /// Whether @c offset goes along x; if not, along y.
        bool offsetAlongX = true;
        /// Shifts the tip from its place on the content; ignored where that would leave the
        /// content.
        int offset = 0;
        /// The point on the content where the arrow begins, in coordinates of the content. The
        /// window works it out; what is written here is overwritten.
        QPoint tip;

        /// Whether all fields are equal.
        friend bool operator==(const SArrowParam &a, const SArrowParam &b)
        {
            return a.position == b.position && a.length == b.length
                && a.customAngle == b.customAngle && a.angle == b.angle
                && a.apexAngle == b.apexAngle && a.offsetAlongX == b.offsetAlongX
                && a.offset == b.offset && a.tip == b.tip;
        }
        /// Whether any field differs.
        friend bool operator!=(const SArrowParam &a, const SArrowParam &b) { return !(a == b); }
    };

    /// A window without content that offers one arrow, the default record.
    /// @param parent null makes it a window of its own
    explicit ArrowedWindow(QWidget *parent = nullptr);
    ~ArrowedWindow() override;

    /// Puts @p w into the window and takes the colour of its background for all of the window. It
    /// gets the size that it prefers, or keeps the one that it is fixed to. A former content is
    /// hidden and forgotten, and stays a child of the window until its owner takes it away. Lays
    /// the window out for the current arrow.
    ///
    /// @param w becomes a child of the window and dies with it unless it is detached and given
    ///          another parent. Another ArrowedWindow that holds it lets it go first. Nothing
    ///          happens for null, for what is attached already, and for the window itself and
    ///          what it stands in
    void AttachWidget(QWidget *w);
    /// Takes the content out again: hides it and forgets it. The window stays as it is, and so does
    /// the parent of the content: give it another one, or it dies with the window.
    /// @return the content, or null when there is none
    QWidget *DetachWidget();

    /// Offers just this arrow, takes it as the current one and lays the window out.
    ///
    /// The current arrow is the record as it was given, the one on offer has its angle and tip
    /// worked out. GetArrowParams() lists both when they differ.
    /// @param param refused, with all left as it was, when its position is None
    void SetArrow(const SArrowParam &param);
    /// The same with the fields one by one. Here the current arrow is the one that was worked out.
    void SetArrow(EArrowPosition position, int length, bool customAngle, int angle, int apexAngle,
                  bool offsetAlongX, int offset);
    /// Offers one more arrow, behind those that are there; a new window already offers one. The
    /// current arrow becomes the first one on offer. The window is laid out only when this one is
    /// the first.
    /// @param param refused, with all left as it was, when its position is None
    void AddArrow(const SArrowParam &param);
    /// The same with the fields one by one.
    void AddArrow(EArrowPosition position, int length, bool customAngle, int angle, int apexAngle,
                  bool offsetAlongX, int offset);

    /// The arrows on offer, in the order in which a WidgetPosCalculator tries them. The current
    /// arrow is added to the end first when it is not among them, and stays there.
    /// @return valid until the arrows on offer change
    const QList<SArrowParam> &GetArrowParams() const;
    /// Copies the arrow that is drawn now.
    /// @return true
    bool GetCurrentArrowParam(SArrowParam &param) const;

    /// Makes @p param the current arrow, lays the window out for it and tells what came out. The
    /// window does change its size.
    /// @param param gets its angle and tip worked out
    /// @param size receives the size of the window
    /// @param arrowPoint receives the apex, as GetArrowPoint() tells it
    /// @return false without content and for the position None; all is left as it was then
    bool GetArrowWindowSize(SArrowParam &param, QSize &size, QPoint &arrowPoint);

    /// Lays the window out for the current arrow, as after a change of margin or radius. Costs next
    /// to nothing when nothing has changed. Does nothing without content.
    void GenerateLayout();

    /// Whether a WidgetPosCalculator may try other arrows than those on offer; true by default.
    bool AutoDecideArrowPosition() const;
    /// \sa AutoDecideArrowPosition()
    void SetAutoDecideArrowPosition(bool autoDecide);

    /// The apex of the arrow in coordinates of the window. (0,0) before the first layout.
    QPoint GetArrowPoint() const;
    /// The rounded rectangle of the outline, without the arrow, in coordinates of the window. It is
    /// the content's own rectangle when no arrow could be built, and null before the first layout.
    QRect GetBounds() const;

    /// The shadow, to be changed before it is switched on. The window owns it. Null after it was
    /// switched off, until it is switched on again.
    QGraphicsDropShadowEffect *GetShadow() const;
    /// Switches the shadow on or off; off by default. It is a soft light grey glow of 15 pixels,
    /// and is that anew when it is switched on after it was off: switching off deletes it, as Qt
    /// does with every effect.
    void EnableShadow(bool enable);

    /// Sets the pen of the outline; a grey solid line of 1 pixel with bevelled joins by default.
    /// The picture changes at once, the layout with the next one.
    /// @param width in logical pixels; 0 is a line of one device pixel
    void SetBorder(const QColor &color, int width, Qt::PenStyle style, Qt::PenJoinStyle join);
    /// Sets the room between content and outline; 0 by default. Takes effect at the next layout.
    void SetContentMargin(int margin);
    /// Sets the radius of the outline's corners; 5 by default, 0 makes sharp ones. The outline runs
    /// that far outside of the content. Takes effect at the next layout.
    void SetRoundCornerRadius(int radius);
    /// Paints a band of another colour across the window, as behind a row of buttons.
    /// @param enable false takes the band away; the other arguments are ignored then
    /// @param rect top and height of the band, in coordinates of the content. The band always spans
    ///             the outline, so its width is ignored
    /// @param color what the band is filled with
    void SetPartialBackgroundColor(bool enable, const QRect &rect, const QColor &color);

    /// Sets the window up: focus, attributes, layout and shadow. The constructor calls it, so what
    /// a subclass overrides is not called from there. Once more it only switches the shadow off.
    virtual void Initialize();

    /// Watches the content: a new size of it is a new layout, at once or before the next showing,
    /// and hiding it hides the window.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// For subclasses with a private part of their own, which passes to the window.
    ArrowedWindow(ArrowedWindowPrivate &dd, QWidget *parent);

    /// Fills the outline with the colour of the content's background, or a half transparent white
    /// where that is next to transparent, and draws it.
    void paintEvent(QPaintEvent *event) override;
    /// Shows the content too, and lays the window out when that is due.
    void showEvent(QShowEvent *event) override;

    /// The content, or null.
    QWidget *InternalWidget() const;

    /// The state of the window.
    const std::unique_ptr<ArrowedWindowPrivate> d_ptr;

private:
    friend class WidgetPosCalculator;

    Q_DECLARE_PRIVATE(ArrowedWindow)
    Q_DISABLE_COPY(ArrowedWindow)
};

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::EArrowPosition)
