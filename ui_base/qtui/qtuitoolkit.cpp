// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/qtuitoolkit.h"

#include "ui_base/qtui/defaulticonprovider.h"

#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace Vela::UiBase {

class QtUiToolkitPrivate
{
public:
    std::unique_ptr<IIconProvider> provider = std::make_unique<DefaultIconProvider>();
};

QtUiToolkit::QtUiToolkit()
    : d(std::make_unique<QtUiToolkitPrivate>())
{ }

QtUiToolkit::~QtUiToolkit() = default;

QtUiToolkit &QtUiToolkit::Instance()
{
    if (QtUiToolkit *toolkit = InstanceIfAlive())
        return *toolkit;
    // Asked for by an object of static storage that ends later; the process cleans up behind it.
    static auto *const standIn = new QtUiToolkit;
    return *standIn;
}

QtUiToolkit *QtUiToolkit::InstanceIfAlive()
{
    static bool hasEnded = false;
    struct SOwner
    {
        ~SOwner() { hasEnded = true; }
        QtUiToolkit toolkit;
    };
    if (hasEnded)
        return nullptr;
    static SOwner owner;
    return &owner.toolkit;
}

void QtUiToolkit::IconProvider(IIconProvider *provider)
{
    if (!provider || provider == d->provider.get())
        return;
    // The old one goes last: its end may ask the toolkit for something.
    std::unique_ptr<IIconProvider> old(provider);
    d->provider.swap(old);
}

IIconProvider *QtUiToolkit::IconProvider() const
{
    return d->provider.get();
}

QIcon QtUiToolkit::CreateIcon(const QString &name, QAction *action, EIconType type,
                              const QSize &size) const
{
    return d->provider->CreateIcon(name, action, type, size);
}

QIcon QtUiToolkit::CreateIcon(const QString &name) const
{
    return d->provider->CreateIcon(name);
}

void QtUiToolkit::UpdateIconSize(QAction *action, const QSize &size)
{
    d->provider->UpdateIconSize(action, size);
}

QIcon QtUiToolkit::UpdateIconSize(const QIcon &icon, const QSize &size)
{
    return d->provider->UpdateIconSize(icon, size);
}

QAction *QtUiToolkit::CreateAction(const QString &iconName, const QString &text, QObject *parent,
                                   const QKeySequence &shortcut, QObject *receiver,
                                   const char *slot, QAction::MenuRole role) const
{
    auto *action = iconName.isEmpty() ? new QAction(text, parent)
                                      : new QAction(CreateIcon(iconName), text, parent);
    if (!shortcut.isEmpty())
        action->setShortcut(shortcut);
    // The caller names the slot as a string, so that menus can be described by tables.
    if (receiver && slot)
        QObject::connect(action, SIGNAL(triggered()), receiver, slot);
    action->setMenuRole(role);
    return action;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is what others override.
void QtUiToolkit::EnableAction(QList<QAction *> actions, const QString &text, bool enable)
{
    // Whoever hears of one change may delete another action.
    const std::vector<QPointer<QAction>> living(actions.cbegin(), actions.cend());
    for (const QPointer<QAction> &action : living) {
        if (action && action->text() == text)
            action->setEnabled(enable);
    }
}

QAction *QtUiToolkit::FindAction(const QWidget *widget, const QString &text) const
{
    if (!widget || text.isEmpty())
        return nullptr;
    const QList<QAction *> actions = widget->actions();
    const auto found = std::find_if(actions.cbegin(), actions.cend(),
                                    [&](const QAction *action) { return action->text() == text; });
    return found == actions.cend() ? nullptr : *found;
}

} // namespace Vela::UiBase
