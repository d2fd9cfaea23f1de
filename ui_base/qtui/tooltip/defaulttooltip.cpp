// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/defaulttooltip.h"

#include "ui_base/qtui/tooltip/formpalette_p.h"
#include "ui_defaulttooltip.h"

#include <QPalette>

namespace Vela::UiBase {

class DefaultTooltipPrivate
{
public:
    Ui::DefaultTooltip ui;
};

DefaultTooltip::DefaultTooltip(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<DefaultTooltipPrivate>())
{
    d->ui.setupUi(this);
    Internal::dressForPalette(*this);
    SetBackgroundColor(Internal::groundColor());
}

DefaultTooltip::~DefaultTooltip() = default;

void DefaultTooltip::SetBackgroundColor(const QColor &color)
{
    QPalette fresh;
    fresh.setColor(QPalette::Window, color);
    setPalette(fresh);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is what others connect to.
void DefaultTooltip::onUpdateTooltip(QString tooltipText)
{
    d->ui.label->setText(tooltipText);
}

} // namespace Vela::UiBase
