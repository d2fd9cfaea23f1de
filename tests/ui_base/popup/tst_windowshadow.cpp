// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// The shadow of a window with an arrow is kept from one painting to the next. It has to look like the
// one that Qt casts anew each time.

#include "arrowreference.h"
#include "openwindow.h"
#include "support/paintcounter.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QGraphicsDropShadowEffect>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

#include <functional>
#include <memory>
#include <vector>

using Lumo::Test::Dice;
using Lumo::Test::OpenWindow;
using namespace Vela::UiBase;

namespace {

constexpr QSize Room(300, 220);
constexpr QPoint Place(40, 40);

void takeLook(QGraphicsDropShadowEffect &effect, const QGraphicsDropShadowEffect &look)
{
    effect.setBlurRadius(look.blurRadius());
    effect.setOffset(look.offset());
    effect.setColor(look.color());
}

/// Draws its frame anew each time.
class DrawnWindow : public OpenWindow
{
public:
    using OpenWindow::OpenWindow;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        data().paintFrame(painter);
    }
};

/// A window with an arrow that stands in another one, and all that changes how it looks.
template<typename Window>
struct Scene
{
    QWidget room;
    Window *const window = new Window(&room);
    QWidget *const content = new QWidget;
    QPushButton *const button = new QPushButton(content);

    Scene()
    {
        room.resize(Room);
        content->setFixedSize(120, 60);
        content->setAutoFillBackground(false);
        button->setGeometry(20, 15, 60, 25);
        window->AttachWidget(content);
        window->move(Place);
        auto *const inner = new QGraphicsDropShadowEffect(button);
        inner->setBlurRadius(5);
        inner->setOffset(0);
        button->setGraphicsEffect(inner);
    }
};

/// Two such windows that are always changed alike; one has the library's shadow, the other Qt's.
template<typename Window>
struct Pair
{
    Scene<Window> ours;
    Scene<DrawnWindow> reference;
    QGraphicsDropShadowEffect *const effect = new QGraphicsDropShadowEffect(reference.window);

    Pair()
    {
        ours.window->EnableShadow(true);
        takeLook(*effect, *ours.window->GetShadow());
        reference.window->setGraphicsEffect(effect);
    }

    template<typename Change>
    void both(Change change)
    {
        change(*ours.window, *ours.content);
        change(*reference.window, *reference.content);
    }
};

QImage picture(QWidget &widget, int ratio)
{
    QImage image(widget.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(qRgb(20, 60, 200));
    widget.render(&image);
    return image;
}

/// The pixels that a frame covers.
QRegion covered(OpenWindow &window)
{
    QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        window.data().paintFrame(painter);
    }
    QRegion region;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0)
                region += QRect(x, y, 1, 1);
        }
    }
    return region;
}

/// As the window system has got it.
QImage onScreen(const QWidget &window)
{
    return QGuiApplication::primaryScreen()->grabWindow(window.winId()).toImage();
}

using Change = std::function<void(ArrowedWindow &, QWidget &)>;

std::vector<Change> changes(Dice &dice)
{
    const int position = dice.roll(1, 8);
    const int length = dice.roll(5, 25);
    const int offset = dice.roll(-40, 40);
    const int number = dice.roll(0, 9);
    const bool alongX = dice.flip();
    const QSize size(dice.roll(90, 180), dice.roll(45, 120));
    const QColor color(dice.roll(0, 255), 90, 90, dice.flip() ? 255 : 100);
    return {
        [=](ArrowedWindow &w, QWidget &) {
            w.SetArrow(EArrowPosition(position), length, false, 0, 90, alongX, offset);
        },
        [=](ArrowedWindow &w, QWidget &) {
            w.SetBorder(color, number, Qt::SolidLine, Qt::BevelJoin);
            w.GenerateLayout();
        },
        [=](ArrowedWindow &w, QWidget &) {
            w.SetRoundCornerRadius(number);
            w.GenerateLayout();
        },
        [=](ArrowedWindow &w, QWidget &) {
            w.SetContentMargin(number);
            w.GenerateLayout();
        },
        [=](ArrowedWindow &w, QWidget &content) {
            content.setFixedSize(size);
            w.GenerateLayout();
        },
        [=](ArrowedWindow &w, QWidget &) {
            w.SetPartialBackgroundColor(number > 6, QRect(0, number, 1, 20), color);
        },
        [=](ArrowedWindow &w, QWidget &content) {
            w.DetachWidget();
            QPalette palette = content.palette();
            palette.setColor(QPalette::Window, number > 6 ? color : QColor(240, 240, number));
            content.setPalette(palette);
            content.show();
            w.AttachWidget(&content);
        },
    };
}

} // namespace

class WindowShadowTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyChangeIsFollowed_data();
    void everyChangeIsFollowed();
    void changedLookOfTheShadowIsFollowed_data();
    void changedLookOfTheShadowIsFollowed();
    void otherBorderOfTheSameOutlineIsFollowed();
    void otherWidgetsBesideTheContentCastIt();
    void groundOfTheWindowCastsAsWell();
    void borderThatHasNoRoomYetEndsWithTheWindow();
    void contentThatIsSmallerThanTheBorderStaysInIt_data();
    void contentThatIsSmallerThanTheBorderStaysInIt();
    void windowSmallerThanItsLayoutIsCutOff();
    void windowWithAMaskCastsWithinThat();
    void otherFillOfTheSameOutlineIsFollowed();
    void shadowIsPaintedAsThePainterPaints();
    void shadowIsSeenOnTheScreen();
    void contentIsPaintedOncePerFrame();
    void shadowIsUsableOnAnotherWidget();
    void frameOfASubclassCastsWhatItPaints();
    void regionThatIsSeenFollowsEveryChange();
    void whatIsTransparentIsNotSeen();

private:
    template<typename Window>
    static void followChanges();
    template<typename Window>
    static void followLooks();
};

// That of the class itself is known by its outline, that of a subclass by its picture.
void WindowShadowTest::everyChangeIsFollowed_data()
{
    QTest::addColumn<bool>("isSubclass");
    QTest::newRow("the class itself") << false;
    QTest::newRow("a subclass") << true;
}

void WindowShadowTest::everyChangeIsFollowed()
{
    QFETCH(bool, isSubclass);
    isSubclass ? followChanges<OpenWindow>() : followChanges<ArrowedWindow>();
}

template<typename Window>
void WindowShadowTest::followChanges()
{
    Dice dice(11);
    Pair<Window> pair;
    for (int i = 0; i < 150; ++i) {
        const std::vector<Change> all = changes(dice);
        const std::size_t which = std::size_t(dice.roll(0, int(all.size()) - 1));
        pair.both(all[which]);
        const int ratio = dice.roll(1, 2);
        const QImage expected = picture(pair.reference.room, ratio);
        QVERIFY2(picture(pair.ours.room, ratio) == expected,
                 QByteArray::number(i) + " by change " + QByteArray::number(int(which)));
        // Out of what was kept.
        QVERIFY2(picture(pair.ours.room, ratio) == expected, QByteArray::number(i) + " again");
    }
}

void WindowShadowTest::changedLookOfTheShadowIsFollowed_data()
{
    everyChangeIsFollowed_data();
}

void WindowShadowTest::changedLookOfTheShadowIsFollowed()
{
    QFETCH(bool, isSubclass);
    isSubclass ? followLooks<OpenWindow>() : followLooks<ArrowedWindow>();
}

void WindowShadowTest::otherBorderOfTheSameOutlineIsFollowed()
{
    Pair<ArrowedWindow> pair;
    for (const int width : {2, 3, 4, 5}) {
        pair.both([width](ArrowedWindow &window, QWidget &) {
            window.SetBorder(Qt::darkRed, width, Qt::SolidLine, Qt::BevelJoin);
        });
        QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
    }
}

template<typename Window>
void WindowShadowTest::followLooks()
{
    Pair<Window> pair;
    QGraphicsDropShadowEffect &shadow = *pair.ours.window->GetShadow();
    const auto compare = [&] {
        takeLook(*pair.effect, shadow);
        return picture(pair.ours.room, 1) == picture(pair.reference.room, 1);
    };
    QVERIFY(compare());
    shadow.setBlurRadius(4);
    QVERIFY(compare());
    shadow.setOffset(6, 3);
    QVERIFY(compare());
    shadow.setColor(QColor(0, 0, 0, 200));
    QVERIFY(compare());
    shadow.setBlurRadius(0);
    QVERIFY(compare());
    shadow.setOffset(0, 0);
    QVERIFY(compare());
}

void WindowShadowTest::otherWidgetsBesideTheContentCastIt()
{
    Pair<ArrowedWindow> pair;
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
    const auto addLabel = [](ArrowedWindow &window, QWidget &) {
        auto *const label = new QLabel(&window);
        label->setAutoFillBackground(true);
        label->setGeometry(0, window.height() - 6, 6, 6);
        label->show();
    };
    pair.both(addLabel);
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
}

void WindowShadowTest::groundOfTheWindowCastsAsWell()
{
    Pair<ArrowedWindow> pair;
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
    pair.both([](ArrowedWindow &window, QWidget &) {
        QPalette palette = window.palette();
        palette.setColor(QPalette::Window, Qt::darkGreen);
        window.setPalette(palette);
        window.setAutoFillBackground(true);
    });
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
    pair.both([](ArrowedWindow &window, QWidget &) { window.setAutoFillBackground(false); });
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
    pair.both([](ArrowedWindow &window, QWidget &) {
        window.setAttribute(Qt::WA_StyledBackground);
        window.setStyleSheet(QStringLiteral("background: darkred"));
    });
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
}

// A new border takes effect at once, the room for it with the next layout.
void WindowShadowTest::borderThatHasNoRoomYetEndsWithTheWindow()
{
    Pair<ArrowedWindow> pair;
    for (const int width : {5, 9, 20}) {
        pair.both([width](ArrowedWindow &window, QWidget &) {
            window.SetBorder(Qt::blue, width, Qt::SolidLine, Qt::MiterJoin);
        });
        QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
    }
}

void WindowShadowTest::contentThatIsSmallerThanTheBorderStaysInIt_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("border");
    QTest::newRow("8 in 6") << 8 << 6;
    QTest::newRow("3 in 20") << 3 << 20;
    QTest::newRow("15 in 6") << 15 << 6; // the smallest that has an inside
}

void WindowShadowTest::contentThatIsSmallerThanTheBorderStaysInIt()
{
    QFETCH(int, side);
    QFETCH(int, border);
    Pair<ArrowedWindow> pair;
    pair.both([&](ArrowedWindow &window, QWidget &content) {
        window.SetBorder(Qt::blue, border, Qt::SolidLine, Qt::MiterJoin);
        content.setFixedSize(side, side);
        window.SetArrow(EArrowPosition::Top, 10, false, 0, 90, true, 0);
        window.layout()->activate();
    });
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
}

void WindowShadowTest::windowSmallerThanItsLayoutIsCutOff()
{
    Pair<ArrowedWindow> pair;
    pair.both([](ArrowedWindow &window, QWidget &) {
        const QSize size = window.size() - QSize(20, 20);
        window.setFixedSize(size);
        window.resize(size);
    });
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
}

void WindowShadowTest::windowWithAMaskCastsWithinThat()
{
    Pair<ArrowedWindow> pair;
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
    pair.both([](ArrowedWindow &window, QWidget &) {
        window.setMask(QRegion(window.rect(), QRegion::Ellipse));
    });
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
}

void WindowShadowTest::otherFillOfTheSameOutlineIsFollowed()
{
    Pair<ArrowedWindow> pair;
    for (const QColor color : {Qt::red, Qt::yellow, Qt::blue}) {
        pair.both([color](ArrowedWindow &window, QWidget &content) {
            window.DetachWidget();
            content.setPalette(QPalette(color));
            content.show();
            window.AttachWidget(&content);
        });
        QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
    }
}

void WindowShadowTest::shadowIsPaintedAsThePainterPaints()
{
    Pair<ArrowedWindow> pair;
    const auto painted = [](QWidget &window) {
        QImage image(Room, QImage::Format_ARGB32_Premultiplied);
        image.fill(qRgb(20, 60, 200));
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_Plus);
        window.render(&painter, Place, QRegion(), QWidget::DrawChildren);
        return image;
    };
    QVERIFY(picture(pair.ours.room, 1) == picture(pair.reference.room, 1));
    QVERIFY(painted(*pair.ours.window) == painted(*pair.reference.window));
}

// There the widgets paint one after the other on one device, and the button has a shadow, too.
void WindowShadowTest::shadowIsSeenOnTheScreen()
{
    Pair<ArrowedWindow> pair;
    for (QWidget *const room : {&pair.ours.room, &pair.reference.room}) {
        room->setWindowFlag(Qt::FramelessWindowHint);
        room->show();
        QVERIFY(QTest::qWaitForWindowExposed(room));
    }
    const QImage expected = picture(pair.reference.room, 1).convertToFormat(QImage::Format_RGB32);
    const auto seen = [](const QWidget &room) {
        return onScreen(room).convertToFormat(QImage::Format_RGB32);
    };
    QTRY_VERIFY(seen(pair.ours.room) == expected);
    pair.ours.button->setText(QStringLiteral("changed"));
    pair.reference.button->setText(QStringLiteral("changed"));
    const QImage changed = picture(pair.reference.room, 1).convertToFormat(QImage::Format_RGB32);
    QVERIFY(changed != expected);
    QTRY_VERIFY(seen(pair.ours.room) == changed);
}

void WindowShadowTest::contentIsPaintedOncePerFrame()
{
    Pair<ArrowedWindow> pair;
    Lumo::Test::PaintCounter counter;
    pair.ours.button->installEventFilter(&counter);
    picture(pair.ours.room, 1);
    QCOMPARE(counter.paints, 1);
    picture(pair.ours.room, 1);
    QCOMPARE(counter.paints, 2);
}

void WindowShadowTest::shadowIsUsableOnAnotherWidget()
{
    QPointer<QGraphicsDropShadowEffect> shadow;
    QLabel label(QStringLiteral("text"));
    label.resize(80, 40);
    auto window = std::make_unique<ArrowedWindow>();
    window->AttachWidget(new QWidget);
    shadow = window->GetShadow();
    shadow->setParent(nullptr);
    label.setGraphicsEffect(shadow);
    window.reset();
    const QImage ours = picture(label, 1);
    auto *const plain = new QGraphicsDropShadowEffect;
    takeLook(*plain, *shadow);
    label.setGraphicsEffect(plain);
    QVERIFY(!shadow);
    QVERIFY(picture(label, 1) == ours);
}

void WindowShadowTest::frameOfASubclassCastsWhatItPaints()
{
    class Cross : public ArrowedWindow
    {
    public:
        using ArrowedWindow::ArrowedWindow;

    protected:
        void paintEvent(QPaintEvent *) override
        {
            QPainter(this).fillRect(QRect(10, 10, 20, 20), Qt::red);
        }
    };
    QWidget room;
    room.resize(Room);
    auto *const window = new Cross(&room);
    auto *const content = new QWidget;
    content->setFixedSize(120, 60);
    window->AttachWidget(content);
    window->EnableShadow(true);
    const QImage ours = picture(room, 1);
    auto *const plain = new QGraphicsDropShadowEffect;
    takeLook(*plain, *window->GetShadow());
    window->setGraphicsEffect(plain);
    QVERIFY(picture(room, 1) == ours);
}

// Windows that nothing blends are cut out to it.
void WindowShadowTest::regionThatIsSeenFollowsEveryChange()
{
    Dice dice(5);
    Scene<OpenWindow> scene;
    for (int i = 0; i < 60; ++i) {
        const std::vector<Change> all = changes(dice);
        const std::size_t which = std::size_t(dice.roll(0, int(all.size()) - 1));
        all[which](*scene.window, *scene.content);
        const QRegion expected = covered(*scene.window);
        QVERIFY2(scene.window->data().seenRegion() == expected,
                 QByteArray::number(i) + " by change " + QByteArray::number(int(which)));
        QVERIFY2(scene.window->data().seenRegion() == expected, QByteArray::number(i) + " again");
    }
}

void WindowShadowTest::whatIsTransparentIsNotSeen()
{
    Scene<OpenWindow> scene;
    scene.window->SetArrow(EArrowPosition::Top, 10, false, 0, 90, true, 0);
    const auto isRight = [&scene] {
        return scene.window->data().seenRegion() == covered(*scene.window);
    };
    QVERIFY(isRight());
    scene.window->SetBorder(Qt::gray, 4, Qt::SolidLine, Qt::BevelJoin);
    QVERIFY(isRight());
    scene.window->SetBorder(Qt::transparent, 4, Qt::SolidLine, Qt::BevelJoin);
    QVERIFY(isRight());
    scene.window->SetPartialBackgroundColor(true, QRect(0, 0, 1, 400), Qt::red);
    QVERIFY(isRight());
    scene.window->SetPartialBackgroundColor(true, QRect(0, 0, 1, 400), Qt::transparent);
    QVERIFY(isRight());
    scene.window->DetachWidget();
    QVERIFY(isRight());
}

LUMO_TEST_MAIN(WindowShadowTest)
#include "tst_windowshadow.moc"
