// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "menu/mainmenu.h"

#include "commands/attributecommand.h"
#include "commands/barscommand.h"
#include "commands/comparecommand.h"
#include "commands/displaymodecommand.h"
#include "commands/opencommand.h"
#include "commands/pickcommand.h"
#include "commands/savecommand.h"
#include "commands/selectioncommand.h"
#include "commands/showallcommand.h"
#include "commandset.h"
#include "dialogs/aboutcommand.h"
#include "dialogs/logcommand.h"
#include "dialogs/preferencescommand.h"
#include "image/openimagecommand.h"
#include "language.h"
#include "menu/recentfiles.h"

#include <ui_base/CommandGroup>
#include <ui_base/CycleCheckableCommand>

#include <lumo_common_res/Styles>

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QToolButton>

#include <algorithm>

namespace Workbench {

using Vela::UiBase::AppMenuItemSpecifier;
using Vela::UiBase::MenuBuilder;

namespace {

const char *const itemNames[] = {
    QT_TRANSLATE_NOOP("Workbench::MainMenu", "&File"),
    QT_TRANSLATE_NOOP("Workbench::MainMenu", "&Edit"),
    QT_TRANSLATE_NOOP("Workbench::MainMenu", "&View"),
    QT_TRANSLATE_NOOP("Workbench::MainMenu", "&Tools"),
    QT_TRANSLATE_NOOP("Workbench::MainMenu", "&Window"),
    QT_TRANSLATE_NOOP("Workbench::MainMenu", "&Help"),
};

template<typename Commands>
QVector<QAction *> actionsOf(const Commands &commands)
{
    QVector<QAction *> actions;
    for (const auto &command : commands)
        actions << &*command;
    return actions;
}

/// "1 bunny.obj  (models)" with a key for the number. A name may hold what menus take for a mark.
QString entryOf(int number, const QString &path)
{
    const QFileInfo file(path);
    QString name = QStringLiteral("%1  (%2)").arg(file.fileName(), file.dir().dirName());
    return QStringLiteral("&%1 %2").arg(number).arg(
        name.replace(QLatin1Char('&'), QLatin1String("&&")));
}

} // namespace

MainMenu::MainMenu(QMainWindow &window, const CommandSet &commands, RecentFiles &recent)
    : MenuBuilder(QStringLiteral("main menu"), &window, &window, Qt::ToolButtonTextOnly, true, {})
    , m_window(window)
    , m_recent(recent)
{
    const QString open = Vela::Resource::Styles::Instance().MenuMain()
        + QStringLiteral("QToolButton, QToolButton:hover { background-color: palette(highlight); "
                         "color: palette(highlighted-text); }");
    for (const char *const name : itemNames) {
        m_names << QString::fromLatin1(name);
        AddMenuBarItem(m_names.constLast(), {}, open, {}, {});
    }
    buildFile(commands);
    buildEdit(commands);
    buildView(commands);
    buildRest(commands);
    levelRows();
    inEveryLanguage(*this, [this] { speak(); });
    // An entry that is just being chosen outlives its choice.
    connect(&recent, &RecentFiles::changed, this, &MainMenu::fillRecent, Qt::QueuedConnection);
    Start();
    window.installEventFilter(this);
    place();
}

QStringList MainMenu::names() const
{
    return m_names;
}

QMenu *MainMenu::menuOf(const QString &name) const
{
    const auto item = GetMenuBarItem(name);
    return item ? item->findChild<QMenu *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

QMenu *MainMenu::recentMenu() const
{
    return menuOf(m_names.first())->findChild<QMenu *>(QString(), Qt::FindDirectChildrenOnly);
}

void MainMenu::buildFile(const CommandSet &commands)
{
    const QString &file = m_names.at(0);
    AddDropDownMenu(file, {commands.open.get(), commands.images.open.get(), commands.save.get()},
                    nullptr);
    AddSubMenu(file, QStringLiteral("recent"), {}, commands.save.get(), true);
    QList<AppMenuItemSpecifier> quit {{},
                                      {QStringLiteral("quit"),
                                       {},
                                       QKeySequence::Quit,
                                       nullptr,
                                       SLOT(close()),
                                       QAction::QuitRole}};
    AddDropDownMenu(file, quit);
    m_quit = menuOf(file)->actions().constLast();
}

void MainMenu::buildEdit(const CommandSet &commands)
{
    AddDropDownMenu(m_names.at(1), actionsOf(commands.edits()), nullptr);
    AddDropDownMenu(m_names.at(1), {nullptr}, nullptr);
    AddDropDownMenu(m_names.at(1), actionsOf(commands.selectionChanges), nullptr);
    AddDropDownMenu(m_names.at(1), {nullptr, commands.preferences.get()}, nullptr);
}

void MainMenu::buildView(const CommandSet &commands)
{
    const QString &view = m_names.at(2);
    AddDropDownMenu(view, actionsOf(commands.modes), nullptr);
    AddDropDownMenu(view, {commands.nextMode.get(), nullptr}, nullptr);
    AddDropDownMenu(view, actionsOf(commands.attributes), nullptr);
    AddDropDownMenu(view, {nullptr, commands.showAll.get()}, nullptr);
}

void MainMenu::buildRest(const CommandSet &commands)
{
    const QString &tools = m_names.at(3);
    AddDropDownMenu(tools, {commands.pick.get(), commands.compare.get(), nullptr}, nullptr);
    AddDropDownMenu(tools, commands.flyouts->groupActionGroup()->actions().toVector(), nullptr);
    AddDropDownMenu(m_names.at(4), {commands.bars.get(), commands.log.get()}, nullptr);
    AddDropDownMenu(m_names.at(5), {commands.about.get()}, nullptr);
}

/// Among entries with icons those without are as high.
void MainMenu::levelRows()
{
    for (const QString &name : qAsConst(m_names)) {
        QMenu *const menu = menuOf(name);
        const QList<QAction *> entries = menu->actions();
        const bool hasIcons = std::any_of(entries.begin(), entries.end(), [](const QAction *entry) {
            return entry->isIconVisibleInMenu() && !entry->icon().isNull();
        });
        if (hasIcons)
            menu->setStyleSheet(QStringLiteral("QMenu::item { min-height: 24px; }"));
    }
}

void MainMenu::speak()
{
    for (const QString &name : qAsConst(m_names))
        GetMenuBarItem(name)->setText(tr(name.toLatin1().constData()));
    recentMenu()->setTitle(tr("&Recent Files"));
    m_quit->setText(tr("&Quit"));
    fillRecent();
}

QAction *MainMenu::addPanel(QWidget &panel)
{
    auto *entry = new QAction(this);
    entry->setCheckable(true);
    entry->setChecked(!panel.isHidden());
    connect(entry, &QAction::toggled, &panel, &QWidget::setVisible);
    AddDropDownMenu(m_names.at(4), {entry}, menuOf(m_names.at(4))->actions().constLast());
    return entry;
}

void MainMenu::fillRecent()
{
    QMenu *menu = recentMenu();
    menu->clear();
    menu->setToolTipsVisible(true);
    const QStringList &paths = m_recent.paths();
    for (int i = 0; i < paths.size(); ++i) {
        const QString path = paths.at(i);
        QAction *entry = menu->addAction(entryOf(i + 1, path));
        entry->setToolTip(QDir::toNativeSeparators(path));
        connect(entry, &QAction::triggered, this, [this, path] { Q_EMIT recentChosen(path); });
    }
    menu->addSeparator();
    QAction *clear = menu->addAction(tr("&Clear This List"), &m_recent, &RecentFiles::clear);
    clear->setEnabled(!paths.isEmpty());
}

void MainMenu::place()
{
    m_window.setContentsMargins(0, sizeHint().height(), 0, 0);
    QPoint corner(0, 0);
    SetMenuPosition(corner);
    if (m_window.isRightToLeft()) {
        corner.setX(m_window.width() - width());
        SetMenuPosition(corner);
    }
    raise();
}

// It makes room for what its items read.
void MainMenu::resizeEvent(QResizeEvent *event)
{
    MenuBuilder::resizeEvent(event);
    if (!m_names.isEmpty())
        place();
}

bool MainMenu::eventFilter(QObject *watched, QEvent *event)
{
    const bool movesCorner = event->type() == QEvent::Resize || event->type() == QEvent::Show
        || event->type() == QEvent::LayoutDirectionChange;
    if (watched == &m_window && movesCorner)
        place();
    return MenuBuilder::eventFilter(watched, event);
}

} // namespace Workbench
