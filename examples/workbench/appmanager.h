// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commandset.h"

#include <lumo_app_service/IAppManager>

#include <QString>

#include <functional>

namespace Workbench {

class ImageDocument;
class MeshDocument;
class MessageLog;
class Preferences;

/// Knows which commands belong to which view controller. It registers itself with the application
/// service as long as it lives.
class AppManager : public Vela::Services::IAppManager
{
public:
    /// Asks the user for a file; an empty path means that he changed his mind.
    using Chooser = std::function<QString()>;

    AppManager(const std::shared_ptr<MeshDocument> &document,
               const std::shared_ptr<ImageDocument> &images, Chooser openChooser,
               Chooser saveChooser, Chooser imageChooser);
    ~AppManager() override;

    const CommandSet &commandSet() const { return m_commands; }
    /// What the program has said since the manager was made.
    const std::shared_ptr<MessageLog> &log() const { return m_log; }
    /// What the user has chosen; the defaults at first.
    const std::shared_ptr<Preferences> &preferences() const { return m_preferences; }

    QString applicationName() const override;

    /// The groups for the controller of the mesh, or the one for that of the image, for which they
    /// work from now on; nothing for any other.
    QList<Vela::UiBase::CommandBase *> commands(
        Vela::UiBase::CmdsViewController *controller) override;

    AppManager(const AppManager &) = delete;
    AppManager &operator=(const AppManager &) = delete;

private:
    void makeCommands(const std::shared_ptr<MeshDocument> &document, Chooser openChooser,
                      Chooser saveChooser);
    void makeDisplayCommands();
    void makeGroups();
    void makeViewingGroups();
    void nameDisplayCommands();

    const std::shared_ptr<MessageLog> m_log;
    const std::shared_ptr<Preferences> m_preferences;
    CommandSet m_commands;
};

} // namespace Workbench
