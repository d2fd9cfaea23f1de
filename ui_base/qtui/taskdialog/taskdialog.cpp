// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/taskdialog/taskdialog.h"

#include "ui_base/qtui/taskdialog/taskdialog_p.h"

#include "ui_base/qtui/devicepixmap_p.h"
#include "ui_taskdialog.h"

#include <lumo_common_res/String>
#include <lumo_common_res/Styles>

#include <QEvent>
#include <QFontMetrics>
#include <QGraphicsDropShadowEffect>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QStyle>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QVariant>

#include <algorithm>
#include <array>

namespace Vela::UiToolkit {
namespace {

namespace Device = UiBase::Internal;

constexpr char ResultProperty[] = "dialog_result";
// The column of the icon and the margins.
constexpr int WidthBesideText = 105;
// More than that no window system can hold.
constexpr int LargestWidth = 32767;
constexpr int RoomBesideLine = 10;
constexpr int ButtonCount = 4;

struct SFace
{
    Resource::TranslatedText text;
    const char *icon;
};

constexpr SFace CloseFace {Resource::String::CLOSE_BUTTON_TEXT,
                           ":/resources/images/sys_issue_ignore.png"};
constexpr SFace CancelFace {Resource::String::CANCEL_BUTTON_TEXT,
                            ":/resources/images/sys_issue_ignore.png"};
constexpr SFace OkFace {Resource::String::OK_BUTTON_TEXT,
                        ":/resources/images/sys_message_box_button_yes.png"};
constexpr SFace YesFace {Resource::String::YES_BUTTON_TEXT,
                         ":/resources/images/sys_message_box_button_yes.png"};
constexpr SFace NoFace {Resource::String::NO_BUTTON_TEXT,
                        ":/resources/images/sys_message_box_button_no.png"};

struct SButton
{
    const SFace *face = nullptr; ///< none for a custom button
    EDialogResult result = EDialogResult::None;
};

using ButtonSet = std::array<SButton, ButtonCount>;

constexpr SButton CloseButton {&CloseFace, EDialogResult::Cancel};
constexpr SButton CancelButton {&CancelFace, EDialogResult::Cancel};
constexpr SButton OkButton {&OkFace, EDialogResult::Ok};
constexpr SButton YesButton {&YesFace, EDialogResult::Yes};
constexpr SButton NoButton {&NoFace, EDialogResult::No};
constexpr SButton Custom1Button {nullptr, EDialogResult::Custom1};
constexpr SButton Custom2Button {nullptr, EDialogResult::Custom2};
constexpr SButton Custom3Button {nullptr, EDialogResult::Custom3};
constexpr SButton Custom4Button {nullptr, EDialogResult::Custom4};

// By value of EDialogButtons. A place without a result has no button.
constexpr std::array<ButtonSet, 9> ButtonSets {{
    {{CloseButton}},
    {{OkButton}},
    {{NoButton, YesButton}},
    {{CancelButton, NoButton, YesButton}},
    {{CancelButton, OkButton}},
    {{Custom1Button}},
    {{Custom1Button, Custom2Button}},
    {{Custom1Button, Custom2Button, Custom3Button}},
    {{Custom1Button, Custom2Button, Custom3Button, Custom4Button}},
}};

const ButtonSet *setOf(EDialogButtons buttons)
{
    const auto index = static_cast<unsigned>(buttons);
    return index < ButtonSets.size() ? &ButtonSets[index] : nullptr;
}

struct SSign
{
    const char *picture;
    const char *name; ///< for assistive tools
};

SSign signOf(EDialogIcon icon)
{
    switch (icon) {
    case EDialogIcon::IconError:
    case EDialogIcon::IconCritical:
        return {":/resources/images/sys_message_box_error.png",
                QT_TRANSLATE_NOOP("Vela::UiToolkit::TaskDialog", "Error")};
    case EDialogIcon::IconWarning:
    case EDialogIcon::IconExclamation:
        return {":/resources/images/sys_message_box_exclamation.png",
                QT_TRANSLATE_NOOP("Vela::UiToolkit::TaskDialog", "Warning")};
    case EDialogIcon::IconInformation:
        return {":/resources/images/sys_message_box_info.png",
                QT_TRANSLATE_NOOP("Vela::UiToolkit::TaskDialog", "Information")};
    case EDialogIcon::IconQuestion:
        return {":/resources/images/sys_message_box_question.png",
                QT_TRANSLATE_NOOP("Vela::UiToolkit::TaskDialog", "Question")};
    case EDialogIcon::IconNone:
        break;
    }
    return {nullptr, nullptr};
}

QString plainText(const QString &text)
{
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

// QLabel breaks plain lines at line feeds only, and draws some of the other breaks as boxes.
QString withLineFeeds(QString text)
{
    static const QRegularExpression otherBreak(
        QStringLiteral("\\r(?!\\n)|[\\x{0B}\\f\\x{85}\\x{2028}\\x{2029}]"));
    return Qt::mightBeRichText(text) ? text : text.replace(otherBreak, QStringLiteral("\n"));
}

// Puts a place to break into every word that is wider than a line.
QString withBreaks(const QString &text, const QFontMetrics &metrics, int width)
{
    constexpr QChar Break(0x200B);
    QString result;
    int inWord = 0;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (int begin = 0, end = finder.toNextBoundary(); end > begin;
         begin = end, end = finder.toNextBoundary()) {
        const QString cluster = text.mid(begin, end - begin);
        const int advance = metrics.horizontalAdvance(cluster);
        inWord = cluster.at(0).isSpace() ? 0 : inWord + advance;
        if (inWord > width) {
            result += Break;
            inWord = advance;
        }
        result += cluster;
    }
    return result;
}

void castShadow(QWidget *widget)
{
    auto *const shadow = new QGraphicsDropShadowEffect(widget);
    QColor color = shadow->color();
    color.setAlphaF(0.65);
    shadow->setColor(color);
    shadow->setBlurRadius(15.0);
    shadow->setOffset(0.0);
    shadow->setEnabled(true);
    widget->setGraphicsEffect(shadow);
}

void polishAgain(QWidget *widget)
{
    QStyle *const style = widget->style();
    style->unpolish(widget);
    style->polish(widget);
    widget->update();
}

bool standsIn(const QObject *object, const QObject *ancestor)
{
    while (object && object != ancestor)
        object = object->parent();
    return object;
}

EDialogResult resultOf(TaskDialog *dialog)
{
    const QPointer<TaskDialog> guard(dialog);
    dialog->exec();
    if (!guard)
        return EDialogResult::Cancel;
    const EDialogResult result = dialog->dialogResult();
    delete dialog;
    return result;
}

} // namespace

TaskDialogPrivate::TaskDialogPrivate()
    : ui(std::make_unique<Ui::TaskDialog>())
{ }

TaskDialogPrivate::~TaskDialogPrivate() = default;

void TaskDialogPrivate::buildForm()
{
    Q_Q(TaskDialog);
    ui->setupUi(q);
    formTitle = q->windowTitle();
    takeColors();
    q->setAttribute(Qt::WA_NoSystemBackground);
    q->setAttribute(Qt::WA_TranslucentBackground);
    q->setAutoFillBackground(false);
    q->setMouseTracking(true);
    letMouseThrough();
    castShadows();
    // Brings the fonts of the sheet, which the width is worked out with.
    polishAgain(ui->title_label);
    polishAgain(ui->msg_label);
    ui->button1->setFocus();
}

// The form has the colours of the light palette.
void TaskDialogPrivate::takeColors()
{
    Q_Q(TaskDialog);
    const QPalette palette = Resource::Styles::Instance().ApplicationPalette();
    const QString form = q->styleSheet();
    QString sheet = form;
    sheet.replace(QLatin1String("#F0F0F0"), palette.color(QPalette::Window).name().toUpper());
    sheet.replace(QLatin1String("#606060"), palette.color(QPalette::ToolTipText).name().toUpper());
    if (sheet == form)
        return;
    // Qt keeps the rules of the sheet before for a dialog that is not polished yet.
    q->ensurePolished();
    q->setStyleSheet(sheet);
}

// The frames ignore the mouse, so that presses reach the dialog. Made transparent for it they would
// keep it from the cross and from the widgets in them too.
void TaskDialogPrivate::letMouseThrough()
{
    const std::array<QWidget *, 3> labels {ui->icon_label, ui->title_label, ui->msg_label};
    for (QWidget *label : labels)
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void TaskDialogPrivate::castShadows()
{
    castShadow(ui->frame);
    for (int i = 0; i < ButtonCount; ++i)
        castShadow(button(i));
}

void TaskDialogPrivate::buildAround(QWidget *content, bool fill)
{
    ui->title_label->hide();
    ui->msg_label->hide();
    hasMessage = false;
    collapse(ui->message_spacer);
    if (fill)
        fillCard();
    if (canHold(content))
        takeIn(content);
    hasWidget = true;
}

void TaskDialogPrivate::fillCard()
{
    ui->height_adjust_label->hide();
    ui->gridLayout_3->setContentsMargins(0, 0, 0, 0);
    ui->verticalLayout_5->setContentsMargins(0, 0, 0, 0);
    collapse(ui->icon_spacer);
}

void TaskDialogPrivate::buildMessage(const QString &title, const QString &message)
{
    Q_Q(TaskDialog);
    ui->title_label->setText(withLineFeeds(title));
    hasMessage = !message.isEmpty();
    if (hasMessage) {
        ui->msg_label->setText(withLineFeeds(message));
        ui->height_adjust_label->hide();
    } else {
        ui->msg_label->hide();
    }
    ui->widget_frame->hide();
    q->setAccessibleName(plainText(title));
    q->setAccessibleDescription(plainText(message));
}

void TaskDialogPrivate::collapse(QSpacerItem *spacer)
{
    spacer->changeSize(0, 0, QSizePolicy::Minimum, QSizePolicy::Minimum);
    ui->gridLayout_3->invalidate();
}

bool TaskDialogPrivate::canHold(const QWidget *content) const
{
    const bool isOwnPart = standsIn(content, q_ptr) && !standsIn(content, contentWidget);
    return content && content != contentWidget && !isOwnPart && !standsIn(q_ptr, content);
}

void TaskDialogPrivate::takeIn(QWidget *content)
{
    Q_Q(TaskDialog);
    contentWidget = content;
    content->setParent(ui->widget_frame);
    ui->widget_layout->addWidget(content);
    content->show();
    const QString title = content->windowTitle();
    q->setAccessibleName(title.isEmpty() ? content->accessibleName() : title);
    const QString description = content->accessibleDescription();
    q->setAccessibleDescription(description.isEmpty() ? ui->icon_label->accessibleName()
                                                      : description);
    giveFocus();
}

// The content comes before the buttons, and the cross last.
void TaskDialogPrivate::giveFocus()
{
    QWidget *first = nullptr;
    QWidget *last = nullptr;
    for (QWidget *next = q_ptr->nextInFocusChain(); next != q_ptr;
         next = next->nextInFocusChain()) {
        if (!(next->focusPolicy() & Qt::TabFocus) || !standsIn(next, contentWidget))
            continue;
        first = first ? first : next;
        last = next;
    }
    if (!first)
        return;
    for (int i = 0; i < ButtonCount; ++i) {
        QWidget::setTabOrder(last, button(i));
        last = button(i);
    }
    first->setFocus();
}

void TaskDialogPrivate::setUpIcon()
{
    const SSign sign = signOf(icon);
    if (!sign.picture) {
        ui->icon_label->hide();
        return;
    }
    ui->icon_label->setPixmap(Device::loadPixmap(QString::fromLatin1(sign.picture),
                                                 Device::devicePixelRatioFor(*ui->icon_label)));
    nameSign(TaskDialog::tr(sign.name));
}

// A dialog that says no more than its title is described by its sign.
void TaskDialogPrivate::nameSign(const QString &name)
{
    Q_Q(TaskDialog);
    if (q->accessibleDescription() == ui->icon_label->accessibleName())
        q->setAccessibleDescription(name);
    ui->icon_label->setAccessibleName(name);
}

void TaskDialogPrivate::setUpButtons()
{
    const ButtonSet *const set = setOf(buttons);
    if (!set)
        return;
    for (int i = 0; i < ButtonCount; ++i) {
        const EDialogResult result = (*set)[std::size_t(i)].result;
        if (result == EDialogResult::None)
            button(i)->hide();
        else
            button(i)->setProperty(ResultProperty, int(result));
    }
    setUpFaces();
}

void TaskDialogPrivate::setUpFaces()
{
    const ButtonSet *const set = setOf(buttons);
    if (!set)
        return;
    for (int i = 0; i < ButtonCount && (*set)[std::size_t(i)].result != EDialogResult::None; ++i) {
        SIconButton face = faces.value(i);
        if (const SFace *const standard = (*set)[std::size_t(i)].face) {
            face.text = face.text.isEmpty() ? QString(standard->text) : face.text;
            face.icon = face.icon.isEmpty() ? QString::fromLatin1(standard->icon) : face.icon;
        }
        button(i)->setText(face.text);
        const qreal ratio = Device::devicePixelRatioFor(*button(i));
        button(i)->setIcon(Device::iconOf(Device::loadPixmap(face.icon, ratio), {}));
    }
}

// The caller's own texts stay.
void TaskDialogPrivate::retranslate()
{
    Q_Q(TaskDialog);
    if (q->windowTitle() == formTitle) {
        formTitle = TaskDialog::tr("Dialog");
        q->setWindowTitle(formTitle);
    }
    ui->close_button->setToolTip(TaskDialog::tr("Close the message box"));
    ui->close_button->setAccessibleName(TaskDialog::tr("Close the message box"));
    if (const SSign sign = signOf(icon); sign.name)
        nameSign(TaskDialog::tr(sign.name));
    setUpFaces();
}

QPushButton *TaskDialogPrivate::button(int index) const
{
    const std::array<QPushButton *, ButtonCount> all {ui->button1, ui->button2, ui->button3,
                                                      ui->button4};
    return index >= 0 && index < ButtonCount ? all[std::size_t(index)] : nullptr;
}

int TaskDialogPrivate::widthOf(QLabel *label, bool *multiline) const
{
    QString text = label->text();
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"), Qt::CaseInsensitive);
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QFontMetrics metrics = label->fontMetrics();
    int width = 0;
    for (const QString &line : lines)
        width = std::max(width, metrics.boundingRect(line).width());
    *multiline = lines.size() != 1;
    if (*multiline)
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return width + RoomBesideLine;
}

void TaskDialogPrivate::setUpWidth(int maxWidth, int minWidth)
{
    Q_Q(TaskDialog);
    bool multiline = false;
    int wanted = widthOf(ui->title_label, &multiline);
    if (hasMessage)
        wanted = std::max(wanted, widthOf(ui->msg_label, &multiline));
    const auto textPart = [](int width) {
        return std::clamp(width, WidthBesideText, LargestWidth) - WidthBesideText;
    };
    const int least = textPart(minWidth);
    const int most = maxWidth == 0 ? wanted : std::max(least, textPart(maxWidth));
    const int width = textPart(std::max(least, std::min(most, wanted)) + WidthBesideText);
    if (multiline || width < wanted) {
        QMargins margins = ui->verticalLayout_5->contentsMargins();
        margins.setTop(3);
        ui->verticalLayout_5->setContentsMargins(margins);
    }
    if (!multiline && !hasMessage)
        collapse(ui->message_spacer);
    breakLongWords(ui->title_label, width);
    breakLongWords(ui->msg_label, width);
    ui->title_label->setFixedWidth(width);
    q->setFixedWidth(width + WidthBesideText);
}

void TaskDialogPrivate::breakLongWords(QLabel *label, int width) const
{
    const QString text = label->text();
    if (!Qt::mightBeRichText(text))
        label->setText(withBreaks(text, label->fontMetrics(), width - RoomBesideLine));
}

// Of a window QWidget::adjustSize() takes what its contents like best, at most two thirds of the
// screen. Texts are cut off unless they get the height that they need in the width that they have.
void TaskDialogPrivate::fitSize()
{
    Q_Q(TaskDialog);
    QLayout *const layout = q->layout();
    mirrorMargins();
    q->adjustSize();
    QSize size = q->size();
    if (hasWidget)
        size = size.expandedTo(layout->totalMinimumSize());
    if (layout->hasHeightForWidth())
        size.setHeight(layout->totalHeightForWidth(size.width()));
    q->resize(size);
}

// Margins stay where they are when the rest of a layout changes sides.
void TaskDialogPrivate::mirrorMargins()
{
    if (isMirrored == q_ptr->isRightToLeft())
        return;
    isMirrored = !isMirrored;
    QMargins text = ui->gridLayout_3->contentsMargins();
    if (isMirrored)
        marginBehindText = text.right();
    else
        text.setLeft(marginBehindText);
    ui->gridLayout_3->setContentsMargins(text.right(), text.top(), text.left(), text.bottom());
    const QMargins cross = ui->horizontalLayout_2->contentsMargins();
    ui->horizontalLayout_2->setContentsMargins(cross.right(), cross.top(), cross.left(),
                                               cross.bottom());
    keepRoomForIcon();
}

// The dialog can be a little narrower than all its parts. From left to right the text then stands in
// the margin behind it; from right to left it would stand over the icon before it.
void TaskDialogPrivate::keepRoomForIcon()
{
    if (!isMirrored)
        return;
    QMargins margins = ui->gridLayout_3->contentsMargins();
    margins.setLeft(marginBehindText);
    ui->gridLayout_3->setContentsMargins(margins);
    ui->gridLayout_2->activate();
    q_ptr->layout()->activate();
    const int missing = q_ptr->layout()->totalMinimumSize().width() - q_ptr->maximumWidth();
    if (missing <= 0)
        return;
    margins.setLeft(std::max(0, marginBehindText - missing));
    ui->gridLayout_3->setContentsMargins(margins);
}

// The card and the buttons stand by themselves, with their shadows between them.
void TaskDialogPrivate::takeShape()
{
    Q_Q(TaskDialog);
    if (!q->isVisible())
        return;
    shape.follow(*q, [this] {
        QRegion seen = ui->frame->geometry();
        for (int i = 0; i < ButtonCount; ++i) {
            if (button(i)->isVisible())
                seen += button(i)->geometry();
        }
        return seen;
    });
}

// The bar ends where the cross begins.
void TaskDialogPrivate::updateTitleBar()
{
    Q_Q(TaskDialog);
    const QRect cross(ui->close_button->mapTo(q, QPoint()), ui->close_button->size());
    const QRect asFromTheLeft = QStyle::visualRect(q->layoutDirection(), q->rect(), cross);
    titleBarRect = QRect(0, 0, asFromTheLeft.x(), titleBarHeight);
}

bool TaskDialogPrivate::isOnTitleBar(const QPoint &position) const
{
    return titleBarRect.contains(
        QStyle::visualPos(q_ptr->layoutDirection(), q_ptr->rect(), position));
}

TaskDialog::TaskDialog(QWidget *parent, QWidget *content, bool fill, EDialogButtons buttons,
                       EDialogIcon icon, const QList<SIconButton> &faces)
    : TaskDialog(*new TaskDialogPrivate, parent, content, fill, buttons, icon, faces)
{ }

TaskDialog::TaskDialog(TaskDialogPrivate &dd, QWidget *parent, QWidget *content, bool fill,
                       EDialogButtons buttons, EDialogIcon icon, const QList<SIconButton> &faces)
    : QDialog(parent, Qt::FramelessWindowHint)
    , d_ptr(&dd)
{
    dd.q_ptr = this;
    dd.buttons = buttons;
    dd.icon = icon;
    dd.faces = faces;
    dd.buildForm();
    connectSignalSlots();
    dd.buildAround(content, fill);
    dd.setUpIcon();
    dd.setUpButtons();
    dd.fitSize();
    update();
}

TaskDialog::TaskDialog(QWidget *parent, const QString &title, const QString &message,
                       EDialogButtons buttons, EDialogIcon icon, const QList<SIconButton> &faces,
                       int maxWidth, int minWidth)
    : TaskDialog(*new TaskDialogPrivate, parent, title, message, buttons, icon, faces, maxWidth,
                 minWidth)
{ }

TaskDialog::TaskDialog(TaskDialogPrivate &dd, QWidget *parent, const QString &title,
                       const QString &message, EDialogButtons buttons, EDialogIcon icon,
                       const QList<SIconButton> &faces, int maxWidth, int minWidth)
    : QDialog(parent, Qt::FramelessWindowHint)
    , d_ptr(&dd)
{
    dd.q_ptr = this;
    dd.buttons = buttons;
    dd.icon = icon;
    dd.faces = faces;
    dd.buildForm();
    connectSignalSlots();
    dd.buildMessage(title, message);
    dd.setUpIcon();
    dd.setUpButtons();
    dd.setUpWidth(maxWidth, minWidth);
    dd.fitSize();
    update();
}

TaskDialog::TaskDialog(QWidget *parent, const QString &title, EDialogButtons buttons,
                       EDialogIcon icon, const QList<SIconButton> &faces, int maxWidth,
                       int minWidth)
    : TaskDialog(parent, title, QString(), buttons, icon, faces, maxWidth, minWidth)
{ }

TaskDialog::TaskDialog(TaskDialogPrivate &dd, QWidget *parent, const QString &title,
                       EDialogButtons buttons, EDialogIcon icon, const QList<SIconButton> &faces,
                       int maxWidth, int minWidth)
    : TaskDialog(dd, parent, title, QString(), buttons, icon, faces, maxWidth, minWidth)
{ }

TaskDialog::~TaskDialog() = default;

EDialogResult TaskDialog::showMessage(QWidget *parent, const QString &title, const QString &message,
                                      EDialogButtons buttons, EDialogIcon icon,
                                      const QList<SIconButton> &faces, int maxWidth, int minWidth)
{
    return resultOf(
        new TaskDialog(parent, title, message, buttons, icon, faces, maxWidth, minWidth));
}

EDialogResult TaskDialog::showMessage(QWidget *parent, const QString &title, EDialogButtons buttons,
                                      EDialogIcon icon, const QList<SIconButton> &faces,
                                      int maxWidth, int minWidth)
{
    return showMessage(parent, title, QString(), buttons, icon, faces, maxWidth, minWidth);
}

EDialogResult TaskDialog::showErrorMessage(QWidget *parent, const QString &title,
                                           const QString &message, EDialogButtons buttons,
                                           const QList<SIconButton> &faces, int maxWidth,
                                           int minWidth)
{
    return showMessage(parent, title, message, buttons, EDialogIcon::IconError, faces, maxWidth,
                       minWidth);
}

EDialogResult TaskDialog::showErrorMessage(QWidget *parent, const QString &title,
                                           EDialogButtons buttons, const QList<SIconButton> &faces,
                                           int maxWidth, int minWidth)
{
    return showMessage(parent, title, buttons, EDialogIcon::IconError, faces, maxWidth, minWidth);
}

EDialogResult TaskDialog::showWarningMessage(QWidget *parent, const QString &title,
                                             const QString &message, EDialogButtons buttons,
                                             const QList<SIconButton> &faces, int maxWidth,
                                             int minWidth)
{
    return showMessage(parent, title, message, buttons, EDialogIcon::IconExclamation, faces,
                       maxWidth, minWidth);
}

EDialogResult TaskDialog::showWarningMessage(QWidget *parent, const QString &title,
                                             EDialogButtons buttons,
                                             const QList<SIconButton> &faces, int maxWidth,
                                             int minWidth)
{
    return showMessage(parent, title, buttons, EDialogIcon::IconExclamation, faces, maxWidth,
                       minWidth);
}

EDialogResult TaskDialog::showQuestionMessage(QWidget *parent, const QString &title,
                                              const QString &message, EDialogButtons buttons,
                                              const QList<SIconButton> &faces, int maxWidth,
                                              int minWidth)
{
    return showMessage(parent, title, message, buttons, EDialogIcon::IconQuestion, faces, maxWidth,
                       minWidth);
}

EDialogResult TaskDialog::showQuestionMessage(QWidget *parent, const QString &title,
                                              EDialogButtons buttons,
                                              const QList<SIconButton> &faces, int maxWidth,
                                              int minWidth)
{
    return showMessage(parent, title, buttons, EDialogIcon::IconQuestion, faces, maxWidth,
                       minWidth);
}

EDialogResult TaskDialog::showWidget(QWidget *parent, QWidget *content, bool fill,
                                     EDialogButtons buttons, EDialogIcon icon,
                                     const QList<SIconButton> &faces)
{
    return resultOf(new TaskDialog(parent, content, fill, buttons, icon, faces));
}

EDialogResult TaskDialog::dialogResult() const
{
    return d_func()->dialogResult;
}

void TaskDialog::enableButton(int index, bool enable)
{
    if (QPushButton *const button = d_func()->button(index))
        button->setEnabled(enable);
}

void TaskDialog::setWidget(QWidget *widget)
{
    Q_D(TaskDialog);
    if (!d->hasWidget || !d->canHold(widget))
        return;
    widget->setParent(d->ui->widget_frame); // may stand in the present one
    delete d->contentWidget.data();
    d->takeIn(widget);
    d->fitSize();
}

void TaskDialog::onButton1Enabled(bool enable)
{
    enableButton(0, enable);
}

void TaskDialog::onButton2Enabled(bool enable)
{
    enableButton(1, enable);
}

void TaskDialog::onButton3Enabled(bool enable)
{
    enableButton(2, enable);
}

void TaskDialog::onButton4Enabled(bool enable)
{
    enableButton(3, enable);
}

void TaskDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        d_func()->retranslate();
    else if (event->type() == QEvent::LayoutDirectionChange)
        d_func()->mirrorMargins();
}

void TaskDialog::mouseMoveEvent(QMouseEvent *event)
{
    Q_D(TaskDialog);
    if (!d->moving) {
        setCursor(d->isOnTitleBar(event->pos()) ? Qt::OpenHandCursor : Qt::ArrowCursor);
        QDialog::mouseMoveEvent(event);
        return;
    }
    if (!(event->buttons() & Qt::LeftButton)) {
        d->moving = false;
        setCursor(Qt::ArrowCursor);
        return;
    }
    setCursor(Qt::OpenHandCursor);
    const QPoint target = event->globalPos() + pos() - d->lastGlobalPos;
    d->lastGlobalPos = event->globalPos();
    move(target);
}

void TaskDialog::mousePressEvent(QMouseEvent *event)
{
    Q_D(TaskDialog);
    if (d->isOnTitleBar(event->pos())) {
        d->moving = true;
        d->lastGlobalPos = event->globalPos();
    }
    QDialog::mousePressEvent(event);
}

void TaskDialog::mouseReleaseEvent(QMouseEvent *event)
{
    d_func()->moving = false;
    QDialog::mouseReleaseEvent(event);
}

void TaskDialog::resizeEvent(QResizeEvent *)
{
    Q_D(TaskDialog);
    d->updateTitleBar();
    d->takeShape();
}

void TaskDialog::showEvent(QShowEvent *event)
{
    Q_D(TaskDialog);
    d->updateTitleBar();
    d->takeShape();
    QDialog::showEvent(event);
    d_func()->keepRoomForIcon(); // the frames are as wide as their style wants them by now
}

void TaskDialog::connectSignalSlots()
{
    Q_D(TaskDialog);
    connect(d->ui->close_button, &QToolButton::clicked, this, &TaskDialog::on_closebutton_clicked);
    connect(d->ui->button1, &QPushButton::clicked, this, &TaskDialog::on_button_1_clicked);
    connect(d->ui->button2, &QPushButton::clicked, this, &TaskDialog::on_button_2_clicked);
    connect(d->ui->button3, &QPushButton::clicked, this, &TaskDialog::on_button_3_clicked);
    connect(d->ui->button4, &QPushButton::clicked, this, &TaskDialog::on_button_4_clicked);
}

void TaskDialog::onButtonClicked(QPushButton *button)
{
    Q_D(TaskDialog);
    d->dialogResult =
        button ? EDialogResult(button->property(ResultProperty).toInt()) : EDialogResult::None;
    if (d->dialogResult == EDialogResult::Ok || d->dialogResult == EDialogResult::Yes)
        accept();
    else
        reject();
}

void TaskDialog::on_closebutton_clicked()
{
    d_func()->dialogResult = EDialogResult::Cancel;
    reject();
}

void TaskDialog::on_button_1_clicked()
{
    onButtonClicked(d_func()->ui->button1);
}

void TaskDialog::on_button_2_clicked()
{
    onButtonClicked(d_func()->ui->button2);
}

void TaskDialog::on_button_3_clicked()
{
    onButtonClicked(d_func()->ui->button3);
}

void TaskDialog::on_button_4_clicked()
{
    onButtonClicked(d_func()->ui->button4);
}

} // namespace Vela::UiToolkit
