// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/floatinglayer.h"
#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/qtui/qtuitoolkit.h"
#include "ui_base/toolbar/menubutton.h"
#include "ui_base/toolbar/toolbarutil.h"
#include "ui_base/toolbar/toolbuttonwithbuttonmenu.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu.h"

#include <QAction>
#include <QPixmap>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

namespace Lumo::Test {

/// An icon of one colour, with another one for the pointer being over it.
inline QIcon iconOf(const QColor &normal, const QColor &active = {})
{
    QPixmap picture(32, 32);
    picture.fill(normal);
    QIcon icon;
    icon.addPixmap(picture, QIcon::Normal, QIcon::On);
    icon.addPixmap(picture, QIcon::Normal, QIcon::Off);
    picture.fill(active.isValid() ? active : normal);
    icon.addPixmap(picture, QIcon::Active, QIcon::On);
    icon.addPixmap(picture, QIcon::Active, QIcon::Off);
    return icon;
}

/// The colour in the middle of what the button shows.
inline QColor colourOf(const QAbstractButton &button)
{
    const QPixmap picture = button.icon().pixmap(button.iconSize(), QIcon::Normal, QIcon::On);
    return picture.isNull() ? QColor() : picture.toImage().pixelColor(picture.rect().center());
}

/// A shown window with a vertical bar at its left, on which the tests put buttons with menus.
class MenuScene
{
public:
    explicit MenuScene(Qt::ToolBarArea area = Qt::LeftToolBarArea)
        : window(std::make_unique<QWidget>())
        , bar(new MenuBar(window.get(), area))
    {
        window->resize(800, 600);
        window->show();
        bar->move(10, 200);
        if (!QTest::qWaitForWindowActive(window.get()))
            qFatal("The window does not come up.");
    }

    /// Makes an action that dies with the scene.
    QAction *action(const QString &text = {}, bool checkable = false,
                    const QColor &colour = Qt::red)
    {
        actions.push_back(std::make_unique<QAction>(iconOf(colour), text));
        actions.back()->setCheckable(checkable);
        return actions.back().get();
    }

    /// Makes a floating bar, as menus are.
    MenuBar *menu(Qt::ToolBarArea area = Qt::TopToolBarArea) const
    {
        auto *const made = new MenuBar(window.get(), area);
        Vela::UiBase::FloatingLayer::makeWidgetFloating(made, QMargins());
        return made;
    }

    /// Adds a button with a menu to the bar.
    Vela::UiBase::ToolButtonWithButtonMenu *addMenu(Vela::UiBase::ToolBar *menu,
                                                    const QIcon &icon = iconOf(Qt::gray)) const
    {
        return bar->AddAction(nullptr, icon, menu, true, QStringLiteral("menus"));
    }

    /// Makes a flyout with a panel of a fixed size.
    Vela::UiBase::FlyoutBase *flyout() const
    {
        auto *const panel = new QWidget;
        panel->setFixedSize(120, 40);
        return Vela::UiBase::QtUiToolkit::Instance().CreateFlyout(
            QStringLiteral("Smooth"), panel, nullptr, true, true, true, false, window.get());
    }

    std::vector<std::unique_ptr<QAction>> actions;
    std::unique_ptr<QWidget> window;
    QPointer<MenuBar> bar;
};

} // namespace Lumo::Test
