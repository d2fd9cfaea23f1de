// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/SampleInnerTooltip>

#include "support/testcase.h"
#include "support/testmain.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using Vela::UiToolkit::SampleInnerTooltip;

class SampleInnerTooltipTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theFormIsAsTold();
    void theTextAndThePictureAreAsTold();
    void paintsNoGround();
};

void SampleInnerTooltipTest::theFormIsAsTold()
{
    SampleInnerTooltip page;
    QCOMPARE(page.objectName(), QStringLiteral("SampleInnerTooltip"));
    QCOMPARE(page.windowTitle(), QStringLiteral("Sample Inner Tooltip"));
    QCOMPARE(page.minimumSize(), QSize(400, 250));
    QCOMPARE(page.maximumSize(), QSize(1028, 834));
    QCOMPARE(page.size(), QSize(400, 300));
    for (const char *rule : {"QLabel", "'Arial'", "12px", "#606060"})
        QVERIFY2(page.styleSheet().contains(QLatin1String(rule)), rule);
    const auto *const grid = qobject_cast<QGridLayout *>(page.layout());
    QCOMPARE(grid->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(grid->spacing(), 0);
    QCOMPARE(grid->contentsMargins(), QMargins(0, 0, 0, 0));
    const auto *const column = qobject_cast<QVBoxLayout *>(grid->itemAt(0)->layout());
    QCOMPARE(column->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(column->spacing(), 6);
    QCOMPARE(column->contentsMargins().bottom(), 0);
    const auto *const row = qobject_cast<QHBoxLayout *>(column->itemAt(0)->layout());
    QCOMPARE(row->objectName(), QStringLiteral("horizontalLayout_2"));
    QCOMPARE(row->itemAt(0)->widget(), page.findChild<QLabel *>(QStringLiteral("label_text")));
    const auto *const right = qobject_cast<QVBoxLayout *>(row->itemAt(1)->layout());
    QCOMPARE(right->objectName(), QStringLiteral("verticalLayout_2"));
    QCOMPARE(right->contentsMargins().top(), 10);
    QCOMPARE(right->itemAt(0)->widget(), page.findChild<QLabel *>(QStringLiteral("label_picture")));
}

void SampleInnerTooltipTest::theTextAndThePictureAreAsTold()
{
    SampleInnerTooltip page;
    const auto *const text = page.findChild<QLabel *>(QStringLiteral("label_text"));
    QVERIFY(text->wordWrap());
    QCOMPARE(text->text(),
             QStringLiteral("<html><head/><body><p>This is the advanced part of the tooltip! "
                            "<br /><br /><b>Here is a sample image:</b></p></body></html>"));
    const auto *const picture = page.findChild<QLabel *>(QStringLiteral("label_picture"));
    QVERIFY(picture->hasScaledContents());
    const QPixmap pixmap = picture->pixmap(Qt::ReturnByValue);
    QVERIFY(!pixmap.isNull());
    QCOMPARE(pixmap.devicePixelRatio(), qMin(3.0, qApp->devicePixelRatio()));
    QCOMPARE(pixmap.size() / pixmap.devicePixelRatio(),
             QPixmap(QStringLiteral(":/resources/images/sys_sample.png")).size());
}

void SampleInnerTooltipTest::paintsNoGround()
{
    SampleInnerTooltip page;
    QImage picture(page.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::green);
    page.render(&picture, {}, {}, QWidget::RenderFlags());
    QCOMPARE(picture.pixelColor(0, 0), QColor(Qt::green));
}

LUMO_TEST_MAIN(SampleInnerTooltipTest)
#include "tst_sampleinnertooltip.moc"
