// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imagepage.h"

#include "closebutton.h"
#include "image/imagecommandset.h"
#include "image/imagedocument.h"
#include "image/imageview.h"
#include "image/imageviewcontroller.h"
#include "image/stepimagecommand.h"
#include "image/zoomimagecommand.h"
#include "language.h"

#include <ui_base/BaseView>
#include <ui_base/ImageViewerToolBar>

#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QToolButton>
#include <QVBoxLayout>

namespace Workbench {

using Vela::UiBase::BaseView;
using Vela::UiToolkit::ImageViewerToolBar;

namespace {

bool isPartOfShortcut(const QKeyEvent &event)
{
    const int key = event.key();
    return key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta
        || event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

} // namespace

ImagePage::ImagePage(const std::shared_ptr<ImageDocument> &document,
                     const ImageCommandSet &commands, QWidget *parent)
    : QWidget(parent)
    , m_document(document)
    , m_commands(std::make_unique<const ImageCommandSet>(commands))
    , m_strip(new ImageViewerToolBar(this))
    , m_controller(new ImageViewController(new BaseView(this, {}), document))
    , m_name(new QLabel(this))
    , m_scale(new QLabel(this))
{
    buildLayout();
    connectStrip();
    connect(m_document.get(), &ImageDocument::opened, this, &ImagePage::showFile);
    connect(view(), &ImageView::placementChanged, this, &ImagePage::showPlacement);
    inEveryLanguage(*this, [this] {
        showFile();
        if (view())
            showPlacement();
    });
}

ImagePage::~ImagePage() = default;

ImageViewController *ImagePage::controller() const
{
    return m_controller;
}

ImageView *ImagePage::view() const
{
    return m_controller ? m_controller->imageView() : nullptr;
}

QString ImagePage::nameText() const
{
    return m_name->text();
}

QString ImagePage::scaleText() const
{
    return m_scale->text();
}

void ImagePage::buildLayout()
{
    // A long name must not make the window wide.
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_name->setTextFormat(Qt::PlainText);
    QToolButton *const close = makeCloseButton([] { return tr("Close the image (Esc)"); }, this);
    connect(close, &QToolButton::clicked, this, &ImagePage::closeRequested);

    auto *const line = new QHBoxLayout;
    line->setContentsMargins(6, 4, 6, 4);
    line->setSpacing(12);
    line->addWidget(m_strip);
    line->addWidget(m_name, 1);
    line->addWidget(m_scale);
    line->addWidget(close);
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(line);
    column->addWidget(view(), 1);
}

void ImagePage::connectStrip()
{
    const struct
    {
        void (ImageViewerToolBar::*asked)();
        QAction *command;
    } links[] = {
        {&ImageViewerToolBar::PrevImage, m_commands->previous.get()},
        {&ImageViewerToolBar::NextImage, m_commands->next.get()},
        {&ImageViewerToolBar::FitToView, m_commands->fit.get()},
        {&ImageViewerToolBar::OriginalSize, m_commands->originalSize.get()},
        {&ImageViewerToolBar::ZoomIn, m_commands->zoomIn.get()},
        {&ImageViewerToolBar::ZoomOut, m_commands->zoomOut.get()},
    };
    for (const auto &link : links)
        connect(m_strip, link.asked, link.command, &QAction::trigger);
    connect(m_strip, &ImageViewerToolBar::KeyReleased, this, &ImagePage::handleKey);
}

/// A view that is not seen while the window is minimised is left hidden.
void ImagePage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (view())
        view()->show();
}

void ImagePage::keyPressEvent(QKeyEvent *event)
{
    m_isTyping = !isPartOfShortcut(*event);
    QWidget::keyPressEvent(event);
}

/// What nobody below has a use for is for the strip.
void ImagePage::keyReleaseEvent(QKeyEvent *event)
{
    QCoreApplication::sendEvent(m_strip, event);
}

void ImagePage::handleKey(Qt::Key key)
{
    if (!m_isTyping) // the end of a shortcut such as Ctrl+O
        return;
    switch (key) {
    case Qt::Key_Less:
    case Qt::Key_Comma: // Shift has come up first
        return m_commands->previous->trigger();
    case Qt::Key_Greater:
    case Qt::Key_Period:
        return m_commands->next->trigger();
    case Qt::Key_F:
        return m_commands->fit->trigger();
    case Qt::Key_O:
        return m_commands->originalSize->trigger();
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return m_commands->zoomIn->trigger();
    case Qt::Key_Minus:
        return m_commands->zoomOut->trigger();
    case Qt::Key_Escape:
        Q_EMIT closeRequested();
        return;
    default:
        return;
    }
}

void ImagePage::showFile()
{
    const QString name = QFileInfo(m_document->filePath()).fileName();
    m_name->setText(name);
    m_name->setToolTip(m_document->filePath());
    if (view())
        view()->setAccessibleName(tr("Image %1").arg(name));
    m_commands->previous->setEnabled(m_document->hasPrevious());
    m_commands->next->setEnabled(m_document->hasNext());
    m_strip->EnablePrevImageButton(m_document->hasPrevious());
    m_strip->EnableNextImageButton(m_document->hasNext());
}

void ImagePage::showPlacement()
{
    const ImagePlacement &placement = view()->placement();
    const QString percent = QLocale().toString(placement.scale() * 100, 'f', 0);
    m_scale->setText(m_document->isEmpty() ? QString() : tr("%1 %").arg(percent));
    m_commands->zoomIn->setEnabled(placement.canZoomIn());
    m_commands->zoomOut->setEnabled(placement.canZoomOut());
    m_strip->EnableZoomInButton(placement.canZoomIn());
    m_strip->EnableZoomOutButton(placement.canZoomOut());
}

} // namespace Workbench
