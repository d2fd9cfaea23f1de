// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "lumo_common_res/commonresexport.h"

#include <QColor>
#include <QPalette>
#include <QString>

#include <memory>

namespace Vela::Resource {

class Fonts;
class StylesPrivate;

/// The sets of colours that Styles can serve.
enum class EPalette : int {
    Light = 0, ///< light panels with dark text, the default
    Dark = 1   ///< dark panels with light text
};

/// The one place that colours and style sheets of the interface come from.
///
/// Every getter answers for the palette chosen with SetPalette(). Widgets read their style once,
/// when they are made, so a host chooses the palette before its first widget:
///
/// @code
/// QApplication app(argc, argv);
/// auto &styles = Vela::Resource::Styles::Instance();
/// styles.SetPalette(Vela::Resource::EPalette::Dark);
/// app.setPalette(styles.ApplicationPalette());
/// app.setStyleSheet(styles.ApplicationStyleSheet());
/// @endcode
///
/// The sheets are prepared when a palette is chosen; a getter copies nothing but a reference.
/// Usable without an application object. Main thread only.
class LUMO_COMMON_RES_EXPORT Styles
{
public:
    /// The instance, made on first use with EPalette::Light. It is never destroyed, so that objects
    /// of static storage may ask it in their destructors.
    static Styles &Instance();

    /// Chooses the colours of all later answers. Widgets that took a sheet or colour before keep
    /// it. A value that is no enumerator counts as EPalette::Light.
    void SetPalette(EPalette palette);

    /// The palette in use.
    EPalette Palette() const;

    /// @name Style sheets
    /// @{

    /// A tool bar's button: flat at rest, a plate in the accent's tint while hovered, pressed or
    /// checked. Sets neither margins nor a size nor a font. As short as can be: a bar has it on each
    /// of its buttons.
    QString ToolButtonOnToolPalette() const;

    /// A small button in a title line. `%1` is the image at rest and `%2` the image while hovered,
    /// both as resource paths; images of up to 18 by 18 fit a button of 20 by 20.
    QString ToolButtonSystem() const;

    /// The close button of a title line; `%1` and `%2` as for ToolButtonSystem(). Red while
    /// hovered.
    QString ToolButtonSystemClose() const;

    /// The items of a menu bar made of tool buttons, and the menus that drop from them.
    QString MenuMain() const;

    /// A thin line between the items of a menu bar, as a label or a tool button.
    QString Separator() const;

    /// Ground and frame of a frameless dialog. `%1` is the object name of the dialog.
    QString DialogGeneral() const;

    /// Ground and text of a plain-text tooltip, for the widget and for its label.
    QString DialogToolTip() const;

    /// The sheet for the whole application in the palette in use: the text of
    /// ":/qss/libuitoolkit.css" or of ":/qss/libuitoolkit_dark.css".
    QString ApplicationStyleSheet() const;

    /// @}

    /// Qt's own palette in these colours, for what no sheet covers.
    QPalette ApplicationPalette() const;

    /// @name Colours
    /// @{

    /// Ground of a tool bar between its plates; that of the window, so that no strip is seen there.
    QColor ColorToolPaletteMainBack() const;
    /// Plate behind the buttons of one panel of a tool bar.
    QColor ColorActionPanelGroupBack() const;
    /// Border of panels, tool bars, popups and tooltips.
    QColor ColorActionPanelBorder() const;
    /// Line between two buttons of a panel.
    QColor ColorToolPaletteButtonSeparator() const;
    /// Drop shadow of a tool bar; translucent.
    QColor ColorToolPaletteShadow() const;
    /// The small triangle on a button that opens a menu.
    QColor ColorToolButtonArrow() const;

    /// @}

    /// The sizes of text. The reference stays good to the end of the process.
    const Fonts &Font() const;

private:
    Styles();
    ~Styles();
    Q_DISABLE_COPY(Styles)

    const std::unique_ptr<StylesPrivate> d;
};

} // namespace Vela::Resource
