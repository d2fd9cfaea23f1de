// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ArrowedWindow>
#include <ui_base/ATooltipEx>
#include <ui_base/BaseView>
#include <ui_base/TooltipEx>
#include <ui_base/TooltipExFactory>
#include <ui_base/TooltipObject>

#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/qtui/tooltip/atooltipex_p.h"
#include "ui_base/qtui/tooltip/tooltipscene.h"

#include <lumo_common_res/Styles>

#include <QAccessible>
#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <limits>
#include <memory>
#include <type_traits>

using namespace Vela::UiBase;
using EVisibility = ATooltipEx::EWidgetExVisibility;
using EWidgetType = ATooltipEx::EWidgetType;

static_assert(std::is_abstract_v<ATooltipEx>);
static_assert(std::is_base_of_v<QFrame, ATooltipEx>);

namespace {

const QString Text =
    QStringLiteral("Evens out the surface of the selected parts, as often as asked "
                   "for, and leaves the borders of open meshes alone.");
constexpr int Wide = 300;
// The page is narrower than the card by the margins of the top and of the part.
constexpr int PageWidth = Wide - 18 - 18;

class Card : public TooltipEx
{
public:
    using TooltipEx::TooltipEx;

    ATooltipExPrivate &state() const { return *d_ptr; }
    template<typename Child = QWidget>
    Child *part(const char *name) const
    {
        return findChild<Child *>(QLatin1String(name));
    }
    bool isOpen() const { return part("widget")->isVisible(); }
    int page() const { return AdvancedWidgets()->currentIndex(); }

    using TooltipEx::OnIndexChanged;
    using TooltipEx::OnKeywordChanged;
    using TooltipEx::SetAdvancedWidget;

    static bool virtualsStandInOrder()
    {
        return Lumo::Test::standInThisOrder(
            &Card::GetAdvancedWidgetMargins, &Card::SetParams,
            &Card::SetHeightOnAdvancedWidgetHidden, &Card::IsAdvancedWidgetVisible,
            &Card::OnAdvancedWidgetVisibilityChange, &Card::AddWidgetToLayout);
    }
};

QWidget *makePage(const QSize &size, EWidgetType type = EWidgetType::Custom)
{
    auto *const page = new QWidget;
    page->setFixedHeight(size.height());
    page->resize(size);
    page->setProperty("widget_type", QVariant::fromValue(type));
    return page;
}

QStackedWidget *makeStack(int pages)
{
    auto *const stack = new QStackedWidget;
    for (int i = 0; i < pages; ++i)
        stack->addWidget(makePage(QSize(100, 40 + 20 * i)));
    return stack;
}

std::unique_ptr<Card> makeCard(EVisibility visibility, int pages = 1, bool alwaysMaxWidth = true)
{
    auto card = std::make_unique<Card>();
    card->SetParams(QStringLiteral("Smooth"), Text, pages ? makeStack(pages) : nullptr,
                    alwaysMaxWidth, Wide, visibility);
    return card;
}

void click(QWidget *card)
{
    QTest::mousePress(card, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseRelease(card, Qt::LeftButton, {}, QPoint(5, 5));
}

bool showsAllOfItsTexts(const Card &card)
{
    for (const QLabel *label : card.findChildren<QLabel *>()) {
        if (label->wordWrap() && label->isVisible()
            && label->height() < label->heightForWidth(label->width()))
            return false;
    }
    return true;
}

} // namespace

class TooltipExTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void virtualsStandInTheOrderOfHosts();
    void theFormIsAsTold();
    void theTitleLineIsAsTold();
    void theTextsAreAsTold();
    void theDarkPaletteReachesTheForm();
    void startsWithTheWidthOfANewWidget();
    void showsTitleAndContent();
    void assistiveToolsGetTitleAndContent();
    void takesItsPagesOver();
    void aSecondStackIsLeftAlone();
    void aStackWithoutPagesDiesWithTheCard();
    void aStackThatDiesIsForgotten();
    void marginsAreThoseOfTheTopAndThePart();
    void widthsGoByTheTypeOfThePage_data();
    void widthsGoByTheTypeOfThePage();
    void textPagesAreAsHighAsTheirText();
    void picturesAreNeverEnlarged_data();
    void picturesAreNeverEnlarged();
    void textSizesAreThoseOfALabel();
    void anotherWidthReachesAllPages();
    void anotherWidthFitsTheOpenCard();
    void aWidthOfNothingChangesNothing();
    void widthsThatNoWidgetCanHaveBecomeTheNearest_data();
    void widthsThatNoWidgetCanHaveBecomeTheNearest();
    void theWidthGoesWithThePart();
    void startsAsItsVisibilitySays_data();
    void startsAsItsVisibilitySays();
    void aClickTogglesThePart_data();
    void aClickTogglesThePart();
    void theClosedCardIsAsHighAsItsTexts();
    void onlyACardThatIsUpGetsAFixedHeight();
    void anOpenedCardIsAsHighAsItNeeds();
    void movingOverTheIconOpensThePart();
    void withoutPagesNothingOpens();
    void eachShowingStartsTheSameWay();
    void onePageDoesNotTurn();
    void severalPagesTurnWithEachShowing();
    void pagesAreChosenByIndex();
    void aChosenPageFitsTheOpenCard();
    void anEmptyKeywordChoosesTheFirstPage();
    void theKeywordIsThatOfTheStack();
    void aTooltipChoosesPages();
    void onlyATooltipCanBeConnected();
    void f1IsSwallowed();
    void aCardAsTooltipStandsAtItsHost_data();
    void aCardAsTooltipStandsAtItsHost();
    void aCardAsTooltipShowsAllOfItsText_data();
    void aCardAsTooltipShowsAllOfItsText();
    void pagesOfAHostKeepTheirHeights();
    void aWidthThatTheHostGivesAPageStays();
    void anotherTextIsShownInFullAtTheNextOpening();
    void theCornersOfACardAreClear();
};

void TooltipExTest::virtualsStandInTheOrderOfHosts()
{
    QVERIFY(Card::virtualsStandInOrder());
}

void TooltipExTest::theFormIsAsTold()
{
    Card card;
    QCOMPARE(card.objectName(), QStringLiteral("TooltipEx"));
    QCOMPARE(card.windowTitle(), QStringLiteral("Help"));
    QVERIFY(card.hasMouseTracking());
    for (const char *rule : {"QFrame#TooltipEx", "background-color: #F0F0F0", "outset",
                             "border-width: 1px", "border-radius: 6px", "color: #606060"})
        QVERIFY2(card.styleSheet().contains(QLatin1String(rule)), rule);

    const auto *const grid = qobject_cast<QGridLayout *>(card.layout());
    QCOMPARE(grid->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(grid->spacing(), 6);
    QCOMPARE(grid->contentsMargins(), QMargins(0, 0, 0, 0));
    const auto *const all = qobject_cast<QVBoxLayout *>(grid->itemAt(0)->layout());
    QCOMPARE(all->objectName(), QStringLiteral("vlayout_all"));
    QCOMPARE(all->spacing(), 6);
    QCOMPARE(all->contentsMargins(), QMargins(0, 9, 0, 6));
    QStringList parts;
    for (int i = 0; i < all->count(); ++i) {
        auto *const part = qobject_cast<QVBoxLayout *>(all->itemAt(i)->layout());
        QVERIFY(part);
        QCOMPARE(part->spacing(), 6);
        parts << part->objectName();
        const int side = i == 1 ? 0 : 9;
        QCOMPARE(part->contentsMargins().left(), side);
        QCOMPARE(part->contentsMargins().right(), side);
        QCOMPARE(part->contentsMargins().top(), 0);
    }
    QCOMPARE(parts.join(QLatin1Char(' ')),
             QStringLiteral("vlayout_top vlayout_extended vlayout_bottom"));

    const auto *const widget = card.part("widget");
    QCOMPARE(card.part<QVBoxLayout>("vlayout_extended")->itemAt(0)->widget(), widget);
    QVERIFY(widget->styleSheet().contains(QLatin1String("QWidget#widget")));
    QVERIFY(widget->styleSheet().contains(QLatin1String("#FFFFFF")));
    const auto *const inner = qobject_cast<QGridLayout *>(widget->layout());
    QCOMPARE(inner->objectName(), QStringLiteral("gridLayout_2"));
    QCOMPARE(inner->spacing(), 0);
    QCOMPARE(inner->contentsMargins(), QMargins(9, 9, 9, 9));
    QCOMPARE(inner->itemAt(0)->layout()->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(inner->itemAt(0)->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
}

void TooltipExTest::theTitleLineIsAsTold()
{
    Card card;
    const auto *const line = card.part<QHBoxLayout>("hlayout_title");
    QCOMPARE(card.part<QVBoxLayout>("vlayout_top")->itemAt(0)->layout(), line);
    QCOMPARE(line->spacing(), 0);
    QCOMPARE(line->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(line->itemAt(0)->widget(), card.part("title_label"));
    const auto *const spacer = line->itemAt(1)->spacerItem();
    QCOMPARE(spacer->sizeHint(), QSize(40, 20));
    QCOMPARE(spacer->expandingDirections(), Qt::Horizontal);
    auto *const icon = card.part<QLabel>("info_label");
    QCOMPARE(line->itemAt(2)->widget(), icon);
    QCOMPARE(icon->minimumSize(), QSize(20, 20));
    QCOMPARE(icon->maximumSize(), QSize(20, 20));
    QCOMPARE(icon->textFormat(), Qt::PlainText);
    QCOMPARE(icon->toolTip(), QStringLiteral("Show more"));
    QCOMPARE(icon->accessibleName(), QStringLiteral("Show more"));
    QVERIFY(icon->hasMouseTracking());
    for (const char *rule : {":/resources/images/sys_info_16x16.png", "no-repeat", "center"})
        QVERIFY2(icon->styleSheet().contains(QLatin1String(rule)), rule);
    card.show();
    // The picture is there, in the colour of the accent.
    const QImage picture = icon->grab().toImage();
    QVERIFY(picture.pixelColor(picture.rect().center() + QPoint(-5, 0)).blue() > 150);
}

void TooltipExTest::theTextsAreAsTold()
{
    Card card;
    const auto *const title = card.part<QLabel>("title_label");
    const auto *const content = card.part<QLabel>("content_label");
    const auto *const footer = card.part<QLabel>("footer_label");
    QCOMPARE(title->text(), QStringLiteral("title"));
    QCOMPARE(content->text(), QStringLiteral("content"));
    QCOMPARE(footer->text(), QStringLiteral("Press F1 for more help"));
    QVERIFY(content->wordWrap());
    QCOMPARE(footer->alignment(), Qt::AlignLeft | Qt::AlignBottom);
    QCOMPARE(card.part<QVBoxLayout>("vlayout_top")->itemAt(1)->widget(), content);
    QCOMPARE(card.part<QVBoxLayout>("vlayout_bottom")->itemAt(0)->widget(), footer);
    for (const QLabel *label : {title, footer}) {
        label->ensurePolished();
        QCOMPARE(label->font().family(), QStringLiteral("Arial"));
        QCOMPARE(label->font().pixelSize(), 12);
        QVERIFY(label->font().bold());
        QVERIFY(label->styleSheet().contains(QLatin1String("#404040")));
    }
    for (const QLabel *label : {content, footer})
        QVERIFY(label->styleSheet().contains(QLatin1String("background-color: transparent")));
}

void TooltipExTest::theDarkPaletteReachesTheForm()
{
    auto &styles = Vela::Resource::Styles::Instance();
    styles.SetPalette(Vela::Resource::EPalette::Dark);
    const Card card;
    styles.SetPalette(Vela::Resource::EPalette::Light);
    for (const QWidget *w : {card.part("widget"), card.part("title_label"),
                             card.part("content_label"), card.part("footer_label")}) {
        for (const char *light : {"#F0F0F0", "#FFFFFF", "#404040", "#606060"})
            QVERIFY2(!w->styleSheet().contains(QLatin1String(light)), light);
    }
    QVERIFY(!card.styleSheet().contains(QLatin1String("#F0F0F0")));
    QVERIFY(card.styleSheet().contains(QLatin1String("outset")));
}

void TooltipExTest::startsWithTheWidthOfANewWidget()
{
    const Card window;
    QCOMPARE(window.state().minWidth, QWidget().width());
    QCOMPARE(window.state().maxWidth, QWidget().width());
    QVERIFY(window.state().alwaysMaxWidth);
    QCOMPARE(window.state().visibility, EVisibility::ExHidden);
    QVERIFY(!window.AdvancedWidgets());
    QWidget parent;
    QCOMPARE((new Card(&parent))->state().minWidth, QWidget(&parent).width());
}

void TooltipExTest::showsTitleAndContent()
{
    const auto card = makeCard(EVisibility::ExHidden);
    QCOMPARE(card->part<QLabel>("title_label")->text(), QStringLiteral("Smooth"));
    QCOMPARE(card->part<QLabel>("content_label")->text(), Text);
    QCOMPARE(card->state().maxWidth, Wide);
}

void TooltipExTest::assistiveToolsGetTitleAndContent()
{
    Card card;
    card.SetParams(QStringLiteral("<b>Smooth</b>"), QStringLiteral("Takes the noise out"), nullptr,
                   true, Wide, EVisibility::ExHidden);
    QAccessibleInterface *const seen = QAccessible::queryAccessibleInterface(&card);
    QCOMPARE(seen->role(), QAccessible::ToolTip);
    QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Smooth"));
    QCOMPARE(seen->text(QAccessible::Description), QStringLiteral("Takes the noise out"));
}

void TooltipExTest::takesItsPagesOver()
{
    QStackedWidget *const stack = makeStack(2);
    auto card = std::make_unique<Card>();
    card->SetParams({}, {}, stack, true, Wide, EVisibility::ExShown);
    QCOMPARE(card->AdvancedWidgets(), stack);
    QStackedWidget *const &reference = card->AdvancedWidgets();
    QCOMPARE(stack->parentWidget(), card->part("widget"));
    QVERIFY(card->part("widget")->layout()->indexOf(stack) >= 0);
    QCOMPARE(stack->widget(0)->width(), PageWidth);
    delete stack;
    QVERIFY(!reference);
}

void TooltipExTest::aSecondStackIsLeftAlone()
{
    const auto card = makeCard(EVisibility::ExShown);
    const QStackedWidget *const first = card->AdvancedWidgets();
    const std::unique_ptr<QStackedWidget> second(makeStack(1));
    card->SetParams(QStringLiteral("Other"), {}, second.get(), true, 200, EVisibility::ExShown);
    QCOMPARE(card->AdvancedWidgets(), first);
    QVERIFY(!second->parent());
    QCOMPARE(card->part<QLabel>("title_label")->text(), QStringLiteral("Other"));
    QCOMPARE(card->state().maxWidth, 200);
}

void TooltipExTest::aStackWithoutPagesDiesWithTheCard()
{
    const QPointer<QStackedWidget> stack = new QStackedWidget;
    {
        Card card;
        card.SetAdvancedWidget(nullptr);
        card.SetAdvancedWidget(stack);
        QCOMPARE(card.AdvancedWidgets(), stack.data());
        QVERIFY(!stack->parent());
        card.show();
        card.hide();
    }
    QVERIFY(!stack);
}

void TooltipExTest::aStackThatDiesIsForgotten()
{
    const auto card = makeCard(EVisibility::ExShown, 3);
    card->show();
    delete card->AdvancedWidgets();
    QVERIFY(!card->AdvancedWidgets());
    card->OnIndexChanged(1);
    card->OnKeywordChanged({});
    card->SetMaxWidthForAllAdvancedWidgets(200);
    QWidget page;
    card->SetAdvancedWidgetWidth(&page);
    click(card.get());
    card->hide();
    card->show();
}

void TooltipExTest::marginsAreThoseOfTheTopAndThePart()
{
    Card card;
    QCOMPARE(card.GetAdvancedWidgetMargins(), 36);
    card.part<QVBoxLayout>("vlayout_top")->setContentsMargins(1, 50, 2, 50);
    card.part("widget")->layout()->setContentsMargins(3, 50, 4, 50);
    QCOMPARE(card.GetAdvancedWidgetMargins(), 10);
    delete card.part("widget")->layout();
    QCOMPARE(card.GetAdvancedWidgetMargins(), 0);
}

void TooltipExTest::widthsGoByTheTypeOfThePage_data()
{
    QTest::addColumn<QVariant>("type");
    QTest::addColumn<int>("maximumHeight");
    // Only a label has a text to measure.
    QTest::newRow("text") << QVariant::fromValue(EWidgetType::Text) << 0;
    QTest::newRow("no type") << QVariant() << 0;
    QTest::newRow("not to be converted") << QVariant(QStringLiteral("picture")) << 0;
    QTest::newRow("picture") << QVariant::fromValue(EWidgetType::Picture) << QWIDGETSIZE_MAX;
    QTest::newRow("custom") << QVariant::fromValue(EWidgetType::Custom) << QWIDGETSIZE_MAX;
    QTest::newRow("custom as a number") << QVariant(2) << QWIDGETSIZE_MAX;
}

void TooltipExTest::widthsGoByTheTypeOfThePage()
{
    QFETCH(QVariant, type);
    const auto card = makeCard(EVisibility::ExShown);
    QWidget page;
    page.setProperty("widget_type", type);
    card->SetAdvancedWidgetWidth(&page);
    QCOMPARE(page.minimumWidth(), PageWidth);
    QTEST(page.maximumHeight(), "maximumHeight");
    card->SetAdvancedWidgetWidth(nullptr);

    QLabel untouched;
    makeCard(EVisibility::ExShown, 0)->SetAdvancedWidgetWidth(&untouched);
    QCOMPARE(untouched.maximumWidth(), QWIDGETSIZE_MAX);
}

void TooltipExTest::textPagesAreAsHighAsTheirText()
{
    const auto card = makeCard(EVisibility::ExShown);
    QLabel page(Text + Text + Text);
    page.setProperty("widget_type", QVariant::fromValue(EWidgetType::Text));
    card->SetAdvancedWidgetWidth(&page);
    QCOMPARE(page.font().family(), QStringLiteral("Arial"));
    QCOMPARE(page.font().pixelSize(), 12);
    const QSize text = ATooltipEx::FindTextLabelSize(&page, PageWidth);
    QCOMPARE(page.maximumSize(), text);
    QCOMPARE(page.size(), QSize(PageWidth, text.height()));
    QVERIFY(text.height() > 3 * page.fontMetrics().height());
}

void TooltipExTest::picturesAreNeverEnlarged_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QSize>("size");
    QTest::newRow("narrower") << QSize(100, 80) << 1.0 << QSize(100, 80);
    QTest::newRow("wider") << QSize(2 * PageWidth, 301) << 1.0 << QSize(PageWidth, 150);
    QTest::newRow("none") << QSize() << 1.0 << QSize(PageWidth, 480);
    QTest::newRow("of a fine screen") << QSize(200, 160) << 2.0 << QSize(100, 80);
}

void TooltipExTest::picturesAreNeverEnlarged()
{
    QFETCH(QSize, picture);
    QFETCH(qreal, ratio);
    const auto card = makeCard(EVisibility::ExShown);
    QLabel page;
    page.setProperty("widget_type", QVariant::fromValue(EWidgetType::Picture));
    if (!picture.isEmpty()) {
        QPixmap pixmap(picture);
        pixmap.setDevicePixelRatio(ratio);
        page.setPixmap(pixmap);
    }
    card->SetAdvancedWidgetWidth(&page);
    QTEST(page.size(), "size");
}

void TooltipExTest::textSizesAreThoseOfALabel()
{
    QLabel label(Text);
    const QRect room(0, 0, 120, 2147483647);
    QCOMPARE(ATooltipEx::FindTextLabelSize(&label, 120),
             label.fontMetrics().boundingRect(room, 4225, Text).size());
    QWidget other;
    QCOMPARE(ATooltipEx::FindTextLabelSize(&other, 120), QSize(0, 0));
    QCOMPARE(ATooltipEx::FindTextLabelSize(nullptr, 120), QSize(0, 0));
}

void TooltipExTest::anotherWidthReachesAllPages()
{
    const auto card = makeCard(EVisibility::ExHidden, 3);
    card->SetMaxWidthForAllAdvancedWidgets(200);
    QCOMPARE(card->width(), 200);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(card->AdvancedWidgets()->widget(i)->width(), 200 - 36);
}

void TooltipExTest::anotherWidthFitsTheOpenCard()
{
    const auto card = makeCard(EVisibility::ExShown, 0);
    auto *const page = new QLabel(Text + Text);
    page->setProperty("widget_type", QVariant::fromValue(EWidgetType::Text));
    page->setWordWrap(true);
    auto *const stack = new QStackedWidget;
    stack->addWidget(page);
    card->SetParams({}, Text, stack, true, Wide, EVisibility::ExShown);
    card->show();
    const int height = page->height();
    card->SetMaxWidthForAllAdvancedWidgets(150);
    QVERIFY(page->height() > height);
    QCOMPARE(stack->size(), page->size());
    QVERIFY(stack->mapTo(card.get(), stack->rect().bottomRight()).y() < card->height());
    QVERIFY(showsAllOfItsTexts(*card));
}

void TooltipExTest::aWidthOfNothingChangesNothing()
{
    const auto card = makeCard(EVisibility::ExShown);
    for (const int width : {0, -1}) {
        card->SetMaxWidthForAllAdvancedWidgets(width);
        QCOMPARE(card->width(), Wide);
        QCOMPARE(card->state().maxWidth, Wide);
        QCOMPARE(card->AdvancedWidgets()->widget(0)->width(), PageWidth);
    }
    makeCard(EVisibility::ExShown, 0)->SetMaxWidthForAllAdvancedWidgets(200);
}

void TooltipExTest::widthsThatNoWidgetCanHaveBecomeTheNearest_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("pageWidth");
    const int margins = Wide - PageWidth;
    QTest::newRow("the smallest") << std::numeric_limits<int>::min() << 0 << 0;
    QTest::newRow("negative") << -10 << 0 << 0;
    QTest::newRow("none") << 0 << 0 << 0;
    QTest::newRow("less than the margins") << 10 << 10 << 0;
    QTest::newRow("huge") << std::numeric_limits<int>::max() << QWIDGETSIZE_MAX
                          << QWIDGETSIZE_MAX - margins;
}

void TooltipExTest::widthsThatNoWidgetCanHaveBecomeTheNearest()
{
    QFETCH(int, given);
    QFETCH(int, width);
    QFETCH(int, pageWidth);
    Card card;
    QStackedWidget *const stack = makeStack(1);
    card.SetParams({}, {}, stack, true, given, EVisibility::ExHidden);
    QCOMPARE(card.maximumWidth(), width);
    QCOMPARE(stack->widget(0)->maximumWidth(), pageWidth);
}

void TooltipExTest::theWidthGoesWithThePart()
{
    const auto card = makeCard(EVisibility::ExShown, 1, false);
    const int narrow = card->state().minWidth;
    QVERIFY(narrow != Wide);
    card->show();
    QCOMPARE(card->width(), Wide);
    click(card.get());
    QCOMPARE(card->width(), narrow);
    click(card.get());
    QCOMPARE(card->width(), Wide);

    const auto always = makeCard(EVisibility::ExHidden, 1, true);
    always->show();
    QCOMPARE(always->width(), Wide);
}

void TooltipExTest::startsAsItsVisibilitySays_data()
{
    QTest::addColumn<EVisibility>("visibility");
    QTest::addColumn<bool>("isOpen");
    QTest::newRow("hidden") << EVisibility::ExHidden << false;
    QTest::newRow("shown") << EVisibility::ExShown << true;
    QTest::newRow("always shown") << EVisibility::ExAlwaysShown << true;
}

void TooltipExTest::startsAsItsVisibilitySays()
{
    QFETCH(EVisibility, visibility);
    QFETCH(bool, isOpen);
    const auto card = makeCard(visibility);
    QCOMPARE(!card->part("widget")->isHidden(), isOpen);
    QVERIFY(!card->IsAdvancedWidgetVisible());
    card->show();
    QCOMPARE(card->IsAdvancedWidgetVisible(), isOpen);
    QCOMPARE(card->AdvancedWidgets()->currentWidget()->isVisible(), isOpen);
    QVERIFY(card->autoFillBackground());
}

void TooltipExTest::aClickTogglesThePart_data()
{
    startsAsItsVisibilitySays_data();
}

void TooltipExTest::aClickTogglesThePart()
{
    QFETCH(EVisibility, visibility);
    QFETCH(bool, isOpen);
    const auto card = makeCard(visibility);
    card->show();
    const bool toggles = visibility != EVisibility::ExAlwaysShown;
    click(card.get());
    QCOMPARE(card->isOpen(), toggles != isOpen);
    click(card.get());
    QCOMPARE(card->isOpen(), isOpen);
}

void TooltipExTest::theClosedCardIsAsHighAsItsTexts()
{
    const auto card = makeCard(EVisibility::ExShown);
    card->show();
    click(card.get());
    const int footer =
        ATooltipEx::FindTextLabelSize(card->part("footer_label"), Wide - 18).height();
    const int expected = 9 + 6 + 2 * 6 + card->part("title_label")->height() + 5
        + card->part("content_label")->height() + footer;
    QCOMPARE(card->height(), expected);
    QCOMPARE(card->minimumHeight(), expected);
    QCOMPARE(card->maximumHeight(), expected);
    QVERIFY(showsAllOfItsTexts(*card));
}

void TooltipExTest::onlyACardThatIsUpGetsAFixedHeight()
{
    const auto hasFixedHeight = [](const Card &card) {
        return card.minimumHeight() == card.maximumHeight();
    };
    const auto card = makeCard(EVisibility::ExHidden);
    QVERIFY(!hasFixedHeight(*card));
    card->show();
    QVERIFY(hasFixedHeight(*card));

    const auto open = makeCard(EVisibility::ExShown);
    open->show();
    open->hide();
    QVERIFY(!hasFixedHeight(*open));
    open->show();
    // As a minimised window hears it.
    QHideEvent minimised;
    QCoreApplication::sendEvent(open.get(), &minimised);
    QVERIFY(open->isVisible());
    QVERIFY(!open->isOpen());
    QVERIFY(hasFixedHeight(*open));
}

void TooltipExTest::anOpenedCardIsAsHighAsItNeeds()
{
    for (const bool alwaysMaxWidth : {true, false}) {
        const auto card = makeCard(EVisibility::ExShown, 1, alwaysMaxWidth);
        card->show();
        const QSize open = card->size();
        click(card.get());
        QVERIFY(card->height() < open.height());
        click(card.get());
        QCOMPARE(card->size(), open);
        QCOMPARE(card->AdvancedWidgets()->size(), QSize(PageWidth, 40));
        QVERIFY(showsAllOfItsTexts(*card));
        const auto *const part = card->part("widget");
        QVERIFY(part->geometry().bottom() < card->part("footer_label")->geometry().top());
        QCOMPARE(part->height(), 40 + 18);
        // From one border of the card to the other, though its page is narrower.
        QCOMPARE(part->width(), Wide - 2);
    }
}

void TooltipExTest::movingOverTheIconOpensThePart()
{
    const auto card = makeCard(EVisibility::ExHidden);
    card->show();
    auto *const icon = card->part("info_label");
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(icon, &enter);
    QVERIFY(!card->isOpen());
    QMouseEvent elsewhere(QEvent::MouseMove, QPointF(2, 2), Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(card.get(), &elsewhere);
    QVERIFY(!card->isOpen());
    QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(icon, &move);
    QVERIFY(card->isOpen());
    QCoreApplication::sendEvent(icon, &move);
    QVERIFY(card->isOpen());
}

void TooltipExTest::withoutPagesNothingOpens()
{
    const auto card = makeCard(EVisibility::ExHidden, 0);
    QCOMPARE(card->width(), card->sizeHint().width());
    card->show();
    QVERIFY(!card->isOpen());
    QCOMPARE(card->width(), Wide);
    QVERIFY(showsAllOfItsTexts(*card));
    QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(card->part("info_label"), &move);
    click(card.get());
    QVERIFY(!card->isOpen());
}

void TooltipExTest::eachShowingStartsTheSameWay()
{
    const auto card = makeCard(EVisibility::ExHidden);
    card->show();
    click(card.get());
    QVERIFY(card->isOpen());
    card->hide();
    QVERIFY(card->part("widget")->isHidden());
    card->show();
    QVERIFY(!card->isOpen());
}

void TooltipExTest::onePageDoesNotTurn()
{
    const auto card = makeCard(EVisibility::ExShown, 1);
    for (int i = 0; i < 3; ++i) {
        card->show();
        QCOMPARE(card->page(), 0);
        card->hide();
    }
}

void TooltipExTest::severalPagesTurnWithEachShowing()
{
    const auto card = makeCard(EVisibility::ExShown, 3);
    QCOMPARE(card->page(), 0);
    for (const int expected : {1, 2, 0, 1}) {
        card->show();
        QCOMPARE(card->page(), expected);
        QCOMPARE(card->part("widget")->width(), Wide - 2);
        QCOMPARE(card->AdvancedWidgets()->size(), QSize(PageWidth, 40 + 20 * expected));
        card->hide();
    }
}

void TooltipExTest::pagesAreChosenByIndex()
{
    const auto card = makeCard(EVisibility::ExShown, 3);
    card->OnIndexChanged(2);
    QCOMPARE(card->page(), 2);
    for (const int ignored : {3, 100, -1}) {
        card->OnIndexChanged(ignored);
        QCOMPARE(card->page(), 2);
    }
    makeCard(EVisibility::ExShown, 0)->OnIndexChanged(0);
}

void TooltipExTest::aChosenPageFitsTheOpenCard()
{
    const auto card = makeCard(EVisibility::ExShown, 3);
    card->show();
    const int height = card->height();
    card->OnIndexChanged(2);
    QCOMPARE(card->height(), height + 20);
    QCOMPARE(card->AdvancedWidgets()->size(), QSize(PageWidth, 80));

    // A closed one stays as it is.
    click(card.get());
    const QSize closed = card->size();
    card->OnIndexChanged(0);
    QCOMPARE(card->size(), closed);
    QVERIFY(!card->isOpen());
}

void TooltipExTest::anEmptyKeywordChoosesTheFirstPage()
{
    const auto card = makeCard(EVisibility::ExShown, 3);
    card->AdvancedWidgets()->widget(1)->setProperty("keyword", QStringLiteral("one"));
    card->OnIndexChanged(2);
    card->OnKeywordChanged(QStringLiteral("one"));
    QCOMPARE(card->page(), 2);
    card->show();
    card->OnIndexChanged(2);
    const int height = card->height();
    card->OnKeywordChanged(QString());
    QCOMPARE(card->page(), 0);
    QCOMPARE(card->height(), height - 40);
}

void TooltipExTest::theKeywordIsThatOfTheStack()
{
    const auto card = makeCard(EVisibility::ExShown, 2);
    card->AdvancedWidgets()->setProperty("keyword", QStringLiteral("Stack"));
    card->OnIndexChanged(1);
    card->OnKeywordChanged(QString());
    QCOMPARE(card->page(), 1);
    card->OnKeywordChanged(QStringLiteral("sTACK"));
    QCOMPARE(card->page(), 0);
}

void TooltipExTest::aTooltipChoosesPages()
{
    TooltipObject tooltip(QStringLiteral("group"), nullptr);
    const auto card = makeCard(EVisibility::ExShown, 3);
    card->ConnectTo(&tooltip);
    card->ConnectTo(&tooltip);
    tooltip.SetTooltipIndex(2);
    QCOMPARE(card->page(), 2);
    tooltip.SetTooltipKeyword(QString());
    QCOMPARE(card->page(), 0);
    card->DisconnectFrom(&tooltip);
    tooltip.SetTooltipIndex(2);
    QCOMPARE(card->page(), 0);
    tooltip.SetTooltipKeyword(QString());
}

void TooltipExTest::onlyATooltipCanBeConnected()
{
    const auto card = makeCard(EVisibility::ExShown);
    QObject other;
    card->ConnectTo(nullptr);
    card->ConnectTo(&other);
    card->DisconnectFrom(nullptr);
    card->DisconnectFrom(&other);
}

void TooltipExTest::f1IsSwallowed()
{
    const auto card = makeCard(EVisibility::ExShown);
    QKeyEvent help(QEvent::KeyRelease, Qt::Key_F1, {});
    QCoreApplication::sendEvent(card.get(), &help);
    QVERIFY(help.isAccepted());
    QKeyEvent other(QEvent::KeyRelease, Qt::Key_F2, {});
    QCoreApplication::sendEvent(card.get(), &other);
    QVERIFY(!other.isAccepted());
}

void TooltipExTest::aCardAsTooltipStandsAtItsHost_data()
{
    startsAsItsVisibilitySays_data();
}

// Its pages have different heights, it grows when it is clicked, and it still points at the host.
void TooltipExTest::aCardAsTooltipStandsAtItsHost()
{
    QFETCH(EVisibility, visibility);
    Lumo::Test::TooltipScene scene;
    scene.window->resize(700, 600);
    auto *const view = new BaseView(scene.window.get(), Qt::Widget);
    view->getQtWidget()->setGeometry(0, 0, 700, 600);
    scene.host->setParent(view->getQtWidget());
    view->getQtWidget()->show();
    scene.host->show();
    auto *const card = makeCard(visibility, 3).release();
    TooltipObject tooltip(QStringLiteral("group"), scene.host);
    tooltip.SetTooltipControl(card, true);
    tooltip.SetTooltipType(ATooltipObject::ETooltipType::TooltipRight);
    tooltip.SetClickToDismissTooltip(false);
    tooltip.AttachTo(scene.host);
    const ArrowedWindow *const frame = tooltip.GetArrowedWindow();
    const auto apex = [&] { return frame->mapToGlobal(frame->GetArrowPoint()); };
    const QPoint expected = scene.host->mapToGlobal(QPoint(59 + 5, 19));
    for (int i = 0; i < 4; ++i) {
        tooltip.ShowTooltip();
        QTRY_COMPARE(frame->height(), card->height() + 13);
        QTRY_COMPARE(apex(), expected);
        click(card);
        QTRY_COMPARE(frame->height(), card->height() + 13);
        QTRY_COMPARE(apex(), expected);
        QVERIFY(showsAllOfItsTexts(*card));
        tooltip.HideTooltip();
    }
}

void TooltipExTest::aCardAsTooltipShowsAllOfItsText_data()
{
    QTest::addColumn<bool>("framed");
    QTest::addColumn<EVisibility>("visibility");
    for (const bool framed : {true, false}) {
        const QByteArray frame = framed ? "with a frame, " : "without a frame, ";
        QTest::newRow(frame + "closed at first") << framed << EVisibility::ExHidden;
        QTest::newRow(frame + "open at first") << framed << EVisibility::ExShown;
    }
}

void TooltipExTest::aCardAsTooltipShowsAllOfItsText()
{
    QFETCH(bool, framed);
    QFETCH(EVisibility, visibility);
    Lumo::Test::TooltipScene scene;
    auto &factory = TooltipExFactory::GetInstance();
    auto *const card = qobject_cast<ATooltipEx *>(factory.CreateExtendedTooltip(
        nullptr, QStringLiteral("Smooth"), Text, Text, true, Wide, visibility, "TooltipEx"));
    int index = 0;
    QVERIFY(factory.AddStaticPage(card, Text + Text + Text, QString(), index));
    TooltipObject tooltip(QStringLiteral("group"), scene.host);
    tooltip.SetTooltipControl(card, framed);
    tooltip.SetClickToDismissTooltip(false);
    tooltip.AttachTo(scene.host);
    for (int i = 0; i < 4; ++i) {
        tooltip.ShowTooltip();
        if (visibility == EVisibility::ExHidden)
            click(card);
        QCoreApplication::processEvents();
        QWidget *const page = card->AdvancedWidgets()->currentWidget();
        QVERIFY(page->isVisible());
        QVERIFY(page->height() >= ATooltipEx::FindTextLabelSize(page, PageWidth).height());
        tooltip.HideTooltip();
    }
}

void TooltipExTest::pagesOfAHostKeepTheirHeights()
{
    const QVector<int> heights {120, 60};
    auto card = std::make_unique<Card>();
    auto *const stack = new QStackedWidget;
    for (const int height : heights) {
        auto *const page = new QWidget;
        page->resize(100, height);
        page->setProperty("widget_type", QVariant::fromValue(EWidgetType::Custom));
        stack->addWidget(page);
    }
    card->SetParams({}, {}, stack, true, Wide, EVisibility::ExShown);
    for (int i = 0; i < 4; ++i) {
        card->show();
        QCOMPARE(stack->currentWidget()->height(), heights[card->page()]);
        card->OnIndexChanged(1 - card->page());
        QCOMPARE(stack->currentWidget()->height(), heights[card->page()]);
        card->OnIndexChanged(1 - card->page());
        card->hide();
    }
}

void TooltipExTest::aWidthThatTheHostGivesAPageStays()
{
    const auto card = makeCard(EVisibility::ExHidden);
    card->show();
    QWidget *const page = card->AdvancedWidgets()->currentWidget();
    page->setFixedWidth(150);
    click(card.get());
    QVERIFY(page->isVisible());
    QCOMPARE(page->width(), 150);
}

void TooltipExTest::anotherTextIsShownInFullAtTheNextOpening()
{
    const auto card = makeCard(EVisibility::ExHidden);
    int index = 0;
    auto *const page = new QLabel(QStringLiteral("Short"));
    page->setWordWrap(true);
    QVERIFY(TooltipExFactory::GetInstance().AddStaticPage(card.get(), page, QString(), index,
                                                          EWidgetType::Text));
    card->OnIndexChanged(index);
    page->setText(Text + Text);
    card->OnIndexChanged(0);
    card->show();
    click(card.get());
    QVERIFY(page->isVisible());
    QVERIFY(page->height() >= ATooltipEx::FindTextLabelSize(page, PageWidth).height());
}

void TooltipExTest::theCornersOfACardAreClear()
{
    Lumo::Test::TooltipScene scene;
    auto *const card = makeCard(EVisibility::ExHidden).release();
    TooltipObject tooltip(QStringLiteral("group"), scene.host);
    tooltip.SetTooltipControl(card, false);
    tooltip.SetClickToDismissTooltip(false);
    tooltip.AttachTo(scene.host);
    for (int i = 0; i < 3; ++i) {
        tooltip.ShowTooltip();
        QVERIFY(card->autoFillBackground());
        for (const bool isOpen : {false, true}) {
            QCOMPARE(card->isOpen(), isOpen);
            const QImage shown = card->window()->grab().toImage();
            QCOMPARE(shown.pixelColor(0, 0).alpha(), 0);
            QCOMPARE(shown.pixelColor(shown.width() / 2, 4), QColor("#F0F0F0"));
            click(card);
        }
        tooltip.HideTooltip();
    }
}

LUMO_TEST_MAIN(TooltipExTest)
#include "tst_tooltipex.moc"
