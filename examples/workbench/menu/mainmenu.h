// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/MenuBuilder>

#include <QPointer>

namespace Workbench {

class RecentFiles;
struct CommandSet;

/// The menus of the main window, which open under the pointer. The bar floats over the top of the
/// window, which keeps a margin free for it.
class MainMenu : public Vela::UiBase::MenuBuilder
{
    Q_OBJECT

public:
    /// @param window gets the margin; it has to live as long as the menu
    /// @param recent the files that are offered again; has to live as long as the menu
    MainMenu(QMainWindow &window, const CommandSet &commands, RecentFiles &recent);

    /// Adds an entry to the menu of the window that shows and hides @p panel.
    /// @return the entry, which the menu owns; its text is left to the caller
    QAction *addPanel(QWidget &panel);

    /// The names of the items, in their order: what they read in English, in whichever language.
    QStringList names() const;
    /// The menu of the item @p name; null when there is none.
    QMenu *menuOf(const QString &name) const;
    /// The menu of the recent files.
    QMenu *recentMenu() const;

    /// Keeps its place when the window changes.
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The user wants the recent file at @p path again.
    void recentChosen(const QString &path);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void buildFile(const CommandSet &commands);
    void buildEdit(const CommandSet &commands);
    void buildView(const CommandSet &commands);
    void buildRest(const CommandSet &commands);
    void levelRows();
    void speak();
    void fillRecent();
    void place();

    QMainWindow &m_window;
    RecentFiles &m_recent;
    QStringList m_names;
    QAction *m_quit = nullptr;
};

} // namespace Workbench
