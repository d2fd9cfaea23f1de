// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testcase.h"
#include "support/testmain.h"

#include <ui_base/StyleConstants>

#include <QWidget>

#include <type_traits>

namespace Colors = Vela::UiBase::StyleConstants;

static_assert(std::is_same_v<decltype(Colors::ButtonColor), const QString>);

class TestStyleConstants : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void constantPaintsItsColor_data();
    void constantPaintsItsColor();
    void opacityOfWhiteIsFilledIn();
    void gradientsRunFromTopToBottom();
};

namespace {

/// What a widget of this background shows on black, at the top or the bottom.
QColor painted(const QString &background, bool bottom = false)
{
    QWidget window;
    window.setStyleSheet(QStringLiteral("#ground { background: black; }"
                                        "#plate { background: %1; }")
                             .arg(background));
    window.resize(20, 200);
    window.setObjectName(QStringLiteral("ground"));
    QWidget plate(&window);
    plate.setObjectName(QStringLiteral("plate"));
    plate.setAttribute(Qt::WA_StyledBackground);
    plate.setGeometry(window.rect());
    const QImage image = window.grab().toImage();
    return image.pixelColor(image.width() / 2, bottom ? image.height() - 1 : 0);
}

bool isNear(const QColor &left, const QColor &right)
{
    return qAbs(left.red() - right.red()) <= 2 && qAbs(left.green() - right.green()) <= 2
        && qAbs(left.blue() - right.blue()) <= 2;
}

} // namespace

void TestStyleConstants::constantPaintsItsColor_data()
{
    QTest::addColumn<QString>("constant");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("separator") << Colors::SeparatorColor << "rgb(160, 160, 160)"
                               << QColor(160, 160, 160);
    QTest::newRow("panel") << Colors::PanelColor << "rgb(240, 240, 240)" << QColor(240, 240, 240);
    QTest::newRow("dark accent") << Colors::AccentDarkColor << "rgb(41, 101, 163)"
                                 << QColor(0x29, 0x65, 0xa3);
    QTest::newRow("button") << Colors::ButtonColor << "rgba(83, 131, 181, 100%)"
                            << QColor(0x53, 0x83, 0xb5);
    QTest::newRow("hovered button")
        << Colors::ButtonHoverColor << "rgba(41, 101, 163, 100%)" << QColor(0x29, 0x65, 0xa3);
    QTest::newRow("hovered close button")
        << Colors::CloseHoverColor << "rgba(224, 67, 67, 100%)" << QColor(0xe0, 0x43, 0x43);
    QTest::newRow("transparent") << Colors::TransparentColor << "rgba(0, 0, 0, 0%)"
                                 << QColor(Qt::black);
}

void TestStyleConstants::constantPaintsItsColor()
{
    QFETCH(QString, constant);
    QFETCH(QString, text);
    QFETCH(QColor, color);
    QCOMPARE(constant, text);
    QCOMPARE(painted(constant), color);
}

void TestStyleConstants::opacityOfWhiteIsFilledIn()
{
    QCOMPARE(Colors::TranslucentWhiteColor, QStringLiteral("rgba(255, 255, 255, %1)"));
    QCOMPARE(painted(Colors::TranslucentWhiteColor.arg(0)), QColor(Qt::black));
    QVERIFY(isNear(painted(Colors::TranslucentWhiteColor.arg(128)), QColor(128, 128, 128)));
}

void TestStyleConstants::gradientsRunFromTopToBottom()
{
    QVERIFY(isNear(painted(Colors::PanelGradient), QColor(255, 255, 255)));
    QVERIFY(isNear(painted(Colors::PanelGradient, true), QColor(240, 240, 240)));
    QVERIFY(isNear(painted(Colors::AccentGradient), QColor(83, 131, 181)));
    QVERIFY(isNear(painted(Colors::AccentGradient, true), QColor(41, 101, 163)));
}

LUMO_TEST_MAIN(TestStyleConstants)
#include "tst_styleconstants.moc"
