// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/uibaseexport.h"

#include <QSize>

namespace Vela::UiBase {

class ToolBar;

/// Makes the tool bars that are menus of buttons. They are floating, see FloatingLayer, and look like
/// the bar that they are made for. Main thread only.
class LUMO_UI_BASE_EXPORT ToolBarUtil
{
public:
    ToolBarUtil() = delete;

    /// Makes a horizontal menu for the buttons of an action panel, with tooltips below its buttons.
    /// @param parent owner of the layer in which the menu floats, may be null
    /// @param baseToolBar the bar whose parameters, button size and tooltip group the menu takes
    /// @param isGrid whether the menu is a grid that is filled row by row
    /// @param gridSize number of cells in a row; below 1 the menu is a line
    /// @return the menu; null unless @p baseToolBar is a ToolBar
    static ToolBar *CreateActionPanelToolBar(QWidget *parent, QWidget *baseToolBar, bool isGrid,
                                             int gridSize);
    /// Makes a menu for the buttons of a main tool bar, with tooltips at the right of its buttons: a
    /// vertical line, or a grid that is filled column by column.
    /// @param parent owner of the layer in which the menu floats, may be null
    /// @param baseToolBar the bar whose parameters and tooltip group the menu takes
    /// @param iconSize is not used: icons follow from the size of the buttons
    /// @param buttonSize size of the buttons; with an invalid one they are as large as those of the
    ///                   base bar
    /// @param isGrid whether the menu is a grid
    /// @param gridSize number of cells in a column; below 1 the menu is a horizontal line
    /// @return the menu; null unless @p baseToolBar is a ToolBar
    static ToolBar *CreateMainToolBarButtonMenu(QWidget *parent, QWidget *baseToolBar,
                                                const QSize &iconSize, const QSize &buttonSize,
                                                bool isGrid, int gridSize);

    /// The arrow that tool bars begin with: at the bottom, without an offset, of length 10.
    static ArrowedWindow::SArrowParam DefaultArrow();
};

} // namespace Vela::UiBase
