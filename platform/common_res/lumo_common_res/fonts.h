// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "lumo_common_res/commonresexport.h"

class QString;

namespace Vela::Resource {

/// The sizes of text. One object of it is held by Styles and reached through Styles::Font().
class LUMO_COMMON_RES_EXPORT Fonts
{
public:
    /// Pixel size of running text, for QFont::setPixelSize(): 12 for Latin and most other scripts,
    /// 13 for Chinese, Japanese and Korean, whose glyphs fill up at 12. Like all sizes here it is
    /// logical: the device pixel ratio is Qt's business.
    ///
    /// @param scale whole-number magnification of the interface; values below 1 count as 1
    /// @param language name of the language of the text, as QLocale::name() gives it ("de" or
    ///                 "zh_CN"); empty or unknown means 12
    int FontPixelSize12Value(int scale, const QString &language) const;
};

} // namespace Vela::Resource
