// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace Lumo::Test {

/// Takes over Qt's message handler and keeps every warning and critical message that no test
/// announced, so that a stray warning fails the test that caused it. Usable from any thread.
class MessageGuard
{
public:
    static MessageGuard &instance();

    /// Puts the guard in front of the handler that is installed now.
    void install();

    /// Announces one message whose whole text matches @p pattern; it is swallowed once.
    void expect(const QString &pattern);

    /// The messages since the last call that nobody announced, and a line for each announced
    /// message that did not come. Forgets both.
    QStringList takeProblems();

private:
    MessageGuard() = default;
};

} // namespace Lumo::Test
