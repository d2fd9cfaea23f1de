// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <functional>

class QCheckBox;
class QFormLayout;
class QSlider;

namespace Workbench {

/// Settings in rows, which go back to where they began when ResetValues() is emitted, as the reset
/// button of a flyout does.
class SettingsPanel : public QWidget
{
    Q_OBJECT

public:
    /// A text in the present language.
    using Text = std::function<QString()>;

    SettingsPanel();

    /// What brings the content of a main panel in line with the title and the buttons of its flyout.
    static QMargins margins() { return {2, 0, 2, 0}; }

    /// Makes it the advanced panel of a flyout, which leaves no room at the sides of that.
    void useAsDetails();

    /// Adds a slider. @param text what is shown for a value
    QSlider *addSlider(const Text &label, int lowest, int highest, int value,
                       const std::function<QString(int)> &text);
    /// Adds a box to check.
    QCheckBox *addBox(const Text &label, bool isChecked);

Q_SIGNALS:
    void ResetValues();

private:
    QFormLayout *const m_rows;
};

} // namespace Workbench
