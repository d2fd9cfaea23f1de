// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/FlyoutCommand>

#include <QPointer>

namespace Workbench {

/// A command with a panel that opens beneath its button.
///
/// Its begin and end come in pairs whatever opens or closes the panel, and Escape closes it from the
/// panel and from the view. The command stands in an exclusive group, since contexts nest and so one
/// panel has to go before the next one comes. The panel belongs to its button once there is one, and
/// to the command as long as nobody has it.
class PanelCommand : public Vela::UiBase::FlyoutCommand
{
    Q_OBJECT

public:
    ~PanelCommand() override;

    void onBegin() override;
    void onFinalize() override;

    /// Escape belongs to the command while its panel is open.
    bool keyRelease(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The command has begun or ended.
    void activeChanged(bool isActive);

protected:
    /// A checkable command without a controller.
    explicit PanelCommand(Vela::UiBase::FlyoutBase *panel);

    /// Sets the title of the panel.
    void setTitle(const QString &title);
    /// Sets the icon to a drawing of the program's own, which the library has no picture of.
    void setDrawing(const QString &name);

    /// Closes the panel.
    void onESCKeyReleased() override;

private:
    const QPointer<QWidget> m_panel;
};

} // namespace Workbench
