// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/InteractiveTool>

#include <QPointF>

namespace Workbench {

class ImageView;

/// Drags an image that is larger than its view.
class ImagePanTool : public Vela::UiBase::InteractiveTool
{
public:
    /// @param view a view whose widget is an ImageView
    explicit ImagePanTool(Vela::UiBase::BaseView *view);

    /// Ends the drag, if there is one.
    void finish();

    bool mouseMove(QMouseEvent *event) override;

protected:
    void startOperation() override;

private:
    QPointF m_last;
};

} // namespace Workbench
