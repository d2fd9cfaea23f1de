// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testcase.h"
#include "support/testmain.h"

#include <ui_base/UiUtil>

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

using namespace Vela::UiBase;
using EAttach = UiUtil::EAttachToPosition;

Q_DECLARE_METATYPE(UiUtil::EAttachToPosition)

namespace {

QString imagePath(const char *name)
{
    return QStringLiteral(":/resources/images/") + QLatin1String(name);
}

QLabel *addWideIcon(QWidget *widget, EAttach position = EAttach::AttachTopLeft,
                    const QString &tooltip = {})
{
    return UiUtil::addIconToWidget(widget, QPoint(), position, imagePath("kit_wide_normal.png"),
                                   tooltip);
}

} // namespace

class TestUiUtil : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void iconLandsAtItsPosition_data();
    void iconLandsAtItsPosition();
    void iconLargerThanTheWidgetSticksOut();
    void offsetIsAdded();
    void iconIsAsLargeAsItsPicture();
    void iconComesInTheResolutionOfTheScreen();
    void iconMayBeAFileOfAnyFormatAndName_data();
    void iconMayBeAFileOfAnyFormatAndName();
    void mouseReachesTheWidgetThroughTheIcon();
    void nothingIsAddedWithoutWidgetOrPicture();

    void tooltipReplacesAndSavesTheOldOne();
    void tooltipOfAWidgetWithoutOneSavesNothing();
    void emptyTooltipLeavesTheOldOne();
    void restoreGivesTheOldTooltipBack();
    void restoreWithoutSavedTooltipClears();
    void restoreOfTheSameTooltipChangesNothing();
    void restoreIgnoresNull();
};

void TestUiUtil::iconLandsAtItsPosition_data()
{
    QTest::addColumn<EAttach>("position");
    QTest::addColumn<QPoint>("expected");
    // The widget is 101 by 42, so right is 100 and bottom 41; the picture is 20 by 10.
    QTest::newRow("left") << EAttach::AttachLeft << QPoint(0, 20);
    QTest::newRow("right") << EAttach::AttachRight << QPoint(80, 15);
    QTest::newRow("top") << EAttach::AttachTop << QPoint(40, 0);
    QTest::newRow("bottom") << EAttach::AttachBottom << QPoint(40, 31);
    QTest::newRow("top left") << EAttach::AttachTopLeft << QPoint(0, 0);
    QTest::newRow("top right") << EAttach::AttachTopRight << QPoint(80, 0);
    QTest::newRow("bottom left") << EAttach::AttachBottomLeft << QPoint(0, 31);
    QTest::newRow("bottom right") << EAttach::AttachBottomRight << QPoint(80, 31);
    QTest::newRow("above all") << EAttach(8) << QPoint(80, 15);
    QTest::newRow("below all") << EAttach(-1) << QPoint(80, 15);
}

void TestUiUtil::iconLandsAtItsPosition()
{
    QFETCH(EAttach, position);
    QFETCH(QPoint, expected);
    QWidget widget;
    widget.resize(101, 42);
    const QLabel *icon = addWideIcon(&widget, position);
    QVERIFY(icon);
    QCOMPARE(icon->parentWidget(), &widget);
    QCOMPARE(icon->pos(), expected);
}

void TestUiUtil::iconLargerThanTheWidgetSticksOut()
{
    QWidget widget;
    widget.resize(9, 5);
    QCOMPARE(addWideIcon(&widget, EAttach::AttachBottomRight)->pos(), QPoint(-12, -6));
    QCOMPARE(addWideIcon(&widget, EAttach::AttachRight)->pos(), QPoint(-12, -3));
    QCOMPARE(addWideIcon(&widget, EAttach::AttachTop)->pos(), QPoint(-6, 0));
}

void TestUiUtil::offsetIsAdded()
{
    QWidget widget;
    widget.resize(101, 42);
    const QLabel *icon = UiUtil::addIconToWidget(&widget, QPoint(-7, 3), EAttach::AttachRight,
                                                 imagePath("kit_wide_normal.png"), QString());
    QCOMPARE(icon->pos(), QPoint(73, 18));
}

void TestUiUtil::iconIsAsLargeAsItsPicture()
{
    QWidget widget;
    QHBoxLayout layout(&widget);
    widget.resize(200, 100);
    QLabel *icon = addWideIcon(&widget);
    widget.show();
    icon->show();
    QCOMPARE(icon->geometry(), QRect(0, 0, 20, 10));
}

void TestUiUtil::iconComesInTheResolutionOfTheScreen()
{
    QWidget widget;
    widget.resize(100, 50);
    const QLabel *icon = UiUtil::addIconToWidget(&widget, QPoint(), EAttach::AttachBottomRight,
                                                 imagePath("kit_both_normal.png"), QString());
    const qreal ratio = widget.devicePixelRatioF();
    QCOMPARE(icon->pixmap(Qt::ReturnByValue).size(), QSize(24, 24) * ratio);
    QCOMPARE(icon->size(), QSize(24, 24));
    QCOMPARE(icon->pos(), QPoint(75, 25));
}

void TestUiUtil::iconMayBeAFileOfAnyFormatAndName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("another format") << "sign.bmp" << QByteArray("BMP");
    QTest::newRow("no suffix") << "sign" << QByteArray("PNG");
    QTest::newRow("suffix of the folder only") << "signs.d/sign" << QByteArray("PNG");
}

void TestUiUtil::iconMayBeAFileOfAnyFormatAndName()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, format);
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("signs.d")));
    const QString path = folder.filePath(name);
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(path, format.constData()));
    QWidget widget;
    const QLabel *icon =
        UiUtil::addIconToWidget(&widget, QPoint(), EAttach::AttachTopLeft, path, QString());
    QVERIFY(icon);
    QCOMPARE(icon->size(), QSize(20, 10));
}

void TestUiUtil::mouseReachesTheWidgetThroughTheIcon()
{
    QPushButton button;
    button.resize(100, 50);
    QLabel *icon = addWideIcon(&button);
    button.show();
    icon->show();
    bool clicked = false;
    connect(&button, &QPushButton::clicked, this, [&clicked] { clicked = true; });
    QTest::mouseClick(button.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QVERIFY(clicked);
    QVERIFY(icon->testAttribute(Qt::WA_TransparentForMouseEvents));
}

void TestUiUtil::nothingIsAddedWithoutWidgetOrPicture()
{
    QWidget widget;
    widget.setToolTip(QStringLiteral("old"));
    const auto added = [](QWidget *parent, const QString &path) {
        return UiUtil::addIconToWidget(parent, QPoint(), EAttach::AttachLeft, path,
                                       QStringLiteral("new"));
    };
    QVERIFY(!added(nullptr, imagePath("kit_wide_normal.png")));
    QVERIFY(!added(&widget, QString()));
    QVERIFY(!added(&widget, imagePath("kit_nowhere.png")));
    QVERIFY(!added(&widget, imagePath("kit_cut_normal.png")));
    QVERIFY(widget.children().isEmpty());
    QCOMPARE(widget.toolTip(), QStringLiteral("old"));
}

void TestUiUtil::tooltipReplacesAndSavesTheOldOne()
{
    QWidget widget;
    widget.setToolTip(QStringLiteral("old"));
    const QLabel *icon = addWideIcon(&widget, EAttach::AttachLeft, QStringLiteral("new"));
    QCOMPARE(widget.toolTip(), QStringLiteral("new"));
    QCOMPARE(icon->property("tooltip"), QVariant(QStringLiteral("old")));
}

void TestUiUtil::tooltipOfAWidgetWithoutOneSavesNothing()
{
    QWidget widget;
    const QLabel *icon = addWideIcon(&widget, EAttach::AttachLeft, QStringLiteral("new"));
    QCOMPARE(widget.toolTip(), QStringLiteral("new"));
    QVERIFY(!icon->property("tooltip").isValid());
}

void TestUiUtil::emptyTooltipLeavesTheOldOne()
{
    QWidget widget;
    widget.setToolTip(QStringLiteral("old"));
    const QLabel *icon = addWideIcon(&widget);
    QCOMPARE(widget.toolTip(), QStringLiteral("old"));
    QVERIFY(!icon->property("tooltip").isValid());
}

void TestUiUtil::restoreGivesTheOldTooltipBack()
{
    QWidget widget;
    widget.setToolTip(QStringLiteral("old"));
    QLabel *icon = addWideIcon(&widget, EAttach::AttachLeft, QStringLiteral("new"));
    UiUtil::restoreTooltipOnIconHide(&widget, icon);
    QCOMPARE(widget.toolTip(), QStringLiteral("old"));
}

void TestUiUtil::restoreWithoutSavedTooltipClears()
{
    QWidget widget;
    QLabel *icon = addWideIcon(&widget, EAttach::AttachLeft, QStringLiteral("new"));
    UiUtil::restoreTooltipOnIconHide(&widget, icon);
    QVERIFY(widget.toolTip().isEmpty());
}

void TestUiUtil::restoreOfTheSameTooltipChangesNothing()
{
    class ToolTipCounter : public QObject
    {
    public:
        int changes = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            changes += event->type() == QEvent::ToolTipChange;
            return false;
        }
    } counter;
    QWidget widget;
    widget.installEventFilter(&counter);
    QLabel plain;
    UiUtil::restoreTooltipOnIconHide(&widget, &plain);
    QCOMPARE(counter.changes, 0);
    widget.setToolTip(QStringLiteral("only"));
    UiUtil::restoreTooltipOnIconHide(&widget, &plain);
    QCOMPARE(counter.changes, 2);
}

void TestUiUtil::restoreIgnoresNull()
{
    QWidget widget;
    widget.setToolTip(QStringLiteral("old"));
    QLabel icon;
    UiUtil::restoreTooltipOnIconHide(nullptr, &icon);
    UiUtil::restoreTooltipOnIconHide(&widget, nullptr);
    UiUtil::restoreTooltipOnIconHide(nullptr, nullptr);
    QCOMPARE(widget.toolTip(), QStringLiteral("old"));
}

LUMO_TEST_MAIN(TestUiUtil)
#include "tst_uiutil.moc"
