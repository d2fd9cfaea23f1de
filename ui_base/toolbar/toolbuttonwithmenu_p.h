// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/toolbar/toolbutton_p.h"
#include "ui_base/toolbar/toolbuttonwithmenu.h"

namespace Vela::UiBase {

class ToolBarPrivate;

/// The state of a ToolButtonWithMenu.
class LUMO_UI_BASE_EXPORT ToolButtonWithMenuPrivate : public ToolButtonPrivate
{
    Q_DECLARE_PUBLIC(ToolButtonWithMenu)

public:
    void SetDefaults() override;
    bool hasMenu() const override;

    /// Switches the tooltip on or off, if there is one.
    void enableTooltip(bool enable) const;
    /// Works out where the popup belongs, in the coordinates in which it is moved. The popup takes
    /// the size that it prefers.
    /// @param reference the widget beside which it stands
    /// @param isArrowed whether the popup is an ArrowedWindow whose arrow is to point at the
    ///                  reference
    QPoint menuPosition(QWidget *reference, bool isArrowed) const;
    /// Moves the popup to a place as menuPosition() tells it.
    void moveMenu(const QPoint &position) const;
    /// Tells that the popup was shown or hidden. The button may be gone afterwards.
    void tellVisibility(bool isVisible);
    /// Deletes a popup, and the layer in which it floats.
    static void deletePopup(QWidget *popup);
    /// The parts of a bar.
    static ToolBarPrivate &partsOf(ToolBar &bar);

    QPointer<QWidget> menu;
    WidgetPosCalculator *posCalculator = nullptr; ///< a child of the button
    bool noHideMenuOnClick = false;
    QIcon defaultIcon;        ///< the button's own
    bool ownIconShown = true; ///< and not that of a button of the popup
    bool saveMenuState = true;
    QPointer<ToolButtonWithMenu> savedMenuOwner;

private:
    friend class ToolButtonWithMenu;
    void initializeMenu();
    QRect availableArea() const;
};

} // namespace Vela::UiBase
