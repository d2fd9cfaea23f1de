// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tour/picture.h"

#include <QColor>
#include <QImage>

#include <cstdlib>

namespace Workbench {
namespace {

bool isDifferent(QRgb one, QRgb other)
{
    constexpr int visible = 3; // of 255, in any channel
    return std::abs(qRed(one) - qRed(other)) > visible
        || std::abs(qGreen(one) - qGreen(other)) > visible
        || std::abs(qBlue(one) - qBlue(other)) > visible;
}

double meanLight(const QImage &picture, int row)
{
    double sum = 0.0;
    for (int x = 0; x < picture.width(); ++x)
        sum += qGray(picture.pixel(x, row)) / 255.0;
    return sum / picture.width();
}

} // namespace

double changedShare(const QImage &one, const QImage &other)
{
    if (one.isNull() || one.size() != other.size())
        return 1.0;
    qint64 changed = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            changed += isDifferent(one.pixel(x, y), other.pixel(x, y)) ? 1 : 0;
    }
    return double(changed) / (double(one.width()) * one.height());
}

double topLight(const QImage &picture)
{
    if (picture.isNull())
        return 0.0;
    return meanLight(picture, 0) - meanLight(picture, picture.height() - 1);
}

} // namespace Workbench
