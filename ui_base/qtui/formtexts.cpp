// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/formtexts_p.h"

#include <QVariant>

namespace Vela::UiBase::Internal {

void FormTexts::take(QWidget &form)
{
    takeFrom(form);
    const QList<QWidget *> children = form.findChildren<QWidget *>();
    for (QWidget *const child : children)
        takeFrom(*child);
}

void FormTexts::takeFrom(QWidget &widget)
{
    for (const char *const property : {"windowTitle", "text", "toolTip", "accessibleName"}) {
        const QString text = widget.property(property).toString();
        if (!text.isEmpty())
            m_texts.push_back({&widget, property, text});
    }
}

void FormTexts::translate(const std::function<void()> &retranslate)
{
    std::vector<QString> before;
    before.reserve(m_texts.size());
    for (const SText &text : m_texts)
        before.push_back(text.widget ? text.widget->property(text.property).toString() : QString());
    retranslate();
    for (std::size_t i = 0; i < m_texts.size(); ++i) {
        SText &text = m_texts[i];
        if (!text.widget)
            continue;
        const QString fresh = text.widget->property(text.property).toString();
        if (before[i] != text.ours)
            text.widget->setProperty(text.property, before[i]);
        text.ours = fresh;
    }
}

} // namespace Vela::UiBase::Internal
