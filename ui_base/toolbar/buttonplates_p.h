// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>
#include <QPoint>
#include <QSize>
#include <QStyle>

#include <vector>

class QPainter;
class QStyleOptionToolButton;
class QToolButton;

namespace Vela::UiBase::Internal {

/// What the style sheet of tool buttons paints below their icons, once for each state. To work it out
/// for each painting costs several times as much as all the rest. Good for buttons that the style
/// sheets treat alike, as those of one bar, and that show nothing but an icon.
class ButtonPlates
{
public:
    /// Whether paint() will do without the style of @p button, but for drawing the icon.
    bool know(const QPainter &painter, const QStyleOptionToolButton &option,
              const QToolButton &button) const;
    /// Paints @p button as its style would.
    /// @param option as QToolButton::initStyleOption() gives it
    /// @return false, with nothing painted, where the style paints something else
    bool paint(QPainter &painter, const QStyleOptionToolButton &option, const QToolButton &button);
    /// Forgets all, as after a change of style.
    void clear();

private:
    struct SKind
    {
        const QMetaObject *ofClass = nullptr;
        QSize size;
        QStyle::State state;
        qreal ratio = 1;

        bool operator==(const SKind &other) const
        {
            return ofClass == other.ofClass && size == other.size && state == other.state
                && ratio == other.ratio;
        }
    };

    struct SPlate
    {
        void paint(QPainter &painter, const QStyleOptionToolButton &option,
                   const QToolButton &button) const;

        SKind kind;
        QPixmap ground; // null when there is nothing to be seen
        QPoint shift;   // of the icon
        bool isFaithful = false;
    };

    static SKind kindOf(const QPainter &painter, const QStyleOptionToolButton &option,
                        const QToolButton &button);
    const SPlate *find(const SKind &kind) const;
    const SPlate &make(const SKind &kind, const QStyleOptionToolButton &option,
                       const QToolButton &button);

    std::vector<SPlate> m_plates;
};

} // namespace Vela::UiBase::Internal
