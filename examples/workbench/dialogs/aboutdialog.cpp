// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/aboutdialog.h"

#include "dialogs/dialogparts.h"
#include "language.h"

#include <QBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace Workbench {
namespace {

const int dialogWidth = 380;
const QSize pictureSize(264, 165);

} // namespace

QString AboutDialog::description()
{
    return tr("<p>The workbench opens a mesh, shows it and changes it. It is the example that "
              "comes "
              "with lumo_ui_base: each thing that it does is a command, a tool, a view or a popup "
              "of "
              "that library.</p>"
              "<p>Meshes are read by assimp, work in the background runs on oneTBB, and everything "
              "that is seen stands on Qt %1.</p>"
              "<p>It may be used and copied under the terms of the MIT license.</p>")
        .arg(QLatin1String(qVersion()));
}

AboutDialog::AboutDialog(QWidget *parent)
    : DialogEx(parent, false)
{
    setObjectName(QStringLiteral("about_dialog"));
    auto *label = new QLabel(this);
    label->setObjectName(QStringLiteral("text"));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    auto *picture = new QLabel(this);
    picture->setAlignment(Qt::AlignCenter);
    picture->setPixmap(QIcon(QStringLiteral(":/workbench/pictures/shaded.png"))
                           .pixmap(parent ? parent->windowHandle() : nullptr, pictureSize));
    auto *close = new QPushButton(this);
    close->setObjectName(QStringLiteral("ok"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    QBoxLayout *column = dressUp(*this, [] { return tr("About Workbench"); });
    column->addWidget(picture);
    column->addWidget(label, 1);
    column->addWidget(close, 0, Qt::AlignTrailing);
    close->setFocus();
    inEveryLanguage(*this, [this, label, close] {
        label->setText(description());
        close->setText(tr("Close"));
        setAccessibleDescription(tr("The example that comes with lumo_ui_base."));
        resize(dialogWidth, layout()->totalHeightForWidth(dialogWidth));
    });
}

} // namespace Workbench
