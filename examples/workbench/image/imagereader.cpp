// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imagereader.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QLocale>

#include <algorithm>

namespace Workbench {
namespace {

/// A gigabyte of pixels: more is a mistake or an attack.
constexpr qint64 mostPixels = 1 << 28;

qint64 pixelsOf(const QSize &size)
{
    return qint64(size.width()) * size.height();
}

} // namespace

QStringList ImageReader::suffixes()
{
    QStringList suffixes;
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    for (const QByteArray &format : formats)
        suffixes.append(QString::fromLatin1(format).toLower());
    return suffixes;
}

bool ImageReader::isImage(const QString &path)
{
    return suffixes().contains(QFileInfo(path).suffix().toLower());
}

QStringList ImageReader::seriesOf(const QString &path)
{
    const QFileInfo file(path);
    const QStringList known = suffixes();
    QStringList series;
    const QFileInfoList neighbours = file.absoluteDir().entryInfoList(QDir::Files);
    for (const QFileInfo &neighbour : neighbours) {
        if (neighbour.fileName() == file.fileName() || known.contains(neighbour.suffix().toLower()))
            series.append(neighbour.absoluteFilePath());
    }
    if (!series.contains(file.absoluteFilePath()))
        series.append(file.absoluteFilePath());
    // The locale "C" knows no numbers in names.
    const QLocale locale;
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setNumericMode(true);
    std::sort(series.begin(), series.end(), collator);
    return series;
}

/// Why @p path can't be read without looking inside, or an empty text.
QString ImageReader::obstacle(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return tr("there is no such file");
    if (file.isDir())
        return tr("it is a folder");
    if (!file.isReadable())
        return tr("you are not allowed to read it");
    if (file.size() == 0)
        return tr("it is empty");
    return {};
}

ImageResult ImageReader::read(const QString &path)
{
    const auto refused = [&path](const QString &reason) {
        return ImageResult {
            {}, tr("%1 could not be read: %2.").arg(QDir::toNativeSeparators(path), reason)};
    };
    const QString reason = obstacle(path);
    if (!reason.isEmpty())
        return refused(reason);

    QImageReader reader(path);
    reader.setAutoTransform(true);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead())
        return refused(tr("its contents are no image of a kind that is known here"));
    const QSize size = reader.size();
    if (pixelsOf(size) > mostPixels) {
        return refused(tr("its %1 x %2 pixels are too many").arg(size.width()).arg(size.height()));
    }
    const ImagePyramid image(reader.read());
    if (image.isNull())
        return refused(tr("its contents are damaged"));
    return {{QFileInfo(path).absoluteFilePath(), image, seriesOf(path)}, {}};
}

} // namespace Workbench
