// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QApplication>
#include <QTest>

namespace Lumo::Test {

/// Sets what every test program needs before its application object: the offscreen platform when
/// none is asked for, and line-buffered output, which the leak checker would otherwise cut off.
void prepareProcess();

} // namespace Lumo::Test

/// The main function of a Qt Test program with a QApplication and the test object @p TestClass.
#define LUMO_TEST_MAIN(TestClass)                                                                  \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        Lumo::Test::prepareProcess();                                                              \
        QApplication application(argc, argv);                                                      \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
