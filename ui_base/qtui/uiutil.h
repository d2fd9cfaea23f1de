// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

class QLabel;
class QPoint;
class QString;
class QWidget;

namespace Vela::UiBase {

/// Lays a small icon over a widget, such as a warning sign over a field. Main thread only.
class LUMO_UI_BASE_EXPORT UiUtil
{
public:
    /// Where an icon lands on a widget, inside its rect(). A value that is no enumerator counts as
    /// AttachRight.
    enum class EAttachToPosition : int {
        AttachLeft = 0,     ///< left edge, with the icon's top edge (not its centre) at half height
        AttachRight = 1,    ///< middle of the right edge
        AttachTop = 2,      ///< middle of the top edge
        AttachBottom = 3,   ///< middle of the bottom edge
        AttachTopLeft = 4,  ///< top left corner
        AttachTopRight = 5, ///< top right corner
        AttachBottomLeft = 6, ///< bottom left corner
        AttachBottomRight = 7 ///< bottom right corner
    };

    UiUtil() = delete;

    /// Makes a label with the picture in @p iconPath on @p widget. It lets the mouse through, and
    /// stays where it was put when the widget changes its size. The caller shows and hides it; as
    /// any new child it is not seen on a widget that is visible already, and comes up together with
    /// one that is not.
    /// @param widget becomes the label's parent
    /// @param offset is added to the place that @p position gives, in logical pixels
    /// @param position which edge or corner of the widget the icon is put on
    /// @param iconPath a file; of "sign.png" the neighbour "sign@2x.png" is taken on a screen of
    ///        device pixel ratio 2
    /// @param tooltip becomes the tool tip of @p widget unless it is empty; the one it had is kept
    ///        in the label's property "tooltip" for restoreTooltipOnIconHide()
    /// @return the label, owned by @p widget; null when @p widget is null or there is no picture
    static QLabel *addIconToWidget(QWidget *widget, const QPoint &offset,
                                   EAttachToPosition position, const QString &iconPath,
                                   const QString &tooltip);

    /// Gives @p widget the tool tip back that it had before addIconToWidget() made @p icon; it has
    /// none when it had none. Call it when the icon is hidden. Null is ignored.
    static void restoreTooltipOnIconHide(QWidget *widget, QLabel *icon);
};

} // namespace Vela::UiBase
