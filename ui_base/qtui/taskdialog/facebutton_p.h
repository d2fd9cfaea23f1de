// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

namespace Vela::UiToolkit {

/// A push button that may get less room than its text needs: it shows as much as fits, with an
/// ellipsis, and the whole text as its tool tip when it has none of its own. To meta-object and style
/// sheets it is a QPushButton.
class FaceButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString fittingText() const;
};

} // namespace Vela::UiToolkit
