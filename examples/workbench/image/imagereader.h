// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "image/imagepyramid.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace Workbench {

/// An image as it came from its file, with the images of the same folder.
struct ImageFile
{
    QString path;
    ImagePyramid image;
    QStringList series; ///< the paths of all images of the folder, this one among them, in order
};

/// What came out of reading a file: an image, or a sentence that says why there is none.
struct ImageResult
{
    ImageFile file;
    QString error; ///< names the file and the reason; empty when the image is there
};

/// Reads images from files. Any thread.
class ImageReader
{
    Q_DECLARE_TR_FUNCTIONS(Workbench::ImageReader)

public:
    /// Reads the file at @p path, whatever its name ends with, turned as the camera noted. Of an
    /// animation the first picture.
    static ImageResult read(const QString &path);

    /// The images beside @p path and that itself, whether it is one or not, in the order of their
    /// names with numbers by their value.
    static QStringList seriesOf(const QString &path);

    /// Whether the name of @p path is that of an image.
    static bool isImage(const QString &path);

    /// The name endings of the formats that can be read, in lower case, without a dot.
    static QStringList suffixes();

private:
    static QString obstacle(const QString &path);
};

} // namespace Workbench
