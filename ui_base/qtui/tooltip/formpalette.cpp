// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/formpalette_p.h"

#include <lumo_common_res/Styles>

#include <QPalette>
#include <QWidget>

namespace Vela::UiBase::Internal {
namespace {

bool isDark()
{
    return Resource::Styles::Instance().Palette() == Resource::EPalette::Dark;
}

QColor darkColor(QPalette::ColorRole role)
{
    return Resource::Styles::Instance().ApplicationPalette().color(role);
}

QString darkened(QString styleSheet)
{
    const struct
    {
        const char *light;
        QPalette::ColorRole dark;
    } colors[] = {
        {"#F0F0F0", QPalette::Window},
        {"#FFFFFF", QPalette::Base},
        {"#404040", QPalette::WindowText},
        {"#606060", QPalette::ToolTipText},
    };
    // A line as bright as the text would glare.
    styleSheet.replace(QLatin1String("border-color: #606060"),
                       QLatin1String("border-color: ") + lineColor().name());
    for (const auto &color : colors)
        styleSheet.replace(QLatin1String(color.light), darkColor(color.dark).name());
    return styleSheet;
}

void darken(QWidget &widget)
{
    if (widget.styleSheet().isEmpty())
        return;
    // Qt may have read the sheet of the form, and forgets it for a polished widget only.
    widget.ensurePolished();
    widget.setStyleSheet(darkened(widget.styleSheet()));
}

} // namespace

void dressForPalette(QWidget &form)
{
    if (!isDark())
        return;
    darken(form);
    const QList<QWidget *> parts = form.findChildren<QWidget *>();
    for (QWidget *part : parts)
        darken(*part);
}

QColor groundColor()
{
    return isDark() ? darkColor(QPalette::Base) : QColor(Qt::white);
}

QColor lineColor()
{
    return isDark() ? Resource::Styles::Instance().ColorActionPanelBorder() : QColor(Qt::gray);
}

} // namespace Vela::UiBase::Internal
