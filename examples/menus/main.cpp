// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// Menus: a bar whose menus open under the pointer, floating over the top of a window, with a sub
// menu, check marks and an item that is told apart while its menu is open; and below it a row of
// buttons of one's own with the same manager, in plain mode.
//
//     menus [--dark] [--rtl] [--shot FILE.png]

#include "shared/look.h"
#include "shared/picture.h"

#include <ui_base/LumoMenuManager>
#include <ui_base/MenuBuilder>

#include <lumo_common_res/Styles>

#include <QAction>
#include <QApplication>
#include <QCommandLineParser>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

using namespace Vela::UiBase;

namespace {

const QString fileItem = QStringLiteral("&File");
const QString viewItem = QStringLiteral("&View");
const QString homeItem = QStringLiteral("&Home");

// 2. Items first: they are addressed by their text. The second style sheet is that of an item while
// its menu is open.
void addItems(MenuBuilder &bar)
{
    const QString open = Vela::Resource::Styles::Instance().MenuMain()
        + QStringLiteral("QToolButton { background-color: #5383B5; color: white; }");
    for (const QString &name : {fileItem, viewItem})
        bar.AddMenuBarItem(name, {}, open, {}, {});
    bar.AddSeparator(false, 16); // a label, which has no colour of its own
    bar.setStyleSheet(QStringLiteral("QLabel { background-color: #808080; }"));
    bar.AddMenuBarItem(homeItem, SLOT(showNormal()), {}, {}, {},
                       QStringLiteral("Back to the start"));
}

// 3. A menu is described by a list; slots without a receiver are those of the main window. An entry
// without a text is a separator.
void fillFile(MenuBuilder &bar)
{
    QList<AppMenuItemSpecifier> entries {
        {QStringLiteral("&Open..."), {}, QKeySequence::Open, nullptr, SLOT(raise())},
        {QStringLiteral("&Save"), {}, QKeySequence::Save, nullptr, SLOT(update())},
        {},
        {QStringLiteral("&Quit"),
         {},
         QKeySequence::Quit,
         nullptr,
         SLOT(close()),
         QAction::QuitRole}};
    bar.AddDropDownMenu(fileItem, entries);
    // Before the separator and what follows it.
    QAction *const quit = bar.FindAction(fileItem, QStringLiteral("&Quit"));
    bar.AddSubMenu(fileItem, QStringLiteral("&Recent"),
                   {new QAction(QStringLiteral("bunny.obj"), &bar),
                    new QAction(QStringLiteral("teapot.obj"), &bar)},
                   quit, true);
}

// 4. Or by actions that live elsewhere, commands for example. Null stands for a separator.
void fillView(MenuBuilder &bar)
{
    QVector<QAction *> actions;
    for (const char *text : {"Shaded", "Wireframe", "", "Axes", "Bounding box"}) {
        actions << (*text ? new QAction(QString::fromLatin1(text), &bar) : nullptr);
        if (actions.constLast())
            actions.constLast()->setCheckable(true);
    }
    actions.constFirst()->setChecked(true);
    actions.constLast()->setEnabled(false);
    bar.AddDropDownMenu(viewItem, actions, nullptr);
}

// 5. A bar that floats belongs to no layout; its place is its owner's business.
MenuBuilder *addBar(QMainWindow &window)
{
    auto *const bar = new MenuBuilder(QStringLiteral("main menu"), &window, &window,
                                      Qt::ToolButtonTextOnly, true, {});
    addItems(*bar);
    fillFile(*bar);
    fillView(*bar);
    bar->Start();
    QPoint corner(0, 0);
    bar->SetMenuPosition(corner);
    window.setContentsMargins(0, bar->height(), 0, 0);
    return bar;
}

// 6. The manager alone serves any buttons. In plain mode Qt opens the menus, on a press.
QWidget *makeButtons(QMainWindow &window)
{
    auto *const row = new QWidget(&window);
    auto *const layout = new QHBoxLayout(row);
    auto *const tools = new QPushButton(QStringLiteral("Tools"), row);
    auto *const help = new QPushButton(QStringLiteral("Help"), row);
    layout->addWidget(tools);
    layout->addWidget(help);
    layout->addStretch();
    auto *const menu = new QMenu(tools);
    menu->addAction(QStringLiteral("Smooth"));

    auto *const manager = new LumoMenuManager(&window, 0, false, &window);
    manager->AddButtonMenuLinkage(tools, menu);
    manager->AddButtonMenuLinkage(help, nullptr);
    manager->Start();
    return row;
}

QMenu *menuOf(const MenuBuilder &bar, const QString &item)
{
    return bar.GetMenuBarItem(item)->findChild<QMenu *>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps); // for the marks in menus
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("dark"), QStringLiteral("Dark palette.")});
    parser.addOption({QStringLiteral("rtl"), QStringLiteral("From right to left.")});
    parser.addOption({QStringLiteral("shot"), QStringLiteral("Save a picture and leave."),
                      QStringLiteral("file")});
    parser.process(application);
    if (parser.isSet(QStringLiteral("rtl")))
        QApplication::setLayoutDirection(Qt::RightToLeft);
    // 1. The palette is chosen before the first widget.
    chooseLook(application, parser.isSet(QStringLiteral("dark")));

    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Menus"));
    window.resize(460, 300);
    window.setMenuWidget(makeButtons(window));
    window.setCentralWidget(new QLabel(QStringLiteral("Point at an item, or press F10.")));
    const MenuBuilder *const bar = addBar(window);
    window.show();

    const QString file = parser.value(QStringLiteral("shot"));
    if (!file.isEmpty()) {
        bar->GetMenuBarItem(fileItem)->click();
        QMenu *const menu = menuOf(*bar, fileItem);
        QMenu *const recent = menu->findChild<QMenu *>();
        menu->setActiveAction(recent->menuAction());
        QTimer::singleShot(300, &window, [&window, menu, file] {
            QCoreApplication::exit(menu->isVisible() && savePicture(window, file) ? 0 : 1);
        });
    }
    return QApplication::exec();
}
