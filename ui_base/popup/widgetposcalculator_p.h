// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/widgetposcalculator.h"

#include <QPointer>

namespace Vela::UiBase {

/// The state of a WidgetPosCalculator. A subclass with other defaults derives from this and sets
/// them in its constructor, before the calculator takes it over.
class LUMO_UI_BASE_EXPORT WidgetPosCalculatorPrivate
{
public:
    WidgetPosCalculatorPrivate();
    virtual ~WidgetPosCalculatorPrivate();

    QPointer<QWidget> widget;
    QPointer<QWidget> refWidget;
    QPoint refPoint;
    bool useRefWidget = true;
    QList<EDirection> directions {EDirection::Top};
    QRect maxAvailableRect;
    int baseOffset = 10;
    EWidgetsAlign alignment = EWidgetsAlign::AlignCenter;
    QPoint additionalOffset;
    EDirection direction = EDirection::NoDirection; ///< of the last candidate tried
    bool calcGlobalPos = false;
    QList<QPair<ArrowedWindow::SArrowParam, EDirection>> arrowParamPairs;

private:
    Q_DISABLE_COPY(WidgetPosCalculatorPrivate)
};

} // namespace Vela::UiBase
