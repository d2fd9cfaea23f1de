// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <lumo_common_res/String>
#include <lumo_common_res/Styles>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>

#include <cstdlib>

using namespace Vela::Resource;

namespace {

/// Reads styles at its own end.
class LateReader
{
public:
    LateReader() = default;
    ~LateReader()
    {
        if (!Styles::Instance().MenuMain().contains(QLatin1String("QMenu")))
            std::abort();
    }
    LateReader(const LateReader &) = delete;
    LateReader &operator=(const LateReader &) = delete;
};

} // namespace

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

TEST(ResourcesDeathTest, StylesAnswerUntilTheProcessEnds)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // Made before the styles, so that it ends after whatever their own end would be.
    const auto readAtTheEnd = [] {
        static const LateReader lateReader;
        std::exit(Styles::Instance().MenuMain().isEmpty() ? 1 : 0);
    };
    EXPECT_EXIT(readAtTheEnd(), ::testing::ExitedWithCode(0), "");
}
