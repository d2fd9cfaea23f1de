// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QSize>
#include <QWidget>

namespace Vela::UiBase {

/// A widget that is only there to carry a layout, as a panel of a tool bar does. Main thread only.
class LUMO_UI_BASE_EXPORT LayoutBaseWidget : public QWidget
{
    Q_OBJECT

public:
    explicit LayoutBaseWidget(QWidget *parent = nullptr);
    ~LayoutBaseWidget() override;

    /// A size in logical pixels that whoever lays the widget out may keep with it. The widget itself
    /// neither sets nor reads it; invalid until it is set.
    QSize layoutSize;

private:
    Q_DISABLE_COPY(LayoutBaseWidget)
};

} // namespace Vela::UiBase
