// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"
#include "tour/tourreport.h"

#include <QHash>
#include <QImage>
#include <QObject>

#include <functional>

class QMenu;

namespace Vela::UiBase {
class CommandBase;
}

namespace Workbench {

class MainWindow;
class Tracing;
struct Options;

/// Uses the workbench by itself as a user would, checks after each step what he would see and what
/// the document says, and keeps a picture of it.
///
/// It never waits for a time: each step goes on when the run that it began has ended and the view
/// has presented it. Where there is no OpenGL, the checks of the view's picture give way to the one
/// that the window says so.
class Tour : public QObject
{
    Q_OBJECT

public:
    /// @param tracing what writes the runs to a file, so that the tour can compare; may be null
    Tour(MainWindow &window, const Options &options, Tracing *tracing);
    ~Tour() override;

    /// Takes the tour and closes the window. Needs the application, and runs its event loop.
    /// @return the exit code of the process: 0 when everything was as it should be
    int run();

private:
    void begin(const QString &title);
    void check(const QString &claim, bool holds);
    void finishWithPicture();

    void showStart();
    void openFirst();
    void useCommands();
    void showMenu();
    void toggleWireframe();
    void flipTwice();
    void smooth();
    void subdivide();
    void refuseBadFiles();
    void refuse(const QString &title, const QString &path);
    void openDuringRun();
    void closeDuringRun();
    void compareTrace();

    /// Runs the event loop until @p isReached; false when that takes longer than anything here may.
    bool waitUntil(const std::function<bool()> &isReached, int milliseconds = 60'000);
    void settle();
    bool isSettled() const;
    bool hasGraphics() const;
    void runAndWait(Vela::UiBase::CommandBase &command);
    void openAndWait(const QString &path);
    void checkMenu(const QMenu &menu);

    QImage windowPicture() const;
    QImage viewPicture() const;
    /// Checks that between @p lowest and @p highest of the view's picture is not as in @p before.
    void checkViewChanged(const QString &claim, const QImage &before, double lowest,
                          double highest);
    void checkStatus();
    const Mesh &mesh() const;

    MainWindow &m_window;
    Tracing *const m_tracing;
    const QString m_file;
    const QString m_traceFile;
    TourReport m_report;
    QHash<QString, int> m_ends; // how many runs of each class ended
    int m_endCount = 0;
    QImage m_emptyView;
};

} // namespace Workbench
