// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace Lumo::Test {

/// A widget that stands on a screen with a device pixel ratio of the test's choice.
class RatioWidget : public QWidget
{
public:
    explicit RatioWidget(qreal ratio)
        : m_ratio(ratio)
    { }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        if (metric == PdmDevicePixelRatio)
            return int(m_ratio);
        if (metric == PdmDevicePixelRatioScaled)
            return int(m_ratio * devicePixelRatioFScale());
        return QWidget::metric(metric);
    }

private:
    const qreal m_ratio;
};

} // namespace Lumo::Test
