// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/stepimagecommand.h"

#include "image/imagedocument.h"
#include "language.h"
#include "mesh/cancellation.h"

#include <utility>

namespace Workbench {
namespace {

/// The first readable image of the series of @p path that comes after @p path in @p direction; its
/// error has a line for each file that was passed over.
ImageResult readNeighbour(const QString &path, int direction, const Cancellation &cancellation)
{
    QStringList errors;
    ImageResult result;
    const QStringList series = ImageReader::seriesOf(path);
    int at = series.indexOf(path) + direction;
    for (; at >= 0 && at < series.size() && !cancellation.isCancelled(); at += direction) {
        result = ImageReader::read(series.at(at));
        if (result.error.isEmpty())
            break;
        errors.append(result.error);
    }
    result.error = errors.join(QLatin1Char('\n'));
    return result;
}

} // namespace

StepImageCommand::StepImageCommand(std::shared_ptr<ImageDocument> document, EImageStep step)
    : m_document(std::move(document))
    , m_step(step)
{
    const bool isNext = step == EImageStep::Next;
    inEveryLanguage(*this, [this, isNext] {
        setText(isNext ? tr("&Next Image") : tr("&Previous Image"));
        setToolTip(isNext ? tr("Show the next image of the folder")
                          : tr("Show the previous image of the folder"));
    });
    setObjectName(isNext ? QStringLiteral("next_image") : QStringLiteral("previous_image"));
}

const QString StepImageCommand::commandId() const
{
    return QString::fromLatin1(staticMetaObject.className())
        + (m_step == EImageStep::Next ? QStringLiteral("Next") : QStringLiteral("Previous"));
}

BackgroundCommand::Work StepImageCommand::prepare()
{
    if (m_document->isEmpty())
        return {};
    const int direction = m_step == EImageStep::Next ? 1 : -1;
    return [document = m_document, path = m_document->filePath(), direction,
            turn = m_document->beginReading()](const Cancellation &cancellation) -> TakeOver {
        const ImageResult result = readNeighbour(path, direction, cancellation);
        return [document, result, turn] {
            if (!result.file.image.isNull())
                document->open(result.file, turn);
            if (!result.error.isEmpty())
                document->reportProblem(result.error);
        };
    };
}

void StepImageCommand::handleOutOfMemory()
{
    m_document->reportProblem(tr("There is not enough memory for this image."));
}

} // namespace Workbench
