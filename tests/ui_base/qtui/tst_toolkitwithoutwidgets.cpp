// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/QtUiDebugger>
#include <ui_base/QtUiToolkit>

#include <gtest/gtest.h>

#include <QAction>
#include <QGuiApplication>
#include <QImage>

#include <memory>

using namespace Vela::UiBase;

namespace {

TEST(ToolkitWithoutApplication, debuggerShowsNothing)
{
    QtUiDebugger debugger;
    debugger.DumpWidgetUnderMouse();
}

/// An application that has no widgets, on a screen of the ratio 2.
class ToolkitWithoutWidgets : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        qputenv("QT_SCALE_FACTOR", "2");
        static char name[] = "tst";
        static char *arguments[] = {name, nullptr};
        static int count = 1;
        s_application = std::make_unique<QGuiApplication>(count, arguments);
    }
    static void TearDownTestSuite() { s_application.reset(); }

private:
    inline static std::unique_ptr<QGuiApplication> s_application;
};

TEST_F(ToolkitWithoutWidgets, disabledIconLooksAsTheNormalOne)
{
    const QIcon icon = QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_open"));
    const QImage normal = icon.pixmap(48).toImage();
    ASSERT_EQ(normal.size(), QSize(48, 48));
    EXPECT_EQ(icon.pixmap(48, QIcon::Disabled).toImage(), normal);
}

TEST_F(ToolkitWithoutWidgets, debuggerShowsNothing)
{
    QtUiDebugger debugger;
    debugger.DumpWidgetUnderMouse();
}

} // namespace
