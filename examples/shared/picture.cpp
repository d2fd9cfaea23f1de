// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "shared/picture.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

bool savePicture(QWidget &window, const QString &file)
{
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *const other : windows) {
        if (other != &window && other->isVisible())
            painter.drawPixmap(window.mapFromGlobal(other->pos()), other->grab());
    }
    painter.end();
    return picture.save(file);
}
