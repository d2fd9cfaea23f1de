// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_common_res/Styles>

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

using Vela::Resource::EPalette;
using Vela::Resource::Styles;

namespace {

const QString SOURCE_DIR = QStringLiteral(LUMO_SOURCE_DIR);
const QString IMAGES_DIR = SOURCE_DIR + "/platform/common_res/images";
const QString PREFIX = QStringLiteral(":/resources/images/");

struct SNamedSize
{
    const char *name;
    QSize size;
};

const SNamedSize SYSTEM_IMAGES[] {
    {"sys_checkbox_mixed", {16, 16}},
    {"sys_checkbox_off", {16, 16}},
    {"sys_checkbox_on", {16, 16}},
    {"sys_close", {20, 20}},
    {"sys_close_18", {18, 18}},
    {"sys_close_hover", {20, 20}},
    {"sys_close_hover_18", {18, 18}},
    {"sys_create_icon_hover_48x48", {48, 48}},
    {"sys_hseparator", {2, 36}},
    {"sys_info_16x16", {16, 16}},
    {"sys_issue_ignore", {16, 16}},
    {"sys_menu_check", {16, 16}},
    {"sys_menu_check_hover", {16, 16}},
    {"sys_menu_left", {16, 16}},
    {"sys_menu_left_hover", {16, 16}},
    {"sys_menu_right", {16, 16}},
    {"sys_menu_right_hover", {16, 16}},
    {"sys_message_box_button_no", {16, 16}},
    {"sys_message_box_button_yes", {16, 16}},
    {"sys_message_box_error", {40, 40}},
    {"sys_message_box_exclamation", {40, 40}},
    {"sys_message_box_info", {40, 40}},
    {"sys_message_box_question", {40, 40}},
    {"sys_panel_collapse", {16, 16}},
    {"sys_panel_expand", {16, 16}},
    {"sys_radio_off", {16, 16}},
    {"sys_radio_on", {16, 16}},
    {"sys_reset", {18, 18}},
    {"sys_reset_hover", {18, 18}},
    {"sys_sample", {240, 150}},
    {"sys_vseparator", {36, 2}},
};

const char *const COMMANDS[] {
    "close",    "compare", "decimate", "fit",       "flip_normals", "help",      "info", "measure",
    "open",     "orbit",   "pan",      "pick",      "points",       "redo",      "save", "select",
    "settings", "shaded",  "smooth",   "subdivide", "undo",         "wireframe", "zoom",
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString commandImage(const char *command, const char *state, const char *suffix = ".png")
{
    return PREFIX + "cmd_" + command + state + suffix;
}

double luminance(const QColor &color)
{
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

/// The colour that most opaque pixels of a picture have.
QColor lineColor(const QImage &image)
{
    QHash<QRgb, int> count;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255)
                ++count[image.pixel(x, y)];
        }
    }
    const auto most = std::max_element(count.cbegin(), count.cend());
    return most == count.cend() ? QColor() : QColor(most.key());
}

/// The ground of hovered and checked tool buttons.
QColor hoverPlate()
{
    const QRegularExpression rule("QToolButton:hover[^{]*\\{[^}]*background-color: (#\\w+)");
    return QColor(rule.match(Styles::Instance().ToolButtonOnToolPalette()).captured(1));
}

/// How far two pictures of the same size are apart, per channel, from 0 to 255.
double meanDifference(const QImage &a, const QImage &b)
{
    qint64 sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        const uchar *left = a.constScanLine(y);
        const uchar *right = b.constScanLine(y);
        for (int i = 0; i < a.width() * 4; ++i)
            sum += std::abs(left[i] - right[i]);
    }
    return double(sum) / (a.width() * a.height() * 4);
}

/// Whether the resources hold an image that the text of a source file names. A place for an
/// argument ("%1") stands for any text, and a name without an extension is the base name of a
/// command's states.
bool isImageThere(const QString &name)
{
    if (name.contains('%')) {
        QString pattern = QRegularExpression::escape(name);
        pattern.replace(QRegularExpression("\\\\%\\d"), ".+");
        const QRegularExpression match(QRegularExpression::anchoredPattern(pattern));
        return !QDir(PREFIX).entryList().filter(match).isEmpty();
    }
    return QFile::exists(PREFIX + name) || QFile::exists(PREFIX + name + "_normal.png");
}

/// File and name of each image that the sources below @p folder mention.
QStringList imagesNamedBelow(const QString &folder)
{
    const QRegularExpression literal(":/resources/images/([\\w%.@-]+)");
    QStringList found;
    QDirIterator files(SOURCE_DIR + '/' + folder, {"*.h", "*.cpp", "*.ui", "*.css"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        auto names = literal.globalMatch(QString::fromUtf8(contentOf(path)));
        while (names.hasNext())
            found << path + '\n' + names.next().captured(1);
    }
    return found;
}

} // namespace

class tst_Images : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void imageHasItsSizeAtEveryRatio_data();
    void imageHasItsSizeAtEveryRatio();
    void iconIsSharpAtTheRatioOfTheApplication_data();
    void iconIsSharpAtTheRatioOfTheApplication();
    void imageKeepsClearOfItsEdges_data();
    void imageKeepsClearOfItsEdges();
    void commandStatesDiffer_data();
    void commandStatesDiffer();
    void commandIsLegibleInBothPalettes_data();
    void commandIsLegibleInBothPalettes();
    void commandDrawingLooksTheSameInQt_data();
    void commandDrawingLooksTheSameInQt();
    void neutralSignsAreLegibleInBothPalettes();
    void tablesNameEveryImage();
    void everyImageNamedInTheSourcesExists();
    void mastersAreValidSvg();
    void renderedFilesBelongToTheirMasters();
};

namespace {

void addImages()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");
    for (const SNamedSize &image : SYSTEM_IMAGES)
        QTest::newRow(image.name) << QString(image.name) << image.size;
    for (const char *command : COMMANDS) {
        for (const char *state : {"_normal", "_active"}) {
            const QString name = QString("cmd_") + command + state;
            QTest::newRow(qPrintable(name)) << name << QSize(24, 24);
        }
    }
}

void addCommands()
{
    QTest::addColumn<QString>("command");
    for (const char *command : COMMANDS)
        QTest::newRow(command) << QString(command);
}

} // namespace

// Without any symbol of the library used the linker could leave it out, and its images with it.
void tst_Images::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCOMPARE(Styles::Instance().Palette(), EPalette::Light);
}

void tst_Images::imageHasItsSizeAtEveryRatio_data()
{
    addImages();
}

void tst_Images::imageHasItsSizeAtEveryRatio()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QCOMPARE(QImage(PREFIX + name + ".png").size(), size);
    for (int ratio : {2, 3}) {
        const QString path = PREFIX + QString("%1@%2x.png").arg(name).arg(ratio);
        QVERIFY2(QFile::exists(path), qPrintable(path));
        QCOMPARE(QImage(path).size(), size * ratio);
    }
}

void tst_Images::iconIsSharpAtTheRatioOfTheApplication_data()
{
    addImages();
}

void tst_Images::iconIsSharpAtTheRatioOfTheApplication()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    const int ratio = qRound(qApp->devicePixelRatio());
    const QString suffix = ratio > 1 ? QString("@%1x.png").arg(ratio) : QString(".png");
    const QPixmap pixmap = QIcon(PREFIX + name + ".png").pixmap(size);
    QCOMPARE(pixmap.devicePixelRatio(), qreal(ratio));
    QCOMPARE(pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied),
             QPixmap(PREFIX + name + suffix)
                 .toImage()
                 .convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void tst_Images::imageKeepsClearOfItsEdges_data()
{
    QTest::addColumn<QString>("name");
    for (const char *command : COMMANDS)
        QTest::newRow(command) << QString("cmd_") + command + "_normal";
    for (const SNamedSize &image : SYSTEM_IMAGES) {
        const bool isFilled = QString(image.name).contains(QRegularExpression("separator|sample"));
        if (!isFilled && !QString(image.name).startsWith("sys_close_hover"))
            QTest::newRow(image.name) << QString(image.name);
    }
}

void tst_Images::imageKeepsClearOfItsEdges()
{
    QFETCH(QString, name);
    const QImage image = QImage(PREFIX + name + "@3x.png").convertToFormat(QImage::Format_ARGB32);
    const QRect inside = image.rect().adjusted(3, 3, -3, -3);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QVERIFY(inside.contains(x, y) || qAlpha(image.pixel(x, y)) == 0);
    }
}

void tst_Images::commandStatesDiffer_data()
{
    addCommands();
}

void tst_Images::commandStatesDiffer()
{
    QFETCH(QString, command);
    const QByteArray name = command.toLatin1();
    QCOMPARE(lineColor(QImage(commandImage(name, "_normal@2x"))), QColor("#5383B5"));
    QCOMPARE(lineColor(QImage(commandImage(name, "_active@2x"))), QColor("#2965A3"));
}

void tst_Images::commandIsLegibleInBothPalettes_data()
{
    addCommands();
}

// 3 is what WCAG asks of signs.
void tst_Images::commandIsLegibleInBothPalettes()
{
    QFETCH(QString, command);
    const QByteArray name = command.toLatin1();
    const QColor normal = lineColor(QImage(commandImage(name, "_normal@2x")));
    const QColor active = lineColor(QImage(commandImage(name, "_active@2x")));
    for (EPalette palette : {EPalette::Light, EPalette::Dark}) {
        Styles::Instance().SetPalette(palette);
        QVERIFY(contrast(normal, Styles::Instance().ColorActionPanelGroupBack()) >= 3.0);
        QVERIFY(contrast(active, hoverPlate()) >= 3.0);
    }
    Styles::Instance().SetPalette(EPalette::Light);
}

void tst_Images::commandDrawingLooksTheSameInQt_data()
{
    addCommands();
}

void tst_Images::commandDrawingLooksTheSameInQt()
{
    QFETCH(QString, command);
    const QByteArray name = command.toLatin1();
    for (const char *state : {"_normal", "_active"}) {
        const QByteArray large = QByteArray(state) + "@3x";
        const QImage png =
            QImage(commandImage(name, large)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QSvgRenderer renderer(commandImage(name, state, ".svg"));
        QVERIFY(renderer.isValid());
        QCOMPARE(renderer.defaultSize(), QSize(24, 24));
        QImage drawn(png.size(), QImage::Format_ARGB32_Premultiplied);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        renderer.render(&painter);
        painter.end();
        const double difference = meanDifference(png, drawn);
        QVERIFY2(difference < 2.0, qPrintable(QString::number(difference)));
    }
}

void tst_Images::neutralSignsAreLegibleInBothPalettes()
{
    for (const char *name :
         {"sys_close", "sys_close_18", "sys_reset", "sys_menu_right", "sys_menu_left",
          "sys_menu_check", "sys_panel_expand", "sys_panel_collapse", "sys_info_16x16",
          "sys_message_box_error", "sys_message_box_exclamation", "sys_message_box_info",
          "sys_message_box_question"}) {
        const QColor color = lineColor(QImage(PREFIX + name + "@2x.png"));
        for (EPalette palette : {EPalette::Light, EPalette::Dark}) {
            Styles::Instance().SetPalette(palette);
            const double ratio = contrast(color, Styles::Instance().ColorActionPanelGroupBack());
            QVERIFY2(ratio >= 3.0, name);
        }
        Styles::Instance().SetPalette(EPalette::Light);
    }
}

void tst_Images::tablesNameEveryImage()
{
    const int pictures = int(std::size(SYSTEM_IMAGES)) + 2 * int(std::size(COMMANDS));
    QCOMPARE(QDir(PREFIX).entryList({"*.png"}).size(), 3 * pictures);
    QCOMPARE(QDir(PREFIX).entryList({"*.svg"}).size(), 2 * int(std::size(COMMANDS)));
}

void tst_Images::everyImageNamedInTheSourcesExists()
{
    QVERIFY(!imagesNamedBelow("platform").isEmpty());
    QStringList missing;
    for (const char *folder : {"platform", "core", "ui_base", "examples"}) {
        for (const QString &entry : imagesNamedBelow(folder)) {
            if (!isImageThere(entry.section('\n', 1)))
                missing << entry;
        }
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join('\n')));
    QVERIFY(isImageThere("sys_close_%1.png"));
    QVERIFY(isImageThere("cmd_open"));
    QVERIFY(!isImageThere("sys_none_%1.png"));
    QVERIFY(!isImageThere("sys_none.png"));
}

void tst_Images::mastersAreValidSvg()
{
    const QDir masters(IMAGES_DIR + "/svg");
    QVERIFY(!masters.entryList({"*.svg"}).isEmpty());
    for (const QString &name : masters.entryList({"*.svg"}))
        QVERIFY2(QSvgRenderer(masters.filePath(name)).isValid(), qPrintable(name));
}

// A master that was changed without a run of render.py, and a rendered file that was changed by
// hand, show by their checksum.
void tst_Images::renderedFilesBelongToTheirMasters()
{
    const QStringList lines =
        QString::fromUtf8(contentOf(IMAGES_DIR + "/manifest.txt")).split('\n', Qt::SkipEmptyParts);
    QStringList listed;
    for (const QString &line : lines) {
        const QString path = line.section(' ', 1, 1);
        const QByteArray content = contentOf(IMAGES_DIR + '/' + path);
        const QByteArray hash = QCryptographicHash::hash(content, QCryptographicHash::Sha256);
        QVERIFY2(QString(hash.toHex()) == line.section(' ', 0, 0), qPrintable(path));
        listed << path;
    }
    for (const char *folder : {"svg", "png", "states"}) {
        for (const QString &name : QDir(IMAGES_DIR + '/' + folder).entryList(QDir::Files))
            QVERIFY2(listed.contains(QString(folder) + '/' + name), qPrintable(name));
    }
}

LUMO_TEST_MAIN(tst_Images)

#include "tst_images.moc"
