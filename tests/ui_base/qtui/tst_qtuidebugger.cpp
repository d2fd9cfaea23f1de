// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testcase.h"
#include "support/testmain.h"

#include <ui_base/QtUiDebugger>

#include <QAbstractButton>
#include <QCursor>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <functional>

using namespace Vela::UiBase;

namespace {

/// Calls the debugger, and @p look with its message box from inside the box's event loop.
/// @return whether a box came up
bool dump(QtUiDebugger &debugger, const std::function<void(QMessageBox &)> &look)
{
    bool shown = false;
    QTimer once;
    once.setSingleShot(true);
    QObject::connect(&once, &QTimer::timeout, &once, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        shown = true;
        look(*box);
        if (box->isVisible())
            box->done(0);
    });
    once.start(0);
    debugger.DumpWidgetUnderMouse();
    return shown;
}

QString dumpedText(QtUiDebugger &debugger)
{
    QString text;
    dump(debugger, [&text](QMessageBox &box) { text = box.text(); });
    return text;
}

} // namespace

class TestQtUiDebugger : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsAWindow();
    void tellsAChildAndItsParent();
    void namesAreShownAsTheyAre();
    void withoutWidgetUnderTheMouseNothingIsShown();
    void boxIsAnInformationOnItsOwn();
    void boxClosesByEscape();
    void boxClosesByItsButton();
    void boxClosesByItsFrame();
    void slotIsFoundByName();
    void slotCanBeOverridden();
    void debuggerMayDieWhileTheBoxIsOpen();

private:
    QtUiDebugger m_debugger;
};

void TestQtUiDebugger::tellsAWindow()
{
    QWidget window;
    window.setObjectName(QStringLiteral("main"));
    window.setGeometry(100, 100, 200, 150);
    window.show();
    QCursor::setPos(150, 150);
    QCOMPARE(dumpedText(m_debugger), QStringLiteral("Class: QWidget\nName: main"));
}

void TestQtUiDebugger::tellsAChildAndItsParent()
{
    QWidget window;
    window.setGeometry(100, 100, 200, 150);
    QPushButton button(&window);
    button.setObjectName(QStringLiteral("apply_button"));
    button.setGeometry(20, 20, 80, 30);
    window.show();
    QCursor::setPos(130, 130);
    QCOMPARE(dumpedText(m_debugger),
             QStringLiteral("Class: QPushButton\nName: apply_button\n"
                            "Parent Class: QWidget\nParent Name: "));
}

void TestQtUiDebugger::namesAreShownAsTheyAre()
{
    QWidget window;
    window.setObjectName(QStringLiteral("<b>bold</b>"));
    window.setGeometry(100, 100, 200, 150);
    window.show();
    QCursor::setPos(150, 150);
    QVERIFY(dump(m_debugger, [](QMessageBox &box) {
        QCOMPARE(box.text(), QStringLiteral("Class: QWidget\nName: <b>bold</b>"));
        QCOMPARE(box.textFormat(), Qt::PlainText);
    }));
}

void TestQtUiDebugger::withoutWidgetUnderTheMouseNothingIsShown()
{
    QCursor::setPos(1, 1);
    QVERIFY(!QApplication::widgetAt(QCursor::pos()));
    QVERIFY(!dump(m_debugger, [](QMessageBox &) {}));
}

void TestQtUiDebugger::boxIsAnInformationOnItsOwn()
{
    QWidget window;
    window.setGeometry(100, 100, 200, 150);
    window.show();
    QCursor::setPos(150, 150);
    QVERIFY(dump(m_debugger, [](QMessageBox &box) {
        QCOMPARE(box.icon(), QMessageBox::Information);
        QCOMPARE(box.windowTitle(), QStringLiteral("Widget Info"));
        QVERIFY(!box.parent());
        QCOMPARE(box.windowType(), Qt::Dialog);
        QVERIFY(box.windowFlags() & Qt::MSWindowsFixedSizeDialogHint);
        QVERIFY(box.isModal());
    }));
}

void TestQtUiDebugger::boxClosesByEscape()
{
    QWidget window;
    window.setGeometry(100, 100, 200, 150);
    window.show();
    QCursor::setPos(150, 150);
    QVERIFY(dump(m_debugger, [](QMessageBox &box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        QVERIFY(!box.isVisible());
    }));
}

void TestQtUiDebugger::boxClosesByItsButton()
{
    QWidget window;
    window.setGeometry(100, 100, 200, 150);
    window.show();
    QCursor::setPos(150, 150);
    QVERIFY(dump(m_debugger, [](QMessageBox &box) {
        QCOMPARE(box.buttons().size(), 1);
        QTest::mouseClick(box.buttons().first(), Qt::LeftButton);
        QVERIFY(!box.isVisible());
    }));
}

void TestQtUiDebugger::boxClosesByItsFrame()
{
    QWidget window;
    window.setGeometry(100, 100, 200, 150);
    window.show();
    QCursor::setPos(150, 150);
    QVERIFY(dump(m_debugger, [](QMessageBox &box) { QVERIFY(box.close()); }));
}

void TestQtUiDebugger::slotIsFoundByName()
{
    QCursor::setPos(1, 1);
    QVERIFY(QMetaObject::invokeMethod(&m_debugger, "DumpWidgetUnderMouse", Qt::DirectConnection));
}

void TestQtUiDebugger::slotCanBeOverridden()
{
    class Silent : public QtUiDebugger
    {
    public:
        int calls = 0;
        void DumpWidgetUnderMouse() override { ++calls; }
    } silent;
    QMetaObject::invokeMethod(&silent, "DumpWidgetUnderMouse", Qt::DirectConnection);
    QCOMPARE(silent.calls, 1);
}

void TestQtUiDebugger::debuggerMayDieWhileTheBoxIsOpen()
{
    QWidget window;
    window.setGeometry(100, 100, 200, 150);
    window.show();
    QCursor::setPos(150, 150);
    auto *debugger = new QtUiDebugger;
    QTimer::singleShot(0, this, [debugger] {
        delete debugger;
        QApplication::activeModalWidget()->close();
    });
    debugger->DumpWidgetUnderMouse();
    QVERIFY(!QApplication::activeModalWidget());
}

LUMO_TEST_MAIN(TestQtUiDebugger)
#include "tst_qtuidebugger.moc"
