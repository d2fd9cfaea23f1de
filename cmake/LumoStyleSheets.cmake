# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# Compiles style sheets into a library, packed.
include_guard(GLOBAL)

# lumo_add_style_sheets(<target> <list>.qrc <sheet>.css ...): the resources of the list, of which the
# sheets beside it are packed. They are not compressed: a sheet is read at each start, and unpacking
# it would take longer than mapping what that saves.
function(lumo_add_style_sheets target list)
    get_filename_component(name "${list}" NAME_WE)
    set(script "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/pack-style-sheet.cmake")
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/packed")
    configure_file("${list}" "${folder}/${name}.qrc" COPYONLY)
    set(sheets "")
    foreach(source IN LISTS ARGN)
        get_filename_component(file "${source}" NAME)
        set(sheet "${CMAKE_CURRENT_SOURCE_DIR}/${source}")
        add_custom_command(OUTPUT "${folder}/${file}"
            COMMAND "${CMAKE_COMMAND}" "-DSHEET=${sheet}" "-DPACKED=${folder}/${file}"
                -P "${script}"
            DEPENDS "${sheet}" "${script}" VERBATIM)
        list(APPEND sheets "${folder}/${file}")
    endforeach()
    set(code "${folder}/qrc_${name}.cpp")
    add_custom_command(OUTPUT "${code}"
        COMMAND Qt5::rcc --name "${name}" --no-compress --output "${code}" "${folder}/${name}.qrc"
        DEPENDS "${folder}/${name}.qrc" ${sheets} VERBATIM)
    set_source_files_properties("${code}" PROPERTIES SKIP_AUTOGEN ON SKIP_PRECOMPILE_HEADERS ON)
    target_sources(${target} PRIVATE "${code}")
endfunction()
