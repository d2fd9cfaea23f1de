// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tools/selectiontool.h"

#include <QRect>

namespace Workbench {

/// Draws a rubber band and selects the faces that are seen inside it.
class BandTool : public SelectionTool
{
public:
    BandTool(Vela::UiBase::BaseView *view, SelectionScene scene);

    bool mouseMove(QMouseEvent *event) override;
    bool mouseRelease(QMouseEvent *event) override;

protected:
    void endOperation() override;

private:
    void showBand(const QRect &band);
    QRect bandTo(const QPoint &position) const;
};

} // namespace Workbench
