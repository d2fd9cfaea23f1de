// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/formtexts_p.h"
#include "ui_base/qtui/panel/flyoutbase.h"

#include <QMap>
#include <QMargins>
#include <QPixmap>
#include <QPointer>
#include <QSize>
#include <QToolButton>
#include <QVariantList>

#include <vector>

class QSpacerItem;

namespace Vela::UiBase {

namespace Ui {
class FlyoutBase;
}

/// The state of a FlyoutBase, and the layout of its form.
class FlyoutBasePrivate
{
public:
    explicit FlyoutBasePrivate(FlyoutBase *flyout);
    ~FlyoutBasePrivate();

    /// Which buttons a flyout begins with.
    struct SButtons
    {
        bool close;
        bool cancel;
        bool apply;
        bool reset;
    };

    void Build(const QString &title, QWidget *main, QWidget *advanced, const SButtons &buttons);
    void SetFlyoutPropertyForAllChildWidgets(QWidget *widget);
    void SetSpacerVirtualVisibility(QSpacerItem *spacer, bool visible);
    void ShowButtonRow(bool visible);
    void FitSize();
    void FitToLayout();
    void TellSize();
    void Retranslate();
    void WriteSubWidgets(const QVariantList &list);
    void OrderTabStops();

    const std::unique_ptr<Ui::FlyoutBase> ui;
    QPointer<QWidget> mainPanel;
    QPointer<QWidget> advancedPanel;
    QPixmap collapsePixmap;
    QPixmap expandPixmap;
    QMap<QSpacerItem *, QSize> spacerGeometry;
    bool cancelVisible = true;
    bool applyVisible = true;
    bool resetVisible = false;
    bool closeVisible = true;
    QMargins savedMargins;
    QPointer<QWidget> infoWidget;
    QPointer<QToolButton> toolButton;
    bool toggleApply = false;
    QString savedApplyText;
    bool hasReferencePoint = false;
    QPoint referencePoint;
    QPoint referenceOffset;
    QPointer<QWidget> referenceWidget;
    bool closeOnEscape = false;

    /// Whether the apply button shows the text of the cancel button in place of its own.
    bool isApplyTextSaved = false;

private:
    void PrepareSpacerItemGeometryMap();
    void AddSpacerItemToGeometryMap(QSpacerItem *spacer);
    void LoadPictures();
    void TakePreferredSize();
    void TakeMainPanel(QWidget *panel);
    void TakeAdvancedPanel(QWidget *panel);
    QVector<QWidget *> TabStopsIn(const QVector<QWidget *> &parts) const;

    FlyoutBase *const q;
    bool isFitting = false;
    bool isTellingSize = false;
    bool isFitPending = false;
    Internal::FormTexts texts;
    std::vector<QMetaObject::Connection> subWidgetEnds;
};

} // namespace Vela::UiBase
