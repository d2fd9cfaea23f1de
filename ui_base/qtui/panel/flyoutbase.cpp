// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/panel/flyoutbase.h"

#include "ui_base/qtui/panel/flyoutbase_p.h"

#include "ui_base/qtui/accessibleopener_p.h"
#include "ui_base/qtui/devicepixmap_p.h"
#include "ui_base/qtui/keptshadow_p.h"
#include "ui_base/qtui/panel/panelloan_p.h"
#include "ui_base/qtui/tooltip/infodialog.h"
#include "ui_flyoutbase.h"

#include <lumo_common_res/String>
#include <lumo_common_res/Styles>

#include <QDebug>
#include <QDialog>
#include <QFocusEvent>
#include <QGraphicsDropShadowEffect>
#include <QKeyEvent>
#include <QPalette>
#include <QStyle>

#include <algorithm>
#include <initializer_list>
#include <stdexcept>
#include <utility>

namespace Vela::UiBase {
namespace {

namespace Device = Internal;

constexpr char SubWidgetsProperty[] = "sub_widgets";
constexpr char DirectionToProperty[] = "direction_to";
constexpr int AdvancedPanelIndex = 10;
constexpr qreal ShadowRadius = 5.0;
constexpr int InfoWidgetGap = 5;

QString picturePath(const char *name)
{
    return QStringLiteral(":/resources/images/%1.png").arg(QLatin1String(name));
}

QPixmap pictureFor(const QWidget &widget, const char *name)
{
    return Device::loadPixmap(picturePath(name), Device::devicePixelRatioFor(widget));
}

void setFlyoutProperty(QWidget *widget)
{
    widget->setProperty(Resource::String::WIDGET_PROPERTY_ISFLYOUT.latin1(), true);
}

// The form has the colours of the light palette. White on the accent colour is right in both.
void takeColors(QWidget *widget, const QPalette &palette)
{
    const QString form = widget->styleSheet();
    QString sheet = form;
    sheet.replace(QLatin1String("#F0F0F0"), palette.color(QPalette::Window).name().toUpper());
    sheet.replace(QLatin1String("#404040"), palette.color(QPalette::WindowText).name().toUpper());
    sheet.replace(QLatin1String("#606060"), palette.color(QPalette::ToolTipText).name().toUpper());
    if (sheet == form)
        return;
    // Qt keeps the rules of the sheet before for a widget that is not polished yet.
    widget->ensurePolished();
    widget->setStyleSheet(sheet);
}

bool lists(const QVariantList &list, const QWidget *widget)
{
    return std::any_of(list.cbegin(), list.cend(), [widget](const QVariant &entry) {
        return entry.value<QWidget *>() == widget;
    });
}

// The buttons of the form that open something.
QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    using Internal::AccessibleOpener;
    if (!qobject_cast<FlyoutBase *>(object->parent())
        || className != QLatin1String(QToolButton::staticMetaObject.className()))
        return nullptr;
    auto *const button = static_cast<QToolButton *>(object);
    const bool isAdvanced = button->objectName() == QLatin1String("advanced_button");
    if (!isAdvanced && button->objectName() != QLatin1String("info_button"))
        return nullptr;
    return new AccessibleOpener(*button, [button, isAdvanced]() -> AccessibleOpener::SOpened {
        // One that is being destroyed hides its buttons when it is no flyout any more.
        auto *const flyout = qobject_cast<FlyoutBase *>(button->parent());
        if (!flyout)
            return {};
        if (isAdvanced)
            return {flyout->AdvancedPanel(), AccessibleOpener::EKind::Section};
        return {flyout->InfoDialog(), AccessibleOpener::EKind::Popup};
    });
}

// What else has lost its type is on its way out as well.
void dropSubWidget(QObject *flyout, const QWidget *dead)
{
    QVariantList list = flyout->property(SubWidgetsProperty).toList();
    list.erase(std::remove_if(list.begin(), list.end(),
                              [dead](const QVariant &entry) {
                                  const auto *const widget = entry.value<QWidget *>();
                                  return !widget || widget == dead;
                              }),
               list.end());
    flyout->setProperty(SubWidgetsProperty, list);
}

} // namespace

FlyoutBasePrivate::FlyoutBasePrivate(FlyoutBase *flyout)
    : ui(std::make_unique<Ui::FlyoutBase>())
    , q(flyout)
{ }

FlyoutBasePrivate::~FlyoutBasePrivate() = default;

void FlyoutBasePrivate::Build(const QString &title, QWidget *main, QWidget *advanced,
                              const SButtons &buttons)
{
    if (!main)
        throw std::runtime_error("main panel cannot be null.");
    QAccessible::installFactory(makeAccessible);
    ui->setupUi(q);
    texts.take(*q);
    // What the sheet leaves to the palette, as the ground, goes with it, whatever the application has.
    const QPalette palette = Resource::Styles::Instance().ApplicationPalette();
    q->setPalette(palette);
    takeColors(q, palette);
    takeColors(ui->title, palette);
    LoadPictures();
    ui->info_button->hide();
    ui->ipanel->hide();
    PrepareSpacerItemGeometryMap();
    savedMargins = ui->gridLayout->contentsMargins();
    applyVisible = buttons.apply;
    cancelVisible = buttons.cancel;
    q->SetButtonVisible(ui->apply_button, applyVisible);
    q->SetButtonVisible(ui->cancel_button, cancelVisible);
    q->SetCloseButtonVisible(buttons.close);
    q->SetResetButtonVisible(buttons.reset);
    TakeMainPanel(main);
    TakeAdvancedPanel(advanced == main ? nullptr : advanced);
    q->SetTitle(title);
    FitSize();
}

// The apply button may stand in for the cancel button meanwhile, with that button's text.
void FlyoutBasePrivate::Retranslate()
{
    const bool showsCancel =
        isApplyTextSaved && ui->apply_button->text() == ui->cancel_button->text();
    if (showsCancel)
        ui->apply_button->setText(savedApplyText);
    texts.translate([this] { ui->retranslateUi(q); });
    if (showsCancel) {
        savedApplyText = ui->apply_button->text();
        ui->apply_button->setText(ui->cancel_button->text());
    }
    FitSize();
}

// The form would load the pictures for a screen of ratio 1, whatever the screen of the flyout.
void FlyoutBasePrivate::LoadPictures()
{
    const QString closeStyle = Resource::Styles::Instance().ToolButtonSystemClose();
    ui->close_button->setStyleSheet(
        closeStyle.arg(picturePath("sys_close_18"), picturePath("sys_close_hover_18")));
    expandPixmap = pictureFor(*q, "sys_panel_expand");
    collapsePixmap = pictureFor(*q, "sys_panel_collapse");
    const QIcon info = Device::iconOf(pictureFor(*q, "sys_message_box_info"), {});
    ui->info_button->setIcon(info);
    ui->ibutton->setIcon(info);
    ui->cancel_button->setIcon(Device::iconOf(pictureFor(*q, "sys_issue_ignore"), {}));
    ui->advanced_button->setIcon(Device::iconOf(expandPixmap, {}));
}

void FlyoutBasePrivate::PrepareSpacerItemGeometryMap()
{
    AddSpacerItemToGeometryMap(ui->spacerAboveButtons);
    AddSpacerItemToGeometryMap(ui->spacerAfterAdvancedLine);
    AddSpacerItemToGeometryMap(ui->spacerBeforeButtonLine);
    AddSpacerItemToGeometryMap(ui->spacerBelowButtons);
}

void FlyoutBasePrivate::AddSpacerItemToGeometryMap(QSpacerItem *spacer)
{
    spacerGeometry.insert(spacer, spacer->sizeHint());
}

void FlyoutBasePrivate::TakeMainPanel(QWidget *panel)
{
    mainPanel = panel;
    panel->setParent(q);
    ui->mainPanelHolderLayout->addWidget(panel);
    panel->adjustSize();
}

void FlyoutBasePrivate::TakeAdvancedPanel(QWidget *panel)
{
    advancedPanel = panel;
    if (panel) {
        panel->setParent(q);
        ui->mainLayout->insertWidget(AdvancedPanelIndex, panel);
        panel->hide();
    } else {
        ui->advanced_button->hide();
        ui->advancedLabel->hide();
        SetSpacerVirtualVisibility(ui->spacerBelowAdvanced, false);
    }
    ui->aboveButtonLine->hide();
    SetSpacerVirtualVisibility(ui->spacerAfterAdvancedLine, false);
    SetSpacerVirtualVisibility(ui->spacerBeforeButtonLine, false);
}

void FlyoutBasePrivate::SetFlyoutPropertyForAllChildWidgets(QWidget *widget)
{
    setFlyoutProperty(widget);
    const auto children = widget->findChildren<QWidget *>();
    std::for_each(children.cbegin(), children.cend(), setFlyoutProperty);
}

// Qt has no visibility of spacers.
void FlyoutBasePrivate::SetSpacerVirtualVisibility(QSpacerItem *spacer, bool visible)
{
    const QSize size = visible ? spacerGeometry.value(spacer) : QSize(0, 0);
    spacer->changeSize(size.width(), size.height(), QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void FlyoutBasePrivate::ShowButtonRow(bool visible)
{
    QMargins margins = savedMargins;
    // A negative margin would mean the one of the style.
    if (!visible)
        margins.setBottom(std::max(0, margins.bottom() - ui->gridLayout->verticalSpacing()));
    ui->advancedLine->setVisible(visible);
    SetSpacerVirtualVisibility(ui->spacerAboveButtons, visible);
    SetSpacerVirtualVisibility(ui->spacerBelowButtons, visible);
    ui->gridLayout->setContentsMargins(margins);
    FitSize();
}

// A layout does not notice the new size of a spacer by itself.
void FlyoutBasePrivate::FitSize()
{
    ui->mainLayout->invalidate();
    ui->gridLayout->invalidate();
    FitToLayout();
}

// Whoever hears of the new size may change the flyout again: that is made up for afterwards, once,
// instead of within.
void FlyoutBasePrivate::FitToLayout()
{
    isFitPending = true;
    if (isFitting || isTellingSize)
        return;
    const QPointer<FlyoutBase> guard(q);
    isFitting = true;
    for (int pass = 0; pass < 2 && isFitPending; ++pass) {
        isFitPending = false;
        ui->gridLayout->activate();
        TakePreferredSize();
        if (!guard)
            return;
    }
    isFitPending = false;
    isFitting = false;
}

// For a window adjustSize() stops at two thirds of the screen.
void FlyoutBasePrivate::TakePreferredSize()
{
    if (!q->isWindow() || ui->gridLayout->hasHeightForWidth()) {
        q->adjustSize();
        return;
    }
    q->ensurePolished();
    q->resize(q->sizeHint());
}

void FlyoutBasePrivate::TellSize()
{
    const QPointer<FlyoutBase> guard(q);
    const bool wasTellingSize = std::exchange(isTellingSize, true);
    Q_EMIT q->FlyoutResized();
    if (!guard)
        return;
    isTellingSize = wasTellingSize;
    if (isFitPending && !isFitting)
        FitToLayout();
}

void FlyoutBasePrivate::WriteSubWidgets(const QVariantList &list)
{
    for (const QMetaObject::Connection &end : subWidgetEnds)
        QObject::disconnect(end);
    subWidgetEnds.clear();
    q->setProperty(SubWidgetsProperty, list);
    // The list holds plain pointers, and who reads it asks the widgets behind them.
    for (const QVariant &entry : list) {
        const auto *const widget = entry.value<QWidget *>();
        if (!widget)
            continue;
        subWidgetEnds.push_back(
            QObject::connect(widget, &QObject::destroyed, q,
                             [flyout = q, widget] { dropSubWidget(flyout, widget); }));
    }
}

// All of them in one walk, which is done at each showing.
QVector<QWidget *> FlyoutBasePrivate::TabStopsIn(const QVector<QWidget *> &parts) const
{
    QVector<QVector<QWidget *>> stops(parts.size());
    for (QWidget *next = q->nextInFocusChain(); next != q; next = next->nextInFocusChain()) {
        if (next->focusPolicy() == Qt::NoFocus || next->focusProxy())
            continue;
        const auto part = std::find_if(parts.cbegin(), parts.cend(), [next](const QWidget *one) {
            return one && (next == one || one->isAncestorOf(next));
        });
        if (part != parts.cend())
            stops[int(part - parts.cbegin())] << next;
    }
    QVector<QWidget *> all;
    for (const QVector<QWidget *> &ofPart : std::as_const(stops))
        all << ofPart;
    return all;
}

// Qt puts the panels behind the buttons of the form, and what their owner adds later at the very end.
// From the flyout itself, which has the focus at first, Tab goes down and ends in the title row.
void FlyoutBasePrivate::OrderTabStops()
{
    const QVector<QWidget *> stops = TabStopsIn(
        {mainPanel, ui->advanced_button, advancedPanel, ui->cancel_button, ui->apply_button,
         ui->ibutton, ui->info_button, ui->reset_button, ui->close_button});
    // Qt leaves the order alone behind a widget that takes no focus, as the second form does.
    const Qt::FocusPolicy policy = q->focusPolicy();
    q->setFocusPolicy(Qt::WheelFocus);
    QWidget *last = q;
    for (QWidget *const stop : stops) {
        QWidget::setTabOrder(last, stop);
        last = stop;
    }
    q->setFocusPolicy(policy);
}

FlyoutBase::FlyoutBase(const QString &title, QWidget *mainPanel, QWidget *advancedPanel,
                       bool closeButton, bool cancelButton, bool applyButton, bool resetButton,
                       QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<FlyoutBasePrivate>(this))
{
    Internal::PanelLoan loan {mainPanel, advancedPanel};
    d->Build(title, mainPanel, advancedPanel,
             {closeButton, cancelButton, applyButton, resetButton});
    setFocusPolicy(Qt::WheelFocus);
    setFlyoutProperty(this);
    if (resetButton) {
        const QString style = Resource::Styles::Instance().ToolButtonSystem();
        d->ui->reset_button->setStyleSheet(
            style.arg(picturePath("sys_reset"), picturePath("sys_reset_hover")));
        d->FitSize();
    }
    qDebug() << "size: " << size() << ", main panel size: " << mainPanel->size();
    loan.keep();
}

FlyoutBase::FlyoutBase(QWidget *parent, const QString &title, QWidget *mainPanel,
                       const QString &infoText, bool closeButton, bool cancelButton,
                       bool applyButton, bool resetButton, QWidget *advancedPanel)
    : QWidget(parent)
    , d(std::make_unique<FlyoutBasePrivate>(this))
{
    Internal::PanelLoan loan {mainPanel, advancedPanel};
    d->Build(title, mainPanel, advancedPanel,
             {closeButton, cancelButton, applyButton, resetButton});
    d->ui->ipanel->setVisible(!infoText.isEmpty());
    d->FitSize();
    d->SetFlyoutPropertyForAllChildWidgets(this);
    loan.keep();
}

FlyoutBase::~FlyoutBase() = default;

QWidget *FlyoutBase::MainPanel() const
{
    return d->mainPanel;
}

QWidget *FlyoutBase::AdvancedPanel() const
{
    return d->advancedPanel;
}

QWidget *FlyoutBase::InfoDialog() const
{
    return d->infoWidget;
}

QToolButton *FlyoutBase::ToolButton() const
{
    return d->toolButton;
}

void FlyoutBase::SetToolButton(QToolButton *button)
{
    d->toolButton = button;
}

QString FlyoutBase::Title() const
{
    return d->ui->title->text();
}

void FlyoutBase::SetTitle(const QString &title)
{
    d->ui->title->setText(title);
    setWindowTitle(title);
    setAccessibleName(title);
}

bool FlyoutBase::IsCloseButtonVisible() const
{
    return d->closeVisible;
}

void FlyoutBase::SetCloseButtonVisible(bool visible)
{
    d->closeVisible = visible;
    d->ui->close_button->setVisible(visible);
}

bool FlyoutBase::IsResetButtonVisible() const
{
    return d->resetVisible;
}

void FlyoutBase::SetResetButtonVisible(bool visible)
{
    d->resetVisible = visible;
    d->ui->reset_button->setVisible(visible);
}

void FlyoutBase::SetApplyButtonVisible(bool visible)
{
    d->applyVisible = visible;
    SetButtonVisible(d->ui->apply_button, visible);
}

void FlyoutBase::SetCancelButtonVisible(bool visible)
{
    d->cancelVisible = visible;
    SetButtonVisible(d->ui->cancel_button, visible);
}

void FlyoutBase::SetApplyButtonText(const QString &text)
{
    d->ui->apply_button->setText(text);
}

void FlyoutBase::SetCancelButtonText(const QString &text)
{
    d->ui->cancel_button->setText(text);
}

void FlyoutBase::SetApplyButtonEnabled(bool enabled)
{
    d->ui->apply_button->setEnabled(enabled);
}

void FlyoutBase::SetToggleApplyButtonEnabled(bool enabled)
{
    d->toggleApply = enabled;
    SetCancelButtonVisible(false);
}

void FlyoutBase::AddSubWidget(QWidget *w, EDirection direction)
{
    if (!w)
        return;
    w->setProperty(DirectionToProperty, QVariant::fromValue(direction));
    QVariantList list = w->property(SubWidgetsProperty).toList();
    if (lists(list, w))
        return;
    list.append(QVariant::fromValue(w));
    d->WriteSubWidgets(list);
}

void FlyoutBase::RemoveSubWidget(QWidget *w)
{
    if (!w)
        return;
    const QVariantList list = w->property(SubWidgetsProperty).toList();
    if (!lists(list, w))
        d->WriteSubWidgets(list);
}

void FlyoutBase::EnableInfoButton(bool enable, QWidget *w)
{
    if (!w)
        return;
    d->ui->info_button->setVisible(enable);
    d->FitSize();
    if (d->infoWidget != w)
        RelayInfoDialog(d->infoWidget, false);
    d->infoWidget = w;
    w->hide();
    AddSubWidget(w, EDirection::Bottom);
    RelayInfoDialog(w, enable);
}

void FlyoutBase::RelayInfoDialog(QWidget *w, bool enable)
{
    auto *const dialog = qobject_cast<UiBase::InfoDialog *>(w);
    if (!dialog)
        return;
    if (enable)
        connect(dialog, &UiBase::InfoDialog::VisibilityChanged, this,
                &FlyoutBase::SubWidgetVisibilityChanged, Qt::UniqueConnection);
    else
        disconnect(dialog, &UiBase::InfoDialog::VisibilityChanged, this,
                   &FlyoutBase::SubWidgetVisibilityChanged);
}

void FlyoutBase::SetInfoWidgetPos()
{
    if (!d->infoWidget)
        return;
    const QPoint below = mapToGlobal(rect().bottomLeft() + QPoint(0, InfoWidgetGap));
    const QWidget *const parent = d->infoWidget->parentWidget();
    d->infoWidget->move(parent ? parent->mapFromGlobal(below) : below);
}

void FlyoutBase::SetBounds(const QRect &bounds, const QRect &frame)
{
    auto *const dialog = qobject_cast<UiBase::InfoDialog *>(d->infoWidget);
    if (!dialog)
        return;
    dialog->move(bounds.bottomLeft() + frame.topLeft());
    dialog->SetMaxWidthForAllAdvancedWidgets(frame.width());
}

void FlyoutBase::SetReferencePoint(const QPoint &global, QWidget *refWidget, const QPoint &offset)
{
    d->referenceOffset = offset;
    d->referenceWidget = refWidget ? refWidget : parentWidget();
    d->referencePoint = d->referenceWidget ? d->referenceWidget->mapFromGlobal(global) : global;
    d->hasReferencePoint = true;
}

bool FlyoutBase::GetPositionOnReferencePoint(QPoint &out) const
{
    if (!d->referenceWidget)
        return false;
    const QPoint opposite = d->referencePoint - d->referenceOffset - QPoint(width(), height());
    QPoint place = d->referencePoint + d->referenceOffset;
    if (width() + place.x() >= d->referenceWidget->width())
        place.setX(opposite.x());
    if (height() + place.y() >= d->referenceWidget->height())
        place.setY(opposite.y());
    out = place;
    return true;
}

int FlyoutBase::FindItemIndexInLayout(QLayoutItem *item) const
{
    for (int i = 0; item && i < d->ui->mainLayout->count(); ++i) {
        if (d->ui->mainLayout->itemAt(i) == item)
            return i;
    }
    return -1;
}

void FlyoutBase::CloseMe()
{
    const QPointer<FlyoutBase> guard(this);
    const bool wasVisible = isVisible();
    hide();
    if (guard && wasVisible)
        Q_EMIT CloseFlyout();
}

void FlyoutBase::OnEnterBusyMode()
{
    for (QAbstractButton *button : {static_cast<QAbstractButton *>(d->ui->close_button),
                                    static_cast<QAbstractButton *>(d->ui->cancel_button)}) {
        if (button->isVisible())
            button->setEnabled(false);
    }
    if (d->ui->apply_button->isVisible()) {
        if (!d->toggleApply) {
            d->ui->apply_button->setEnabled(false);
        } else if (!d->isApplyTextSaved) {
            d->isApplyTextSaved = true;
            d->savedApplyText = d->ui->apply_button->text();
            d->ui->apply_button->setText(d->ui->cancel_button->text());
        }
    }
    Q_EMIT EnterBusyMode();
}

void FlyoutBase::OnExitBusyMode()
{
    d->ui->close_button->setEnabled(true);
    d->ui->cancel_button->setEnabled(true);
    const bool isCancelText = d->ui->apply_button->text() == d->ui->cancel_button->text();
    if (d->toggleApply && d->isApplyTextSaved && isCancelText)
        d->ui->apply_button->setText(d->savedApplyText);
    d->isApplyTextSaved = false;
    d->ui->apply_button->setEnabled(true);
    Q_EMIT ExitBusyMode();
}

QToolButton *FlyoutBase::GetCloseButton() const
{
    return d->ui->close_button;
}

QToolButton *FlyoutBase::GetResetButton() const
{
    return d->ui->reset_button;
}

QLabel *FlyoutBase::GetTitleLabel() const
{
    return d->ui->title;
}

QRect FlyoutBase::GetTitleRegionForMoving() const
{
    const QWidget *button = nullptr;
    if (d->resetVisible)
        button = d->ui->reset_button;
    else if (d->closeVisible)
        button = d->ui->close_button;
    const Qt::LayoutDirection direction = layoutDirection();
    const int end =
        button ? QStyle::visualRect(direction, rect(), button->geometry()).left() : width();
    const QRect region(0, 0, end, d->ui->title->geometry().bottom());
    return QStyle::visualRect(direction, rect(), region);
}

void FlyoutBase::SetShadow(QGraphicsDropShadowEffect *&effect)
{
    if (!effect)
        return;
    effect->setEnabled(true);
    effect->setBlurRadius(ShadowRadius);
    effect->setOffset(0.0);
}

void FlyoutBase::SetButtonVisible(QPushButton *button, bool visible)
{
    if (!button)
        return;
    auto *effect = qobject_cast<QGraphicsDropShadowEffect *>(button->graphicsEffect());
    if (visible && !effect) {
        effect = new Internal::KeptShadow(button);
        SetShadow(effect);
        button->setGraphicsEffect(effect);
    } else if (!visible && effect) {
        button->setGraphicsEffect(nullptr);
    }
    button->setVisible(visible);
    d->ShowButtonRow(d->applyVisible || d->cancelVisible);
}

void FlyoutBase::SetAdvancedPanel(bool wasVisible)
{
    const bool opens = !wasVisible;
    const bool hasButtons = d->applyVisible || d->cancelVisible;
    const QPixmap &picture = opens ? d->collapsePixmap : d->expandPixmap;
    d->ui->advanced_button->setIcon(Device::iconOf(picture, {}));
    d->ui->aboveButtonLine->setVisible(hasButtons && opens);
    if (d->advancedPanel)
        d->advancedPanel->setVisible(opens);
    Internal::AccessibleOpener::tellState(*d->ui->advanced_button, opens);
    d->SetSpacerVirtualVisibility(d->ui->spacerAfterAdvancedLine, opens);
    d->SetSpacerVirtualVisibility(d->ui->spacerBeforeButtonLine, opens && hasButtons);
    d->OrderTabStops();
    d->FitSize();
}

void FlyoutBase::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && d->closeOnEscape)
        on_close_button_clicked();
    else
        QWidget::keyReleaseEvent(event);
}

void FlyoutBase::resizeEvent(QResizeEvent *)
{
    d->TellSize();
}

void FlyoutBase::showEvent(QShowEvent *event)
{
    if (!d->mainPanel)
        return;
    d->mainPanel->show();
    d->OrderTabStops();
    // No spacer has changed, and what else has the layout has noticed.
    d->FitToLayout();
    QPoint place;
    if (d->hasReferencePoint && GetPositionOnReferencePoint(place)) {
        QWidget *const moved = parentWidget() ? parentWidget() : this;
        if (qobject_cast<QDialog *>(parentWidget()))
            place = d->referenceWidget->mapToGlobal(place);
        moved->move(place);
    }
    setFocus();
    QWidget::showEvent(event);
}

void FlyoutBase::hideEvent(QHideEvent *event)
{
    if (d->infoWidget && d->infoWidget->isVisible())
        d->infoWidget->hide();
    QWidget::hideEvent(event);
}

// Nothing tells that the flyout itself has the focus, so Tab goes on to what is next.
void FlyoutBase::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason)
        focusNextChild();
    else if (event->reason() == Qt::BacktabFocusReason)
        focusPreviousChild();
}

void FlyoutBase::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        d->Retranslate();
}

void FlyoutBase::on_close_button_clicked()
{
    CloseMe();
}

void FlyoutBase::on_reset_button_clicked()
{
    Q_EMIT ResetValues();
}

void FlyoutBase::on_cancel_button_clicked()
{
    const QPointer<FlyoutBase> guard(this);
    hide();
    if (guard)
        Q_EMIT CancelChanges();
}

void FlyoutBase::on_apply_button_clicked()
{
    const bool isCancelText = d->ui->apply_button->text() == d->ui->cancel_button->text();
    if (!d->toggleApply || !isCancelText) {
        Q_EMIT ApplyChanges();
        return;
    }
    d->ui->apply_button->setEnabled(false);
    Q_EMIT CancelChanges();
}

void FlyoutBase::on_advanced_button_clicked()
{
    if (d->advancedPanel)
        SetAdvancedPanel(d->advancedPanel->isVisible());
}

void FlyoutBase::on_info_button_clicked()
{
    if (!d->infoWidget)
        return;
    const bool opens = !d->infoWidget->isVisible();
    Internal::AccessibleOpener::tellState(*d->ui->info_button, opens);
    d->infoWidget->setVisible(opens);
}

} // namespace Vela::UiBase
