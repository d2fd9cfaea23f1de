// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/DialogEx>
#include <ui_base/LumoMenuManager>
#include <ui_base/MDialogBase>
#include <ui_base/MenuBuilder>
#include <ui_base/QtUiToolkit>
#include <ui_base/TaskDialog>

#include "support/mouse.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QAction>
#include <QCursor>
#include <QEventLoop>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include <functional>
#include <random>

using namespace Vela::UiBase;
using namespace Vela::UiToolkit;

namespace {

const QString Closed = QStringLiteral("QToolButton { color: black; }");
const QString Opened = QStringLiteral("QToolButton { color: white; }");

// A main window with a bar and dialogs, to which anything happens in any order: at the top, in turns
// of the event loop that a change of style makes while a menu is shown or hidden, in slots of
// actions, and in dialogs that wait.
class Turmoil
{
public:
    Turmoil(unsigned seed, bool customHover)
        : m_customHover(customHover)
        , m_random(seed)
    {
        makeBar();
        m_window->show();
    }
    ~Turmoil()
    {
        m_depth = 1000; // what is still posted does nothing
        delete m_window;
        delete m_owner;
        qDeleteAll(m_dialogs);
        m_later.reset();
        qApp->setStyleSheet({});
    }

    void step()
    {
        if (!m_bar)
            makeBar();
        if (chance(3))
            QTimer::singleShot(0, m_later.get(), [this] { act(); });
        act();
        ++m_depth;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents(); // what came of it
        --m_depth;
    }

    // Empty when all is as it has to be while nothing happens.
    QString disorder() const
    {
        const QList<QToolButton *> items = allItems();
        int open = 0;
        for (const QToolButton *item : items) {
            const QMenu *const menu = m_manager ? m_manager->GetMenu(itemOf(item)) : nullptr;
            const bool isOpen = menu && menu->isVisible();
            open += int(isOpen);
            if (menu && menu->windowHandle() && menu->windowHandle()->isVisible() != isOpen)
                return item->text() + QStringLiteral(" has left a menu on the screen");
            if (m_customHover && m_manager && isOpen != (item->styleSheet() == Opened))
                return item->text() + QStringLiteral(" has the style of the other state");
        }
        return open > 1 ? QStringLiteral("%1 menus are open").arg(open) : QString();
    }

private:
    using Act = void (Turmoil::*)();

    int number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(m_random); }
    bool chance(int oneIn) { return number(oneIn) == 0; }
    template<typename Thing>
    Thing *anyOf(const QList<Thing *> &things)
    {
        return things.isEmpty() ? nullptr : things.at(number(things.size()));
    }

    static QToolButton *itemOf(const QToolButton *item) { return const_cast<QToolButton *>(item); }
    QList<QToolButton *> allItems() const
    {
        return m_bar ? m_bar->findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly)
                     : QList<QToolButton *>();
    }
    QToolButton *anyItem() { return anyOf(allItems()); }
    QMenu *anyMenu() { return m_bar ? anyOf(m_bar->findChildren<QMenu *>()) : nullptr; }

    // At the top anything may end; further in only what nobody on the way here is busy with.
    void act()
    {
        static constexpr Act Anywhere[] = {
            &Turmoil::enterItem,  &Turmoil::enterItem,     &Turmoil::leaveItem,
            &Turmoil::enterMenu,  &Turmoil::pointAway,     &Turmoil::timeOut,
            &Turmoil::pressKey,   &Turmoil::pressKey,      &Turmoil::clickItem,
            &Turmoil::stop,       &Turmoil::start,         &Turmoil::link,
            &Turmoil::enableItem, &Turmoil::moveWindow,    &Turmoil::showWindow,
            &Turmoil::hideBar,    &Turmoil::changeStyle,   &Turmoil::changeFont,
            &Turmoil::showDialog, &Turmoil::useDialog,     &Turmoil::waitForDialog,
            &Turmoil::addToMenu,  &Turmoil::changeLanguage};
        static constexpr Act AtTheTop[] = {&Turmoil::endMenu,    &Turmoil::endItem,
                                           &Turmoil::endManager, &Turmoil::endBar,
                                           &Turmoil::endWindow,  &Turmoil::endLater};
        if (m_depth > 3)
            return;
        ++m_depth;
        if (m_depth == 1 && chance(8))
            (this->*AtTheTop[number(int(std::size(AtTheTop)))])();
        else
            (this->*Anywhere[number(int(std::size(Anywhere)))])();
        --m_depth;
    }

    void makeBar()
    {
        if (!m_window)
            m_window = new QMainWindow;
        m_window->setGeometry(100, 100, 400, 300);
        m_window->setCentralWidget(new QLineEdit);
        m_window->show();
        m_bar = new MenuBuilder(QStringLiteral("bar"), m_window, m_window, Qt::ToolButtonTextOnly,
                                m_customHover, Closed);
        m_manager = m_bar->findChild<LumoMenuManager *>();
        for (const char *name : {"&File", "&Edit", "&View", "Home"}) {
            const QString text = QString::fromLatin1(name);
            m_bar->AddMenuBarItem(text, {}, Opened, {}, {});
            if (text == QLatin1String("Home"))
                continue;
            m_bar->AddDropDownMenu(text, {makeAction(), nullptr, makeAction()}, nullptr);
            m_bar->AddSubMenu(text, QStringLiteral("Sub"), {makeAction()}, nullptr, true);
        }
        m_bar->setGeometry(0, 0, 300, 30);
        m_bar->Start();
        m_bar->show();
    }

    QAction *makeAction()
    {
        auto *const action = new QAction(QStringLiteral("&Action"), m_window);
        // One that is chosen at the top may end its own menu, though not at once.
        QObject::connect(action, &QAction::triggered, m_later.get(), [this] {
            if (m_depth == 1 && chance(2))
                endLater();
            else
                act();
        });
        return action;
    }

    void send(QObject *receiver, QEvent::Type type)
    {
        QEvent event(type);
        if (receiver)
            QCoreApplication::sendEvent(receiver, &event);
    }

    void enterItem()
    {
        if (m_customHover)
            send(anyItem(), QEvent::Enter);
    }
    void leaveItem() { send(anyItem(), QEvent::Leave); }
    void enterMenu() { send(anyMenu(), chance(2) ? QEvent::Enter : QEvent::Leave); }
    void pointAway()
    {
        QCursor::setPos(100 + number(500), 100 + number(300));
        if (m_window)
            Lumo::Test::pointAt(m_window, QPoint(390, 290));
    }
    void timeOut()
    {
        if (m_manager)
            m_manager->OnMenuHideTimerTimeOut();
    }
    void pressKey()
    {
        static constexpr Qt::Key Keys[] = {Qt::Key_F10, Qt::Key_Left,   Qt::Key_Right,
                                           Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Return,
                                           Qt::Key_Alt, Qt::Key_Escape, Qt::Key_A};
        QWidget *receiver = QApplication::activePopupWidget();
        if (!receiver)
            receiver = QApplication::activeWindow();
        const QPointer<QWindow> window = receiver ? receiver->windowHandle() : nullptr;
        const Qt::Key key = Keys[number(int(std::size(Keys)))];
        if (window)
            QTest::keyPress(window, key);
        if (window)
            QTest::keyRelease(window, key);
    }
    void clickItem()
    {
        // In plain mode a click waits for its menu.
        if (QToolButton *const item = m_customHover ? anyItem() : nullptr)
            item->click();
    }
    void stop()
    {
        if (m_manager)
            m_manager->Stop();
    }
    void start()
    {
        if (m_bar)
            m_bar->Start();
    }
    void link()
    {
        QToolButton *const item = anyItem();
        if (!item || !m_manager || m_depth > 1)
            return;
        if (chance(2)) {
            m_manager->AddButtonMenuLinkage(item, nullptr);
            return;
        }
        auto *const menu = new QMenu(item);
        menu->addAction(makeAction());
        m_manager->AddButtonMenuLinkage(item, menu);
    }
    void enableItem()
    {
        if (QToolButton *const item = anyItem())
            item->setEnabled(!item->isEnabled());
    }
    void moveWindow()
    {
        if (m_window)
            m_window->setGeometry(50 + number(200), 50 + number(200), 300 + number(200), 300);
    }
    void showWindow()
    {
        if (m_window)
            m_window->setVisible(chance(3) ? false : true);
    }
    void hideBar()
    {
        if (m_bar && chance(2))
            m_bar->HideMe();
        else if (m_bar)
            m_bar->show();
    }
    void changeStyle()
    {
        qApp->setStyleSheet(chance(2) ? QStringLiteral("QMenu { padding: 3px; }") : QString());
    }
    void changeFont()
    {
        QFont font = QApplication::font();
        font.setPointSize(8 + number(6));
        if (m_window)
            m_window->setFont(font);
    }
    void changeLanguage()
    {
        if (m_window)
            send(m_window, QEvent::LanguageChange);
    }
    void addToMenu()
    {
        QToolButton *const item = anyItem();
        if (!item)
            return;
        const QString name = chance(4) ? QStringLiteral("Nobody") : item->text();
        m_bar->AddDropDownMenu(name, {makeAction(), nullptr}, nullptr);
        m_bar->AddSubMenu(name, QStringLiteral("Sub %1").arg(number(3)), {makeAction(), nullptr},
                          nullptr, chance(2));
    }

    QDialog *makeDialog()
    {
        if (!m_owner)
            m_owner = new QWidget;
        QWidget *const parent = chance(2) ? m_owner.data() : nullptr;
        switch (number(3)) {
        case 0:
            return new TaskDialog(parent, QStringLiteral("Title"), QStringLiteral("One\nTwo"),
                                  EDialogButtons(number(9)), EDialogIcon(number(7)));
        case 1:
            return QtUiToolkit::Instance().CreateFlyoutDialog(parent, QStringLiteral("Title"),
                                                              new QLineEdit, new QWidget, true,
                                                              true, true, true);
        default:
            return new DialogEx(parent, chance(2));
        }
    }
    void showDialog()
    {
        m_dialogs.removeAll(nullptr);
        if (m_dialogs.size() > 3)
            return;
        QDialog *const dialog = makeDialog();
        m_dialogs << dialog;
        dialog->show();
    }
    // In a waiting dialog, or in one of those that do not wait.
    void useDialog()
    {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog && !m_dialogs.isEmpty())
            dialog = m_dialogs.at(number(m_dialogs.size()));
        if (!dialog)
            return;
        const QList<QAbstractButton *> buttons = dialog->findChildren<QAbstractButton *>();
        switch (number(5)) {
        case 0:
            QTest::keyClick(dialog, Qt::Key_Escape);
            break;
        case 1:
            QTest::keyClick(dialog, Qt::Key_Return);
            break;
        case 2:
            if (QAbstractButton *const button = anyOf(buttons))
                button->click();
            break;
        case 3:
            Lumo::Test::press(dialog, QPoint(30, 15));
            Lumo::Test::dragTo(dialog, QPoint(60, 25));
            break;
        default:
            dialog->close();
        }
    }
    void waitForDialog()
    {
        if (m_depth > 2)
            return;
        const QPointer<QDialog> dialog = makeDialog();
        const bool endsByParent = dialog->parentWidget() && chance(2);
        const bool endsByItself = chance(3);
        QTimer::singleShot(0, dialog, [this] { act(); });
        QTimer::singleShot(1, dialog, [this, dialog, endsByParent, endsByItself] {
            if (endsByParent)
                delete m_owner;
            else if (endsByItself)
                delete dialog;
            else
                dialog->reject();
        });
        dialog->exec();
        delete dialog;
    }

    void endMenu() { delete anyMenu(); }
    void endItem() { delete anyItem(); }
    void endManager()
    {
        delete m_manager;
        endBar();
    }
    void endBar() { delete m_bar; }
    void endWindow() { delete m_window; }
    void endLater()
    {
        if (!m_bar)
            return;
        const QList<QObject *> ends {m_bar, m_window, anyMenu(), anyItem()};
        if (QObject *const end = anyOf(ends))
            end->deleteLater();
    }

    const bool m_customHover;
    std::mt19937 m_random;
    int m_depth = 0;
    std::unique_ptr<QObject> m_later = std::make_unique<QObject>();
    QPointer<QMainWindow> m_window;
    QPointer<MenuBuilder> m_bar;
    QPointer<LumoMenuManager> m_manager;
    QPointer<QWidget> m_owner;
    QList<QPointer<QDialog>> m_dialogs;
};

} // namespace

class tst_MenuTurmoil : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void menusAndDialogsSurviveAnything_data()
    {
        QTest::addColumn<unsigned>("seed");
        QTest::addColumn<bool>("customHover");
        for (unsigned seed = 1; seed <= 12; ++seed) {
            QTest::addRow("hover, seed %u", seed) << seed << true;
            if (seed <= 3)
                QTest::addRow("plain, seed %u", seed) << seed << false;
        }
    }

    void menusAndDialogsSurviveAnything()
    {
        QFETCH(const unsigned, seed);
        QFETCH(const bool, customHover);
        Turmoil turmoil(seed, customHover);
        QString disorder;
        QEventLoop loop; // as that of an application, which deleteLater() waits for
        QTimer::singleShot(0, &loop, [&] {
            for (int step = 0; step < 120 && disorder.isEmpty(); ++step) {
                turmoil.step();
                disorder = turmoil.disorder();
            }
            loop.quit();
        });
        loop.exec();
        QVERIFY2(disorder.isEmpty(), qPrintable(disorder));
    }
};

LUMO_TEST_MAIN(tst_MenuTurmoil)
#include "tst_menuturmoil.moc"
