// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ImageViewerToolBar>

#include "support/testcase.h"
#include "support/testmain.h"

#include <QAccessible>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QSignalSpy>
#include <QToolButton>
#include <QTranslator>

using Vela::UiToolkit::ImageViewerToolBar;

namespace {

// The buttons from left to right, each with the signal it has.
struct Button
{
    const char *name;
    const char *signal;
    const char *text;
    const char *toolTip;
};

const Button buttons[] = {
    {"prev_button", SIGNAL(PrevImage()), "<",
     "<html><head/><body><p>Previous image<br/>Shortcut: &lt;</p></body></html>"},
    {"next_button", SIGNAL(NextImage()), ">",
     "<html><head/><body><p>Next image<br/>Shortcut: &gt;</p></body></html>"},
    {"fit_to_view_button", SIGNAL(FitToView()), "F",
     "<html><head/><body><p>Fit in the image<br/>Shortcut: F</p></body></html>"},
    {"original_size_button", SIGNAL(OriginalSize()), "O",
     "<html><head/><body><p>Show image in its original size<br />Shortcut: O</p></body></html>"},
    {"zoom_in_button", SIGNAL(ZoomIn()), "+",
     "<html><head/><body><p>Zoom in<br />Shortcut: +</p></body></html>"},
    {"zoom_out_button", SIGNAL(ZoomOut()), "-",
     "<html><head/><body><p>Zoom Out<br />Shortcut: -</p></body></html>"},
};

QToolButton *find(const ImageViewerToolBar &strip, const char *name)
{
    return strip.findChild<QToolButton *>(QLatin1String(name), Qt::FindDirectChildrenOnly);
}

QImage pictureOf(QWidget &widget)
{
    QImage picture(widget.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    widget.render(&picture, {}, {}, QWidget::DrawChildren);
    return picture;
}

// What a colour of @p alpha leaves of a white ground.
int over(int channel, int alpha)
{
    return (channel * alpha + 255 * (255 - alpha)) / 255;
}

bool isNear(const QColor &seen, int red, int green, int blue)
{
    return qAbs(seen.red() - red) <= 2 && qAbs(seen.green() - green) <= 2
        && qAbs(seen.blue() - blue) <= 2;
}

// Puts a mark around every text of the strip and leaves the rest alone.
class MarkTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        if (qstrcmp(context, "ImageViewerToolBar") != 0)
            return QString();
        return QLatin1Char('*') + QLatin1String(text) + QLatin1Char('*');
    }
};

} // namespace

Q_DECLARE_METATYPE(Button)

class ImageViewerToolBarTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theFrameIsAsTold();
    void assistiveToolsSeeAToolBar();
    void theLayoutsAreAsTold();
    void theButtonsStandInTheirOrder();
    void theStyleSheetHasItsRules_data();
    void theStyleSheetHasItsRules();
    void theLinesAndGroundsAreTheColorsTold();
    void aButtonUnderThePointerIsLit();
    void everyTextIsTranslated();
    void anotherLanguageIsTakenWhileItStands();
    void aTextOfTheHostStaysInAnotherLanguage();
    void aButtonHasANameForAssistiveTools();
    void aClickEmitsOneSignal_data();
    void aClickEmitsOneSignal();
    void buttonsAreSwitchedOneByOne_data();
    void buttonsAreSwitchedOneByOne();
    void aDisabledStripHasNoEnabledButton();
    void everyKeyReleasedIsTold_data();
    void everyKeyReleasedIsTold();
    void aKeyOverAButtonIsTold();
    void aKeyCanWaitInAQueue();
    void aKeyIsNotToldToTheParent();
    void theWidthIsThatOfTheButtons();
    void theHeightNeverDropsBelowItsLeast();
};

void ImageViewerToolBarTest::assistiveToolsSeeAToolBar()
{
    ImageViewerToolBar strip(nullptr);
    QCOMPARE(QAccessible::queryAccessibleInterface(&strip)->role(), QAccessible::ToolBar);
}

void ImageViewerToolBarTest::theFrameIsAsTold()
{
    QWidget host;
    const ImageViewerToolBar strip(&host);
    QCOMPARE(strip.parentWidget(), &host);
    QVERIFY(!strip.isWindow());
    QCOMPARE(strip.windowType(), Qt::Widget);
    QCOMPARE(strip.objectName(), QStringLiteral("ImageViewerToolBar"));
    QCOMPARE(strip.windowTitle(), QStringLiteral("Image Viewer Tool Bar"));
    QVERIFY(strip.property("modal").isValid());
    QCOMPARE(strip.property("modal").toBool(), false);
    QCOMPARE(strip.size(), QSize(146, 28));
    QCOMPARE(strip.minimumSize(), QSize(0, 28));
    QVERIFY(!strip.autoFillBackground());
}

void ImageViewerToolBarTest::theLayoutsAreAsTold()
{
    const ImageViewerToolBar strip(nullptr);
    const auto *const grid = qobject_cast<QGridLayout *>(strip.layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(grid->horizontalSpacing(), 0);
    QCOMPARE(grid->verticalSpacing(), 0);
    QCOMPARE(grid->contentsMargins(), QMargins());
    QCOMPARE(grid->count(), 1);
    const auto *const row = qobject_cast<QHBoxLayout *>(grid->itemAtPosition(0, 0)->layout());
    QVERIFY(row);
    QCOMPARE(row->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(row->spacing(), 0);
}

void ImageViewerToolBarTest::theButtonsStandInTheirOrder()
{
    const ImageViewerToolBar strip(nullptr);
    const auto *const row = strip.findChild<QHBoxLayout *>();
    QCOMPARE(row->count(), int(std::size(buttons)));
    QCOMPARE(strip.findChildren<QToolButton *>().size(), int(std::size(buttons)));
    for (int index = 0; index < row->count(); ++index) {
        const Button &told = buttons[index];
        const QToolButton *const button = find(strip, told.name);
        QVERIFY2(button, told.name);
        QCOMPARE(row->itemAt(index)->widget(), button);
        QCOMPARE(button->minimumSize(), QSize(24, 24));
        QCOMPARE(button->text(), QLatin1String(told.text));
        QCOMPARE(button->toolTip(), QLatin1String(told.toolTip));
        QVERIFY(button->shortcut().isEmpty());
    }
}

void ImageViewerToolBarTest::theStyleSheetHasItsRules_data()
{
    QTest::addColumn<QString>("rule");
    const char *const rules[] = {
        "QFrame{font-family:'Arial';font-size:12px;}",
        "QWidget#ImageViewerToolBar{background-color:transparent;border:1pxsolid#808080;}",
        "QToolButton{border:0pxsolid#A0A0A0;color:#5383B5;background-color:transparent;}",
        "QToolButton:hover{border:1pxsolid#C0C0C0;color:#FFFFFF;background-color:#4C2965A3;}",
        "QToolButton:focus:pressed{border:1pxsolid#C0C0C0;background-color:#4C5383B5;"
        "color:#FFFFFF;padding:0px;}",
        "QToolButton:checked{border:1pxsolid#C0C0C0;background-color:#4C5383B5;"
        "color:#FFFFFF;padding:0px;}",
        "QToolButton:disabled{background-color:#DCDCDCDC;padding:0px;}",
    };
    for (const char *rule : rules)
        QTest::newRow(QByteArray(rule).left(QByteArray(rule).indexOf('{')).constData())
            << QString::fromLatin1(rule);
}

void ImageViewerToolBarTest::theStyleSheetHasItsRules()
{
    QFETCH(QString, rule);
    const ImageViewerToolBar strip(nullptr);
    const QString sheet = strip.styleSheet().simplified().remove(QLatin1Char(' '));
    QVERIFY2(sheet.contains(rule), qPrintable(sheet));
}

void ImageViewerToolBarTest::theLinesAndGroundsAreTheColorsTold()
{
    ImageViewerToolBar strip(nullptr);
    strip.EnableZoomOutButton(false);
    strip.resize(strip.sizeHint());
    strip.show();
    const QImage picture = pictureOf(strip);
    QVERIFY(isNear(picture.pixelColor(0, 0), 0x80, 0x80, 0x80));
    QVERIFY(isNear(picture.pixelColor(strip.rect().bottomRight()), 0x80, 0x80, 0x80));
    const QPoint corner(2, 2); // beside the sign
    QVERIFY(isNear(picture.pixelColor(find(strip, "prev_button")->pos() + corner), 255, 255, 255));
    const int grey = over(0xDC, 0xDC);
    QVERIFY(isNear(picture.pixelColor(find(strip, "zoom_out_button")->pos() + corner), grey, grey,
                   grey));
}

void ImageViewerToolBarTest::aButtonUnderThePointerIsLit()
{
    ImageViewerToolBar strip(nullptr);
    strip.show();
    QToolButton *const button = find(strip, "next_button");
    button->setAttribute(Qt::WA_UnderMouse);
    const QImage picture = pictureOf(strip);
    QVERIFY(isNear(picture.pixelColor(button->pos()), 0xC0, 0xC0, 0xC0));
    QVERIFY(isNear(picture.pixelColor(button->pos() + QPoint(2, 2)), over(0x29, 0x4C),
                   over(0x65, 0x4C), over(0xA3, 0x4C)));
}

void ImageViewerToolBarTest::everyTextIsTranslated()
{
    MarkTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const ImageViewerToolBar strip(nullptr);
    QCOMPARE(strip.windowTitle(), QStringLiteral("*Image Viewer Tool Bar*"));
    for (const Button &told : buttons) {
        const QToolButton *const button = find(strip, told.name);
        QCOMPARE(button->text(), QStringLiteral("*%1*").arg(QLatin1String(told.text)));
        QCOMPARE(button->toolTip(), QStringLiteral("*%1*").arg(QLatin1String(told.toolTip)));
        QVERIFY(button->accessibleName().startsWith(QLatin1Char('*')));
    }
}

void ImageViewerToolBarTest::anotherLanguageIsTakenWhileItStands()
{
    const ImageViewerToolBar strip(nullptr);
    {
        MarkTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QTRY_COMPARE(find(strip, "zoom_in_button")->text(), QStringLiteral("*+*"));
    }
    QTRY_COMPARE(find(strip, "zoom_in_button")->text(), QStringLiteral("+"));
}

void ImageViewerToolBarTest::aTextOfTheHostStaysInAnotherLanguage()
{
    ImageViewerToolBar strip(nullptr);
    strip.setWindowTitle(QStringLiteral("Textures"));
    find(strip, "next_button")->setToolTip(QStringLiteral("Next texture"));
    MarkTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QTRY_COMPARE(find(strip, "zoom_in_button")->text(), QStringLiteral("*+*"));
    QCOMPARE(strip.windowTitle(), QStringLiteral("Textures"));
    QCOMPARE(find(strip, "next_button")->toolTip(), QStringLiteral("Next texture"));
    QCOMPARE(find(strip, "next_button")->text(), QStringLiteral("*>*"));
}

void ImageViewerToolBarTest::aButtonHasANameForAssistiveTools()
{
    const ImageViewerToolBar strip(nullptr);
    for (const Button &told : buttons) {
        const QString name = find(strip, told.name)->accessibleName();
        QVERIFY2(name.size() > 1, told.name);
        QVERIFY2(QLatin1String(told.toolTip).contains(name), told.name);
    }
}

void ImageViewerToolBarTest::aClickEmitsOneSignal_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < int(std::size(buttons)); ++index)
        QTest::newRow(buttons[index].name) << index;
}

void ImageViewerToolBarTest::aClickEmitsOneSignal()
{
    QFETCH(int, index);
    ImageViewerToolBar strip(nullptr);
    strip.show();
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (const Button &button : buttons)
        spies.push_back(std::make_unique<QSignalSpy>(&strip, button.signal));
    const QSignalSpy keys(&strip, &ImageViewerToolBar::KeyReleased);
    QTest::mouseClick(find(strip, buttons[index].name), Qt::LeftButton);
    for (int other = 0; other < int(std::size(buttons)); ++other)
        QCOMPARE(spies[size_t(other)]->count(), other == index ? 1 : 0);
    QCOMPARE(keys.count(), 0);
}

using Enable = void (ImageViewerToolBar::*)(bool);
using IsEnabled = bool (ImageViewerToolBar::*)() const;
Q_DECLARE_METATYPE(Enable)
Q_DECLARE_METATYPE(IsEnabled)

void ImageViewerToolBarTest::buttonsAreSwitchedOneByOne_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<Enable>("enable");
    QTest::addColumn<IsEnabled>("isEnabled");
    QTest::newRow("previous") << 0 << &ImageViewerToolBar::EnablePrevImageButton
                              << &ImageViewerToolBar::IsPrevImageButtonEnabled;
    QTest::newRow("next") << 1 << &ImageViewerToolBar::EnableNextImageButton
                          << &ImageViewerToolBar::IsNextImageButtonEnabled;
    QTest::newRow("zoom in") << 4 << &ImageViewerToolBar::EnableZoomInButton
                             << &ImageViewerToolBar::IsZoomInButtonEnabled;
    QTest::newRow("zoom out") << 5 << &ImageViewerToolBar::EnableZoomOutButton
                              << &ImageViewerToolBar::IsZoomOutButtonEnabled;
}

void ImageViewerToolBarTest::buttonsAreSwitchedOneByOne()
{
    QFETCH(int, index);
    QFETCH(Enable, enable);
    QFETCH(IsEnabled, isEnabled);
    ImageViewerToolBar strip(nullptr);
    strip.show();
    QVERIFY((strip.*isEnabled)());
    (strip.*enable)(false);
    QVERIFY(!(strip.*isEnabled)());
    for (int other = 0; other < int(std::size(buttons)); ++other)
        QCOMPARE(find(strip, buttons[other].name)->isEnabled(), other != index);

    const QSignalSpy clicks(&strip, buttons[index].signal);
    QTest::mouseClick(find(strip, buttons[index].name), Qt::LeftButton);
    QCOMPARE(clicks.count(), 0);
    (strip.*enable)(true);
    QVERIFY((strip.*isEnabled)());
    QTest::mouseClick(find(strip, buttons[index].name), Qt::LeftButton);
    QCOMPARE(clicks.count(), 1);
}

void ImageViewerToolBarTest::aDisabledStripHasNoEnabledButton()
{
    ImageViewerToolBar strip(nullptr);
    strip.setEnabled(false);
    QVERIFY(!strip.IsNextImageButtonEnabled());
    strip.setEnabled(true);
    QVERIFY(strip.IsNextImageButtonEnabled());
}

void ImageViewerToolBarTest::everyKeyReleasedIsTold_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("<") << Qt::Key_Less;
    QTest::newRow("F") << Qt::Key_F;
    QTest::newRow("+") << Qt::Key_Plus;
    QTest::newRow("Space, which clicks buttons") << Qt::Key_Space;
    QTest::newRow("Escape") << Qt::Key_Escape;
    QTest::newRow("Tab") << Qt::Key_Tab;
    QTest::newRow("a modifier") << Qt::Key_Shift;
    QTest::newRow("none of Qt's") << Qt::Key_unknown;
}

void ImageViewerToolBarTest::everyKeyReleasedIsTold()
{
    QFETCH(Qt::Key, key);
    ImageViewerToolBar strip(nullptr);
    strip.show();
    strip.setFocus();
    QTRY_VERIFY(strip.hasFocus());
    std::vector<Qt::Key> told;
    connect(&strip, &ImageViewerToolBar::KeyReleased, this,
            [&told](Qt::Key released) { told.push_back(released); });
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &press);
    QCOMPARE(told.size(), size_t(0));
    QTest::simulateEvent(&strip, false, key, Qt::NoModifier, QString(), false);
    QCOMPARE(told, std::vector<Qt::Key> {key});
}

void ImageViewerToolBarTest::aKeyOverAButtonIsTold()
{
    ImageViewerToolBar strip(nullptr);
    strip.show();
    QToolButton *const button = find(strip, "fit_to_view_button");
    const QSignalSpy keys(&strip, &ImageViewerToolBar::KeyReleased);
    QTest::keyClick(button, Qt::Key_Greater);
    QCOMPARE(keys.count(), 1);
    QCOMPARE(keys.first().first().value<Qt::Key>(), Qt::Key_Greater);
}

void ImageViewerToolBarTest::aKeyCanWaitInAQueue()
{
    ImageViewerToolBar strip(nullptr);
    Qt::Key told = Qt::Key_unknown;
    connect(
        &strip, &ImageViewerToolBar::KeyReleased, this, [&told](Qt::Key key) { told = key; },
        Qt::QueuedConnection);
    QTest::keyClick(&strip, Qt::Key_O);
    QCOMPARE(told, Qt::Key_unknown);
    QTRY_COMPARE(told, Qt::Key_O);
}

void ImageViewerToolBarTest::aKeyIsNotToldToTheParent()
{
    struct Host : QWidget
    {
        void keyReleaseEvent(QKeyEvent *) override { ++keys; }
        int keys = 0;
    } host;
    ImageViewerToolBar strip(&host);
    host.show();
    QTest::keyClick(&strip, Qt::Key_F);
    QCOMPARE(host.keys, 0);
    QTest::keyClick(&host, Qt::Key_F);
    QCOMPARE(host.keys, 1);
}

void ImageViewerToolBarTest::theWidthIsThatOfTheButtons()
{
    ImageViewerToolBar strip(nullptr);
    QCOMPARE(strip.sizeHint(), strip.layout()->totalSizeHint());
    strip.adjustSize();
    strip.show();
    int right = find(strip, buttons[0].name)->x();
    for (const Button &told : buttons) {
        const QToolButton *const button = find(strip, told.name);
        QCOMPARE(button->x(), right);
        QVERIFY(button->width() >= 24);
        right = button->geometry().right() + 1;
    }
    QVERIFY(strip.width() >= 6 * 24);
    QCOMPARE(strip.width() - right, find(strip, buttons[0].name)->x());
}

void ImageViewerToolBarTest::theHeightNeverDropsBelowItsLeast()
{
    ImageViewerToolBar strip(nullptr);
    strip.show();
    strip.resize(10, 5);
    QCOMPARE(strip.height(), 28);
    QVERIFY(strip.width() >= strip.layout()->minimumSize().width());
}

LUMO_TEST_MAIN(ImageViewerToolBarTest)
#include "tst_imageviewertoolbar.moc"
