// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <lumo_common_res/Fonts>
#include <lumo_common_res/Styles>

#include <gtest/gtest.h>

#include <QString>

#include <limits>

using Vela::Resource::Fonts;
using Vela::Resource::Styles;

TEST(Fonts, RunningTextIsTwelvePixelsWithoutALanguage)
{
    EXPECT_EQ(Styles::Instance().Font().FontPixelSize12Value(1, QString()), 12);
}

TEST(Fonts, SizeGrowsWithTheScale)
{
    EXPECT_EQ(Fonts().FontPixelSize12Value(2, QString()), 24);
    EXPECT_EQ(Fonts().FontPixelSize12Value(3, QStringLiteral("ja_JP")), 39);
}

TEST(Fonts, ScaleBelowOneCountsAsOne)
{
    EXPECT_EQ(Fonts().FontPixelSize12Value(0, QString()), 12);
    EXPECT_EQ(Fonts().FontPixelSize12Value(std::numeric_limits<int>::min(), QString()), 12);
}

TEST(Fonts, DenseScriptsGetOnePixelMore)
{
    for (const char *language : {"zh", "zh_CN", "zh_TW", "ja", "ko_KR"})
        EXPECT_EQ(Fonts().FontPixelSize12Value(1, QString::fromLatin1(language)), 13) << language;
    for (const char *language : {"de", "en_US", "ru_RU", "ar", "no such language"})
        EXPECT_EQ(Fonts().FontPixelSize12Value(1, QString::fromLatin1(language)), 12) << language;
}
