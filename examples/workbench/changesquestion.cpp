// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "changesquestion.h"

#include <QCoreApplication>
#include <QIcon>
#include <QMessageBox>
#include <QPushButton>

namespace Workbench {
namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("Workbench::ChangesQuestion", source);
}

} // namespace

EChanges askAboutChanges(QWidget *window, const QString &fileName)
{
    QMessageBox box(window);
    box.setWindowTitle(text("Unsaved Changes"));
    box.setText(text("%1 was changed.").arg(fileName));
    box.setInformativeText(text("The changes are lost unless they are saved."));
    const QIcon icon(QStringLiteral(":/resources/images/sys_message_box_question.png"));
    box.setIconPixmap(icon.pixmap(window->windowHandle(), QSize(40, 40)));
    box.addButton(text("Save As..."), QMessageBox::AcceptRole);
    const QPushButton *discard = box.addButton(text("Discard"), QMessageBox::DestructiveRole);
    QPushButton *cancel = box.addButton(text("Cancel"), QMessageBox::RejectRole);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == discard)
        return EChanges::Discard;
    return box.clickedButton() == cancel ? EChanges::Keep : EChanges::Save;
}

} // namespace Workbench
