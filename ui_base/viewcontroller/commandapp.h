// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"
#include "ui_base/viewcontroller/iapp.h"

#include <QList>

namespace Vela::UiBase {

class CmdsViewController;
class CommandBase;

/// An application module that brings commands and no view of its own.
class LUMO_UI_BASE_EXPORT CommandApp : public IApp
{
public:
    ~CommandApp() override;

    /// Makes the module's commands for @p controller, anew at each call and in the order in which
    /// they are to be added. Nobody owns them yet: CmdMgr::addCommand() adopts them.
    virtual QList<CommandBase *> CreateCommands(CmdsViewController *controller) = 0;

protected:
    CommandApp();

    /// Does nothing and answers success: commands need no preparation.
    Orrin::Core::ERcmStatus Initialize() override;
    /// Does nothing.
    void Terminate() override;
};

} // namespace Vela::UiBase
