// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "lumo_common_res/commonresexport.h"

#include <QString>
#include <QtGlobal>

namespace Vela::Resource {

/// A visible text of the library. It is translated each time it is read, so that a translator
/// that is installed later takes effect, and a text kept as TranslatedText follows a change of
/// language while a QString made from it does not.
///
/// The context of all texts is "Vela::Resource::String". Reading needs no application object:
/// without one the English source comes back. Safe from any thread.
class LUMO_COMMON_RES_EXPORT TranslatedText
{
public:
    /// @param source the English text in UTF-8, marked with QT_TRANSLATE_NOOP in the context above;
    ///               it is not copied and has to live as long as the object. Null reads as empty.
    constexpr explicit TranslatedText(const char *source)
        : m_source(source)
    { }

    /// The text in the present language of the application.
    QString toString() const;

    /// The same as toString(), so that the constant stands wherever a QString is asked for.
    operator QString() const { return toString(); }

private:
    const char *m_source;
};

/// A name that objects recognise each other by: a group id, a tag, the name of a dynamic property.
/// It is plain ASCII, never shown and never translated, and stays the same from release to release.
class LUMO_COMMON_RES_EXPORT StableName
{
public:
    /// @param name the name in ASCII; it is not copied and has to live as long as the object
    constexpr explicit StableName(const char *name)
        : m_name(name)
    { }

    /// The name as the property functions of QObject take it.
    constexpr const char *latin1() const { return m_name; }

    /// The name as a string.
    QString toString() const;

    /// The same as toString(), so that the constant stands wherever a QString is asked for.
    operator QString() const { return toString(); }

private:
    const char *m_name;
};

/// The texts and names that the libraries and their hosts share.
namespace String {

/// @name Texts of dialog buttons
/// @{

/// Accepts what the dialog says or shows.
inline constexpr TranslatedText OK_BUTTON_TEXT {QT_TRANSLATE_NOOP("Vela::Resource::String", "OK")};
/// Leaves without doing what the dialog is for.
inline constexpr TranslatedText CANCEL_BUTTON_TEXT {
    QT_TRANSLATE_NOOP("Vela::Resource::String", "Cancel")};
/// Leaves a dialog that only tells something.
inline constexpr TranslatedText CLOSE_BUTTON_TEXT {
    QT_TRANSLATE_NOOP("Vela::Resource::String", "Close")};
/// Agrees to a question.
inline constexpr TranslatedText YES_BUTTON_TEXT {
    QT_TRANSLATE_NOOP("Vela::Resource::String", "Yes")};
/// Declines a question; the work goes on without it.
inline constexpr TranslatedText NO_BUTTON_TEXT {QT_TRANSLATE_NOOP("Vela::Resource::String", "No")};
/// @}

/// @name Titles of the command groups that a view's controller makes
/// @{

/// Title of the group with COMMAND_ACTIONPANEL_GROUP_ID.
inline constexpr TranslatedText ACTIONS_GROUP_TEXT {
    QT_TRANSLATE_NOOP("Vela::Resource::String", "Actions")};
/// Title of the group with COMMAND_TOOLPANEL_GROUP_ID.
inline constexpr TranslatedText TOOLS_GROUP_TEXT {
    QT_TRANSLATE_NOOP("Vela::Resource::String", "Tools")};
/// Title of the group with COMMAND_DYNAMIC_TOOLPANEL_GROUP_ID.
inline constexpr TranslatedText DYNAMIC_TOOLS_GROUP_TEXT {
    QT_TRANSLATE_NOOP("Vela::Resource::String", "Dynamic Tools")};
/// @}

/// Name of the group of a command that names no other.
inline constexpr StableName COMMAND_DEFAULT_GROUP {"command_default_group"};

/// @name Ids of the command groups that a view's controller makes
/// @{

/// The commands of the action panel.
inline constexpr StableName COMMAND_ACTIONPANEL_GROUP_ID {"command_actionpanel_group"};
/// The commands of the main tool bar.
inline constexpr StableName COMMAND_TOOLPANEL_GROUP_ID {"command_toolpanel_group"};
/// The groups whose tool bars come and go beside the main one.
inline constexpr StableName COMMAND_DYNAMIC_TOOLPANEL_GROUP_ID {"command_dynamic_toolpanel_group"};
/// @}

/// The tag of commands that open a flyout.
inline constexpr StableName TAG_FLYOUT {"flyout"};

/// Name of the dynamic property that is true on a widget that is, or lives in, a flyout.
inline constexpr StableName WIDGET_PROPERTY_ISFLYOUT {"vela_widget_is_flyout"};

} // namespace String

} // namespace Vela::Resource
