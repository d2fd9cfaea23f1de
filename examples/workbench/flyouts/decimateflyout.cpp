// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/decimateflyout.h"

#include "flyouts/settingspanel.h"
#include "language.h"
#include "mesh/decimation.h"

#include <QCheckBox>
#include <QKeySequence>
#include <QLocale>
#include <QSlider>

#include <utility>

namespace Workbench {

DecimateFlyout::DecimateFlyout(std::shared_ptr<MeshDocument> document)
    : DecimateFlyout(std::move(document), new SettingsPanel, new SettingsPanel)
{ }

DecimateFlyout::DecimateFlyout(std::shared_ptr<MeshDocument> document, SettingsPanel *settings,
                               SettingsPanel *details)
    : MeshPanelCommand(settings, details, std::move(document))
{
    const DecimateSettings usual;
    const auto percent = [](int value) { return tr("%1 %").arg(QLocale().toString(value)); };
    m_kept = settings->addSlider([] { return tr("Keep"); }, 1, 100, qRound(usual.keptShare * 100.0),
                                 percent);
    m_error = details->addSlider([] { return tr("Largest error"); }, 1, 50,
                                 qRound(usual.largestError * 100.0), percent);
    m_keepsRim = details->addBox([] { return tr("Leave the rim alone"); }, usual.keepsRim);
    inEveryLanguage(*this, [this] {
        setTitle(tr("Decimate"));
        setText(tr("Decimate"));
        setToolTip(tr("Make do with fewer faces"));
        setWhatsThis(
            tr("Opens a panel that tells how many of the faces to keep. The shape stays nearly "
               "the same: it is left with more faces rather than moved too far."));
        setExecutionNotificationMessage(ENotification::ExecutionBegan, tr("Taking faces away"));
    });
    setObjectName(QStringLiteral("decimate_flyout"));
    setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_R));
    setDrawing(QStringLiteral("cmd_decimate_flyout"));
}

MeshPanelCommand::Operation DecimateFlyout::operation() const
{
    DecimateSettings settings;
    settings.keptShare = m_kept->value() / 100.0;
    settings.largestError = m_error->value() / 100.0;
    settings.keepsRim = m_keepsRim->isChecked();
    return [settings](const Mesh &mesh, const Cancellation &cancellation) {
        return decimated(mesh, settings, cancellation);
    };
}

} // namespace Workbench
