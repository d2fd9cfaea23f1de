// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QFrame>

#include <memory>

namespace Vela::UiToolkit {

class ImageViewerToolBarPrivate;

/// A strip of six small buttons for an image viewer: previous and next image, fit, original size,
/// zoom in and out. It knows nothing of images: it says what the user asks for, and the host does
/// that.
///
/// The tool tips name a key for each button, which the strip does not bind. It tells the keys that
/// come to it, also those that its buttons have no use for, by KeyReleased(); a host hands on what
/// is typed over the image by sending it the event.
///
/// Use ToolBar for buttons that stand for commands. Main thread only.
class LUMO_UI_BASE_EXPORT ImageViewerToolBar : public QFrame
{
    Q_OBJECT

public:
    /// A strip with all buttons enabled, 28 pixels high or higher, and as wide as its buttons.
    explicit ImageViewerToolBar(QWidget *parent = nullptr);
    ~ImageViewerToolBar() override;

    /// Enables or disables the button for the next image, as at the end of a series. A disabled
    /// button emits nothing, but its key is told all the same.
    void EnableNextImageButton(bool enable);
    /// The same for the previous image.
    void EnablePrevImageButton(bool enable);
    /// The same for coming closer, as at the largest scale.
    void EnableZoomInButton(bool enable);
    /// The same for going away.
    void EnableZoomOutButton(bool enable);

    /// Whether the button can be clicked: it was not disabled, and neither was the strip.
    bool IsNextImageButtonEnabled() const;
    bool IsPrevImageButtonEnabled() const; ///< \copydoc IsNextImageButtonEnabled()
    bool IsZoomInButtonEnabled() const;    ///< \copydoc IsNextImageButtonEnabled()
    bool IsZoomOutButtonEnabled() const;   ///< \copydoc IsNextImageButtonEnabled()

Q_SIGNALS:
    /// The whole image is to be seen.
    void FitToView();
    /// A pixel of the image is to be a pixel of the screen.
    void OriginalSize();
    /// The image is to be larger by a step.
    void ZoomIn();
    /// The image is to be smaller by a step.
    void ZoomOut();
    /// The image before the present one is to be shown.
    void PrevImage();
    /// The image after the present one is to be shown.
    void NextImage();
    /// A key was released while the strip or one of its buttons had the focus, whichever the strip
    /// got: a button keeps those for itself that it clicks with.
    void KeyReleased(Qt::Key key);

protected:
    /// Puts the texts into the language of the translators of now, after they changed. A text that a
    /// host has replaced stays.
    void changeEvent(QEvent *event) override;
    /// Tells the key and goes no further with it.
    void keyReleaseEvent(QKeyEvent *event) override;

protected Q_SLOTS:
    /// The form looks these slots up by their names. Each emits its signal.
    void on_zoom_in_button_clicked();
    void on_zoom_out_button_clicked();      ///< \copydoc on_zoom_in_button_clicked()
    void on_original_size_button_clicked(); ///< \copydoc on_zoom_in_button_clicked()
    void on_fit_to_view_button_clicked();   ///< \copydoc on_zoom_in_button_clicked()
    void on_prev_button_clicked();          ///< \copydoc on_zoom_in_button_clicked()
    void on_next_button_clicked();          ///< \copydoc on_zoom_in_button_clicked()

private:
    const std::unique_ptr<ImageViewerToolBarPrivate> d;
    Q_DISABLE_COPY(ImageViewerToolBar)
};

} // namespace Vela::UiToolkit
