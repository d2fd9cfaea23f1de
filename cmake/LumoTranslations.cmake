# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# Compiles translation catalogues into a library.
include_guard(GLOBAL)

get_target_property(lumo_moc Qt5::moc IMPORTED_LOCATION)
get_filename_component(lumo_qt_tools "${lumo_moc}" DIRECTORY)
find_program(LUMO_LRELEASE lrelease HINTS "${lumo_qt_tools}" REQUIRED)

# lumo_add_translations(<target> <file>.ts ...): the catalogues become ":/translations/<file>.qm" of
# the target.
function(lumo_add_translations target)
    set(catalogues "")
    set(entries "")
    foreach(source IN LISTS ARGN)
        get_filename_component(name "${source}" NAME_WE)
        set(catalogue "${CMAKE_CURRENT_BINARY_DIR}/translations/${name}.qm")
        add_custom_command(OUTPUT "${catalogue}"
            COMMAND "${LUMO_LRELEASE}" -silent "${CMAKE_CURRENT_SOURCE_DIR}/${source}" -qm "${catalogue}"
            DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${source}" VERBATIM)
        list(APPEND catalogues "${catalogue}")
        string(APPEND entries "<file>${name}.qm</file>")
    endforeach()
    set(list "${CMAKE_CURRENT_BINARY_DIR}/translations/${target}_translations.qrc")
    file(CONFIGURE OUTPUT "${list}" @ONLY
        CONTENT "<RCC><qresource prefix=\"/translations\">${entries}</qresource></RCC>\n")
    set(code "${CMAKE_CURRENT_BINARY_DIR}/translations/qrc_${target}_translations.cpp")
    add_custom_command(OUTPUT "${code}"
        COMMAND Qt5::rcc --name ${target}_translations --output "${code}" "${list}"
        DEPENDS "${list}" ${catalogues} VERBATIM)
    set_source_files_properties("${code}" PROPERTIES
        SKIP_AUTOGEN ON SKIP_PRECOMPILE_HEADERS ON)
    target_sources(${target} PRIVATE "${code}")
endfunction()
