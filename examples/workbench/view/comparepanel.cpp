// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/comparepanel.h"

#include "closebutton.h"
#include "language.h"
#include "view/meshview.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace Workbench {
namespace {

QLabel *makeTitle(const std::function<QString()> &text)
{
    auto *title = new QLabel;
    inEveryLanguage(*title, [title, text] { title->setText(text()); });
    title->setObjectName(QStringLiteral("title"));
    title->setContentsMargins(12, 6, 12, 6);
    return title;
}

} // namespace

ComparePanel::ComparePanel(const std::shared_ptr<CameraRig> &rig, QWidget *parent)
    : QWidget(parent)
{
    // It is shown over a native view, which no other kind of widget can cover.
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    m_before = new MeshView(rig, this);
    m_after = new MeshView(rig, this);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(1);
    grid->setVerticalSpacing(0);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->addWidget(makeTitle([] { return tr("Before"); }), 0, 0);
    grid->addWidget(makeHeader(), 0, 1);
    grid->addWidget(m_before, 1, 0);
    grid->addWidget(m_after, 1, 1);
}

QWidget *ComparePanel::makeHeader()
{
    auto *header = new QWidget;
    auto *line = new QHBoxLayout(header);
    line->setContentsMargins(0, 0, 6, 0);
    line->addWidget(makeTitle([] { return tr("After"); }), 1);
    QToolButton *close = makeCloseButton([] { return tr("Close the comparison"); }, header);
    connect(close, &QToolButton::clicked, this, &ComparePanel::closeRequested);
    line->addWidget(close);
    return header;
}

void ComparePanel::setAppearance(const Appearance &appearance)
{
    m_before->setAppearance(appearance);
    m_after->setAppearance(appearance);
}

} // namespace Workbench
