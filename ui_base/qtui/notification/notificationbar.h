// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QColor>
#include <QMetaType>
#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class NotificationBarPrivate;

/// How a notification comes, how long it stays and how it goes.
enum ENotificationFadeOption : int {
    eNotificationFadeInOut = 0, ///< fades in, stays for the interval, fades out
    eNotificationPulse = 1,     ///< fades in, pulses below a spinner until a new message, an empty
                                ///< text or the close button ends it
    eNotificationFadeOutOnly = 2, ///< is there at once, stays for the interval, fades out
    eNotificationNoFade = 3       ///< is there at once, stays for the interval, is gone at once
};

/// The message that floats near the bottom of a view: a box with a text or a widget, in its corner a
/// close button if asked for, and above it a round spinner while something goes on. It is centred,
/// 56 pixels above the bottom edge of its parent, and stays there when the parent is resized.
///
/// There is no queue. A new message replaces what is shown, whichever phase that is in, and fades in
/// from the opacity that is there. A message appears 100 milliseconds after it is asked for, when
/// layouts have settled. Pointing at a message that does not pulse keeps it, and brings a fading
/// one back, until the pointer leaves and another interval is over.
///
/// The bar is built hidden. It belongs to its parent, also when a FloatingLayer has lifted it above
/// that. It takes no focus. View controllers make one by themselves; see
/// BaseViewController::showNotification(), which also is the way for other threads. All else is for
/// the main thread only.
///
/// docs/notifications.md shows it.
class LUMO_UI_BASE_EXPORT NotificationBar : public QWidget
{
    Q_OBJECT
    /// Colour of the box; the pulse animates it.
    Q_PROPERTY(QColor BackColor READ BackColor WRITE SetBackColor)
    /// Angle of the spinner in degrees; an animation drives it.
    Q_PROPERTY(double SpinnerAngle READ SpinnerAngle WRITE SetSpinnerAngle)

public:
    /// @param parent the widget to float over, whose size is watched; null makes a window that
    ///               places itself nowhere
    explicit NotificationBar(QWidget *parent);
    ~NotificationBar() override;

    /// Shows a text in place of what is shown. It is plain text; words are wrapped at 600 pixels,
    /// and a longer one, such as a path, is shortened in its middle.
    ///
    /// An empty @p text makes the bar go as if its time were over.
    ///
    /// @param milliseconds how long it stays; nothing to eNotificationPulse. Less than 0 counts as 0
    /// @param showCloseButton whether the user gets a button to close it by
    void ShowSimpleText(const QString &text, ENotificationFadeOption fade, int milliseconds,
                        bool showCloseButton);

    /// Shows a widget in place of what is shown, in the size that it has, which becomes its fixed
    /// one; one that never got a size is shown in the one it prefers.
    ///
    /// @param control belongs to the bar from now on, which deletes it when other content takes its
    ///                place; so nothing that the control itself is in the middle of sending may
    ///                show other content directly. Null shows the present content once more, and
    ///                nothing when there is none
    /// @param milliseconds how long it stays; nothing to eNotificationPulse. Less than 0 counts as 0
    /// @param showCloseButton whether the user gets a button to close it by
    void ShowControl(QWidget *control, ENotificationFadeOption fade, int milliseconds,
                     bool showCloseButton);

    /// Whether a message is shown. True from its appearance to the beginning of its going, so false
    /// while it waits to appear and while it fades out.
    bool isShowing() const;

    /// Sets half the period of the pulse, and how long the present message stays from now on.
    /// Forgotten when the next message has had its time: the period is 3000 then.
    /// @param milliseconds less than 0 counts as 0
    void SetDismissInterval(int milliseconds);

    /// Sets the colour of the box. Each message starts from a colour of its own.
    void SetBackColor(QColor color);
    /// The colour that was set last.
    QColor BackColor() const;

    /// Gives the text its colour, 96, 96, 96, once more. The argument is not used: the colour of
    /// the text cannot be changed.
    void SetTextColor(QColor color);

    /// Replaces the content by a text and fits the size, without showing or hiding anything. An
    /// empty one is ignored.
    void SetSimpleText(QString text);

    /// Shows the spinner alone, without a box, and keeps it until this is called with false. It
    /// stands still; SetDeterministicSpinner() with SetSpinnerAngle() moves it. With false the box
    /// is there again, at the opacity that it had.
    void SetShowSpinnerOnly(bool on);

    /// Whether the spinner shows progress, a sector that begins at three o'clock and is as long as
    /// SpinnerAngle(), instead of a turning sector of constant length. Off again when a message
    /// goes.
    void SetDeterministicSpinner(bool on);

    /// Sets the diameter of the spinner in logical pixels, 48 by default; its parts keep their
    /// proportions. Less than 0 counts as 0, more than 4096 as 4096.
    void SetSpinnerSize(int size);

    /// Turns the sector of the spinner, or with SetDeterministicSpinner() sets its length.
    /// @param degrees clockwise from three o'clock as a length of progress, anticlockwise as a turn;
    ///                infinity and what is no number are ignored
    void SetSpinnerAngle(double degrees);
    /// The angle that was set last, 0 at first.
    double SpinnerAngle() const;

    /// The size of the present content with its box and the room for the spinner above it.
    QSize sizeHint() const override;

public Q_SLOTS:
    /// Makes a visible bar go as if its time were over.
    void DismissMe();

Q_SIGNALS:
    /// The visible message was pressed with any mouse button, beside its close button. Not emitted
    /// any more once the user has closed it.
    void mouseClicked();

protected:
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the bar
    NotificationBar(NotificationBarPrivate &dd, QWidget *parent);

    /// Replaces the content by @p control, which belongs to the bar from now on, and fits the size,
    /// without showing or hiding anything. Null, the bar itself, its own parts and a widget that the
    /// bar stands in are ignored.
    void SetControl(QWidget *control);

    void changeEvent(QEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

protected Q_SLOTS:
    /// The time of the message is over: it goes in the way of its option.
    void OnDismissTimerTimeOut();
    /// The message appears.
    void OnSwitchTimerTimeOut();
    /// The fade-out is over: hides the bar.
    void OnAnimationFinished();
    /// The user closes the message.
    void OnCloseButtonClicked();
    /// Fades out, always from full opacity, and hides the bar then.
    void HideMe();

protected:
    /// Owned by the bar; what subclasses cast to their own.
    const std::unique_ptr<NotificationBarPrivate> d_ptr;

private:
    Q_DECLARE_PRIVATE(NotificationBar)
    Q_DISABLE_COPY(NotificationBar)
};

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::ENotificationFadeOption)
