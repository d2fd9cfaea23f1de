// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "orrin_mesh_kernel/jsontext_p.h"

#include <cstdint>
#include <type_traits>

namespace Orrin::Core::Internal {
namespace {

constexpr std::uint32_t replacementCharacter = 0xFFFD;
constexpr std::uint32_t lastCodePoint = 0x10FFFF;

constexpr bool isHighSurrogate(std::uint32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isLowSurrogate(std::uint32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// wchar_t has 16 or 32 bits, with or without a sign.
constexpr std::uint32_t codeUnit(wchar_t c)
{
    return static_cast<std::make_unsigned_t<wchar_t>>(c);
}

/// Takes one character off the front of @p text, which is not empty.
std::uint32_t takeCodePoint(std::wstring_view &text)
{
    const std::uint32_t unit = codeUnit(text.front());
    text.remove_prefix(1);
    if (isHighSurrogate(unit) && !text.empty()) {
        const std::uint32_t next = codeUnit(text.front());
        if (isLowSurrogate(next)) {
            text.remove_prefix(1);
            return 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00);
        }
    }
    const bool isCharacter =
        !isHighSurrogate(unit) && !isLowSurrogate(unit) && unit <= lastCodePoint;
    return isCharacter ? unit : replacementCharacter;
}

void appendUtf8(std::string &utf8, std::uint32_t codePoint)
{
    const auto trail = [codePoint](int shift) {
        return static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F));
    };
    if (codePoint < 0x80) {
        utf8 += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        utf8 += {static_cast<char>(0xC0 | (codePoint >> 6)), trail(0)};
    } else if (codePoint < 0x10000) {
        utf8 += {static_cast<char>(0xE0 | (codePoint >> 12)), trail(6), trail(0)};
    } else {
        utf8 += {static_cast<char>(0xF0 | (codePoint >> 18)), trail(12), trail(6), trail(0)};
    }
}

void appendControl(std::string &json, std::uint32_t control)
{
    constexpr char digits[] = "0123456789abcdef";
    json += "\\u00";
    json += {digits[control >> 4], digits[control & 0xF]};
}

} // namespace

void appendJsonText(std::string &json, std::wstring_view text)
{
    while (!text.empty()) {
        const std::uint32_t codePoint = takeCodePoint(text);
        if (codePoint < 0x20) {
            appendControl(json, codePoint);
            continue;
        }
        if (codePoint == '"' || codePoint == '\\')
            json += '\\';
        appendUtf8(json, codePoint);
    }
}

} // namespace Orrin::Core::Internal
