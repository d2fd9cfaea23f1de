// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/backgroundcommand.h"

namespace Workbench {

class ImageDocument;

/// In which direction of the folder.
enum class EImageStep {
    Previous,
    Next
};

/// Opens the image before or after the present one in its folder, in the background. Files that
/// can't be read are passed over, and told to the document as problems.
class StepImageCommand : public BackgroundCommand
{
    Q_OBJECT

public:
    StepImageCommand(std::shared_ptr<ImageDocument> document, EImageStep step);

    /// The class with the name of the step, since two commands have the same class.
    const QString commandId() const override;

protected:
    Work prepare() override;
    void handleOutOfMemory() override;

private:
    const std::shared_ptr<ImageDocument> m_document;
    const EImageStep m_step;
};

} // namespace Workbench
