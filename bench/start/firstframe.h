// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QIcon>
#include <QObject>
#include <QPixmap>
#include <QWidget>

#include <unistd.h>

namespace Lumo::Bench {

/// Ends the process as soon as its window and all on it have been painted, without tidying up.
class EndWithFirstFrame : public QObject
{
public:
    explicit EndWithFirstFrame(QWidget *window) { window->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        // The paint event of the window comes before those of its children, in one go.
        if (event->type() == QEvent::Paint)
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        return false;
    }

    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::User)
            _exit(0);
        return QObject::event(event);
    }
};

inline QIcon commandIcon()
{
    QPixmap picture(24, 24);
    picture.fill(Qt::red);
    return QIcon(picture);
}

inline int showUntilFirstFrame(QWidget &window)
{
    const EndWithFirstFrame end(&window);
    window.resize(1200, 800);
    window.show();
    return QCoreApplication::exec();
}

} // namespace Lumo::Bench
