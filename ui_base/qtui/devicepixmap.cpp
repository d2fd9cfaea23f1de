// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/devicepixmap_p.h"

#include "ui_base/qtui/deviceiconengine_p.h"
#include "ui_base/qtui/pngcheck_p.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QPixmapCache>
#include <QtMath>
#include <QWidget>

#include <algorithm>

namespace Vela::UiBase::Internal {
namespace {

QString variantOf(const QString &path, int factor)
{
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    QString variant = path;
    return variant.insert(dot < 0 ? path.size() : dot, QStringLiteral("@%1x").arg(factor));
}

QPixmap decoded(const QString &path, const QByteArray &contents)
{
    if (!isPng(contents))
        return QPixmap(path);
    QPixmap pixmap;
    if (isIntactPng(contents))
        pixmap.loadFromData(contents, "PNG");
    return pixmap;
}

// QPixmap(path) with a cache of its own, and silent where the file is damaged.
QPixmap loadIntact(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray contents = file.readAll();
    const QString key = pictureKey(path, contents);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = decoded(path, contents);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

// A picture that fills the room in its proportions has the ratio of the screen; a coarser one is
// enlarged to the room as far as a ratio of 1 allows.
qreal ratioThatFits(const QSize &pixmap, const QSize &room, qreal ratio)
{
    const qreal filled =
        std::max(qreal(pixmap.width()) / room.width(), qreal(pixmap.height()) / room.height());
    return std::max<qreal>(1, filled * ratio);
}

} // namespace

qreal highestDevicePixelRatio()
{
    return qGuiApp ? qGuiApp->devicePixelRatio() : 1;
}

qreal devicePixelRatioFor(const QWidget &widget)
{
    return std::max<qreal>(1, widget.devicePixelRatioF());
}

qreal devicePixelRatioFor(const QAction &action)
{
    const QList<QWidget *> widgets = action.associatedWidgets();
    if (widgets.isEmpty())
        return highestDevicePixelRatio();
    qreal ratio = 0;
    for (const QWidget *widget : widgets)
        ratio = std::max(ratio, devicePixelRatioFor(*widget));
    return ratio;
}

QSize physicalSize(const QSize &size, qreal ratio)
{
    return size * ratio;
}

QSize logicalSize(const QPixmap &pixmap)
{
    return pixmap.isNull() ? QSize() : pixmap.size() / pixmap.devicePixelRatio();
}

QString pictureKey(const QString &path, const QByteArray &contents)
{
    const uint hash = qHashBits(contents.constData(), std::size_t(contents.size()));
    return QLatin1String("lumo_") + QString::number(hash, 16) + QLatin1Char('_') + path;
}

QPixmap loadPixmap(const QString &path, qreal ratio)
{
    if (path.isEmpty() || !qGuiApp)
        return {};
    for (int factor = qCeil(ratio); factor > 1; --factor) {
        const QString variant = variantOf(path, factor);
        QPixmap pixmap = loadIntact(variant);
        if (pixmap.isNull())
            continue;
        pixmap.setDevicePixelRatio(factor);
        return pixmap;
    }
    return loadIntact(path);
}

QPixmap fitted(const QPixmap &pixmap, const QSize &size, qreal ratio)
{
    if (pixmap.isNull())
        return {};
    QPixmap result =
        pixmap.scaled(physicalSize(size, ratio), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    result.setDevicePixelRatio(ratio);
    return result;
}

QPixmap pixmapOf(const QIcon &icon, const QSize &size, qreal ratio, QIcon::Mode mode,
                 QIcon::State state)
{
    if (icon.isNull() || size.isEmpty() || !qGuiApp)
        return {};
    const QSize pixels = physicalSize(size, ratio);
    // Under Qt::AA_UseHighDpiPixmaps the icon answers with more than is asked for.
    QPixmap pixmap = icon.pixmap(pixels, mode, state);
    pixmap.setDevicePixelRatio(1);
    if (pixmap.width() > pixels.width() || pixmap.height() > pixels.height())
        pixmap = pixmap.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    pixmap.setDevicePixelRatio(ratioThatFits(pixmap.size(), pixels, ratio));
    return pixmap;
}

QIcon iconOf(const QPixmap &normal, const QPixmap &active, QIcon::State state)
{
    const bool isPlain = normal.devicePixelRatio() <= 1 && active.devicePixelRatio() <= 1;
    QIcon icon = isPlain ? QIcon() : QIcon(new DeviceIconEngine);
    icon.addPixmap(normal, QIcon::Normal, state);
    icon.addPixmap(active, QIcon::Active, state);
    return icon;
}

} // namespace Vela::UiBase::Internal
