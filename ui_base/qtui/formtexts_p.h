// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace Vela::UiBase::Internal {

/// Keeps the texts of a Designer form in the language of the application. What uic writes for that
/// would also bring back the texts that a host has replaced; these stay as they are.
class FormTexts
{
public:
    /// Notes the texts of the form. To be called when they are as Designer has them, which is right
    /// behind setupUi(). Widgets that die later are left out.
    void take(QWidget &form);

    /// Lets the texts follow a change of language.
    /// @param retranslate gives the whole form the texts of the present language
    void translate(const std::function<void()> &retranslate);

private:
    struct SText
    {
        QPointer<QWidget> widget;
        const char *property;
        QString ours;
    };

    void takeFrom(QWidget &widget);

    std::vector<SText> m_texts;
};

} // namespace Vela::UiBase::Internal
