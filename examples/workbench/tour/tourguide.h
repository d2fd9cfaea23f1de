// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"
#include "tour/tourreport.h"

#include <QEvent>
#include <QHash>
#include <QImage>
#include <QObject>

#include <functional>

class QDialog;

namespace Vela::UiBase {
class CommandBase;
class NotificationBar;
} // namespace Vela::UiBase

namespace Workbench {

class MainWindow;
class MeshView;
class MeshViewController;
struct Options;

/// The class of @p command with its namespace, as the trace has it.
QString classNameOf(const Vela::UiBase::CommandBase &command);

/// What the stretches of a tour need: a hand on the mouse and the commands, an eye on the window,
/// and the report.
class TourGuide : public QObject
{
    Q_OBJECT

public:
    TourGuide(MainWindow &window, const Options &options);
    ~TourGuide() override;

    MainWindow &window() const { return m_window; }
    MeshViewController &controller() const;
    MeshView &view() const;
    const Mesh &mesh() const;
    /// The file that the tour is about.
    const QString &file() const { return m_file; }

    void note(const QString &key, const QJsonValue &value) { m_report.note(key, value); }
    void begin(const QString &title);
    void check(const QString &claim, bool holds);
    /// Lets the window come to rest and keeps a picture of it.
    void finishWithPicture();
    /// Writes the report. @return whether everything held
    bool finish() { return m_report.finish(); }

    /// Runs the event loop until @p isReached; false when that takes longer than anything here may.
    bool waitUntil(const std::function<bool()> &isReached, int milliseconds = 60'000);
    /// Lets the window lay out, paint and present what changed.
    void settle();
    bool isSettled() const;
    /// Whether there is OpenGL, and so a view to look at.
    bool hasGraphics() const;

    void runAndWait(Vela::UiBase::CommandBase &command);
    void openAndWait(const QString &path);
    /// How many runs of the class of @p command have ended.
    int endsOf(const Vela::UiBase::CommandBase &command) const;
    /// Has @p answer deal with the next dialog that comes up, once it is on the screen.
    void answerDialog(const std::function<void(QDialog &)> &answer);

    /// Presses @p button over the view at @p from and moves to @p to in some steps.
    void dragTo(const QPoint &from, const QPoint &to, Qt::MouseButton button);
    /// Releases @p button at @p position.
    void release(const QPoint &position, Qt::MouseButton button);
    void click(const QPoint &position);
    void turnWheel(const QPoint &position, int notches);
    void pressKey(QWidget &widget, int key);
    /// Moves the pointer itself to @p position in @p widget, in small steps, as a hand does.
    void pointAt(const QWidget &widget, const QPoint &position);

    QImage windowPicture() const;
    QImage viewPicture() const;
    /// The same without a message over it, which is made to go.
    QImage viewPictureAtRest();
    /// Checks that between @p lowest and @p highest of the view's picture is not as in @p before.
    void checkViewChanged(const QString &claim, const QImage &before, double lowest,
                          double highest);
    void checkStatus();
    void checkCursor(const QString &claim, Qt::CursorShape shape);

    /// Whether the whole of @p widget, which is in a window over this one, is on the screen.
    bool isSeen(QWidget &widget) const;

    /// The bar over the view; null before the first message.
    Vela::UiBase::NotificationBar *bar() const;
    /// Whether its box is on the screen: light, with nothing of the view before it.
    bool isBarSeen() const;
    /// What it says, or an empty text.
    QString barText() const;
    /// What it said when the latest run ended, before it told of that.
    const QString &barTextDuringRun() const { return m_barTextDuringRun; }
    /// Whether all commands that change the mesh were disabled then.
    bool wereEditsHeld() const { return m_wereEditsHeld; }

private:
    void hearEnd(const Vela::UiBase::CommandBase &command);
    void sendMouse(QEvent::Type type, const QPoint &position, Qt::MouseButton button,
                   Qt::MouseButtons buttons);

    MainWindow &m_window;
    const QString m_file;
    TourReport m_report;
    QHash<QString, int> m_ends; // how many runs of each class ended
    int m_endCount = 0;
    QString m_barTextDuringRun;
    bool m_wereEditsHeld = false;
};

} // namespace Workbench
