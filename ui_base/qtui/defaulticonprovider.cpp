// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/defaulticonprovider.h"

#include "ui_base/qtui/devicepixmap_p.h"

#include <QAction>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <QTextStream>
#include <QVariant>

namespace Vela::UiBase {
namespace {

constexpr char typeProperty[] = "icon_type";
constexpr char normalProperty[] = "icon_normal_resource";
constexpr char activeProperty[] = "icon_active_resource";

// Icons above this size count as of this size when sizes are compared.
constexpr QSize probeSize(300, 300);

QString suffixOf(EIconType type)
{
    switch (type) {
    case EIconType::IconPng:
        return QStringLiteral(".png");
    case EIconType::IconSvg:
        return QStringLiteral(".svg");
    }
    return {};
}

QString pathOf(const QString &name, QLatin1String stateText, EIconType type)
{
    const QString base = QStringLiteral(":/resources/images/");
    const QString suffix = suffixOf(type);
    if (name.endsWith(suffix, Qt::CaseInsensitive)) // as every name does with an empty suffix
        return base + name;
    const QString candidate = base + name + stateText + suffix;
    return QFile::exists(candidate) ? candidate : QString();
}

void remember(QAction &action, EIconType type, const QString &normal, const QString &active)
{
    action.setProperty(typeProperty, int(type));
    action.setProperty(normalProperty, normal);
    action.setProperty(activeProperty, active.isEmpty() ? QVariant() : QVariant(active));
}

QSize probedSize(const QIcon &icon)
{
    const QSize size = icon.actualSize(probeSize, QIcon::Normal);
    return size.isEmpty() ? icon.actualSize(probeSize, QIcon::Active) : size;
}

QByteArray readText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QTextStream stream(&file);
    stream.setCodec("UTF-8"); // else the user's locale decides
    return stream.readAll().toUtf8();
}

QString renderedKey(const QString &path, const QByteArray &svg, const QSize &size, qreal ratio)
{
    return Internal::pictureKey(path, svg)
        + QStringLiteral("_%1x%2_%3").arg(size.width()).arg(size.height()).arg(ratio);
}

} // namespace

class DefaultIconProviderPrivate
{
public:
    QPixmap svgPixmap(const QString &path, const QSize &size, qreal ratio);
    QIcon svgIcon(const QString &normal, const QString &active, const QSize &size, qreal ratio);

private:
    QPixmap render(const QByteArray &svg, const QSize &size, qreal ratio);

    QSvgRenderer &renderer();

    // Made on first use, so that a provider without an application is no more than memory.
    std::unique_ptr<QSvgRenderer> m_renderer;
};

QSvgRenderer &DefaultIconProviderPrivate::renderer()
{
    if (!m_renderer) {
        m_renderer = std::make_unique<QSvgRenderer>();
        // An animated drawing would keep a timer running for as long as it stays loaded.
        m_renderer->setFramesPerSecond(0);
    }
    return *m_renderer;
}

QPixmap DefaultIconProviderPrivate::svgPixmap(const QString &path, const QSize &size, qreal ratio)
{
    if (path.isEmpty())
        return {};
    const QByteArray svg = readText(path);
    // A bitmap inside a drawing may be a file that changes.
    if (svg.contains("image"))
        return render(svg, size, ratio);
    const QString key = renderedKey(path, svg, size, ratio);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = render(svg, size, ratio);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

QPixmap DefaultIconProviderPrivate::render(const QByteArray &svg, const QSize &size, qreal ratio)
{
    QSvgRenderer &svgRenderer = renderer();
    svgRenderer.load(svg);
    const QSize logical = size == QSize() ? svgRenderer.defaultSize() : size;
    QImage image(Internal::physicalSize(logical, ratio), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    QPainter painter(&image);
    svgRenderer.render(&painter);
    painter.end();
    QPixmap pixmap = QPixmap::fromImage(std::move(image));
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

QIcon DefaultIconProviderPrivate::svgIcon(const QString &normal, const QString &active,
                                          const QSize &size, qreal ratio)
{
    return Internal::iconOf(svgPixmap(normal, size, ratio), svgPixmap(active, size, ratio));
}

DefaultIconProvider::DefaultIconProvider()
    : d(std::make_unique<DefaultIconProviderPrivate>())
{ }

DefaultIconProvider::~DefaultIconProvider() = default;

QIcon DefaultIconProvider::CreateIcon(const QString &name, QAction *action, EIconType type,
                                      const QSize &size) const
{
    if (!qGuiApp)
        return {};
    const QString normal = pathOf(name, QLatin1String("_normal"), type);
    const QString active = pathOf(name, QLatin1String("_active"), type);
    if (action)
        remember(*action, type, normal, active);
    const qreal ratio =
        action ? Internal::devicePixelRatioFor(*action) : Internal::highestDevicePixelRatio();
    if (type == EIconType::IconPng)
        return Internal::iconOf(Internal::loadPixmap(normal, ratio),
                                Internal::loadPixmap(active, ratio));
    return size.isEmpty() ? QIcon() : d->svgIcon(normal, active, size, ratio);
}

QIcon DefaultIconProvider::CreateIcon(const QString &name) const
{
    return CreateIcon(name, nullptr, EIconType::IconPng, QSize());
}

void DefaultIconProvider::UpdateIconSize(QAction *action, const QSize &size)
{
    if (!action || !qGuiApp)
        return;
    const bool isBitmap = action->property(typeProperty).toInt() == int(EIconType::IconPng);
    if (isBitmap && probedSize(action->icon()) == size)
        return;
    const QString normal = action->property(normalProperty).toString();
    if (normal.isEmpty())
        return;
    const QString active = action->property(activeProperty).toString();
    const qreal ratio = Internal::devicePixelRatioFor(*action);
    const auto scaled = [&](const QString &path) {
        return Internal::fitted(Internal::loadPixmap(path, ratio), size, ratio);
    };
    action->setIcon(isBitmap ? Internal::iconOf(scaled(normal), scaled(active))
                             : d->svgIcon(normal, active, size, ratio));
}

QIcon DefaultIconProvider::UpdateIconSize(const QIcon &icon, const QSize &size)
{
    const QSize actual = probedSize(icon);
    if (actual == size || !qGuiApp)
        return icon;
    const qreal ratio = Internal::highestDevicePixelRatio();
    const QPixmap normal = Internal::pixmapOf(icon, actual, ratio, QIcon::Normal);
    if (normal.isNull())
        return icon;
    const QPixmap active = Internal::pixmapOf(icon, actual, ratio, QIcon::Active);
    return Internal::iconOf(Internal::fitted(normal, size, ratio),
                            Internal::fitted(active, size, ratio));
}

} // namespace Vela::UiBase
