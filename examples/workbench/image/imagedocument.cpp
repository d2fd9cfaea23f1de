// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imagedocument.h"

namespace Workbench {

bool ImageDocument::hasPrevious() const
{
    return m_file.series.indexOf(m_file.path) > 0;
}

bool ImageDocument::hasNext() const
{
    return !isEmpty() && m_file.series.last() != m_file.path;
}

bool ImageDocument::open(const ImageFile &file, int turn)
{
    if (turn != m_turn)
        return false;
    m_file = file;
    Q_EMIT opened();
    return true;
}

void ImageDocument::reportProblem(const QString &text)
{
    Q_EMIT problemReported(text);
}

} // namespace Workbench
