// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// The shadows of the buttons are kept. All has to look as with those that Qt casts anew each time.

#include <ui_base/ArrowedWindow>
#include <ui_base/FlyoutBase>

#include "flyoutparts.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QGraphicsDropShadowEffect>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

#include <array>
#include <functional>
#include <random>
#include <vector>

using namespace Vela::UiBase;
using namespace Lumo::Test;

namespace {

constexpr QRgb Ground = qRgb(200, 60, 20);

QPushButton &buttonOf(const Flyout &flyout)
{
    return *part<QPushButton>(flyout, "apply_button");
}

QGraphicsDropShadowEffect &shadowOf(const QWidget &button)
{
    return *qobject_cast<QGraphicsDropShadowEffect *>(button.graphicsEffect());
}

void castAnew(QPushButton &button)
{
    auto *const plain = new QGraphicsDropShadowEffect(&button);
    const QGraphicsDropShadowEffect &kept = shadowOf(button);
    plain->setBlurRadius(kept.blurRadius());
    plain->setOffset(kept.offset());
    plain->setColor(kept.color());
    button.setGraphicsEffect(plain);
}

QImage picture(QWidget &widget, QImage::Format format, int ratio)
{
    QImage image(widget.size() * ratio, format);
    image.setDevicePixelRatio(ratio);
    image.fill(Ground);
    widget.render(&image, QPoint(0, 0), QRegion(), QWidget::DrawChildren);
    return image;
}

/// Two flyouts that are always changed alike; the buttons of one have Qt's own shadows.
struct Pair
{
    Flyout ours = makeFlyout();
    Flyout reference = makeFlyout();

    Pair()
    {
        castAnew(buttonOf(reference));
        castAnew(*part<QPushButton>(reference, "cancel_button"));
    }

    void both(const std::function<void(QPushButton &)> &change) const
    {
        change(buttonOf(ours));
        change(buttonOf(reference));
    }
    bool looksRight(QImage::Format format = QImage::Format_ARGB32_Premultiplied,
                    int ratio = 1) const
    {
        return picture(*ours, format, ratio) == picture(*reference, format, ratio);
    }
};

QIcon square(const QColor &color)
{
    QPixmap pixmap(12, 12);
    pixmap.fill(color);
    return QIcon(pixmap);
}

/// Moves the pointer onto a button or away.
void point(QPushButton &button, bool isOn)
{
    button.setAttribute(Qt::WA_Hover);
    button.setAttribute(Qt::WA_UnderMouse);
    const QPointF place = isOn ? QPointF(button.rect().center()) : QPointF(-5, -5);
    QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &move);
    button.setAttribute(Qt::WA_UnderMouse, isOn);
}

void polishAgain(QWidget &widget)
{
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
    widget.update();
}

/// Shows the windows of two widgets, one at a time, and hides them again.
bool isShownAlike(const QWidget &ours, const QWidget &reference)
{
    std::vector<QImage> seen;
    for (const QWidget *const widget : {&ours, &reference}) {
        QWidget *const window = widget->window();
        window->setWindowFlag(Qt::FramelessWindowHint);
        window->move(50, 60);
        window->show();
        if (!QTest::qWaitForWindowExposed(window) || !QTest::qWaitForWindowActive(window))
            return false;
        QCoreApplication::processEvents();
        const QPixmap all = QGuiApplication::primaryScreen()->grabWindow(window->winId());
        seen.push_back(
            all.copy(QRect(widget->mapTo(window, QPoint(0, 0)), widget->size())).toImage());
        window->hide();
    }
    return seen.front() == seen.back();
}

using Change = std::function<void(QPushButton &)>;

std::vector<Change> changes(int number)
{
    const bool isOn = number % 2 == 1;
    return {
        [=](QPushButton &b) { b.setEnabled(isOn); },
        [=](QPushButton &b) { b.setDown(isOn); },
        [=](QPushButton &b) { b.setFlat(isOn); },
        [=](QPushButton &b) { b.setDefault(isOn); },
        [=](QPushButton &b) { point(b, isOn); },
        [=](QPushButton &b) { b.setText(isOn ? QStringLiteral("Apply") : QStringLiteral("A")); },
        [=](QPushButton &b) { b.setIcon(isOn ? square(Qt::yellow) : QIcon()); },
        [=](QPushButton &b) { b.setIconSize(isOn ? QSize(8, 8) : QSize(16, 16)); },
        [=](QPushButton &b) { b.setFixedWidth(60 + 5 * number); },
        [=](QPushButton &b) {
            QFont font = b.font();
            font.setBold(isOn);
            b.setFont(font);
        },
        [=](QPushButton &b) { b.setLayoutDirection(isOn ? Qt::RightToLeft : Qt::LeftToRight); },
        [=](QPushButton &b) {
            b.setStyleSheet(QStringLiteral("QPushButton { border-radius: %1px }").arg(number));
        },
        [=](QPushButton &b) {
            b.setStyleSheet(QStringLiteral("QPushButton { background: rgba(90, 0, 0, %1) }"
                                           "QPushButton[wide=\"true\"] { border-left: 9px solid "
                                           "transparent; background-clip: padding }")
                                .arg(20 * number));
        },
        [=](QPushButton &b) {
            b.setProperty("wide", isOn);
            polishAgain(b);
        },
        [=](QPushButton &b) { b.parentWidget()->setStyleSheet(QString()); },
        [=](QPushButton &b) {
            QPalette palette = b.palette();
            palette.setColor(QPalette::Button, QColor(90, 90, 25 * number));
            palette.setColor(QPalette::ButtonText, QColor(25 * number, 0, 0));
            b.setPalette(palette);
        },
        [=](QPushButton &b) { shadowOf(b).setBlurRadius(number); },
        [=](QPushButton &b) { shadowOf(b).setOffset(number, -number); },
        [=](QPushButton &b) { shadowOf(b).setColor(QColor(0, 0, 0, 25 * number)); },
    };
}

} // namespace

Q_DECLARE_METATYPE(QPainter::CompositionMode)

class FlyoutShadowTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyChangeIsFollowed_data();
    void everyChangeIsFollowed();
    void stateThatComesBackLooksAsBefore();
    void sheetOfTheApplicationIsFollowed();
    void changeOfASheetByAPropertyIsFollowed();
    void changeOfASheetByAnAncestorIsFollowed();
    void looksRightWhereThePainterStands_data();
    void looksRightWhereThePainterStands();
    void looksRightHoweverThePainterPaints_data();
    void looksRightHoweverThePainterPaints();
    void shadowIsSeenOnTheScreen();
    void looksRightInAFrameEachTimeItIsShown();
    void looksRightEachTimeItIsShown();
    void partsOfTheButtonCastAsWell();
};

void FlyoutShadowTest::everyChangeIsFollowed_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<int>("ratio");
    QTest::newRow("translucent") << QImage::Format_ARGB32_Premultiplied << 1;
    QTest::newRow("opaque") << QImage::Format_RGB32 << 1;
    QTest::newRow("twice as dense") << QImage::Format_RGB32 << 2;
    QTest::newRow("of another kind") << QImage::Format_RGB888 << 1;
}

void FlyoutShadowTest::everyChangeIsFollowed()
{
    QFETCH(QImage::Format, format);
    QFETCH(int, ratio);
    const Pair pair;
    std::mt19937 dice(3);
    for (int i = 0; i < 200; ++i) {
        const std::vector<Change> all = changes(int(dice() % 10));
        const std::size_t which = dice() % all.size();
        pair.both(all[which]);
        for (int time = 0; time < 3; ++time) {
            QVERIFY2(pair.looksRight(format, ratio),
                     QByteArray::number(i) + " by change " + QByteArray::number(int(which)));
        }
    }
}

// A pointer that comes and goes.
void FlyoutShadowTest::stateThatComesBackLooksAsBefore()
{
    const Pair pair;
    for (int i = 0; i < 12; ++i) {
        pair.both([i](QPushButton &button) {
            point(button, i % 2 == 1);
            button.setDown(i % 3 == 1);
        });
        QVERIFY(pair.looksRight());
        QVERIFY(pair.looksRight());
    }
}

void FlyoutShadowTest::sheetOfTheApplicationIsFollowed()
{
    const Pair pair;
    for (const int radius : {0, 3, 8, 0}) {
        qApp->setStyleSheet(QStringLiteral("QPushButton { border-radius: %1px; }").arg(radius));
        for (int time = 0; time < 3; ++time)
            QVERIFY(pair.looksRight());
    }
    qApp->setStyleSheet(QString());
    QVERIFY(pair.looksRight());
}

void FlyoutShadowTest::changeOfASheetByAPropertyIsFollowed()
{
    const Pair pair;
    pair.both([](QPushButton &button) {
        button.setStyleSheet(QStringLiteral("QPushButton[round=\"true\"] { border-radius: 9px; }"));
    });
    for (int i = 0; i < 4; ++i) {
        pair.both([i](QPushButton &button) {
            button.setProperty("round", i % 2 == 1);
            polishAgain(button);
        });
        for (int time = 0; time < 3; ++time)
            QVERIFY(pair.looksRight());
    }
}

// The button itself hears nothing of it.
void FlyoutShadowTest::changeOfASheetByAnAncestorIsFollowed()
{
    const Pair pair;
    for (const Flyout *const flyout : {&pair.ours, &pair.reference}) {
        (*flyout)->setStyleSheet(QStringLiteral(
            "QPushButton { border: 2px solid black; }"
            "QWidget[round=true] QPushButton { border: 2px solid black; border-radius: 12px; }"));
    }
    QVERIFY(pair.looksRight());
    QVERIFY(pair.looksRight());
    for (const Flyout *const flyout : {&pair.ours, &pair.reference})
        (*flyout)->setProperty("round", true);
    pair.both([](QPushButton &button) { polishAgain(button); });
    QVERIFY(pair.looksRight());
}

void FlyoutShadowTest::looksRightWhereThePainterStands_data()
{
    QTest::addColumn<QTransform>("transform");
    QTest::newRow("moved") << QTransform::fromTranslate(7, 3);
    QTest::newRow("moved by half a pixel") << QTransform::fromTranslate(0.5, 0.5);
    QTest::newRow("enlarged") << QTransform::fromScale(2, 2);
    QTest::newRow("turned") << QTransform().rotate(90).translate(0, -200);
}

void FlyoutShadowTest::looksRightWhereThePainterStands()
{
    QFETCH(QTransform, transform);
    const Pair pair;
    const auto painted = [&transform](const Flyout &flyout) {
        QImage image(500, 400, QImage::Format_ARGB32_Premultiplied);
        image.fill(Ground);
        QPainter painter(&image);
        painter.setTransform(transform);
        flyout->render(&painter, QPoint(4, 2), QRegion(), QWidget::DrawChildren);
        return image;
    };
    QVERIFY(pair.looksRight());
    for (int time = 0; time < 3; ++time)
        QVERIFY(painted(pair.ours) == painted(pair.reference));
    QVERIFY(pair.looksRight());
    QVERIFY(painted(pair.ours) == painted(pair.reference));
}

void FlyoutShadowTest::looksRightHoweverThePainterPaints_data()
{
    QTest::addColumn<qreal>("opacity");
    QTest::addColumn<QPainter::CompositionMode>("mode");
    QTest::addColumn<QRegion>("clip");
    const QRegion all(0, 0, 500, 400);
    QTest::newRow("half") << 0.5 << QPainter::CompositionMode_SourceOver << all;
    QTest::newRow("lighter") << 1.0 << QPainter::CompositionMode_Plus << all;
    QTest::newRow("darker") << 1.0 << QPainter::CompositionMode_Multiply << all;
    QTest::newRow("a part") << 1.0 << QPainter::CompositionMode_SourceOver
                            << QRegion(0, 0, 180, 140, QRegion::Ellipse);
}

void FlyoutShadowTest::looksRightHoweverThePainterPaints()
{
    QFETCH(qreal, opacity);
    QFETCH(QPainter::CompositionMode, mode);
    QFETCH(QRegion, clip);
    const Pair pair;
    const auto painted = [&](const Flyout &flyout) {
        QImage image(500, 400, QImage::Format_ARGB32_Premultiplied);
        image.fill(Ground);
        QPainter painter(&image);
        painter.setOpacity(opacity);
        painter.setCompositionMode(mode);
        painter.setClipRegion(clip);
        flyout->render(&painter, QPoint(4, 2), QRegion(), QWidget::DrawChildren);
        return image;
    };
    for (int time = 0; time < 3; ++time)
        QVERIFY(pair.looksRight());
    QVERIFY(painted(pair.ours) == painted(pair.reference));
}

void FlyoutShadowTest::shadowIsSeenOnTheScreen()
{
    const Pair pair;
    const auto seen = [](const Flyout &flyout) {
        return QGuiApplication::primaryScreen()->grabWindow(flyout->winId()).toImage();
    };
    const auto isSeenRight = [&] {
        for (const Flyout *const flyout : {&pair.ours, &pair.reference})
            (*flyout)->repaint();
        return seen(pair.ours) == seen(pair.reference);
    };
    for (const Flyout *const flyout : {&pair.ours, &pair.reference}) {
        (*flyout)->setWindowFlag(Qt::FramelessWindowHint);
        (*flyout)->setAttribute(Qt::WA_ShowWithoutActivating);
        (*flyout)->show();
        QVERIFY(QTest::qWaitForWindowExposed(flyout->get()));
    }
    qApp->setActiveWindow(nullptr);
    for (int time = 0; time < 4; ++time)
        QTRY_VERIFY(isSeenRight());
    const QImage before = seen(pair.ours);
    pair.both([](QPushButton &button) { button.setText(QStringLiteral("Go")); });
    for (int time = 0; time < 4; ++time)
        QTRY_VERIFY(isSeenRight());
    QVERIFY(seen(pair.ours) != before);
    // Only the button.
    pair.both([](QPushButton &button) { button.repaint(); });
    QVERIFY(seen(pair.ours) == seen(pair.reference));
}

void FlyoutShadowTest::looksRightInAFrameEachTimeItIsShown()
{
    std::array<ArrowedWindow, 2> frames;
    const Pair pair;
    frames[0].AttachWidget(pair.ours.get());
    frames[1].AttachWidget(pair.reference.get());
    for (ArrowedWindow &frame : frames)
        frame.EnableShadow(true);
    for (int time = 0; time < 6; ++time) {
        QVERIFY(isShownAlike(*pair.ours, *pair.reference));
        if (time == 3)
            pair.both([](QPushButton &button) { button.setText(QStringLiteral("Go")); });
    }
}

void FlyoutShadowTest::looksRightEachTimeItIsShown()
{
    const Pair pair;
    for (int time = 0; time < 6; ++time) {
        QVERIFY(isShownAlike(*pair.ours, *pair.reference));
        if (time == 3)
            pair.both([](QPushButton &button) { button.setText(QStringLiteral("Go")); });
    }
}

void FlyoutShadowTest::partsOfTheButtonCastAsWell()
{
    const Pair pair;
    pair.both([](QPushButton &button) {
        button.setStyleSheet(QStringLiteral("background: transparent; border: none"));
    });
    for (int time = 0; time < 3; ++time)
        QVERIFY(pair.looksRight());
    pair.both([](QPushButton &button) {
        auto *const label = new QLabel(&button);
        label->setStyleSheet(QStringLiteral("background: black"));
        label->setGeometry(2, 2, 10, 10);
        label->show();
    });
    QVERIFY(pair.looksRight());
    pair.both([](QPushButton &button) { button.findChild<QLabel *>()->resize(14, 14); });
    QVERIFY(pair.looksRight());
}

LUMO_TEST_MAIN(FlyoutShadowTest)
#include "tst_flyoutshadow.moc"
