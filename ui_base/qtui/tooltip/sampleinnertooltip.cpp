// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/sampleinnertooltip.h"

#include "ui_base/qtui/devicepixmap_p.h"
#include "ui_base/qtui/tooltip/formpalette_p.h"
#include "ui_sampleinnertooltip.h"

#include <QEvent>

namespace Vela::UiToolkit {

class SampleInnerTooltipPrivate
{
public:
    Ui::SampleInnerTooltip ui;
};

SampleInnerTooltip::SampleInnerTooltip(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<SampleInnerTooltipPrivate>())
{
    d->ui.setupUi(this);
    UiBase::Internal::dressForPalette(*this);
    // What the form names is drawn for a ratio of 1.
    const qreal ratio = UiBase::Internal::highestDevicePixelRatio();
    if (ratio > 1) {
        d->ui.label_picture->setPixmap(UiBase::Internal::loadPixmap(
            QStringLiteral(":/resources/images/sys_sample.png"), ratio));
    }
}

SampleInnerTooltip::~SampleInnerTooltip() = default;

void SampleInnerTooltip::paintEvent(QPaintEvent *) { }

void SampleInnerTooltip::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
}

void SampleInnerTooltip::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        d->ui.retranslateUi(this);
}

} // namespace Vela::UiToolkit
