// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/qtui/qtuitoolkit.h"

#include <QAbstractButton>
#include <QLayoutItem>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

namespace Lumo::Test {

/// Which buttons a flyout is made with.
struct SParts
{
    bool close = true;
    bool cancel = true;
    bool apply = true;
    bool reset = false;
};

using Flyout = std::unique_ptr<Vela::UiBase::FlyoutBase>;

inline QWidget *makePanel(int height = 60)
{
    auto *const panel = new QWidget;
    panel->setFixedSize(240, height);
    return panel;
}

inline Flyout makeFlyout(const SParts &parts = {}, QWidget *advanced = nullptr,
                         QWidget *parent = nullptr)
{
    return Flyout(Vela::UiBase::QtUiToolkit::Instance().CreateFlyout(
        QStringLiteral("Smooth"), makePanel(), advanced, parts.close, parts.cancel, parts.apply,
        parts.reset, parent));
}

inline Flyout makeInfoFlyout(const QString &info, QWidget *main, QWidget *advanced = nullptr)
{
    return Flyout(Vela::UiBase::QtUiToolkit::Instance().CreateFlyout(
        nullptr, QStringLiteral("Smooth"), main, info, true, true, true, true, advanced));
}

/// The widget or layout of the form with this object name.
template<typename Child = QWidget>
Child *part(const Flyout &flyout, const char *name)
{
    return flyout->findChild<Child *>(QLatin1String(name));
}

inline QVBoxLayout *column(const Flyout &flyout)
{
    return part<QVBoxLayout>(flyout, "mainLayout");
}

inline QLayoutItem *itemAt(const QLayout *layout, int index)
{
    return layout ? layout->itemAt(index) : nullptr;
}

/// The height of the spacer at @p index of the column; -1 when there is none.
inline int spacerHeight(const Flyout &flyout, int index)
{
    QLayoutItem *const item = itemAt(column(flyout), index);
    return item && item->spacerItem() ? item->sizeHint().height() : -1;
}

inline void click(const Flyout &flyout, const char *name)
{
    auto *const button = part<QAbstractButton>(flyout, name);
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace Lumo::Test
