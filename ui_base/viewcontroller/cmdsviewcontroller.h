// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/cmdmgr.h"
#include "ui_base/uibaseexport.h"
#include "ui_base/viewcontroller/baseviewcontroller.h"

namespace Vela::UiBase {

/// The controller of a view that has commands: a view controller that is the manager of these
/// commands as well. Main thread only, apart from what CmdMgr allows.
class LUMO_UI_BASE_EXPORT CmdsViewController : public BaseViewController, public CmdMgr
{
    Q_OBJECT

public:
    /// Makes a view with a window of its own, which owns the controller from now on.
    CmdsViewController();
    /// Hands the controller to @p view, which owns it from now on. With null it has no view and
    /// belongs to the caller.
    explicit CmdsViewController(BaseView *view);
    /// Lets go of the commands. The ones that others own too have no controller afterwards.
    ~CmdsViewController() override;

    /// A shared pointer to this controller; adopts one that nobody owns yet.
    std::shared_ptr<CmdsViewController> shared_from_this();

private:
    Q_DISABLE_COPY(CmdsViewController)
};

} // namespace Vela::UiBase
