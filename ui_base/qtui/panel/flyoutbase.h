// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/direction.h"
#include "ui_base/uibaseexport.h"

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

#include <memory>

class QGraphicsDropShadowEffect;
class QLabel;
class QLayoutItem;
class QPushButton;
class QToolButton;

namespace Vela::UiBase {

class FlyoutBasePrivate;

/// The standard settings panel: a title row, the caller's main panel, an advanced panel that folds,
/// a button for information and a row of cancel and apply buttons. It does nothing with the
/// settings: it reports what the user did, and its owner acts.
///
/// The panel is always exactly as large as what it shows, so that the frame around it, an
/// ArrowedWindow or a dialog, can follow FlyoutResized(). Use a plain dialog for what interrupts
/// the user; a flyout is shown and hidden many times without being made anew.
///
/// QtUiToolkit::CreateFlyout() makes one. It owns both panels; the owner of the flyout is its
/// parent, or the caller where it has none. Main thread only. The slots whose names begin with
/// "on_" are found by these names, as the object names of the buttons are: both are interface.
///
/// docs/flyouts.md tells more.
class LUMO_UI_BASE_EXPORT FlyoutBase : public QWidget
{
    Q_OBJECT

public:
    ~FlyoutBase() override;

    /// The panel of settings; null once it has died.
    QWidget *MainPanel() const;
    /// The panel that folds; null when there is none or it has died.
    QWidget *AdvancedPanel() const;
    /// What the information button shows; null when nothing was set or it has died.
    /// \sa EnableInfoButton()
    QWidget *InfoDialog() const;

    /// The button that opens this flyout, kept for the owner; null by default and once it has died.
    QToolButton *ToolButton() const;
    /// \sa ToolButton()
    void SetToolButton(QToolButton *button);

    /// The text of the title row.
    QString Title() const;
    /// Sets the text of the title row, of the window title and of the name for assistive tools.
    void SetTitle(const QString &title);

    /// Whether the close button is there, also while the flyout is hidden.
    bool IsCloseButtonVisible() const;
    /// \sa IsCloseButtonVisible()
    void SetCloseButtonVisible(bool visible);
    /// Whether the reset button is there, also while the flyout is hidden.
    bool IsResetButtonVisible() const;
    /// \sa IsResetButtonVisible()
    void SetResetButtonVisible(bool visible);
    /// Shows or hides the apply button. Without both it and the cancel button their row takes up no
    /// room.
    void SetApplyButtonVisible(bool visible);
    /// Shows or hides the cancel button; see SetApplyButtonVisible().
    void SetCancelButtonVisible(bool visible);
    /// Replaces the text "Apply".
    void SetApplyButtonText(const QString &text);
    /// Replaces the text "Cancel".
    void SetCancelButtonText(const QString &text);
    /// Enables or disables the apply button.
    void SetApplyButtonEnabled(bool enabled);
    /// Makes the apply button the one to cancel with in busy mode; off by default. Hides the cancel
    /// button for either value, since in this mode there is one button only.
    /// \sa OnEnterBusyMode()
    void SetToggleApplyButtonEnabled(bool enabled);

    /// Lists a side panel that stands beside the flyout, so that a WidgetPosCalculator leaves room
    /// for it while it is visible. The list is the flyout's dynamic property "sub_widgets" and is
    /// written anew: it holds what @p w carries in a property of that name, and @p w. Earlier
    /// entries go. Nothing is written when @p w lists itself. An entry that dies leaves the list.
    /// @param w stays the caller's; its property "direction_to" is set. Null is ignored
    /// @param direction the side of the flyout that it stands at
    void AddSubWidget(QWidget *w, EDirection direction);
    /// Replaces the list of side panels by what @p w carries in its property "sub_widgets", which
    /// for an ordinary widget empties it. Nothing is written when @p w lists itself. Null is
    /// ignored.
    void RemoveSubWidget(QWidget *w);

    /// Sets what the information button shows and hides, hides it, and lists it as a side panel at
    /// the bottom.
    /// @param enable whether the button is there. When @p w is an InfoDialog, its
    ///               VisibilityChanged() is passed on as SubWidgetVisibilityChanged(), once however
    ///               often this is called, or not any more
    /// @param w stays the caller's; null is ignored
    void EnableInfoButton(bool enable, QWidget *w);
    /// Moves the information widget to 5 pixels beneath the bottom left corner of the flyout.
    void SetInfoWidgetPos();
    /// Moves an InfoDialog to the bottom of the frame around the flyout and fits it to the width.
    /// Does nothing for another information widget. The owner of the frame calls it after moving.
    /// @param bounds geometry of the frame, in coordinates of the information widget's parent
    /// @param frame the outline in the frame, in coordinates of the frame
    void SetBounds(const QRect &bounds, const QRect &frame);

    /// Has each showing move the flyout, or its parent if it has one, to the lower right of a
    /// point; along each axis on which it would not fit, to the other side of the point.
    /// @param global the point on the screen, or in coordinates of the flyout's place when there is
    ///               no widget to map it to
    /// @param refWidget the widget to stay within; null takes the parent of the flyout
    /// @param offset distance from the point along both axes
    void SetReferencePoint(const QPoint &global, QWidget *refWidget, const QPoint &offset);
    /// Works the place out.
    /// @param out receives the top left corner in coordinates of the reference widget; untouched on
    ///            failure
    /// @return false without a living reference widget
    bool GetPositionOnReferencePoint(QPoint &out) const;

    /// The index of @p item in the column of the flyout, the layout "mainLayout"; -1 when it is not
    /// there or null.
    int FindItemIndexInLayout(QLayoutItem *item) const;

public Q_SLOTS:
    /// Hides the flyout and emits CloseFlyout() if it was visible; a hidden one stays silent.
    void CloseMe();
    /// Begins long work: disables the close and cancel buttons that are visible, and the apply
    /// button, or has it read as the cancel button does when it toggles. Emits EnterBusyMode(). The
    /// flyout stays open.
    /// \sa SetToggleApplyButtonEnabled()
    void OnEnterBusyMode();
    /// Ends long work: enables the buttons, gives the apply button its text back and emits
    /// ExitBusyMode().
    void OnExitBusyMode();

Q_SIGNALS:
    /// The flyout was visible and has been closed.
    void CloseFlyout();
    /// The user asks for the settings as they were at first.
    void ResetValues();
    /// The user cancels: the changes, after the flyout has been hidden, or the work in busy mode.
    void CancelChanges();
    /// The user applies the settings. The flyout stays open.
    void ApplyChanges();
    /// Busy mode has begun.
    void EnterBusyMode();
    /// Busy mode has ended.
    void ExitBusyMode();
    /// The flyout has another size.
    void FlyoutResized();
    /// The information dialog was shown or hidden.
    void SubWidgetVisibilityChanged(bool visible);
    /// For hosted panels to emit: the frame is to paint a band of another colour.
    /// \sa ArrowedWindow::SetPartialBackgroundColor()
    void SetPartialBackgroundColor(bool showColor, QRect rc, QColor color);
    /// For hosted panels to emit: Escape was released in one.
    void ESCKeyReleased();

protected:
    /// The button that closes, for the dialog around the flyout.
    QToolButton *GetCloseButton() const;
    /// The button that resets, for the dialog around the flyout.
    QToolButton *GetResetButton() const;
    /// The label of the title, for the dialog around the flyout.
    QLabel *GetTitleLabel() const;
    /// The part of the title row that the flyout may be dragged by, in its coordinates: from where
    /// reading starts to the first of the reset and close buttons.
    QRect GetTitleRegionForMoving() const;

    /// Shows or hides the cancel or apply button @p button, and the row of both. A shown one has a
    /// shadow. Null is ignored.
    void SetButtonVisible(QPushButton *button, bool visible);
    /// Closes the advanced panel if it was visible, else opens it.
    void SetAdvancedPanel(bool wasVisible);
    /// Switches @p effect on, as a glow of 5 pixels all around. Null is ignored.
    static void SetShadow(QGraphicsDropShadowEffect *&effect);

    /// Escape closes a flyout that is set to; none is by default.
    void keyReleaseEvent(QKeyEvent *event) override;
    /// Emits FlyoutResized().
    void resizeEvent(QResizeEvent *event) override;
    /// Shows the main panel, fits the size, moves to the reference point and takes the focus, from
    /// where Tab goes through the panels to the buttons below them, and then to the title row.
    /// Without a main panel nothing happens.
    void showEvent(QShowEvent *event) override;
    /// Hides the information widget too.
    void hideEvent(QHideEvent *event) override;
    /// Tab doesn't stop at the flyout itself, only at what is in it.
    void focusInEvent(QFocusEvent *event) override;
    /// On a change of language the form's own texts follow; those the host has set stay.
    void changeEvent(QEvent *event) override;

protected Q_SLOTS:
    /// The same as CloseMe().
    void on_close_button_clicked();
    /// Emits ResetValues().
    void on_reset_button_clicked();
    /// Hides the flyout, then emits CancelChanges().
    void on_cancel_button_clicked();
    /// Emits ApplyChanges(); in busy mode, when the button toggles, disables it and emits
    /// CancelChanges().
    void on_apply_button_clicked();
    /// Opens or closes the advanced panel.
    void on_advanced_button_clicked();
    /// Shows or hides the information widget.
    void on_info_button_clicked();

private:
    friend class MDialogBase;
    friend class QtUiToolkit;
    friend class FlyoutBasePrivate;

    FlyoutBase(const QString &title, QWidget *mainPanel, QWidget *advancedPanel, bool closeButton,
               bool cancelButton, bool applyButton, bool resetButton, QWidget *parent);
    FlyoutBase(QWidget *parent, const QString &title, QWidget *mainPanel, const QString &infoText,
               bool closeButton, bool cancelButton, bool applyButton, bool resetButton,
               QWidget *advancedPanel);

    void RelayInfoDialog(QWidget *w, bool enable);

    const std::unique_ptr<FlyoutBasePrivate> d;
    Q_DISABLE_COPY(FlyoutBase)
};

} // namespace Vela::UiBase
