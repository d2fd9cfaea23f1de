// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/imageviewertoolbar.h"

#include "ui_base/qtui/formtexts_p.h"
#include "ui_imageviewertoolbar.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QKeyEvent>
#include <QMetaType>

namespace Vela::UiToolkit {

class ImageViewerToolBarPrivate
{
public:
    Ui::ImageViewerToolBar ui;
    UiBase::Internal::FormTexts texts;
};

static QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    if (className != QLatin1String(ImageViewerToolBar::staticMetaObject.className()))
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::ToolBar);
}

ImageViewerToolBar::ImageViewerToolBar(QWidget *parent)
    : QFrame(parent, Qt::WindowFlags())
    , d(std::make_unique<ImageViewerToolBarPrivate>())
{
    // Links by signature and spies know the argument of KeyReleased() by its name only.
    qRegisterMetaType<Qt::Key>();
    QAccessible::installFactory(makeAccessible);
    d->ui.setupUi(this);
    d->texts.take(*this);
}

ImageViewerToolBar::~ImageViewerToolBar() = default;

void ImageViewerToolBar::EnableNextImageButton(bool enable)
{
    d->ui.next_button->setEnabled(enable);
}

void ImageViewerToolBar::EnablePrevImageButton(bool enable)
{
    d->ui.prev_button->setEnabled(enable);
}

void ImageViewerToolBar::EnableZoomInButton(bool enable)
{
    d->ui.zoom_in_button->setEnabled(enable);
}

void ImageViewerToolBar::EnableZoomOutButton(bool enable)
{
    d->ui.zoom_out_button->setEnabled(enable);
}

bool ImageViewerToolBar::IsNextImageButtonEnabled() const
{
    return d->ui.next_button->isEnabled();
}

bool ImageViewerToolBar::IsPrevImageButtonEnabled() const
{
    return d->ui.prev_button->isEnabled();
}

bool ImageViewerToolBar::IsZoomInButtonEnabled() const
{
    return d->ui.zoom_in_button->isEnabled();
}

bool ImageViewerToolBar::IsZoomOutButtonEnabled() const
{
    return d->ui.zoom_out_button->isEnabled();
}

void ImageViewerToolBar::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        d->texts.translate([this] { d->ui.retranslateUi(this); });
}

void ImageViewerToolBar::keyReleaseEvent(QKeyEvent *event)
{
    Q_EMIT KeyReleased(static_cast<Qt::Key>(event->key()));
}

void ImageViewerToolBar::on_zoom_in_button_clicked()
{
    Q_EMIT ZoomIn();
}

void ImageViewerToolBar::on_zoom_out_button_clicked()
{
    Q_EMIT ZoomOut();
}

void ImageViewerToolBar::on_original_size_button_clicked()
{
    Q_EMIT OriginalSize();
}

void ImageViewerToolBar::on_fit_to_view_button_clicked()
{
    Q_EMIT FitToView();
}

void ImageViewerToolBar::on_prev_button_clicked()
{
    Q_EMIT PrevImage();
}

void ImageViewerToolBar::on_next_button_clicked()
{
    Q_EMIT NextImage();
}

} // namespace Vela::UiToolkit
