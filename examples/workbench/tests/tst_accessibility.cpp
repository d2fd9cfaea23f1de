// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mainwindow.h"

#include "support/accessibletree.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QApplication>
#include <QPushButton>

using namespace Workbench;

class AccessibilityTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // As the program does: the view is the only native widget.
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }

    void windowHasNoNamelessControl()
    {
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(Lumo::Test::controlCount(window) > 20);
        QCOMPARE(Lumo::Test::namelessControls(window), QStringList());
    }

    void walkFindsANamelessControl()
    {
        MainWindow window;
        auto *const button = new QPushButton(&window);
        button->setObjectName(QStringLiteral("nameless"));
        const QStringList found = Lumo::Test::namelessControls(window);
        QCOMPARE(found.size(), 1);
        QVERIFY2(found.first().endsWith(QLatin1String("QPushButton#nameless")),
                 qPrintable(found.first()));
    }
};

LUMO_TEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
