// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/panelcommand.h"

#include <ui_base/FlyoutBase>
#include <ui_base/QtUiToolkit>

#include <QKeyEvent>

namespace Workbench {

using namespace Vela::UiBase;

PanelCommand::PanelCommand(FlyoutBase *panel)
    : FlyoutCommand(panel, nullptr)
    , m_panel(panel)
{
    setCheckable(true);
    panel->installEventFilter(this);
}

PanelCommand::~PanelCommand()
{
    if (m_panel && !m_panel->parent())
        delete m_panel.data();
}

void PanelCommand::setTitle(const QString &title)
{
    if (flyout())
        flyout()->SetTitle(title);
}

void PanelCommand::setDrawing(const QString &name)
{
    setIcon(QtUiToolkit::Instance().CreateIcon(name, this, EIconType::IconSvg, QSize(24, 24)));
}

void PanelCommand::onBegin()
{
    if (isActive())
        return;
    setIsActive(true);
    FlyoutCommand::onBegin();
    Q_EMIT activeChanged(true);
}

void PanelCommand::onFinalize()
{
    if (!isActive())
        return;
    setIsActive(false);
    setChecked(false); // comes back here, and leaves at once
    FlyoutCommand::onFinalize();
    Q_EMIT activeChanged(false);
}

void PanelCommand::onESCKeyReleased()
{
    onExitCommand();
}

bool PanelCommand::keyRelease(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        return false;
    onESCKeyReleased();
    return true;
}

bool PanelCommand::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyRelease)
        return FlyoutCommand::eventFilter(watched, event);
    return PanelCommand::keyRelease(static_cast<QKeyEvent *>(event));
}

} // namespace Workbench
