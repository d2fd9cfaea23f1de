// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <memory>
#include <vector>

namespace Vela::UiBase {

class BaseView;

/// Tells the views that the application was deactivated. A filter on the application is shown every
/// event of every object, so all views share this one.
class DeactivationWatcher : public QObject
{
public:
    DeactivationWatcher();

    /// The watcher that all views share; it goes with the last pointer to it. There has to be an
    /// application object.
    static std::shared_ptr<DeactivationWatcher> shared();

    void add(BaseView *view);
    void remove(BaseView *view);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::vector<BaseView *> m_views;
};

} // namespace Vela::UiBase
