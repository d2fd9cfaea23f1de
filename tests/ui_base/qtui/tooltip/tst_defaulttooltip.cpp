// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/DefaultTooltip>

#include "support/testcase.h"
#include "support/testmain.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using Vela::UiBase::DefaultTooltip;

class DefaultTooltipTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theFormIsAsTold();
    void showsItsText();
    void isAsLargeAsItsText();
    void theBackgroundIsWhiteAtFirst();
    void anotherBackgroundComesInAFreshPalette();
};

void DefaultTooltipTest::theFormIsAsTold()
{
    DefaultTooltip tooltip;
    QCOMPARE(tooltip.objectName(), QStringLiteral("DefaultTooltip"));
    QCOMPARE(tooltip.size(), QSize(280, 35));
    QCOMPARE(tooltip.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(tooltip.styleSheet(),
             QStringLiteral("QWidget {\n    background-color: #FFFFFF;\n}\n\nQLabel{\n"
                            "\tfont-family:'Arial';\n\tfont-size:12px;\n\tcolor: #606060;\n}"));
    const auto *const grid = qobject_cast<QGridLayout *>(tooltip.layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(grid->spacing(), 6);
    QCOMPARE(grid->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(grid->sizeConstraint(), QLayout::SetFixedSize);
    const auto *const all = qobject_cast<QVBoxLayout *>(grid->itemAt(0)->layout());
    QVERIFY(all);
    QCOMPARE(all->objectName(), QStringLiteral("vlayout_all"));
    QCOMPARE(all->spacing(), 0);
    QCOMPARE(all->contentsMargins(), QMargins(9, 9, 9, 9));
    const auto *const line = qobject_cast<QHBoxLayout *>(all->itemAt(0)->layout());
    QVERIFY(line);
    QCOMPARE(line->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(line->spacing(), 6);
    QCOMPARE(line->itemAt(0)->widget(), tooltip.findChild<QLabel *>(QStringLiteral("label")));
}

void DefaultTooltipTest::showsItsText()
{
    DefaultTooltip tooltip;
    const auto *const label = tooltip.findChild<QLabel *>(QStringLiteral("label"));
    QCOMPARE(label->text(), QString());
    QMetaObject::invokeMethod(&tooltip, "onUpdateTooltip", Q_ARG(QString, QStringLiteral("text")));
    QCOMPARE(label->text(), QStringLiteral("text"));
}

void DefaultTooltipTest::isAsLargeAsItsText()
{
    DefaultTooltip tooltip;
    tooltip.onUpdateTooltip(QStringLiteral("text"));
    tooltip.show();
    const QSize before = tooltip.size();
    const QSize label = tooltip.findChild<QLabel *>()->sizeHint();
    QCOMPARE(before, label + QSize(18, 18));
    tooltip.onUpdateTooltip(QStringLiteral("a longer text"));
    QTRY_VERIFY(tooltip.width() > before.width());
}

void DefaultTooltipTest::theBackgroundIsWhiteAtFirst()
{
    DefaultTooltip tooltip;
    QCOMPARE(tooltip.palette().color(QPalette::Window), QColor(Qt::white));
}

void DefaultTooltipTest::anotherBackgroundComesInAFreshPalette()
{
    DefaultTooltip tooltip;
    QPalette other = tooltip.palette();
    other.setColor(QPalette::WindowText, Qt::red);
    tooltip.setPalette(other);
    tooltip.SetBackgroundColor(Qt::yellow);
    QCOMPARE(tooltip.palette().color(QPalette::Window), QColor(Qt::yellow));
    QVERIFY(tooltip.palette().color(QPalette::WindowText) != QColor(Qt::red));
}

LUMO_TEST_MAIN(DefaultTooltipTest)
#include "tst_defaulttooltip.moc"
