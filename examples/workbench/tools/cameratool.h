// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/InteractiveTool>

#include <QPointF>

#include <memory>

namespace Workbench {

class CameraRig;

/// A tool that moves the camera while its button is held and the mouse is dragged.
class CameraTool : public Vela::UiBase::InteractiveTool
{
public:
    CameraTool(Vela::UiBase::BaseView *view, std::shared_ptr<CameraRig> rig);

    /// Ends the drag, if there is one; what it has moved stays so.
    void finish();

    bool mouseMove(QMouseEvent *event) override;

protected:
    void startOperation() override;

    CameraRig &rig() const { return *m_rig; }

    /// The mouse has moved by @p pixels.
    virtual void drag(const QPointF &pixels) = 0;

private:
    const std::shared_ptr<CameraRig> m_rig;
    QPointF m_last;
};

} // namespace Workbench
