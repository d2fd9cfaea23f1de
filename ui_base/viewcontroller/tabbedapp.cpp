// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/tabbedapp.h"

#include "ui_base/viewcontroller/baseview.h"

#include <QWidget>

namespace Vela::UiBase {

TabbedApp::TabbedApp() = default;

TabbedApp::~TabbedApp()
{
    if (!m_viewController)
        return;
    // Adopts a controller that nobody owns, and so ends it below.
    std::shared_ptr<BaseViewController> controller = m_viewController->shared_from_this();
    const QPointer<QWidget> widget = m_viewController->getQtWidget();
    m_viewController->close();
    controller.reset();
    // The code of the module may be unloaded next, so the widget can't wait for the event loop.
    delete widget.data();
}

BaseViewController *TabbedApp::getVC() const
{
    return m_viewController;
}

bool TabbedApp::Init()
{
    return true;
}

bool TabbedApp::Update()
{
    return false;
}

void TabbedApp::Reset() { }

} // namespace Vela::UiBase
