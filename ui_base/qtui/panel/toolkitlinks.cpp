// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// The toolkit's factory of flyouts. It stands here since the toolkit itself knows no panel.

#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/qtui/qtuitoolkit.h"

#include <new>

namespace Vela::UiBase {

FlyoutBase *QtUiToolkit::CreateFlyout(const QString &title, QWidget *mainPanel,
                                      QWidget *advancedPanel, bool closeButton, bool cancelButton,
                                      bool applyButton, bool resetButton, QWidget *parent) const
{
    try {
        return new FlyoutBase(title, mainPanel, advancedPanel, closeButton, cancelButton,
                              applyButton, resetButton, parent);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

FlyoutBase *QtUiToolkit::CreateFlyout(QWidget *parent, const QString &title, QWidget *mainPanel,
                                      const QString &infoText, bool closeButton, bool cancelButton,
                                      bool applyButton, bool resetButton,
                                      QWidget *advancedPanel) const
{
    try {
        return new FlyoutBase(parent, title, mainPanel, infoText, closeButton, cancelButton,
                              applyButton, resetButton, advancedPanel);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

} // namespace Vela::UiBase
