// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/infodialog.h"

#include "ui_base/qtui/formtexts_p.h"
#include "ui_base/qtui/tooltip/atooltipex_p.h"
#include "ui_base/qtui/tooltip/formpalette_p.h"
#include "ui_infodialog.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStackedWidget>

namespace Vela::UiBase {
namespace {

// Corners of a share of the half sides, in per cent, that are round rather than elliptical.
QPainterPath roundedOutline(const QRectF &rect, int share)
{
    const bool isWide = rect.width() > rect.height();
    const int x = isWide ? int(share * rect.height() / rect.width()) : share;
    const int y = isWide ? share : int(share * rect.width() / rect.height());
    QPainterPath path;
    path.addRoundedRect(rect, x, y, Qt::RelativeSize);
    return path;
}

} // namespace

class InfoDialogPrivate : public ATooltipExPrivate
{
    Q_DECLARE_PUBLIC(InfoDialog)

public:
    QPainterPath Outline() const override
    {
        return roundedOutline(QRectF(q_func()->rect().adjusted(0, 0, -1, -1)), 3);
    }

    Ui::InfoDialog ui;
    Internal::FormTexts texts;
};

InfoDialog::InfoDialog(QWidget *parent)
    : ATooltipEx(*new InfoDialogPrivate, parent)
{
    Q_D(InfoDialog);
    d->ui.setupUi(this);
    d->texts.take(*this);
    Internal::dressForPalette(*this);
}

InfoDialog::~InfoDialog() = default;

int InfoDialog::GetAdvancedWidgetMargins() const
{
    Q_D(const InfoDialog);
    const QLayout *const part = d->ui.widget->layout();
    return part ? horizontalMargins(d->ui.vlayout_top) + horizontalMargins(part) : 0;
}

void InfoDialog::SetParams(const QString &, const QString &, QStackedWidget *advanced,
                           bool alwaysMaxWidth, int maxWidth, EWidgetExVisibility)
{
    Q_D(InfoDialog);
    d->alwaysMaxWidth = alwaysMaxWidth;
    d->maxWidth = maxWidth;
    d->visibility = EWidgetExVisibility::ExAlwaysShown;
    d->ui.label->clear();
    SetAdvancedWidget(advanced);
    SetAdvancedWidgetVisibility(true);
    adjustSize();
    d->FitHeight();
}

void InfoDialog::SetHeightOnAdvancedWidgetHidden(int) { }

bool InfoDialog::IsAdvancedWidgetVisible() const
{
    return true;
}

void InfoDialog::OnAdvancedWidgetVisibilityChange(bool visible)
{
    Q_D(InfoDialog);
    d->ShowPart(d->ui.widget, d->ui.vlayout_extended, visible);
}

void InfoDialog::AddWidgetToLayout(QWidget *stack)
{
    Q_D(InfoDialog);
    d->ui.widget->layout()->addWidget(stack);
}

void InfoDialog::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.save();
    const QPainterPath outline = d_func()->Outline();
    painter.fillPath(outline, Internal::groundColor());
    painter.setPen(Internal::lineColor());
    painter.drawPath(outline);
    painter.restore();
}

void InfoDialog::showEvent(QShowEvent *)
{
    UpdateContent();
    d_func()->TakeShape();
    Q_EMIT VisibilityChanged(true);
}

void InfoDialog::hideEvent(QHideEvent *)
{
    Q_EMIT VisibilityChanged(false);
}

void InfoDialog::on_close_button_clicked()
{
    hide();
}

void InfoDialog::changeEvent(QEvent *event)
{
    ATooltipEx::changeEvent(event);
    Q_D(InfoDialog);
    if (event->type() == QEvent::LanguageChange)
        d->texts.translate([this, d] { d->ui.retranslateUi(this); });
}

} // namespace Vela::UiBase
