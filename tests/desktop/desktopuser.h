// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <QWidget>

/// What a user does at a real desktop, and what he sees there.
namespace Lumo::Test {

/// Paints itself in a window of the window system, as a view of OpenGL does: no sibling and no child
/// of ours can paint over it.
class NativeView : public QWidget
{
public:
    explicit NativeView(QWidget *parent)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_NativeWindow);
        setAttribute(Qt::WA_DontCreateNativeAncestors);
    }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), Qt::darkBlue); }
};

/// The colour that is on the screen there.
inline QColor colourOnScreen(const QPoint &global)
{
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    return screen.toImage().pixelColor(global);
}

inline QColor colourInside(const QWidget &widget)
{
    return colourOnScreen(widget.mapToGlobal(widget.rect().center()));
}

/// Gives the X server what xdotool is told to, while our event loop runs.
/// @return whether it was done
inline bool asUser(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    return QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 20'000)
        && process.exitCode() == 0;
}

inline bool moveAsUser(const QWidget &window, int x, int y)
{
    return asUser({QStringLiteral("windowmove"), QString::number(window.winId()),
                   QString::number(x), QString::number(y)});
}

inline bool typeAsUser(const QString &text)
{
    return asUser({QStringLiteral("type"), text});
}

inline bool pressKeyAsUser(const QString &key)
{
    return asUser({QStringLiteral("key"), key});
}

inline bool pointAsUser(const QPoint &global)
{
    return asUser(
        {QStringLiteral("mousemove"), QString::number(global.x()), QString::number(global.y())});
}

/// Clicks with the button of that number, where the wheel is 4 and 5, at the pointer's place.
inline bool clickAsUser(int button, int count = 1)
{
    return asUser({QStringLiteral("click"), QStringLiteral("--repeat"), QString::number(count),
                   QStringLiteral("--delay"), QStringLiteral("20"), QString::number(button)});
}

inline bool pressAsUser(int button)
{
    return asUser({QStringLiteral("mousedown"), QString::number(button)});
}

inline bool releaseAsUser(int button)
{
    return asUser({QStringLiteral("mouseup"), QString::number(button)});
}

} // namespace Lumo::Test
