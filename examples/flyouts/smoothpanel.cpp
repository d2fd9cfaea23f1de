// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "smoothpanel.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QProgressBar>
#include <QSlider>

SmoothPanel::SmoothPanel(QWidget *parent)
    : QWidget(parent)
    , m_passes(new QSlider(Qt::Horizontal, this))
    , m_progress(new QProgressBar(this))
{
    m_passes->setRange(1, 400);
    m_passes->setObjectName(QStringLiteral("passes"));
    auto *const value = new QLabel(this);
    value->setAlignment(Qt::AlignTrailing);
    connect(m_passes, &QSlider::valueChanged, value, qOverload<int>(&QLabel::setNum));
    connect(this, &SmoothPanel::ResetValues, m_passes,
            [this] { m_passes->setValue(SmoothSettings().passes); });
    Q_EMIT ResetValues();
    m_progress->setRange(0, 100);
    m_progress->setTextVisible(false);

    auto *const rows = new QFormLayout(this);
    rows->addRow(tr("Passes"), m_passes);
    rows->addRow(QString(), value);
    rows->addRow(tr("Done"), m_progress);
    setMinimumWidth(260);
}

int SmoothPanel::passes() const
{
    return m_passes->value();
}

void SmoothPanel::setProgress(double share)
{
    m_progress->setValue(qRound(100.0 * share));
}

SmoothDetails::SmoothDetails(QWidget *parent)
    : QWidget(parent)
    , m_keepsRim(new QCheckBox(tr("Leave the rim alone"), this))
    , m_keepsVolume(new QCheckBox(tr("Keep the volume"), this))
{
    auto *const rows = new QVBoxLayout(this);
    rows->addWidget(m_keepsRim);
    rows->addWidget(m_keepsVolume);
    reset();
}

bool SmoothDetails::keepsRim() const
{
    return m_keepsRim->isChecked();
}

bool SmoothDetails::keepsVolume() const
{
    return m_keepsVolume->isChecked();
}

void SmoothDetails::reset()
{
    m_keepsRim->setChecked(SmoothSettings().keepsRim);
    m_keepsVolume->setChecked(SmoothSettings().keepsVolume);
}
