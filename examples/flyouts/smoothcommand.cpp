// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "smoothcommand.h"

#include "reliefview.h"
#include "smoothpanel.h"

#include <ui_base/CmdsViewController>
#include <ui_base/CommandContext>
#include <ui_base/FlyoutBase>
#include <ui_base/QtUiToolkit>
#include <ui_base/TooltipExFactory>

#include <lumo_common_res/Styles>
#include <tessel/dispatch.h>

#include <QKeyEvent>
#include <QToolButton>

using namespace Vela::UiBase;

const QString changesTheRelief = QStringLiteral("changes the relief");

// 1. The panel is put together once, and shown and hidden many times.
FlyoutBase *SmoothCommand::makePanel(QWidget *window)
{
    auto *const panel = QtUiToolkit::Instance().CreateFlyout(window, tr("Smooth"), new SmoothPanel,
                                                             tr("Works on the whole relief"), true,
                                                             false, true, true, new SmoothDetails);
    // This form of the factory leaves the face of the reset button to its caller.
    panel->findChild<QToolButton *>(QStringLiteral("reset_button"))
        ->setStyleSheet(Vela::Resource::Styles::Instance().ToolButtonSystem().arg(
            QStringLiteral(":/resources/images/sys_reset.png"),
            QStringLiteral(":/resources/images/sys_reset_hover.png")));
    // While it is busy, the apply button is the one to cancel with.
    panel->SetToggleApplyButtonEnabled(true);
    panel->EnableInfoButton(
        true,
        TooltipExFactory::GetInstance().CreateExtendedTooltip(
            window, {}, {},
            tr("Each pass pulls every vertex towards its neighbours, and back a little "
               "further if the volume is to be kept."),
            true, 300, ATooltipEx::EWidgetExVisibility::ExAlwaysShown,
            QStringLiteral("InfoDialog")));
    return panel;
}

// 2. The base follows apply, close, reset and Escape of the panel. What a cancel means is up to us.
SmoothCommand::SmoothCommand(FlyoutBase *panel, ReliefView *view, CmdsViewController *controller)
    : FlyoutCommand(panel, controller)
    , m_view(view)
{
    setText(tr("Smooth"));
    setToolTip(tr("Take the noise out of the relief"));
    setCheckable(true);
    setShortcut(QKeySequence(Qt::CTRL + Qt::Key_M));
    setExecutionNotificationMessage(ENotification::ExecutionBegan, tr("Smoothing the relief"));
    setExecutionNotificationMessage(ENotification::ExecutionEnded, tr("The relief is smoother."));
    connect(panel, &FlyoutBase::CancelChanges, this, &SmoothCommand::stop);
    panel->installEventFilter(this);
}

// 3. Begin and end come in pairs, whether the button, the key, the panel or another command closes it.
void SmoothCommand::onBegin()
{
    if (isActive())
        return;
    setIsActive(true);
    m_atBegin = m_view ? m_view->relief() : Relief();
    FlyoutCommand::onBegin();
}

void SmoothCommand::onFinalize()
{
    if (!isActive())
        return;
    setIsActive(false);
    stop();
    setChecked(false); // calls onFinalize() again, which returns at once
    FlyoutCommand::onFinalize();
}

// 4. While the panel is open, the relief is ours.
CommandContext SmoothCommand::getBeginCommandContext() const
{
    return getViewController()->disabledContext(changesTheRelief);
}

// 5. Apply: the settings are read on the main thread, and the worker gets copies.
bool SmoothCommand::onBeforeExecute()
{
    if (!flyout() || !m_view || m_run)
        return false;
    const auto *const settings = static_cast<SmoothPanel *>(flyout()->MainPanel());
    const auto *const details = static_cast<SmoothDetails *>(flyout()->AdvancedPanel());
    m_run = std::make_shared<Run>();
    m_run->relief = m_view->relief();
    m_run->settings = {settings->passes(), details->keepsRim(), details->keepsVolume()};
    flyout()->OnEnterBusyMode();
    return true;
}

bool SmoothCommand::onExecuteAsync(bool)
{
    const std::shared_ptr<Run> run = m_run;
    const auto report = [this, run](double share) {
        const auto show = [this, share] { showProgress(share); };
        Tessel::dispatchAsync(show, Tessel::EQualityOfService::Main);
        return !run->isStopped;
    };
    const Relief result = smoothed(run->relief, run->settings, report);
    // The base keeps the command alive until it has announced the end, which is posted after this.
    return Tessel::dispatchAsync([this, result] { takeOver(result); },
                                 Tessel::EQualityOfService::Main);
}

void SmoothCommand::showProgress(double share) const
{
    if (flyout())
        static_cast<SmoothPanel *>(flyout()->MainPanel())->setProgress(share);
}

void SmoothCommand::takeOver(const Relief &result)
{
    if (!m_run->isStopped && m_view)
        m_view->setRelief(result);
    m_run.reset();
    showProgress(0);
    if (flyout())
        flyout()->OnExitBusyMode();
}

void SmoothCommand::stop()
{
    if (m_run)
        m_run->isStopped = true;
}

// 6. Reset: the panel has put its settings back by itself; the relief is what it was at the begin.
void SmoothCommand::onReset()
{
    if (flyout())
        static_cast<SmoothDetails *>(flyout()->AdvancedPanel())->reset();
    if (m_view && !m_run && isActive())
        m_view->setRelief(m_atBegin);
}

// 7. Escape stops the work, and without work closes the panel, wherever the focus is: in the panel,
// or in the view, whose input comes here first.
void SmoothCommand::onESCKeyReleased()
{
    if (m_run)
        stop();
    else
        onExitCommand();
}

bool SmoothCommand::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyRelease
        || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
        return FlyoutCommand::eventFilter(watched, event);
    Q_EMIT flyout()->ESCKeyReleased();
    return true;
}

bool SmoothCommand::keyRelease(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        return false;
    onESCKeyReleased();
    return true;
}
