// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// Popups beside their buttons: an arrow at each of the eight places of a window, an arrow that
// slides to stay inside, a shadow and a band, and plain popups in each direction.
//
//     popups [--dark] [--shot FILE.png]

#include "shared/look.h"

#include <ui_base/ArrowedWindow>
#include <ui_base/WidgetPosCalculator>

#include <QApplication>
#include <QCommandLineParser>
#include <QGridLayout>
#include <QLabel>
#include <QTimer>
#include <QToolButton>

using namespace Vela::UiBase;

namespace {

// A place with a button in its centre, with room for a popup around it.
QToolButton *addButton(QWidget &window, int row, int column)
{
    auto *const button = new QToolButton;
    button->setText(QStringLiteral("button"));
    auto *const grid = static_cast<QGridLayout *>(window.layout());
    grid->addWidget(button, row, column, Qt::AlignCenter);
    grid->setColumnMinimumWidth(column, 330);
    grid->setRowMinimumHeight(row, 190);
    return button;
}

QLabel *makeContent(const QString &text, QWidget *parent)
{
    auto *const content = new QLabel(text, parent);
    content->setMargin(8);
    return content;
}

int cornerAngle(EArrowPosition position)
{
    switch (position) {
    case EArrowPosition::TopLeft:
        return 225;
    case EArrowPosition::TopRight:
        return 315;
    case EArrowPosition::BottomRight:
        return 45;
    default:
        return 135;
    }
}

// 2. A popup with an arrow: the frame, its content and the arrow that it offers. Its colour is that
// of the content's window role.
ArrowedWindow *makePopup(const QString &text, EArrowPosition position, QWidget &window)
{
    auto *const popup = new ArrowedWindow(&window);
    QLabel *const content = makeContent(text, nullptr);
    QPalette palette = content->palette();
    palette.setColor(QPalette::Window, palette.color(QPalette::Base));
    content->setPalette(palette);
    popup->AttachWidget(content);
    ArrowedWindow::SArrowParam arrow;
    arrow.position = position;
    arrow.length = 15;
    // An arrow at a corner is placed beside the button only when it is told where to point.
    arrow.customAngle = position >= EArrowPosition::TopLeft;
    arrow.angle = cornerAngle(position);
    popup->SetArrow(arrow);
    popup->SetBorder(palette.color(QPalette::Mid), 1, Qt::SolidLine, Qt::BevelJoin);
    return popup;
}

// 3. The calculator tells where the popup goes, in coordinates of the popup's parent; moving and
// showing it is up to its owner.
void place(QWidget *popup, QWidget *button, EDirection direction)
{
    QWidget *const window = button->window();
    auto *const calculator = new WidgetPosCalculator(popup);
    calculator->SetWidget(popup);
    calculator->SetRefWidget(button);
    calculator->SetDirection(direction);
    calculator->SetBaseOffset(4);
    calculator->setMaxAvailableRect(window->rect().adjusted(-30, -30, 30, 30));
    const bool isArrowed = qobject_cast<ArrowedWindow *>(popup);
    QPoint position;
    if (calculator->GetPosition(position, popup->rect(), isArrowed, QPoint()))
        popup->move(position);
    popup->show();
    popup->raise();
}

void showArrows(QWidget &window, const QList<QToolButton *> &buttons)
{
    const QStringList names {QStringLiteral("Top"),         QStringLiteral("Bottom"),
                             QStringLiteral("Left"),        QStringLiteral("Right"),
                             QStringLiteral("TopLeft"),     QStringLiteral("TopRight"),
                             QStringLiteral("BottomRight"), QStringLiteral("BottomLeft")};
    for (int i = 0; i < names.size(); ++i) {
        const auto position = EArrowPosition(i + 1);
        place(makePopup(names.at(i), position, window), buttons.at(i), EDirection::Top);
    }
}

// 4. At the edge of the window the arrow slides along its popup.
void showSpecials(QWidget &window, QToolButton *edge, QToolButton *shadowed, QToolButton *banded)
{
    place(makePopup(QStringLiteral("An arrow slides where the window ends"), EArrowPosition::Top,
                    window),
          edge, EDirection::Bottom);
    auto *const withShadow =
        makePopup(QStringLiteral("with a shadow"), EArrowPosition::Bottom, window);
    withShadow->EnableShadow(true);
    place(withShadow, shadowed, EDirection::Top);
    auto *const withBand = makePopup(QStringLiteral("with a band\n\nbehind its lower part"),
                                     EArrowPosition::Left, window);
    place(withBand, banded, EDirection::Right);
    const int half = withBand->findChild<QLabel *>()->height() / 2;
    withBand->SetPartialBackgroundColor(true, QRect(0, half, 0, half), QColor(83, 131, 181, 90));
}

void showPlain(QWidget &window, const QList<QToolButton *> &buttons)
{
    const QList<QPair<EDirection, QString>> directions {
        {EDirection::Left, QStringLiteral("left")},
        {EDirection::Top, QStringLiteral("top")},
        {EDirection::Right, QStringLiteral("right")},
        {EDirection::Bottom, QStringLiteral("bottom")}};
    for (int i = 0; i < directions.size(); ++i) {
        QLabel *const popup = makeContent(directions.at(i).second, &window);
        popup->setFrameStyle(QFrame::Box);
        popup->setAutoFillBackground(true);
        popup->adjustSize();
        place(popup, buttons.at(i), directions.at(i).first);
    }
}

QList<QToolButton *> addButtons(QWidget &window)
{
    QList<QToolButton *> buttons;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            buttons << addButton(window, row, column);
    }
    static_cast<QGridLayout *>(window.layout())->setAlignment(buttons.at(8), Qt::AlignLeft);
    return buttons;
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

    QWidget window;
    window.setWindowTitle(QStringLiteral("Popups"));
    new QGridLayout(&window);
    const QList<QToolButton *> buttons = addButtons(window);
    // A popup is placed when its button stands where it will be.
    window.show();
    showArrows(window, buttons);
    showSpecials(window, buttons.at(8), buttons.at(9), buttons.at(10));
    showPlain(window, buttons.mid(12));

    const QString file = parser.value(QStringLiteral("shot"));
    if (!file.isEmpty()) {
        QTimer::singleShot(200, &window, [&window, file] {
            QCoreApplication::exit(window.grab().save(file) ? 0 : 1);
        });
    }
    return QApplication::exec();
}
