// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/FloatingLayer>
#include <ui_base/NotificationBar>

#include "drivenbar.h"
#include "support/accessibleevents.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QImage>
#include <QLayout>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>
#include <type_traits>

using Lumo::Test::DrivenBar;
using namespace Vela::UiBase;

static_assert(std::is_same_v<std::underlying_type_t<ENotificationFadeOption>, int>);
static_assert(sizeof(ENotificationFadeOption) == 4);
static_assert(std::is_base_of_v<QWidget, NotificationBar>);
static_assert(!std::is_constructible_v<NotificationBar, NotificationBarPrivate &, QWidget *>);

namespace {

constexpr int Minute = 60'000;
const QColor Full(245, 245, 245, 230);
const QColor Pulsed(232, 232, 232, 230);
const QColor Outer(190, 182, 173);
const QColor Disc(128, 128, 128);
const QColor Sweep(163, 207, 233);

// A visible view of 700 by 300 with a bar over it.
struct Scene
{
    QWidget host;
    QPointer<DrivenBar> bar;

    Scene()
    {
        host.resize(700, 300);
        host.show();
        bar = new DrivenBar(&host);
    }
};

QWidget *makeControl(int width, int height)
{
    auto *const control = new QWidget;
    control->setFixedSize(width, height);
    return control;
}

QString longText()
{
    return QStringLiteral("word ").repeated(400).trimmed();
}

QAbstractAnimation *child(const QAbstractAnimation *group, int index)
{
    return static_cast<const QAnimationGroup *>(group)->animationAt(index);
}

QPropertyAnimation *asProperty(QAbstractAnimation *animation)
{
    return qobject_cast<QPropertyAnimation *>(animation);
}

// What a property animation does.
struct Track
{
    QByteArray property;
    QVariant from;
    QVariant to;
    int duration;
    int loops;

    explicit Track(QAbstractAnimation *animation)
    {
        const auto *const p = qobject_cast<QPropertyAnimation *>(animation);
        property = p->propertyName();
        from = p->startValue();
        to = p->endValue();
        duration = p->duration();
        loops = p->loopCount();
    }
};

class EventCounter : public QObject
{
public:
    EventCounter(QObject *watched, QEvent::Type type)
        : m_type(type)
    {
        watched->installEventFilter(this);
    }
    int count = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == m_type ? 1 : 0;
        return false;
    }

private:
    const QEvent::Type m_type;
};

QImage picture(QWidget &widget)
{
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

QSize textBox(const QLabel &label)
{
    const QSize words = label.fontMetrics().boundingRect(label.text()).size();
    const int wanted = std::min(std::max(int(words.width() * 1.3), 200), 600);
    const int labelWidth = int(wanted / 1.1);
    const int width = std::min(std::max(int(labelWidth * 1.3), 200), 600);
    const double needed = label.heightForWidth(width) * 1.4;
    const int height = needed >= 40 ? int(needed - label.sizeHint().height() + 40) : 40;
    return {width, height};
}

} // namespace

/// Asks for the name of a bar when that is hidden, as a screen reader does.
class AskingOnHide : public QObject
{
public:
    explicit AskingOnHide(QWidget *bar)
    {
        QAccessible::queryAccessibleInterface(bar);
        bar->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Hide)
            names << QAccessible::queryAccessibleInterface(watched)->text(QAccessible::Name);
        return false;
    }

    QStringList names;
};

class tst_NotificationBar : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // Making

    void optionsHaveTheirValues()
    {
        QCOMPARE(int(eNotificationFadeInOut), 0);
        QCOMPARE(int(eNotificationPulse), 1);
        QCOMPARE(int(eNotificationFadeOutOnly), 2);
        QCOMPARE(int(eNotificationNoFade), 3);
    }

    void barIsBuiltHiddenAndTransparent()
    {
        QWidget host;
        const DrivenBar bar(&host);
        host.show();
        QVERIFY(!bar.isVisible());
        QVERIFY(!bar.isShowing());
        QCOMPARE(bar.opacity(), 0.0);
        QCOMPARE(bar.focusPolicy(), Qt::NoFocus);
        QVERIFY(bar.testAttribute(Qt::WA_TranslucentBackground));
    }

    void barStartsBelowItsSiblings()
    {
        QWidget host;
        auto *const sibling = new QWidget(&host);
        const DrivenBar bar(&host);
        QCOMPARE(host.children().last(), sibling);
    }

    void dataStartFromTheDefaults()
    {
        const Scene scene;
        const NotificationBarPrivate &d = scene.bar->data();
        QVERIFY(d.text.isEmpty() && !d.control && !d.label);
        QCOMPARE(d.dismissInterval, 3000);
        QCOMPARE(d.fadeDuration, 700);
        QCOMPARE(d.easingCurve, QEasingCurve(QEasingCurve::Linear));
        QCOMPARE(d.maxWidth, 600);
        QCOMPARE(d.minSize, QSize(200, 40));
        QCOMPARE(d.font.family(), QStringLiteral("LATO Regular"));
        QCOMPARE(d.font.pixelSize(), 12);
        QCOMPARE(d.parentWidget.data(), &scene.host);
        QCOMPARE(d.textColor, QColor(96, 96, 96, 255));
        QCOMPARE(d.fadeOption, eNotificationFadeInOut);
        QVERIFY(!d.spinnerVisible && !d.spinnerOnly && !d.deterministicSpinner);
        QVERIFY(!d.closeButtonVisible && !d.closedByUser && !d.showing);
        QVERIFY(d.outerRect.isNull() && d.discRect.isNull());
        QVERIFY(d.centreRect.isNull() && d.pixmapRect.isNull());
    }

    void coloursStartFromTheDefaults()
    {
        const Scene scene;
        const NotificationBarPrivate &d = scene.bar->data();
        QCOMPARE(d.backColor, Full);
        QCOMPARE(d.fullBackColor, Full);
        QCOMPARE(d.pulseBackColor, Pulsed);
        QCOMPARE(d.spinnerOuterColor, Outer);
        QCOMPARE(d.spinnerDiscColor, Disc);
        QCOMPARE(d.spinnerSweepColor, Sweep);
        QCOMPARE(d.spinnerPenColor, QColor(96, 96, 96));
        QCOMPARE(scene.bar->BackColor(), Full);
    }

    void spinnerStartsFromTheDefaults()
    {
        const Scene scene;
        const NotificationBarPrivate &d = scene.bar->data();
        QCOMPARE(d.spinnerPeriod, 1000);
        QCOMPARE(d.spinnerSize, 48);
        QCOMPARE(d.spinnerDiscSize, 40);
        QCOMPARE(d.spinnerCentreSize, 28);
        QCOMPARE(d.spinnerSweep, 90.0);
        QCOMPARE(d.spinnerAngle, 0.0);
        QCOMPARE(d.spinnerGap, 10);
        QCOMPARE(d.pixmapSize, 18);
        QVERIFY(!d.spinnerPixmap.isNull());
        QCOMPARE(d.spinnerPixmap.size(), QSize(48, 48) * qApp->devicePixelRatio());
    }

    void timersAreSingleShotAndAtRest()
    {
        const Scene scene;
        const NotificationBarPrivate &d = scene.bar->data();
        QVERIFY(d.dismissTimer->isSingleShot());
        QCOMPARE(d.dismissTimer->interval(), 3000);
        QVERIFY(!d.dismissTimer->isActive());
        QVERIFY(d.switchTimer->isSingleShot());
        QCOMPARE(d.switchTimer->interval(), 100);
        QVERIFY(!d.switchTimer->isActive());
    }

    void timersDriveTheBar()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeOutOnly, 0, false);
        QVERIFY(!scene.bar->isVisible());
        QTRY_VERIFY(scene.bar->isVisible());
        QTRY_VERIFY(!scene.bar->isShowing());
        QTRY_VERIFY(!scene.bar->isVisible());
    }

    void holderIsTheBoxWithTheEffect()
    {
        const Scene scene;
        const NotificationBarPrivate &d = scene.bar->data();
        QCOMPARE(d.holder->parentWidget(), scene.bar.data());
        QCOMPARE(d.holder->objectName(), QStringLiteral("notification_holder"));
        QCOMPARE(d.holder->focusPolicy(), Qt::NoFocus);
        QVERIFY(d.holder->autoFillBackground());
        QVERIFY(qobject_cast<QVBoxLayout *>(d.holder->layout()));
        QCOMPARE(d.holder->graphicsEffect(), d.opacityEffect);
        QCOMPARE(d.holder->styleSheet(),
                 QStringLiteral("QWidget#notification_holder                    "
                                "{background-color: #FFFFFF;                    "
                                "border: 1px solid #A0A0A0;        }        QLabel {            "
                                "font-size: 12px;            font-family: 'Arial';            "
                                "color: #606060;        }        "));
    }

    void closeButtonStandsInTheBox()
    {
        const Scene scene;
        const QToolButton *const button = scene.bar->data().closeButton;
        QCOMPARE(button->parentWidget(), scene.bar->data().holder);
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QCOMPARE(button->minimumSize(), QSize(20, 20));
        QCOMPARE(button->maximumSize(), QSize(20, 20));
        const QString blanks(44, QLatin1Char(' '));
        QCOMPARE(button->styleSheet(),
                 QStringLiteral("QToolButton {%1background-color: transparent;%1width: 20px;%1"
                                "height: 20px;%1image: url(:/resources/images/sys_close.png);%1}%1"
                                "QToolButton:hover {%1"
                                "image: url(:/resources/images/sys_close_hover.png);%1}")
                     .arg(blanks));
    }

    void animationsDriveDeclaredProperties()
    {
        const QMetaObject &meta = NotificationBar::staticMetaObject;
        for (const char *name : {"BackColor", "SpinnerAngle"}) {
            const QMetaProperty found = meta.property(meta.indexOfProperty(name));
            QVERIFY2(found.isReadable() && found.isWritable(), name);
        }
        const Scene scene;
        scene.bar->setProperty("BackColor", QColor(Qt::red));
        QCOMPARE(scene.bar->BackColor(), QColor(Qt::red));
        const QWidget *const holder = scene.bar->data().holder;
        QCOMPARE(holder->palette().color(holder->backgroundRole()), QColor(Qt::red));
        scene.bar->setProperty("SpinnerAngle", 12.5);
        QCOMPARE(scene.bar->SpinnerAngle(), 12.5);
    }

    void slotsAreFoundByName_data()
    {
        QTest::addColumn<QByteArray>("signature");
        QTest::addColumn<int>("access");
        QTest::newRow("dismiss") << QByteArray("DismissMe()") << int(QMetaMethod::Public);
        for (const char *name : {"OnDismissTimerTimeOut()", "OnSwitchTimerTimeOut()",
                                 "OnAnimationFinished()", "OnCloseButtonClicked()", "HideMe()"})
            QTest::newRow(name) << QByteArray(name) << int(QMetaMethod::Protected);
    }

    void slotsAreFoundByName()
    {
        QFETCH(QByteArray, signature);
        QFETCH(int, access);
        const QMetaObject &meta = NotificationBar::staticMetaObject;
        const int index = meta.indexOfSlot(signature);
        QVERIFY(index >= 0);
        QCOMPARE(int(meta.method(index).access()), access);
    }

    void subclassBringsItsOwnData()
    {
        struct WidePrivate : NotificationBarPrivate
        {
            explicit WidePrivate(bool *isDeleted)
                : deleted(isDeleted)
            {
                minSize = QSize(300, 80);
            }
            ~WidePrivate() override { *deleted = true; }
            bool *deleted;
        };
        bool isDeleted = false;
        QWidget host;
        {
            DrivenBar bar(*new WidePrivate(&isDeleted), &host);
            bar.SetControl(makeControl(10, 10));
            QCOMPARE(bar.data().holder->size(), QSize(300, 80));
        }
        QVERIFY(isDeleted);
    }

    // Coming

    void messageComesAfterTheDelay()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeInOut, 5000, false);
        QVERIFY(scene.bar->data().switchTimer->isActive());
        QVERIFY(!scene.bar->isVisible());
        QVERIFY(!scene.bar->isShowing());
        QVERIFY(!scene.bar->data().dismissTimer->isActive());
        scene.bar->appear();
        QVERIFY(scene.bar->isVisible());
        QVERIFY(scene.bar->isShowing());
    }

    void messageStaysForItsTime_data()
    {
        QTest::addColumn<int>("milliseconds");
        QTest::addColumn<int>("interval");
        QTest::newRow("usual") << 5000 << 5000;
        QTest::newRow("none") << 0 << 0;
        QTest::newRow("negative") << -1 << 0;
        QTest::newRow("smallest") << std::numeric_limits<int>::min() << 0;
        QTest::newRow("huge") << std::numeric_limits<int>::max() << std::numeric_limits<int>::max();
    }

    void messageStaysForItsTime()
    {
        QFETCH(int, milliseconds);
        QFETCH(int, interval);
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeInOut, milliseconds,
                                  false);
        scene.bar->appear();
        QVERIFY(scene.bar->data().dismissTimer->isActive());
        QCOMPARE(scene.bar->data().dismissTimer->interval(), interval);
        QCOMPARE(scene.bar->data().dismissInterval, 3000);
    }

    void fadeInOutFadesIn()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeInOut, Minute, false);
        scene.bar->appear();
        const QParallelAnimationGroup *const group = scene.bar->data().animationGroup;
        QCOMPARE(group->state(), QAbstractAnimation::Running);
        QCOMPARE(group->animationCount(), 1);
        const auto *const sequence = qobject_cast<QSequentialAnimationGroup *>(child(group, 0));
        QVERIFY(sequence);
        QCOMPARE(sequence->animationCount(), 1);
        const Track fade(child(sequence, 0));
        QCOMPARE(fade.property, QByteArray("opacity"));
        QCOMPARE(asProperty(child(sequence, 0))->targetObject(), scene.bar->data().opacityEffect);
        QCOMPARE(fade.from.toDouble(), 0.0);
        QCOMPARE(fade.to.toDouble(), 1.0);
        QCOMPARE(fade.duration, 700);
        QCOMPARE(fade.loops, 1);
        scene.bar->goTo(350);
        QCOMPARE(scene.bar->opacity(), 0.5);
        scene.bar->goTo(700);
        QCOMPARE(scene.bar->opacity(), 1.0);
        QVERIFY(scene.bar->isVisible());
    }

    void halfFadedBarNeedsTheRestOfTheTime()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("One"), eNotificationFadeInOut, Minute, false);
        scene.bar->appear();
        scene.bar->goTo(280);
        scene.bar->ShowSimpleText(QStringLiteral("Two"), eNotificationFadeInOut, Minute, false);
        QCOMPARE(scene.bar->opacity(), 0.4);
        scene.bar->appear();
        const Track fade(child(child(scene.bar->data().animationGroup, 0), 0));
        QCOMPARE(fade.from.toDouble(), 0.4);
        QCOMPARE(fade.duration, 420);
    }

    void animationsTakeTheEasingCurve()
    {
        const Scene scene;
        scene.bar->data().easingCurve = QEasingCurve::InQuad;
        scene.bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeInOut, Minute, false);
        scene.bar->appear();
        scene.bar->goTo(350);
        QCOMPARE(scene.bar->opacity(), 0.25);
    }

    void optionsThatComeAtOnceAreFullyThere_data()
    {
        QTest::addColumn<int>("fade");
        QTest::newRow("fade out only") << int(eNotificationFadeOutOnly);
        QTest::newRow("no fade") << int(eNotificationNoFade);
    }

    void optionsThatComeAtOnceAreFullyThere()
    {
        QFETCH(int, fade);
        const Scene scene;
        scene.bar->data().fullBackColor = Qt::green;
        scene.bar->ShowSimpleText(QStringLiteral("Saved."), ENotificationFadeOption(fade), Minute,
                                  false);
        scene.bar->appear();
        QCOMPARE(scene.bar->opacity(), 1.0);
        QCOMPARE(scene.bar->BackColor(), QColor(Qt::green));
        QCOMPARE(scene.bar->data().animationGroup->state(), QAbstractAnimation::Stopped);
        QVERIFY(scene.bar->isVisible());
        QVERIFY(scene.bar->isShowing());
        QVERIFY(scene.bar->data().dismissTimer->isActive());
        QVERIFY(!scene.bar->data().spinnerVisible);
    }

    void colourOfTheBoxDependsOnTheOption()
    {
        const Scene scene;
        scene.bar->data().fullBackColor = Qt::green;
        scene.bar->data().backColor = Qt::blue;
        scene.bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeInOut, Minute, false);
        scene.bar->appear();
        QCOMPARE(scene.bar->BackColor(), QColor(Qt::green));
        scene.bar->ShowSimpleText(QStringLiteral("Saving"), eNotificationPulse, Minute, false);
        scene.bar->appear();
        QCOMPARE(scene.bar->BackColor(), QColor(Qt::blue));
    }

    void pulseHasASpinnerAndNoTime()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("Saving"), eNotificationPulse, 10, false);
        QVERIFY(scene.bar->data().spinnerVisible);
        scene.bar->appear();
        QVERIFY(!scene.bar->data().dismissTimer->isActive());
        QCOMPARE(scene.bar->data().animationGroup->totalDuration(), -1);
        scene.bar->ShowSimpleText(QStringLiteral("Saved"), eNotificationFadeInOut, 10, false);
        QVERIFY(!scene.bar->data().spinnerVisible);
    }

    void pulseGoesBetweenTwoColoursForEver()
    {
        const Scene scene;
        scene.bar->SetDismissInterval(2000);
        scene.bar->ShowSimpleText(QStringLiteral("Saving"), eNotificationPulse, 10, false);
        scene.bar->appear();
        const auto *const sequence = child(scene.bar->data().animationGroup, 0);
        const auto *const pulse = qobject_cast<QSequentialAnimationGroup *>(child(sequence, 1));
        QVERIFY(pulse);
        QCOMPARE(pulse->loopCount(), -1);
        QCOMPARE(pulse->animationCount(), 2);
        const Track there(child(pulse, 0));
        const Track back(child(pulse, 1));
        QCOMPARE(there.property, QByteArray("BackColor"));
        QCOMPARE(there.from.value<QColor>(), Full);
        QCOMPARE(there.to.value<QColor>(), Pulsed);
        QCOMPARE(there.duration, 2000);
        QCOMPARE(there.loops, 1);
        QCOMPARE(back.property, QByteArray("BackColor"));
        QCOMPARE(back.from.value<QColor>(), Pulsed);
        QCOMPARE(back.to.value<QColor>(), Full);
        QCOMPARE(back.duration, 2000);
        QCOMPARE(back.loops, 1);
    }

    void pulseIsSeenInTheBox()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("i"), eNotificationPulse, 10, false);
        scene.bar->appear();
        scene.bar->goTo(700);
        const QPoint inTheBox = QPoint(10, 58 + 20) * qApp->devicePixelRatio();
        const QRgb atRest = scene.bar->grab().toImage().pixel(inTheBox);
        scene.bar->goTo(3700);
        const QRgb pulsed = scene.bar->grab().toImage().pixel(inTheBox);
        // The colours of both ends, at 230 of 255 over the white of the box.
        QCOMPARE(qRed(atRest), 246);
        QCOMPARE(qRed(pulsed), 234);
    }

    void longestIntervalIsNoDangerToThePulse()
    {
        const Scene scene;
        scene.bar->SetDismissInterval(std::numeric_limits<int>::max());
        scene.bar->ShowSimpleText(QStringLiteral("Saving"), eNotificationPulse, 10, false);
        scene.bar->appear();
        const auto *const pulse = child(child(scene.bar->data().animationGroup, 0), 1);
        // An overflow in Qt's sum of both halves would show here, and abort with the end of the bar.
        QVERIFY(pulse->duration() > std::numeric_limits<int>::max() / 4);
        scene.bar->goTo(Minute);
        QVERIFY(scene.bar->isVisible());
    }

    void spinnerTurnsOnceInAPeriodForEver()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("Saving"), eNotificationPulse, 10, false);
        scene.bar->appear();
        QCOMPARE(scene.bar->data().animationGroup->animationCount(), 2);
        const Track turn(child(scene.bar->data().animationGroup, 1));
        QCOMPARE(turn.property, QByteArray("SpinnerAngle"));
        QCOMPARE(turn.from.toDouble(), 0.0);
        QCOMPARE(turn.to.toDouble(), -359.0);
        QCOMPARE(turn.duration, 1000);
        QCOMPARE(turn.loops, -1);
        scene.bar->goTo(500);
        QCOMPARE(scene.bar->SpinnerAngle(), -179.5);
        scene.bar->goTo(1250);
        QCOMPARE(scene.bar->SpinnerAngle(), -89.75);
    }

    void closeButtonIsShownOnDemand()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeOutOnly, true);
        QVERIFY(scene.bar->data().closeButton->isVisible());
        QVERIFY(!scene.bar->data().closeButton->accessibleName().isEmpty());
        scene.bar->showNow(eNotificationFadeOutOnly, false);
        QVERIFY(!scene.bar->data().closeButton->isVisible());
    }

    void assistiveToolsMayAskABarThatEnds()
    {
        auto bar = std::make_unique<DrivenBar>(nullptr);
        bar->ShowSimpleText(QStringLiteral("Done"), eNotificationFadeOutOnly, 60'000, false);
        bar->show();
        AskingOnHide reader(bar.get());
        bar.reset();
        QCOMPARE(reader.names, QStringList(QString()));
    }

    void assistiveToolsHearTheWholeMessage()
    {
        const Scene scene;
        const Lumo::Test::AccessibleEvents events;
        QVERIFY(events.isPossible());
        QAccessibleInterface *const seen = QAccessible::queryAccessibleInterface(scene.bar);
        QCOMPARE(seen->role(), QAccessible::AlertMessage);
        QCOMPARE(seen->text(QAccessible::Name), QString());
        QVERIFY(!events.hasHeard(scene.bar, QAccessible::Alert));
        const QString text(2000, QLatin1Char('w'));
        scene.bar->ShowSimpleText(text, eNotificationFadeOutOnly, 60'000, false);
        scene.bar->appear();
        QVERIFY(events.hasHeard(scene.bar, QAccessible::Alert));
        QCOMPARE(seen->text(QAccessible::Name), text);
        auto *const control = new QLineEdit;
        control->setAccessibleName(QStringLiteral("How many"));
        scene.bar->ShowControl(control, eNotificationFadeOutOnly, 60'000, false);
        QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("How many"));
        scene.bar->setAccessibleName(QStringLiteral("Mine"));
        QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Mine"));
    }

    void closeButtonIsNotShownUnasked()
    {
        const Scene scene;
        scene.bar->SetShowSpinnerOnly(false);
        QVERIFY(scene.bar->data().holder->isVisible());
        QVERIFY(!scene.bar->data().closeButton->isVisible());
    }

    void barWithACloseButtonComesToTheFront()
    {
        const Scene scene;
        auto *const sibling = new QWidget(scene.bar->parentWidget());
        scene.bar->showNow(eNotificationFadeOutOnly, false);
        QCOMPARE(scene.host.children().last(), sibling);
        scene.bar->showNow(eNotificationFadeOutOnly, true);
        QCOMPARE(scene.host.children().last(), scene.bar.data());
    }

    void newMessageStopsWhatRuns()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("One"), eNotificationFadeInOut, Minute, false);
        scene.bar->appear();
        QVERIFY(scene.bar->data().dismissTimer->isActive());
        scene.bar->ShowSimpleText(QStringLiteral("Two"), eNotificationFadeInOut, Minute, false);
        QVERIFY(!scene.bar->data().dismissTimer->isActive());
        QCOMPARE(scene.bar->data().animationGroup->state(), QAbstractAnimation::Stopped);
        QVERIFY(scene.bar->data().switchTimer->isActive());
    }

    void newMessageDuringTheFadeOutStays()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeInOut);
        scene.bar->HideMe();
        scene.bar->goTo(350);
        scene.bar->ShowSimpleText(QStringLiteral("Two"), eNotificationFadeInOut, Minute, false);
        scene.bar->appear();
        scene.bar->goTo(700);
        QCOMPARE(scene.bar->opacity(), 1.0);
        QVERIFY(scene.bar->isVisible());
        QVERIFY(scene.bar->isShowing());
    }

    void messageAfterAnEndlessOneIsNotHiddenByItsStop()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationPulse);
        scene.bar->data().closeButton->click();
        scene.bar->ShowSimpleText(QStringLiteral("Two"), eNotificationPulse, Minute, false);
        scene.bar->appear();
        scene.bar->ShowSimpleText(QStringLiteral("Three"), eNotificationPulse, Minute, false);
        QVERIFY(scene.bar->isVisible());
        QVERIFY(scene.bar->data().spinnerVisible);
    }

    void messageThatWaitsOutlivesTheEndOfTheLast_data()
    {
        QTest::addColumn<int>("fade");
        QTest::newRow("fade in and out") << int(eNotificationFadeInOut);
        QTest::newRow("fade out only") << int(eNotificationFadeOutOnly);
        QTest::newRow("no fade") << int(eNotificationNoFade);
    }

    void messageThatWaitsOutlivesTheEndOfTheLast()
    {
        QFETCH(int, fade);
        const Scene scene;
        scene.bar->showNow(eNotificationFadeOutOnly, true);
        scene.bar->ShowSimpleText(QStringLiteral("Two"), ENotificationFadeOption(fade), Minute,
                                  true);
        scene.bar->data().closeButton->click();
        scene.bar->goTo(10);
        scene.bar->appear();
        scene.bar->goTo(700);
        QCOMPARE(scene.bar->opacity(), 1.0);
        QVERIFY(scene.bar->isVisible());
        QVERIFY(scene.bar->isShowing());
        const QSignalSpy clicked(scene.bar, &NotificationBar::mouseClicked);
        QTest::mousePress(scene.bar, Qt::LeftButton, Qt::NoModifier, QPoint(5, 70));
        QCOMPARE(clicked.size(), 1);
    }

    // Going

    void timeOutFadesOutAndHides()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeInOut);
        scene.bar->expire();
        QVERIFY(!scene.bar->isShowing());
        QVERIFY(scene.bar->isVisible());
        scene.bar->goTo(350);
        QCOMPARE(scene.bar->opacity(), 0.5);
        QVERIFY(scene.bar->isVisible());
        scene.bar->goTo(700);
        QCOMPARE(scene.bar->opacity(), 0.0);
        QVERIFY(!scene.bar->isVisible());
        QVERIFY(scene.bar->isHidden());
    }

    void fadeOutStartsFromFullOpacity()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeInOut, Minute, false);
        scene.bar->appear();
        scene.bar->goTo(140);
        scene.bar->HideMe();
        const QParallelAnimationGroup *const group = scene.bar->data().animationGroup;
        QCOMPARE(group->animationCount(), 1);
        const Track fade(child(group, 0));
        QCOMPARE(asProperty(child(group, 0))->targetObject(), scene.bar->data().opacityEffect);
        QCOMPARE(fade.property, QByteArray("opacity"));
        QCOMPARE(fade.from.toDouble(), 1.0);
        QCOMPARE(fade.to.toDouble(), 0.0);
        QCOMPARE(fade.duration, 700);
        QCOMPARE(fade.loops, 1);
    }

    void fadeOutThatWasBegunAnewLeavesNothingBehind()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeInOut);
        scene.bar->HideMe();
        scene.bar->goTo(350);
        scene.bar->HideMe();
        QCOMPARE(scene.bar->opacity(), 1.0);
        QVERIFY(scene.bar->isVisible());
        scene.bar->goTo(700);
        QVERIFY(scene.bar->isHidden());
        scene.bar->showNow(eNotificationPulse);
        scene.bar->ShowSimpleText(QStringLiteral("Two"), eNotificationFadeOutOnly, Minute, false);
        QVERIFY(scene.bar->isVisible());
        QCOMPARE(scene.bar->opacity(), 1.0);
    }

    void fadeOutEndsTheMessage()
    {
        const Scene scene;
        auto *const sibling = new QWidget(scene.bar->parentWidget());
        scene.bar->showNow(eNotificationPulse, true);
        scene.bar->SetDeterministicSpinner(true);
        scene.bar->data().closeButton->click();
        QVERIFY(scene.bar->data().closedByUser);
        QVERIFY(!scene.bar->data().deterministicSpinner);
        QVERIFY(!scene.bar->isShowing());
        scene.bar->goTo(700);
        QVERIFY(!scene.bar->data().closedByUser);
        QVERIFY(!scene.bar->data().spinnerVisible);
        QVERIFY(scene.bar->isHidden());
        QCOMPARE(scene.host.children().last(), sibling);
    }

    void endOfTheFadeEndsTheMessageFromAnyOpacity()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeOutOnly);
        scene.bar->OnAnimationFinished();
        QCOMPARE(scene.bar->opacity(), 0.0);
        QVERIFY(!scene.bar->isShowing());
        QVERIFY(scene.bar->isHidden());
    }

    void noFadeIsGoneAtOnceButNotHidden()
    {
        const Scene scene;
        auto *const sibling = new QWidget(scene.bar->parentWidget());
        scene.bar->showNow(eNotificationNoFade, true);
        scene.bar->data().spinnerVisible = true;
        scene.bar->data().closedByUser = true;
        scene.bar->expire();
        QCOMPARE(scene.bar->opacity(), 0.0);
        QVERIFY(scene.bar->isVisible());
        QVERIFY(!scene.bar->isShowing());
        QVERIFY(!scene.bar->data().spinnerVisible);
        QVERIFY(!scene.bar->data().closedByUser);
        QCOMPARE(scene.bar->data().animationGroup->state(), QAbstractAnimation::Stopped);
        QCOMPARE(scene.host.children().last(), sibling);
    }

    void whatCannotBeSeenIsNotInTheWay()
    {
        const Scene scene;
        auto *const button = new QPushButton(QStringLiteral("Undo"));
        scene.bar->ShowControl(button, eNotificationNoFade, Minute, true);
        scene.bar->appear();
        const QPoint onButton = button->mapTo(&scene.host, button->rect().center());
        const QPoint onCross = scene.bar->data().closeButton->mapTo(&scene.host, QPoint(9, 9));
        QCOMPARE(scene.host.childAt(onButton), button);
        QCOMPARE(scene.host.childAt(onCross), scene.bar->data().closeButton);
        scene.bar->expire();
        QCOMPARE(scene.host.childAt(onButton), scene.bar.data());
        QCOMPARE(scene.host.childAt(onCross), scene.bar.data());
        scene.bar->ShowControl(button, eNotificationNoFade, Minute, true);
        scene.bar->appear();
        QTRY_COMPARE(scene.host.childAt(onButton), button);
    }

    void fadeOutIsNotBegunTwice()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeInOut, true);
        QVERIFY(scene.bar->data().dismissTimer->isActive());
        scene.bar->DismissMe();
        QVERIFY(!scene.bar->data().dismissTimer->isActive());
        scene.bar->goTo(350);
        scene.bar->send(QEvent::Leave);
        scene.bar->expire();
        scene.bar->DismissMe();
        QCOMPARE(scene.bar->opacity(), 0.5);
        scene.bar->goTo(700);
        QVERIFY(scene.bar->isHidden());
    }

    void timeOutForgetsIntervalAndCloseButton()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeOutOnly, true);
        scene.bar->SetDismissInterval(1234);
        QCOMPARE(scene.bar->data().dismissInterval, 1234);
        QCOMPARE(scene.bar->data().dismissTimer->interval(), 1234);
        scene.bar->expire();
        QCOMPARE(scene.bar->data().dismissInterval, 3000);
        QVERIFY(!scene.bar->data().closeButtonVisible);
    }

    void negativeDismissIntervalCountsAsNone()
    {
        const Scene scene;
        scene.bar->SetDismissInterval(-5);
        QCOMPARE(scene.bar->data().dismissInterval, 0);
        scene.bar->ShowSimpleText(QStringLiteral("Saving"), eNotificationPulse, 10, false);
        scene.bar->appear();
        scene.bar->goTo(900);
        QVERIFY(scene.bar->isVisible());
    }

    void emptyTextMakesTheBarGo_data()
    {
        QTest::addColumn<int>("fade");
        QTest::newRow("fade in and out") << int(eNotificationFadeInOut);
        QTest::newRow("pulse") << int(eNotificationPulse);
        QTest::newRow("fade out only") << int(eNotificationFadeOutOnly);
    }

    void emptyTextMakesTheBarGo()
    {
        QFETCH(int, fade);
        const Scene scene;
        scene.bar->showNow(ENotificationFadeOption(fade));
        scene.bar->ShowSimpleText(QString(), eNotificationFadeOutOnly, 3000, false);
        QVERIFY(!scene.bar->isShowing());
        QVERIFY(!scene.bar->data().switchTimer->isActive());
        QVERIFY(scene.bar->isVisible());
        QCOMPARE(scene.bar->data().label->text(), QStringLiteral("Saved."));
        scene.bar->goTo(700);
        QVERIFY(scene.bar->isHidden());
    }

    void emptyTextBeforeTheMessageAppearedKeepsItAway()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("One"), eNotificationFadeInOut, 3000, false);
        scene.bar->ShowSimpleText(QString(), eNotificationFadeOutOnly, 3000, false);
        QVERIFY(!scene.bar->data().switchTimer->isActive());
        scene.bar->goTo(700);
        QVERIFY(!scene.bar->isVisible());
    }

    void dismissMakesAVisibleBarGo()
    {
        const Scene scene;
        scene.bar->DismissMe();
        QCOMPARE(scene.bar->data().animationGroup->animationCount(), 0);
        scene.bar->showNow(eNotificationPulse);
        scene.bar->DismissMe();
        QVERIFY(!scene.bar->isShowing());
        scene.bar->goTo(700);
        QVERIFY(scene.bar->isHidden());
    }

    void hiddenBarRunsNoTimer()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeInOut, true);
        scene.bar->data().closeButton->click();
        scene.bar->send(QEvent::Leave);
        QVERIFY(scene.bar->data().dismissTimer->isActive());
        scene.bar->goTo(700);
        for (const QTimer *timer : scene.bar->findChildren<QTimer *>())
            QVERIFY(!timer->isActive());
        for (const auto *animation : scene.bar->findChildren<QAbstractAnimation *>())
            QVERIFY(animation->state() != QAbstractAnimation::Running);
    }

    void endlessAnimationsRestWhileTheBarIsHidden()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("Saving"), eNotificationPulse, 10, false);
        scene.bar->appear();
        const QParallelAnimationGroup *const group = scene.bar->data().animationGroup;
        QCOMPARE(group->state(), QAbstractAnimation::Running);
        scene.bar->hide();
        QCOMPARE(group->state(), QAbstractAnimation::Paused);
        QVERIFY(scene.bar->isShowing());
        scene.bar->show();
        QCOMPARE(group->state(), QAbstractAnimation::Running);
    }

    void endlessAnimationsWaitForAHiddenHost()
    {
        QWidget host;
        const QPointer<DrivenBar> bar = new DrivenBar(&host);
        bar->ShowSimpleText(QStringLiteral("Saving"), eNotificationPulse, 10, false);
        bar->appear();
        const QParallelAnimationGroup *const group = bar->data().animationGroup;
        QCOMPARE(group->state(), QAbstractAnimation::Paused);
        bar->SetShowSpinnerOnly(true);
        for (const auto *animation : bar->findChildren<QPropertyAnimation *>())
            QVERIFY(animation->state() != QAbstractAnimation::Running);
        host.show();
        QCOMPARE(group->state(), QAbstractAnimation::Running);
    }

    void fadeGoesOnWhileTheBarIsHidden()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeInOut);
        scene.bar->HideMe();
        scene.bar->hide();
        QCOMPARE(scene.bar->data().animationGroup->state(), QAbstractAnimation::Running);
    }

    // Pointer

    void pointingKeepsAMessage()
    {
        const Scene scene;
        scene.bar->data().fullBackColor = Qt::green;
        scene.bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeInOut, 4321, false);
        scene.bar->appear();
        scene.bar->goTo(350);
        scene.bar->SetBackColor(Qt::red);
        scene.bar->send(QEvent::Enter);
        QCOMPARE(scene.bar->opacity(), 1.0);
        QCOMPARE(scene.bar->BackColor(), QColor(Qt::green));
        QVERIFY(!scene.bar->data().dismissTimer->isActive());
        QCOMPARE(scene.bar->data().animationGroup->state(), QAbstractAnimation::Stopped);
        scene.bar->send(QEvent::Leave);
        QVERIFY(scene.bar->data().dismissTimer->isActive());
        QCOMPARE(scene.bar->data().dismissTimer->interval(), 4321);
    }

    void pointingBringsAFadingMessageBack()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeInOut);
        scene.bar->expire();
        scene.bar->goTo(650);
        scene.bar->send(QEvent::Enter);
        QCOMPARE(scene.bar->opacity(), 1.0);
        QVERIFY(scene.bar->isVisible());
        scene.bar->send(QEvent::Leave);
        scene.bar->expire();
        scene.bar->goTo(700);
        QVERIFY(scene.bar->isHidden());
    }

    void pointingAtWhatCannotBeSeenDoesNothing()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationNoFade);
        scene.bar->expire();
        scene.bar->send(QEvent::Enter);
        QCOMPARE(scene.bar->opacity(), 0.0);
        scene.bar->send(QEvent::Leave);
        QVERIFY(!scene.bar->data().dismissTimer->isActive());
        scene.bar->data().opacityEffect->setOpacity(0.000009);
        scene.bar->send(QEvent::Leave);
        QVERIFY(!scene.bar->data().dismissTimer->isActive());
    }

    void pointingDoesNotStopAPulse()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("Saving"), eNotificationPulse, 10, false);
        scene.bar->appear();
        scene.bar->goTo(350);
        scene.bar->send(QEvent::Enter);
        QCOMPARE(scene.bar->opacity(), 0.5);
        QVERIFY(scene.bar->data().animationGroup->state() != QAbstractAnimation::Stopped);
        scene.bar->send(QEvent::Leave);
        QVERIFY(!scene.bar->data().dismissTimer->isActive());
    }

    void pressIsTold()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeOutOnly);
        const QSignalSpy clicked(scene.bar, &NotificationBar::mouseClicked);
        QTest::mousePress(scene.bar, Qt::LeftButton, Qt::NoModifier, QPoint(5, 70));
        QTest::mousePress(scene.bar->data().label, Qt::RightButton);
        QCOMPARE(clicked.size(), 2);
    }

    void pressOnWhatCannotBeSeenReachesTheView()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationNoFade);
        scene.bar->expire();
        const EventCounter reached(scene.bar->parentWidget(), QEvent::MouseButtonPress);
        const QSignalSpy clicked(scene.bar, &NotificationBar::mouseClicked);
        QTest::mousePress(scene.bar, Qt::LeftButton, Qt::NoModifier, QPoint(5, 70));
        QCOMPARE(clicked.size(), 0);
        QCOMPARE(reached.count, 1);
    }

    void closeButtonClosesForGood()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeInOut, true);
        const QSignalSpy clicked(scene.bar, &NotificationBar::mouseClicked);
        QTest::mouseClick(scene.bar->data().closeButton, Qt::LeftButton);
        scene.bar->goTo(350);
        scene.bar->send(QEvent::Enter);
        QCOMPARE(scene.bar->opacity(), 0.5);
        QTest::mousePress(scene.bar, Qt::LeftButton, Qt::NoModifier, QPoint(5, 70));
        QCOMPARE(clicked.size(), 0);
        scene.bar->goTo(700);
        QVERIFY(scene.bar->isHidden());
    }

    void newMessageForgetsThatTheLastWasClosed()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeInOut, true);
        scene.bar->data().closeButton->click();
        scene.bar->showNow(eNotificationFadeOutOnly);
        const QSignalSpy clicked(scene.bar, &NotificationBar::mouseClicked);
        QTest::mousePress(scene.bar, Qt::LeftButton, Qt::NoModifier, QPoint(5, 70));
        QCOMPARE(clicked.size(), 1);
        scene.bar->data().closedByUser = true;
        scene.bar->ShowSimpleText(QStringLiteral("Two"), eNotificationFadeOutOnly, Minute, false);
        QVERIFY(!scene.bar->data().closedByUser);
        scene.bar->data().closedByUser = true;
        scene.bar->ShowControl(makeControl(9, 9), eNotificationFadeOutOnly, Minute, false);
        QVERIFY(!scene.bar->data().closedByUser);
    }

    void closeButtonShowsItsPictures()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeOutOnly, true);
        QToolButton *const button = scene.bar->data().closeButton;
        const QImage atRest = picture(*button);
        QCOMPARE(atRest.pixelColor(10, 10), QColor(0x78, 0x78, 0x78));
        QCOMPARE(atRest.pixelColor(10, 3).alpha(), 0);
        button->setAttribute(Qt::WA_UnderMouse);
        QCOMPARE(picture(*button).pixelColor(10, 3), QColor(0xE0, 0x43, 0x43));
        button->setAttribute(Qt::WA_UnderMouse, false);
    }

    // Text

    void labelIsMadeForTheFirstText()
    {
        const Scene scene;
        scene.bar->SetSimpleText(QStringLiteral("One"));
        const QPointer<QLabel> label = scene.bar->data().label;
        QCOMPARE(label->focusPolicy(), Qt::NoFocus);
        QCOMPARE(label->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
        QCOMPARE(label->sizePolicy().verticalPolicy(), QSizePolicy::Ignored);
        QVERIFY(label->hasScaledContents());
        QCOMPARE(label->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
        QVERIFY(label->wordWrap());
        QCOMPARE(label->styleSheet(), QStringLiteral("QLabel{border-radius: 0; border-width: 0;}"));
        QCOMPARE(label->font().pixelSize(), 12);
        const QLayout *const layout = scene.bar->data().holder->layout();
        QCOMPARE(layout->count(), 1);
        QCOMPARE(layout->itemAt(0)->widget(), label.data());
        QCOMPARE(layout->itemAt(0)->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
        scene.bar->SetSimpleText(QStringLiteral("Two"));
        QCOMPARE(scene.bar->data().label, label);
        QCOMPARE(label->text(), QStringLiteral("Two"));
        QCOMPARE(scene.bar->data().text, QStringLiteral("Two"));
    }

    void emptySimpleTextIsIgnored()
    {
        const Scene scene;
        scene.bar->SetSimpleText(QString());
        QVERIFY(!scene.bar->data().label);
        scene.bar->SetSimpleText(QStringLiteral("One"));
        scene.bar->SetSimpleText(QString());
        QCOMPARE(scene.bar->data().text, QStringLiteral("One"));
    }

    void textIsNoMarkup()
    {
        const Scene scene;
        scene.bar->SetSimpleText(QStringLiteral("<b>&amp;"));
        QCOMPARE(scene.bar->data().label->textFormat(), Qt::PlainText);
    }

    void blanksInsideATextStay()
    {
        const Scene scene;
        scene.bar->SetSimpleText(QStringLiteral("  one  two "));
        QCOMPARE(scene.bar->data().label->text(), QStringLiteral("one  two"));
        QCOMPARE(scene.bar->data().text, QStringLiteral("  one  two "));
    }

    void wordWiderThanTheBoxIsElidedInItsMiddle()
    {
        const Scene scene;
        const QString word =
            QStringLiteral("/home/") + QString(300, QLatin1Char('x')) + QStringLiteral("/end");
        scene.bar->SetSimpleText(QStringLiteral("see ") + word);
        const QLabel *const label = scene.bar->data().label;
        const QFontMetrics metrics = label->fontMetrics();
        QCOMPARE(label->text(),
                 QStringLiteral("see ") + metrics.elidedText(word, Qt::ElideMiddle, 600));
        QVERIFY(label->text().contains(QChar(0x2026)));
        QVERIFY(label->text().endsWith(QStringLiteral("x/end")));
    }

    void textColourCannotBeChanged()
    {
        const Scene scene;
        scene.bar->SetTextColor(Qt::red);
        scene.bar->SetSimpleText(QStringLiteral("One"));
        QLabel *const label = scene.bar->data().label;
        QPalette other = label->palette();
        other.setColor(label->foregroundRole(), Qt::blue);
        label->setPalette(other);
        scene.bar->SetTextColor(Qt::red);
        QCOMPARE(label->palette().color(label->foregroundRole()), QColor(96, 96, 96));
    }

    void textTakesThePlaceOfAControl()
    {
        const Scene scene;
        const QPointer<QWidget> control = makeControl(50, 50);
        scene.bar->SetControl(control);
        scene.bar->SetSimpleText(QStringLiteral("One"));
        QVERIFY(!control);
        QVERIFY(!scene.bar->data().control);
        QCOMPARE(scene.bar->data().holder->layout()->count(), 1);
    }

    // Control

    void controlIsShownInTheBox()
    {
        const Scene scene;
        QWidget *const control = makeControl(300, 100);
        scene.bar->ShowControl(control, eNotificationFadeOutOnly, 1234, true);
        QVERIFY(scene.bar->isAncestorOf(control));
        QCOMPARE(scene.bar->data().dismissTimer->interval(), 1234);
        QVERIFY(scene.bar->data().closeButtonVisible);
        scene.bar->appear();
        QVERIFY(control->isVisible());
        const QLayout *const layout = scene.bar->data().holder->layout();
        QCOMPARE(layout->itemAt(0)->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
        QCOMPARE(layout->contentsMargins(), QMargins());
    }

    void controlTakesThePlaceOfAText()
    {
        const Scene scene;
        scene.bar->SetSimpleText(QStringLiteral("One"));
        const QPointer<QLabel> label = scene.bar->data().label;
        scene.bar->SetControl(makeControl(50, 50));
        QVERIFY(!label);
        QCOMPARE(scene.bar->data().holder->layout()->count(), 1);
    }

    void controlTakesThePlaceOfAnother()
    {
        const Scene scene;
        const QPointer<QWidget> first = makeControl(50, 50);
        const QPointer<QWidget> second = makeControl(50, 50);
        scene.bar->ShowControl(first, eNotificationFadeOutOnly, Minute, false);
        scene.bar->ShowControl(second, eNotificationFadeOutOnly, Minute, false);
        QVERIFY(!first);
        QCOMPARE(scene.bar->data().control.data(), second.data());
    }

    void sameControlAgainStays()
    {
        const Scene scene;
        const QPointer<QWidget> control = makeControl(50, 50);
        for (int i = 0; i < 2; ++i) {
            scene.bar->ShowControl(control, eNotificationFadeOutOnly, Minute, false);
            scene.bar->appear();
            QTRY_VERIFY(control && control->isVisible());
            QCOMPARE(scene.bar->data().holder->layout()->count(), 1);
        }
    }

    void controlThatPulsesHasASpinner()
    {
        const Scene scene;
        scene.bar->ShowControl(makeControl(50, 50), eNotificationPulse, 10, false);
        QVERIFY(scene.bar->data().spinnerVisible);
        scene.bar->ShowControl(makeControl(50, 50), eNotificationFadeInOut, 10, false);
        QVERIFY(!scene.bar->data().spinnerVisible);
    }

    void nullControlShowsThePresentContentOnceMore()
    {
        const Scene scene;
        scene.bar->ShowControl(nullptr, eNotificationFadeOutOnly, 10, false);
        QVERIFY(!scene.bar->data().switchTimer->isActive());
        scene.bar->SetControl(nullptr);
        QVERIFY(!scene.bar->data().control);
        scene.bar->SetSimpleText(QStringLiteral("One"));
        scene.bar->ShowControl(nullptr, eNotificationFadeOutOnly, 77, true);
        scene.bar->appear();
        QCOMPARE(scene.bar->data().label->text(), QStringLiteral("One"));
        QCOMPARE(scene.bar->data().dismissTimer->interval(), 77);
        QCOMPARE(scene.bar->data().holder->height(), 60);
    }

    void barDoesNotTakeInItselfOrItsHost()
    {
        Scene scene;
        scene.bar->ShowControl(scene.bar, eNotificationFadeOutOnly, 10, false);
        scene.bar->ShowControl(&scene.host, eNotificationFadeOutOnly, 10, false);
        scene.bar->SetControl(&scene.host);
        QVERIFY(!scene.bar->data().control);
        QCOMPARE(scene.bar->parentWidget(), &scene.host);
        QVERIFY(!scene.host.parentWidget());
    }

    void barDoesNotTakeInItsOwnParts()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeOutOnly, true);
        const NotificationBarPrivate &d = scene.bar->data();
        for (QWidget *part :
             {static_cast<QWidget *>(d.label), d.holder, static_cast<QWidget *>(d.closeButton)}) {
            QWidget *const parent = part->parentWidget();
            scene.bar->ShowControl(part, eNotificationFadeOutOnly, Minute, true);
            scene.bar->SetControl(part);
            QCOMPARE(part->parentWidget(), parent);
        }
        QVERIFY(!d.control);
        QCOMPARE(d.label->text(), QStringLiteral("Saved."));
    }

    void partOfAControlCanTakeItsPlace()
    {
        const Scene scene;
        const QPointer<QWidget> control = makeControl(50, 50);
        const QPointer<QWidget> part = makeControl(20, 20);
        part->setParent(control);
        scene.bar->SetControl(control);
        scene.bar->SetControl(part);
        QVERIFY(!control);
        QVERIFY(part);
        QCOMPARE(scene.bar->data().control, part);
    }

    void controlThatDiesLeavesAnEmptyBox()
    {
        const Scene scene;
        QWidget *const control = makeControl(50, 50);
        scene.bar->ShowControl(control, eNotificationFadeInOut, Minute, false);
        scene.bar->appear();
        delete control;
        scene.bar->SetSpinnerSize(30);
        scene.bar->goTo(700);
        scene.bar->SetSimpleText(QStringLiteral("One"));
        QCOMPARE(scene.bar->data().holder->layout()->count(), 1);
    }

    void controlKeepsTheSizeItHas_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("prefers none") << QStringLiteral("widget");
        QTest::newRow("prefers a smaller one") << QStringLiteral("label");
        QTest::newRow("prefers another one") << QStringLiteral("button");
    }

    void controlKeepsTheSizeItHas()
    {
        QFETCH(QString, kind);
        const Scene scene;
        QWidget *control = nullptr;
        if (kind == QLatin1String("widget"))
            control = new QWidget;
        else if (kind == QLatin1String("label"))
            control = new QLabel(QStringLiteral("Hi"));
        else
            control = new QPushButton(QStringLiteral("Hi"));
        control->resize(300, 15);
        for (int i = 0; i < 2; ++i) {
            scene.bar->ShowControl(control, eNotificationFadeOutOnly, Minute, false);
            scene.bar->appear();
            QTRY_VERIFY(control->isVisible());
            QCOMPARE(control->size(), QSize(300, 15));
            QCOMPARE(scene.bar->data().holder->size(), QSize(390, 40));
        }
    }

    void controlWithoutASizeGetsTheOneItPrefers()
    {
        const Scene scene;
        auto *const button = new QPushButton(QStringLiteral("Restart the viewer with more memory"));
        const QSize wanted = button->sizeHint();
        QVERIFY(button->size() != wanted);
        scene.bar->SetControl(button);
        QCOMPARE(scene.bar->data().holder->width(), std::max(200, int(wanted.width() * 1.3)));
        QVERIFY(button->minimumSize() != button->maximumSize());
    }

    // Size and place

    void boxFitsItsControl_data()
    {
        QTest::addColumn<QSize>("control");
        QTest::addColumn<bool>("closeButton");
        QTest::addColumn<QSize>("box");
        QTest::newRow("smallest") << QSize(10, 10) << false << QSize(200, 40);
        QTest::newRow("usual") << QSize(300, 100) << false << QSize(390, 140);
        QTest::newRow("rounded down") << QSize(155, 39) << false << QSize(201, 54);
        QTest::newRow("wider than any text") << QSize(650, 20) << false << QSize(845, 40);
        QTest::newRow("with close button") << QSize(300, 100) << true << QSize(390, 160);
    }

    void boxFitsItsControl()
    {
        QFETCH(QSize, control);
        QFETCH(bool, closeButton);
        QFETCH(QSize, box);
        const Scene scene;
        scene.bar->ShowControl(makeControl(control.width(), control.height()),
                               eNotificationFadeOutOnly, Minute, closeButton);
        QCOMPARE(scene.bar->data().holder->geometry(), QRect(QPoint(0, 58), box));
        QCOMPARE(scene.bar->size(), QSize(box.width(), box.height() + 58));
        QCOMPARE(scene.bar->sizeHint(), scene.bar->size());
    }

    void boxFitsItsText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("short") << QStringLiteral("Saved.");
        QTest::newRow("one line") << QStringLiteral(
            "The mesh was saved in the folder of yesterday.");
        QTest::newRow("two lines") << longText().left(150);
        QTest::newRow("three lines") << longText().left(250);
        QTest::newRow("many lines") << longText();
        QTest::newRow("lines of its own") << QStringLiteral("one\ntwo\nthree\nfour");
    }

    void boxFitsItsText()
    {
        QFETCH(QString, text);
        const Scene scene;
        scene.bar->SetSimpleText(text);
        const QLabel *const label = scene.bar->data().label;
        QCOMPARE(scene.bar->data().holder->size(), textBox(*label));
        QCOMPARE(label->minimumWidth(), label->maximumWidth());
        QVERIFY(label->width() <= 545);
    }

    void boxOfATextStaysWithinItsLimits()
    {
        const Scene scene;
        scene.bar->SetSimpleText(QStringLiteral("a"));
        QCOMPARE(scene.bar->data().holder->size(), QSize(235, 40));
        QCOMPARE(scene.bar->data().label->width(), 181);
        scene.bar->SetSimpleText(longText());
        QCOMPARE(scene.bar->data().holder->width(), 600);
        QCOMPARE(scene.bar->data().label->width(), 545);
        QVERIFY(scene.bar->data().holder->height() > 40);
    }

    void linesOfATextHaveRoom()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("one\ntwo\nthree\nfour"), eNotificationFadeOutOnly,
                                  Minute, false);
        scene.bar->appear();
        const QLabel *const label = scene.bar->data().label;
        QVERIFY(label->height() >= label->heightForWidth(label->width()));
        QVERIFY(scene.bar->data().holder->rect().contains(label->geometry()));
    }

    void closeButtonStandsInTheCorner()
    {
        const Scene scene;
        scene.bar->ShowControl(makeControl(300, 100), eNotificationFadeOutOnly, Minute, true);
        QCOMPARE(scene.bar->data().closeButton->geometry(), QRect(390 - 24, 4, 20, 20));
    }

    void barStandsCentredAboveTheBottom()
    {
        const Scene scene;
        scene.bar->SetControl(makeControl(10, 10));
        // 98 high, and the bottom of 300 is 299.
        QCOMPARE(scene.bar->geometry(), QRect(250, 299 - 56 - 98, 200, 98));
    }

    void barKeepsItsPlaceWhenTheHostIsResized()
    {
        Scene scene;
        scene.bar->SetControl(makeControl(10, 10));
        scene.host.resize(801, 500);
        QCOMPARE(scene.bar->pos(), QPoint(300, 499 - 56 - 98));
        scene.host.resize(151, 100);
        QCOMPARE(scene.bar->pos(), QPoint(-25, 99 - 56 - 98));
    }

    void barWithoutParentPlacesItselfNowhere()
    {
        DrivenBar bar(nullptr);
        bar.move(12, 13);
        bar.showNow(eNotificationFadeOutOnly);
        QVERIFY(bar.isWindow());
        QCOMPARE(bar.pos(), QPoint(12, 13));
    }

    void callsWithoutContentAreIgnored()
    {
        const Scene scene;
        const QSize before = scene.bar->size();
        scene.bar->SetSpinnerSize(20);
        scene.bar->SetSpinnerAngle(5);
        scene.bar->DismissMe();
        QCOMPARE(scene.bar->size(), before);
    }

    // Spinner

    void spinnerSitsOnTopOfTheBox()
    {
        const Scene scene;
        scene.bar->SetControl(makeControl(10, 10));
        const NotificationBarPrivate &d = scene.bar->data();
        QCOMPARE(d.outerRect, QRect(76, 0, 48, 48));
        QCOMPARE(d.discRect, QRect(80, 4, 40, 40));
        QCOMPARE(d.centreRect, QRect(86, 10, 28, 28));
        QCOMPARE(d.pixmapRect, QRect(91, 15, 18, 18));
    }

    void spinnersPartsKeepTheirProportions()
    {
        const Scene scene;
        scene.bar->SetControl(makeControl(10, 10));
        scene.bar->SetSpinnerSize(31);
        const NotificationBarPrivate &d = scene.bar->data();
        QCOMPARE(d.outerRect, QRect(85, 0, 31, 31));
        QCOMPARE(d.discRect, QRect(88, 3, 25, 25));
        QCOMPARE(d.centreRect, QRect(91, 6, 18, 18));
        QCOMPARE(d.pixmapRect, QRect(95, 10, 11, 11));
        QCOMPARE(d.holder->y(), 41);
        QCOMPARE(scene.bar->height(), 81);
        scene.bar->SetSpinnerSize(-3);
        QCOMPARE(scene.bar->height(), 50);
        QCOMPARE(picture(*scene.bar).height(), 50);
    }

    void spinnerHasALargestSize()
    {
        const Scene scene;
        scene.bar->SetControl(makeControl(10, 10));
        scene.bar->SetSpinnerSize(std::numeric_limits<int>::max());
        QCOMPARE(scene.bar->data().outerRect.size(), QSize(4096, 4096));
        QCOMPARE(scene.bar->data().discRect.size(), QSize(3413, 3413));
    }

    void spinnerIsPaintedInItsColours()
    {
        const Scene scene;
        scene.bar->SetControl(makeControl(10, 10));
        QCOMPARE(picture(*scene.bar).pixelColor(77, 24).alpha(), 0);
        scene.bar->data().spinnerVisible = true;
        const QImage image = picture(*scene.bar);
        QCOMPARE(image.pixelColor(77, 24), Outer);
        QCOMPARE(image.pixelColor(83, 24), Disc);
        QCOMPARE(image.pixelColor(100, 12), Outer);
        // The sector begins in the centre, not at a chord.
        for (const QPoint &inside : {QPoint(112, 36), QPoint(115, 26), QPoint(102, 39)})
            QCOMPARE(image.pixelColor(inside), Sweep);
        QCOMPARE(image.pixelColor(88, 12), Disc);
        // The outline of the sector comes back to the centre.
        QVERIFY(image.pixelColor(100, 41).red() < 150);
        // No outline around the whole.
        QVERIFY(image.pixelColor(76, 24).red() > 180);
        // Outlines darken the edges of the disc and of the centre.
        QVERIFY(image.pixelColor(80, 24).red() < 120);
        QVERIFY(image.pixelColor(85, 24).red() < 120);
        // Nothing is painted around it, and nothing of it is cut off.
        QCOMPARE(image.pixelColor(74, 24).alpha(), 0);
        QVERIFY(image.pixelColor(100, 0).alpha() > 128);
    }

    void spinnerHasThePictureInItsCentre()
    {
        const Scene scene;
        scene.bar->SetControl(makeControl(10, 10));
        scene.bar->data().spinnerVisible = true;
        const QImage with = picture(*scene.bar).copy(91, 15, 18, 18);
        QImage plain(18, 18, with.format());
        plain.fill(Outer);
        QVERIFY(with != plain);
        QCOMPARE(with.pixelColor(0, 0), Outer);
        scene.bar->data().spinnerPixmap = QPixmap(48, 48);
        scene.bar->data().spinnerPixmap.fill(Qt::red);
        QCOMPARE(picture(*scene.bar).pixelColor(100, 24), QColor(Qt::red));
    }

    void sectorTurnsClockwiseFromThreeOClock_data()
    {
        QTest::addColumn<bool>("deterministic");
        QTest::addColumn<double>("angle");
        // Whether the sector covers the four diagonals, clockwise from below right.
        QTest::addColumn<QString>("covered");
        QTest::newRow("turning, at rest") << false << 0.0 << QStringLiteral("x...");
        QTest::newRow("turning, a quarter on") << false << -90.0 << QStringLiteral(".x..");
        QTest::newRow("turning, half") << false << -180.0 << QStringLiteral("..x.");
        QTest::newRow("turning, three quarters") << false << -270.0 << QStringLiteral("...x");
        QTest::newRow("progress, none") << true << 0.0 << QStringLiteral("....");
        QTest::newRow("progress, a quarter") << true << 90.0 << QStringLiteral("x...");
        QTest::newRow("progress, half") << true << 180.0 << QStringLiteral("xx..");
        QTest::newRow("progress, nearly all") << true << 359.0 << QStringLiteral("xxxx");
    }

    void sectorTurnsClockwiseFromThreeOClock()
    {
        QFETCH(bool, deterministic);
        QFETCH(double, angle);
        QFETCH(QString, covered);
        const Scene scene;
        scene.bar->SetControl(makeControl(10, 10));
        scene.bar->data().spinnerVisible = true;
        scene.bar->SetDeterministicSpinner(deterministic);
        scene.bar->SetSpinnerAngle(angle);
        const QImage image = picture(*scene.bar);
        QString found;
        for (const QPoint &diagonal :
             {QPoint(112, 36), QPoint(88, 36), QPoint(88, 12), QPoint(112, 12)})
            found += QLatin1Char(image.pixelColor(diagonal) == Sweep ? 'x' : '.');
        QCOMPARE(found, covered);
    }

    void angleThatIsNoNumberIsIgnored()
    {
        const Scene scene;
        scene.bar->SetSpinnerAngle(12.5);
        scene.bar->SetSpinnerAngle(std::numeric_limits<double>::quiet_NaN());
        scene.bar->SetSpinnerAngle(std::numeric_limits<double>::infinity());
        QCOMPARE(scene.bar->SpinnerAngle(), 12.5);
    }

    void spinnerIsSharpOnAScreenOfAHigherRatio()
    {
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("i"), eNotificationPulse, 10, false);
        scene.bar->appear();
        const QImage image = scene.bar->grab().toImage();
        const auto ratio = int(image.devicePixelRatio());
        QCOMPARE(ratio, int(qApp->devicePixelRatio()));
        // The stroke of the picture keeps its full colour only where it was not scaled down and up.
        const QRect centre = scene.bar->data().pixmapRect;
        const QPoint corner = centre.topLeft() * ratio;
        int strong = 0;
        for (int y = 0; y < 18 * ratio; ++y) {
            for (int x = 0; x < 18 * ratio; ++x)
                strong += image.pixelColor(corner + QPoint(x, y)).red() < 60 ? 1 : 0;
        }
        QVERIFY2(ratio == 1 || strong > 20 * ratio * ratio, qPrintable(QString::number(strong)));
    }

    void angleRepaintsTheBar()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationPulse);
        QVERIFY(QTest::qWaitForWindowExposed(scene.bar->window()));
        QCoreApplication::processEvents();
        const QImage before = scene.bar->grab().toImage();
        const EventCounter paints(scene.bar, QEvent::Paint);
        scene.bar->SetSpinnerAngle(-45);
        QTRY_VERIFY(paints.count > 0);
        QVERIFY(scene.bar->grab().toImage() != before);
        QCOMPARE(scene.bar->SpinnerAngle(), -45.0);
    }

    void kindOfTheSpinnerRepaintsTheBar()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationPulse);
        QVERIFY(QTest::qWaitForWindowExposed(scene.bar->window()));
        QCoreApplication::processEvents();
        const EventCounter paints(scene.bar, QEvent::Paint);
        scene.bar->SetDeterministicSpinner(true);
        QTRY_VERIFY(paints.count > 0);
    }

    void spinnerAloneIsSquareAndStands()
    {
        const Scene scene;
        scene.bar->SetShowSpinnerOnly(true);
        QVERIFY(scene.bar->isVisible());
        QVERIFY(scene.bar->data().spinnerVisible);
        QCOMPARE(scene.bar->size(), QSize(48, 48));
        QCOMPARE(scene.bar->data().outerRect, QRect(0, 0, 48, 48));
        QVERIFY(scene.bar->data().holder->isHidden());
        QVERIFY(scene.bar->data().label->isHidden());
        const auto *const turn = scene.bar->findChild<QPropertyAnimation *>();
        const Track track(const_cast<QPropertyAnimation *>(turn));
        QCOMPARE(track.property, QByteArray("TimerAngle"));
        QCOMPARE(track.from.toDouble(), 0.0);
        QCOMPARE(track.to.toDouble(), -359.0);
        QCOMPARE(track.duration, 1000);
        QCOMPARE(track.loops, -1);
        QCOMPARE(turn->state(), QAbstractAnimation::Running);
        QCOMPARE(turn->targetObject(), scene.bar.data());
    }

    void spinnerAloneStandsStill()
    {
        const Scene scene;
        scene.bar->SetShowSpinnerOnly(true);
        auto *const turn = scene.bar->findChild<QPropertyAnimation *>();
        turn->pause();
        turn->setCurrentTime(500);
        QCOMPARE(scene.bar->property("TimerAngle").toDouble(), -179.5);
        QCOMPARE(scene.bar->SpinnerAngle(), 0.0);
    }

    void spinnerAloneRestsWhileHidden()
    {
        const Scene scene;
        scene.bar->SetShowSpinnerOnly(true);
        const auto *const turn = scene.bar->findChild<QPropertyAnimation *>();
        scene.bar->hide();
        QCOMPARE(turn->state(), QAbstractAnimation::Paused);
        scene.bar->show();
        QCOMPARE(turn->state(), QAbstractAnimation::Running);
    }

    void spinnerAloneTwiceTurnsOnce()
    {
        const Scene scene;
        scene.bar->SetShowSpinnerOnly(true);
        scene.bar->SetShowSpinnerOnly(true);
        QCOMPARE(scene.bar->findChildren<QPropertyAnimation *>().size(), 1);
    }

    void spinnerAloneDoesNotTimeOut()
    {
        const Scene scene;
        scene.bar->showNow(eNotificationFadeOutOnly);
        QVERIFY(scene.bar->data().dismissTimer->isActive());
        scene.bar->SetShowSpinnerOnly(true);
        QVERIFY(!scene.bar->data().dismissTimer->isActive());
        scene.bar->ShowSimpleText(QStringLiteral("One"), eNotificationFadeOutOnly, Minute, false);
        QVERIFY(scene.bar->data().label->isHidden());
        scene.bar->appear();
        scene.bar->expire();
        QCOMPARE(scene.bar->opacity(), 1.0);
        QVERIFY(scene.bar->isVisible());
        QVERIFY(!scene.bar->isShowing());
    }

    void textShowsItsLabelUnlessTheSpinnerIsAlone()
    {
        const Scene scene;
        scene.bar->SetSimpleText(QStringLiteral("One"));
        QLabel *const label = scene.bar->data().label;
        label->hide();
        scene.bar->ShowSimpleText(QStringLiteral("Two"), eNotificationFadeOutOnly, Minute, false);
        QVERIFY(!label->isHidden());
        scene.bar->SetShowSpinnerOnly(true);
        label->show();
        scene.bar->ShowSimpleText(QStringLiteral("Two"), eNotificationFadeOutOnly, Minute, false);
        QVERIFY(label->isHidden());
    }

    void spinnerAloneHidesAControl()
    {
        const Scene scene;
        scene.bar->data().holder->hide();
        scene.bar->ShowControl(makeControl(20, 20), eNotificationPulse, 10, false);
        QVERIFY(!scene.bar->data().holder->isHidden());
        scene.bar->SetShowSpinnerOnly(true);
        scene.bar->data().holder->show();
        scene.bar->ShowControl(makeControl(20, 20), eNotificationPulse, 10, false);
        QVERIFY(scene.bar->data().holder->isHidden());
        QCOMPARE(scene.bar->size(), QSize(48, 48));
        scene.bar->SetShowSpinnerOnly(false);
        QVERIFY(!scene.bar->data().holder->isHidden());
        QVERIFY(!scene.bar->data().label->isHidden());
        QCOMPARE(scene.bar->data().holder->y(), 58);
    }

    // In a floating layer, and the end

    void floatingBarKeepsItsPlaceOverTheHost()
    {
        Scene scene;
        scene.host.move(50, 60);
        FloatingLayer::makeWidgetFloating(scene.bar, QMargins());
        scene.bar->showNow(eNotificationFadeOutOnly);
        const auto offset = [&] {
            return scene.bar->mapToGlobal(QPoint()) - scene.host.mapToGlobal(QPoint());
        };
        const int x = (700 - scene.bar->width()) / 2;
        QCOMPARE(offset(), QPoint(x, 299 - 56 - 98));
        scene.host.resize(800, 400);
        QCOMPARE(offset(), QPoint(x + 50, 399 - 56 - 98));
        scene.host.move(70, 80);
        QCOMPARE(offset(), QPoint(x + 50, 399 - 56 - 98));
    }

    void floatingBarMovesToThePlaceItHasInItsLayer()
    {
        Scene scene;
        FloatingLayer::makeWidgetFloating(scene.bar, QMargins());
        scene.bar->showNow(eNotificationFadeOutOnly);
        scene.host.resize(scene.bar->width(), 98 + 57);
        QCOMPARE(scene.bar->mapToGlobal(QPoint()), scene.host.mapToGlobal(QPoint()));
    }

    void floatingBarHidesItsLayer()
    {
        const Scene scene;
        FloatingLayer::makeWidgetFloating(scene.bar, QMargins());
        const QWidget *const layer = scene.bar->parentWidget();
        QVERIFY(!layer->isVisible());
        scene.bar->showNow(eNotificationFadeOutOnly);
        QVERIFY(layer->isVisible());
        scene.bar->expire();
        scene.bar->goTo(700);
        QVERIFY(!layer->isVisible());
    }

    void barDiesWithItsHost_data()
    {
        QTest::addColumn<bool>("floating");
        QTest::newRow("as its child") << false;
        QTest::newRow("in a layer") << true;
    }

    void barDiesWithItsHost()
    {
        QFETCH(bool, floating);
        auto *const host = new QWidget;
        host->resize(700, 300);
        host->show();
        const QPointer<DrivenBar> bar = new DrivenBar(host);
        if (floating)
            FloatingLayer::makeWidgetFloating(bar, QMargins());
        bar->showNow(eNotificationPulse);
        delete host;
        QVERIFY(!bar);
    }

    void barWhoseLayerDiedDiesWithItsHostAllTheSame()
    {
        auto *const host = new QWidget;
        const QPointer<DrivenBar> bar = new DrivenBar(host);
        FloatingLayer::makeWidgetFloating(bar, QMargins());
        delete bar->parentWidget();
        QVERIFY(bar);
        delete host;
        QVERIFY(!bar);
    }

    void barThatMovedOutOutlivesItsHost()
    {
        QWidget other;
        auto *const host = new QWidget;
        const QPointer<DrivenBar> bar = new DrivenBar(host);
        FloatingLayer::makeWidgetFloating(bar, QMargins());
        bar->setParent(&other);
        delete host;
        QVERIFY(bar);
        bar->showNow(eNotificationFadeOutOnly);
        other.resize(10, 10);
    }

    void barMayDieInAnyPhase_data()
    {
        QTest::addColumn<int>("phase");
        QTest::newRow("before it appears") << 0;
        QTest::newRow("fading in") << 1;
        QTest::newRow("fading out") << 2;
    }

    void barMayDieInAnyPhase()
    {
        QFETCH(int, phase);
        const Scene scene;
        scene.bar->ShowSimpleText(QStringLiteral("One"), eNotificationPulse, 10, true);
        if (phase > 0)
            scene.bar->appear();
        if (phase > 1)
            scene.bar->HideMe();
        delete scene.bar.data();
        QCoreApplication::processEvents();
    }

    void hostMayDieOfAPress_data() { barDiesWithItsHost_data(); }

    void hostMayDieOfAPress()
    {
        QFETCH(bool, floating);
        QPointer<QWidget> host = new QWidget;
        host->show();
        const QPointer<DrivenBar> bar = new DrivenBar(host);
        if (floating)
            FloatingLayer::makeWidgetFloating(bar, QMargins());
        bar->showNow(eNotificationFadeOutOnly);
        connect(bar, &NotificationBar::mouseClicked, host, [&] { host->deleteLater(); });
        QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, QPoint(5, 70));
        QTRY_VERIFY(!bar);
    }

    void hostMayDieInTheLastFrameOfTheFade()
    {
        class Killer : public QObject
        {
        public:
            QPointer<QWidget> host;
            bool eventFilter(QObject *, QEvent *event) override
            {
                if (event->type() == QEvent::Hide && host)
                    host->deleteLater();
                return false;
            }
        };
        auto *const host = new QWidget;
        host->show();
        const QPointer<DrivenBar> bar = new DrivenBar(host);
        Killer killer;
        killer.host = host;
        bar->installEventFilter(&killer);
        bar->showNow(eNotificationFadeOutOnly);
        bar->data().fadeDuration = 1;
        bar->expire();
        QTRY_VERIFY(!bar);
    }
};

LUMO_TEST_MAIN(tst_NotificationBar)
#include "tst_notificationbar.moc"
