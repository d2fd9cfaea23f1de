// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "arrowreference.h"
#include "openwindow.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QGraphicsDropShadowEffect>
#include <QImage>
#include <QPainter>

#include <limits>

using Lumo::Test::Dice;
using Lumo::Test::OpenWindow;
using Lumo::Test::referenceArrow;
using Lumo::Test::ReferenceLayout;
using Lumo::Test::referenceLayout;
using namespace Vela::UiBase;

using SArrowParam = ArrowedWindow::SArrowParam;

Q_DECLARE_METATYPE(Vela::UiBase::ArrowedWindow::SArrowParam)

namespace {

constexpr int Largest = std::numeric_limits<int>::max();
constexpr int Smallest = std::numeric_limits<int>::min();

// What a layout is made from.
struct Case
{
    SArrowParam arrow;
    QSize content;
    int margin = 0;
    int border = 1;
    int radius = 5;
};

QByteArray text(const Case &c)
{
    const SArrowParam &a = c.arrow;
    return QStringLiteral("position %1 length %2 custom %3 angle %4 apex %5 along x %6 offset %7, "
                          "content %8x%9 margin %10 border %11 radius %12")
        .arg(int(a.position))
        .arg(a.length)
        .arg(a.customAngle)
        .arg(a.angle)
        .arg(a.apexAngle)
        .arg(a.offsetAlongX)
        .arg(a.offset)
        .arg(c.content.width())
        .arg(c.content.height())
        .arg(c.margin)
        .arg(c.border)
        .arg(c.radius)
        .toLatin1();
}

// Popups as they are used, and now and then one that nobody would make.
Case rolled(Dice &dice)
{
    const bool isOdd = dice.roll(0, 9) == 0;
    Case c;
    c.content = isOdd ? QSize(dice.roll(0, 6), dice.roll(0, 40))
                      : QSize(dice.roll(10, 330), dice.roll(10, 160));
    c.arrow.position = EArrowPosition(dice.roll(1, 8));
    c.arrow.length = isOdd ? dice.roll(-20, 300) : dice.roll(5, 30);
    c.arrow.customAngle = dice.flip();
    c.arrow.angle = isOdd ? dice.roll(-400, 800) : dice.roll(0, 359);
    c.arrow.apexAngle = isOdd ? dice.roll(-30, 400) : dice.flip() ? 90 : dice.roll(10, 120);
    c.arrow.offsetAlongX = dice.flip();
    c.arrow.offset = dice.flip() ? dice.roll(-180, 180) : 0;
    c.margin = dice.roll(0, 2) == 0 ? dice.roll(0, 12) : 0;
    c.border = dice.roll(0, 5);
    c.radius = dice.roll(0, 3) == 0 ? dice.roll(0, 40) : 5;
    return c;
}

void setUp(OpenWindow &window, const Case &c)
{
    window.SetBorder(Qt::gray, c.border, Qt::SolidLine, Qt::BevelJoin);
    window.SetContentMargin(c.margin);
    window.SetRoundCornerRadius(c.radius);
    window.InternalWidget()->setFixedSize(c.content);
}

bool haveSamePoints(const QPainterPath &a, const QPainterPath &b)
{
    constexpr qreal rounding = 1e-11;
    if (a.elementCount() != b.elementCount())
        return false;
    for (int i = 0; i < a.elementCount(); ++i) {
        const QPointF delta = QPointF(a.elementAt(i)) - QPointF(b.elementAt(i));
        if (a.elementAt(i).type != b.elementAt(i).type || std::abs(delta.x()) > rounding
            || std::abs(delta.y()) > rounding)
            return false;
    }
    return true;
}

// Draws a frame by its steps, for a window to be compared with.
class ReferenceFrame : public QWidget
{
public:
    QPainterPath path;
    QColor fill;
    QColor band;
    QRect bandRect;
    QPen pen;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (fill.isValid())
            painter.fillPath(path, fill);
        if (band.isValid())
            painter.fillRect(bandRect, band);
        painter.strokePath(path, pen);
    }
};

QImage picture(QWidget &widget, int ratio)
{
    QImage image(widget.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// A window with a content of 120 by 50 and an arrow at this position.
void fill(OpenWindow &window, EArrowPosition position, const QColor &background)
{
    auto *const content = new QWidget;
    content->setFixedSize(120, 50);
    QPalette palette = content->palette();
    palette.setColor(QPalette::Window, background);
    content->setPalette(palette);
    window.AttachWidget(content);
    window.SetArrow(position, 20, false, 0, 60, true, 0);
    window.SetBorder(QColor(150, 30, 30), 2, Qt::SolidLine, Qt::BevelJoin);
    window.GenerateLayout();
}

// The same frame, drawn by the reference.
void fill(ReferenceFrame &frame, EArrowPosition position, const QColor &background)
{
    SArrowParam arrow;
    arrow.position = position;
    arrow.length = 20;
    arrow.apexAngle = 60;
    const QRect content(0, 0, 120, 50);
    const ReferenceLayout layout =
        referenceLayout(referenceArrow(arrow, content), content, 0, 2, 5);
    frame.path = layout.path;
    frame.resize(layout.size);
    frame.fill = background;
    frame.pen = QPen(QColor(150, 30, 30), 2, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
}

const std::array<EArrowPosition, 8> Positions {
    EArrowPosition::Top,         EArrowPosition::Bottom,    EArrowPosition::Left,
    EArrowPosition::Right,       EArrowPosition::TopLeft,   EArrowPosition::TopRight,
    EArrowPosition::BottomRight, EArrowPosition::BottomLeft};

} // namespace

class ArrowedWindowLayoutTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void normalisedArrow_data();
    void normalisedArrow();
    void bottomArrowIsTwiceAsWideAsLong();
    void sharpOutlineIsTheContentAndTheArrow();
    void marginsGrowByWhatSticksOut();
    void anglesAreTurnedOutwards();
    void bottomEdgeComparesTheColumn();
    void offsetPastTheCornerIsDropped();
    void narrowerOpeningsAreTried();
    void withoutTriangleTheOutlineStays();
    void layoutsEqualTheReference();
    void layoutsWithSmallContentsEqualTheReference();
    void arrowsAtTheCornersEqualTheReference();
    void picturesEqualTheReference();
    void dashesStartWhereTheyAlwaysDid();
    void eightPositions_data();
    void eightPositions();
    void backgrounds_data();
    void backgrounds();
    void transparentBackgroundIsHalfWhite();
    void bandLiesOverTheBackground();
    void withoutContentOnlyTheOutlineIsPainted();
    void hugeMeasuresAreCutDown_data();
    void hugeMeasuresAreCutDown();
    void openingsThatStayDegenerateEnd();

private:
    static void compare(OpenWindow &window, const Case &c, QPainterPath &last);
};

void ArrowedWindowLayoutTest::normalisedArrow_data()
{
    QTest::addColumn<EArrowPosition>("position");
    QTest::addColumn<QPoint>("tip");
    QTest::addColumn<int>("angle");
    QTest::newRow("top") << EArrowPosition::Top << QPoint(49, 0) << 270;
    QTest::newRow("bottom") << EArrowPosition::Bottom << QPoint(49, 39) << 90;
    QTest::newRow("left") << EArrowPosition::Left << QPoint(0, 19) << 180;
    QTest::newRow("right") << EArrowPosition::Right << QPoint(99, 19) << 0;
    QTest::newRow("top left") << EArrowPosition::TopLeft << QPoint(0, 0) << 225;
    QTest::newRow("top right") << EArrowPosition::TopRight << QPoint(99, 0) << 315;
    QTest::newRow("bottom right") << EArrowPosition::BottomRight << QPoint(99, 39) << 45;
    QTest::newRow("bottom left") << EArrowPosition::BottomLeft << QPoint(0, 39) << 135;
    QTest::newRow("none of the eight") << EArrowPosition(9) << QPoint(7, 8) << 33;
    QTest::newRow("below none") << EArrowPosition(-1) << QPoint(7, 8) << 33;
}

void ArrowedWindowLayoutTest::normalisedArrow()
{
    QFETCH(EArrowPosition, position);
    OpenWindow window;
    window.AttachWidget(new QWidget);
    window.InternalWidget()->setFixedSize(100, 40);
    SArrowParam arrow {position, 10, false, 33, 90, true, 0, QPoint(7, 8)};
    QSize size;
    QPoint apex;
    QVERIFY(window.GetArrowWindowSize(arrow, size, apex));
    QTEST(arrow.tip, "tip");
    QTEST(arrow.angle, "angle");
}

void ArrowedWindowLayoutTest::bottomArrowIsTwiceAsWideAsLong()
{
    OpenWindow window;
    window.SetRoundCornerRadius(0);
    window.AttachWidget(new QWidget);
    window.InternalWidget()->setFixedSize(100, 40);
    window.SetArrow(EArrowPosition::Bottom, 10, false, 0, 90, true, 0);
    // The content's corner is at (1,1), its lower edge one pixel below its last row.
    const QPainterPath outline = window.outline();
    QVERIFY(outline.contains(QPointF(50, 49.75)));
    const auto widthAt = [&outline](qreal y) {
        QPainterPath row;
        row.addRect(0, y, 200, 0.25);
        return outline.intersected(row).boundingRect().width();
    };
    QCOMPARE(widthAt(42.0), 16.0);
    QCOMPARE(widthAt(49.0), 2.0);
    QCOMPARE(outline.boundingRect().bottom(), 50.0);
}

void ArrowedWindowLayoutTest::sharpOutlineIsTheContentAndTheArrow()
{
    OpenWindow window;
    window.SetRoundCornerRadius(0);
    window.AttachWidget(new QWidget);
    window.InternalWidget()->setFixedSize(100, 40);
    window.SetArrow(EArrowPosition::Bottom, 10, false, 0, 90, true, 0);
    QCOMPARE(window.outline().boundingRect(), QRectF(1, 1, 100, 49));
    QCOMPARE(window.GetBounds(), QRect(1, 1, 100, 40));
    QCOMPARE(window.margins(), QMargins(1, 1, 2, 11));
    QCOMPARE(window.size(), QSize(103, 52));
    QCOMPARE(window.GetArrowPoint(), QPoint(50, 50));
}

void ArrowedWindowLayoutTest::marginsGrowByWhatSticksOut()
{
    OpenWindow window;
    window.SetContentMargin(3);
    window.SetBorder(Qt::gray, 5, Qt::SolidLine, Qt::BevelJoin);
    window.SetRoundCornerRadius(4);
    window.AttachWidget(new QWidget);
    window.InternalWidget()->setFixedSize(100, 40);
    window.SetArrow(EArrowPosition::Left, 30, false, 0, 90, true, 0);
    // 3 and 1 and half of 5, and what the outline has beyond the content: the arrow and the radius,
    // at the far sides one pixel more.
    QCOMPARE(window.margins(), QMargins(36, 10, 11, 11));
    QCOMPARE(window.size(), QSize(147, 61));
    QCOMPARE(window.GetArrowPoint(), QPoint(6, 29));
    QCOMPARE(window.GetBounds(), QRect(32, 6, 108, 48));
}

void ArrowedWindowLayoutTest::anglesAreTurnedOutwards()
{
    const QRect content(0, 0, 100, 60);
    OpenWindow window;
    window.AttachWidget(new QWidget);
    window.InternalWidget()->setFixedSize(content.size());
    for (int position = 1; position <= 8; ++position) {
        for (int angle = -370; angle <= 730; ++angle) {
            const SArrowParam given {
                EArrowPosition(position), 10, true, angle, 90, false, 0, QPoint()};
            SArrowParam arrow = given;
            window.data().NormalizeArrowParam(arrow);
            QVERIFY2(arrow == referenceArrow(given, content), QByteArray::number(angle));
        }
    }
}

void ArrowedWindowLayoutTest::bottomEdgeComparesTheColumn()
{
    OpenWindow window;
    window.AttachWidget(new QWidget);
    window.InternalWidget()->setFixedSize(100, 40);
    SArrowParam arrow {EArrowPosition::Bottom, 10, true, 200, 90, true, 0, QPoint()};
    window.data().NormalizeArrowParam(arrow);
    QCOMPARE(arrow.angle, 200);
    arrow.offset = 39 - 49;
    window.data().NormalizeArrowParam(arrow);
    QCOMPARE(arrow.tip, QPoint(39, 39));
    QCOMPARE(arrow.angle, 90);
}

void ArrowedWindowLayoutTest::offsetPastTheCornerIsDropped()
{
    OpenWindow window;
    window.AttachWidget(new QWidget);
    window.InternalWidget()->setFixedSize(100, 40);
    const auto tipFor = [&window](EArrowPosition position, bool alongX, int offset) {
        SArrowParam arrow {position, 10, false, 0, 90, alongX, offset, QPoint()};
        window.data().NormalizeArrowParam(arrow);
        return arrow.tip;
    };
    QCOMPARE(tipFor(EArrowPosition::Bottom, true, 50), QPoint(99, 39));
    QCOMPARE(tipFor(EArrowPosition::Bottom, true, 51), QPoint(49, 39));
    QCOMPARE(tipFor(EArrowPosition::Bottom, true, -49), QPoint(0, 39));
    QCOMPARE(tipFor(EArrowPosition::Bottom, true, -50), QPoint(49, 39));
    QCOMPARE(tipFor(EArrowPosition::Bottom, false, 1), QPoint(49, 39));
    QCOMPARE(tipFor(EArrowPosition::Bottom, false, -39), QPoint(49, 0));
    QCOMPARE(tipFor(EArrowPosition::Left, false, -19), QPoint(0, 0));
    QCOMPARE(tipFor(EArrowPosition::Left, false, -20), QPoint(0, 19));
    QCOMPARE(tipFor(EArrowPosition::Top, true, Largest), QPoint(49, 0));
    QCOMPARE(tipFor(EArrowPosition::Top, true, Smallest), QPoint(49, 0));
    QCOMPARE(tipFor(EArrowPosition::Right, false, Largest), QPoint(99, 19));
}

void ArrowedWindowLayoutTest::narrowerOpeningsAreTried()
{
    OpenWindow window;
    window.AttachWidget(new QWidget);
    window.InternalWidget()->setFixedSize(40, 40);
    // Half of 180 points past the content, half of 170 still does; what hits it is half of 60.
    window.SetArrow(EArrowPosition::Bottom, 30, false, 0, 180, true, 0);
    const QPainterPath narrowed = window.outline();
    QVERIFY(!narrowed.isEmpty());
    window.SetArrow(EArrowPosition::Bottom, 30, false, 0, 60, true, 0);
    QVERIFY(haveSamePoints(window.outline(), narrowed));
    SArrowParam arrow;
    window.GetCurrentArrowParam(arrow);
    QCOMPARE(arrow.apexAngle, 60);
    window.SetArrow(EArrowPosition::Bottom, 30, false, 0, 180, true, 0);
    window.GetCurrentArrowParam(arrow);
    QCOMPARE(arrow.apexAngle, 180);
}

void ArrowedWindowLayoutTest::withoutTriangleTheOutlineStays()
{
    OpenWindow window;
    window.AttachWidget(new QWidget);
    window.InternalWidget()->setFixedSize(100, 40);
    window.SetBorder(Qt::gray, 5, Qt::SolidLine, Qt::BevelJoin);
    window.SetContentMargin(2);
    window.SetArrow(EArrowPosition::Left, 20, false, 0, 90, true, 0);
    // An arrow of no length has no direction. The outline before was not even painted.
    window.SetArrow(EArrowPosition::Right, 0, false, 0, 90, true, 0);
    SArrowParam arrow;
    QSize size;
    QPoint apex;
    window.GetCurrentArrowParam(arrow);
    window.GetArrowWindowSize(arrow, size, apex);
    QCOMPARE(size, QSize(100 + 2 * 2 + 5, 40 + 2 * 2 + 5));
    QCOMPARE(window.margins(), QMargins(5, 5, 5, 5));
    QCOMPARE(window.GetArrowPoint(), QPoint(99 + 2, 19 + 2));
    QCOMPARE(window.GetBounds(), QRect(0, 0, 100, 40));
    const QRect content(0, 0, 100, 40);
    SArrowParam left {EArrowPosition::Left, 20, false, 0, 90, true, 0, QPoint()};
    left = referenceArrow(left, content);
    QVERIFY(haveSamePoints(window.outline(), referenceLayout(left, content, 2, 5, 5).path));
}

void ArrowedWindowLayoutTest::compare(OpenWindow &window, const Case &c, QPainterPath &last)
{
    setUp(window, c);
    const QRect content(QPoint(0, 0), c.content);
    const SArrowParam expectedArrow = referenceArrow(c.arrow, content);
    const ReferenceLayout expected =
        referenceLayout(expectedArrow, content, c.margin, c.border, c.radius);
    SArrowParam arrow = c.arrow;
    QSize size;
    QPoint apex;
    QVERIFY(window.GetArrowWindowSize(arrow, size, apex));
    QVERIFY(arrow == expectedArrow);
    QCOMPARE(size, expected.size);
    // Without an arrow the margins of the Qt layout are a pixel wider than the size has room for.
    if (expected.hasArrow) {
        QCOMPARE(window.size(), size);
        QCOMPARE(window.minimumSize(), size);
        QCOMPARE(window.maximumSize(), size);
    }
    QCOMPARE(window.margins(), expected.margins);
    QCOMPARE(apex, expected.arrowPoint);
    QCOMPARE(window.GetArrowPoint(), expected.arrowPoint);
    QCOMPARE(window.GetBounds(), expected.bounds);
    if (expected.hasArrow)
        last = expected.path;
    QVERIFY(haveSamePoints(window.outline(), last));
}

void ArrowedWindowLayoutTest::layoutsEqualTheReference()
{
    Dice dice(20261121);
    OpenWindow window;
    window.AttachWidget(new QWidget);
    QPainterPath last = window.outline();
    for (int i = 0; i < 4000; ++i) {
        const Case c = rolled(dice);
        compare(window, c, last);
        QVERIFY2(!QTest::currentTestFailed(), text(c));
    }
}

void ArrowedWindowLayoutTest::layoutsWithSmallContentsEqualTheReference()
{
    OpenWindow window;
    window.AttachWidget(new QWidget);
    QPainterPath last = window.outline();
    Case c;
    for (int size = 0; size < 100; ++size) {
        c.content = QSize(size % 10, size / 10);
        for (int position = 1; position <= 8; ++position) {
            c.arrow.position = EArrowPosition(position);
            for (c.radius = 0; c.radius < 3; ++c.radius) {
                compare(window, c, last);
                QVERIFY2(!QTest::currentTestFailed(), text(c));
            }
        }
    }
}

void ArrowedWindowLayoutTest::arrowsAtTheCornersEqualTheReference()
{
    OpenWindow window;
    window.AttachWidget(new QWidget);
    QPainterPath last = window.outline();
    Case c;
    c.content = QSize(101, 81);
    for (int position = 1; position <= 4; ++position) {
        c.arrow.position = EArrowPosition(position);
        c.arrow.offsetAlongX = position <= 2;
        const int middle = c.arrow.offsetAlongX ? 50 : 40;
        for (c.arrow.length = 1; c.arrow.length <= 40; ++c.arrow.length) {
            // The base ends in a corner of the content or close to it.
            for (const int reach : {0, 5, 6, 10, 11}) {
                for (const int side : {-1, 1}) {
                    c.arrow.offset = side * (middle - c.arrow.length + reach);
                    compare(window, c, last);
                    QVERIFY2(!QTest::currentTestFailed(), text(c));
                }
            }
        }
    }
}

void ArrowedWindowLayoutTest::picturesEqualTheReference()
{
    Dice dice(7);
    OpenWindow window;
    window.AttachWidget(new QWidget);
    ReferenceFrame frame;
    frame.fill = window.data().backgroundColor;
    for (int i = 0; i < 300; ++i) {
        const Case c = rolled(dice);
        setUp(window, c);
        const QRect content(QPoint(0, 0), c.content);
        const ReferenceLayout expected = referenceLayout(referenceArrow(c.arrow, content), content,
                                                         c.margin, c.border, c.radius);
        SArrowParam arrow = c.arrow;
        QSize size;
        QPoint apex;
        window.GetArrowWindowSize(arrow, size, apex);
        if (!expected.hasArrow)
            continue;
        frame.path = expected.path;
        frame.pen = QPen(QColor(Qt::gray), c.border, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
        frame.resize(expected.size);
        const int ratio = dice.roll(1, 2);
        QVERIFY2(picture(window, ratio) == picture(frame, ratio), text(c));
    }
}

void ArrowedWindowLayoutTest::dashesStartWhereTheyAlwaysDid()
{
    for (const EArrowPosition position : Positions) {
        OpenWindow window;
        fill(window, position, Qt::white);
        ReferenceFrame frame;
        fill(frame, position, Qt::white);
        window.SetBorder(Qt::black, 3, Qt::DashDotLine, Qt::MiterJoin);
        frame.pen = QPen(Qt::black, 3, Qt::DashDotLine, Qt::FlatCap, Qt::MiterJoin);
        QVERIFY2(picture(window, 1) == picture(frame, 1), QByteArray::number(int(position)));
    }
}

void ArrowedWindowLayoutTest::eightPositions_data()
{
    QTest::addColumn<EArrowPosition>("position");
    QTest::addColumn<bool>("shadow");
    QTest::addColumn<int>("ratio");
    for (const EArrowPosition position : Positions) {
        for (const bool shadow : {false, true}) {
            for (const int ratio : {1, 2}) {
                QTest::addRow("position %d%s at ratio %d", int(position), shadow ? ", shadow" : "",
                              ratio)
                    << position << shadow << ratio;
            }
        }
    }
}

void ArrowedWindowLayoutTest::eightPositions()
{
    QFETCH(EArrowPosition, position);
    QFETCH(bool, shadow);
    QFETCH(int, ratio);
    const QColor background(250, 240, 200);
    OpenWindow window;
    fill(window, position, background);
    const QImage without = picture(window, ratio);
    ReferenceFrame frame;
    fill(frame, position, background);
    window.EnableShadow(shadow);
    if (shadow) {
        auto *const effect = new QGraphicsDropShadowEffect;
        effect->setBlurRadius(15);
        effect->setOffset(0, 0);
        effect->setColor(QColor(192, 192, 192, 166));
        frame.setGraphicsEffect(effect);
    }
    const QImage image = picture(window, ratio);
    QVERIFY(image == picture(frame, ratio));
    QCOMPARE(image != without, shadow);
    // The apex is drawn, and nothing opposite to it.
    const QPoint apex = window.GetArrowPoint();
    QVERIFY(qAlpha(without.pixel(QPoint(qBound(1, apex.x(), window.width() - 2),
                                        qBound(1, apex.y(), window.height() - 2))
                                 * ratio))
            > 0);
    const QPoint opposite = 2 * window.GetBounds().center() - apex;
    QVERIFY(!without.rect().contains(opposite * ratio)
            || qAlpha(without.pixel(opposite * ratio)) == 0);
}

void ArrowedWindowLayoutTest::backgrounds_data()
{
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QColor>("painted");
    const QColor halfWhite(255, 255, 255, 128);
    QTest::newRow("none at all") << QColor(Qt::transparent) << halfWhite;
    QTest::newRow("alpha 49") << QColor(200, 0, 0, 49) << halfWhite;
    QTest::newRow("alpha 50") << QColor(200, 0, 0, 50) << QColor(200, 0, 0, 50);
    QTest::newRow("opaque") << QColor(30, 60, 90) << QColor(30, 60, 90);
}

void ArrowedWindowLayoutTest::backgrounds()
{
    QFETCH(QColor, background);
    QFETCH(QColor, painted);
    for (const EArrowPosition position : Positions) {
        for (const int ratio : {1, 2}) {
            OpenWindow window;
            fill(window, position, background);
            ReferenceFrame frame;
            fill(frame, position, painted);
            QVERIFY(picture(window, ratio) == picture(frame, ratio));
            // With a band and a shadow over it.
            const QRect band(0, 10, 1, 12);
            window.SetPartialBackgroundColor(true, band, QColor(0, 90, 0, 120));
            frame.band = QColor(0, 90, 0, 120);
            frame.bandRect = QRect(window.GetBounds().left(), window.margins().top() + 10,
                                   window.GetBounds().width(), 12);
            QVERIFY(picture(window, ratio) == picture(frame, ratio));
            auto *const shadow = new QGraphicsDropShadowEffect;
            shadow->setBlurRadius(15);
            shadow->setOffset(0, 0);
            shadow->setColor(QColor(192, 192, 192, 166));
            frame.setGraphicsEffect(shadow);
            window.EnableShadow(true);
            QVERIFY(picture(window, ratio) == picture(frame, ratio));
        }
    }
}

void ArrowedWindowLayoutTest::transparentBackgroundIsHalfWhite()
{
    const auto filledWith = [](const QColor &background) {
        OpenWindow window;
        fill(window, EArrowPosition::Bottom, background);
        return picture(window, 1).pixelColor(window.GetBounds().center()).rgba();
    };
    QCOMPARE(filledWith(QColor(200, 0, 0, 49)), qRgba(255, 255, 255, 128));
    QCOMPARE(filledWith(Qt::transparent), qRgba(255, 255, 255, 128));
    QCOMPARE(qAlpha(filledWith(QColor(200, 0, 0, 50))), 50);
    QCOMPARE(qGreen(filledWith(QColor(200, 0, 0, 50))), 0);
    QCOMPARE(filledWith(QColor(200, 0, 0)), qRgba(200, 0, 0, 255));
}

void ArrowedWindowLayoutTest::bandLiesOverTheBackground()
{
    for (const EArrowPosition position : Positions) {
        OpenWindow window;
        fill(window, position, Qt::white);
        const QMargins margins = window.margins();
        window.SetPartialBackgroundColor(true, QRect(30, 10, 5, 12), QColor(0, 90, 0));
        ReferenceFrame frame;
        fill(frame, position, Qt::white);
        frame.band = QColor(0, 90, 0);
        frame.bandRect = QRect(window.GetBounds().left() + 30, margins.top() + 10,
                               window.GetBounds().width(), 12);
        QVERIFY(picture(window, 1) == picture(frame, 1));
        window.SetPartialBackgroundColor(false, QRect(), QColor());
        frame.band = QColor();
        QVERIFY(picture(window, 1) == picture(frame, 1));
    }
}

void ArrowedWindowLayoutTest::withoutContentOnlyTheOutlineIsPainted()
{
    OpenWindow window;
    QCOMPARE(picture(window, 1).pixel(window.rect().center()), qRgba(0, 0, 0, 0));
    fill(window, EArrowPosition::Top, Qt::white);
    window.SetPartialBackgroundColor(true, QRect(0, 10, 5, 12), QColor(0, 90, 0));
    const std::unique_ptr<QWidget> content(window.DetachWidget());
    ReferenceFrame frame;
    fill(frame, EArrowPosition::Top, QColor());
    window.layout()->activate();
    frame.resize(window.size());
    QVERIFY(picture(window, 1) == picture(frame, 1));
}

void ArrowedWindowLayoutTest::hugeMeasuresAreCutDown_data()
{
    QTest::addColumn<SArrowParam>("arrow");
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("border");
    QTest::addColumn<int>("radius");
    const SArrowParam plain;
    SArrowParam arrow;
    for (const int huge : {Largest, Smallest, Largest / 2, Smallest / 2}) {
        arrow = plain;
        arrow.length = huge;
        QTest::addRow("length %d", huge) << arrow << 0 << 1 << 5;
        arrow = plain;
        arrow.apexAngle = huge;
        QTest::addRow("opening %d", huge) << arrow << 0 << 1 << 5;
        arrow = plain;
        arrow.customAngle = true;
        arrow.angle = huge;
        QTest::addRow("angle %d", huge) << arrow << 0 << 1 << 5;
        arrow = plain;
        arrow.offset = huge;
        QTest::addRow("offset %d", huge) << arrow << 0 << 1 << 5;
        QTest::addRow("margin %d", huge) << plain << huge << 1 << 5;
        QTest::addRow("border %d", huge) << plain << 0 << huge << 5;
        QTest::addRow("radius %d", huge) << plain << 0 << 1 << huge;
    }
    QTest::newRow("radius -3") << plain << 0 << 1 << -3;
    QTest::newRow("radius -50") << plain << 0 << 1 << -50;
    QTest::newRow("margin -7") << plain << -7 << 1 << 5;
    QTest::newRow("border -9") << plain << 0 << -9 << 5;
    QTest::newRow("all") << SArrowParam {EArrowPosition::Left,
                                         Largest,
                                         true,
                                         Largest,
                                         Largest,
                                         false,
                                         Largest,
                                         QPoint()}
                         << Largest << Largest << Largest;
}

void ArrowedWindowLayoutTest::hugeMeasuresAreCutDown()
{
    QFETCH(SArrowParam, arrow);
    QFETCH(int, margin);
    QFETCH(int, border);
    QFETCH(int, radius);
    for (const QSize &content : {QSize(100, 40), QSize(0, 0), QSize(1, 1)}) {
        OpenWindow window;
        window.AttachWidget(new QWidget);
        window.InternalWidget()->setFixedSize(content);
        window.SetContentMargin(margin);
        window.SetBorder(Qt::gray, border, Qt::SolidLine, Qt::BevelJoin);
        window.SetRoundCornerRadius(radius);
        QSize size;
        QPoint apex;
        QVERIFY(window.GetArrowWindowSize(arrow, size, apex));
        QVERIFY(size.width() >= 0 && size.width() <= QWIDGETSIZE_MAX);
        QVERIFY(size.height() >= 0 && size.height() <= QWIDGETSIZE_MAX);
        QVERIFY(window.width() <= QWIDGETSIZE_MAX && window.height() <= QWIDGETSIZE_MAX);
        QVERIFY(window.outline().elementCount() >= 0);
    }
}

void ArrowedWindowLayoutTest::openingsThatStayDegenerateEnd()
{
    // At 10 a step the largest number would take minutes to come down.
    OpenWindow window;
    window.AttachWidget(new QWidget);
    window.InternalWidget()->setFixedSize(100, 40);
    window.SetArrow(EArrowPosition::Bottom, 0, false, 0, Largest, true, 0);
    QCOMPARE(window.GetBounds(), QRect(0, 0, 100, 40));
    window.SetArrow(EArrowPosition::Bottom, 10, false, 0, 90, true, 0);
    QVERIFY(window.GetBounds() != QRect(0, 0, 100, 40));
}

LUMO_TEST_MAIN(ArrowedWindowLayoutTest)
#include "tst_arrowedwindowlayout.moc"
