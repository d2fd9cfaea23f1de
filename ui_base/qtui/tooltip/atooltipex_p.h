// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/windowshape_p.h"
#include "ui_base/qtui/tooltip/atooltipex.h"

#include <QPainterPath>

class QLayout;

namespace Vela::UiBase {

/// The state of an ATooltipEx. Widths are logical pixels.
class LUMO_UI_BASE_EXPORT ATooltipExPrivate
{
    Q_DECLARE_PUBLIC(ATooltipEx)

public:
    ATooltipExPrivate();
    virtual ~ATooltipExPrivate();

    /// Gives the card the width that its part asks for.
    void SetWidth();
    void FitHeight();
    /// Gives the card its preferred size at its width.
    void FitCard();
    /// Gives a page a width, by its type.
    static void InternalSetAdvancedWidgetWidth(QWidget *page, int width);
    /// Makes the card as high as it needs to be again.
    void ReleaseHeight();
    /// Shows or hides @p part, the widget of a form that holds the stack, and fits both to the
    /// current page.
    /// @param room the layout of the form that holds the part
    void TurnTo(int index) const;
    void FitPage(QWidget &page) const;
    void ShowPart(QWidget *part, QLayout *room, bool visible) const;
    /// Keeps the window of a card that floats by itself to the outline of the card, where nothing
    /// blends windows.
    void TakeShape();

    ATooltipEx::EWidgetExVisibility visibility = ATooltipEx::EWidgetExVisibility::ExHidden;
    bool alwaysMaxWidth = true;                ///< also while the part is closed
    int minWidth = 0;                          ///< of the closed card
    int maxWidth = 0;                          ///< of the open card
    QStackedWidget *advancedWidgets = nullptr; ///< the pages

protected:
    /// What the card is painted in, as rounded as the border in the form of TooltipEx is.
    virtual QPainterPath Outline() const;

    ATooltipEx *q_ptr = nullptr;

private:
    QRegion SeenRegion() const;

    Internal::WindowShape shape;

    Q_DISABLE_COPY(ATooltipExPrivate)
};

/// How much the left and right contents margins of @p layout take; 0 for null.
int horizontalMargins(const QLayout *layout);

} // namespace Vela::UiBase
