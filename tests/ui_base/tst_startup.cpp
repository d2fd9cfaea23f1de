// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/messageguard.h"

#include <ui_base/StartUp>

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QMetaType>

#include <memory>

using namespace Vela::UiBase;

namespace {

QString platform = QStringLiteral("offscreen"); // what the application says it runs on

QString librarySheet()
{
    QFile file(QStringLiteral(":/qss/libuitoolkit.css"));
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(file.readAll())
                                                            : QString();
}

/// Has the application say that it runs on the platform @p name, while alive.
class PlatformName
{
public:
    explicit PlatformName(const char *name) { platform = QString::fromLatin1(name); }
    ~PlatformName() { platform = QStringLiteral("offscreen"); }
    PlatformName(const PlatformName &) = delete;
    PlatformName &operator=(const PlatformName &) = delete;
};

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

TEST_F(StartUpTest, warnsOnceThatNativeWaylandPlacesNoPopups)
{
    auto &guard = Lumo::Test::MessageGuard::instance();
    const PlatformName wayland("wayland-egl");
    guard.expect(QStringLiteral("lumo_ui_base: .*Wayland.*QT_QPA_PLATFORM=xcb"));
    StartUp();
    EXPECT_EQ(guard.takeProblems(), QStringList());
    StartUp();
}

TEST_F(StartUpTest, doesNotWarnOnOtherPlatforms)
{
    const PlatformName xcb("xcb");
    StartUp();
}

TEST_F(StartUpTest, registersTheMetatypes)
{
    StartUp();
    // Asking for qMetaTypeId() would register them here.
    for (const char *name :
         {"Vela::UiBase::EDirection", "Vela::UiBase::EWidgetsAlign", "Vela::UiBase::EIconType"}) {
        EXPECT_NE(QMetaType::type(name), QMetaType::UnknownType) << name;
    }
}

} // namespace

// Stands in front of Qt's own function, so that no other platform is needed here.
QString QGuiApplication::platformName()
{
    return platform;
}
