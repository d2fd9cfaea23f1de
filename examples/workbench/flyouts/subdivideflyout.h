// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "flyouts/meshpanelcommand.h"

class QSlider;

namespace Workbench {

/// Subdivides several times at once.
class SubdivideFlyout : public MeshPanelCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    explicit SubdivideFlyout(std::shared_ptr<MeshDocument> document);

    /// Refuses, and says so, when the mesh would become too large.
    bool onBeforeExecute() override;

protected:
    Operation operation() const override;

private:
    SubdivideFlyout(std::shared_ptr<MeshDocument> document, SettingsPanel *settings);

    QSlider *m_times;
};

} // namespace Workbench
