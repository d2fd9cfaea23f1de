// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// Task dialogs: a question, an error with a path in it, a message with buttons of its own, and a
// widget as the content; settings in a flyout dialog; and a dialog that is moved and resized without
// a frame.
//
//     dialogs [--dark] [--rtl] [--shot FILE.png]

#include "shared/look.h"

#include <ui_base/DialogEx>
#include <ui_base/FlyoutBase>
#include <ui_base/MDialogBase>
#include <ui_base/QtUiToolkit>
#include <ui_base/TaskDialog>

#include <QApplication>
#include <QCheckBox>
#include <QCommandLineParser>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTimer>

#include <memory>
#include <vector>

using namespace Vela::UiToolkit;

namespace {

using Dialogs = std::vector<std::unique_ptr<QDialog>>;

// 2. Most hosts need only the helpers, which wait for the answer.
EDialogResult ask(QWidget *parent)
{
    return TaskDialog::showQuestionMessage(
        parent, QStringLiteral("Close the mesh?"),
        QStringLiteral("\"bunny.obj\" has changes that are not saved."),
        EDialogButtons::ButtonsYesNoCancel);
}

std::unique_ptr<QDialog> makeError()
{
    return std::make_unique<TaskDialog>(
        nullptr, QStringLiteral("The mesh was not saved"),
        QStringLiteral("There is no room left on the disk for\n"
                       "/home/user/projects/turbine/2026-11/housing-with-cooling-fins-and-both-"
                       "flanges-after-decimation.obj"),
        EDialogButtons::ButtonsClose, EDialogIcon::IconError);
}

// 3. Custom buttons take their faces from the caller.
std::unique_ptr<QDialog> makeChoice()
{
    const QList<SIconButton> faces {
        {{}, QStringLiteral("Keep both")},
        {{}, QStringLiteral("Skip")},
        {QStringLiteral(":/resources/images/sys_message_box_button_yes.png"),
         QStringLiteral("Replace")}};
    return std::make_unique<TaskDialog>(
        nullptr, QStringLiteral("A mesh of this name is there already"),
        EDialogButtons::ButtonsCustom3, EDialogIcon::IconWarning, faces, 0, 440);
}

// 4. A widget of one's own enables the buttons as it likes.
std::unique_ptr<QDialog> makeForm()
{
    auto *const form = new QWidget;
    form->setWindowTitle(QStringLiteral("Export"));
    auto *const rows = new QFormLayout(form);
    auto *const name = new QLineEdit(QStringLiteral("bunny"), form);
    rows->addRow(QStringLiteral("Name"), name);
    rows->addRow(new QCheckBox(QStringLiteral("With normals"), form));
    auto dialog = std::make_unique<TaskDialog>(
        nullptr, form, false, EDialogButtons::ButtonsOkCancel, EDialogIcon::IconInformation);
    QObject::connect(
        name, &QLineEdit::textChanged, dialog.get(),
        [d = dialog.get()](const QString &text) { d->onButton2Enabled(!text.isEmpty()); });
    return dialog;
}

// 5. Settings that are applied while the dialog stays open.
std::unique_ptr<QDialog> makeSettings()
{
    auto *const panel = new QWidget;
    auto *const rows = new QFormLayout(panel);
    auto *const title = new QLineEdit(QStringLiteral("bunny"), panel);
    rows->addRow(QStringLiteral("Title"), title);
    rows->addRow(new QCheckBox(QStringLiteral("Shadows"), panel));
    const auto &toolkit = Vela::UiBase::QtUiToolkit::Instance();
    std::unique_ptr<Vela::UiBase::MDialogBase> dialog(toolkit.CreateFlyoutDialog(
        nullptr, QStringLiteral("Settings"), panel, nullptr, true, true, true, true));
    dialog->BindResetButton(title, SLOT(clear()));
    const auto *const flyout =
        dialog->findChild<Vela::UiBase::FlyoutBase *>(QStringLiteral("mdialogflyout"));
    QObject::connect(flyout, &Vela::UiBase::FlyoutBase::ApplyChanges, dialog.get(),
                     [d = dialog.get(), title] { d->SetTitle(title->text()); });
    return dialog;
}

// 6. A frameless dialog with anything on it.
std::unique_ptr<QDialog> makePlain()
{
    auto dialog = std::make_unique<Vela::UiBase::DialogEx>(nullptr, true);
    auto *const text = new QLabel(QStringLiteral("Move me by the top,\nresize me by the corner."));
    text->setAttribute(Qt::WA_TransparentForMouseEvents);
    text->setAlignment(Qt::AlignCenter);
    (new QVBoxLayout(dialog.get()))->addWidget(text);
    return dialog;
}

QPixmap pictureOf(const Dialogs &dialogs)
{
    QSize size(20, 20);
    for (const auto &dialog : dialogs)
        size = {qMax(size.width(), dialog->width() + 40), size.height() + dialog->height() + 20};
    QPixmap picture(size * qApp->devicePixelRatio());
    picture.setDevicePixelRatio(qApp->devicePixelRatio());
    picture.fill(QColor(120, 140, 160));
    QPainter painter(&picture);
    int y = 20;
    for (const auto &dialog : dialogs) {
        painter.drawPixmap(20, y, dialog->grab());
        y += dialog->height() + 20;
    }
    return picture;
}

Dialogs makeAll()
{
    Dialogs dialogs;
    dialogs.push_back(std::make_unique<TaskDialog>(
        nullptr, QStringLiteral("Close the mesh?"),
        QStringLiteral("\"bunny.obj\" has changes that are not saved."),
        EDialogButtons::ButtonsYesNoCancel, EDialogIcon::IconQuestion));
    dialogs.push_back(makeError());
    dialogs.push_back(makeChoice());
    dialogs.push_back(makeForm());
    dialogs.push_back(makeSettings());
    dialogs.push_back(makePlain());
    return dialogs;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("dark"), QStringLiteral("Dark palette.")});
    parser.addOption({QStringLiteral("rtl"), QStringLiteral("From right to left.")});
    parser.addOption({QStringLiteral("shot"), QStringLiteral("Save a picture and leave."),
                      QStringLiteral("file")});
    parser.process(application);
    if (parser.isSet(QStringLiteral("rtl")))
        QApplication::setLayoutDirection(Qt::RightToLeft);
    // 1. The palette is chosen before the first widget.
    chooseLook(application, parser.isSet(QStringLiteral("dark")));

    const QString file = parser.value(QStringLiteral("shot"));
    if (file.isEmpty()) {
        const EDialogResult answer = ask(nullptr);
        qInfo("The answer is %d.", int(answer));
    }
    const Dialogs dialogs = makeAll();
    for (const auto &dialog : dialogs)
        dialog->show();
    if (!file.isEmpty()) {
        QTimer::singleShot(0, &application, [&dialogs, file] {
            QCoreApplication::exit(pictureOf(dialogs).save(file) ? 0 : 1);
        });
    }
    return QApplication::exec();
}
