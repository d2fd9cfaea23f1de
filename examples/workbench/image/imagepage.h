// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

#include <memory>

class QLabel;

namespace Vela::UiToolkit {
class ImageViewerToolBar;
}

namespace Workbench {

class ImageDocument;
class ImageView;
class ImageViewController;
struct ImageCommandSet;

/// The place of an image in the window: a strip of buttons with the name and the scale beside it,
/// and the view below. A button of the strip, or its key typed anywhere on the page, runs a
/// command.
class ImagePage : public QWidget
{
    Q_OBJECT

public:
    ImagePage(const std::shared_ptr<ImageDocument> &document, const ImageCommandSet &commands,
              QWidget *parent = nullptr);
    ~ImagePage() override;

    /// The controller of the view; null when that was closed.
    ImageViewController *controller() const;
    /// The view; null when it was closed.
    ImageView *view() const;
    Vela::UiToolkit::ImageViewerToolBar &strip() const { return *m_strip; }
    QString nameText() const;
    QString scaleText() const;

Q_SIGNALS:
    /// The user wants the page to go.
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void buildLayout();
    void connectStrip();
    void handleKey(Qt::Key key);
    void showFile();
    void showPlacement();

    const std::shared_ptr<ImageDocument> m_document;
    const std::unique_ptr<const ImageCommandSet> m_commands;
    Vela::UiToolkit::ImageViewerToolBar *const m_strip;
    const QPointer<ImageViewController> m_controller;
    QLabel *const m_name;
    QLabel *const m_scale;
    bool m_isTyping = false; // what was pressed last is no part of a shortcut
};

} // namespace Workbench
