// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "relief.h"

#include <ui_base/FlyoutCommand>

#include <QPointer>

#include <atomic>
#include <memory>

class ReliefView;

/// The tag of the commands that have to wait while a panel is open.
extern const QString changesTheRelief;

/// Smooths the relief with the settings of its panel. The panel is busy while the work is done;
/// Escape, or the apply button, which reads as cancel then, stops it. Nothing else is to change the
/// relief while the panel is open.
class SmoothCommand : public Vela::UiBase::FlyoutCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    /// @param panel made by makePanel(), not owned
    SmoothCommand(Vela::UiBase::FlyoutBase *panel, ReliefView *view,
                  Vela::UiBase::CmdsViewController *controller);

    /// The panel of the command, with a hidden card of information as a child of @p window.
    static Vela::UiBase::FlyoutBase *makePanel(QWidget *window);

    void onBegin() override;
    void onFinalize() override;
    void onReset() override;
    bool onBeforeExecute() override;
    bool onExecuteAsync(bool checked) override;
    Vela::UiBase::CommandContext getBeginCommandContext() const override;
    bool keyRelease(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Stops the work, if there is any.
    void stop();

protected:
    void onESCKeyReleased() override;

private:
    /// What a run shares with its worker.
    struct Run
    {
        Relief relief;
        SmoothSettings settings;
        std::atomic<bool> isStopped {false};
    };

    void showProgress(double share) const;
    void takeOver(const Relief &result);

    const QPointer<ReliefView> m_view;
    Relief m_atBegin;
    std::shared_ptr<Run> m_run;
};
