// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QDialog>
#include <QList>
#include <QString>

#include <memory>

class QPushButton;

namespace Vela::UiToolkit {

class TaskDialogPrivate;

/// The buttons of a TaskDialog, from the reading start on; what affirms stands last.
enum class EDialogButtons : int {
    ButtonsClose = 0,       ///< Close, which gives EDialogResult::Cancel
    ButtonsOk = 1,          ///< OK
    ButtonsYesNo = 2,       ///< No, Yes
    ButtonsYesNoCancel = 3, ///< Cancel, No, Yes
    ButtonsOkCancel = 4,    ///< Cancel, OK
    ButtonsCustom1 = 5,     ///< one without a face of its own
    ButtonsCustom2 = 6,     ///< two without faces of their own
    ButtonsCustom3 = 7,     ///< three without faces of their own
    ButtonsCustom4 = 8      ///< four without faces of their own
};

/// How a TaskDialog was left.
enum class EDialogResult : int {
    None = 0,    ///< by a button that has no result
    Ok = 1,      ///< by OK
    Cancel = 2,  ///< by Cancel, Close, the cross, Escape, or not at all yet
    Yes = 3,     ///< by Yes
    No = 4,      ///< by No
    Custom1 = 5, ///< by the first custom button
    Custom2 = 6, ///< by the second custom button
    Custom3 = 7, ///< by the third custom button
    Custom4 = 8  ///< by the fourth custom button
};

/// The sign beside the title of a TaskDialog.
enum class EDialogIcon : int {
    IconError = 0,       ///< something failed
    IconWarning = 1,     ///< the same sign as IconExclamation
    IconInformation = 2, ///< something to know
    IconNone = 3,        ///< no sign, and no room for one; so does a value that is no enumerator
    IconQuestion = 4,    ///< something to decide
    IconCritical = 5,    ///< the same sign as IconError
    IconExclamation = 6  ///< something may go wrong
};

/// Another face for a button of a TaskDialog.
struct SIconButton
{
    QString icon; ///< path of a picture, such as ":/images/save.png", of which save@2x.png is taken
                  ///< on a screen of ratio 2; empty keeps the icon
    QString text; ///< empty keeps the text
};

/// A message, a question, or a widget of the caller's on a card with up to four buttons below it. It
/// has no frame of the window system: the user moves it by the upper 32 pixels of the card.
///
/// The helpers show a dialog, wait for the answer and return it:
///
/// @code
/// using namespace Vela::UiToolkit;
/// const auto answer = TaskDialog::showQuestionMessage(
///     this, tr("Close the mesh?"), tr("It has changes that are not saved."),
///     EDialogButtons::ButtonsYesNoCancel);
/// if (answer == EDialogResult::Yes)
///     saveMesh();
/// @endcode
///
/// exec() returns QDialog::Accepted for Ok and Yes alone; all other results, those of custom buttons
/// included, close by reject(), so callers ask dialogResult().
///
/// Return presses the button that has the focus, else the first one; Escape leaves as the cross
/// does. Assistive tools get title and message as name and description of the dialog. The texts of
/// the library's own follow a change of language while the dialog is shown; the caller's stay.
///
/// Title and message may be rich text. In plain texts every line break of Unicode breaks the line.
/// Lines are wrapped at the greatest width, and a word that is longer than a line, such as a path, is
/// broken. The width follows these texts; a button text that does not fit into it ends in an ellipsis
/// and is whole in the tool tip.
///
/// The style sheet of the dialog reaches the labels, frames and buttons of a widget in it, whose
/// own sheet wins over it. A dialog takes its colours from Resource::Styles when it is made.
///
/// Owned as any dialog, by its parent or by its maker. Main thread only; the helpers wait in an
/// event loop of their own.
///
/// docs/dialogs.md shows it.
class LUMO_UI_BASE_EXPORT TaskDialog : public QDialog
{
    Q_OBJECT

public:
    /// A dialog around a widget.
    /// @param parent the window that the dialog stands before; null makes one on its own
    /// @param content becomes a child of the dialog; null leaves the place to setWidget(). One that
    ///                the dialog would stand in itself is ignored
    /// @param fill whether the widget gets the whole card, without margins
    /// @param buttons a value that is no enumerator leaves four buttons without text and result
    /// @param icon the sign at the left of the widget
    /// @param faces other faces for the buttons, by position; what is over is ignored
    TaskDialog(QWidget *parent, QWidget *content, bool fill, EDialogButtons buttons,
               EDialogIcon icon, const QList<SIconButton> &faces = {});

    /// A dialog with a title and a message.
    ///
    /// It is as wide as the longest line of both needs, within the two limits, which are logical
    /// pixels of the whole dialog; the least wins over the greatest.
    /// @param parent the window that the dialog stands before; null makes one on its own
    /// @param title the text in larger letters
    /// @param message the text below it; empty makes a dialog with a title only
    /// @param buttons a value that is no enumerator leaves four buttons without text and result
    /// @param icon the sign at the left of the title
    /// @param faces other faces for the buttons, by position; what is over is ignored
    /// @param maxWidth 0 is no limit; a long line then makes a very wide dialog
    /// @param minWidth 0 is no limit, so that a short title makes a very narrow dialog
    TaskDialog(QWidget *parent, const QString &title, const QString &message,
               EDialogButtons buttons, EDialogIcon icon, const QList<SIconButton> &faces = {},
               int maxWidth = 600, int minWidth = 350);

    /// A dialog with a title only; the parameters are those of the form with a message.
    TaskDialog(QWidget *parent, const QString &title, EDialogButtons buttons, EDialogIcon icon,
               const QList<SIconButton> &faces = {}, int maxWidth = 600, int minWidth = 350);

    ~TaskDialog() override;

    /// @name Helpers
    /// Each shows a modal dialog, returns when it was left, and answers how. The parameters are
    /// those of the constructors. EDialogResult::Cancel when @p parent dies meanwhile.
    /// @{

    /// A message with the sign @p icon.
    static EDialogResult showMessage(QWidget *parent, const QString &title, const QString &message,
                                     EDialogButtons buttons, EDialogIcon icon,
                                     const QList<SIconButton> &faces = {}, int maxWidth = 600,
                                     int minWidth = 350);
    /// A title with the sign @p icon.
    static EDialogResult showMessage(QWidget *parent, const QString &title, EDialogButtons buttons,
                                     EDialogIcon icon, const QList<SIconButton> &faces = {},
                                     int maxWidth = 600, int minWidth = 350);

    /// A message with the sign of EDialogIcon::IconError.
    static EDialogResult showErrorMessage(QWidget *parent, const QString &title,
                                          const QString &message, EDialogButtons buttons,
                                          const QList<SIconButton> &faces = {}, int maxWidth = 600,
                                          int minWidth = 350);
    /// A title with the sign of EDialogIcon::IconError.
    static EDialogResult showErrorMessage(QWidget *parent, const QString &title,
                                          EDialogButtons buttons,
                                          const QList<SIconButton> &faces = {}, int maxWidth = 600,
                                          int minWidth = 350);

    /// A message with the sign of EDialogIcon::IconExclamation.
    static EDialogResult showWarningMessage(QWidget *parent, const QString &title,
                                            const QString &message, EDialogButtons buttons,
                                            const QList<SIconButton> &faces = {},
                                            int maxWidth = 600, int minWidth = 350);
    /// A title with the sign of EDialogIcon::IconExclamation.
    static EDialogResult showWarningMessage(QWidget *parent, const QString &title,
                                            EDialogButtons buttons,
                                            const QList<SIconButton> &faces = {},
                                            int maxWidth = 600, int minWidth = 350);

    /// A message with the sign of EDialogIcon::IconQuestion.
    static EDialogResult showQuestionMessage(QWidget *parent, const QString &title,
                                             const QString &message, EDialogButtons buttons,
                                             const QList<SIconButton> &faces = {},
                                             int maxWidth = 600, int minWidth = 350);
    /// A title with the sign of EDialogIcon::IconQuestion.
    static EDialogResult showQuestionMessage(QWidget *parent, const QString &title,
                                             EDialogButtons buttons,
                                             const QList<SIconButton> &faces = {},
                                             int maxWidth = 600, int minWidth = 350);

    /// A dialog around @p content, which is deleted with it.
    static EDialogResult showWidget(QWidget *parent, QWidget *content, bool fill,
                                    EDialogButtons buttons, EDialogIcon icon,
                                    const QList<SIconButton> &faces = {});
    /// @}

    /// How the dialog was left; EDialogResult::Cancel at first.
    EDialogResult dialogResult() const;

    /// Enables or disables the button at @p index, 0 to 3; other values do nothing.
    void enableButton(int index, bool enable);

    /// Replaces the widget of a dialog that was made around one, also with null, and fits the size.
    ///
    /// Nothing happens in a dialog with a title, for null, for the present widget, and for one that
    /// the dialog stands in or has made itself.
    /// @param widget becomes a child of the dialog. The one before it is deleted at once, so nothing
    ///               that it is in the middle of sending may call this directly
    void setWidget(QWidget *widget);

public Q_SLOTS:
    /// Enables or disables the first button.
    void onButton1Enabled(bool enable);
    /// Enables or disables the second button.
    void onButton2Enabled(bool enable);
    /// Enables or disables the third button.
    void onButton3Enabled(bool enable);
    /// Enables or disables the fourth button.
    void onButton4Enabled(bool enable);

protected:
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the dialog
    TaskDialog(TaskDialogPrivate &dd, QWidget *parent, QWidget *content, bool fill,
               EDialogButtons buttons, EDialogIcon icon, const QList<SIconButton> &faces);
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the dialog
    TaskDialog(TaskDialogPrivate &dd, QWidget *parent, const QString &title, const QString &message,
               EDialogButtons buttons, EDialogIcon icon, const QList<SIconButton> &faces,
               int maxWidth, int minWidth);
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the dialog
    TaskDialog(TaskDialogPrivate &dd, QWidget *parent, const QString &title, EDialogButtons buttons,
               EDialogIcon icon, const QList<SIconButton> &faces, int maxWidth, int minWidth);

    void changeEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

protected Q_SLOTS:
    /// Leaves the dialog as cancelled.
    void on_closebutton_clicked();
    /// Leaves the dialog with the result of the first button.
    void on_button_1_clicked();
    /// Leaves the dialog with the result of the second button.
    void on_button_2_clicked();
    /// Leaves the dialog with the result of the third button.
    void on_button_3_clicked();
    /// Leaves the dialog with the result of the fourth button.
    void on_button_4_clicked();

protected:
    /// Owned by the dialog; what subclasses cast to their own.
    const std::unique_ptr<TaskDialogPrivate> d_ptr;

private:
    void connectSignalSlots();
    void onButtonClicked(QPushButton *button);

    Q_DECLARE_PRIVATE(TaskDialog)
    Q_DISABLE_COPY(TaskDialog)
};

} // namespace Vela::UiToolkit
