// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "messagebanner.h"

#include "closebutton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace Workbench {
namespace {

const char *const look = R"(
    Workbench--MessageBanner {
        background: #FBEDED; border: none;
        border-left: 4px solid #E04343; border-bottom: 1px solid #EBC9C9;
    }
    QLabel { color: #404040; background: transparent; }
    QToolButton { border: none; border-radius: 3px; background: transparent; }
    QToolButton:hover { background: #F3D3D3; }
    QToolButton:pressed { background: #EBC0C0; }
)";

} // namespace

MessageBanner::MessageBanner(QWidget *parent)
    : QFrame(parent)
    , m_label(new QLabel(this))
{
    setStyleSheet(QString::fromLatin1(look));
    m_label->setWordWrap(true);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QToolButton *close = makeCloseButton(tr("Dismiss"), this);
    close->setObjectName(QStringLiteral("dismiss"));
    connect(close, &QToolButton::clicked, this, &MessageBanner::dismiss);

    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(12, 6, 6, 6);
    line->setSpacing(8);
    line->addWidget(m_label, 1);
    line->addWidget(close, 0, Qt::AlignTop);
    hide();
}

QString MessageBanner::message() const
{
    return m_label->text();
}

void MessageBanner::showMessage(const QString &text)
{
    m_label->setText(text);
    show();
}

void MessageBanner::dismiss()
{
    m_label->clear();
    hide();
}

} // namespace Workbench
