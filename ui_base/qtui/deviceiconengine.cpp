// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/deviceiconengine_p.h"

#include "ui_base/qtui/devicepixmap_p.h"

#include <QApplication>
#include <QDataStream>
#include <QIODevice>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

namespace Vela::UiBase::Internal {
namespace {

int areaOf(const QSize &size)
{
    return size.width() * size.height();
}

QIcon::State opposite(QIcon::State state)
{
    return state == QIcon::On ? QIcon::Off : QIcon::On;
}

QSize boundedIn(const QSize &size, const QSize &bound)
{
    const bool fits = size.width() <= bound.width() && size.height() <= bound.height();
    return fits ? size : size.scaled(bound, Qt::KeepAspectRatio);
}

QPixmap inMode(const QPixmap &pixmap, QIcon::Mode mode)
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return pixmap;
    QStyleOption option;
    const QPixmap styled = QApplication::style()->generatedIconPixmap(mode, pixmap, &option);
    return styled.isNull() ? pixmap : styled;
}

QString cacheKey(const QPixmap &source, const QSize &size, QIcon::Mode mode)
{
    return QStringLiteral("lumo_icon_%1_%2x%3_%4_%5")
        .arg(source.cacheKey(), 0, 16)
        .arg(size.width())
        .arg(size.height())
        .arg(int(mode))
        .arg(QGuiApplication::palette().cacheKey(), 0, 16);
}

} // namespace

void DeviceIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode,
                             QIcon::State state)
{
    const QPaintDevice *device = painter->device();
    const qreal ratio = device ? device->devicePixelRatioF() : highestDevicePixelRatio();
    painter->drawPixmap(rect, pixmap(physicalSize(rect.size(), ratio), mode, state));
}

QSize DeviceIconEngine::actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    const SPicture *picture = bestFor(physicalSize(size, highestDevicePixelRatio()), mode, state);
    return picture ? boundedIn(picture->logicalSize, size) : QSize();
}

QPixmap DeviceIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    const SPicture *picture = bestFor(size, mode, state);
    if (!picture)
        return {};
    const QSize target = boundedIn(picture->pixmap.size(), size);
    const QIcon::Mode shown = picture->mode == mode ? QIcon::Normal : mode;
    const QString key = cacheKey(picture->pixmap, target, shown);
    QPixmap result;
    if (QPixmapCache::find(key, &result))
        return result;
    result = inMode(picture->pixmap.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation),
                    shown);
    QPixmapCache::insert(key, result);
    return result;
}

void DeviceIconEngine::addPixmap(const QPixmap &pixmap, QIcon::Mode mode, QIcon::State state)
{
    if (pixmap.isNull())
        return;
    m_pictures.push_back({pixmap, logicalSize(pixmap), mode, state});
    m_pictures.back().pixmap.setDevicePixelRatio(1);
}

void DeviceIconEngine::addFile(const QString &fileName, const QSize &, QIcon::Mode mode,
                               QIcon::State state)
{
    addPixmap(QPixmap(fileName), mode, state);
}

QList<QSize> DeviceIconEngine::availableSizes(QIcon::Mode mode, QIcon::State state) const
{
    QList<QSize> sizes;
    for (const SPicture &picture : m_pictures) {
        if (picture.mode == mode && picture.state == state)
            sizes << picture.logicalSize;
    }
    return sizes;
}

QIconEngine *DeviceIconEngine::clone() const
{
    return new DeviceIconEngine(*this);
}

QString DeviceIconEngine::key() const
{
    // The key under which Qt streams an icon without a plugin.
    return QStringLiteral("QPixmapIconEngine");
}

bool DeviceIconEngine::write(QDataStream &out) const
{
    QByteArray streamed;
    QDataStream stream(&streamed, QIODevice::ReadWrite);
    stream.setVersion(out.version());
    stream << plainIcon();
    stream.device()->seek(0);
    QString plainKey;
    stream >> plainKey;
    const int start = int(stream.device()->pos());
    const int size = streamed.size() - start;
    return out.writeRawData(streamed.constData() + start, size) == size;
}

// Without a picture of its own each mode shows the normal one, else the active one. An icon has one
// of the two, if only for the other state.
const DeviceIconEngine::SPicture *DeviceIconEngine::bestFor(const QSize &pixels, QIcon::Mode mode,
                                                            QIcon::State state) const
{
    for (const QIcon::State tried : {state, opposite(state)}) {
        for (const QIcon::Mode standIn : {mode, QIcon::Normal, QIcon::Active}) {
            if (const SPicture *picture = bestExactly(pixels, standIn, tried))
                return picture;
        }
    }
    return nullptr;
}

// The smallest picture that is not too small, else the largest.
const DeviceIconEngine::SPicture *DeviceIconEngine::bestExactly(const QSize &pixels,
                                                                QIcon::Mode mode,
                                                                QIcon::State state) const
{
    const SPicture *best = nullptr;
    for (const SPicture &picture : m_pictures) {
        if (picture.mode != mode || picture.state != state)
            continue;
        const int area = areaOf(picture.pixmap.size());
        const int bestArea = best ? areaOf(best->pixmap.size()) : -1;
        const bool isEnough = area >= areaOf(pixels);
        const bool bestIsEnough = best && bestArea >= areaOf(pixels);
        if (!best || (isEnough && bestIsEnough ? area < bestArea : area > bestArea))
            best = &picture;
    }
    return best;
}

QIcon DeviceIconEngine::plainIcon() const
{
    QIcon icon;
    for (const SPicture &picture : m_pictures)
        icon.addPixmap(picture.pixmap, picture.mode, picture.state);
    return icon;
}

} // namespace Vela::UiBase::Internal
