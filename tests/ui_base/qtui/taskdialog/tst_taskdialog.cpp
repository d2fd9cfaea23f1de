// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/TaskDialog>

#include "support/mouse.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/qtui/taskdialog/taskdialog_p.h"

#include <lumo_common_res/Styles>

#include <QFrame>
#include <QGraphicsDropShadowEffect>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QTranslator>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>
#include <memory>
#include <type_traits>

using namespace Lumo::Test;
using namespace Vela::UiToolkit;
using Vela::Resource::EPalette;
using Vela::Resource::Styles;

static_assert(std::is_base_of_v<QDialog, TaskDialog>);
static_assert(
    !std::is_constructible_v<TaskDialog, TaskDialogPrivate &, QWidget *, const QString &,
                             EDialogButtons, EDialogIcon, const QList<SIconButton> &, int, int>);
static_assert(sizeof(EDialogButtons) == sizeof(int) && sizeof(EDialogResult) == sizeof(int));

Q_DECLARE_METATYPE(QMargins)
Q_DECLARE_METATYPE(Vela::UiToolkit::EDialogButtons)
Q_DECLARE_METATYPE(Vela::UiToolkit::EDialogResult)
Q_DECLARE_METATYPE(Vela::UiToolkit::EDialogIcon)

namespace {

const QString Ignore = QStringLiteral(":/resources/images/sys_issue_ignore.png");
const QString Check = QStringLiteral(":/resources/images/sys_message_box_button_yes.png");
const QString Cross = QStringLiteral(":/resources/images/sys_message_box_button_no.png");
const QString Title = QStringLiteral("A title");
const QString Message = QStringLiteral("A message");

template<typename Widget>
Widget *part(const QWidget &dialog, const char *name)
{
    return dialog.findChild<Widget *>(QLatin1String(name));
}

QPushButton *button(const QWidget &dialog, int number)
{
    return dialog.findChild<QPushButton *>(QStringLiteral("button%1").arg(number));
}

QLabel *label(const QWidget &dialog, const char *name)
{
    return part<QLabel>(dialog, name);
}

QString joined(const QString &text, int parts)
{
    return QStringList(QVector<QString>(parts, text).toList()).join(QLatin1Char(' '));
}

TaskDialog *makeDialog(const QString &title = Title, const QString &message = Message,
                       EDialogButtons buttons = EDialogButtons::ButtonsOkCancel, int maxWidth = 0,
                       int minWidth = 0)
{
    return new TaskDialog(nullptr, title, message, buttons, EDialogIcon::IconInformation, {},
                          maxWidth, minWidth);
}

std::unique_ptr<TaskDialog> shown(const QString &title = Title, const QString &message = Message,
                                  int maxWidth = 0, int minWidth = 0)
{
    std::unique_ptr<TaskDialog> dialog(
        makeDialog(title, message, EDialogButtons::ButtonsOkCancel, maxWidth, minWidth));
    dialog->show();
    dialog->move(40, 50);
    return dialog;
}

// What a label needs for its text in one line each.
int lineWidth(const QLabel &label, const QString &text)
{
    int width = 0;
    for (const QString &line : text.split(QRegularExpression(QStringLiteral("\r?\n"))))
        width = std::max(width, label.fontMetrics().boundingRect(line).width());
    return width + 10;
}

// Calls @p act with the dialog that waits for an answer.
template<typename Act>
void whenAsked(Act act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto *const dialog = qobject_cast<TaskDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        act(*dialog);
    });
}

void answerWith(int number)
{
    whenAsked([number](TaskDialog &dialog) { button(dialog, number)->click(); });
}

QImage imageOf(const QString &path)
{
    QImage image = QImage(path).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(1);
    return image;
}

// What an icon of 16 by 16 draws on the screen.
QImage imageOf(const QIcon &icon)
{
    const qreal ratio = qApp->devicePixelRatio();
    QImage image(QSize(16, 16) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.paint(&painter, QRect(0, 0, 16, 16));
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

QString atRatio(QString path)
{
    const int ratio = int(qApp->devicePixelRatio());
    return ratio > 1 ? path.replace(QLatin1String(".png"), QStringLiteral("@%1x.png").arg(ratio))
                     : path;
}

// Puts a star before every text, in any context.
class StarTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QLatin1Char('*') + QString::fromUtf8(source);
    }
};

class OwnPrivate : public TaskDialogPrivate
{
public:
    explicit OwnPrivate(bool *gone)
        : m_gone(gone)
    {
        titleBarHeight = 50;
    }
    ~OwnPrivate() override { *m_gone = true; }

private:
    bool *m_gone;
};

class OwnDialog : public TaskDialog
{
public:
    OwnDialog(bool *gone, QWidget *content)
        : TaskDialog(*new OwnPrivate(gone), nullptr, content, false, EDialogButtons::ButtonsOk,
                     EDialogIcon::IconNone, {})
    { }
    OwnDialog(bool *gone, const QString &title, const QString &message)
        : TaskDialog(*new OwnPrivate(gone), nullptr, title, message, EDialogButtons::ButtonsOk,
                     EDialogIcon::IconNone, {}, 0, 0)
    { }
    OwnDialog(bool *gone, const QString &title)
        : TaskDialog(*new OwnPrivate(gone), nullptr, title, EDialogButtons::ButtonsOk,
                     EDialogIcon::IconNone, {}, 0, 0)
    { }

    const TaskDialogPrivate &data() const { return *d_ptr; }
};

} // namespace

class tst_TaskDialog : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // Values

    void enumeratorsHaveTheirValues()
    {
        QCOMPARE(int(EDialogButtons::ButtonsClose), 0);
        QCOMPARE(int(EDialogButtons::ButtonsOk), 1);
        QCOMPARE(int(EDialogButtons::ButtonsYesNo), 2);
        QCOMPARE(int(EDialogButtons::ButtonsYesNoCancel), 3);
        QCOMPARE(int(EDialogButtons::ButtonsOkCancel), 4);
        QCOMPARE(int(EDialogButtons::ButtonsCustom1), 5);
        QCOMPARE(int(EDialogButtons::ButtonsCustom4), 8);
        QCOMPARE(int(EDialogResult::None), 0);
        QCOMPARE(int(EDialogResult::Ok), 1);
        QCOMPARE(int(EDialogResult::Cancel), 2);
        QCOMPARE(int(EDialogResult::Yes), 3);
        QCOMPARE(int(EDialogResult::No), 4);
        QCOMPARE(int(EDialogResult::Custom1), 5);
        QCOMPARE(int(EDialogResult::Custom4), 8);
        QCOMPARE(int(EDialogIcon::IconError), 0);
        QCOMPARE(int(EDialogIcon::IconWarning), 1);
        QCOMPARE(int(EDialogIcon::IconInformation), 2);
        QCOMPARE(int(EDialogIcon::IconNone), 3);
        QCOMPARE(int(EDialogIcon::IconQuestion), 4);
        QCOMPARE(int(EDialogIcon::IconCritical), 5);
        QCOMPARE(int(EDialogIcon::IconExclamation), 6);
    }

    // Form

    void formHasItsNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("kind");
        const QHash<QString, QStringList> names {
            {QStringLiteral("QGridLayout"),
             {QStringLiteral("gridLayout"), QStringLiteral("gridLayout_2"),
              QStringLiteral("gridLayout_3"), QStringLiteral("gridLayout_4")}},
            {QStringLiteral("QVBoxLayout"),
             {QStringLiteral("verticalLayout"), QStringLiteral("verticalLayout_2"),
              QStringLiteral("verticalLayout_3"), QStringLiteral("verticalLayout_5"),
              QStringLiteral("widget_layout")}},
            {QStringLiteral("QHBoxLayout"),
             {QStringLiteral("horizontalLayout"), QStringLiteral("horizontalLayout_2")}},
            {QStringLiteral("QFrame"), {QStringLiteral("frame"), QStringLiteral("widget_frame")}},
            {QStringLiteral("QToolButton"), {QStringLiteral("close_button")}},
            {QStringLiteral("QLabel"),
             {QStringLiteral("height_adjust_label"), QStringLiteral("icon_label"),
              QStringLiteral("title_label"), QStringLiteral("msg_label")}},
            {QStringLiteral("QPushButton"),
             {QStringLiteral("button1"), QStringLiteral("button2"), QStringLiteral("button3"),
              QStringLiteral("button4")}}};
        for (auto it = names.begin(); it != names.end(); ++it) {
            for (const QString &name : it.value())
                QTest::newRow(qPrintable(name)) << name << it.key();
        }
    }
    void formHasItsNames()
    {
        QFETCH(QString, name);
        QFETCH(QString, kind);
        const std::unique_ptr<TaskDialog> dialog(makeDialog());
        const QObject *const found = dialog->findChild<QObject *>(name);
        QVERIFY(found);
        QCOMPARE(QString::fromLatin1(found->metaObject()->className()), kind);
    }

    void dialogIsFramelessAndTranslucent()
    {
        const std::unique_ptr<TaskDialog> dialog(makeDialog());
        QCOMPARE(dialog->objectName(), QStringLiteral("TaskDialog"));
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Dialog"));
        QVERIFY(dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
        QVERIFY(dialog->testAttribute(Qt::WA_NoSystemBackground));
        QVERIFY(dialog->testAttribute(Qt::WA_TranslucentBackground));
        QVERIFY(!dialog->autoFillBackground());
        QVERIFY(dialog->hasMouseTracking());
        TaskDialog around(nullptr, nullptr, false, EDialogButtons::ButtonsOk,
                          EDialogIcon::IconNone);
        QCOMPARE(around.minimumSize(), QSize(350, 150));
    }

    void formHasItsMargins_data()
    {
        QTest::addColumn<QString>("layout");
        QTest::addColumn<QMargins>("margins");
        QTest::newRow("gridLayout") << "gridLayout" << QMargins(3, 3, 3, 3);
        QTest::newRow("verticalLayout") << "verticalLayout" << QMargins(0, 0, 0, 0);
        QTest::newRow("gridLayout_2") << "gridLayout_2" << QMargins(0, 0, 0, 0);
        QTest::newRow("verticalLayout_2") << "verticalLayout_2" << QMargins(0, 5, 0, 0);
        QTest::newRow("horizontalLayout_2") << "horizontalLayout_2" << QMargins(0, 0, 5, 0);
        QTest::newRow("gridLayout_3") << "gridLayout_3" << QMargins(20, 0, 30, 0);
        QTest::newRow("gridLayout_4") << "gridLayout_4" << QMargins(0, 0, 0, 0);
        QTest::newRow("horizontalLayout") << "horizontalLayout" << QMargins(0, 0, 0, 0);
    }
    void formHasItsMargins()
    {
        QFETCH(QString, layout);
        QFETCH(QMargins, margins);
        const std::unique_ptr<TaskDialog> dialog(makeDialog());
        QCOMPARE(dialog->findChild<QLayout *>(layout)->contentsMargins(), margins);
    }

    void formHasItsSpacings()
    {
        const std::unique_ptr<TaskDialog> dialog(makeDialog());
        QCOMPARE(part<QVBoxLayout>(*dialog, "verticalLayout_2")->spacing(), 0);
        QCOMPARE(part<QGridLayout>(*dialog, "gridLayout_3")->horizontalSpacing(), 0);
        QCOMPARE(part<QGridLayout>(*dialog, "gridLayout_3")->verticalSpacing(), 0);
        QCOMPARE(part<QGridLayout>(*dialog, "gridLayout_4")->spacing(), 0);
        const auto *const grid = part<QGridLayout>(*dialog, "gridLayout_3");
        QCOMPARE(grid->itemAtPosition(1, 2)->sizeHint(), QSize(9, 20));
        QCOMPARE(grid->itemAtPosition(3, 3)->sizeHint(), QSize(20, 5));
        QCOMPARE(grid->itemAtPosition(5, 3)->sizeHint(), QSize(20, 5));
        const auto *const inFrame = part<QGridLayout>(*dialog, "gridLayout_2");
        QCOMPARE(inFrame->itemAtPosition(1, 0)->sizeHint(), QSize(1, 30));
        const auto *const row = part<QHBoxLayout>(*dialog, "horizontalLayout_2");
        QCOMPARE(row->itemAt(0)->sizeHint(), QSize(40, 20));
        QVERIFY(row->itemAt(0)->expandingDirections() & Qt::Horizontal);
    }

    void labelsAreSetUp()
    {
        const auto dialog = shown();
        QCOMPARE(label(*dialog, "height_adjust_label")->maximumHeight(), 11);
        QCOMPARE(label(*dialog, "height_adjust_label")->minimumHeight(), 11);
        QCOMPARE(label(*dialog, "icon_label")->size(), QSize(44, 44));
        QCOMPARE(label(*dialog, "icon_label")->alignment(), Qt::AlignCenter);
        QCOMPARE(label(*dialog, "msg_label")->minimumWidth(), 150);
        for (const char *name : {"title_label", "msg_label"}) {
            QVERIFY(label(*dialog, name)->wordWrap());
            QCOMPARE(label(*dialog, name)->alignment(), Qt::AlignJustify | Qt::AlignVCenter);
            QCOMPARE(label(*dialog, name)->font().family(), QStringLiteral("Arial"));
        }
        QCOMPARE(label(*dialog, "title_label")->font().pixelSize(), 16);
        QCOMPARE(label(*dialog, "msg_label")->font().pixelSize(), 14);
        QVERIFY(label(*dialog, "title_label")->openExternalLinks());
        QVERIFY(!label(*dialog, "msg_label")->openExternalLinks());
    }

    void framesAndCrossAreSetUp()
    {
        const std::unique_ptr<TaskDialog> dialog(makeDialog());
        for (const char *name : {"frame", "widget_frame"})
            QCOMPARE(part<QFrame>(*dialog, name)->frameShape(), QFrame::StyledPanel);
        const QToolButton &cross = *part<QToolButton>(*dialog, "close_button");
        QCOMPARE(cross.minimumSize(), QSize(20, 20));
        for (const char *content : {":/resources/images/sys_close_18.png",
                                    ":/resources/images/sys_close_hover_18.png", "#E04343"})
            QVERIFY(cross.styleSheet().contains(QLatin1String(content)));
    }

    void crossIsDrawn()
    {
        const auto dialog = shown();
        auto *const cross = part<QToolButton>(*dialog, "close_button");
        const QPoint corner = QPoint(2, 2) * qApp->devicePixelRatio();
        const QImage atRest = cross->grab().toImage();
        QVERIFY(atRest.pixelColor(atRest.rect().center()) != atRest.pixelColor(corner));
        cross->setAttribute(Qt::WA_UnderMouse);
        QCOMPARE(cross->grab().toImage().pixelColor(corner), QColor(0xE0, 0x43, 0x43));
    }

    void buttonsAre38PixelsHigh()
    {
        const auto dialog = shown();
        QCOMPARE(button(*dialog, 1)->height(), 38);
        QCOMPARE(button(*dialog, 1)->font().pixelSize(), 14);
        qApp->setStyleSheet(Styles::Instance().ApplicationStyleSheet());
        const auto reset = qScopeGuard([] { qApp->setStyleSheet({}); });
        const auto styled = shown();
        QCOMPARE(button(*styled, 1)->height(), 38);
    }

    void onlyIconAndLabelsLetTheMouseThrough()
    {
        const std::unique_ptr<TaskDialog> dialog(makeDialog());
        QStringList transparent;
        for (const QWidget *widget : dialog->findChildren<QWidget *>()) {
            if (widget->testAttribute(Qt::WA_TransparentForMouseEvents))
                transparent << widget->objectName();
        }
        transparent.sort();
        QCOMPARE(transparent,
                 QStringList({QStringLiteral("icon_label"), QStringLiteral("msg_label"),
                              QStringLiteral("title_label")}));
    }

    void cardAndButtonsCastShadows()
    {
        const std::unique_ptr<TaskDialog> dialog(makeDialog());
        QColor color = QGraphicsDropShadowEffect().color();
        color.setAlphaF(0.65);
        const QList<QWidget *> casting {part<QFrame>(*dialog, "frame"), button(*dialog, 1),
                                        button(*dialog, 2), button(*dialog, 3), button(*dialog, 4)};
        for (const QWidget *widget : casting) {
            const auto *const shadow =
                qobject_cast<QGraphicsDropShadowEffect *>(widget->graphicsEffect());
            QVERIFY(shadow && shadow->isEnabled());
            QCOMPARE(shadow->blurRadius(), 15.0);
            QCOMPARE(shadow->offset(), QPointF(0, 0));
            QCOMPARE(shadow->color(), color);
        }
        QCOMPARE(dialog->findChildren<QGraphicsDropShadowEffect *>().size(), casting.size());
    }

    void colorsFollowThePalette_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::addColumn<QColor>("card");
        QTest::newRow("light") << false << QColor(0xF0, 0xF0, 0xF0);
        QTest::newRow("dark") << true << QColor(0x2B, 0x2B, 0x2B);
    }
    void colorsFollowThePalette()
    {
        QFETCH(bool, dark);
        QFETCH(QColor, card);
        Styles::Instance().SetPalette(dark ? EPalette::Dark : EPalette::Light);
        const auto reset = qScopeGuard([] { Styles::Instance().SetPalette(EPalette::Light); });
        const auto dialog = shown();
        const QImage image = dialog->grab().toImage();
        const qreal ratio = qApp->devicePixelRatio();
        QCOMPARE(image.pixelColor(int(20 * ratio), int(20 * ratio)), card);
        const QPoint onButton = button(*dialog, 1)->pos() + QPoint(12, 12);
        QCOMPARE(image.pixelColor(onButton * ratio), QColor(0x53, 0x83, 0xB5));
        QCOMPARE(label(*dialog, "title_label")->palette().color(QPalette::WindowText),
                 dark ? QColor(0xC8, 0xC8, 0xC8) : QColor(0x60, 0x60, 0x60));
    }

    // Buttons

    void setHasItsButtons_data()
    {
        QTest::addColumn<EDialogButtons>("buttons");
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QStringList>("icons");
        QTest::addColumn<QList<int>>("results");
        const auto row = [](const char *name, EDialogButtons buttons, const QString &texts,
                            const QStringList &icons, const QList<int> &results) {
            QTest::newRow(name) << buttons << texts.split(QLatin1Char(',')) << icons << results;
        };
        row("close", EDialogButtons::ButtonsClose, QStringLiteral("Close"), {Ignore}, {2});
        row("ok", EDialogButtons::ButtonsOk, QStringLiteral("OK"), {Check}, {1});
        row("yes no", EDialogButtons::ButtonsYesNo, QStringLiteral("No,Yes"), {Cross, Check},
            {4, 3});
        row("yes no cancel", EDialogButtons::ButtonsYesNoCancel, QStringLiteral("Cancel,No,Yes"),
            {Ignore, Cross, Check}, {2, 4, 3});
        row("ok cancel", EDialogButtons::ButtonsOkCancel, QStringLiteral("Cancel,OK"),
            {Ignore, Check}, {2, 1});
        row("custom 1", EDialogButtons::ButtonsCustom1, QString(), {{}}, {5});
        row("custom 2", EDialogButtons::ButtonsCustom2, QStringLiteral(","), {{}, {}}, {5, 6});
        row("custom 3", EDialogButtons::ButtonsCustom3, QStringLiteral(",,"), {{}, {}, {}},
            {5, 6, 7});
        row("custom 4", EDialogButtons::ButtonsCustom4, QStringLiteral(",,,"), {{}, {}, {}, {}},
            {5, 6, 7, 8});
    }
    void setHasItsButtons()
    {
        QFETCH(EDialogButtons, buttons);
        QFETCH(QStringList, texts);
        QFETCH(QStringList, icons);
        QFETCH(QList<int>, results);
        const std::unique_ptr<TaskDialog> dialog(makeDialog(Title, Message, buttons));
        dialog->show();
        for (int i = 0; i < 4; ++i) {
            const QPushButton &face = *button(*dialog, i + 1);
            QCOMPARE(face.isVisible(), i < results.size());
            QCOMPARE(face.text(), texts.value(i));
            QCOMPARE(face.icon().isNull(), icons.value(i).isEmpty());
            if (i < results.size())
                QCOMPARE(face.property("dialog_result"), QVariant(results.at(i)));
            else
                QVERIFY(!face.property("dialog_result").isValid());
            if (!icons.value(i).isEmpty())
                QCOMPARE(imageOf(face.icon()), imageOf(atRatio(icons.at(i))));
        }
    }

    void buttonsStandFromLeftToRight()
    {
        const auto dialog = shown();
        QVERIFY(button(*dialog, 1)->geometry().right() < button(*dialog, 2)->x());
        QVERIFY(button(*dialog, 1)->y() > part<QFrame>(*dialog, "frame")->geometry().bottom());
    }

    void unknownSetLeavesFourBareButtons_data()
    {
        QTest::addColumn<int>("value");
        QTest::newRow("one beyond") << 9;
        QTest::newRow("negative") << -1;
        QTest::newRow("greatest") << std::numeric_limits<int>::max();
    }
    void unknownSetLeavesFourBareButtons()
    {
        QFETCH(int, value);
        TaskDialog dialog(nullptr, Title, EDialogButtons(value), EDialogIcon::IconNone,
                          {{Check, Message}}, 0, 0);
        dialog.show();
        for (int i = 1; i <= 4; ++i) {
            QVERIFY(button(dialog, i)->isVisible());
            QVERIFY(button(dialog, i)->text().isEmpty());
            QVERIFY(button(dialog, i)->icon().isNull());
        }
        button(dialog, 1)->click();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.dialogResult(), EDialogResult::None);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
    }

    void facesReplaceTextAndIcon()
    {
        const QList<SIconButton> faces {{Cross, {}}, {{}, QStringLiteral("Do it")}};
        TaskDialog dialog(nullptr, Title, EDialogButtons::ButtonsOkCancel, EDialogIcon::IconNone,
                          faces, 0, 0);
        QCOMPARE(button(dialog, 1)->text(), QStringLiteral("Cancel"));
        QCOMPARE(imageOf(button(dialog, 1)->icon()), imageOf(atRatio(Cross)));
        QCOMPARE(button(dialog, 2)->text(), QStringLiteral("Do it"));
        QCOMPARE(imageOf(button(dialog, 2)->icon()), imageOf(atRatio(Check)));
    }

    void facesDressCustomButtons()
    {
        const QList<SIconButton> faces {{Cross, QStringLiteral("First")}};
        TaskDialog dialog(nullptr, Title, EDialogButtons::ButtonsCustom2, EDialogIcon::IconNone,
                          faces, 0, 0);
        QCOMPARE(button(dialog, 1)->text(), QStringLiteral("First"));
        QCOMPARE(imageOf(button(dialog, 1)->icon()), imageOf(atRatio(Cross)));
        QVERIFY(button(dialog, 2)->text().isEmpty() && button(dialog, 2)->icon().isNull());
    }

    void facesBeyondTheButtonsAreIgnored()
    {
        const SIconButton face {Cross, QStringLiteral("Face")};
        TaskDialog dialog(nullptr, Title, EDialogButtons::ButtonsOk, EDialogIcon::IconNone,
                          {face, face, face, face, face, face}, 0, 0);
        QCOMPARE(button(dialog, 1)->text(), face.text);
        for (int i = 2; i <= 4; ++i)
            QVERIFY(button(dialog, i)->text().isEmpty() && button(dialog, i)->isHidden());
    }

    void faceWithAMissingPictureHasNone()
    {
        const QList<SIconButton> faces {{QStringLiteral(":/nothing.png"), {}}};
        TaskDialog dialog(nullptr, Title, EDialogButtons::ButtonsOk, EDialogIcon::IconNone, faces,
                          0, 0);
        QVERIFY(button(dialog, 1)->icon().isNull());
    }

    void textThatIsTooLongEndsInAnEllipsis()
    {
        const auto dialogWith = [](const QString &text) {
            auto dialog = std::make_unique<TaskDialog>(
                nullptr, Title, EDialogButtons::ButtonsCustom4, EDialogIcon::IconNone,
                QList<SIconButton> {{{}, text}, {Cross, text}, {{}, text}, {{}, text}});
            dialog->show();
            return dialog;
        };
        const QString beginning = QStringLiteral("Save everything now");
        const auto one = dialogWith(beginning + QStringLiteral(" and &do not close & it"));
        const auto other = dialogWith(beginning + QStringLiteral(" or never in the whole world"));
        for (const int number : {2, 3}) { // the first one has the focus
            QCOMPARE(button(*one, number)->size(), button(*other, number)->size());
            QCOMPARE(button(*one, number)->grab().toImage(),
                     button(*other, number)->grab().toImage());
        }
        QVERIFY(button(*one, 1)->text().startsWith(beginning));
    }

    void textThatIsTooLongIsAToolTip_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("own");
        QTest::addColumn<QString>("shown");
        const QString text = QStringLiteral("&Save <everything> now and do not close it");
        QTest::newRow("too long") << text << QString()
                                  << "Save &lt;everything&gt; now and do not close it";
        QTest::newRow("too long with a tool tip") << text << "Own"
                                                  << "Own";
        QTest::newRow("fits") << "Save" << QString() << QString();
    }
    void textThatIsTooLongIsAToolTip()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, own);
        QFETCH(const QString, shown);
        TaskDialog dialog(nullptr, Title, EDialogButtons::ButtonsCustom3, EDialogIcon::IconNone,
                          {{{}, text}});
        button(dialog, 1)->setToolTip(own);
        dialog.show();
        QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), dialog.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(button(dialog, 1), &help);
        const QString tip = QToolTip::text();
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
        QCOMPARE(tip, shown);
    }

    // Icon

    void iconShowsItsSign_data()
    {
        QTest::addColumn<EDialogIcon>("icon");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("name");
        QTest::newRow("error") << EDialogIcon::IconError << "error"
                               << "Error";
        QTest::newRow("critical") << EDialogIcon::IconCritical << "error"
                                  << "Error";
        QTest::newRow("warning") << EDialogIcon::IconWarning << "exclamation"
                                 << "Warning";
        QTest::newRow("exclamation") << EDialogIcon::IconExclamation << "exclamation"
                                     << "Warning";
        QTest::newRow("information") << EDialogIcon::IconInformation << "info"
                                     << "Information";
        QTest::newRow("question") << EDialogIcon::IconQuestion << "question"
                                  << "Question";
    }
    void iconShowsItsSign()
    {
        QFETCH(EDialogIcon, icon);
        QFETCH(QString, file);
        QFETCH(QString, name);
        TaskDialog dialog(nullptr, Title, EDialogButtons::ButtonsOk, icon, {}, 0, 0);
        dialog.show();
        const QLabel &sign = *label(dialog, "icon_label");
        QVERIFY(sign.isVisible());
        QPixmap picture = sign.pixmap(Qt::ReturnByValue);
        QCOMPARE(picture.devicePixelRatio(), qApp->devicePixelRatio());
        picture.setDevicePixelRatio(1);
        const QString path = QStringLiteral(":/resources/images/sys_message_box_%1.png").arg(file);
        QCOMPARE(picture.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied),
                 imageOf(atRatio(path)));
        QCOMPARE(sign.accessibleName(), name);
    }

    void noIconHidesItsLabel_data()
    {
        QTest::addColumn<EDialogIcon>("icon");
        QTest::newRow("none") << EDialogIcon::IconNone;
        QTest::newRow("beyond") << EDialogIcon(7);
        QTest::newRow("negative") << EDialogIcon(-1);
    }
    void noIconHidesItsLabel()
    {
        QFETCH(EDialogIcon, icon);
        TaskDialog dialog(nullptr, Title, EDialogButtons::ButtonsOk, icon, {}, 0, 0);
        dialog.show();
        QVERIFY(!label(dialog, "icon_label")->isVisible());
    }

    // Results

    void buttonLeavesWithItsResult_data()
    {
        QTest::addColumn<EDialogButtons>("buttons");
        QTest::addColumn<int>("number");
        QTest::addColumn<EDialogResult>("result");
        using B = EDialogButtons;
        using R = EDialogResult;
        QTest::newRow("close") << B::ButtonsClose << 1 << R::Cancel;
        QTest::newRow("ok") << B::ButtonsOk << 1 << R::Ok;
        QTest::newRow("no") << B::ButtonsYesNo << 1 << R::No;
        QTest::newRow("yes") << B::ButtonsYesNo << 2 << R::Yes;
        QTest::newRow("cancel of three") << B::ButtonsYesNoCancel << 1 << R::Cancel;
        QTest::newRow("no of three") << B::ButtonsYesNoCancel << 2 << R::No;
        QTest::newRow("yes of three") << B::ButtonsYesNoCancel << 3 << R::Yes;
        QTest::newRow("cancel") << B::ButtonsOkCancel << 1 << R::Cancel;
        QTest::newRow("ok of two") << B::ButtonsOkCancel << 2 << R::Ok;
        QTest::newRow("custom 1 alone") << B::ButtonsCustom1 << 1 << R::Custom1;
        QTest::newRow("custom 2 of two") << B::ButtonsCustom2 << 2 << R::Custom2;
        QTest::newRow("custom 3 of three") << B::ButtonsCustom3 << 3 << R::Custom3;
        QTest::newRow("custom 1") << B::ButtonsCustom4 << 1 << R::Custom1;
        QTest::newRow("custom 2") << B::ButtonsCustom4 << 2 << R::Custom2;
        QTest::newRow("custom 3") << B::ButtonsCustom4 << 3 << R::Custom3;
        QTest::newRow("custom 4") << B::ButtonsCustom4 << 4 << R::Custom4;
    }
    void buttonLeavesWithItsResult()
    {
        QFETCH(EDialogButtons, buttons);
        QFETCH(int, number);
        QFETCH(EDialogResult, result);
        const std::unique_ptr<TaskDialog> dialog(makeDialog(Title, Message, buttons));
        QCOMPARE(dialog->dialogResult(), EDialogResult::Cancel);
        answerWith(number);
        const bool affirms = result == EDialogResult::Ok || result == EDialogResult::Yes;
        QCOMPARE(dialog->exec(), int(affirms ? QDialog::Accepted : QDialog::Rejected));
        QCOMPARE(dialog->dialogResult(), result);
    }

    void crossCancels()
    {
        const std::unique_ptr<TaskDialog> dialog(
            makeDialog(Title, Message, EDialogButtons::ButtonsOk));
        whenAsked([](TaskDialog &asked) {
            QTest::mouseClick(part<QToolButton>(asked, "close_button"), Qt::LeftButton);
        });
        QCOMPARE(dialog->exec(), int(QDialog::Rejected));
        QCOMPARE(dialog->dialogResult(), EDialogResult::Cancel);
    }

    void crossCancelsAfterAnotherAnswer()
    {
        const auto dialog = shown();
        button(*dialog, 2)->click();
        QCOMPARE(dialog->dialogResult(), EDialogResult::Ok);
        dialog->show();
        part<QToolButton>(*dialog, "close_button")->click();
        QCOMPARE(dialog->dialogResult(), EDialogResult::Cancel);
    }

    void escapeCancels()
    {
        whenAsked([](TaskDialog &asked) { QTest::keyClick(&asked, Qt::Key_Escape); });
        QCOMPARE(TaskDialog::showMessage(nullptr, Title, EDialogButtons::ButtonsYesNo,
                                         EDialogIcon::IconNone),
                 EDialogResult::Cancel);
    }

    void closingCancels()
    {
        whenAsked([](TaskDialog &asked) { asked.close(); });
        QCOMPARE(TaskDialog::showMessage(nullptr, Title, EDialogButtons::ButtonsYesNo,
                                         EDialogIcon::IconNone),
                 EDialogResult::Cancel);
    }

    void returnPressesTheFirstButtonAtTheBeginning()
    {
        whenAsked([](TaskDialog &asked) { QTest::keyClick(&asked, Qt::Key_Return); });
        QCOMPARE(TaskDialog::showMessage(nullptr, Title, EDialogButtons::ButtonsYesNo,
                                         EDialogIcon::IconNone),
                 EDialogResult::No);
    }

    void slotsHaveTheirNames()
    {
        for (const char *name :
             {"on_closebutton_clicked()", "on_button_1_clicked()", "on_button_2_clicked()",
              "on_button_3_clicked()", "on_button_4_clicked()"}) {
            const QMetaObject &meta = TaskDialog::staticMetaObject;
            const int index = meta.indexOfSlot(name);
            QVERIFY2(index >= 0, name);
            QCOMPARE(meta.method(index).access(), QMetaMethod::Protected);
        }
        for (const char *name : {"onButton1Enabled(bool)", "onButton4Enabled(bool)"})
            QVERIFY(TaskDialog::staticMetaObject.indexOfSlot(name) >= 0);
    }

    // Helpers

    void helperShowsAndDeletesItsDialog_data()
    {
        QTest::addColumn<int>("helper");
        QTest::addColumn<QString>("sign");
        QTest::newRow("message") << 0 << "Information";
        QTest::newRow("error") << 1 << "Error";
        QTest::newRow("warning") << 2 << "Warning";
        QTest::newRow("question") << 3 << "Question";
    }
    void helperShowsAndDeletesItsDialog()
    {
        QFETCH(int, helper);
        QFETCH(QString, sign);
        for (const bool withMessage : {true, false}) {
            QPointer<TaskDialog> seen;
            QString texts;
            whenAsked([&seen, &texts](TaskDialog &asked) {
                seen = &asked;
                texts = label(asked, "title_label")->text() + QLatin1Char('|')
                    + asked.accessibleDescription() + QLatin1Char('|')
                    + label(asked, "icon_label")->accessibleName() + QLatin1Char('|')
                    + button(asked, 1)->text() + QLatin1Char('|') + QString::number(asked.width());
                button(asked, 2)->click();
            });
            QCOMPARE(ask(helper, withMessage), EDialogResult::Yes);
            QVERIFY(!seen);
            const QString description = withMessage ? Message : sign;
            QCOMPARE(texts, QStringLiteral("A title|%1|%2|Face|480").arg(description, sign));
        }
    }

    void widgetHelperAnswers()
    {
        const QPointer<QLineEdit> content = new QLineEdit;
        QWidget parent;
        whenAsked([&content, &parent](TaskDialog &asked) {
            QCOMPARE(asked.parentWidget(), &parent);
            QVERIFY(content->isVisible());
            button(asked, 2)->click();
        });
        QCOMPARE(TaskDialog::showWidget(&parent, content, true, EDialogButtons::ButtonsOkCancel,
                                        EDialogIcon::IconNone),
                 EDialogResult::Ok);
        QVERIFY(!content);
    }

    void dialogWhoseParentDiesIsCancelled()
    {
        auto *const parent = new QWidget;
        whenAsked([parent](TaskDialog &) { delete parent; });
        QCOMPARE(TaskDialog::showMessage(parent, Title, Message, EDialogButtons::ButtonsOk,
                                         EDialogIcon::IconError),
                 EDialogResult::Cancel);
    }

    void dialogMayDieInTheClickOnItsButton()
    {
        QPointer<TaskDialog> seen;
        whenAsked([&seen](TaskDialog &asked) {
            seen = &asked;
            connect(button(asked, 2), &QPushButton::clicked, &asked, [&asked] { delete &asked; });
            QTest::mouseClick(button(asked, 2), Qt::LeftButton);
            QVERIFY(!seen);
        });
        QCOMPARE(TaskDialog::showMessage(nullptr, Title, EDialogButtons::ButtonsYesNo,
                                         EDialogIcon::IconNone),
                 EDialogResult::Cancel);
    }

    // The outer question is withdrawn while the inner one waits, which ends first nevertheless.
    void dialogWaitsForTheOneThatItHasAsked()
    {
        EDialogResult inner = EDialogResult::None;
        whenAsked([&inner](TaskDialog &outer) {
            whenAsked([&outer](TaskDialog &asked) {
                QVERIFY(&asked != &outer);
                outer.reject();
                QVERIFY(asked.isVisible());
                button(asked, 2)->click();
            });
            inner = TaskDialog::showMessage(&outer, Message, EDialogButtons::ButtonsYesNo,
                                            EDialogIcon::IconQuestion);
        });
        QCOMPARE(TaskDialog::showMessage(nullptr, Title, EDialogButtons::ButtonsYesNo,
                                         EDialogIcon::IconNone),
                 EDialogResult::Cancel);
        QCOMPARE(inner, EDialogResult::Yes);
    }

    void dialogsInEachOtherAreCancelledWithTheirParent()
    {
        auto *const parent = new QWidget;
        EDialogResult inner = EDialogResult::None;
        whenAsked([&inner, parent](TaskDialog &outer) {
            whenAsked([parent](TaskDialog &) { delete parent; });
            inner = TaskDialog::showMessage(&outer, Message, EDialogButtons::ButtonsOk,
                                            EDialogIcon::IconNone);
        });
        QCOMPARE(TaskDialog::showMessage(parent, Title, EDialogButtons::ButtonsOk,
                                         EDialogIcon::IconNone),
                 EDialogResult::Cancel);
        QCOMPARE(inner, EDialogResult::Cancel);
    }

    void dialogOnTheStackSurvivesTheEndOfExec()
    {
        QWidget parent;
        TaskDialog dialog(&parent, Title, EDialogButtons::ButtonsOk, EDialogIcon::IconNone);
        answerWith(1);
        QCOMPARE(dialog.exec(), int(QDialog::Accepted));
        QCOMPARE(dialog.dialogResult(), EDialogResult::Ok);
    }

    // Enabling

    void buttonsAreEnabledByIndex()
    {
        const std::unique_ptr<TaskDialog> dialog(
            makeDialog(Title, Message, EDialogButtons::ButtonsCustom4));
        for (int i = 0; i < 4; ++i) {
            dialog->enableButton(i, false);
            for (int other = 0; other < 4; ++other)
                QCOMPARE(button(*dialog, other + 1)->isEnabled(), other != i);
            dialog->enableButton(i, true);
            QVERIFY(button(*dialog, i + 1)->isEnabled());
        }
        for (const int index : {-1, 4, std::numeric_limits<int>::min()})
            dialog->enableButton(index, false);
        for (int i = 1; i <= 4; ++i)
            QVERIFY(button(*dialog, i)->isEnabled());
    }

    void buttonsAreEnabledBySlot()
    {
        const std::unique_ptr<TaskDialog> dialog(
            makeDialog(Title, Message, EDialogButtons::ButtonsCustom4));
        for (int i = 1; i <= 4; ++i) {
            const QByteArray slot = QByteArray("onButton") + QByteArray::number(i) + "Enabled";
            QMetaObject::invokeMethod(dialog.get(), slot.constData(), Q_ARG(bool, false));
            for (int other = 1; other <= 4; ++other)
                QCOMPARE(button(*dialog, other)->isEnabled(), other != i);
            QMetaObject::invokeMethod(dialog.get(), slot.constData(), Q_ARG(bool, true));
            QVERIFY(button(*dialog, i)->isEnabled());
        }
    }

    // Message form

    void messageFormShowsItsTexts()
    {
        const auto dialog = shown();
        QCOMPARE(label(*dialog, "title_label")->text(), Title);
        QCOMPARE(label(*dialog, "msg_label")->text(), Message);
        QVERIFY(label(*dialog, "msg_label")->isVisible());
        QVERIFY(!label(*dialog, "height_adjust_label")->isVisible());
        QVERIFY(!part<QFrame>(*dialog, "widget_frame")->isVisible());
    }

    void titleAloneHidesTheMessage()
    {
        const auto dialog = shown(Title, QString());
        QVERIFY(!label(*dialog, "msg_label")->isVisible());
        QVERIFY(label(*dialog, "height_adjust_label")->isVisible());
        QVERIFY(!part<QFrame>(*dialog, "widget_frame")->isVisible());
    }

    void widthFollowsTheTexts_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("maxWidth");
        QTest::addColumn<int>("minWidth");
        const QString longText = joined(QStringLiteral("word"), 60);
        QTest::newRow("short title") << Title << QString() << 0 << 0;
        QTest::newRow("empty title") << QString() << QString() << 0 << 0;
        QTest::newRow("message wider") << Title << joined(Message, 4) << 0 << 0;
        QTest::newRow("title wider") << joined(Title, 8) << Message << 0 << 0;
        QTest::newRow("least") << Title << QString() << 0 << 600;
        QTest::newRow("least below the frame") << Title << QString() << 0 << 50;
        QTest::newRow("no greatest") << longText << QString() << 0 << 0;
        QTest::newRow("greatest") << longText << Message << 500 << 0;
        QTest::newRow("greatest not reached") << Title << Message << 5000 << 0;
        QTest::newRow("least wins") << longText << Message << 400 << 600;
        QTest::newRow("lines") << QStringLiteral("One\r\nTwo is longer\n\n\nThree") << Message << 0
                               << 0;
        QTest::newRow("only breaks") << QStringLiteral("\n\r\n\n") << QString() << 0 << 0;
        QTest::newRow("negative") << Title << Message << -10 << -10;
        QTest::newRow("least int") << Title << Message << std::numeric_limits<int>::min()
                                   << std::numeric_limits<int>::min();
    }
    void widthFollowsTheTexts()
    {
        QFETCH(QString, title);
        QFETCH(QString, message);
        QFETCH(int, maxWidth);
        QFETCH(int, minWidth);
        const auto dialog = shown(title, message, maxWidth, minWidth);
        int wanted = lineWidth(*label(*dialog, "title_label"), title);
        if (!message.isEmpty())
            wanted = std::max(wanted, lineWidth(*label(*dialog, "msg_label"), message));
        const int least = minWidth > 105 ? minWidth - 105 : 0;
        const int limit = maxWidth > 105 ? maxWidth - 105 : 0;
        const int most = maxWidth == 0 ? wanted : std::max(least, limit);
        const int text = wanted < least ? least : std::min(most, wanted);
        QCOMPARE(dialog->width(), text + 105);
        QCOMPARE(label(*dialog, "title_label")->width(), text);
    }

    void leastWidthIsThatOfTheDialog()
    {
        QCOMPARE(shown(Title, QString(), 0, 600)->width(), 600);
        QCOMPARE(shown(joined(Title, 99), QString(), 600, 0)->width(), 600);
    }

    void widthHasABound()
    {
        const QString endless = QString(100'000, QLatin1Char('w'));
        const std::unique_ptr<TaskDialog> dialog(makeDialog(endless));
        QCOMPARE(dialog->width(), 32767);
        const std::unique_ptr<TaskDialog> wide(makeDialog(Title, Message, EDialogButtons::ButtonsOk,
                                                          0, std::numeric_limits<int>::max()));
        QCOMPARE(wide->width(), 32767);
    }

    void oneLineIsNotWrapped()
    {
        const auto dialog = shown(QStringLiteral("A title that fits"), QString(), 600);
        const QLabel &title = *label(*dialog, "title_label");
        QCOMPARE(title.heightForWidth(title.width()), title.fontMetrics().height());
    }

    // Lines of every system; what is empty is no line.
    void emptyLinesAreNoLines()
    {
        for (const char *breaks : {"\n\n", "\r\n\r\n", "\r\n", "\n"}) {
            const std::unique_ptr<TaskDialog> dialog(makeDialog(Title + QLatin1String(breaks)));
            QCOMPARE(label(*dialog, "title_label")->alignment(),
                     Qt::AlignJustify | Qt::AlignVCenter);
        }
    }

    void linesAreAlignedAtTheStart()
    {
        const auto dialog = shown(QStringLiteral("One\nTwo"), Message);
        QCOMPARE(label(*dialog, "title_label")->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(label(*dialog, "msg_label")->alignment(), Qt::AlignJustify | Qt::AlignVCenter);
        const auto other = shown(Title, QStringLiteral("One\r\nTwo"));
        QCOMPARE(label(*other, "title_label")->alignment(), Qt::AlignJustify | Qt::AlignVCenter);
        QCOMPARE(label(*other, "msg_label")->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    }

    void titleMovesUpForMoreThanALine_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("maxWidth");
        QTest::addColumn<int>("margin");
        QTest::newRow("one line") << Title << QString() << 0 << 14;
        QTest::newRow("one line each") << Title << Message << 0 << 14;
        QTest::newRow("lines of the title") << QStringLiteral("1\n2") << QString() << 0 << 3;
        QTest::newRow("lines of the title, the message counts")
            << QStringLiteral("1\n2") << Message << 0 << 14;
        QTest::newRow("lines of the message") << Title << QStringLiteral("1\n2") << 0 << 3;
        QTest::newRow("line and its end") << QStringLiteral("One\r\n") << QString() << 0 << 14;
        QTest::newRow("no line") << QString() << QString() << 0 << 3;
        QTest::newRow("wrapped") << joined(Title, 20) << Message << 400 << 3;
    }
    void titleMovesUpForMoreThanALine()
    {
        QFETCH(QString, title);
        QFETCH(QString, message);
        QFETCH(int, maxWidth);
        QFETCH(int, margin);
        const auto dialog = shown(title, message, maxWidth);
        const QLayout &around = *part<QVBoxLayout>(*dialog, "verticalLayout_5");
        QCOMPARE(around.contentsMargins(), QMargins(0, margin, 0, 0));
    }

    void titleAloneTakesNoRoomForAMessage()
    {
        const auto spacer = [](const TaskDialog &dialog) {
            return part<QGridLayout>(dialog, "gridLayout_3")->itemAtPosition(5, 3)->sizeHint();
        };
        QCOMPARE(spacer(*shown(Title, QString())), QSize(0, 0));
        QCOMPARE(spacer(*shown(QStringLiteral("1\n2"), QString())), QSize(20, 5));
        QCOMPARE(spacer(*shown(Title, Message)), QSize(20, 5));
    }

    void textsAreSeenWhole_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("words") << joined(QStringLiteral("word"), 400);
        QTest::newRow("long word") << QString(2000, QLatin1Char('m'));
        QTest::newRow("path") << QStringLiteral("In ") + QStringLiteral("/folder").repeated(60)
                + QStringLiteral(" nothing was found.");
        QTest::newRow("line feeds") << QStringLiteral("One\nTwo\n\nThree");
        QTest::newRow("carriage returns") << QStringLiteral("One\r\nTwo\r\n\r\nThree\r\n");
        QTest::newRow("lone carriage returns") << QStringLiteral("One\rTwo\rThree");
        QTest::newRow("separators") << QStringLiteral("One\u2028Two\u2029Three\u0085Four\vFive");
        QTest::newRow("Hebrew") << joined(QStringLiteral("\u05E9\u05DC\u05D5\u05DD"), 90);
        QTest::newRow("Arabic, both ways")
            << joined(QStringLiteral("\u0645\u0631\u062D\u0628\u0627 mesh.obj"), 50);
        QTest::newRow("beyond the plane") << QStringLiteral("\U0001F600").repeated(500);
        QTest::newRow("half a character") << QString(QChar(0xD83D)).repeated(50);
        QTest::newRow("rich")
            << QStringLiteral("<b>Bold</b> and <i>%1</i>").arg(joined(QStringLiteral("word"), 100));
        QTest::newRow("broken markup") << QStringLiteral("<b>a < b & c</i>");
        QTest::newRow("null character") << QString(QChar(0)) + QStringLiteral("rest");
    }
    void textsAreSeenWhole()
    {
        QFETCH(QString, text);
        for (const char *name : {"title_label", "msg_label"}) {
            const bool isTitle = qstrcmp(name, "title_label") == 0;
            const auto dialog = shown(isTitle ? text : Title, isTitle ? Message : text, 400, 350);
            QCoreApplication::processEvents();
            const QLabel &shownLabel = *label(*dialog, name);
            QVERIFY(dialog->width() <= 400);
            QVERIFY(shownLabel.heightForWidth(shownLabel.width()) <= shownLabel.height());
            const QRect inCard(shownLabel.mapTo(dialog.get(), QPoint()), shownLabel.size());
            QVERIFY(part<QFrame>(*dialog, "frame")->geometry().contains(inCard));
            const int needed = shownLabel.minimumSizeHint().width();
            QVERIFY2(needed <= shownLabel.width(), qPrintable(QString::number(needed)));
            QVERIFY(!dialog->grab().isNull());
        }
    }

    void breaksOfEveryKindBreakLines_data()
    {
        QTest::addColumn<QString>("lineBreak");
        QTest::newRow("line feed") << QStringLiteral("\n");
        QTest::newRow("carriage return and line feed") << QStringLiteral("\r\n");
        QTest::newRow("carriage return") << QStringLiteral("\r");
        QTest::newRow("vertical tab") << QStringLiteral("\v");
        QTest::newRow("form feed") << QStringLiteral("\f");
        QTest::newRow("next line") << QString(QChar(0x85));
        QTest::newRow("line separator") << QStringLiteral("\u2028");
        QTest::newRow("paragraph separator") << QStringLiteral("\u2029");
    }
    void breaksOfEveryKindBreakLines()
    {
        QFETCH(const QString, lineBreak);
        const QString text = QStringLiteral("One%1Two").arg(lineBreak);
        const QString expected = QStringLiteral("One\nTwo");
        const auto dialog = shown(text, text);
        for (const char *name : {"title_label", "msg_label"}) {
            const QLabel &part = *label(*dialog, name);
            QCOMPARE(part.text().remove(QLatin1Char('\r')), expected);
            QCOMPARE(part.alignment(), Qt::AlignLeft | Qt::AlignVCenter);
            QVERIFY(2 * part.heightForWidth(part.width()) > 3 * part.fontMetrics().height());
        }
        QCOMPARE(dialog->width(), shown(expected, expected)->width());
    }

    void breaksInMarkupStay()
    {
        const QString text = QStringLiteral("<pre>One\rTwo\fThree</pre>");
        QCOMPARE(label(*shown(Title, text), "msg_label")->text(), text);
    }

    void wordThatFitsIsNotBroken()
    {
        const QString text = joined(QStringLiteral("/home/user/mesh.obj"), 20);
        const auto dialog = shown(Title, text, 400);
        QCOMPARE(label(*dialog, "msg_label")->text(), text);
    }

    void brokenWordKeepsItsLetters()
    {
        const QString word = QStringLiteral("0123456789").repeated(40);
        const auto dialog = shown(Title, word, 400);
        QString text = label(*dialog, "msg_label")->text();
        const int letters = label(*dialog, "msg_label")->fontMetrics().horizontalAdvance(word);
        const int breaks = text.count(QChar(0x200B));
        QVERIFY(breaks > 0);
        QVERIFY(breaks <= letters / (400 - 105 - 10) + 1);
        QCOMPARE(text.remove(QChar(0x200B)), word);
    }

    void markupIsNotBroken()
    {
        const QString link = QStringLiteral("<a href=\"https://%1/\">Help</a>")
                                 .arg(QStringLiteral("example.").repeated(60));
        QCOMPARE(label(*shown(link, Message, 400), "title_label")->text(), link);
    }

    // Widget form

    void widgetFormShowsItsContent()
    {
        auto *const content = new QLineEdit;
        TaskDialog dialog(nullptr, content, false, EDialogButtons::ButtonsOk,
                          EDialogIcon::IconInformation);
        dialog.show();
        QCOMPARE(content->parentWidget(), part<QFrame>(dialog, "widget_frame"));
        QCOMPARE(part<QVBoxLayout>(dialog, "widget_layout")->itemAt(0)->widget(), content);
        QVERIFY(content->isVisible());
        QVERIFY(!label(dialog, "title_label")->isVisible());
        QVERIFY(!label(dialog, "msg_label")->isVisible());
        QVERIFY(label(dialog, "height_adjust_label")->isVisible());
        const auto *const grid = part<QGridLayout>(dialog, "gridLayout_3");
        QCOMPARE(grid->contentsMargins(), QMargins(20, 0, 30, 0));
        QCOMPARE(grid->itemAtPosition(1, 2)->sizeHint(), QSize(9, 20));
        QCOMPARE(grid->itemAtPosition(5, 3)->sizeHint(), QSize(0, 0));
        QCOMPARE(part<QVBoxLayout>(dialog, "verticalLayout_5")->contentsMargins().top(), 14);
    }

    void fillingContentGetsTheWholeCard()
    {
        auto *const content = new QWidget;
        content->setMinimumSize(500, 100);
        TaskDialog dialog(nullptr, content, true, EDialogButtons::ButtonsOk, EDialogIcon::IconNone);
        dialog.show();
        QVERIFY(!label(dialog, "height_adjust_label")->isVisible());
        const auto *const grid = part<QGridLayout>(dialog, "gridLayout_3");
        QCOMPARE(grid->contentsMargins(), QMargins());
        QCOMPARE(grid->itemAtPosition(1, 2)->sizeHint(), QSize(0, 0));
        QCOMPARE(part<QVBoxLayout>(dialog, "verticalLayout_5")->contentsMargins(), QMargins());
        QCOMPARE(content->width(), part<QFrame>(dialog, "frame")->width());
        QCOMPARE(dialog.width(), 506);
    }

    void dialogWithoutContentIsEmpty()
    {
        TaskDialog dialog(nullptr, nullptr, false, EDialogButtons::ButtonsOk,
                          EDialogIcon::IconNone);
        dialog.show();
        QCOMPARE(part<QVBoxLayout>(dialog, "widget_layout")->count(), 0);
        QVERIFY(dialog.width() >= 350);
    }

    void contentIsReplaced()
    {
        const QPointer<QWidget> old = new QLineEdit;
        TaskDialog dialog(nullptr, old, false, EDialogButtons::ButtonsOk, EDialogIcon::IconNone);
        dialog.show();
        auto *const next = new QWidget;
        next->setMinimumSize(700, 300);
        dialog.setWidget(next);
        QVERIFY(!old);
        QCOMPARE(part<QVBoxLayout>(dialog, "widget_layout")->count(), 1);
        QVERIFY(next->isVisible());
        QVERIFY(dialog.width() >= 700 && dialog.height() >= 300);
    }

    void contentComesToAnEmptyDialog()
    {
        TaskDialog dialog(nullptr, nullptr, false, EDialogButtons::ButtonsOk,
                          EDialogIcon::IconNone);
        auto *const content = new QLineEdit;
        dialog.setWidget(content);
        dialog.show();
        QVERIFY(content->isVisible());
    }

    void setWidgetIgnoresWhatItCannotHold()
    {
        auto *const content = new QLineEdit;
        QWidget parent;
        TaskDialog dialog(&parent, content, false, EDialogButtons::ButtonsOk,
                          EDialogIcon::IconNone);
        const QList<QWidget *> wrong {nullptr,           content,
                                      &dialog,           &parent,
                                      button(dialog, 1), part<QFrame>(dialog, "widget_frame")};
        for (QWidget *widget : wrong) {
            dialog.setWidget(widget);
            QCOMPARE(part<QVBoxLayout>(dialog, "widget_layout")->itemAt(0)->widget(), content);
            QCOMPARE(content->parentWidget(), part<QFrame>(dialog, "widget_frame"));
        }
        QCOMPARE(dialog.parentWidget(), &parent);
        TaskDialog inContent(&parent, &parent, false, EDialogButtons::ButtonsOk,
                             EDialogIcon::IconNone);
        QCOMPARE(part<QVBoxLayout>(inContent, "widget_layout")->count(), 0);
    }

    void partOfTheContentReplacesIt()
    {
        const QPointer<QWidget> old = new QWidget;
        auto *const inner = new QLineEdit(old);
        TaskDialog dialog(nullptr, old, false, EDialogButtons::ButtonsOk, EDialogIcon::IconNone);
        dialog.setWidget(inner);
        QVERIFY(!old);
        dialog.show();
        QVERIFY(inner->isVisible());
    }

    void contentThatDiesIsForgotten()
    {
        auto *content = new QLineEdit;
        TaskDialog dialog(nullptr, content, false, EDialogButtons::ButtonsOk,
                          EDialogIcon::IconNone);
        delete content;
        content = new QLineEdit;
        dialog.setWidget(content);
        dialog.show();
        QVERIFY(content->isVisible());
    }

    void setWidgetDoesNothingInAMessage()
    {
        const auto dialog = shown();
        QLineEdit widget;
        dialog->setWidget(&widget);
        QVERIFY(!widget.parentWidget());
        QVERIFY(!widget.isVisible());
        QCOMPARE(part<QVBoxLayout>(*dialog, "widget_layout")->count(), 0);
    }

    void contentHearsTheMouse()
    {
        auto *const content = new QPushButton(Title);
        TaskDialog dialog(nullptr, content, true, EDialogButtons::ButtonsOk, EDialogIcon::IconNone);
        dialog.show();
        const QPoint middle = content->mapTo(&dialog, content->rect().center());
        QCOMPARE(dialog.childAt(middle), content);
        const QToolButton *const cross = part<QToolButton>(dialog, "close_button");
        QCOMPARE(dialog.childAt(cross->mapTo(&dialog, QPoint(10, 10))), cross);
    }

    void contentComesFirstForTheKeyboard()
    {
        auto *const content = new QWidget;
        auto *const rows = new QVBoxLayout(content);
        auto *const first = new QLineEdit;
        auto *const second = new QLineEdit;
        rows->addWidget(first);
        rows->addWidget(second);
        TaskDialog dialog(nullptr, content, false, EDialogButtons::ButtonsOkCancel,
                          EDialogIcon::IconNone);
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        QTRY_VERIFY(first->hasFocus());
        const QList<QWidget *> order {second, button(dialog, 1), button(dialog, 2),
                                      part<QToolButton>(dialog, "close_button"), first};
        for (QWidget *next : order) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), next);
        }
    }

    void firstButtonHasTheFocusOfAMessage()
    {
        const auto dialog = shown();
        QApplication::setActiveWindow(dialog.get());
        QTRY_VERIFY(button(*dialog, 1)->hasFocus());
        const QList<QWidget *> order {
            button(*dialog, 2), part<QToolButton>(*dialog, "close_button"), button(*dialog, 1)};
        for (QWidget *next : order) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), next);
        }
    }

    void keyboardFocusIsSeen()
    {
        const auto dialog = shown();
        QApplication::setActiveWindow(dialog.get());
        QTRY_VERIFY(button(*dialog, 1)->hasFocus());
        const QImage before = button(*dialog, 2)->grab().toImage();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(button(*dialog, 2)->hasFocus());
        QVERIFY(button(*dialog, 2)->grab().toImage() != before);
    }

    void focusIsFramedEvenly_data()
    {
        QTest::addColumn<bool>("isStyled");
        QTest::newRow("without a sheet of the application") << false;
        QTest::newRow("with the sheet of the library") << true;
    }

    void focusIsFramedEvenly()
    {
        QFETCH(const bool, isStyled);
        if (isStyled)
            qApp->setStyleSheet(Styles::Instance().ApplicationStyleSheet());
        const auto reset = qScopeGuard([] { qApp->setStyleSheet({}); });
        const auto dialog = shown();
        QApplication::setActiveWindow(dialog.get());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(button(*dialog, 2)->hasFocus());
        const QImage picture =
            button(*dialog, 2)->grab().toImage().scaled(button(*dialog, 2)->size());
        const QPoint middle = picture.rect().center();
        const int right = picture.width() - 1;
        const int bottom = picture.height() - 1;
        for (const QPoint &onFrame : {QPoint(3, middle.y()), QPoint(right - 3, middle.y()),
                                      QPoint(9, 3), QPoint(9, bottom - 3)})
            QCOMPARE(picture.pixelColor(onFrame), QColor(Qt::white));
        for (const QPoint &outside : {QPoint(1, middle.y()), QPoint(right - 1, middle.y()),
                                      QPoint(9, 1), QPoint(9, bottom - 1)})
            QVERIFY(picture.pixelColor(outside) != QColor(Qt::white));
    }

    void focusTakesNoRoom()
    {
        const auto dialog = shown();
        const QPushButton *second = button(*dialog, 2);
        const QSize hint = second->sizeHint();
        QApplication::setActiveWindow(dialog.get());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(second->hasFocus());
        QCOMPARE(second->sizeHint(), hint);
    }

    // Moving

    void titleBarMovesTheDialog_data()
    {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft})
            QTest::newRow(direction == Qt::LeftToRight ? "left to right" : "right to left")
                << direction;
    }
    void titleBarMovesTheDialog()
    {
        QFETCH(Qt::LayoutDirection, direction);
        const std::unique_ptr<TaskDialog> dialog(
            makeDialog(joined(Title, 9), joined(Message, 40), EDialogButtons::ButtonsOk, 500));
        dialog->setLayoutDirection(direction);
        dialog->show();
        const int width = dialog->width();
        const QToolButton &cross = *part<QToolButton>(*dialog, "close_button");
        const int end = direction == Qt::LeftToRight
            ? cross.mapTo(dialog.get(), QPoint()).x()
            : width - cross.mapTo(dialog.get(), QPoint(cross.width(), 0)).x();
        QVERIFY(end > width - 50);
        QList<QPair<QPoint, bool>> places {{{0, 0}, true},          {{0, 31}, true},
                                           {{0, 32}, false},        {{end - 1, 10}, true},
                                           {{end, 10}, false},      {{width - 1, 1}, false},
                                           {{width / 2, 60}, false}};
        for (const auto &place : places) {
            QPoint at = place.first;
            if (direction == Qt::RightToLeft)
                at.setX(width - 1 - at.x());
            dialog->move(100, 100);
            press(dialog.get(), at);
            dragTo(dialog.get(), at + QPoint(7, -5));
            release(dialog.get(), at);
            QCOMPARE(dialog->pos(), place.second ? QPoint(107, 95) : QPoint(100, 100));
        }
    }

    void fromRightToLeftIsTheMirrorOfFromLeftToRight_data()
    {
        QTest::addColumn<bool>("whileShown");
        QTest::newRow("at once") << false;
        QTest::newRow("while it is shown") << true;
    }
    void fromRightToLeftIsTheMirrorOfFromLeftToRight()
    {
        QFETCH(bool, whileShown);
        const auto make = [] {
            return std::unique_ptr<TaskDialog>(
                makeDialog(joined(Title, 9), joined(Message, 40), EDialogButtons::ButtonsOk, 500));
        };
        const auto dialog = make();
        const auto mirrored = make();
        for (const char *const name : {"icon_label", "title_label", "close_button"}) {
            dialog->show();
            if (whileShown)
                mirrored->show();
            mirrored->setLayoutDirection(Qt::RightToLeft);
            mirrored->show();
            const auto placeIn = [name](const TaskDialog &one) {
                auto *const widget = part<QWidget>(one, name);
                return QRect(widget->mapTo(&one, QPoint()), widget->size());
            };
            QTRY_COMPARE(placeIn(*mirrored),
                         QStyle::visualRect(Qt::RightToLeft, dialog->rect(), placeIn(*dialog)));
            mirrored->setLayoutDirection(Qt::LeftToRight);
            QTRY_COMPARE(placeIn(*mirrored), placeIn(*dialog));
        }
    }

    void cardLetsPressesThrough()
    {
        const auto dialog = shown(joined(Title, 5));
        auto *const frame = part<QFrame>(*dialog, "frame");
        press(frame, QPoint(20, 10));
        dragTo(frame, QPoint(30, 14));
        QCOMPARE(dialog->pos(), QPoint(50, 54));
        // The card has moved with the dialog.
        dragTo(frame, QPoint(25, 10));
        QCOMPARE(dialog->pos(), QPoint(55, 54));
        release(frame, QPoint(20, 10));
        dragTo(frame, QPoint(90, 90));
        QCOMPARE(dialog->pos(), QPoint(55, 54));
    }

    void wideningMovesTheEndOfTheTitleBar()
    {
        auto *const content = new QWidget;
        TaskDialog dialog(nullptr, content, false, EDialogButtons::ButtonsOk,
                          EDialogIcon::IconNone);
        dialog.show();
        dialog.move(40, 50);
        dialog.resize(800, 300);
        QCoreApplication::processEvents();
        press(&dialog, QPoint(740, 10));
        dragTo(&dialog, QPoint(745, 10));
        QCOMPARE(dialog.pos(), QPoint(45, 50));
    }

    void pressOnTheButtonRowDoesNotMove()
    {
        const auto dialog = shown();
        press(button(*dialog, 1), QPoint(5, 5));
        dragTo(button(*dialog, 1), QPoint(25, 25));
        QCOMPARE(dialog->pos(), QPoint(40, 50));
    }

    void draggingEndsWithoutTheLeftButton_data()
    {
        QTest::addColumn<int>("buttons");
        QTest::newRow("a release that was missed") << int(Qt::NoButton);
        QTest::newRow("another button") << int(Qt::RightButton);
    }

    void draggingEndsWithoutTheLeftButton()
    {
        QFETCH(const int, buttons);
        const auto dialog = shown();
        pointAt(dialog.get(), QPoint(10, 10));
        QCOMPARE(dialog->cursor().shape(), Qt::OpenHandCursor);
        press(dialog.get(), QPoint(10, 10));
        sendMouse(dialog.get(), QEvent::MouseMove, QPoint(30, 10), Qt::NoButton,
                  Qt::MouseButtons(buttons));
        QCOMPARE(dialog->pos(), QPoint(40, 50));
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
        dragTo(dialog.get(), QPoint(30, 10));
        QCOMPARE(dialog->pos(), QPoint(40, 50));
    }

    // As any press that a dialog has no use for.
    void pressGoesOnToWhatIsBehind()
    {
        const auto dialog = shown();
        for (const QPoint &at : {QPoint(10, 10), QPoint(10, 60)}) {
            QMouseEvent event(QEvent::MouseButtonPress, at, dialog->mapToGlobal(at), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(dialog.get(), &event);
            QVERIFY(!event.isAccepted());
        }
    }

    void cursorTellsTheTitleBar()
    {
        const auto dialog = shown();
        auto *const frame = part<QFrame>(*dialog, "frame");
        pointAt(frame, QPoint(10, 10));
        QCOMPARE(dialog->cursor().shape(), Qt::OpenHandCursor);
        QCOMPARE(part<QToolButton>(*dialog, "close_button")->cursor().shape(), Qt::ArrowCursor);
        pointAt(frame, QPoint(10, 60));
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
        press(frame, QPoint(10, 10));
        dragTo(frame, QPoint(10, 60));
        QCOMPARE(dialog->cursor().shape(), Qt::OpenHandCursor);
    }

    // For everybody

    void assistiveToolsGetTitleAndMessage()
    {
        const std::unique_ptr<TaskDialog> dialog(
            makeDialog(QStringLiteral("<b>Title</b>"), QStringLiteral("The <i>message</i>")));
        QCOMPARE(dialog->accessibleName(), QStringLiteral("Title"));
        QCOMPARE(dialog->accessibleDescription(), QStringLiteral("The message"));
        const QToolButton *const cross = part<QToolButton>(*dialog, "close_button");
        QCOMPARE(cross->toolTip(), QStringLiteral("Close the message box"));
        QCOMPARE(cross->accessibleName(), QStringLiteral("Close the message box"));
    }

    void contentNamesItsDialog()
    {
        auto *const content = new QLineEdit;
        content->setWindowTitle(QStringLiteral("Export"));
        TaskDialog dialog(nullptr, content, false, EDialogButtons::ButtonsOk,
                          EDialogIcon::IconNone);
        QCOMPARE(dialog.accessibleName(), QStringLiteral("Export"));
    }

    void contentMayNameItsDialogForAssistiveToolsOnly()
    {
        auto *const content = new QLineEdit;
        content->setAccessibleName(QStringLiteral("Export"));
        content->setAccessibleDescription(QStringLiteral("Where the mesh goes"));
        TaskDialog dialog(nullptr, content, false, EDialogButtons::ButtonsOk,
                          EDialogIcon::IconInformation);
        QCOMPARE(dialog.accessibleName(), QStringLiteral("Export"));
        QCOMPARE(dialog.accessibleDescription(), QStringLiteral("Where the mesh goes"));
        dialog.setWidget(new QLineEdit);
        QCOMPARE(dialog.accessibleDescription(), QStringLiteral("Information"));
    }

    void signDescribesADialogWithoutAMessage()
    {
        TaskDialog dialog(nullptr, Title, EDialogButtons::ButtonsOk, EDialogIcon::IconError, {}, 0,
                          0);
        QCOMPARE(dialog.accessibleDescription(), QStringLiteral("Error"));
        StarTranslator translator;
        qApp->installTranslator(&translator);
        QTRY_COMPARE(dialog.accessibleDescription(), QStringLiteral("*Error"));
        qApp->removeTranslator(&translator);
        dialog.setAccessibleDescription(QStringLiteral("Mine"));
        qApp->installTranslator(&translator);
        QTRY_COMPARE(label(dialog, "icon_label")->accessibleName(), QStringLiteral("*Error"));
        QCOMPARE(dialog.accessibleDescription(), QStringLiteral("Mine"));
        qApp->removeTranslator(&translator);
    }

    void ownTextsFollowTheLanguage()
    {
        const QList<SIconButton> faces {{{}, QStringLiteral("Mine")}};
        TaskDialog dialog(nullptr, Title, Message, EDialogButtons::ButtonsYesNo,
                          EDialogIcon::IconQuestion, faces);
        dialog.show();
        const int width = dialog.width();
        StarTranslator translator;
        qApp->installTranslator(&translator);
        QTRY_COMPARE(button(dialog, 2)->text(), QStringLiteral("*Yes"));
        QCOMPARE(button(dialog, 1)->text(), QStringLiteral("Mine"));
        QCOMPARE(label(dialog, "title_label")->text(), Title);
        QCOMPARE(label(dialog, "msg_label")->text(), Message);
        const QToolButton *const cross = part<QToolButton>(dialog, "close_button");
        QCOMPARE(cross->toolTip(), QStringLiteral("*Close the message box"));
        QCOMPARE(cross->accessibleName(), QStringLiteral("*Close the message box"));
        QCOMPARE(label(dialog, "icon_label")->accessibleName(), QStringLiteral("*Question"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("*Dialog"));
        QCOMPARE(dialog.width(), width);
        qApp->removeTranslator(&translator);
        QTRY_COMPARE(button(dialog, 2)->text(), QStringLiteral("Yes"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Dialog"));
    }

    void windowTitleOfTheCallerStays()
    {
        const auto dialog = shown();
        dialog->setWindowTitle(QStringLiteral("Mine"));
        StarTranslator translator;
        qApp->installTranslator(&translator);
        QTRY_COMPARE(button(*dialog, 2)->text(), QStringLiteral("*OK"));
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Mine"));
        qApp->removeTranslator(&translator);
        QTRY_COMPARE(button(*dialog, 2)->text(), QStringLiteral("OK"));
    }

    void rightToLeftMirrorsTheForm()
    {
        const std::unique_ptr<TaskDialog> dialog(makeDialog(joined(Title, 5), joined(Message, 9)));
        dialog->setLayoutDirection(Qt::RightToLeft);
        dialog->show();
        QVERIFY(button(*dialog, 2)->x() < button(*dialog, 1)->x());
        QVERIFY(part<QToolButton>(*dialog, "close_button")->x() < dialog->width() / 2);
        const QFrame &frame = *part<QFrame>(*dialog, "frame");
        for (const char *name : {"title_label", "msg_label", "icon_label"})
            QVERIFY(frame.rect().contains(label(*dialog, name)->geometry()));
        QVERIFY(label(*dialog, "icon_label")->x() > label(*dialog, "title_label")->x());
    }

    // Subclasses

    void subclassBringsItsOwnData()
    {
        bool gone = false;
        auto dialog = std::make_unique<OwnDialog>(&gone, Title, Message);
        dialog->show();
        QCOMPARE(dialog->data().titleBarRect.height(), 50);
        QVERIFY(dialog->data().hasMessage && !dialog->data().hasWidget);
        dialog = std::make_unique<OwnDialog>(&gone, Title);
        QVERIFY(gone);
        QVERIFY(!dialog->data().hasMessage && !dialog->data().hasWidget);
        gone = false;
        auto *const content = new QLineEdit;
        dialog = std::make_unique<OwnDialog>(&gone, content);
        QVERIFY(dialog->data().hasWidget && !dialog->data().hasMessage);
        QCOMPARE(dialog->data().contentWidget.data(), content);
        QCOMPARE(dialog->data().dialogResult, EDialogResult::Cancel);
        QVERIFY(!dialog->data().moving && dialog->data().titleBarHeight == 50);
    }

    void parentOwnsTheDialog()
    {
        auto parent = std::make_unique<QWidget>();
        const QPointer<TaskDialog> dialog =
            new TaskDialog(parent.get(), Title, EDialogButtons::ButtonsOk, EDialogIcon::IconNone);
        parent.reset();
        QVERIFY(!dialog);
    }

private:
    static EDialogResult ask(int helper, bool withMessage)
    {
        const auto buttons = EDialogButtons::ButtonsYesNo;
        const QList<SIconButton> faces {{{}, QStringLiteral("Face")}};
        const int width = 480;
        switch (helper * 2 + (withMessage ? 1 : 0)) {
        case 0:
            return TaskDialog::showMessage(nullptr, Title, buttons, EDialogIcon::IconInformation,
                                           faces, width, width);
        case 1:
            return TaskDialog::showMessage(nullptr, Title, Message, buttons,
                                           EDialogIcon::IconInformation, faces, width, width);
        case 2:
            return TaskDialog::showErrorMessage(nullptr, Title, buttons, faces, width, width);
        case 3:
            return TaskDialog::showErrorMessage(nullptr, Title, Message, buttons, faces, width,
                                                width);
        case 4:
            return TaskDialog::showWarningMessage(nullptr, Title, buttons, faces, width, width);
        case 5:
            return TaskDialog::showWarningMessage(nullptr, Title, Message, buttons, faces, width,
                                                  width);
        case 6:
            return TaskDialog::showQuestionMessage(nullptr, Title, buttons, faces, width, width);
        default:
            return TaskDialog::showQuestionMessage(nullptr, Title, Message, buttons, faces, width,
                                                   width);
        }
    }
};

LUMO_TEST_MAIN(tst_TaskDialog)
#include "tst_taskdialog.moc"
