// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/commandlinks_p.h"

#include "ui_base/viewcontroller/baseview.h"
#include "ui_base/viewcontroller/cmdsviewcontroller.h"

namespace Vela::UiBase::Internal {

QObject *objectOf(CmdsViewController *controller)
{
    return controller;
}

CmdMgr *managerOf(CmdsViewController *controller)
{
    return controller;
}

BaseView *viewOf(const CmdsViewController *controller)
{
    return controller->getView();
}

QWidget *widgetOf(const BaseView *view)
{
    return view->getQtWidget();
}

} // namespace Vela::UiBase::Internal
