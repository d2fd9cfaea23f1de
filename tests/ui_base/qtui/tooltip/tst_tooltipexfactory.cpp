// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/InfoDialog>
#include <ui_base/TooltipEx>
#include <ui_base/TooltipExFactory>

#include "support/testcase.h"
#include "support/testmain.h"

#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPointer>
#include <QStackedWidget>
#include <QTemporaryDir>

#include <limits>
#include <memory>

using namespace Vela::UiBase;
using EVisibility = ATooltipEx::EWidgetExVisibility;
using EWidgetType = ATooltipEx::EWidgetType;

namespace {

const QString CardType = QStringLiteral("TooltipEx");
const QString PanelType = QStringLiteral("InfoDialog");
const QString Picture = QStringLiteral(":/resources/images/sys_sample.png");

TooltipExFactory &factory()
{
    return TooltipExFactory::GetInstance();
}

std::unique_ptr<ATooltipEx> makeTextCard(const QString &type = CardType)
{
    return std::unique_ptr<ATooltipEx>(static_cast<ATooltipEx *>(factory().CreateExtendedTooltip(
        nullptr, QStringLiteral("Title"), QStringLiteral("Text"), QStringLiteral("Page"), true, 300,
        EVisibility::ExShown, type)));
}

std::unique_ptr<ATooltipEx> makeCard(QWidget *page, const QString &type = CardType)
{
    return std::unique_ptr<ATooltipEx>(static_cast<ATooltipEx *>(
        factory().CreateExtendedTooltip(nullptr, QStringLiteral("Title"), QStringLiteral("Text"),
                                        page, true, 300, EVisibility::ExShown, type)));
}

std::unique_ptr<ATooltipEx> makePictureCard(const QString &path, const QSize &size)
{
    return std::unique_ptr<ATooltipEx>(static_cast<ATooltipEx *>(
        factory().CreateExtendedTooltip(nullptr, QStringLiteral("Title"), QStringLiteral("Text"),
                                        path, size, true, 300, EVisibility::ExShown, CardType)));
}

void compareProperties(const QWidget *page, EWidgetType type, const QString &keyword)
{
    QCOMPARE(page->property("widget_type").value<EWidgetType>(), type);
    QCOMPARE(page->property("widget_type").typeName(), "Vela::UiBase::ATooltipEx::EWidgetType");
    QCOMPARE(page->property("keyword").toString(), keyword);
    QCOMPARE(page->property("original_size").type(), QVariant::Size);
}

} // namespace

class TooltipExFactoryTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneOfTheProcess();
    void theTypeChoosesTheClass();
    void anyOtherTypeMakesNothing_data();
    void anyOtherTypeMakesNothing();
    void cardsTakeNoFocusAndHaveTheirParent();
    void paramsReachTheCard();
    void aWidgetBecomesACustomPage();
    void withoutAWidgetThereAreNoPages();
    void aTextBecomesAPage();
    void aPictureBecomesAPage();
    void aPictureThatIsWiderThanThePageIsScaled();
    void noPictureIsLargerThanAScreen();
    void aPictureThatCannotBeReadMakesNoPage_data();
    void aPictureThatCannotBeReadMakesNoPage();
    void textPagesAreAdded();
    void picturePagesAreAdded();
    void widgetPagesAreAdded();
    void nothingIsAddedWithoutPages();
    void nothingIsAddedThatCannotBeMade();
    void addedPagesHaveTheWidthOfTheCard();
};

void TooltipExFactoryTest::thereIsOneOfTheProcess()
{
    QCOMPARE(&TooltipExFactory::GetInstance(), &TooltipExFactory::GetInstance());
    QVERIFY(qobject_cast<QObject *>(&TooltipExFactory::GetInstance()));
}

void TooltipExFactoryTest::theTypeChoosesTheClass()
{
    QVERIFY(qobject_cast<TooltipEx *>(makeTextCard(CardType).get()));
    QVERIFY(qobject_cast<InfoDialog *>(makeTextCard(PanelType).get()));
}

void TooltipExFactoryTest::anyOtherTypeMakesNothing_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("empty") << QString();
    QTest::newRow("unknown") << QStringLiteral("Tooltip");
    QTest::newRow("case") << QStringLiteral("tooltipex");
    QTest::newRow("abstract") << QStringLiteral("ATooltipEx");
}

void TooltipExFactoryTest::anyOtherTypeMakesNothing()
{
    QFETCH(QString, type);
    QWidget parent;
    const std::unique_ptr<QWidget> page(new QWidget);
    QVERIFY(!factory().CreateExtendedTooltip(&parent, {}, {}, page.get(), true, 300,
                                             EVisibility::ExShown, type));
    QVERIFY(!factory().CreateExtendedTooltip(&parent, {}, {}, QStringLiteral("Text"), true, 300,
                                             EVisibility::ExShown, type));
    QVERIFY(!factory().CreateExtendedTooltip(&parent, {}, {}, Picture, QSize(10, 10), true, 300,
                                             EVisibility::ExShown, type));
    QVERIFY(!page->parent());
    QVERIFY(!page->property("widget_type").isValid());
    QVERIFY(parent.children().isEmpty());
}

void TooltipExFactoryTest::cardsTakeNoFocusAndHaveTheirParent()
{
    QWidget parent;
    const QWidget *const card = factory().CreateExtendedTooltip(
        &parent, {}, {}, new QWidget, true, 300, EVisibility::ExShown, CardType);
    QCOMPARE(card->parentWidget(), &parent);
    QCOMPARE(card->focusPolicy(), Qt::NoFocus);
    QCOMPARE(card->findChild<QStackedWidget *>()->focusPolicy(), Qt::NoFocus);
}

void TooltipExFactoryTest::paramsReachTheCard()
{
    const auto card = makeTextCard();
    QCOMPARE(card->findChild<QLabel *>(QStringLiteral("title_label"))->text(),
             QStringLiteral("Title"));
    QCOMPARE(card->findChild<QLabel *>(QStringLiteral("content_label"))->text(),
             QStringLiteral("Text"));
    card->show();
    QCOMPARE(card->width(), 300);
    QVERIFY(card->IsAdvancedWidgetVisible());
}

void TooltipExFactoryTest::aWidgetBecomesACustomPage()
{
    auto *const page = new QWidget;
    page->resize(120, 70);
    const auto card = makeCard(page);
    QCOMPARE(card->AdvancedWidgets()->count(), 1);
    QCOMPARE(card->AdvancedWidgets()->widget(0), page);
    compareProperties(page, EWidgetType::Custom, QString());
    QCOMPARE(page->property("original_size").toSize(), QSize(120, 70));
    QCOMPARE(page->width(), 300 - 36);
}

void TooltipExFactoryTest::withoutAWidgetThereAreNoPages()
{
    for (const QString &type : {CardType, PanelType}) {
        const auto card = makeCard(nullptr, type);
        QVERIFY(card);
        QVERIFY(!card->AdvancedWidgets());
    }
}

void TooltipExFactoryTest::aTextBecomesAPage()
{
    const auto card = makeTextCard();
    const auto *const page = qobject_cast<QLabel *>(card->AdvancedWidgets()->widget(0));
    QVERIFY(page);
    QCOMPARE(page->text(), QStringLiteral("Page"));
    QVERIFY(page->wordWrap());
    QCOMPARE(page->focusPolicy(), Qt::NoFocus);
    QCOMPARE(page->alignment(), Qt::AlignJustify | Qt::AlignVCenter);
    QCOMPARE(page->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(page->sizePolicy().verticalPolicy(), QSizePolicy::Ignored);
    compareProperties(page, EWidgetType::Text, QString());
}

void TooltipExFactoryTest::aPictureBecomesAPage()
{
    const auto card = makePictureCard(Picture, QSize(120, 300));
    const auto *const page = qobject_cast<QLabel *>(card->AdvancedWidgets()->widget(0));
    QVERIFY(page);
    const QPixmap original(Picture);
    const QPixmap pixmap = page->pixmap(Qt::ReturnByValue);
    QCOMPARE(pixmap.width() / pixmap.devicePixelRatio(), 120.0);
    QCOMPARE(pixmap.width(), pixmap.devicePixelRatio() * 120);
    QVERIFY(qAbs(pixmap.height() * original.width() - pixmap.width() * original.height())
            <= original.width());
    QCOMPARE(page->size(), pixmap.size() / pixmap.devicePixelRatio());
    QCOMPARE(page->focusPolicy(), Qt::NoFocus);
    QCOMPARE(page->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    compareProperties(page, EWidgetType::Picture, QString());
}

void TooltipExFactoryTest::aPictureThatIsWiderThanThePageIsScaled()
{
    const auto card = makePictureCard(Picture, QSize(600, 600));
    auto *const page = qobject_cast<QLabel *>(card->AdvancedWidgets()->widget(0));
    QCOMPARE(page->width(), 300 - 36);
    QVERIFY(page->height() < 600 / 2);
    // All of it is seen, not its corner.
    QVERIFY(page->hasScaledContents());
}

void TooltipExFactoryTest::noPictureIsLargerThanAScreen()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line.png"));
    QImage line(256, 1, QImage::Format_RGB32);
    line.fill(Qt::blue);
    QVERIFY(line.save(path));
    for (const int side : {20000, std::numeric_limits<int>::max()}) {
        const auto card = makePictureCard(path, QSize(side, side));
        const auto *const page = qobject_cast<QLabel *>(card->AdvancedWidgets()->widget(0));
        QCOMPARE(page->pixmap(Qt::ReturnByValue).size(), QSize(8192, 32));
    }
}

void TooltipExFactoryTest::aPictureThatCannotBeReadMakesNoPage_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    QTest::newRow("empty") << QString() << QSize(10, 10);
    QTest::newRow("missing") << QStringLiteral("/no/such/picture.png") << QSize(10, 10);
    QTest::newRow("broken") << QStringLiteral("broken") << QSize(10, 10);
    QTest::newRow("not a picture") << QStringLiteral("text") << QSize(10, 10);
    QTest::newRow("no room") << Picture << QSize(0, 0);
    QTest::newRow("no size") << Picture << QSize();
}

void TooltipExFactoryTest::aPictureThatCannotBeReadMakesNoPage()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    QTemporaryDir folder;
    if (path == QLatin1String("broken") || path == QLatin1String("text")) {
        QFile source(Picture);
        QVERIFY(source.open(QIODevice::ReadOnly));
        const QByteArray contents =
            path == QLatin1String("text") ? QByteArray("text") : source.readAll().left(300);
        path = folder.filePath(path + QStringLiteral(".png"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }
    const auto card = makePictureCard(path, size);
    QVERIFY(card);
    QVERIFY(!card->AdvancedWidgets());

    const auto other = makeTextCard();
    int index = 7;
    QVERIFY(!factory().AddStaticPage(other.get(), path, size, QStringLiteral("key"), index));
    QCOMPARE(index, 7);
    QCOMPARE(other->AdvancedWidgets()->count(), 1);
}

void TooltipExFactoryTest::textPagesAreAdded()
{
    const auto card = makeTextCard();
    int index = -1;
    QVERIFY(factory().AddStaticPage(card.get(), QStringLiteral("Second"), QStringLiteral("key"),
                                    index));
    QCOMPARE(index, 1);
    const auto *const page = qobject_cast<QLabel *>(card->AdvancedWidgets()->widget(1));
    QCOMPARE(page->text(), QStringLiteral("Second"));
    compareProperties(page, EWidgetType::Text, QStringLiteral("key"));
    QCOMPARE(card->AdvancedWidgets()->currentIndex(), 0);
}

void TooltipExFactoryTest::picturePagesAreAdded()
{
    const auto card = makeTextCard();
    int index = -1;
    QVERIFY(factory().AddStaticPage(card.get(), Picture, QSize(100, 100), QStringLiteral("key"),
                                    index));
    QCOMPARE(index, 1);
    const auto *const page = qobject_cast<QLabel *>(card->AdvancedWidgets()->widget(1));
    QCOMPARE(page->width(), 100);
    compareProperties(page, EWidgetType::Picture, QStringLiteral("key"));
}

void TooltipExFactoryTest::widgetPagesAreAdded()
{
    const auto card = makeTextCard();
    auto *const page = new QWidget;
    page->resize(50, 60);
    int index = -1;
    QVERIFY(factory().AddStaticPage(card.get(), page, QStringLiteral("key"), index,
                                    EWidgetType::Custom));
    QCOMPARE(index, 1);
    QCOMPARE(card->AdvancedWidgets()->widget(1), page);
    compareProperties(page, EWidgetType::Custom, QStringLiteral("key"));
    QCOMPARE(page->property("original_size").toSize(), QSize(50, 60));
    QCOMPARE(page->width(), 300 - 36);
    auto *const picture = new QWidget;
    QVERIFY(factory().AddStaticPage(card.get(), picture, {}, index, EWidgetType::Picture));
    QCOMPARE(index, 2);
    compareProperties(picture, EWidgetType::Picture, QString());
}

void TooltipExFactoryTest::nothingIsAddedWithoutPages()
{
    const auto card = makeCard(nullptr);
    const std::unique_ptr<QWidget> page(new QWidget);
    for (ATooltipEx *target : {card.get(), static_cast<ATooltipEx *>(nullptr)}) {
        int index = 7;
        QVERIFY(!factory().AddStaticPage(target, QStringLiteral("Text"), {}, index));
        QVERIFY(!factory().AddStaticPage(target, Picture, QSize(10, 10), {}, index));
        QVERIFY(!factory().AddStaticPage(target, page.get(), {}, index, EWidgetType::Custom));
        QCOMPARE(index, 7);
    }
    QVERIFY(!page->parent());
    QVERIFY(!page->property("widget_type").isValid());
}

void TooltipExFactoryTest::nothingIsAddedThatCannotBeMade()
{
    const auto card = makeTextCard();
    int index = 7;
    QVERIFY(!factory().AddStaticPage(card.get(), static_cast<QWidget *>(nullptr), {}, index,
                                     EWidgetType::Custom));
    QCOMPARE(index, 7);
    QCOMPARE(card->AdvancedWidgets()->count(), 1);
}

void TooltipExFactoryTest::addedPagesHaveTheWidthOfTheCard()
{
    const auto card = makeTextCard();
    card->SetMaxWidthForAllAdvancedWidgets(200);
    int index = 0;
    QVERIFY(factory().AddStaticPage(card.get(), QStringLiteral("Second"), {}, index));
    QCOMPARE(card->AdvancedWidgets()->widget(index)->width(), 200 - 36);
}

LUMO_TEST_MAIN(TooltipExFactoryTest)
#include "tst_tooltipexfactory.moc"
