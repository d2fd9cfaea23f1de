// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QIconEngine>
#include <QPixmap>

#include <vector>

namespace Vela::UiBase::Internal {

/// The engine of icons whose pictures have a device pixel ratio above 1. Qt's own engine takes the
/// pixels of such a picture for its size; this one answers actualSize() in logical pixels and gives
/// all pixels away where they are asked for: by pixmap() and when painting.
///
/// Pictures are looked up, scaled down and greyed as Qt's engine does it.
class DeviceIconEngine final : public QIconEngine
{
public:
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    /// @param size upper bound, in the pixels of the picture
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;

    void addPixmap(const QPixmap &pixmap, QIcon::Mode mode, QIcon::State state) override;
    /// Adds this very file. QIcon::addFile() calls it once more for the neighbour "@2x" or "@3x".
    void addFile(const QString &fileName, const QSize &size, QIcon::Mode mode,
                 QIcon::State state) override;

    /// The logical sizes.
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) const override;

    QIconEngine *clone() const override;

    /// Streams as an icon of Qt's own engine, so that any program can read it.
    QString key() const override;
    bool write(QDataStream &out) const override;

private:
    struct SPicture
    {
        QPixmap pixmap;    // its own device pixel ratio is 1
        QSize logicalSize; // what it takes up in the interface
        QIcon::Mode mode;
        QIcon::State state;
    };

    const SPicture *bestFor(const QSize &pixels, QIcon::Mode mode, QIcon::State state) const;
    const SPicture *bestExactly(const QSize &pixels, QIcon::Mode mode, QIcon::State state) const;
    QIcon plainIcon() const;

    std::vector<SPicture> m_pictures;
};

} // namespace Vela::UiBase::Internal
