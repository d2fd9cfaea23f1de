// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>
#include <QSize>
#include <QStyle>

#include <vector>

class QPainter;
class QStyleOptionToolButton;
class QToolButton;

namespace Vela::UiBase::Internal {

/// What the style sheet of tool buttons paints below their icons, once for each state. To work it out
/// for each painting costs several times as much as all the rest. Good for buttons that have the same
/// style sheet, as those of one bar, and show nothing but an icon.
class ButtonPlates
{
public:
    /// Paints @p button as its style would.
    /// @param option as QToolButton::initStyleOption() gives it
    /// @return false, with nothing painted, where the style paints something else
    bool paint(QPainter &painter, const QStyleOptionToolButton &option, const QToolButton &button);
    /// Forgets all, as after a change of style.
    void clear();

private:
    struct SPlate
    {
        QSize size;
        QStyle::State state;
        qreal ratio = 1;
        QPixmap picture; // null when there is nothing to be seen
        bool isFaithful = false;
    };

    const SPlate &plateOf(const QStyleOptionToolButton &option, const QToolButton &button,
                          qreal ratio);

    std::vector<SPlate> m_plates;
};

} // namespace Vela::UiBase::Internal
