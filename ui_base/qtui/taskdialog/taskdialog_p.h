// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/windowshape_p.h"
#include "ui_base/qtui/taskdialog/taskdialog.h"

#include <QPoint>
#include <QPointer>
#include <QRect>

class QLabel;
class QSpacerItem;

namespace Vela::UiToolkit {

namespace Ui {
class TaskDialog;
}

/// The state of a TaskDialog. A subclass with other measures derives from this and sets them in its
/// constructor, before the dialog takes it over.
class LUMO_UI_BASE_EXPORT TaskDialogPrivate
{
    Q_DECLARE_PUBLIC(TaskDialog)

public:
    TaskDialogPrivate();
    virtual ~TaskDialogPrivate();

    const std::unique_ptr<Ui::TaskDialog> ui;
    EDialogResult dialogResult = EDialogResult::Cancel;
    int titleBarHeight = 32;
    QPoint lastGlobalPos;
    bool moving = false;
    /// What the dialog is moved by, as it is where text runs from left to right.
    QRect titleBarRect;
    bool hasMessage = false;
    bool hasWidget = false;
    QPointer<QWidget> contentWidget;

protected:
    TaskDialog *q_ptr = nullptr;

private:
    friend class TaskDialog;

    void buildForm();
    void takeColors();
    void letMouseThrough();
    void castShadows();
    void buildAround(QWidget *content, bool fill);
    void buildMessage(const QString &title, const QString &message);
    void fillCard();
    void collapse(QSpacerItem *spacer);
    bool canHold(const QWidget *content) const;
    void takeIn(QWidget *content);
    void giveFocus();

    void setUpIcon();
    void nameSign(const QString &name);
    void setUpButtons();
    void setUpFaces();
    void retranslate();
    QPushButton *button(int index) const;

    void setUpWidth(int maxWidth, int minWidth);
    int widthOf(QLabel *label, bool *multiline) const;
    void breakLongWords(QLabel *label, int width) const;
    void fitSize();
    void mirrorMargins();
    void keepRoomForIcon();

    void updateTitleBar();
    void takeShape();
    bool isOnTitleBar(const QPoint &position) const;

    EDialogButtons buttons = EDialogButtons::ButtonsClose;
    EDialogIcon icon = EDialogIcon::IconNone;
    QList<SIconButton> faces;
    QString formTitle;
    bool isMirrored = false;
    int marginBehindText = 0; ///< as the form has it; known while it is mirrored
    UiBase::Internal::WindowShape shape;

    Q_DISABLE_COPY(TaskDialogPrivate)
};

} // namespace Vela::UiToolkit
