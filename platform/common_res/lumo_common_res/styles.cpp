// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "lumo_common_res/styles.h"

#include "lumo_common_res/fonts.h"

#include <QFile>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace Vela::Resource {

namespace {

struct SPaletteColors
{
    QRgb panel;     ///< ground of panels, tool bars, menus and dialogs
    QRgb alternate; ///< every other row of a list, one step from the panel
    QRgb field;     ///< ground of what is read or typed into: tooltips, edits
    QRgb text;
    QRgb softText;
    QRgb disabledText;
    QRgb line; ///< separators
    QRgb border;
    QRgb mark; ///< small signs such as arrows
    QRgb shadow;
    QRgb hoverPlate; ///< behind a hovered or checked icon; light, as active icons are dark blue
    QRgb pressedPlate;
    QRgb plateText;
    QRgb accent;
    QRgb accentHover;
    QRgb onAccent;
    QRgb close;
};

constexpr SPaletteColors LIGHT_COLORS {
    0xFFF0F0F0, 0xFFE6E6E6, 0xFFFFFFFF, 0xFF404040, 0xFF606060, 0xFFA0A0A0,
    0xFFD0D0D0, 0xFFA0A0A0, 0xFF606060, 0x5A000000, 0xFFD6E4F1, 0xFFBDD3E8,
    0xFF404040, 0xFF5383B5, 0xFF2965A3, 0xFFFFFFFF, 0xFFE04343,
};

constexpr SPaletteColors DARK_COLORS {
    0xFF2B2B2B, 0xFF232323, 0xFF1E1E1E, 0xFFE6E6E6, 0xFFC8C8C8, 0xFF787878,
    0xFF484848, 0xFF5C5C5C, 0xFF777777, 0xB4000000, 0xFFC9DBEC, 0xFFADC8E2,
    0xFF202020, 0xFF5383B5, 0xFF2965A3, 0xFFFFFFFF, 0xFFE04343,
};

// In the templates "@name" is a colour of the palette, "%1" and "%2" are the caller's.

// Qt parses the sheet once for each button of a bar and keeps it with that, so each word counts.
constexpr char TOOL_BUTTON_ON_TOOL_PALETTE[] =
    "QToolButton{border:none;border-radius:3px;color:@text}"
    "QToolButton:enabled:hover,QToolButton:enabled:checked"
    "{background-color:@hoverPlate;color:@plateText}"
    "QToolButton:enabled:pressed{background-color:@pressedPlate}"
    "QToolButton:disabled{color:@disabledText}";

constexpr char TOOL_BUTTON_SYSTEM[] = R"(QToolButton {
    background-color: transparent;
    border: 1px solid transparent;
    border-radius: 3px;
    padding: 0px;
    image: url(%1);
}
QToolButton:focus {
    border-color: @accent;
}
QToolButton:hover {
    background-color: @hoverPlate;
    image: url(%2);
}
QToolButton:pressed {
    background-color: @pressedPlate;
    image: url(%2);
}
)";

constexpr char TOOL_BUTTON_SYSTEM_CLOSE[] = R"(QToolButton {
    background-color: transparent;
    border: 1px solid transparent;
    border-radius: 3px;
    padding: 0px;
    image: url(%1);
}
QToolButton:focus {
    border-color: @accent;
}
QToolButton:hover, QToolButton:pressed {
    background-color: @close;
    border-color: @close;
    image: url(%2);
}
)";

constexpr char MENU_MAIN[] = R"(QToolButton {
    background-color: transparent;
    border: none;
    border-radius: 3px;
    padding: 4px 10px;
    color: @text;
    font-family: 'Arial';
    font-size: 12px;
}
QToolButton:hover, QToolButton:checked {
    background-color: @hoverPlate;
    color: @plateText;
}
QToolButton:pressed {
    background-color: @pressedPlate;
    color: @plateText;
}
QToolButton:disabled {
    background-color: transparent;
    color: @disabledText;
}
QToolButton::menu-indicator {
    image: none;
}
QMenu {
    background-color: @panel;
    border: 1px solid @border;
    padding: 4px 0px;
    color: @text;
    font-family: 'Arial';
    font-size: 12px;
}
QMenu::item {
    background-color: transparent;
    border: none;
    padding: 5px 28px 5px 12px;
    color: @text;
}
QMenu::item:selected {
    background-color: @accentHover;
    color: @onAccent;
}
QMenu::item:disabled {
    background-color: transparent;
    color: @disabledText;
}
QMenu::separator {
    background-color: @line;
    height: 1px;
    margin: 4px 8px;
}
QMenu::icon {
    left: 5px;
    padding: 2px;
}
QMenu::icon:checked, QMenu::icon:selected:enabled {
    background-color: @hoverPlate;
    border-radius: 3px;
}
QMenu::icon:checked {
    padding: 1px;
    border: 1px solid @accent;
}
QMenu::indicator {
    width: 16px;
    height: 16px;
    left: 7px;
}
QMenu::indicator:checked {
    image: url(:/resources/images/sys_menu_check.png);
}
QMenu::indicator:checked:selected {
    image: url(:/resources/images/sys_menu_check_hover.png);
}
QMenu::right-arrow {
    width: 16px;
    height: 16px;
    right: 4px;
    image: url(:/resources/images/sys_menu_right.png);
}
QMenu::right-arrow:selected {
    image: url(:/resources/images/sys_menu_right_hover.png);
}
QMenu::left-arrow {
    width: 16px;
    height: 16px;
    image: url(:/resources/images/sys_menu_left.png);
}
QMenu::left-arrow:selected {
    image: url(:/resources/images/sys_menu_left_hover.png);
}
)";

constexpr char SEPARATOR[] = R"(QLabel, QToolButton {
    background-color: @line;
    border: none;
    padding: 0px;
}
)";

constexpr char DIALOG_GENERAL[] = R"(QDialog#%1 {
    background-color: @panel;
    border: 1px solid @border;
}
)";

constexpr char DIALOG_TOOL_TIP[] = R"(QWidget {
    background-color: @field;
}
QLabel {
    background-color: @field;
    border: none;
    color: @softText;
    font-family: 'Arial';
    font-size: 12px;
}
)";

struct SColorToken
{
    std::string_view name;
    QRgb SPaletteColors::*color;
};

// A name that another one begins with stands after that other one.
constexpr SColorToken COLOR_TOKENS[] {
    {"@panel", &SPaletteColors::panel},
    {"@field", &SPaletteColors::field},
    {"@text", &SPaletteColors::text},
    {"@softText", &SPaletteColors::softText},
    {"@disabledText", &SPaletteColors::disabledText},
    {"@line", &SPaletteColors::line},
    {"@border", &SPaletteColors::border},
    {"@hoverPlate", &SPaletteColors::hoverPlate},
    {"@pressedPlate", &SPaletteColors::pressedPlate},
    {"@plateText", &SPaletteColors::plateText},
    {"@accentHover", &SPaletteColors::accentHover},
    {"@accent", &SPaletteColors::accent},
    {"@onAccent", &SPaletteColors::onAccent},
    {"@close", &SPaletteColors::close},
};

// The colour whose name the text begins with.
const SColorToken *tokenAt(std::string_view text)
{
    const auto isHere = [text](const SColorToken &token) {
        return text.substr(0, token.name.size()) == token.name;
    };
    const auto found = std::find_if(std::begin(COLOR_TOKENS), std::end(COLOR_TOKENS), isHere);
    return found == std::end(COLOR_TOKENS) ? nullptr : found;
}

QLatin1String latin1(std::string_view text)
{
    return QLatin1String(text.data(), int(text.size()));
}

// In one pass, since every application does this at its start.
QString filled(std::string_view sheet, const SPaletteColors &colors)
{
    QString text;
    text.reserve(int(sheet.size()));
    while (!sheet.empty()) {
        if (const SColorToken *const token = tokenAt(sheet)) {
            text += QColor(colors.*token->color).name().toUpper();
            sheet.remove_prefix(token->name.size());
            continue;
        }
        const std::size_t plain = std::min(sheet.find('@', 1), sheet.size());
        text += latin1(sheet.substr(0, plain));
        sheet.remove_prefix(plain);
    }
    return text;
}

const SPaletteColors &colorsOf(EPalette palette)
{
    return palette == EPalette::Dark ? DARK_COLORS : LIGHT_COLORS;
}

} // namespace

class StylesPrivate
{
public:
    void prepare(EPalette chosen);

    EPalette palette = EPalette::Light;
    SPaletteColors colors = LIGHT_COLORS;
    Fonts fonts;
    QString toolButtonOnToolPalette;
    QString toolButtonSystem;
    QString toolButtonSystemClose;
    QString menuMain;
    QString separator;
    QString dialogGeneral;
    QString dialogToolTip;
};

void StylesPrivate::prepare(EPalette chosen)
{
    palette = chosen == EPalette::Dark ? EPalette::Dark : EPalette::Light;
    colors = colorsOf(palette);
    toolButtonOnToolPalette = filled(TOOL_BUTTON_ON_TOOL_PALETTE, colors);
    toolButtonSystem = filled(TOOL_BUTTON_SYSTEM, colors);
    toolButtonSystemClose = filled(TOOL_BUTTON_SYSTEM_CLOSE, colors);
    menuMain = filled(MENU_MAIN, colors);
    separator = filled(SEPARATOR, colors);
    dialogGeneral = filled(DIALOG_GENERAL, colors);
    dialogToolTip = filled(DIALOG_TOOL_TIP, colors);
}

Styles::Styles()
    : d(std::make_unique<StylesPrivate>())
{
    d->prepare(EPalette::Light);
}

Styles::~Styles() = default;

Styles &Styles::Instance()
{
    // Never destroyed: widgets of static storage may still ask for a style when they end.
    static Styles &instance = *new Styles;
    return instance;
}

void Styles::SetPalette(EPalette palette)
{
    d->prepare(palette);
}

EPalette Styles::Palette() const
{
    return d->palette;
}

QString Styles::ToolButtonOnToolPalette() const
{
    return d->toolButtonOnToolPalette;
}

QString Styles::ToolButtonSystem() const
{
    return d->toolButtonSystem;
}

QString Styles::ToolButtonSystemClose() const
{
    return d->toolButtonSystemClose;
}

QString Styles::MenuMain() const
{
    return d->menuMain;
}

QString Styles::Separator() const
{
    return d->separator;
}

QString Styles::DialogGeneral() const
{
    return d->dialogGeneral;
}

QString Styles::DialogToolTip() const
{
    return d->dialogToolTip;
}

QString Styles::ApplicationStyleSheet() const
{
    QFile file(d->palette == EPalette::Dark ? QStringLiteral(":/qss/libuitoolkit_dark.css")
                                            : QStringLiteral(":/qss/libuitoolkit.css"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll());
}

QPalette Styles::ApplicationPalette() const
{
    const SPaletteColors &c = d->colors;
    QPalette palette;
    palette.setColor(QPalette::Window, c.panel);
    palette.setColor(QPalette::Button, c.panel);
    palette.setColor(QPalette::Base, c.field);
    palette.setColor(QPalette::AlternateBase, c.alternate);
    palette.setColor(QPalette::ToolTipBase, c.field);
    palette.setColor(QPalette::WindowText, c.text);
    palette.setColor(QPalette::ButtonText, c.text);
    palette.setColor(QPalette::Text, c.text);
    palette.setColor(QPalette::BrightText, c.onAccent);
    palette.setColor(QPalette::ToolTipText, c.softText);
    palette.setColor(QPalette::PlaceholderText, c.disabledText);
    palette.setColor(QPalette::Highlight, c.accentHover);
    palette.setColor(QPalette::HighlightedText, c.onAccent);
    palette.setColor(QPalette::Light, QColor(c.panel).lighter(115));
    palette.setColor(QPalette::Midlight, QColor(c.panel).lighter(108));
    palette.setColor(QPalette::Mid, c.line);
    palette.setColor(QPalette::Dark, c.border);
    palette.setColor(QPalette::Shadow, Qt::black);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        palette.setColor(QPalette::Disabled, role, c.disabledText);
    return palette;
}

QColor Styles::ColorToolPaletteMainBack() const
{
    return QColor(d->colors.panel);
}

QColor Styles::ColorActionPanelGroupBack() const
{
    return QColor(d->colors.panel);
}

QColor Styles::ColorActionPanelBorder() const
{
    return QColor(d->colors.border);
}

QColor Styles::ColorToolPaletteButtonSeparator() const
{
    return QColor(d->colors.line);
}

QColor Styles::ColorToolPaletteShadow() const
{
    return QColor::fromRgba(d->colors.shadow);
}

QColor Styles::ColorToolButtonArrow() const
{
    return QColor(d->colors.mark);
}

const Fonts &Styles::Font() const
{
    return d->fonts;
}

} // namespace Vela::Resource
