// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/recordingobservers.h"
#include "ui_base/command/commandcontext.h"
#include "ui_base/viewcontroller/baseview.h"
#include "ui_base/viewcontroller/cmdsviewcontroller.h"

#include <QPointer>
#include <QWidget>

#include <functional>

namespace Lumo::Test {

/// A command whose id and object name are given, and whose work is a function.
class TestCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT

public:
    explicit TestCommand(const QString &id, Vela::UiBase::CmdsViewController *controller = nullptr)
        : CommandBase(controller)
        , m_id(id)
    {
        setObjectName(id);
    }
    ~TestCommand() override
    {
        if (ended)
            ended();
    }

    const QString commandId() const override { return m_id; }
    bool onExecuteAsync(bool checked) override { return work ? work(checked) : true; }
    void saveCommandState() override
    {
        ++saves;
        if (saved)
            saved();
    }
    void restoreCommandState() override { ++restores; }

    std::function<bool(bool checked)> work;
    std::function<void()> ended;
    std::function<void()> saved;
    Vela::UiBase::CommandContext executionContext;
    int saves = 0;
    int restores = 0;

protected:
    Vela::UiBase::CommandContext getExecutionCommandContext() const override
    {
        return executionContext;
    }

private:
    QString m_id;
};

/// A view with a window and a controller that manages commands; ends with this object.
class ControllerFixture
{
public:
    ControllerFixture()
        : m_view(new Vela::UiBase::BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags()))
        , m_controller(new Vela::UiBase::CmdsViewController(m_view))
    { }
    ~ControllerFixture() { end(); }

    /// Ends the widget, and with it the view and the controller.
    void end()
    {
        if (m_view)
            delete m_view->getQtWidget();
    }

    Vela::UiBase::BaseView *view() const { return m_view; }
    Vela::UiBase::CmdsViewController *controller() const { return m_controller; }

    /// Makes a command that the controller manages.
    TestCommand *add(const QString &id)
    {
        auto *const command = new TestCommand(id, m_controller);
        m_controller->addCommand(command);
        return command;
    }

    ControllerFixture(const ControllerFixture &) = delete;
    ControllerFixture &operator=(const ControllerFixture &) = delete;

private:
    QPointer<Vela::UiBase::BaseView> m_view;
    QPointer<Vela::UiBase::CmdsViewController> m_controller;
};

} // namespace Lumo::Test
