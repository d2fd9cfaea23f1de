// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "look.h"

#include <lumo_common_res/Styles>

#include <QAction>
#include <QApplication>
#include <QFont>
#include <QMenu>
#include <QPalette>
#include <QProxyStyle>

#include <algorithm>

namespace Workbench {
namespace {

const QRgb panel = 0xF0F0F0;
const QRgb text = 0x404040;
const QRgb faintText = 0xA0A0A0;
const QRgb accent = 0x5383B5;

bool showsIcon(const QAction *action)
{
    return action->isIconVisibleInMenu() && !action->icon().isNull();
}

/// Whether a menu shows icons. A style sheet that draws a menu item asks without naming the menu.
bool hasIcons(const QMenu *menu)
{
    const QList<QAction *> actions = menu ? menu->actions() : QList<QAction *>();
    return !menu || std::any_of(actions.begin(), actions.end(), showsIcon);
}

/// Fusion, with menu icons in the size that the library's icons are drawn for: scaled to the usual
/// sixteen pixels they would blur. A menu that hides the icons of its actions leaves no room for
/// them, which Qt does.
class Style : public QProxyStyle
{
public:
    Style()
        : QProxyStyle(QStringLiteral("Fusion"))
    { }

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override
    {
        const auto *menu = qobject_cast<const QMenu *>(widget);
        if (metric == PM_SmallIconSize && (menu || !widget))
            return hasIcons(menu) ? 24 : 12;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
};

QPalette lightPalette()
{
    QPalette palette {QColor(panel)};
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(text));
        palette.setColor(QPalette::Disabled, role, QColor(faintText));
    }
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(accent));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

void applyColors(QApplication &application, ELook look)
{
    if (look == ELook::Light) {
        application.setPalette(lightPalette());
        return;
    }
    auto &styles = Vela::Resource::Styles::Instance();
    styles.SetPalette(Vela::Resource::EPalette::Dark);
    application.setPalette(styles.ApplicationPalette());
    // Without one the library would bring the light one when it starts up.
    application.setStyleSheet(styles.ApplicationStyleSheet());
}

} // namespace

void applyLook(QApplication &application, ELook look)
{
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(12);
    application.setFont(font);
    auto *const style = new Style;
    style->setParent(&application);
    application.setStyle(style);
    applyColors(application, look);
}

} // namespace Workbench
