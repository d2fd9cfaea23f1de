// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/framepicture_p.h"
#include "ui_base/qtui/keptshadow_p.h"

#include <QPointer>

namespace Vela::UiBase {

class ArrowedWindow;

namespace Internal {

/// The shadow of a window with an arrow. A window that is filled to its outline covers what the
/// outline says, whatever it contains: its shadow is known without a picture of it, and the window
/// paints itself as it does without a shadow.
class FrameShadow : public KeptShadow
{
public:
    FrameShadow(ArrowedWindowPrivate &frame, ArrowedWindow *window);

protected:
    void draw(QPainter *painter) override;

private:
    /// What the shadow was cast by, and how.
    struct SCaster
    {
        QPainterPath outline;
        QPen border;
        QSize size;
        QRect content;
        int ratio = 0;
        SLook look;

        bool operator==(const SCaster &other) const;
    };

    bool isKnown(const QPainter &painter) const;
    void cast(const SCaster &caster);

    ArrowedWindowPrivate &m_frame;
    const QPointer<ArrowedWindow> m_window;
    SCaster m_caster;
    // What is seen beside the content.
    PictureParts m_parts;
};

} // namespace Internal
} // namespace Vela::UiBase
