// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/messageguard.h"
#include "support/testmain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>

namespace {

class MessageListener : public ::testing::EmptyTestEventListener
{
    void OnTestStart(const ::testing::TestInfo &) override
    {
        Lumo::Test::MessageGuard::instance().install();
    }

    void OnTestEnd(const ::testing::TestInfo &) override
    {
        for (const QString &problem : Lumo::Test::MessageGuard::instance().takeProblems())
            ADD_FAILURE() << qPrintable(problem);
    }
};

} // namespace

// No application object is made here: a test that needs one makes it, so that a test can also live
// without one or see one end.
int main(int argc, char *argv[])
{
    Lumo::Test::prepareProcess();
    ::testing::InitGoogleMock(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new MessageListener);
    return RUN_ALL_TESTS();
}
