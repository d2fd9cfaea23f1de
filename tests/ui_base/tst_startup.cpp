// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/messageguard.h"

#include <ui_base/EDirection>
#include <ui_base/EIconType>
#include <ui_base/StartUp>

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>

#include <memory>

using namespace Vela::UiBase;

namespace {

QString librarySheet()
{
    QFile file(QStringLiteral(":/qss/libuitoolkit.css"));
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(file.readAll())
                                                            : QString();
}

/// An application of its own for each test.
class StartUpTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_application = std::make_unique<QApplication>(m_argc, m_argv);
        // The platform may speak when it comes up.
        Lumo::Test::MessageGuard::instance().takeProblems();
    }

private:
    char m_name[6] = "start";
    char *m_argv[2] = {m_name, nullptr};
    int m_argc = 1;
    std::unique_ptr<QApplication> m_application;
};

TEST(StartUpAlone, doesNothingWithoutApplication)
{
    StartUp();
    char name[] = "start";
    char *arguments[] = {name, nullptr};
    int count = 1;
    const QCoreApplication application(count, arguments);
    StartUp();
}

TEST_F(StartUpTest, givesTheApplicationTheSheetOfTheLibrary)
{
    ASSERT_FALSE(librarySheet().isEmpty());
    EXPECT_TRUE(qApp->styleSheet().isEmpty());
    StartUp();
    EXPECT_EQ(qApp->styleSheet(), librarySheet());
}

TEST_F(StartUpTest, leavesTheSheetOfTheApplicationAlone)
{
    const QString own = QStringLiteral("QLabel { color: red; }");
    qApp->setStyleSheet(own);
    StartUp();
    EXPECT_EQ(qApp->styleSheet(), own);
}

TEST_F(StartUpTest, secondCallDoesNothing)
{
    StartUp();
    qApp->setStyleSheet(QString());
    StartUp();
    EXPECT_TRUE(qApp->styleSheet().isEmpty());
}

TEST_F(StartUpTest, registersTheMetatypes)
{
    StartUp();
    EXPECT_EQ(QMetaType::type("Vela::UiBase::EDirection"), qMetaTypeId<EDirection>());
    EXPECT_EQ(QMetaType::type("Vela::UiBase::EWidgetsAlign"), qMetaTypeId<EWidgetsAlign>());
    EXPECT_EQ(QMetaType::type("Vela::UiBase::EIconType"), qMetaTypeId<EIconType>());
}

} // namespace
