// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/DialogEx>
#include <ui_base/FlyoutBase>
#include <ui_base/MDialogBase>
#include <ui_base/QtUiToolkit>
#include <ui_base/TaskDialog>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>
#include <QWindow>

#include <memory>

using namespace Lumo::Test;
using namespace Vela::UiBase;
using namespace Vela::UiToolkit;

namespace {

using Dialog = std::unique_ptr<QDialog>;

constexpr QPoint Place(300, 250);
constexpr QPoint Way(120, 80);

QLineEdit *makePanel()
{
    auto *const panel = new QLineEdit;
    panel->setFixedSize(260, 60);
    return panel;
}

Dialog makeFlyoutDialog(QWidget *parent = nullptr)
{
    auto *const advanced = new QWidget;
    advanced->setFixedSize(200, 90);
    return Dialog(QtUiToolkit::Instance().CreateFlyoutDialog(
        parent, QStringLiteral("Smooth"), makePanel(), advanced, true, true, true, false));
}

Dialog makeTaskDialog(QWidget *parent = nullptr)
{
    return std::make_unique<TaskDialog>(parent, QStringLiteral("Close the mesh?"),
                                        QStringLiteral("It has changes."),
                                        EDialogButtons::ButtonsYesNo, EDialogIcon::IconQuestion);
}

Dialog makePlainDialog(QWidget *parent = nullptr)
{
    return std::make_unique<DialogEx>(parent, true);
}

Dialog makeDialog(int kind, QWidget *parent = nullptr)
{
    if (kind == 0)
        return makeFlyoutDialog(parent);
    return kind == 1 ? makeTaskDialog(parent) : makePlainDialog(parent);
}

/// The dialog on the screen, with the keyboard, where the user can take hold of it.
bool bringUp(QDialog &dialog)
{
    dialog.move(Place);
    dialog.show();
    const bool isActive = QTest::qWaitForWindowActive(&dialog);
    const bool isPlaced = isActive
        && QTest::qWaitFor([&] { return dialog.mapToGlobal(QPoint(0, 0)) == Place; }, 20'000);
    return isPlaced;
}

/// Drags with the left button, in steps that the dialog follows one by one.
bool drag(const QPoint &from, const QPoint &way)
{
    bool isDone = pointAsUser(from) && pressAsUser(1);
    for (int step = 1; step <= 4; ++step)
        isDone = isDone && pointAsUser(from + way * step / 4);
    return releaseAsUser(1) && isDone;
}

} // namespace

class DialogDesktopTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theUserMovesADialogByItsTop_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QPoint>("from");
        QTest::newRow("flyout dialog") << 0 << QPoint(60, 18);
        QTest::newRow("task dialog") << 1 << QPoint(60, 18);
        QTest::newRow("dialog of one's own") << 2 << QPoint(60, 18);
    }

    void theUserMovesADialogByItsTop()
    {
        QFETCH(const int, kind);
        QFETCH(const QPoint, from);
        const Dialog dialog = makeDialog(kind);
        QVERIFY(bringUp(*dialog));
        QVERIFY(drag(Place + from, Way));
        QTRY_COMPARE(dialog->mapToGlobal(QPoint(0, 0)), Place + Way);
        QVERIFY(pointAsUser(Place + from));
        QCOMPARE(dialog->mapToGlobal(QPoint(0, 0)), Place + Way);
    }

    void theUserResizesADialogByItsGrip()
    {
        const Dialog dialog = makePlainDialog();
        dialog->resize(400, 350);
        QVERIFY(bringUp(*dialog));
        QVERIFY(drag(Place + QPoint(380, 330), QPoint(60, 40)));
        QTRY_COMPARE(dialog->size(), QSize(460, 390));
        QCOMPARE(dialog->mapToGlobal(QPoint(0, 0)), Place);
    }

    void theWindowIsAsLargeAsItsFlyout()
    {
        const Dialog dialog = makeFlyoutDialog();
        QVERIFY(bringUp(*dialog));
        auto *const flyout = dialog->findChild<FlyoutBase *>();
        const int folded = dialog->height();
        QCOMPARE(dialog->size(), flyout->size());
        const auto *const advanced =
            dialog->findChild<QToolButton *>(QStringLiteral("advanced_button"));
        QVERIFY(pointAsUser(advanced->mapToGlobal(advanced->rect().center())));
        QVERIFY(clickAsUser(1));
        QTRY_VERIFY(dialog->height() >= folded + 90);
        QTRY_COMPARE(dialog->windowHandle()->size(), flyout->size());
    }

    void theUserClosesAFlyoutDialogByTheCross()
    {
        const Dialog dialog = makeFlyoutDialog();
        QVERIFY(bringUp(*dialog));
        const auto *const cross = dialog->findChild<QToolButton *>(QStringLiteral("close_button"));
        QVERIFY(pointAsUser(cross->mapToGlobal(cross->rect().center())));
        QVERIFY(clickAsUser(1));
        QTRY_VERIFY(!dialog->isVisible());
        QCOMPARE(dialog->result(), int(QDialog::Rejected));
    }

    void theKeyboardWorksAFlyoutDialog()
    {
        const Dialog dialog = makeFlyoutDialog();
        QVERIFY(bringUp(*dialog));
        const QSignalSpy applied(dialog->findChild<FlyoutBase *>(), &FlyoutBase::ApplyChanges);
        auto *const field = dialog->findChild<QLineEdit *>();
        const auto hasReached = [field] {
            return field->hasFocus() || (pressKeyAsUser(QStringLiteral("Tab")) && false);
        };
        QVERIFY(QTest::qWaitFor(hasReached, 20'000));
        QVERIFY(typeAsUser(QStringLiteral("12")));
        QTRY_COMPARE(field->text(), QStringLiteral("12"));
        QVERIFY(pressKeyAsUser(QStringLiteral("Return")));
        QTRY_COMPARE(applied.count(), 1);
        QVERIFY(dialog->isVisible());
        QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
        QTRY_VERIFY(!dialog->isVisible());
    }

    void theFocusComesBackFromADialog_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("flyout dialog") << 0;
        QTest::newRow("task dialog") << 1;
        QTest::newRow("dialog of one's own") << 2;
    }
    void theFocusComesBackFromADialog()
    {
        QFETCH(const int, kind);
        QWidget window;
        window.setGeometry(QRect(Place - QPoint(100, 100), QSize(500, 400)));
        new QLineEdit(&window);
        auto *const field = new QLineEdit(&window);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        field->setFocus();
        const Dialog dialog = makeDialog(kind, &window);
        QVERIFY(bringUp(*dialog));
        QTRY_COMPARE(QApplication::activeWindow(), dialog.get());
        QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
        QTRY_VERIFY(!dialog->isVisible());
        QTRY_VERIFY(field->hasFocus());
    }

    void theUserAnswersByAClick_data()
    {
        QTest::addColumn<int>("buttons");
        QTest::addColumn<QVector<int>>("results");
        const QVector<QVector<int>> results {{2}, {1},    {4, 3},    {2, 4, 3},   {2, 1},
                                             {5}, {5, 6}, {5, 6, 7}, {5, 6, 7, 8}};
        for (int i = 0; i < results.size(); ++i)
            QTest::addRow("set %d", i) << i << results.at(i);
    }

    void theUserAnswersByAClick()
    {
        QFETCH(const int, buttons);
        QFETCH(const QVector<int>, results);
        TaskDialog dialog(nullptr, QStringLiteral("Close the mesh?"), EDialogButtons(buttons),
                          EDialogIcon::IconQuestion);
        QVERIFY(bringUp(dialog));
        for (int i = 0; i < results.size(); ++i) {
            dialog.show();
            QVERIFY(QTest::qWaitForWindowExposed(&dialog));
            const auto *const button =
                dialog.findChild<QPushButton *>(QStringLiteral("button%1").arg(i + 1));
            const auto isHit = [button, &dialog] {
                return !dialog.isVisible()
                    || (pointAsUser(button->mapToGlobal(button->rect().center()))
                        && button->underMouse() && clickAsUser(1) && !dialog.isVisible());
            };
            QVERIFY(QTest::qWaitFor(isHit, 20'000));
            QCOMPARE(int(dialog.dialogResult()), results.at(i));
        }
    }

    void theUserLeavesATaskDialog_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("cross") << false;
        QTest::newRow("Escape") << true;
    }

    void theUserLeavesATaskDialog()
    {
        QFETCH(const bool, byKey);
        const Dialog dialog = makeTaskDialog();
        QVERIFY(bringUp(*dialog));
        const auto *const cross = dialog->findChild<QToolButton *>(QStringLiteral("close_button"));
        if (byKey)
            QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
        else
            QVERIFY(pointAsUser(cross->mapToGlobal(cross->rect().center())) && clickAsUser(1));
        QTRY_VERIFY(!dialog->isVisible());
        QCOMPARE(static_cast<TaskDialog *>(dialog.get())->dialogResult(), EDialogResult::Cancel);
    }

    void keysDismissOnlyWhereTheyMay()
    {
        DialogEx dialog(nullptr, true);
        QLineEdit field(&dialog);
        dialog.SetDismissByDefaultEvents(false);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        for (const char *key : {"Escape", "Return", "KP_Enter"})
            QVERIFY(pressKeyAsUser(QString::fromLatin1(key)));
        QVERIFY(typeAsUser(QStringLiteral("12"))); // after them
        QTRY_COMPARE(field.text(), QStringLiteral("12"));
        QVERIFY(dialog.isVisible());
        dialog.SetDismissByDefaultEvents(true);
        QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
        QTRY_VERIFY(!dialog.isVisible());
    }

    void theBodyOfADialogDoesNotMoveIt()
    {
        const Dialog dialog = makeTaskDialog();
        QVERIFY(bringUp(*dialog));
        QVERIFY(drag(Place + QPoint(60, 60), Way));
        QVERIFY(drag(Place + QPoint(60, 18), QPoint(10, 10)));
        QTRY_COMPARE(dialog->mapToGlobal(QPoint(0, 0)), Place + QPoint(10, 10));
    }

    void theKeyboardAnswersATaskDialog()
    {
        const Dialog dialog = makeTaskDialog();
        QVERIFY(bringUp(*dialog));
        QVERIFY(pressKeyAsUser(QStringLiteral("Tab")));
        QVERIFY(pressKeyAsUser(QStringLiteral("Return")));
        QTRY_VERIFY(!dialog->isVisible());
        QCOMPARE(static_cast<TaskDialog *>(dialog.get())->dialogResult(), EDialogResult::Yes);
    }
};

LUMO_TEST_MAIN(DialogDesktopTest)
#include "tst_dialogdesktop.moc"
