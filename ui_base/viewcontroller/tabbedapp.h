// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"
#include "ui_base/viewcontroller/baseviewcontroller.h"
#include "ui_base/viewcontroller/ivcapp.h"

#include <QPointer>

namespace Vela::UiBase {

/// An application module that fills a tab of its host with one view. A derived class makes the view
/// and assigns its controller to m_viewController.
class LUMO_UI_BASE_EXPORT TabbedApp : public IVCApp
{
public:
    TabbedApp();
    /// Ends the controller. Its view, if it has one, is closed, which the controller can't refuse,
    /// and deleted at once. A controller that somebody else shares lives on without a view.
    ~TabbedApp() override;

    /// The controller; null before one was assigned and after it has died, as it does with its
    /// view.
    BaseViewController *getVC() const override;

    /// The tab is about to be used. @return whether it can be; true by default
    virtual bool Init();
    /// The tab is to bring its content up to date. @return whether it changed; false by default
    virtual bool Update();
    /// The tab is to go back to how it was at first. Nothing by default.
    virtual void Reset();

protected:
    /// The controller, which the module ends; null at the start.
    QPointer<BaseViewController> m_viewController;

private:
    Q_DISABLE_COPY(TabbedApp)
};

} // namespace Vela::UiBase
