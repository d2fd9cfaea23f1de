// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>

class QImage;

namespace Workbench {

/// What a tour did and saw: a folder with a numbered picture per step and report.json, which tells
/// for each step what was done, what was checked, whether it held, and how long it took.
///
/// A check that does not hold is printed to standard error at once.
class TourReport
{
public:
    /// Makes @p folder if need be.
    explicit TourReport(const QString &folder);

    /// Keeps a fact about the whole tour.
    void note(const QString &key, const QJsonValue &value);

    /// Ends the step of before and begins the one called @p title.
    void beginStep(const QString &title);

    /// Checks in the present step that @p claim @p holds.
    void check(const QString &claim, bool holds);

    /// Saves the picture of the present step; one that can't be saved is a check that failed.
    void savePicture(const QImage &picture);

    /// Ends the last step and writes report.json.
    /// @return whether everything held and could be written
    bool finish();

    QString filePath(const QString &name) const { return m_folder.filePath(name); }

private:
    void endStep();

    QDir m_folder;
    QJsonObject m_report;
    QJsonArray m_steps;
    QJsonObject m_step;
    QJsonArray m_checks;
    QElapsedTimer m_clock;
    bool m_hasHeld = true;
};

} // namespace Workbench
