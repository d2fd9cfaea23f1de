// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands.h"

#include <ui_base/CommandGroup>
#include <ui_base/ToolBar>

#include <lumo_app_service/ApplicationService>

#include <QActionGroup>
#include <QMainWindow>

#include <memory>

class Window : public QMainWindow
{
public:
    Window()
    {
        // What floats follows the moves of the main window.
        Vela::Services::ApplicationService::GetInstance().setMainWindow(this);

        // The window owns the widget of the view, the view lives with it and owns the controller.
        auto *const view = new ShapeView(this);
        auto *const controller = new Vela::UiBase::CmdsViewController(view);
        setCentralWidget(view->getQtWidget());
        controller->pushTool(Vela::UiBase::eToolButtonLeft, std::make_shared<TurnTool>(view));

        // Checkable commands of a group exclude each other unless it is told otherwise.
        const auto group = std::make_shared<Vela::UiBase::CommandGroup>(QString(), QString(),
                                                                        QStringLiteral("shape"));
        group->groupActionGroup()->setExclusive(false);
        group->addCommand(new SmoothCommand(view, controller), 10);
        group->addCommand(new FilledCommand(view, controller), 20);

        // The bar makes the buttons. The controller owns the group from here on: it takes part in
        // its contexts and tells of its runs.
        auto *const bar = new Vela::UiBase::ToolBar(view->getQtWidget(), Qt::BottomToolBarArea);
        bar->SetOffset(QPoint(0, 10));
        bar->SetEnableAutoPosition(true);
        group->setToolbar(bar);
        bar->AddCommandGroup(group.get());
        controller->addCommand(group.get());
    }
};
