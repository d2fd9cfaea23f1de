// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/dialogparts.h"

#include "closebutton.h"
#include "language.h"

#include <lumo_common_res/Styles>
#include <ui_base/DialogEx>

#include <QCoreApplication>
#include <QLabel>
#include <QTextDocument>
#include <QToolButton>
#include <QVBoxLayout>

namespace Workbench {
namespace {

const int titleHeight = 36;

QLabel *makeTitle(QWidget *parent)
{
    auto *title = new QLabel(parent);
    title->setObjectName(QStringLiteral("title"));
    // What is pressed there moves the dialog.
    title->setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont font = title->font();
    font.setPixelSize(16);
    title->setFont(font);
    return title;
}

} // namespace

QBoxLayout *dressUp(Vela::UiBase::DialogEx &dialog, const std::function<QString()> &title)
{
    QLabel *const label = makeTitle(&dialog);
    inEveryLanguage(dialog, [&dialog, label, title] {
        dialog.setWindowTitle(title());
        label->setText(title());
    });
    dialog.setStyleSheet(
        Vela::Resource::Styles::Instance().DialogGeneral().arg(dialog.objectName()));
    dialog.SetMoveBarHeight(titleHeight);
    QToolButton *close = makeCloseButton(
        [] { return QCoreApplication::translate("Workbench::Dialog", "Close"); }, &dialog);
    QObject::connect(close, &QToolButton::clicked, &dialog, &QDialog::reject);

    auto *const row = new QHBoxLayout;
    row->setContentsMargins(12, 0, 6, 0);
    row->addWidget(label, 1);
    row->addWidget(close);
    auto *const column = new QVBoxLayout;
    column->setContentsMargins(12, 0, 12, 12);
    column->setSpacing(8);
    auto *const all = new QVBoxLayout(&dialog);
    all->setContentsMargins(1, 6, 1, 1);
    all->setSpacing(6);
    all->addLayout(row);
    all->addLayout(column, 1);
    return column;
}

QString asWritten(const QString &text)
{
    return Qt::mightBeRichText(text) ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped())
                                     : text;
}

} // namespace Workbench
