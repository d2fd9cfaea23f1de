// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_common_res/Fonts>
#include <lumo_common_res/Styles>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

using Vela::Resource::EPalette;
using Vela::Resource::Styles;

Q_DECLARE_METATYPE(Vela::Resource::EPalette)

namespace {

using SheetGetter = QString (Styles::*)() const;
using ColorGetter = QColor (Styles::*)() const;

const QMap<QString, SheetGetter> &sheetGetters()
{
    static const QMap<QString, SheetGetter> all {
        {"ToolButtonOnToolPalette", &Styles::ToolButtonOnToolPalette},
        {"ToolButtonSystem", &Styles::ToolButtonSystem},
        {"ToolButtonSystemClose", &Styles::ToolButtonSystemClose},
        {"MenuMain", &Styles::MenuMain},
        {"Separator", &Styles::Separator},
        {"DialogGeneral", &Styles::DialogGeneral},
        {"DialogToolTip", &Styles::DialogToolTip},
        {"ApplicationStyleSheet", &Styles::ApplicationStyleSheet},
    };
    return all;
}

const QMap<QString, ColorGetter> &colorGetters()
{
    static const QMap<QString, ColorGetter> all {
        {"ColorToolPaletteMainBack", &Styles::ColorToolPaletteMainBack},
        {"ColorActionPanelGroupBack", &Styles::ColorActionPanelGroupBack},
        {"ColorActionPanelBorder", &Styles::ColorActionPanelBorder},
        {"ColorToolPaletteButtonSeparator", &Styles::ColorToolPaletteButtonSeparator},
        {"ColorToolPaletteShadow", &Styles::ColorToolPaletteShadow},
        {"ColorToolButtonArrow", &Styles::ColorToolButtonArrow},
    };
    return all;
}

struct SRule
{
    QString selector;
    QMap<QString, QString> declarations;
};

/// The rules of a sheet, without comments.
QList<SRule> rulesOf(QString sheet)
{
    sheet.remove(QRegularExpression("/\\*.*?\\*/", QRegularExpression::DotMatchesEverythingOption));
    QList<SRule> rules;
    auto blocks = QRegularExpression("([^{}]+)\\{([^}]*)\\}").globalMatch(sheet);
    while (blocks.hasNext()) {
        const auto block = blocks.next();
        SRule rule {block.captured(1).simplified(), {}};
        for (const QString &line : block.captured(2).split(';', Qt::SkipEmptyParts)) {
            const int colon = line.indexOf(':');
            if (colon > 0)
                rule.declarations[line.left(colon).trimmed()] = line.mid(colon + 1).trimmed();
        }
        rules << rule;
    }
    return rules;
}

double luminance(const QColor &color)
{
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

/// The contrast ratio of WCAG 2, from 1 to 21.
double contrast(const QColor &a, const QColor &b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

/// The ground that the text of a rule stands on: its own one, that of the class's first rule, or
/// the panel where neither paints one.
QColor groundOf(const QList<SRule> &rules, const SRule &rule)
{
    const QString own = rule.declarations.value("background-color");
    if (own.startsWith('#'))
        return QColor(own);
    return own.isEmpty() && rule.selector.contains(':')
            && rules.first().declarations.value("background-color").startsWith('#')
        ? QColor(rules.first().declarations.value("background-color"))
        : Styles::Instance().ColorActionPanelGroupBack();
}

QString withoutColors(QString sheet)
{
    sheet.remove(QRegularExpression("#[0-9A-F]{6}"));
    return sheet.replace("dark palette", "light palette");
}

/// What Tab gets to in dialogs and panels.
QWidget *makeControl(const QByteArray &name)
{
    if (name == "push button")
        return new QPushButton("text");
    if (name == "check box")
        return new QCheckBox("text");
    if (name == "radio button")
        return new QRadioButton("text");
    if (name == "slider")
        return new QSlider(Qt::Horizontal);
    if (name == "vertical slider")
        return new QSlider(Qt::Vertical);
    if (name == "combo box")
        return new QComboBox;
    if (name == "spin box")
        return new QSpinBox;
    if (name == "text")
        return new QPlainTextEdit;
    auto *tabs = new QTabBar;
    tabs->addTab("text");
    return tabs;
}

/// How many pixels differ with the contrast that WCAG 2 asks of the parts of a control.
int changedPixels(const QImage &before, const QImage &after)
{
    int count = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x)
            count += contrast(before.pixelColor(x, y), after.pixelColor(x, y)) >= 3.0;
    }
    return count;
}

} // namespace

class tst_Styles : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void lightIsTheDefault();
    void unknownPaletteCountsAsLight();
    void sheetIsThere_data();
    void sheetIsThere();
    void darkSheetDiffersInColorsOnly_data();
    void darkSheetDiffersInColorsOnly();
    void colorsAreValidAndDifferInTheDark_data();
    void colorsAreValidAndDifferInTheDark();
    void shadowLetsTheGroundThrough();
    void earlierAnswersStayAfterAChangeOfPalette();
    void imagesFillThePlaceholders();
    void dialogSheetTakesTheObjectName();
    void everyImageOfTheSheetsExists_data();
    void everyImageOfTheSheetsExists();
    void sheetsUsePropertiesThatQtKnows_data();
    void sheetsUsePropertiesThatQtKnows();
    void qtParsesEverySheet_data();
    void qtParsesEverySheet();
    void textContrastIsReadable_data();
    void textContrastIsReadable();
    void toolBarStandsOnPanelsWithoutAStrip_data();
    void toolBarStandsOnPanelsWithoutAStrip();
    void paletteTextContrastIsReadable_data();
    void paletteTextContrastIsReadable();
    void hoveredToolButtonShowsThePlate();
    void checkedMenuEntryShowsThePlateBehindItsIcon_data();
    void checkedMenuEntryShowsThePlateBehindItsIcon();
    void selectedMenuEntryShowsThePlateBehindItsIcon_data();
    void selectedMenuEntryShowsThePlateBehindItsIcon();
    void toolTipLabelStandsOnItsGround();
    void separatorIsFilledWithItsLine();
    void applicationSheetIsTheFileOfTheLightPalette();
    void applicationSheetSaysWhatItsSourceSays_data();
    void applicationSheetSaysWhatItsSourceSays();
    void applicationSheetKeepsTheHeightThatAFormGivesItsButtons();
    void applicationSheetNamesNoPlainWidget();
    void focusIsSeen_data();
    void focusIsSeen();
};

namespace {

void addPalettes()
{
    QTest::addColumn<EPalette>("palette");
    QTest::newRow("light") << EPalette::Light;
    QTest::newRow("dark") << EPalette::Dark;
}

void addSheets()
{
    QTest::addColumn<QString>("getter");
    QTest::addColumn<EPalette>("palette");
    for (const QString &name : sheetGetters().keys()) {
        QTest::newRow(qPrintable(name + "/light")) << name << EPalette::Light;
        QTest::newRow(qPrintable(name + "/dark")) << name << EPalette::Dark;
    }
}

QString fetchSheet(const QString &getter, EPalette palette)
{
    Styles::Instance().SetPalette(palette);
    return (Styles::Instance().*sheetGetters()[getter])();
}

/// The rectangle around the pixels of @p color; null without any.
QRect placeOf(const QColor &color, const QImage &image)
{
    QRect place;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                place |= QRect(x, y, 1, 1);
        }
    }
    return place;
}

/// What stands behind a hovered or checked icon.
QColor plateOf(EPalette palette)
{
    return palette == EPalette::Light ? "#D6E4F1" : "#C9DBEC";
}

QIcon iconWithDot()
{
    QPixmap picture(16, 16);
    picture.fill(Qt::transparent);
    QPainter(&picture).fillRect(6, 6, 4, 4, Qt::red);
    return picture;
}

/// Fills the placeholders that the callers of a sheet fill.
QString filled(QString sheet)
{
    if (sheet.contains("#%1"))
        return sheet.arg("dialog");
    if (sheet.contains("%2"))
        return sheet.arg(":/resources/images/sys_reset.png",
                         ":/resources/images/sys_reset_hover.png");
    return sheet;
}

} // namespace

void tst_Styles::cleanup()
{
    qApp->setStyleSheet({});
    Styles::Instance().SetPalette(EPalette::Light);
    TestCase::cleanup();
}

void tst_Styles::lightIsTheDefault()
{
    QCOMPARE(Styles::Instance().Palette(), EPalette::Light);
    QCOMPARE(Styles::Instance().ColorActionPanelGroupBack(), QColor("#F0F0F0"));
}

void tst_Styles::unknownPaletteCountsAsLight()
{
    Styles::Instance().SetPalette(EPalette::Dark);
    Styles::Instance().SetPalette(static_cast<EPalette>(7));
    QCOMPARE(Styles::Instance().Palette(), EPalette::Light);
    QCOMPARE(Styles::Instance().ColorActionPanelGroupBack(), QColor("#F0F0F0"));
}

void tst_Styles::sheetIsThere_data()
{
    addSheets();
}

void tst_Styles::sheetIsThere()
{
    QFETCH(QString, getter);
    QFETCH(EPalette, palette);
    const QString sheet = fetchSheet(getter, palette);
    QVERIFY(!rulesOf(sheet).isEmpty());
    QVERIFY2(!sheet.contains('@'), "a colour name was not replaced");
}

void tst_Styles::darkSheetDiffersInColorsOnly_data()
{
    QTest::addColumn<QString>("getter");
    for (const QString &name : sheetGetters().keys())
        QTest::newRow(qPrintable(name)) << name;
}

void tst_Styles::darkSheetDiffersInColorsOnly()
{
    QFETCH(QString, getter);
    const QString light = fetchSheet(getter, EPalette::Light);
    const QString dark = fetchSheet(getter, EPalette::Dark);
    const bool hasGroundOfItsOwn = getter != "ToolButtonSystemClose";
    QCOMPARE(light != dark, hasGroundOfItsOwn);
    QCOMPARE(withoutColors(dark), withoutColors(light));
}

void tst_Styles::colorsAreValidAndDifferInTheDark_data()
{
    QTest::addColumn<QString>("getter");
    for (const QString &name : colorGetters().keys())
        QTest::newRow(qPrintable(name)) << name;
}

void tst_Styles::colorsAreValidAndDifferInTheDark()
{
    QFETCH(QString, getter);
    const ColorGetter color = colorGetters()[getter];
    const QColor light = (Styles::Instance().*color)();
    Styles::Instance().SetPalette(EPalette::Dark);
    const QColor dark = (Styles::Instance().*color)();
    QVERIFY(light.isValid());
    QVERIFY(dark.isValid());
    QVERIFY(light != dark);
}

void tst_Styles::shadowLetsTheGroundThrough()
{
    const int alpha = Styles::Instance().ColorToolPaletteShadow().alpha();
    QVERIFY(alpha > 0 && alpha < 255);
}

void tst_Styles::earlierAnswersStayAfterAChangeOfPalette()
{
    const QString light = Styles::Instance().MenuMain();
    const QString copy(light.constData(), light.size());
    Styles::Instance().SetPalette(EPalette::Dark);
    QCOMPARE(light, copy);
    Styles::Instance().SetPalette(EPalette::Light);
    QCOMPARE(Styles::Instance().MenuMain(), light);
}

void tst_Styles::imagesFillThePlaceholders()
{
    for (const QString &getter :
         {QStringLiteral("ToolButtonSystem"), QStringLiteral("ToolButtonSystemClose")}) {
        const QString sheet = fetchSheet(getter, EPalette::Light).arg("rest.png").arg("hover.png");
        for (const SRule &rule : rulesOf(sheet)) {
            const QString image = rule.declarations.value("image");
            if (rule.selector == "QToolButton")
                QCOMPARE(image, QStringLiteral("url(rest.png)"));
            if (rule.selector.contains(":hover"))
                QCOMPARE(image, QStringLiteral("url(hover.png)"));
        }
        QVERIFY(!sheet.contains('%'));
    }
}

void tst_Styles::dialogSheetTakesTheObjectName()
{
    const QString sheet = Styles::Instance().DialogGeneral().arg("mdialog");
    QVERIFY(!sheet.contains('%'));
    QDialog dialog;
    dialog.setObjectName("mdialog");
    dialog.setStyleSheet(sheet);
    dialog.resize(60, 40);
    const QImage shown = dialog.grab().toImage();
    QCOMPARE(shown.pixelColor(30, 20), QColor("#F0F0F0"));
    QCOMPARE(shown.pixelColor(0, 20), QColor("#A0A0A0"));
}

void tst_Styles::everyImageOfTheSheetsExists_data()
{
    addSheets();
}

void tst_Styles::everyImageOfTheSheetsExists()
{
    QFETCH(QString, getter);
    QFETCH(EPalette, palette);
    auto urls = QRegularExpression("url\\(([^)]*)\\)").globalMatch(fetchSheet(getter, palette));
    while (urls.hasNext()) {
        const QString url = urls.next().captured(1);
        if (!url.startsWith('%'))
            QVERIFY2(QFile::exists(url), qPrintable(url));
    }
}

void tst_Styles::sheetsUsePropertiesThatQtKnows_data()
{
    addSheets();
}

// Qt passes over a property that it does not know without a word.
void tst_Styles::sheetsUsePropertiesThatQtKnows()
{
    QFETCH(QString, getter);
    QFETCH(EPalette, palette);
    static const QStringList known {"background-color",
                                    "border",
                                    "border-bottom",
                                    "border-bottom-color",
                                    "border-color",
                                    "border-radius",
                                    "color",
                                    "font-family",
                                    "font-size",
                                    "height",
                                    "image",
                                    "left",
                                    "margin",
                                    "margin-top",
                                    "max-height",
                                    "min-height",
                                    "min-width",
                                    "outline",
                                    "padding",
                                    "padding-top",
                                    "right",
                                    "selection-background-color",
                                    "selection-color",
                                    "spacing",
                                    "subcontrol-origin",
                                    "subcontrol-position",
                                    "text-align",
                                    "width"};
    for (const SRule &rule : rulesOf(fetchSheet(getter, palette))) {
        for (const QString &property : rule.declarations.keys()) {
            QVERIFY2(known.contains(property) || property.startsWith("qproperty-"),
                     qPrintable(rule.selector + ": " + property));
        }
    }
}

void tst_Styles::qtParsesEverySheet_data()
{
    addSheets();
}

// Qt reports a sheet it cannot parse with a warning when a widget is polished.
void tst_Styles::qtParsesEverySheet()
{
    QFETCH(QString, getter);
    QFETCH(EPalette, palette);
    QDialog dialog;
    dialog.setObjectName("dialog");
    dialog.setStyleSheet(filled(fetchSheet(getter, palette)));
    auto *layout = new QVBoxLayout(&dialog);
    const QList<QWidget *> widgets {
        new QToolButton,       new QLabel("text"),       new QPushButton("text"),
        new QCheckBox("text"), new QRadioButton("text"), new QLineEdit,
        new QSlider,           new QScrollBar,           new QProgressBar,
        new QTabBar,           new QGroupBox("text")};
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    QMenu menu(&dialog);
    menu.addAction("text")->setCheckable(true);
    menu.addMenu("sub")->addAction("text");
    QVERIFY(!dialog.grab().isNull());
    QVERIFY(!menu.grab().isNull());
}

void tst_Styles::textContrastIsReadable_data()
{
    addSheets();
}

void tst_Styles::textContrastIsReadable()
{
    QFETCH(QString, getter);
    QFETCH(EPalette, palette);
    const QList<SRule> rules = rulesOf(fetchSheet(getter, palette));
    for (const SRule &rule : rules) {
        if (!rule.declarations.contains("color") || rule.selector.contains(":disabled"))
            continue;
        // White on the accent is the look of all push buttons; 3 is what WCAG asks of a button's
        // outline and of large text.
        const double least = rule.selector == "QPushButton" ? 3.0 : 4.5;
        const double ratio = contrast(QColor(rule.declarations["color"]), groundOf(rules, rule));
        QVERIFY2(ratio >= least, qPrintable(QString("%1: %2").arg(rule.selector).arg(ratio)));
    }
}

void tst_Styles::toolBarStandsOnPanelsWithoutAStrip_data()
{
    addPalettes();
}

// What shows of a tool bar between its plates looks like the window around it.
void tst_Styles::toolBarStandsOnPanelsWithoutAStrip()
{
    QFETCH(EPalette, palette);
    Styles::Instance().SetPalette(palette);
    const QPalette p = Styles::Instance().ApplicationPalette();
    QCOMPARE(Styles::Instance().ColorToolPaletteMainBack(), p.color(QPalette::Window));
    QVERIFY(p.color(QPalette::AlternateBase) != p.color(QPalette::Base));
}

void tst_Styles::paletteTextContrastIsReadable_data()
{
    addPalettes();
}

void tst_Styles::paletteTextContrastIsReadable()
{
    QFETCH(EPalette, palette);
    Styles::Instance().SetPalette(palette);
    const QPalette p = Styles::Instance().ApplicationPalette();
    QVERIFY(contrast(p.color(QPalette::WindowText), p.color(QPalette::Window)) >= 4.5);
    QVERIFY(contrast(p.color(QPalette::ButtonText), p.color(QPalette::Button)) >= 4.5);
    QVERIFY(contrast(p.color(QPalette::Text), p.color(QPalette::Base)) >= 4.5);
    QVERIFY(contrast(p.color(QPalette::Text), p.color(QPalette::AlternateBase)) >= 4.5);
    QVERIFY(contrast(p.color(QPalette::ToolTipText), p.color(QPalette::ToolTipBase)) >= 4.5);
    QVERIFY(contrast(p.color(QPalette::HighlightedText), p.color(QPalette::Highlight)) >= 4.5);
    // The arrow is seen on the panel and on the plate of a button whose menu is open.
    const QRegularExpression plate(
        QStringLiteral("checked\\s*\\{\\s*background-color:\\s*(#\\w+)"));
    const QColor onPlate = plate.match(Styles::Instance().ToolButtonOnToolPalette()).captured(1);
    const QColor arrow = Styles::Instance().ColorToolButtonArrow();
    QVERIFY(contrast(arrow, Styles::Instance().ColorActionPanelGroupBack()) >= 3.0);
    QVERIFY(onPlate.isValid());
    QVERIFY(contrast(arrow, onPlate) >= 3.0);
}

void tst_Styles::hoveredToolButtonShowsThePlate()
{
    QToolButton button;
    button.setCheckable(true);
    button.setStyleSheet(Styles::Instance().ToolButtonOnToolPalette());
    button.resize(36, 36);
    button.setChecked(true);
    QCOMPARE(button.grab().toImage().pixelColor(18, 18), QColor("#D6E4F1"));
    button.setChecked(false);
    QVERIFY(button.grab().toImage().pixelColor(18, 18) != QColor("#D6E4F1"));
}

void tst_Styles::checkedMenuEntryShowsThePlateBehindItsIcon_data()
{
    QTest::addColumn<QString>("getter");
    QTest::addColumn<EPalette>("palette");
    for (const char *const getter : {"MenuMain", "ApplicationStyleSheet"}) {
        QTest::addRow("%s/light", getter) << getter << EPalette::Light;
        QTest::addRow("%s/dark", getter) << getter << EPalette::Dark;
    }
}

// An entry with an icon has no check mark, so its icon has to tell.
void tst_Styles::checkedMenuEntryShowsThePlateBehindItsIcon()
{
    QFETCH(QString, getter);
    QFETCH(EPalette, palette);
    QMenu menu;
    menu.setStyleSheet(fetchSheet(getter, palette));
    QAction *const entry = menu.addAction(iconWithDot(), "Shaded");
    entry->setCheckable(true);

    const QImage unchecked = menu.grab().toImage();
    QVERIFY(placeOf(plateOf(palette), unchecked).isNull());
    entry->setChecked(true);
    const QImage checked = menu.grab().toImage();
    const QRect place = placeOf(plateOf(palette), checked);
    QVERIFY(menu.actionGeometry(entry).contains(place));
    QCOMPARE(placeOf(Qt::red, checked), placeOf(Qt::red, unchecked));
    QCOMPARE(placeOf(Qt::red, checked).center(), place.center());
}

void tst_Styles::selectedMenuEntryShowsThePlateBehindItsIcon_data()
{
    checkedMenuEntryShowsThePlateBehindItsIcon_data();
}

// The active icon has the colour of the selected row.
void tst_Styles::selectedMenuEntryShowsThePlateBehindItsIcon()
{
    QFETCH(QString, getter);
    QFETCH(EPalette, palette);
    QMenu menu;
    menu.setStyleSheet(fetchSheet(getter, palette));
    QAction *const entry = menu.addAction(iconWithDot(), "Shaded");
    entry->setCheckable(true);
    menu.setActiveAction(entry);

    const QImage unchecked = menu.grab().toImage();
    QVERIFY(menu.actionGeometry(entry).contains(placeOf(plateOf(palette), unchecked)));
    entry->setChecked(true);
    QVERIFY(menu.grab().toImage() != unchecked);
    entry->setEnabled(false);
    entry->setChecked(false);
    QVERIFY(placeOf(plateOf(palette), menu.grab().toImage()).isNull());
}

void tst_Styles::toolTipLabelStandsOnItsGround()
{
    QWidget tip;
    tip.setStyleSheet(Styles::Instance().DialogToolTip());
    auto *label = new QLabel("text", &tip);
    label->setStyleSheet(Styles::Instance().DialogToolTip());
    QCOMPARE(tip.grab().toImage().pixelColor(1, 1), QColor(Qt::white));
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor("#606060"));
    QCOMPARE(label->font().pixelSize(), 12);
}

void tst_Styles::separatorIsFilledWithItsLine()
{
    QLabel line;
    line.setStyleSheet(Styles::Instance().Separator());
    line.setFixedSize(1, 30);
    QCOMPARE(line.grab().toImage().pixelColor(0, 15),
             Styles::Instance().ColorToolPaletteButtonSeparator());
}

void tst_Styles::applicationSheetIsTheFileOfTheLightPalette()
{
    QFile file(":/qss/libuitoolkit.css");
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QCOMPARE(Styles::Instance().ApplicationStyleSheet(), QString::fromUtf8(file.readAll()));
}

void tst_Styles::applicationSheetSaysWhatItsSourceSays_data()
{
    QTest::addColumn<EPalette>("palette");
    QTest::addColumn<QString>("source");
    QTest::newRow("light") << EPalette::Light << "libuitoolkit.css";
    QTest::newRow("dark") << EPalette::Dark << "libuitoolkit_dark.css";
}

// Qt parses it at each start, and would take each blank for a token.
void tst_Styles::applicationSheetSaysWhatItsSourceSays()
{
    QFETCH(const EPalette, palette);
    QFETCH(const QString, source);
    QFile file(LUMO_SOURCE_DIR "/platform/common_res/qss/" + source);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    const QString written = QString::fromUtf8(file.readAll());
    Styles::Instance().SetPalette(palette);
    const QString packed = Styles::Instance().ApplicationStyleSheet();
    QVERIFY(!packed.contains("/*") && !packed.contains("  ") && packed.size() < written.size());
    const QList<SRule> wanted = rulesOf(written);
    const QList<SRule> rules = rulesOf(packed);
    QCOMPARE(rules.size(), wanted.size());
    for (int i = 0; i < rules.size(); ++i) {
        QCOMPARE(rules[i].selector.split(','), wanted[i].selector.split(", "));
        QCOMPARE(rules[i].declarations, wanted[i].declarations);
    }
}

void tst_Styles::applicationSheetKeepsTheHeightThatAFormGivesItsButtons()
{
    QWidget form;
    form.setStyleSheet("QPushButton { background: #5383B5; border: none; height: 38px;"
                       " font: 14px 'Arial'; }");
    auto *layout = new QVBoxLayout(&form);
    auto *button = new QPushButton("Apply");
    layout->addWidget(button);
    button->ensurePolished();
    const int height = button->sizeHint().height();
    qApp->setStyleSheet(Styles::Instance().ApplicationStyleSheet());
    QCOMPARE(button->sizeHint().height(), height);
    QCOMPARE(height, 38);
}

// A rule for plain widgets would paint over popups and views that are transparent on purpose.
void tst_Styles::applicationSheetNamesNoPlainWidget()
{
    for (const SRule &rule : rulesOf(Styles::Instance().ApplicationStyleSheet())) {
        for (const QString &selector : rule.selector.split(',')) {
            const QString type = selector.trimmed();
            QVERIFY2(type != "*" && type != "QWidget" && type != "QFrame" && type != "QLabel",
                     qPrintable(rule.selector));
        }
    }
}

void tst_Styles::focusIsSeen_data()
{
    QTest::addColumn<EPalette>("palette");
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<int>("least");
    const QMap<QByteArray, int> controls {
        {"push button", 16},
        {"check box", 16},
        {"radio button", 16},
        {"slider", 16},
        {"vertical slider", 16},
        // Painted by the style below the sheet, or told by a cursor too.
        {"combo box", 0},
        {"spin box", 0},
        {"text", 0},
        {"tab bar", 0}};
    for (const EPalette palette : {EPalette::Light, EPalette::Dark}) {
        for (auto it = controls.begin(); it != controls.end(); ++it)
            QTest::addRow("%s/%d", it.key().constData(), int(palette))
                << palette << it.key() << it.value();
    }
}

void tst_Styles::focusIsSeen()
{
    QFETCH(const EPalette, palette);
    QFETCH(const QByteArray, control);
    QFETCH(const int, least);
    Styles::Instance().SetPalette(palette);
    qApp->setStyleSheet(Styles::Instance().ApplicationStyleSheet());
    QWidget window;
    window.setPalette(Styles::Instance().ApplicationPalette());
    auto *layout = new QVBoxLayout(&window);
    auto *first = new QLineEdit;
    QWidget *tested = makeControl(control);
    layout->addWidget(first);
    layout->addWidget(tested);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    first->setFocus();
    const QImage before = window.grab(tested->geometry()).toImage();
    QTest::keyClick(first, Qt::Key_Tab);
    QVERIFY(tested->hasFocus());
    const QImage after = window.grab(tested->geometry()).toImage();
    QVERIFY(before != after);
    QVERIFY(changedPixels(before, after) >= least);
}

LUMO_TEST_MAIN(tst_Styles)

#include "tst_styles.moc"
