// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testcase.h"

#include "support/messageguard.h"

#include <QApplication>
#include <QTest>
#include <QWidget>

namespace Lumo::Test {

void TestCase::expectMessage(const QString &pattern)
{
    MessageGuard::instance().expect(pattern);
}

void TestCase::init()
{
    MessageGuard::instance().install();
    MessageGuard::instance().takeProblems();
}

void TestCase::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QStringList problems = MessageGuard::instance().takeProblems();
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    if (qobject_cast<QApplication *>(QCoreApplication::instance())) {
        QStringList left;
        for (const QWidget *widget : QApplication::topLevelWidgets())
            left << QString::fromLatin1(widget->metaObject()->className());
        QVERIFY2(left.isEmpty(),
                 qPrintable(QStringLiteral("left: ") + left.join(QLatin1Char(' '))));
    }
}

} // namespace Lumo::Test
