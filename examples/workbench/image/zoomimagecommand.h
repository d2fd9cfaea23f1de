// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CommandBase>

namespace Workbench {

/// What becomes of the scale of an image.
enum class EImageZoom {
    Fit,
    OriginalSize,
    In,
    Out
};

/// Changes the scale of the image in the view of its controller. There is one command for each way.
class ZoomImageCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT

public:
    explicit ZoomImageCommand(EImageZoom zoom);

    /// The class with the name of the way, since several commands have the same class.
    const QString commandId() const override;

    bool onExecuteAsync(bool checked) override;

private:
    const EImageZoom m_zoom;
};

} // namespace Workbench
