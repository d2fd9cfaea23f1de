// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "reliefview.h"

#include <QPainter>

#include <algorithm>

ReliefView::ReliefView(QWidget *parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void ReliefView::setRelief(const Relief &relief)
{
    m_relief = relief;
    m_picture = shaded(relief);
    update();
}

void ReliefView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Dark));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const int side = std::min(width(), height()) - 24;
    QRect place(0, 0, side, side);
    place.moveCenter(rect().center());
    painter.drawImage(place, m_picture);
}
