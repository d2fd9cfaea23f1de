// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "relief.h"

#include <QWidget>

/// Shows a relief as large as it fits.
class ReliefView : public QWidget
{
    Q_OBJECT

public:
    explicit ReliefView(QWidget *parent = nullptr);

    const Relief &relief() const { return m_relief; }
    void setRelief(const Relief &relief);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Relief m_relief;
    QImage m_picture;
};
