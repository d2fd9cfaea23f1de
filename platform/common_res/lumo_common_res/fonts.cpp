// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "lumo_common_res/fonts.h"

#include <QLocale>
#include <QString>

#include <algorithm>

namespace Vela::Resource {

namespace {

bool hasDenseGlyphs(const QString &language)
{
    switch (QLocale(language).language()) {
    case QLocale::Chinese:
    case QLocale::Japanese:
    case QLocale::Korean:
        return true;
    default:
        return false;
    }
}

} // namespace

int Fonts::FontPixelSize12Value(int scale, const QString &language) const
{
    const int size = !language.isEmpty() && hasDenseGlyphs(language) ? 13 : 12;
    return size * std::max(scale, 1);
}

} // namespace Vela::Resource
