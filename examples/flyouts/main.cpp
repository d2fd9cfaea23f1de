// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// A command with a panel of settings: a tool button opens it, applying works in the background, and
// while it is open no other command changes the relief.
//
//     flyouts [--dark] [--rtl] [--shot FILE.png]

#include "relief.h"
#include "reliefview.h"
#include "shared/look.h"
#include "shared/picture.h"
#include "smoothcommand.h"

#include <ui_base/BaseView>
#include <ui_base/CmdsViewController>
#include <ui_base/FlyoutBase>
#include <ui_base/ToolBar>
#include <ui_base/ToolButtonWithWidgetMenu>

#include <lumo_app_service/ApplicationService>

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>
#include <QVBoxLayout>

using namespace Vela::UiBase;

namespace {

constexpr int side = 360;

// A command without a panel, next to the one that has one.
class ScanCommand : public CommandBase
{
    Q_OBJECT
    COMMAND_ID

public:
    ScanCommand(ReliefView *view, CmdsViewController *controller)
        : CommandBase(controller)
        , m_view(view)
    {
        setText(tr("Scan"));
        setToolTip(tr("Scan another relief"));
        addTag(changesTheRelief);
    }
    bool onExecuteAsync(bool) override
    {
        m_view->setRelief(scannedRelief(side, ++m_seed));
        return true;
    }

private:
    ReliefView *const m_view;
    quint32 m_seed = 7;
};

// Panels open beneath their buttons, in a window with an arrow.
ToolBar *makeBar(QWidget *window)
{
    auto *const bar = new ToolBar(window, Qt::TopToolBarArea);
    bar->SetToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->SetButtonSize(QSize(76, 36));
    ArrowedWindow::SArrowParam arrow;
    arrow.position = EArrowPosition::Top;
    arrow.length = 12;
    bar->SetButtonDefaultMenuParameters(true, arrow, 2, EDirection::Bottom,
                                        EWidgetsAlign::AlignStart, QPoint());
    return bar;
}

// What is open is closed from code as a user would do it.
void openAll(ToolButton *button, FlyoutBase *panel)
{
    button->click();
    for (const char *const name : {"advanced_button", "info_button"})
        panel->findChild<QToolButton *>(QLatin1String(name))->click();
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
    chooseLook(application, parser.isSet(QStringLiteral("dark")));
    if (parser.isSet(QStringLiteral("rtl")))
        QApplication::setLayoutDirection(Qt::RightToLeft);

    // A window with a bar above a view, whose controller has the commands.
    QWidget window;
    window.setWindowTitle(QStringLiteral("Flyouts"));
    window.resize(760, 620);
    Vela::Services::ApplicationService::GetInstance().setMainWindow(&window);
    auto *const column = new QVBoxLayout(&window);
    ToolBar *const bar = makeBar(&window);
    column->addWidget(bar);
    auto *const view = new BaseView(&window, Qt::Widget);
    column->addWidget(view->getQtWidget(), 1);
    auto *const controller = new CmdsViewController(view);
    auto *const relief = new ReliefView(view->getQtWidget());
    relief->setRelief(scannedRelief(side, 7));
    (new QVBoxLayout(view->getQtWidget()))->addWidget(relief);

    // The bar makes a button that opens the panel for whatever action comes with one.
    FlyoutBase *const panel = SmoothCommand::makePanel(&window);
    auto *const smooth = new SmoothCommand(panel, relief, controller);
    auto *const scan = new ScanCommand(relief, controller);
    controller->addCommand(smooth);
    controller->addCommand(scan);
    ToolButton *const button = bar->AddAction(smooth, panel, QStringLiteral("relief"), 0);
    bar->AddAction(scan, QStringLiteral("relief"), 1);
    // Whatever closes the panel, the bar tells of it: the button, the cross, a cancel, another button.
    QObject::connect(bar, &ToolBar::ButtonMenuVisibilityChange, smooth,
                     [smooth, button](const ToolButton *of, bool isVisible) {
                         if (of == button && !isVisible)
                             smooth->onFinalize();
                     });
    bar->AdjustToolBarSize(true);
    bar->setFixedSize(bar->childrenRect().size());
    window.show();

    const QString file = parser.value(QStringLiteral("shot"));
    if (!file.isEmpty()) {
        QTimer::singleShot(0, &window, [button, panel] { openAll(button, panel); });
        QTimer::singleShot(300, &window, [&window, file] {
            QCoreApplication::exit(savePicture(window, file) ? 0 : 1);
        });
    }
    return QApplication::exec();
}

#include "main.moc"
