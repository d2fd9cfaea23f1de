// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QStringList>

namespace Vela::UiBase::Internal {

/// A label for wrapped plain text that never shows half a glyph: a word that is wider than the label
/// is shortened in its middle, and of lines that find no room the last one shown ends in an ellipsis.
/// text() stays whole. Style sheets and Qt know it as a QLabel.
class MessageLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString fittingWords(const QString &words) const;
    QStringList fittingLines() const;
};

} // namespace Vela::UiBase::Internal
