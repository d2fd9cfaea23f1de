// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// Tooltips beside their hosts: each of the presets, a remark at a point, an extended tooltip with
// three pages, and an info dialog. Point at a host to bring its tooltip up.
//
//     tooltips [--dark] [--shot FILE.png]

#include "shared/look.h"
#include "shared/picture.h"

#include <ui_base/ATooltipObject>
#include <ui_base/BaseView>
#include <ui_base/DefaultTooltip>
#include <ui_base/InfoDialog>
#include <ui_base/TooltipEx>
#include <ui_base/TooltipExFactory>
#include <ui_base/TooltipObject>
#include <ui_base/TooltipWrapper>

#include <QApplication>
#include <QCommandLineParser>
#include <QLabel>
#include <QTimer>

using namespace Vela::UiBase;
using ETooltipType = ATooltipObject::ETooltipType;
using EVisibility = ATooltipEx::EWidgetExVisibility;

namespace {

QLabel *addHost(QWidget &view, const QString &text, const QPoint &place)
{
    auto *const host = new QLabel(text, &view);
    host->setGeometry(QRect(place, QSize(130, 40)));
    host->setAlignment(Qt::AlignCenter);
    host->setFrameStyle(QFrame::Box);
    return host;
}

// 2. A tooltip belongs to its host. Those of one group are never up together; here each has its
// own, so that one picture shows them all.
TooltipObject *addTooltip(QLabel *host, QWidget *content, bool useArrow, ETooltipType type)
{
    auto *const tooltip = new TooltipObject(host->text(), host);
    tooltip->SetTooltipControl(content, useArrow);
    tooltip->SetTooltipType(type);
    tooltip->AttachTo(host);
    return tooltip;
}

QList<ATooltipObject *> addPresets(QWidget &view)
{
    const struct
    {
        QString name;
        ETooltipType type;
        bool useArrow;
    } presets[] = {
        {QStringLiteral("right"), ETooltipType::TooltipRight, true},
        {QStringLiteral("top"), ETooltipType::TooltipTop, true},
        {QStringLiteral("right, far"), ETooltipType::TooltipRightFar, true},
        {QStringLiteral("hover, bottom"), ETooltipType::TooltipHoverBottom, false},
        {QStringLiteral("hover, left"), ETooltipType::TooltipHoverLeft, false},
    };
    QList<ATooltipObject *> tooltips;
    QPoint place(170, 60);
    for (const auto &preset : presets) {
        QWidget *const content =
            ATooltipObject::CreateTooltipControl(QStringLiteral("Fills the holes"));
        tooltips << addTooltip(addHost(view, preset.name, place), content, preset.useArrow,
                               preset.type);
        place += QPoint(0, 90);
    }
    return tooltips;
}

// 3. A bar with a thousand buttons puts off what a tooltip is made of until it is needed.
ATooltipObject *addLateTooltip(QWidget &view)
{
    QLabel *const host = addHost(view, QStringLiteral("made late"), QPoint(170, 510));
    auto *const tooltip = new TooltipObject(host->text(), host);
    tooltip->SetPreparation([](ATooltipObject &late) {
        late.SetTooltipControl(
            ATooltipObject::CreateTooltipControl(QStringLiteral("Made when first needed")), true);
        late.SetTooltipType(ETooltipType::TooltipRight);
    });
    tooltip->AttachTo(host);
    return tooltip;
}

// 4. A card with three pages. Each showing turns to the next one; the icon opens them.
ATooltipObject *addCard(QWidget &view)
{
    auto &factory = TooltipExFactory::GetInstance();
    auto *const card = static_cast<TooltipEx *>(factory.CreateExtendedTooltip(
        nullptr, QStringLiteral("Smooth"),
        QStringLiteral("Evens out the surface of the selected parts."),
        QStringLiteral("Runs on everything when nothing is selected."), true, 300,
        EVisibility::ExShown, QStringLiteral("TooltipEx")));
    int index = 0;
    factory.AddStaticPage(card, QStringLiteral(":/resources/images/sys_sample.png"),
                          QSize(264, 264), QStringLiteral("result"), index);
    factory.AddStaticPage(card, QStringLiteral("The borders of open meshes stay where they are."),
                          QStringLiteral("borders"), index);

    QLabel *const host = addHost(view, QStringLiteral("three pages"), QPoint(480, 160));
    TooltipObject *const tooltip = addTooltip(host, card, true, ETooltipType::TooltipRight);
    tooltip->SetEnableHoverEvents(true);
    tooltip->SetCustomTooltipDismissTime(500);
    tooltip->SetClickToDismissTooltip(false);
    card->ConnectTo(tooltip);
    return tooltip;
}

// 5. An info dialog is a widget like others, placed and shown by its owner.
void addInfoDialog(QWidget &view)
{
    QWidget *const dialog = TooltipExFactory::GetInstance().CreateExtendedTooltip(
        &view, {}, {},
        QStringLiteral(
            "An info dialog hangs beneath a flyout and tells what its settings are for."),
        true, 300, EVisibility::ExAlwaysShown, QStringLiteral("InfoDialog"));
    dialog->move(480, 360);
    dialog->show();
}

// 6. A remark at a point, as at a vertex that was picked.
ATooltipObject *addRemark(QWidget &view)
{
    auto *const remark = new TooltipWrapper(QStringLiteral("remarks"), &view);
    auto *const content = new DefaultTooltip;
    QObject::connect(remark, &TooltipWrapper::UpdateTooltipText, content,
                     &DefaultTooltip::onUpdateTooltip);
    remark->SetTooltipControl(content, true);
    remark->UpdateText(QStringLiteral("x 12.5   y 3.0   z -4.2"));
    return remark;
}

void showRemark(ATooltipObject *remark, const QWidget &view)
{
    static_cast<TooltipWrapper *>(remark)->Show(
        view.mapToGlobal(QPoint(620, 560)), true,
        TooltipWrapper::ETooltipShowUpType::ShowUpManualDismiss);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("dark"), QStringLiteral("Dark palette.")});
    parser.addOption({QStringLiteral("shot"), QStringLiteral("Save a picture and leave."),
                      QStringLiteral("file")});
    parser.process(application);
    // 1. The palette is chosen before the first widget.
    chooseLook(application, parser.isSet(QStringLiteral("dark")));

    // 7. Tooltips stay inside the view that their host is in.
    QWidget window;
    window.setWindowTitle(QStringLiteral("Tooltips"));
    window.resize(980, 640);
    QWidget &view = *(new BaseView(&window, Qt::Widget))->getQtWidget();
    view.resize(window.size());
    QList<ATooltipObject *> tooltips = addPresets(view);
    tooltips << addLateTooltip(view) << addCard(view);
    addInfoDialog(view);
    ATooltipObject *const remark = addRemark(view);
    window.show();
    showRemark(remark, view);

    const QString file = parser.value(QStringLiteral("shot"));
    if (!file.isEmpty()) {
        for (ATooltipObject *tooltip : qAsConst(tooltips))
            tooltip->ShowTooltip();
        QTimer::singleShot(300, &window, [&window, file] {
            QCoreApplication::exit(savePicture(window, file) ? 0 : 1);
        });
    }
    return QApplication::exec();
}
