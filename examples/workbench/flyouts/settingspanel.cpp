// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/settingspanel.h"

#include "language.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QSlider>

namespace Workbench {

SettingsPanel::SettingsPanel()
    : m_rows(new QFormLayout(this))
{
    m_rows->setContentsMargins(margins());
    setMinimumWidth(280);
}

void SettingsPanel::useAsDetails()
{
    constexpr int room = 7; // that the flyout has around its main panel
    m_rows->setContentsMargins(margins() + QMargins(room, 0, room, 0));
}

QSlider *SettingsPanel::addSlider(const Text &label, int lowest, int highest, int value,
                                  const std::function<QString(int)> &text)
{
    auto *const row = new QHBoxLayout;
    auto *const slider = new QSlider(Qt::Horizontal);
    auto *const shown = new QLabel;
    shown->setMinimumWidth(fontMetrics().horizontalAdvance(text(highest)) + 4);
    shown->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    row->addWidget(slider, 1);
    row->addWidget(shown);
    auto *const name = new QLabel;
    m_rows->addRow(name, row);
    slider->setRange(lowest, highest);
    connect(slider, &QSlider::valueChanged, shown,
            [shown, text](int now) { shown->setText(text(now)); });
    connect(this, &SettingsPanel::ResetValues, slider,
            [slider, value] { slider->setValue(value); });
    slider->setValue(value);
    inEveryLanguage(*slider, [=] {
        name->setText(label());
        slider->setAccessibleName(label());
        shown->setText(text(slider->value()));
    });
    return slider;
}

QCheckBox *SettingsPanel::addBox(const Text &label, bool isChecked)
{
    auto *const box = new QCheckBox;
    inEveryLanguage(*box, [box, label] { box->setText(label()); });
    m_rows->addRow(box);
    connect(this, &SettingsPanel::ResetValues, box,
            [box, isChecked] { box->setChecked(isChecked); });
    box->setChecked(isChecked);
    return box;
}

} // namespace Workbench
