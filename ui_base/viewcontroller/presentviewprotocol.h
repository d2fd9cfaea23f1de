// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/delegator.h"
#include "ui_base/uibaseexport.h"

namespace Vela::UiBase {

class BaseViewController;

/// The side from which a presented controller is to come in. The library keeps it with the
/// controller and moves nothing: a delegate that animates the presentation may read it.
enum ETransitionDirection : int {
    eTransitionFromLeft = 0,   ///< comes in from the left
    eTransitionFromTop = 1,    ///< comes in from the top
    eTransitionFromRight = 2,  ///< comes in from the right
    eTransitionFromBottom = 3, ///< comes in from the bottom
    eTransitionNone = 4        ///< appears in its place; also of a controller that is not presented
};

/// Takes the presentation of view controllers over, such as to animate it. Set it with
/// setDelegate() on the presenting controller, and on the presented one to take over its dismissal.
/// Asked on the main thread; with several observers the first answer counts. Both operations
/// decline by default. Copying or moving an observer copies no registration.
class LUMO_UI_BASE_EXPORT PresentViewProtocol
{
public:
    PresentViewProtocol() = default;
    PresentViewProtocol(const PresentViewProtocol &other) = default;
    PresentViewProtocol(PresentViewProtocol &&other) = default;
    virtual ~PresentViewProtocol();

    PresentViewProtocol &operator=(const PresentViewProtocol &other) = default;
    PresentViewProtocol &operator=(PresentViewProtocol &&other) = default;

    /// @p controller is to be presented by the controller that this delegate is set on.
    /// @return true to take the request over: the library does nothing more then
    virtual bool presentViewController(BaseViewController *controller,
                                       ETransitionDirection direction);
    /// The controller that this delegate is set on is to be dismissed.
    /// @return true to take the request over: the library does nothing more then
    virtual bool dismissViewController();
};

} // namespace Vela::UiBase

extern template class Tessel::Broadcaster<Vela::UiBase::PresentViewProtocol>;
extern template class Tessel::Delegator<Vela::UiBase::PresentViewProtocol>;
