// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <lumo_common_res/String>
#include <lumo_common_res/Styles>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>

using namespace Vela::Resource;

TEST(ResourcesWithoutApplication, StylesAnswer)
{
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    Styles &styles = Styles::Instance();
    EXPECT_FALSE(styles.ToolButtonOnToolPalette().isEmpty());
    EXPECT_EQ(styles.ColorActionPanelGroupBack(), QColor(0xF0, 0xF0, 0xF0));
    EXPECT_EQ(styles.ApplicationPalette().color(QPalette::Window), QColor(0xF0, 0xF0, 0xF0));
    EXPECT_FALSE(styles.ApplicationStyleSheet().isEmpty());
}

TEST(ResourcesWithoutApplication, TextsAreEnglish)
{
    EXPECT_EQ(String::OK_BUTTON_TEXT.toString(), QStringLiteral("OK"));
}

TEST(ResourcesWithoutApplication, ImagesAreThere)
{
    EXPECT_EQ(Styles::Instance().Palette(), EPalette::Light);
    EXPECT_TRUE(QFile::exists(QStringLiteral(":/resources/images/sys_close.png")));
}
