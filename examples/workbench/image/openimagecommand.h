// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/backgroundcommand.h"

#include <QString>

namespace Workbench {

class ImageDocument;

/// Reads an image from a file, in the background. A file that can't be read is told to the document
/// as a problem, and what was open stays open.
class OpenImageCommand : public BackgroundCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    /// Asks the user for a file; an empty path means that he changed his mind.
    using Chooser = std::function<QString()>;

    OpenImageCommand(std::shared_ptr<ImageDocument> document, Chooser chooser);

    /// Runs the command on the file at @p path, without asking.
    /// @return false when a file is being read already
    bool open(const QString &path);

protected:
    Work prepare() override;
    void handleOutOfMemory() override;

private:
    const std::shared_ptr<ImageDocument> m_document;
    const Chooser m_chooser;
    QString m_path; // what open() was told, and empty otherwise
};

} // namespace Workbench
