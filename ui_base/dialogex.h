// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QDialog>

#include <memory>

namespace Vela::UiBase {

class DialogExPrivate;

/// A dialog without a title bar of the window system, which the user moves by a bar along its top
/// and, if it is made so, resizes by a grip in its bottom right corner. What it shows is up to its
/// owner, who lays widgets out on it and leaves bar and grip free, or lets the mouse through there.
///
/// At least 300 by 300 pixels in size. Owned as any dialog, by its parent or by its maker. Main
/// thread only. For a message or a question there is UiToolkit::TaskDialog.
///
/// docs/dialogs.md tells more.
class LUMO_UI_BASE_EXPORT DialogEx : public QDialog
{
    Q_OBJECT

public:
    /// @param parent the window that the dialog stands before; null makes one on its own
    /// @param resizable whether it has a grip. With one it has no frame at all, without one it keeps
    ///                  the thin frame that some window systems give to such windows
    DialogEx(QWidget *parent, bool resizable);
    ~DialogEx() override;

    /// Turns on mouse tracking and the filling of the background, and sets the least size of 300 by
    /// 300. The constructor has called it; again it undoes what was changed since.
    void Initialize();

    /// Sets where the bar ends, in pixels from the top, 32 at first. It begins 10 pixels below the
    /// top, so it is 10 pixels less high than that; at 10 and less there is none.
    void SetMoveBarHeight(int height);

    /// Sets whether Escape, Return and Enter do what they do in any dialog, as they do at first.
    /// With false they do nothing, and only the owner closes the dialog.
    void SetDismissByDefaultEvents(bool dismiss);
    /// Whether Escape, Return and Enter do what they do in any dialog.
    bool DismissByDefaultEvents() const;

    /// With true, turns on mouse tracking of the direct child widgets that there are, so that the
    /// cursor over the grip and back shows while the mouse moves over those. False does nothing.
    void EnableMouseTracking(bool enable);

    /// For an owner who installs the dialog as a filter on a child: marks a press of Return or Escape
    /// as ignored before the child gets it, so that it goes on to the dialog unless the child
    /// accepts it.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the dialog
    DialogEx(DialogExPrivate &dd, QWidget *parent);

    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

    /// Owned by the dialog; what subclasses cast to their own.
    const std::unique_ptr<DialogExPrivate> d_ptr;

private:
    Q_DECLARE_PRIVATE(DialogEx)
    Q_DISABLE_COPY(DialogEx)
};

} // namespace Vela::UiBase
