// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tour/picture.h"
#include "tour/tourreport.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>

using namespace Workbench;

namespace {

QImage plain(const QColor &color)
{
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

QJsonObject reportIn(const QTemporaryDir &folder)
{
    QFile file(folder.filePath(QStringLiteral("report.json")));
    file.open(QIODevice::ReadOnly);
    return QJsonDocument::fromJson(file.readAll()).object();
}

/// Runs the program with @p arguments and gives what it printed to standard error.
std::string standardErrorOf(const QStringList &arguments, int *exitCode)
{
    QProcess program;
    program.start(QStringLiteral(WORKBENCH_PROGRAM), arguments);
    EXPECT_TRUE(program.waitForFinished(-1));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    *exitCode = program.exitCode();
    return program.readAllStandardError().toStdString();
}

} // namespace

TEST(Picture, equalPicturesHaveNoChange)
{
    EXPECT_EQ(changedShare(plain(Qt::white), plain(Qt::white)), 0.0);
}

TEST(Picture, countsWhatChanged)
{
    QImage other = plain(Qt::white);
    for (int x = 0; x < 10; ++x)
        other.setPixelColor(x, 3, Qt::black);
    EXPECT_DOUBLE_EQ(changedShare(plain(Qt::white), other), 0.1);
}

TEST(Picture, overlooksWhatNoEyeSees)
{
    EXPECT_EQ(changedShare(plain(QColor(100, 100, 100)), plain(QColor(102, 101, 100))), 0.0);
    EXPECT_EQ(changedShare(plain(QColor(100, 100, 100)), plain(QColor(100, 104, 100))), 1.0);
}

TEST(Picture, differentSizesAreAltogetherDifferent)
{
    EXPECT_EQ(changedShare(plain(Qt::white), plain(Qt::white).copy(0, 0, 5, 5)), 1.0);
    EXPECT_EQ(changedShare(QImage(), QImage()), 1.0);
}

TEST(Picture, knowsALightTop)
{
    QImage image = plain(Qt::black);
    for (int x = 0; x < 10; ++x)
        image.setPixelColor(x, 0, Qt::white);
    EXPECT_DOUBLE_EQ(topLight(image), 1.0);
    EXPECT_DOUBLE_EQ(topLight(plain(Qt::white)), 0.0);
}

TEST(TourReport, tellsWhatHeldAndWhatDidNot)
{
    const QTemporaryDir folder;
    TourReport report(folder.path());
    report.beginStep(QStringLiteral("Look at it"));
    report.check(QStringLiteral("one"), true);
    report.savePicture(plain(Qt::white));
    report.beginStep(QStringLiteral("Go"));
    testing::internal::CaptureStderr();
    report.check(QStringLiteral("two"), false);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "tour: Go: does not hold: two\n");
    EXPECT_FALSE(report.finish());

    const QJsonObject written = reportIn(folder);
    EXPECT_FALSE(written.value(QStringLiteral("held")).toBool(true));
    const QJsonArray steps = written.value(QStringLiteral("steps")).toArray();
    ASSERT_EQ(steps.size(), 2);
    EXPECT_EQ(steps[0][QStringLiteral("picture")].toString().toStdString(), "01-look-at-it.png");
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("01-look-at-it.png"))));
    EXPECT_EQ(steps[1][QStringLiteral("checks")].toArray().size(), 1);
}

TEST(TourReport, holdsWhenEveryCheckDoes)
{
    const QTemporaryDir folder;
    TourReport report(folder.path());
    report.beginStep(QStringLiteral("Go"));
    report.check(QStringLiteral("one"), true);
    EXPECT_TRUE(report.finish());
    EXPECT_TRUE(reportIn(folder).value(QStringLiteral("held")).toBool());
}

TEST(TourReport, aFolderThatCannotBeWrittenIsAFailure)
{
    TourReport report(QStringLiteral("/dev/null/tour"));
    testing::internal::CaptureStderr();
    EXPECT_FALSE(report.finish());
    EXPECT_NE(testing::internal::GetCapturedStderr().find("could not be written"),
              std::string::npos);
}

TEST(Tour, holdsWithoutOpenGlAndTellsBadFilesOnStandardError)
{
    const QTemporaryDir folder;
    int exitCode = -1;
    const std::string printed =
        standardErrorOf({QStringLiteral("--tour"), folder.path()}, &exitCode);
    EXPECT_EQ(exitCode, 0) << printed;
    EXPECT_NE(printed.find("missing.obj could not be read: there is no such file.\n"),
              std::string::npos);
    EXPECT_NE(printed.find("empty.stl could not be read: it is empty.\n"), std::string::npos);
    EXPECT_NE(printed.find("points.obj holds no faces.\n"), std::string::npos);
    const QJsonObject report = reportIn(folder);
    EXPECT_TRUE(report.value(QStringLiteral("held")).toBool());
    EXPECT_FALSE(report.value(QStringLiteral("graphics")).toBool(true));
}

TEST(Tour, ofAMissingFileFails)
{
    const QTemporaryDir folder;
    int exitCode = -1;
    standardErrorOf({QStringLiteral("--tour"), folder.path(), QStringLiteral("/missing.obj")},
                    &exitCode);
    EXPECT_EQ(exitCode, 1);
    EXPECT_FALSE(reportIn(folder).value(QStringLiteral("held")).toBool(true));
}

TEST(CommandLine, aTraceThatCannotBeWrittenIsToldAtOnce)
{
    int exitCode = -1;
    const std::string printed = standardErrorOf(
        {QStringLiteral("--trace"), QStringLiteral("/dev/null/trace.json")}, &exitCode);
    EXPECT_EQ(exitCode, 2);
    EXPECT_NE(printed.find("workbench: /dev/null/trace.json could not be written: "),
              std::string::npos);
}

TEST(CommandLine, twoFilesAreOneTooMany)
{
    int exitCode = -1;
    standardErrorOf({QStringLiteral("one.obj"), QStringLiteral("two.obj")}, &exitCode);
    EXPECT_EQ(exitCode, 2);
}

TEST(CommandLine, helpNamesEveryOption)
{
    QProcess program;
    program.start(QStringLiteral(WORKBENCH_PROGRAM), {QStringLiteral("--help")});
    ASSERT_TRUE(program.waitForFinished(-1));
    EXPECT_EQ(program.exitCode(), 0);
    const QByteArray help = program.readAllStandardOutput();
    for (const char *word : {"FILE", "--tour", "--trace", "--dark", "--help"})
        EXPECT_TRUE(help.contains(word)) << word;
}
