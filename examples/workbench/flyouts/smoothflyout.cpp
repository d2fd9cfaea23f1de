// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/smoothflyout.h"

#include "flyouts/besideflyout.h"
#include "flyouts/settingspanel.h"
#include "language.h"
#include "mesh/meshoperations.h"

#include <ui_base/FlyoutBase>
#include <ui_base/TooltipExFactory>

#include <QKeySequence>
#include <QLocale>
#include <QSlider>

#include <utility>

namespace Workbench {
namespace {

using namespace Vela::UiBase;

QString hundredths(int value)
{
    return QLocale().toString(value / 100.0, 'f', 2);
}

} // namespace

SmoothFlyout::SmoothFlyout(std::shared_ptr<MeshDocument> document)
    : SmoothFlyout(std::move(document), new SettingsPanel, new SettingsPanel)
{ }

SmoothFlyout::SmoothFlyout(std::shared_ptr<MeshDocument> document, SettingsPanel *settings,
                           SettingsPanel *details)
    : MeshPanelCommand(settings, details, std::move(document))
{
    const SmoothSettings usual;
    const auto plain = [](int value) { return QLocale().toString(value); };
    m_steps = settings->addSlider([] { return tr("Steps"); }, 1, 200, usual.steps, plain);
    m_pull = details->addSlider([] { return tr("Pull"); }, 5, 95, qRound(usual.pull * 100.0F),
                                hundredths);
    m_push = details->addSlider([] { return tr("Push back"); }, 0, 99, qRound(usual.push * 100.0F),
                                hundredths);
    inEveryLanguage(*this, [this] {
        setTitle(tr("Smooth"));
        setText(tr("Smooth with settings"));
        setToolTip(tr("Take the noise out, as much as you like"));
        setWhatsThis(
            tr("Opens a panel with the number of steps and, for those who know, how far each one "
               "pulls a vertex and pushes it back. Apply as often as you like; reset brings "
               "back the mesh of before."));
        setExecutionNotificationMessage(ENotification::ExecutionBegan, tr("Smoothing the surface"));
        if (flyout())
            renewExplanation();
    });
    setObjectName(QStringLiteral("smooth_flyout"));
    setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_M));
    setDrawing(QStringLiteral("cmd_smooth_flyout"));
}

/// Beneath the panel, which holds it in the width of its frame.
void SmoothFlyout::renewExplanation()
{
    delete m_explanation;
    const QString text =
        tr("Each step pulls every vertex towards the middle of its neighbours and then pushes it "
           "back. What comes back is a little more, so that the mesh does not shrink.");
    m_explanation = TooltipExFactory::GetInstance().CreateExtendedTooltip(
        flyout(), QString(), QString(), text, true, flyout()->width(),
        ATooltipEx::EWidgetExVisibility::ExAlwaysShown, QStringLiteral("InfoDialog"));
    flyout()->EnableInfoButton(true, m_explanation);
    floatBeside(*flyout(), m_explanation);
}

MeshPanelCommand::Operation SmoothFlyout::operation() const
{
    SmoothSettings settings;
    settings.steps = m_steps->value();
    settings.pull = float(m_pull->value()) / 100.0F;
    settings.push = float(m_push->value()) / 100.0F;
    return [settings](const Mesh &mesh, const Cancellation &cancellation) {
        return smoothed(mesh, settings, cancellation);
    };
}

} // namespace Workbench
