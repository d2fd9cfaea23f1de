// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/windowsize_p.h"

#include <QWidget>
#include <QWindow>

#include <cmath>

namespace Vela::UiBase::Internal {

void claimSize(QWidget &window, const QSize &size)
{
    QWindow *const handle = window.windowHandle();
    const qreal ratio = window.devicePixelRatioF();
    if (handle && ratio != std::floor(ratio))
        handle->setBaseSize(size); // what steps are counted from
}

} // namespace Vela::UiBase::Internal
