// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/scenecommand.h"
#include "view/appearance.h"

namespace Workbench {

/// Draws something besides the surface as long as it is checked. There is one command for each
/// attribute; they stand in a group of which any number can be checked.
class AttributeCommand : public SceneCommand
{
    Q_OBJECT

public:
    explicit AttributeCommand(EAttribute attribute);

    /// The class with the name of the attribute, since several commands have the same class.
    const QString commandId() const override;

    EAttribute attribute() const { return m_attribute; }

protected:
    void apply(MeshViewController &controller, bool checked) override;

private:
    const EAttribute m_attribute;
};

} // namespace Workbench
