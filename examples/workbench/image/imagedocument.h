// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "image/imagereader.h"

#include <QObject>

namespace Workbench {

/// The image that is open, and its place among the images of its folder.
///
/// It belongs to the main thread. A background job takes a turn when it begins, and its image is
/// taken over only as long as nobody has begun later: the user sees the latest that he asked for.
class ImageDocument : public QObject
{
    Q_OBJECT

public:
    ImageDocument() = default;

    bool isEmpty() const { return m_file.image.isNull(); }
    const ImagePyramid &image() const { return m_file.image; }
    /// Where the image came from, as an absolute path; empty when there is none.
    const QString &filePath() const { return m_file.path; }

    /// Whether the folder holds an image before this one, readable or not.
    bool hasPrevious() const;
    /// Whether the folder holds an image after this one, readable or not.
    bool hasNext() const;

    /// Begins a turn, by which all earlier ones are over.
    int beginReading() { return ++m_turn; }

    /// Lets @p file take the place of what was open, if @p turn is the latest, and emits opened().
    /// @return false, with nothing changed, when another turn has begun
    bool open(const ImageFile &file, int turn);

    /// Tells the user in the sentences @p text that something did not work; what is open stays
    /// open.
    void reportProblem(const QString &text);

Q_SIGNALS:
    void opened();
    void problemReported(const QString &text);

private:
    ImageFile m_file;
    int m_turn = 0;
};

} // namespace Workbench
