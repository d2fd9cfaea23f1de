// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "flyouts/meshpanelcommand.h"

#include <QPointer>

class QSlider;

namespace Workbench {

/// Smooths with steps and strengths that the user sets.
class SmoothFlyout : public MeshPanelCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    explicit SmoothFlyout(std::shared_ptr<MeshDocument> document);

protected:
    Operation operation() const override;

private:
    SmoothFlyout(std::shared_ptr<MeshDocument> document, SettingsPanel *settings,
                 SettingsPanel *details);

    void renewExplanation();

    QSlider *m_steps;
    QSlider *m_pull;
    QSlider *m_push;
    QPointer<QWidget> m_explanation;
};

} // namespace Workbench
