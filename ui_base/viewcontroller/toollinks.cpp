// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/tool/toollinks_p.h"

#include "ui_base/viewcontroller/baseview.h"

namespace Vela::UiBase::Internal {

QObject *objectOf(BaseView *view)
{
    return view;
}

} // namespace Vela::UiBase::Internal
