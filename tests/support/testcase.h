// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>

namespace Lumo::Test {

/// Base of Qt Test cases. Around every test function it installs the message guard, and afterwards
/// fails the function when an unannounced warning came or a top-level widget was left behind.
class TestCase : public QObject
{
    Q_OBJECT

protected:
    /// Announces one warning; the whole text has to match the regular expression @p pattern.
    static void expectMessage(const QString &pattern);

protected Q_SLOTS:
    void init();
    void cleanup();
};

} // namespace Lumo::Test
