// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/tooltipex.h"

#include "ui_base/qtui/formtexts_p.h"
#include "ui_base/qtui/tooltip/atooltipex_p.h"
#include "ui_base/qtui/tooltip/formpalette_p.h"
#include "ui_tooltipex.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QPalette>
#include <QStackedWidget>
#include <QTextDocument>
#include <QTextDocumentFragment>

namespace Vela::UiBase {

class TooltipExPrivate : public ATooltipExPrivate
{
public:
    Ui::TooltipEx ui;
    Internal::FormTexts texts;
};

static QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    if (className != QLatin1String(TooltipEx::staticMetaObject.className()))
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::ToolTip);
}

static QString plainText(const QString &text)
{
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

TooltipEx::TooltipEx(QWidget *parent)
    : ATooltipEx(*new TooltipExPrivate, parent)
{
    Q_D(TooltipEx);
    QAccessible::installFactory(makeAccessible);
    d->ui.setupUi(this);
    d->texts.take(*this);
    Internal::dressForPalette(*this);
    // Pages open it; a card without any has none.
    d->ui.widget->hide();
    d->ui.info_label->setMouseTracking(true);
    d->ui.info_label->installEventFilter(this);
}

TooltipEx::~TooltipEx() = default;

int TooltipEx::GetAdvancedWidgetMargins() const
{
    Q_D(const TooltipEx);
    const QLayout *const part = d->ui.widget->layout();
    return part ? horizontalMargins(d->ui.vlayout_top) + horizontalMargins(part) : 0;
}

void TooltipEx::SetParams(const QString &title, const QString &content, QStackedWidget *advanced,
                          bool alwaysMaxWidth, int maxWidth, EWidgetExVisibility visibility)
{
    Q_D(TooltipEx);
    d->alwaysMaxWidth = alwaysMaxWidth;
    d->maxWidth = maxWidth;
    d->visibility = visibility;
    d->ui.title_label->setText(title);
    d->ui.content_label->setText(content);
    setAccessibleName(plainText(title));
    setAccessibleDescription(plainText(content));
    SetAdvancedWidget(advanced);
    SetAdvancedWidgetVisibility(visibility != EWidgetExVisibility::ExHidden);
    adjustSize();
    d->FitHeight();
}

void TooltipEx::SetHeightOnAdvancedWidgetHidden(int width)
{
    Q_D(TooltipEx);
    const QMargins all = d->ui.vlayout_all->contentsMargins();
    const int footerWidth = width - horizontalMargins(d->ui.vlayout_top);
    const int texts = d->ui.title_label->height() + 5 + d->ui.content_label->height()
        + FindTextLabelSize(d->ui.footer_label, footerWidth).height();
    setFixedHeight(all.top() + all.bottom() + 2 * d->ui.vlayout_all->spacing() + texts);
}

bool TooltipEx::IsAdvancedWidgetVisible() const
{
    Q_D(const TooltipEx);
    return d->ui.widget->isVisible();
}

bool TooltipEx::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(TooltipEx);
    const bool isOnIcon = event->type() == QEvent::MouseMove && watched == d->ui.info_label;
    if (isOnIcon && d->advancedWidgets && !IsAdvancedWidgetVisible())
        SetAdvancedWidgetVisibility(true);
    return ATooltipEx::eventFilter(watched, event);
}

// The sheet paints the ground in its shape, and what the palette has would fill the corners, too.
void TooltipEx::showEvent(QShowEvent *event)
{
    ATooltipEx::showEvent(event);
    QPalette withoutGround = palette();
    withoutGround.setBrush(backgroundRole(), Qt::NoBrush);
    setPalette(withoutGround);
}

void TooltipEx::OnAdvancedWidgetVisibilityChange(bool visible)
{
    Q_D(TooltipEx);
    d->ShowPart(d->ui.widget, d->ui.vlayout_extended, visible);
}

void TooltipEx::AddWidgetToLayout(QWidget *stack)
{
    Q_D(TooltipEx);
    d->ui.widget->layout()->addWidget(stack);
}

void TooltipEx::changeEvent(QEvent *event)
{
    ATooltipEx::changeEvent(event);
    Q_D(TooltipEx);
    if (event->type() == QEvent::LanguageChange)
        d->texts.translate([this, d] { d->ui.retranslateUi(this); });
}

} // namespace Vela::UiBase
