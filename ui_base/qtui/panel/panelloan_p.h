// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

#include <initializer_list>
#include <utility>
#include <vector>

namespace Vela::UiBase::Internal {

/// Gives panels back to their parents unless it is told that what took them was made.
class PanelLoan
{
public:
    explicit PanelLoan(std::initializer_list<QWidget *> panels)
    {
        for (QWidget *const panel : panels) {
            if (panel)
                m_panels.push_back({panel, panel->parentWidget()});
        }
    }
    ~PanelLoan()
    {
        for (const auto &[panel, parent] : m_panels) {
            if (panel && panel->parentWidget() != parent)
                panel->setParent(parent);
        }
    }
    void keep() { m_panels.clear(); }

    Q_DISABLE_COPY(PanelLoan)

private:
    std::vector<std::pair<QPointer<QWidget>, QPointer<QWidget>>> m_panels;
};

} // namespace Vela::UiBase::Internal
