// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tour/tourreport.h"

#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QRegularExpression>

#include <cstdio>

namespace Workbench {
namespace {

QString pictureName(int number, const QString &title)
{
    QString slug = title.toLower();
    slug.replace(QRegularExpression(QStringLiteral("[^a-z0-9]+")), QStringLiteral("-"));
    return QStringLiteral("%1-%2.png").arg(number, 2, 10, QLatin1Char('0')).arg(slug);
}

} // namespace

TourReport::TourReport(const QString &folder)
    : m_folder(folder)
{
    m_folder.mkpath(QStringLiteral("."));
}

void TourReport::note(const QString &key, const QJsonValue &value)
{
    m_report.insert(key, value);
}

void TourReport::beginStep(const QString &title)
{
    endStep();
    m_step = {{QStringLiteral("number"), m_steps.size() + 1}, {QStringLiteral("step"), title}};
    m_clock.start();
}

void TourReport::check(const QString &claim, bool holds)
{
    m_checks.append(
        QJsonObject {{QStringLiteral("claim"), claim}, {QStringLiteral("held"), holds}});
    if (holds)
        return;
    m_hasHeld = false;
    std::fprintf(stderr, "tour: %s: does not hold: %s\n",
                 qPrintable(m_step.value(QStringLiteral("step")).toString()), qPrintable(claim));
}

void TourReport::savePicture(const QImage &picture)
{
    const QString name = pictureName(m_step.value(QStringLiteral("number")).toInt(),
                                     m_step.value(QStringLiteral("step")).toString());
    m_step.insert(QStringLiteral("picture"), name);
    if (!picture.save(filePath(name)))
        check(QStringLiteral("the picture can be written"), false);
}

void TourReport::endStep()
{
    if (m_step.isEmpty())
        return;
    m_step.insert(QStringLiteral("milliseconds"), double(m_clock.nsecsElapsed() / 1000) / 1000.0);
    m_step.insert(QStringLiteral("checks"), m_checks);
    m_steps.append(m_step);
    m_step = {};
    m_checks = {};
}

bool TourReport::finish()
{
    endStep();
    m_report.insert(QStringLiteral("steps"), m_steps);
    m_report.insert(QStringLiteral("held"), m_hasHeld);
    const QByteArray text = QJsonDocument(m_report).toJson();
    QFile file(filePath(QStringLiteral("report.json")));
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush();
    if (!isWritten)
        std::fprintf(stderr, "tour: %s could not be written\n", qPrintable(file.fileName()));
    return m_hasHeld && isWritten;
}

} // namespace Workbench
