// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/toolbar.h"
#include "ui_base/toolbar/toolbutton.h"

#include <QAction>
#include <QList>
#include <QMap>
#include <QPointer>

#include <optional>

class QPainter;
class QStyleOptionToolButton;

namespace Vela::UiBase {

/// Where a tooltip stands beside its button. Lengths are logical pixels.
struct STooltipPlace
{
    ArrowedWindow::SArrowParam arrow;
    EDirection direction = EDirection::Top;
    int baseOffset = 10;
    EWidgetsAlign align = EWidgetsAlign::AlignCenter;
    QPoint additionalOffset;
};

/// The state of a ToolButton. A subclass with state of its own derives from this and hands an object
/// of its class to the protected constructor of the button.
class LUMO_UI_BASE_EXPORT ToolButtonPrivate
{
    Q_DECLARE_PUBLIC(ToolButton)

public:
    enum class EButtonKind : int {
        Plain = 0,
        ButtonMenu = 1,
        WidgetMenu = 2
    };

    ToolButtonPrivate();
    virtual ~ToolButtonPrivate();

    /// Brings all fields to the values of a new button.
    virtual void SetDefaults();
    /// Whether the button is a ToolButtonWithMenu.
    virtual bool hasMenu() const;

    /// Paints the button as its style sheet says.
    /// @param option as QToolButton::initStyleOption() fills it
    void paint(QPainter &painter, QStyleOptionToolButton &option);

    /// Asks the handlers registered for @p asked. @return \c true without any
    bool isEnabledByHandlers(QAction *asked) const;

    QPointer<QAction> action;
    EButtonKind buttonKind = EButtonKind::Plain;
    QString tooltipText; ///< as the action had it when the button was made, or the language changed
    QPointer<ToolBar> toolBar;
    QMap<QAction *, QList<ToolButton::IToolButtonCallbackHandler *>> callbackHandlers;
    bool locked = false;
    QPointer<TooltipObject> tooltipObject; ///< owned; null for a bare button
    std::shared_ptr<QIcon> activeIcon;     ///< shown under the pointer and while checked
    std::shared_ptr<QIcon> normalIcon;     ///< shown at rest
    bool iconPinned = false;               ///< the pointer leaves the icon alone
    bool hideMenuWhenUnchecked = false;
    bool suppressClickedHandler = false;
    bool clickedHandlerRequested = false;

protected:
    ToolButton *q_ptr = nullptr;

private:
    friend class ToolButton;
    friend class ToolButtonWithMenu;

    friend class ToolBarPrivate;

    void initializeTooltipObject();
    void followTooltip();
    void prepareTooltip(ATooltipObject &tooltip);
    void placeTooltip(const STooltipPlace &place);
    void initialize(QAction *newAction, ToolBar *newToolBar);
    void forgetHandlersWith(QAction *watched);
    void postToToolBar(const QMouseEvent &event) const;
    bool iconsAreStale() const;
    void showIcon(bool active);
    bool shows(const std::shared_ptr<QIcon> &prepared) const;
    bool showsPrepared() const;
    bool noteIconOfAction();
    void updateAccessibleName();
    void setSheet();
    void polish(QEvent *event);
    void polishInFull();
    bool isPlain() const;
    QIcon iconToPaint() const;
    bool paintPlainly(QPainter &painter, const QStyleOptionToolButton &option);

    std::unique_ptr<QObject> actionWatcher;
    bool isSheetBeingSet = false;
    bool isPolishedAlike = false; ///< and not fully
    bool isTooltipPrepared = false;
    std::optional<STooltipPlace> tooltipPlace; ///< for when the tooltip is prepared
    QPointer<QWidget> tooltipControl;          ///< the one with that text, once it is prepared
    QPointer<QAction> tooltipSource;           ///< whose text that is when the button has no action
    QString accessibleName;                    ///< the one that the button gave itself
    QSize preparedSize;                        ///< for which the two icons were prepared
    qint64 actionIcon = 0;                     ///< key of the icon that the action had last
};

} // namespace Vela::UiBase
