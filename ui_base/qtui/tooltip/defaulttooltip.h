// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QString>
#include <QWidget>

#include <memory>

class QColor;

namespace Vela::UiBase {

class DefaultTooltipPrivate;

/// A content of plain text for a tooltip whose text changes: connect
/// TooltipWrapper::UpdateTooltipText() to onUpdateTooltip(). It is always as large as its text. For
/// a text that stays, ATooltipObject::CreateTooltipControl() will do. Main thread only.
class LUMO_UI_BASE_EXPORT DefaultTooltip : public QWidget
{
    Q_OBJECT

public:
    /// An empty white one.
    explicit DefaultTooltip(QWidget *parent = nullptr);
    ~DefaultTooltip() override;

    /// Sets the colour of the background, which the frame of the tooltip takes over when the
    /// content is given to it. The label keeps the one of the style sheet. All other colours of the
    /// palette are reset.
    void SetBackgroundColor(const QColor &color);

public Q_SLOTS:
    /// Shows this text from now on.
    void onUpdateTooltip(QString tooltipText);

private:
    const std::unique_ptr<DefaultTooltipPrivate> d;
    Q_DISABLE_COPY(DefaultTooltip)
};

} // namespace Vela::UiBase
