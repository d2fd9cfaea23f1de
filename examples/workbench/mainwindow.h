// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "appmanager.h"
#include "menu/recentfiles.h"

#include <ui_base/TaskDialog>

#include <QMainWindow>
#include <QPointer>

namespace Workbench {

class CommandBars;
class CommandClock;
class ImageDocument;
class ImagePage;
class MainMenu;
class MeshDocument;
class MeshViewController;
class StatusLine;
class ViewPane;

/// The window: menus, the view with the bars around it of the mesh or an image in its place, and the
/// status line. A dialog tells of a problem until it is closed or a file is opened.
///
/// Closing it asks about unsaved changes. During a run it then cancels the run, takes the window
/// from the screen at once and lets it close when the run has ended, so that no work is left when
/// the process ends.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// Begins to open the mesh or, by the ending of its name, the image at @p path.
    void openFile(const QString &path);

    const CommandSet &commands() const { return m_manager->commandSet(); }
    const std::shared_ptr<MessageLog> &log() const { return m_manager->log(); }
    Preferences &preferences() const { return *m_manager->preferences(); }
    CommandClock &clock() const { return *m_clock; }
    MeshDocument &document() const { return *m_document; }
    ImageDocument &images() const { return *m_images; }
    CommandBars &bars() const { return *m_bars; }
    MainMenu &menu() const { return *m_menu; }
    RecentFiles &recentFiles() { return m_recent; }
    StatusLine &statusLine() const { return *m_status; }
    ViewPane &pane() const { return *m_pane; }
    /// The dialog that tells of the latest problem; null while there is none.
    Vela::UiToolkit::TaskDialog *problem() const;
    ImagePage &imagePage() const { return *m_imagePage; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildLayout();
    void connectMenu();
    void connectDocument();
    void connectImages();
    void connectClock();
    void applyPreferences();

    void openRecent(const QString &path);
    QString chooseFile();
    QString chooseTarget();
    QString chooseImage();
    bool mayLoseChanges();
    void tellProblem(const QString &text);
    void handleOpened();
    void handleImageOpened();
    void handleEnded(Vela::UiBase::CommandBase *command, qint64 microseconds);
    bool isShowingImage() const;
    void showImage(bool show);
    void showSizes();
    void showTitle();
    void updateEnabled();
    void updateEnabledLater();
    void closePanels();
    void cancelRuns();

    const std::shared_ptr<MeshDocument> m_document;
    const std::shared_ptr<ImageDocument> m_images;
    const std::shared_ptr<CommandClock> m_clock;
    const std::unique_ptr<AppManager> m_manager;
    ViewPane *const m_pane;
    std::unique_ptr<CommandBars> m_bars;
    ImagePage *const m_imagePage;
    StatusLine *const m_status;
    RecentFiles m_recent;
    MainMenu *const m_menu;
    QPointer<Vela::UiToolkit::TaskDialog> m_problem;
    bool m_isClosing = false;
};

} // namespace Workbench
