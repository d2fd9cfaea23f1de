// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tour/tourguide.h"

#include "commandclock.h"
#include "commands/opencommand.h"
#include "controllers/meshviewcontroller.h"
#include "mainwindow.h"
#include "meshdocument.h"
#include "options.h"
#include "statusline.h"
#include "tour/picture.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <ui_base/NotificationBar>

#include <QApplication>
#include <QCursor>
#include <QDeadlineTimer>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>

namespace Workbench {

using Vela::UiBase::CommandBase;
using Vela::UiBase::NotificationBar;

QString classNameOf(const CommandBase &command)
{
    return QString::fromLatin1(command.metaObject()->className());
}

TourGuide::TourGuide(MainWindow &window, const Options &options)
    : m_window(window)
    , m_file(options.file)
    , m_report(options.tourFolder)
{
    connect(&window.clock(), &CommandClock::ended, this,
            [this](const CommandBase *command) { hearEnd(*command); });
}

TourGuide::~TourGuide() = default;

/// The clock hears of an end before the controller does.
void TourGuide::hearEnd(const CommandBase &command)
{
    ++m_ends[classNameOf(command)];
    ++m_endCount;
    m_barTextDuringRun = barText();
    const auto edits = m_window.commands().edits();
    m_wereEditsHeld = std::none_of(edits.begin(), edits.end(),
                                   [](const CommandBase *edit) { return edit->isEnabled(); });
}

MeshViewController &TourGuide::controller() const
{
    return *m_window.pane().controller();
}

MeshView &TourGuide::view() const
{
    return *m_window.pane().view();
}

const Mesh &TourGuide::mesh() const
{
    return m_window.document().mesh();
}

void TourGuide::begin(const QString &title)
{
    m_report.beginStep(title);
}

void TourGuide::check(const QString &claim, bool holds)
{
    m_report.check(claim, holds);
}

void TourGuide::finishWithPicture()
{
    settle();
    // A message that has just come is black until its window is painted. What covers it, such as a
    // dialog, is no reason to wait for ever.
    const auto isPainted = [this] {
        return !m_window.pane().view() || !bar() || !bar()->isShowing() || isBarSeen();
    };
    if (hasGraphics())
        waitUntil(isPainted, 3'000);
    m_report.savePicture(windowPicture());
}

bool TourGuide::waitUntil(const std::function<bool()> &isReached, int milliseconds)
{
    // What the screen shows changes without an event, so the condition is looked at now and then.
    QTimer pulse;
    pulse.start(20);
    const QDeadlineTimer deadline(milliseconds);
    while (!isReached()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        // No event loop runs that would do it.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void TourGuide::settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    check(tr("the view presents what changed"), waitUntil([this] { return isSettled(); }));
}

bool TourGuide::isSettled() const
{
    const auto views = m_window.findChildren<MeshView *>();
    return !hasGraphics() || std::none_of(views.begin(), views.end(), [](const MeshView *view) {
        return view->isVisible() && view->isFrameDue();
    });
}

bool TourGuide::hasGraphics() const
{
    return m_window.pane().message().isEmpty();
}

void TourGuide::runAndWait(CommandBase &command)
{
    const int before = m_endCount;
    command.trigger();
    check(tr("%1 ends").arg(command.iconText()),
          waitUntil([this, before] { return m_endCount > before; }));
    check(tr("the status line names %1").arg(command.iconText()),
          m_window.statusLine().commandText().startsWith(command.iconText()));
    settle();
}

void TourGuide::openAndWait(const QString &path)
{
    const OpenCommand &open = *m_window.commands().open;
    const int before = endsOf(open);
    m_window.openFile(path);
    check(tr("Open ends"), waitUntil([&] { return endsOf(open) > before; }));
    settle();
}

int TourGuide::endsOf(const CommandBase &command) const
{
    return m_ends.value(classNameOf(command));
}

void TourGuide::answerDialog(const std::function<void(QDialog &)> &answer)
{
    auto *pulse = new QTimer(this);
    connect(pulse, &QTimer::timeout, this, [pulse, answer] {
        auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->windowHandle() || !dialog->windowHandle()->isExposed())
            return;
        pulse->stop();
        pulse->deleteLater();
        answer(*dialog);
    });
    pulse->start(20);
}

void TourGuide::sendMouse(QEvent::Type type, const QPoint &position, Qt::MouseButton button,
                          Qt::MouseButtons buttons)
{
    QMouseEvent event(type, position, view().mapToGlobal(position), button, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&view(), &event);
}

void TourGuide::dragTo(const QPoint &from, const QPoint &to, Qt::MouseButton button)
{
    constexpr int steps = 8;
    sendMouse(QEvent::MouseButtonPress, from, button, button);
    for (int step = 1; step <= steps; ++step)
        sendMouse(QEvent::MouseMove, from + (to - from) * step / steps, Qt::NoButton, button);
}

void TourGuide::release(const QPoint &position, Qt::MouseButton button)
{
    sendMouse(QEvent::MouseButtonRelease, position, button, Qt::NoButton);
}

void TourGuide::click(const QPoint &position)
{
    sendMouse(QEvent::MouseButtonPress, position, Qt::LeftButton, Qt::LeftButton);
    release(position, Qt::LeftButton);
}

void TourGuide::turnWheel(const QPoint &position, int notches)
{
    QWheelEvent event(position, view().mapToGlobal(position), QPoint(), QPoint(0, 120 * notches),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&view(), &event);
}

void TourGuide::pressKey(QWidget &widget, int key)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

void TourGuide::pointAt(const QWidget &widget, const QPoint &position)
{
    constexpr int steps = 10;
    const QPoint from = QCursor::pos();
    const QPoint to = widget.mapToGlobal(position);
    for (int step = 1; step <= steps; ++step) {
        const QPoint next = from + (to - from) * step / steps;
        QCursor::setPos(next);
        check(tr("the pointer follows"), waitUntil([&] { return QCursor::pos() == next; }));
    }
}

QImage TourGuide::windowPicture() const
{
    return m_window.screen()->grabWindow(m_window.winId()).toImage();
}

QImage TourGuide::viewPicture() const
{
    const QImage picture = windowPicture();
    const ViewPane &pane = m_window.pane();
    const QRectF place(pane.mapTo(&m_window, QPoint(0, 0)), QSizeF(pane.size()));
    const qreal ratio = picture.devicePixelRatio();
    return picture.copy(QRectF(place.topLeft() * ratio, place.size() * ratio).toAlignedRect());
}

QImage TourGuide::viewPictureAtRest()
{
    controller().hideNotification();
    check(tr("no message is over the view"),
          waitUntil([this] { return !bar() || !(bar()->isVisible() || isBarSeen()); }));
    // What was below it is there with the next frame.
    view().requestFrame();
    settle();
    return viewPicture();
}

void TourGuide::checkViewChanged(const QString &claim, const QImage &before, double lowest,
                                 double highest)
{
    if (!hasGraphics())
        return;
    const auto isChanged = [&] {
        const double share = changedShare(before, viewPicture());
        return share >= lowest && share <= highest;
    };
    check(claim, waitUntil(isChanged, 10'000));
}

void TourGuide::checkStatus()
{
    const QLocale locale;
    const QString text = m_window.statusLine().meshText();
    check(tr("the status line tells the size of the mesh"),
          mesh().isEmpty() ? text == QLatin1String("No mesh is open")
                           : text.contains(locale.toString(mesh().positions.size()))
                  && text.contains(locale.toString(mesh().faces.size())));
}

void TourGuide::checkCursor(const QString &claim, Qt::CursorShape shape)
{
    check(claim, view().cursor().shape() == shape);
}

NotificationBar *TourGuide::bar() const
{
    // The one of the comparison would stand deeper.
    for (NotificationBar *bar : view().findChildren<NotificationBar *>())
        return bar;
    return nullptr;
}

bool TourGuide::isBarSeen() const
{
    if (!hasGraphics() || !bar())
        return false;
    const QPoint inTheBox = bar()->mapToGlobal({8, bar()->height() - 8});
    const QImage pixel =
        m_window.screen()->grabWindow(0, inTheBox.x(), inTheBox.y(), 1, 1).toImage();
    return qGray(pixel.pixel(0, 0)) >= 240;
}

bool TourGuide::isSeen(QWidget &widget) const
{
    constexpr double corners = 0.01; // rounded, with what is below them
    const QRect place(widget.mapToGlobal(QPoint(0, 0)), widget.size());
    const QPixmap screen =
        m_window.screen()->grabWindow(0, place.x(), place.y(), place.width(), place.height());
    return !hasGraphics() || changedShare(screen.toImage(), widget.grab().toImage()) < corners;
}

QString TourGuide::barText() const
{
    if (!m_window.pane().view() || !bar())
        return {};
    const auto *const label = bar()->findChild<QLabel *>();
    return label ? label->text() : QString();
}

} // namespace Workbench
