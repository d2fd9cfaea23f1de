// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/commandbag.h"

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

namespace Vela::UiBase {

/// Finds by id what CommandBase::getCommand() of each command in a bag would give, without asking
/// all of them for each id. It knows the commands as they were when it was made and keeps them alive.
///
/// Commands of classes that find commands in a way of their own are asked as ever.
class CommandIndex
{
public:
    explicit CommandIndex(const CommandBag &bag);

    /// Whether no bag of the process changed by its operations since the index was made.
    bool isCurrent() const;

    /// Appends the commands that the entries of the bag give for @p id, in the order of the bag. One that
    /// nobody owns is not kept alive.
    void find(const QString &id, std::vector<std::shared_ptr<CommandBase>> &found) const;

private:
    struct Hit
    {
        std::shared_ptr<CommandBase> command;
        std::size_t position;
        int next;
    };
    struct Asked
    {
        std::shared_ptr<CommandBase> command;
        std::size_t position;
    };

    void addEntry(const std::shared_ptr<CommandBase> &command, std::size_t position);
    void addHits(const std::shared_ptr<CommandBase> &command, std::size_t position);

    unsigned m_generation;
    QHash<QString, int> m_first;
    std::vector<Hit> m_hits;
    // Last entry of the bag first, as the index is built.
    std::vector<Asked> m_asked;
};

} // namespace Vela::UiBase
