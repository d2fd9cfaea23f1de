// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/recordingobservers.h"
#include "ui_base/command/commandcontext.h"
#include "ui_base/command/flyoutcommand.h"
#include "ui_base/command/testcommand.h"
#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/qtui/qtuitoolkit.h"
#include "ui_base/qtui/tooltip/infodialog.h"
#include "ui_base/qtui/tooltip/tooltipexfactory.h"
#include "ui_base/toolbar/toolbar.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu.h"
#include "ui_base/viewcontroller/baseview.h"
#include "ui_base/viewcontroller/cmdsviewcontroller.h"

#include <lumo_app_service/ApplicationService>

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QSemaphore>
#include <QTest>
#include <QVBoxLayout>

#include <atomic>
#include <memory>

namespace Lumo::Test {

/// Settings of a host, which hear of the reset.
class RoadSettings : public QWidget
{
    Q_OBJECT

public:
    RoadSettings() { setFixedSize(200, 60); }

Q_SIGNALS:
    void ResetValues();
};

/// A command with a panel as a host writes it: begin and end in pairs, busy while it works, and Escape
/// stops the work or closes the panel. The work lasts until it is let end or stopped.
class RoadCommand : public Vela::UiBase::FlyoutCommand
{
    Q_OBJECT

public:
    RoadCommand(Vela::UiBase::FlyoutBase *flyout, Vela::UiBase::CmdsViewController *controller,
                const QString &id)
        : FlyoutCommand(flyout, controller)
        , panel(flyout)
        , m_id(id)
    {
        setObjectName(id);
        setText(id);
        connect(flyout, &Vela::UiBase::FlyoutBase::CancelChanges, this, &RoadCommand::stop);
        flyout->installEventFilter(this);
    }

    const QString commandId() const override { return m_id; }
    Vela::UiBase::CommandContext getBeginCommandContext() const override { return beginContext; }

    void onBegin() override
    {
        if (isActive())
            return;
        // Contexts nest, so the panel that is open goes first.
        const auto running = getViewController()->runningCommand();
        if (auto *const other = qobject_cast<FlyoutCommand *>(running.get()))
            other->onExitCommand();
        setIsActive(true);
        FlyoutCommand::onBegin();
    }
    void onFinalize() override
    {
        if (!isActive())
            return;
        setIsActive(false);
        stop();
        setChecked(false);
        FlyoutCommand::onFinalize();
    }
    void onReset() override { ++resets; }

    bool onBeforeExecute() override
    {
        if (m_isRunning)
            return false;
        m_isRunning = true;
        wasStopped = false;
        panel->OnEnterBusyMode();
        return true;
    }
    bool onExecuteAsync(bool) override
    {
        ++worksBegun;
        m_gate.acquire();
        const auto takeOver = [this] {
            m_isRunning = false;
            if (panel)
                panel->OnExitBusyMode();
        };
        return Tessel::dispatchAsync(takeOver, Tessel::EQualityOfService::Main);
    }

    bool keyRelease(QKeyEvent *event) override
    {
        if (event->key() != Qt::Key_Escape)
            return false;
        onESCKeyReleased();
        return true;
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::KeyRelease
            || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
            return FlyoutCommand::eventFilter(watched, event);
        Q_EMIT panel->ESCKeyReleased();
        return true;
    }

    bool isRunning() const { return m_isRunning; }
    void letWorkEnd() { m_gate.release(); }
    void stop()
    {
        if (!m_isRunning || wasStopped)
            return;
        wasStopped = true;
        letWorkEnd();
    }

    const QPointer<Vela::UiBase::FlyoutBase> panel;
    QPointer<Vela::UiBase::ToolButtonWithWidgetMenu> button;
    Vela::UiBase::CommandContext beginContext;
    std::atomic<int> worksBegun {0};
    bool wasStopped = false;
    int resets = 0;

protected:
    void onESCKeyReleased() override
    {
        if (m_isRunning)
            stop();
        else
            onExitCommand();
    }

private:
    const QString m_id;
    QSemaphore m_gate;
    bool m_isRunning = false;
};

/// A window with a bar above a view: two commands with panels, "smooth", which holds "save", and
/// "measure", which holds "export"; and those two, of which "save" has a button.
class FlyoutRoad
{
public:
    explicit FlyoutRoad(bool checkable = true)
        : window(std::make_unique<QWidget>())
        , bar(new Vela::UiBase::ToolBar(window.get(), Qt::TopToolBarArea))
        , view(new Vela::UiBase::BaseView(window.get(), Qt::Widget))
        , controller(new Vela::UiBase::CmdsViewController(view))
    {
        window->setGeometry(100, 100, 700, 600);
        Vela::Services::ApplicationService::GetInstance().setMainWindow(window.get());
        auto *const column = new QVBoxLayout(window.get());
        column->addWidget(bar);
        column->addWidget(view->getQtWidget(), 1);
        Vela::UiBase::ArrowedWindow::SArrowParam arrow;
        arrow.position = Vela::UiBase::EArrowPosition::Top;
        arrow.length = 10;
        bar->SetButtonDefaultMenuParameters(true, arrow, 2, Vela::UiBase::EDirection::Bottom,
                                            Vela::UiBase::EWidgetsAlign::AlignStart, QPoint());
        save = addPlain(QStringLiteral("save"));
        exportCommand = addPlain(QStringLiteral("export"));
        smooth = add(QStringLiteral("smooth"), *save, checkable);
        measure = add(QStringLiteral("measure"), *exportCommand, checkable);
        saveButton = bar->AddAction(save, QStringLiteral("mesh"));
        smooth->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_M));
        addInformation();
        bar->AdjustToolBarSize(true);
        bar->setFixedSize(bar->childrenRect().size());
        m_recorder = std::make_shared<CommandRecorder>(log);
        smooth->addObserver(m_recorder, false);
    }
    ~FlyoutRoad()
    {
        window.reset();
        Vela::Services::ApplicationService::GetInstance().setMainWindow(nullptr);
    }

    /// Shows the window if it is not, and makes it the active one.
    bool isReady()
    {
        window->show();
        window->activateWindow();
        return QTest::qWaitFor([this] { return QApplication::activeWindow() == window.get(); });
    }

    /// Opens the panel by a click, and waits until the context holds.
    void open(RoadCommand &command)
    {
        QTest::mouseClick(command.button, Qt::LeftButton);
        settle();
        log.take();
        QVERIFY(command.panel->isVisible());
    }

    /// Runs what is posted, and what that posts.
    void settle()
    {
        for (int turn = 0; turn < 4; ++turn) {
            bool done = false;
            const auto mark = [&done] { done = true; };
            Tessel::dispatchAsync(mark, Tessel::EQualityOfService::Main);
            QTRY_VERIFY(done);
            QCoreApplication::sendPostedEvents();
        }
    }

    std::unique_ptr<QWidget> window;
    QPointer<Vela::UiBase::ToolBar> bar;
    QPointer<Vela::UiBase::BaseView> view;
    QPointer<Vela::UiBase::CmdsViewController> controller;
    QPointer<TestCommand> save;
    QPointer<TestCommand> exportCommand;
    QPointer<RoadCommand> smooth;
    QPointer<RoadCommand> measure;
    QPointer<Vela::UiBase::ToolButton> saveButton;
    QPointer<QWidget> info;
    EventLog log;

    FlyoutRoad(const FlyoutRoad &) = delete;
    FlyoutRoad &operator=(const FlyoutRoad &) = delete;

private:
    TestCommand *addPlain(const QString &id)
    {
        auto *const command = new TestCommand(id, controller);
        command->setText(id);
        controller->addCommand(command);
        return command;
    }

    RoadCommand *add(const QString &id, const TestCommand &held, bool checkable)
    {
        auto *const details = new QWidget;
        details->setFixedSize(200, 50);
        auto *const flyout = Vela::UiBase::QtUiToolkit::Instance().CreateFlyout(
            window.get(), id, new RoadSettings, id, true, true, true, true, details);
        auto *const command = new RoadCommand(flyout, controller, id);
        command->setCheckable(checkable);
        command->beginContext.overwrite(held.commandId(),
                                        {Vela::UiBase::State::Off, Vela::UiBase::State::Keep});
        controller->addCommand(command);
        command->button = bar->AddAction(command, flyout, QStringLiteral("mesh"));
        QObject::connect(bar, &Vela::UiBase::ToolBar::ButtonMenuVisibilityChange, command,
                         [command](const Vela::UiBase::ToolButton *button, bool isVisible) {
                             if (button == command->button && !isVisible)
                                 command->onFinalize();
                         });
        return command;
    }

    void addInformation()
    {
        using namespace Vela::UiBase;
        info = TooltipExFactory::GetInstance().CreateExtendedTooltip(
            window.get(), {}, {}, QStringLiteral("What the settings are for."), true, 300,
            ATooltipEx::EWidgetExVisibility::ExAlwaysShown, QStringLiteral("InfoDialog"));
        smooth->panel->EnableInfoButton(true, info);
    }

    std::shared_ptr<CommandRecorder> m_recorder;
};

inline QRect onScreen(const QWidget &widget)
{
    return {widget.mapToGlobal(QPoint()), widget.size()};
}

inline void clickOn(QWidget *widget)
{
    QTest::mouseClick(widget, Qt::LeftButton);
}

inline QAbstractButton *part(const RoadCommand &command, const char *name)
{
    return command.panel->findChild<QAbstractButton *>(QLatin1String(name));
}

inline void clickPart(const RoadCommand &command, const char *name)
{
    clickOn(part(command, name));
}

} // namespace Lumo::Test
