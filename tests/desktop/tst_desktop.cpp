// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testcase.h"
#include "support/testmain.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

// The desktop that the tests of this folder rely on: a window manager that activates, minimises and
// restores, which Qt's offscreen platform does not do.
class tst_Desktop : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theWindowSystemIsX11()
    {
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));
    }

    void oneWindowIsActiveAtATime()
    {
        QWidget first;
        first.show();
        QVERIFY(QTest::qWaitForWindowActive(&first));
        QWidget second;
        second.show();
        QVERIFY(QTest::qWaitForWindowActive(&second));
        QTRY_VERIFY(!first.isActiveWindow());

        first.activateWindow();
        QTRY_VERIFY(first.isActiveWindow());
        QTRY_VERIFY(!second.isActiveWindow());
    }

    void aMinimisedWindowIsNotExposed()
    {
        QWidget window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.showMinimized();
        QTRY_VERIFY(!window.windowHandle()->isExposed());
        window.showNormal();
        QTRY_VERIFY(window.windowHandle()->isExposed());
    }
};

LUMO_TEST_MAIN(tst_Desktop)
#include "tst_desktop.moc"
