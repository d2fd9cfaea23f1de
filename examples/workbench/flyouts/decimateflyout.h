// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "flyouts/meshpanelcommand.h"

class QCheckBox;
class QSlider;

namespace Workbench {

/// Brings the mesh to fewer faces in nearly the same shape.
class DecimateFlyout : public MeshPanelCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    explicit DecimateFlyout(std::shared_ptr<MeshDocument> document);

protected:
    Operation operation() const override;

private:
    DecimateFlyout(std::shared_ptr<MeshDocument> document, SettingsPanel *settings,
                   SettingsPanel *details);

    QSlider *m_kept;
    QSlider *m_error;
    QCheckBox *m_keepsRim;
};

} // namespace Workbench
