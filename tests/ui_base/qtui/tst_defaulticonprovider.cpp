// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/qtui/ratiowidget.h"

#include <ui_base/DefaultIconProvider>

#include <QAction>
#include <QDataStream>
#include <QIconEngine>
#include <QPainter>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTextCodec>
#include <QTimer>

#include <unistd.h>

#include <cstdio>
#include <memory>

using namespace Vela::UiBase;

namespace {

const QColor red(0xd0, 0x20, 0x20);
const QColor blue(0x20, 0x20, 0xd0);
const QColor green(0x20, 0xa0, 0x20);
const QColor olive(0xa0, 0xa0, 0x20);
const QColor white(Qt::white);

QString imagePath(const char *name)
{
    return QStringLiteral(":/resources/images/") + QLatin1String(name);
}

qreal ratio()
{
    return qApp->devicePixelRatio();
}

/// The colour in the middle of the picture that @p icon shows in @p mode.
QColor colorOf(const QIcon &icon, QIcon::Mode mode = QIcon::Normal)
{
    const QImage image = icon.pixmap(24, mode).toImage();
    return image.isNull() ? QColor() : image.pixelColor(image.rect().center());
}

/// All the pixels that @p icon has for @p size logical pixels at @p dpr.
QImage pixelsOf(const QIcon &icon, int size, qreal dpr, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(qRound(size * dpr), mode).toImage();
}

QSize probe(const QIcon &icon)
{
    return icon.actualSize(QSize(300, 300));
}

/// Catches what goes to the standard error stream while alive; the PNG library writes there and not
/// through Qt.
class CaughtErrors
{
public:
    CaughtErrors()
    {
        m_file.open();
        std::fflush(stderr);
        m_stderr = dup(fileno(stderr));
        dup2(m_file.handle(), fileno(stderr));
    }
    ~CaughtErrors()
    {
        std::fflush(stderr);
        dup2(m_stderr, fileno(stderr));
        close(m_stderr);
    }

    QByteArray text()
    {
        std::fflush(stderr);
        m_file.seek(0);
        return m_file.readAll();
    }

private:
    QTemporaryFile m_file;
    int m_stderr = -1;
};

/// Has text read as UTF-16 where nobody says otherwise, while alive.
class ForeignLocale
{
public:
    ForeignLocale() { QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-16LE")); }
    ~ForeignLocale() { QTextCodec::setCodecForLocale(m_own); }

private:
    QTextCodec *const m_own = QTextCodec::codecForLocale();
};

/// Counts the timer events of all objects but one.
class TimerEvents : public QObject
{
public:
    explicit TimerEvents(const QObject *exception)
        : m_exception(exception)
    {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        count += event->type() == QEvent::Timer && watched != m_exception;
        return false;
    }
    int count = 0;

private:
    const QObject *const m_exception;
};

/// The engine of an icon of 24 by 24 that knows the active mode only, and has no pictures.
class ActiveOnlyEngine : public QIconEngine
{
public:
    void paint(QPainter *, const QRect &, QIcon::Mode, QIcon::State) override { }
    QSize actualSize(const QSize &, QIcon::Mode mode, QIcon::State) override
    {
        return mode == QIcon::Active ? QSize(24, 24) : QSize();
    }
    QPixmap pixmap(const QSize &, QIcon::Mode, QIcon::State) override { return {}; }
    QIconEngine *clone() const override { return new ActiveOnlyEngine; }
};

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QPixmap filled(const QSize &size, const QColor &color)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return pixmap;
}

/// Lets icons multiply by the device pixel ratio themselves, while alive.
class HighDpiPixmaps
{
public:
    HighDpiPixmaps() { QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true); }
    ~HighDpiPixmaps() { QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, false); }
};

} // namespace

class TestDefaultIconProvider : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nameFindsTheFilesOfBothModes();
    void typeAndFilesAreRememberedOnTheAction();
    void withoutActiveFileTheIconHasTheNormalModeOnly();
    void activeFileOfAnEarlierIconIsForgotten();
    void nameWithSuffixIsAFileName_data();
    void nameWithSuffixIsAFileName();
    void missingFilesGiveAnEmptyIcon_data();
    void missingFilesGiveAnEmptyIcon();
    void damagedBitmapsGiveAnEmptyIcon_data();
    void damagedBitmapsGiveAnEmptyIcon();
    void damagedDrawingsAreTransparent_data();
    void damagedDrawingsAreTransparent();
    void drawingIsRenderedAtTheSizeAskedFor();
    void drawingWithoutSizeIsEmptyButRemembered();
    void drawingWithoutActiveFileHasTheNormalModeOnly();
    void unknownTypeTakesTheNameAsFile();
    void drawingIsReadAnewWhenItsFileChanges();
    void drawingIsRenderedAnewWhenABitmapInItChanges();
    void drawingIsReadAsUtf8InAnyLocale();
    void animatedDrawingRunsNoTimer();

    void updateOfNullActionIsIgnored();
    void updateScalesBothBitmapsOfTheAction();
    void updateKeepsTheProportionsOfABitmap();
    void updateStopsWhenTheIconHasTheSize();
    void updateLeavesActionsOfOthersAlone();
    void updateWithoutActiveFileKeepsOneMode();
    void updateOfAVanishedBitmapEmptiesTheIcon();
    void updateRendersBothDrawingsOfTheAction();
    void updateStopsWhenOnlyTheActivePictureHasTheSize();
    void updateToAnEmptySizeEmptiesTheIcon();
    void updateWithoutSizeRendersADrawingAtItsOwnSize();
    void updateWithoutSizeOfADrawingWithoutOneIsEmpty();
    void updateRendersADrawingAgainAtTheSameSize();

    void updatedIconIsScaledInBothModes();
    void updatedIconOfTheSameSizeIsACopy();
    void updateOfAnEmptyIconIsEmpty();
    void updateOfAnIconWithoutPictureIsACopy();
    void sizesAboveTheProbeCountAsTheProbe();

    void bitmapComesInTheResolutionOfTheScreen();
    void bitmapWithoutFinerFileStaysAsItIs();
    void drawingComesInTheResolutionOfTheScreen();
    void sizesOfIconsAreLogical_data();
    void sizesOfIconsAreLogical();
    void updatedIconComesInTheResolutionOfTheScreen();
    void screenOfTheActionsWidgetsDecides();
    void ratioBetweenWholeNumbersTakesTheFinerFile();
    void ratioBelowOneCountsAsOne();
    void iconPaintsInFullResolution();
    void iconOfFinePixelsGreysWhenDisabled();
    void greyFollowsThePalette();
    void iconOfFinePixelsFindsStandIns();
    void iconOfFinePixelsShowsTheActivePictureWhenThereIsNoOther();
    void iconOfFinePixelsTakesTheNearestSize();
    void iconOfFinePixelsScalesOnce();
    void iconOfFinePixelsIsStreamedWithItsPictures();
    void copyOfAnIconIsIndependent();
    void filesAddedToAFineIconKeepTheirSize();

private:
    QIcon fineIcon(const char *name, EIconType type = EIconType::IconSvg);

    DefaultIconProvider m_provider;
};

void TestDefaultIconProvider::nameFindsTheFilesOfBothModes()
{
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_both"));
    QCOMPARE(colorOf(icon, QIcon::Active), blue);
    QCOMPARE(pixelsOf(icon, 24, ratio()).pixelColor(0, 0), red);
    QVERIFY(icon.availableSizes(QIcon::Normal, QIcon::On).isEmpty());
    QCOMPARE(probe(icon), QSize(24, 24));
}

void TestDefaultIconProvider::typeAndFilesAreRememberedOnTheAction()
{
    QAction action;
    const QIcon icon =
        m_provider.CreateIcon(QStringLiteral("kit_both"), &action, EIconType::IconPng, QSize());
    QVERIFY(!icon.isNull());
    QVERIFY(action.icon().isNull());
    QCOMPARE(action.property("icon_type"), QVariant(0));
    QCOMPARE(action.property("icon_normal_resource"), QVariant(imagePath("kit_both_normal.png")));
    QCOMPARE(action.property("icon_active_resource"), QVariant(imagePath("kit_both_active.png")));
}

void TestDefaultIconProvider::withoutActiveFileTheIconHasTheNormalModeOnly()
{
    QAction action;
    const QIcon icon =
        m_provider.CreateIcon(QStringLiteral("kit_single"), &action, EIconType::IconPng, QSize());
    QCOMPARE(icon.availableSizes(QIcon::Normal).size(), 1);
    QVERIFY(icon.availableSizes(QIcon::Active).isEmpty());
    QVERIFY(!action.property("icon_active_resource").isValid());
}

void TestDefaultIconProvider::activeFileOfAnEarlierIconIsForgotten()
{
    QAction action;
    m_provider.CreateIcon(QStringLiteral("kit_both"), &action, EIconType::IconPng, QSize());
    m_provider.CreateIcon(QStringLiteral("kit_single"), &action, EIconType::IconPng, QSize());
    QVERIFY(!action.property("icon_active_resource").isValid());
    QVERIFY(!action.dynamicPropertyNames().contains("icon_active_resource"));
}

void TestDefaultIconProvider::nameWithSuffixIsAFileName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<EIconType>("type");
    QTest::addColumn<QColor>("color");
    QTest::newRow("png") << "kit_file.png" << EIconType::IconPng << olive;
    QTest::newRow("png in capitals") << "kit_Upper.PNG" << EIconType::IconPng << olive;
    QTest::newRow("svg") << "kit_alone_normal.svg" << EIconType::IconSvg << green;
}

void TestDefaultIconProvider::nameWithSuffixIsAFileName()
{
    QFETCH(QString, name);
    QFETCH(EIconType, type);
    QFETCH(QColor, color);
    QAction action;
    const QIcon icon = m_provider.CreateIcon(name, &action, type, QSize(24, 24));
    QCOMPARE(colorOf(icon, QIcon::Normal), color);
    QCOMPARE(colorOf(icon, QIcon::Active), color);
    const QString path = QStringLiteral(":/resources/images/") + name;
    QCOMPARE(action.property("icon_normal_resource").toString(), path);
    QCOMPARE(action.property("icon_active_resource").toString(), path);
}

void TestDefaultIconProvider::missingFilesGiveAnEmptyIcon_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<EIconType>("type");
    QTest::addColumn<QString>("path");
    const QString none;
    QTest::newRow("unknown bitmap") << "kit_nowhere" << EIconType::IconPng << none;
    QTest::newRow("unknown drawing") << "kit_nowhere" << EIconType::IconSvg << none;
    QTest::newRow("no name") << "" << EIconType::IconPng << none;
    QTest::newRow("no name, drawing") << "" << EIconType::IconSvg << none;
    QTest::newRow("bitmap of a drawing's name") << "kit_alone" << EIconType::IconPng << none;
    QTest::newRow("unknown bitmap file")
        << "kit_nowhere.png" << EIconType::IconPng << imagePath("kit_nowhere.png");
}

void TestDefaultIconProvider::missingFilesGiveAnEmptyIcon()
{
    QFETCH(QString, name);
    QFETCH(EIconType, type);
    QFETCH(QString, path);
    QAction action;
    QVERIFY(m_provider.CreateIcon(name, &action, type, QSize(24, 24)).isNull());
    QCOMPARE(action.property("icon_normal_resource"), QVariant(path));
    m_provider.UpdateIconSize(&action, QSize(24, 24));
    QVERIFY(action.icon().isNull());
}

void TestDefaultIconProvider::damagedBitmapsGiveAnEmptyIcon_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("cut off") << "kit_cut";
    QTest::newRow("altered") << "kit_altered";
    QTest::newRow("signature only") << "kit_signature";
    QTest::newRow("another format") << "kit_garbage";
    QTest::newRow("nothing in it") << "kit_empty";
}

void TestDefaultIconProvider::damagedBitmapsGiveAnEmptyIcon()
{
    QFETCH(QString, name);
    QAction action;
    CaughtErrors errors;
    QVERIFY(m_provider.CreateIcon(name, &action, EIconType::IconPng, QSize()).isNull());
    m_provider.UpdateIconSize(&action, QSize(16, 16));
    QVERIFY(action.icon().isNull());
    QCOMPARE(errors.text(), QByteArray());
}

void TestDefaultIconProvider::damagedDrawingsAreTransparent_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("cut off") << "kit_broken";
    QTest::newRow("nothing drawn") << "kit_hollow";
    QTest::newRow("nothing in it") << "kit_void";
    QTest::newRow("no such file") << "kit_nowhere.svg";
}

void TestDefaultIconProvider::damagedDrawingsAreTransparent()
{
    QFETCH(QString, name);
    // What was drawn before with the same renderer must not show.
    m_provider.CreateIcon(QStringLiteral("kit_drawn"), nullptr, EIconType::IconSvg, QSize(9, 9));
    const QIcon icon = m_provider.CreateIcon(name, nullptr, EIconType::IconSvg, QSize(20, 10));
    QCOMPARE(probe(icon), QSize(20, 10));
    QCOMPARE(colorOf(icon).alpha(), 0);
}

void TestDefaultIconProvider::drawingIsRenderedAtTheSizeAskedFor()
{
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_drawn"), nullptr,
                                             EIconType::IconSvg, QSize(40, 30));
    QCOMPARE(probe(icon), QSize(40, 30));
    QCOMPARE(colorOf(icon, QIcon::Normal), red);
    QCOMPARE(colorOf(icon, QIcon::Active), blue);
}

void TestDefaultIconProvider::drawingWithoutSizeIsEmptyButRemembered()
{
    QAction action;
    for (const QSize &size : {QSize(), QSize(0, 0), QSize(20, 0)}) {
        QVERIFY(
            m_provider.CreateIcon(QStringLiteral("kit_drawn"), &action, EIconType::IconSvg, size)
                .isNull());
    }
    QCOMPARE(action.property("icon_type"), QVariant(1));
    QCOMPARE(action.property("icon_normal_resource"), QVariant(imagePath("kit_drawn_normal.svg")));
    QCOMPARE(action.property("icon_active_resource"), QVariant(imagePath("kit_drawn_active.svg")));
}

void TestDefaultIconProvider::drawingWithoutActiveFileHasTheNormalModeOnly()
{
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_alone"), nullptr,
                                             EIconType::IconSvg, QSize(32, 16));
    QCOMPARE(icon.availableSizes(QIcon::Normal).size(), 1);
    QVERIFY(icon.availableSizes(QIcon::Active).isEmpty());
}

void TestDefaultIconProvider::unknownTypeTakesTheNameAsFile()
{
    QAction action;
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_alone_normal.svg"), &action,
                                             EIconType(7), QSize(32, 16));
    QCOMPARE(colorOf(icon), green);
    QCOMPARE(action.property("icon_type"), QVariant(7));
    QVERIFY(m_provider
                .CreateIcon(QStringLiteral("kit_alone_normal.svg"), nullptr, EIconType(7), QSize())
                .isNull());
}

void TestDefaultIconProvider::drawingIsReadAnewWhenItsFileChanges()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("own.svg"));
    const auto write = [&path](const char *color) {
        writeFile(path,
                  QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'>"
                             "<rect width='8' height='8' fill='")
                      + color + "'/></svg>");
    };
    QAction action;
    action.setProperty("icon_type", 1);
    action.setProperty("icon_normal_resource", path);
    write("#d02020");
    m_provider.UpdateIconSize(&action, QSize(8, 8));
    QCOMPARE(colorOf(action.icon()), red);
    write("#2020d0");
    m_provider.UpdateIconSize(&action, QSize(8, 8));
    QCOMPARE(colorOf(action.icon()), blue);
}

void TestDefaultIconProvider::drawingIsRenderedAnewWhenABitmapInItChanges()
{
    QTemporaryDir folder;
    const QString bitmap = folder.filePath(QStringLiteral("photo.png"));
    const QString drawing = folder.filePath(QStringLiteral("frame.svg"));
    writeFile(drawing,
              "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'"
              " xmlns:xlink='http://www.w3.org/1999/xlink'>"
              "<image width='8' height='8' xlink:href='"
                  + QFile::encodeName(bitmap) + "'/></svg>");
    QAction action;
    action.setProperty("icon_type", 1);
    action.setProperty("icon_normal_resource", drawing);
    for (const QColor &color : {red, blue}) {
        QVERIFY(filled(QSize(8, 8), color).save(bitmap));
        m_provider.UpdateIconSize(&action, QSize(8, 8));
        QCOMPARE(colorOf(action.icon()), color);
    }
}

void TestDefaultIconProvider::drawingIsReadAsUtf8InAnyLocale()
{
    const ForeignLocale locale;
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_alone"), nullptr,
                                             EIconType::IconSvg, QSize(26, 26));
    QCOMPARE(colorOf(icon), green);
}

void TestDefaultIconProvider::animatedDrawingRunsNoTimer()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("turning.svg"));
    writeFile(path,
              "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'>"
              "<rect width='8' height='8'><animateColor attributeName='fill' from='red'"
              " to='blue' dur='9s' repeatCount='indefinite'/></rect></svg>");
    QAction action;
    action.setProperty("icon_type", 1);
    action.setProperty("icon_normal_resource", path);
    m_provider.UpdateIconSize(&action, QSize(8, 8));
    QVERIFY(!action.icon().isNull());
    // A drawing shows 30 frames per second, so one would come before the slower clock's third tick.
    QTimer clock;
    const TimerEvents others(&clock);
    int ticks = 0;
    connect(&clock, &QTimer::timeout, this, [&ticks] { ++ticks; });
    clock.start(40);
    while (ticks < 3)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCOMPARE(others.count, 0);
}

void TestDefaultIconProvider::updateOfNullActionIsIgnored()
{
    m_provider.UpdateIconSize(static_cast<QAction *>(nullptr), QSize(24, 24));
}

void TestDefaultIconProvider::updateScalesBothBitmapsOfTheAction()
{
    QAction action;
    action.setIcon(
        m_provider.CreateIcon(QStringLiteral("kit_both"), &action, EIconType::IconPng, QSize()));
    m_provider.UpdateIconSize(&action, QSize(40, 40));
    QCOMPARE(probe(action.icon()), QSize(40, 40));
    QCOMPARE(action.icon().availableSizes(QIcon::Normal).size(), 1);
    QCOMPARE(action.icon().availableSizes(QIcon::Active).size(), 1);
    QCOMPARE(colorOf(action.icon(), QIcon::Active), blue);
}

void TestDefaultIconProvider::updateKeepsTheProportionsOfABitmap()
{
    QAction action;
    action.setIcon(
        m_provider.CreateIcon(QStringLiteral("kit_wide"), &action, EIconType::IconPng, QSize()));
    QCOMPARE(probe(action.icon()), QSize(20, 10));
    m_provider.UpdateIconSize(&action, QSize(50, 50));
    QCOMPARE(probe(action.icon()), QSize(50, 25));
}

void TestDefaultIconProvider::updateStopsWhenTheIconHasTheSize()
{
    QAction action;
    action.setIcon(
        m_provider.CreateIcon(QStringLiteral("kit_both"), &action, EIconType::IconPng, QSize()));
    const qint64 before = action.icon().cacheKey();
    m_provider.UpdateIconSize(&action, QSize(24, 24));
    QCOMPARE(action.icon().cacheKey(), before);
    m_provider.UpdateIconSize(&action, QSize(30, 30));
    const qint64 updated = action.icon().cacheKey();
    QVERIFY(updated != before);
    m_provider.UpdateIconSize(&action, QSize(30, 30));
    QCOMPARE(action.icon().cacheKey(), updated);
}

void TestDefaultIconProvider::updateLeavesActionsOfOthersAlone()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(green);
    QAction action;
    action.setIcon(pixmap);
    const qint64 before = action.icon().cacheKey();
    m_provider.UpdateIconSize(&action, QSize(24, 24));
    QCOMPARE(action.icon().cacheKey(), before);
    action.setProperty("icon_type", 1);
    m_provider.UpdateIconSize(&action, QSize(24, 24));
    QCOMPARE(action.icon().cacheKey(), before);
}

void TestDefaultIconProvider::updateWithoutActiveFileKeepsOneMode()
{
    QAction action;
    m_provider.CreateIcon(QStringLiteral("kit_single"), &action, EIconType::IconPng, QSize());
    m_provider.UpdateIconSize(&action, QSize(30, 30));
    QCOMPARE(probe(action.icon()), QSize(30, 30));
    QVERIFY(action.icon().availableSizes(QIcon::Active).isEmpty());
}

void TestDefaultIconProvider::updateOfAVanishedBitmapEmptiesTheIcon()
{
    QAction action;
    action.setIcon(
        m_provider.CreateIcon(QStringLiteral("kit_single"), &action, EIconType::IconPng, QSize()));
    action.setProperty("icon_normal_resource", QStringLiteral("/nowhere/at_all.png"));
    m_provider.UpdateIconSize(&action, QSize(30, 30));
    QVERIFY(action.icon().isNull());
}

void TestDefaultIconProvider::updateRendersBothDrawingsOfTheAction()
{
    QAction action;
    m_provider.CreateIcon(QStringLiteral("kit_drawn"), &action, EIconType::IconSvg, QSize());
    m_provider.UpdateIconSize(&action, QSize(36, 18));
    QCOMPARE(probe(action.icon()), QSize(36, 18));
    QCOMPARE(colorOf(action.icon(), QIcon::Normal), red);
    QCOMPARE(colorOf(action.icon(), QIcon::Active), blue);
}

void TestDefaultIconProvider::updateStopsWhenOnlyTheActivePictureHasTheSize()
{
    QAction action;
    m_provider.CreateIcon(QStringLiteral("kit_both"), &action, EIconType::IconPng, QSize());
    action.setIcon(QIcon(new ActiveOnlyEngine));
    const qint64 before = action.icon().cacheKey();
    m_provider.UpdateIconSize(&action, QSize(24, 24));
    QCOMPARE(action.icon().cacheKey(), before);
}

void TestDefaultIconProvider::updateToAnEmptySizeEmptiesTheIcon()
{
    const QList<std::pair<EIconType, QSize>> updates {{EIconType::IconPng, QSize()},
                                                      {EIconType::IconPng, QSize(12, 0)},
                                                      {EIconType::IconSvg, QSize(0, 0)},
                                                      {EIconType::IconSvg, QSize(12, 0)}};
    for (const auto &[type, size] : updates) {
        QAction action;
        m_provider.CreateIcon(type == EIconType::IconPng ? QStringLiteral("kit_both")
                                                         : QStringLiteral("kit_drawn"),
                              &action, type, QSize());
        action.setIcon(filled(QSize(24, 24), red));
        m_provider.UpdateIconSize(&action, size);
        QVERIFY(action.icon().isNull());
    }
}

void TestDefaultIconProvider::updateWithoutSizeRendersADrawingAtItsOwnSize()
{
    QAction action;
    m_provider.CreateIcon(QStringLiteral("kit_alone"), &action, EIconType::IconSvg, QSize());
    m_provider.UpdateIconSize(&action, QSize());
    QCOMPARE(probe(action.icon()), QSize(32, 16));
    QVERIFY(action.icon().availableSizes(QIcon::Active).isEmpty());
}

void TestDefaultIconProvider::updateWithoutSizeOfADrawingWithoutOneIsEmpty()
{
    for (const char *name : {"kit_broken", "kit_hollow", "kit_void"}) {
        QAction action;
        m_provider.CreateIcon(QLatin1String(name), &action, EIconType::IconSvg, QSize());
        m_provider.UpdateIconSize(&action, QSize());
        QVERIFY2(action.icon().isNull(), name);
        m_provider.UpdateIconSize(&action, QSize(0, 12));
        QVERIFY2(action.icon().isNull(), name);
    }
}

void TestDefaultIconProvider::updateRendersADrawingAgainAtTheSameSize()
{
    QAction action;
    action.setIcon(m_provider.CreateIcon(QStringLiteral("kit_drawn"), &action, EIconType::IconSvg,
                                         QSize(24, 24)));
    const qint64 before = action.icon().cacheKey();
    m_provider.UpdateIconSize(&action, QSize(24, 24));
    QVERIFY(action.icon().cacheKey() != before);
    QCOMPARE(colorOf(action.icon(), QIcon::Active), blue);
}

void TestDefaultIconProvider::updatedIconIsScaledInBothModes()
{
    QPixmap normal(20, 10);
    normal.fill(red);
    QPixmap active(20, 10);
    active.fill(blue);
    QIcon icon(normal);
    icon.addPixmap(active, QIcon::Active);
    const QIcon updated = m_provider.UpdateIconSize(icon, QSize(40, 40));
    QCOMPARE(probe(updated), QSize(40, 20));
    QCOMPARE(colorOf(updated, QIcon::Normal), red);
    QCOMPARE(colorOf(updated, QIcon::Active), blue);
}

void TestDefaultIconProvider::updatedIconOfTheSameSizeIsACopy()
{
    QPixmap pixmap(24, 24);
    pixmap.fill(red);
    const QIcon icon(pixmap);
    QCOMPARE(m_provider.UpdateIconSize(icon, QSize(24, 24)).cacheKey(), icon.cacheKey());
    const QIcon fine = m_provider.CreateIcon(QStringLiteral("kit_both"));
    QCOMPARE(m_provider.UpdateIconSize(fine, QSize(24, 24)).cacheKey(), fine.cacheKey());
}

void TestDefaultIconProvider::updateOfAnEmptyIconIsEmpty()
{
    QVERIFY(m_provider.UpdateIconSize(QIcon(), QSize(24, 24)).isNull());
    QVERIFY(m_provider.UpdateIconSize(QIcon(), QSize()).isNull());
}

void TestDefaultIconProvider::updateOfAnIconWithoutPictureIsACopy()
{
    const QIcon icon(new ActiveOnlyEngine);
    QCOMPARE(m_provider.UpdateIconSize(icon, QSize(9, 9)).cacheKey(), icon.cacheKey());
}

void TestDefaultIconProvider::sizesAboveTheProbeCountAsTheProbe()
{
    QPixmap pixmap(600, 400);
    pixmap.fill(red);
    const QIcon icon(pixmap);
    QCOMPARE(m_provider.UpdateIconSize(icon, QSize(300, 200)).cacheKey(), icon.cacheKey());
}

void TestDefaultIconProvider::bitmapComesInTheResolutionOfTheScreen()
{
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_both"));
    const QImage image = pixelsOf(icon, 24, ratio());
    QCOMPARE(image.size(), QSize(24, 24) * ratio());
    QCOMPARE(image.pixelColor(0, 3), red);
    QCOMPARE(image.pixelColor(1, 3), ratio() > 1 ? white : red);
    QCOMPARE(image.pixelColor(2, 3), ratio() > 2 ? QColor(Qt::black) : red);
}

void TestDefaultIconProvider::bitmapWithoutFinerFileStaysAsItIs()
{
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_single"));
    QCOMPARE(icon.pixmap(300).size(), QSize(24, 24));
    QCOMPARE(probe(icon), QSize(24, 24));
}

void TestDefaultIconProvider::drawingComesInTheResolutionOfTheScreen()
{
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_drawn"), nullptr,
                                             EIconType::IconSvg, QSize(24, 24));
    const QImage image = pixelsOf(icon, 24, ratio());
    QCOMPARE(image.size(), QSize(24, 24) * ratio());
    if (ratio() == 2) {
        QCOMPARE(image.pixelColor(0, 3), red);
        QCOMPARE(image.pixelColor(1, 3), white);
    }
    if (ratio() == 3) {
        QCOMPARE(image.pixelColor(0, 3), red);
        QCOMPARE(image.pixelColor(2, 3), white);
    }
}

void TestDefaultIconProvider::sizesOfIconsAreLogical_data()
{
    QTest::addColumn<bool>("highDpiPixmaps");
    QTest::newRow("attribute off") << false;
    QTest::newRow("attribute on") << true;
}

void TestDefaultIconProvider::sizesOfIconsAreLogical()
{
    QFETCH(bool, highDpiPixmaps);
    const auto attribute = highDpiPixmaps ? std::make_unique<HighDpiPixmaps>() : nullptr;
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_both"));
    const QIcon drawing = m_provider.CreateIcon(QStringLiteral("kit_drawn"), nullptr,
                                                EIconType::IconSvg, QSize(30, 20));
    QCOMPARE(probe(icon), QSize(24, 24));
    QCOMPARE(icon.actualSize(QSize(24, 24)), QSize(24, 24));
    QCOMPARE(icon.actualSize(QSize(12, 12)), QSize(12, 12));
    QCOMPARE(probe(drawing), QSize(30, 20));
    const QPixmap pixmap = icon.pixmap(24);
    QCOMPARE(pixmap.size() / pixmap.devicePixelRatio(), QSize(24, 24));
    QCOMPARE(pixmap.devicePixelRatio(), highDpiPixmaps ? ratio() : 1.0);
    QAction action;
    action.setIcon(
        m_provider.CreateIcon(QStringLiteral("kit_both"), &action, EIconType::IconPng, QSize()));
    m_provider.UpdateIconSize(&action, QSize(40, 40));
    QCOMPARE(probe(action.icon()), QSize(40, 40));
}

void TestDefaultIconProvider::updatedIconComesInTheResolutionOfTheScreen()
{
    QAction action;
    m_provider.CreateIcon(QStringLiteral("kit_both"), &action, EIconType::IconPng, QSize());
    m_provider.UpdateIconSize(&action, QSize(48, 48));
    QCOMPARE(pixelsOf(action.icon(), 48, ratio()).size(), QSize(48, 48) * ratio());

    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_drawn"), nullptr,
                                             EIconType::IconSvg, QSize(48, 48));
    const QIcon updated = m_provider.UpdateIconSize(icon, QSize(24, 24));
    QCOMPARE(probe(updated), QSize(24, 24));
    QCOMPARE(pixelsOf(updated, 24, ratio()).size(), QSize(24, 24) * ratio());
    const HighDpiPixmaps attribute;
    const QIcon again = m_provider.UpdateIconSize(icon, QSize(24, 24));
    QCOMPARE(probe(again), QSize(24, 24));
    QCOMPARE(again.pixmap(24).size(), QSize(24, 24) * ratio());
}

void TestDefaultIconProvider::screenOfTheActionsWidgetsDecides()
{
    Lumo::Test::RatioWidget coarse(1);
    Lumo::Test::RatioWidget fine(3);
    QAction action;
    coarse.addAction(&action);
    const auto created = [&](const char *name, EIconType type) {
        return m_provider.CreateIcon(QLatin1String(name), &action, type, QSize(24, 24));
    };
    QCOMPARE(created("kit_both", EIconType::IconPng).pixmap(300).width(), 24);
    fine.addAction(&action);
    QCOMPARE(created("kit_both", EIconType::IconPng).pixmap(300).width(), 72);
    QCOMPARE(created("kit_drawn", EIconType::IconSvg).pixmap(300).width(), 72);
    QCOMPARE(probe(created("kit_drawn", EIconType::IconSvg)), QSize(24, 24));
    m_provider.UpdateIconSize(&action, QSize(30, 30));
    QCOMPARE(action.icon().pixmap(300).width(), 90);
    QCOMPARE(probe(action.icon()), QSize(30, 30));
}

void TestDefaultIconProvider::ratioBetweenWholeNumbersTakesTheFinerFile()
{
    Lumo::Test::RatioWidget between(1.5);
    QAction action;
    between.addAction(&action);
    const QIcon bitmap =
        m_provider.CreateIcon(QStringLiteral("kit_both"), &action, EIconType::IconPng, QSize());
    QCOMPARE(bitmap.pixmap(300).width(), 48);
    QCOMPARE(probe(bitmap), QSize(24, 24));
    const QIcon drawing = m_provider.CreateIcon(QStringLiteral("kit_drawn"), &action,
                                                EIconType::IconSvg, QSize(25, 25));
    QCOMPARE(drawing.pixmap(300).width(), 38);
    QCOMPARE(probe(drawing), QSize(25, 25));
}

void TestDefaultIconProvider::ratioBelowOneCountsAsOne()
{
    Lumo::Test::RatioWidget coarse(0.5);
    QAction action;
    coarse.addAction(&action);
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_drawn"), &action,
                                             EIconType::IconSvg, QSize(24, 24));
    QCOMPARE(icon.pixmap(300).width(), 24);
    m_provider.UpdateIconSize(&action, QSize(30, 30));
    QCOMPARE(action.icon().pixmap(300).width(), 30);
}

/// An icon of 24 by 24 for a screen of the ratio 2, drawn or as a bitmap.
QIcon TestDefaultIconProvider::fineIcon(const char *name, EIconType type)
{
    Lumo::Test::RatioWidget fine(2);
    QAction action;
    fine.addAction(&action);
    return m_provider.CreateIcon(QLatin1String(name), &action, type, QSize(24, 24));
}

void TestDefaultIconProvider::iconPaintsInFullResolution()
{
    Lumo::Test::RatioWidget fine(2);
    QAction action;
    fine.addAction(&action);
    const QIcon icon =
        m_provider.CreateIcon(QStringLiteral("kit_both"), &action, EIconType::IconPng, QSize());
    QImage canvas(60, 60, QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(2);
    canvas.fill(Qt::green);
    QPainter painter(&canvas);
    icon.paint(&painter, QRect(0, 0, 30, 30), Qt::AlignLeft | Qt::AlignTop);
    painter.end();
    QCOMPARE(canvas.pixelColor(0, 47), red);
    QCOMPARE(canvas.pixelColor(1, 47), white);
    QCOMPARE(canvas.pixelColor(47, 47), white);
    QCOMPARE(canvas.pixelColor(48, 48), QColor(Qt::green));
}

void TestDefaultIconProvider::iconOfFinePixelsGreysWhenDisabled()
{
    Lumo::Test::RatioWidget fine(2);
    QAction action;
    fine.addAction(&action);
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_drawn"), &action,
                                             EIconType::IconSvg, QSize(24, 24));
    QVERIFY(colorOf(icon, QIcon::Normal).saturation() > 100);
    QVERIFY(colorOf(icon, QIcon::Disabled).saturation() < 20);
    const QImage all = pixelsOf(icon, 24, 2, QIcon::Disabled);
    QCOMPARE(all.width(), 48);
    QVERIFY(all.pixelColor(24, 24).saturation() < 20);
    QCOMPARE(icon.actualSize(QSize(300, 300), QIcon::Disabled), QSize(24, 24));
}

void TestDefaultIconProvider::greyFollowsThePalette()
{
    const QIcon icon = fineIcon("kit_drawn");
    const QPalette own = QApplication::palette();
    const QColor before = colorOf(icon, QIcon::Disabled);
    QApplication::setPalette(QPalette(Qt::darkBlue));
    const QColor after = colorOf(icon, QIcon::Disabled);
    QApplication::setPalette(own);
    QVERIFY(before != after);
}

void TestDefaultIconProvider::iconOfFinePixelsFindsStandIns()
{
    Lumo::Test::RatioWidget fine(2);
    QAction action;
    fine.addAction(&action);
    const QIcon single = m_provider.CreateIcon(QStringLiteral("kit_alone"), &action,
                                               EIconType::IconSvg, QSize(24, 24));
    for (const QIcon::State state : {QIcon::Off, QIcon::On}) {
        QCOMPARE(single.pixmap(24, QIcon::Active, state).toImage().pixelColor(9, 9), green);
        QCOMPARE(single.pixmap(24, QIcon::Normal, state).toImage().pixelColor(9, 9), green);
    }
    QIcon extended = single;
    QPixmap checked(24, 24);
    checked.fill(blue);
    extended.addPixmap(checked, QIcon::Normal, QIcon::On);
    QCOMPARE(extended.pixmap(24, QIcon::Active, QIcon::On).toImage().pixelColor(9, 9), blue);
    QCOMPARE(extended.pixmap(24, QIcon::Active, QIcon::Off).toImage().pixelColor(9, 9), green);
}

void TestDefaultIconProvider::iconOfFinePixelsShowsTheActivePictureWhenThereIsNoOther()
{
    Lumo::Test::RatioWidget fine(2);
    QAction action;
    fine.addAction(&action);
    action.setProperty("icon_normal_resource", QStringLiteral("/nowhere/at_all.png"));
    action.setProperty("icon_active_resource", imagePath("kit_both_active.png"));
    m_provider.UpdateIconSize(&action, QSize(30, 30));
    for (const QIcon::State state : {QIcon::Off, QIcon::On})
        QCOMPARE(action.icon().pixmap(60, QIcon::Normal, state).toImage().pixelColor(9, 9), blue);
    QCOMPARE(probe(action.icon()), QSize(30, 30));
}

void TestDefaultIconProvider::iconOfFinePixelsTakesTheNearestSize()
{
    QIcon icon = fineIcon("kit_alone"); // 48 pixels, green
    icon.addPixmap(filled(QSize(96, 96), red));
    icon.addPixmap(filled(QSize(20, 20), blue));
    icon.addPixmap(filled(QSize(72, 72), white));
    const auto colorAt = [&icon](int pixels) {
        return icon.pixmap(pixels).toImage().pixelColor(1, 1);
    };
    QCOMPARE(colorAt(20), blue);
    QCOMPARE(colorAt(21), green);
    QCOMPARE(colorAt(49), white);
    QCOMPARE(colorAt(73), red);
    QCOMPARE(colorAt(300), red);
    QCOMPARE(icon.pixmap(QSize(300, 24)).size(), QSize(24, 24));
    for (const QSize &nothing : {QSize(), QSize(0, 24), QSize(24, -1)})
        QVERIFY(icon.pixmap(nothing).isNull());
}

void TestDefaultIconProvider::iconOfFinePixelsScalesOnce()
{
    const QIcon icon = fineIcon("kit_drawn");
    QCOMPARE(icon.pixmap(16).cacheKey(), icon.pixmap(16).cacheKey());
    QVERIFY(icon.pixmap(16).cacheKey() != icon.pixmap(17).cacheKey());
    QVERIFY(icon.pixmap(16).cacheKey() != icon.pixmap(16, QIcon::Disabled).cacheKey());
}

void TestDefaultIconProvider::iconOfFinePixelsIsStreamedWithItsPictures()
{
    Lumo::Test::RatioWidget fine(2);
    QAction action;
    fine.addAction(&action);
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_drawn"), &action,
                                             EIconType::IconSvg, QSize(24, 24));
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << icon << 4711;
    QDataStream in(bytes);
    QIcon read;
    int behind = 0;
    in >> read >> behind;
    QCOMPARE(behind, 4711);
    QCOMPARE(read.pixmap(300).width(), 48);
    QCOMPARE(colorOf(read, QIcon::Active), blue);
}

void TestDefaultIconProvider::copyOfAnIconIsIndependent()
{
    Lumo::Test::RatioWidget fine(2);
    QAction action;
    fine.addAction(&action);
    const QIcon icon = m_provider.CreateIcon(QStringLiteral("kit_alone"), &action,
                                             EIconType::IconSvg, QSize(24, 24));
    QIcon copy = icon;
    QPixmap pixmap(24, 24);
    pixmap.fill(blue);
    copy.addPixmap(pixmap, QIcon::Active);
    copy.addFile(imagePath("kit_file.png"), QSize(), QIcon::Disabled);
    QVERIFY(icon.availableSizes(QIcon::Active).isEmpty());
    QCOMPARE(copy.availableSizes(QIcon::Active), {QSize(24, 24)});
    QCOMPARE(colorOf(copy, QIcon::Disabled), olive);
    QCOMPARE(colorOf(copy, QIcon::Normal), green);
}

void TestDefaultIconProvider::filesAddedToAFineIconKeepTheirSize()
{
    QIcon icon = fineIcon("kit_alone");
    icon.addFile(imagePath("kit_both_normal.png"), QSize(), QIcon::Disabled);
    for (const QSize &size : icon.availableSizes(QIcon::Disabled))
        QCOMPARE(size, QSize(24, 24));
    QCOMPARE(icon.pixmap(300, QIcon::Disabled).size(), QSize(24, 24) * ratio());
    icon.addFile(QStringLiteral("/nowhere/at_all.png"), QSize(), QIcon::Selected);
    QVERIFY(icon.availableSizes(QIcon::Selected).isEmpty());
}

LUMO_TEST_MAIN(TestDefaultIconProvider)
#include "tst_defaulticonprovider.moc"
