// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/notification/messagelabel_p.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace Vela::UiBase::Internal {
namespace {

QStringList wrapped(const QString &paragraph, const QFont &font, int width)
{
    QTextLayout layout(paragraph, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WordWrap);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines << paragraph.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines.isEmpty() ? QStringList {QString()} : lines;
}

} // namespace

void MessageLabel::paintEvent(QPaintEvent *event)
{
    const bool hasRoom = heightForWidth(width()) <= height();
    if (hasRoom && fittingWords(text()) == text()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), int(alignment()) | Qt::TextDontClip,
                     fittingLines().join(QLatin1Char('\n')));
}

QString MessageLabel::fittingWords(const QString &words) const
{
    QStringList parts = words.split(QLatin1Char(' '));
    for (QString &part : parts)
        part = fontMetrics().elidedText(part, Qt::ElideMiddle, contentsRect().width());
    return parts.join(QLatin1Char(' '));
}

QStringList MessageLabel::fittingLines() const
{
    const int width = contentsRect().width();
    QStringList lines;
    const QStringList paragraphs = text().split(QLatin1Char('\n'));
    for (const QString &paragraph : paragraphs)
        lines += wrapped(fittingWords(paragraph), font(), width);
    const int room = std::max(1, contentsRect().height() / fontMetrics().lineSpacing());
    if (lines.size() <= room)
        return lines;
    const QString rest = QStringList(lines.mid(room - 1)).join(QLatin1Char(' '));
    lines = lines.mid(0, room - 1);
    return lines << fontMetrics().elidedText(rest, Qt::ElideRight, width);
}

} // namespace Vela::UiBase::Internal
