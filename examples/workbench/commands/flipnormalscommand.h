// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CommandBase>

#include <memory>

namespace Workbench {

class MeshDocument;

/// Turns the mesh inside out. That is quick, so it happens in place on the main thread.
class FlipNormalsCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT
    COMMAND_ID

public:
    explicit FlipNormalsCommand(std::shared_ptr<MeshDocument> document);

    bool onExecuteAsync(bool checked) override;

private:
    const std::shared_ptr<MeshDocument> m_document;
};

} // namespace Workbench
