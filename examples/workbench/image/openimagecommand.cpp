// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/openimagecommand.h"

#include "image/imagedocument.h"
#include "language.h"

#include <ui_base/QtUiToolkit>

#include <utility>

namespace Workbench {

OpenImageCommand::OpenImageCommand(std::shared_ptr<ImageDocument> document, Chooser chooser)
    : m_document(std::move(document))
    , m_chooser(std::move(chooser))
{
    inEveryLanguage(*this, [this] {
        setText(tr("Open &Image..."));
        setToolTip(tr("Open an image from a file"));
        setWhatsThis(
            tr("Shows an image in place of the mesh, which stays open behind it. The images "
               "beside it in its folder are a key away."));
    });
    setObjectName(QStringLiteral("open_image"));
    setShortcut(int(Qt::CTRL) | int(Qt::SHIFT) | Qt::Key_O);
    // The library has no such icon: it is a drawing of the program's own.
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(
        QStringLiteral("cmd_open_image"), this, Vela::UiBase::EIconType::IconSvg, QSize(24, 24)));
}

bool OpenImageCommand::open(const QString &path)
{
    m_path = path;
    const bool isAccepted = onExecute();
    m_path.clear();
    return isAccepted;
}

BackgroundCommand::Work OpenImageCommand::prepare()
{
    const QString path = m_path.isEmpty() ? m_chooser() : m_path;
    if (path.isEmpty())
        return {};
    const int turn = m_document->beginReading();
    return [document = m_document, path, turn](const Cancellation &) -> TakeOver {
        const ImageResult result = ImageReader::read(path);
        return [document, result, turn] {
            if (result.error.isEmpty())
                document->open(result.file, turn);
            else
                document->reportProblem(result.error);
        };
    };
}

void OpenImageCommand::handleOutOfMemory()
{
    m_document->reportProblem(tr("There is not enough memory for this image."));
}

} // namespace Workbench
