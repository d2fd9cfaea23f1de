// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tour/tour.h"

#include "commandset.h"
#include "mainwindow.h"
#include "options.h"
#include "tour/steps.h"
#include "tracing.h"

#include <ui_base/CommandBase>

#include <QFile>
#include <QJsonDocument>

namespace Workbench {
namespace {

/// How many complete slices of each name the trace in @p path holds; nothing when it is no trace.
QHash<QString, int> slicesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    const QJsonArray events = document.isArray()
        ? document.array()
        : document.object().value(QStringLiteral("traceEvents")).toArray();
    QHash<QString, int> open;
    QHash<QString, int> complete;
    for (const QJsonValue &value : events) {
        const QString phase = value[QStringLiteral("ph")].toString().toLower();
        const QString name = value[QStringLiteral("name")].toString();
        if (phase == QLatin1String("b"))
            ++open[name];
        else if (phase == QLatin1String("e") && open[name]-- > 0)
            ++complete[name];
    }
    return complete;
}

} // namespace

Tour::Tour(MainWindow &window, const Options &options, Tracing *tracing)
    : m_guide(window, options)
    , m_tracing(tracing)
    , m_traceFile(options.traceFile)
{ }

int Tour::run()
{
    visitStart(m_guide);
    if (!m_guide.mesh().isEmpty()) {
        visitMenus(m_guide);
        visitCommandBar(m_guide);
        visitDisplay(m_guide);
        visitTools(m_guide);
        visitEdits(m_guide);
        visitFlyouts(m_guide);
        visitComparison(m_guide);
        visitNotifications(m_guide);
        visitDialogs(m_guide);
        visitLanguages(m_guide);
        visitBars(m_guide);
        visitFiles(m_guide);
        visitImages(m_guide);
        visitClosing(m_guide);
        compareTrace();
    }
    return m_guide.finish() ? 0 : 1;
}

void Tour::compareTrace()
{
    m_guide.begin(TourGuide::tr("Trace"));
    if (!m_tracing) {
        m_guide.check(TourGuide::tr("there is a trace to compare"), false);
        return;
    }
    m_tracing->flush();
    const QHash<QString, int> slices = slicesOf(m_traceFile);
    for (const Vela::UiBase::CommandBase *command : m_guide.window().commands().all()) {
        const QString name = classNameOf(*command);
        const int ends = m_guide.endsOf(*command);
        m_guide.check(TourGuide::tr("each run of %1 is a slice of the trace").arg(name),
                      ends > 0 && slices.value(name) == ends);
    }
}

} // namespace Workbench
