// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/taskdialog/facebutton_p.h"

#include <QAction>
#include <QHelpEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QToolTip>

namespace Vela::UiToolkit {

// What every style leaves between icon and text.
static constexpr int IconSpacing = 4;

QString FaceButton::fittingText() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    int room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
    if (!option.icon.isNull())
        room -= option.iconSize.width() + IconSpacing;
    return option.fontMetrics.elidedText(option.text, Qt::ElideRight, room, Qt::TextShowMnemonic);
}

bool FaceButton::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || fittingText() == text())
        return QPushButton::event(event);
    const QString whole = QAction(text()).iconText(); // without the mark of its key
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), whole.toHtmlEscaped(), this);
    return true;
}

void FaceButton::paintEvent(QPaintEvent *)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = fittingText();
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}

} // namespace Vela::UiToolkit
