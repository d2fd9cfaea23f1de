// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "relief.h"

#include <QWidget>

class QCheckBox;
class QProgressBar;
class QSlider;

/// The settings that everybody looks at. A signal named ResetValues() is all it takes to hear of the
/// flyout's reset button.
class SmoothPanel : public QWidget
{
    Q_OBJECT

public:
    explicit SmoothPanel(QWidget *parent = nullptr);

    int passes() const;
    void setProgress(double share);

Q_SIGNALS:
    void ResetValues();

private:
    QSlider *const m_passes;
    QProgressBar *const m_progress;
};

/// The settings for those who know, which stay folded at first.
class SmoothDetails : public QWidget
{
    Q_OBJECT

public:
    explicit SmoothDetails(QWidget *parent = nullptr);

    bool keepsRim() const;
    bool keepsVolume() const;
    void reset();

private:
    QCheckBox *const m_keepsRim;
    QCheckBox *const m_keepsVolume;
};
