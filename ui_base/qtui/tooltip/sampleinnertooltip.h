// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QWidget>

#include <memory>

namespace Vela::UiToolkit {

class SampleInnerTooltipPrivate;

/// A page for an extended tooltip, to be looked at before writing one: a form with a text and a
/// picture, given to TooltipExFactory as the advanced widget. Main thread only.
class LUMO_UI_BASE_EXPORT SampleInnerTooltip : public QWidget
{
    Q_OBJECT

public:
    /// The page in its size of 400 by 300 pixels.
    explicit SampleInnerTooltip(QWidget *parent = nullptr);
    ~SampleInnerTooltip() override;

protected:
    /// Paints nothing: the ground is that of the card.
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    /// Brings the texts of the new language on a change of language.
    void changeEvent(QEvent *event) override;

private:
    const std::unique_ptr<SampleInnerTooltipPrivate> d;
    Q_DISABLE_COPY(SampleInnerTooltip)
};

} // namespace Vela::UiToolkit
