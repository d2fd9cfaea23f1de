# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# The target headers compiles every installed header alone, each as the only line of a source file
# and with Qt's keywords on; the umbrella once more after the whole of QtWidgets, and with the
# keywords off. Warnings are errors, and Qt's conversions from plain strings are off.
set_property(TARGET Lumo::UiBase Lumo::AppService Lumo::CommonRes Lumo::Dispatch Lumo::MeshKernel
             Lumo::Math PROPERTY IMPORTED_NO_SYSTEM ON)

get_target_property(ui_base_dirs Lumo::UiBase INTERFACE_INCLUDE_DIRECTORIES)
list(GET ui_base_dirs 0 include_root)

# Names to include, and whether they are private, of every header below the include root. A header
# that a forwarding header names is compiled through that one.
file(GLOB_RECURSE files CONFIGURE_DEPENDS "${include_root}/*")
set(forwarded "")
foreach(file IN LISTS files)
    if(NOT file MATCHES "\\.h$")
        file(STRINGS "${file}" lines REGEX "#include \"")
        list(APPEND forwarded "${lines}")
    endif()
endforeach()

set(public_sources "")
set(private_sources "")
set(index 0)
foreach(file IN LISTS files)
    file(RELATIVE_PATH name "${include_root}" "${file}")
    set(list public_sources)
    if(name MATCHES "^private/")
        set(list private_sources)
    endif()
    string(REGEX REPLACE "^(private|platform/[^/]+)/" "" name "${name}")
    string(REGEX REPLACE "^private/" "" name "${name}")
    if("#include \"${name}\"" IN_LIST forwarded)
        continue()
    endif()
    string(MAKE_C_IDENTIFIER "${name}" identifier)
    set(source "${PROJECT_BINARY_DIR}/alone/${identifier}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "#include <${name}>\n" @ONLY)
    list(APPEND ${list} "${source}")
    math(EXPR index "${index} + 1")
endforeach()
message(STATUS "${index} headers to compile alone")
if(NOT public_sources)
    message(FATAL_ERROR "No header found below ${include_root}")
endif()

file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/alone/umbrella_after_widgets.cpp"
     CONTENT "#include <QtWidgets>\n#include <ui_base/UiBase>\n" @ONLY)
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/alone/umbrella_without_keywords.cpp"
     CONTENT "#define QT_NO_KEYWORDS\n#include <ui_base/UiBase>\n" @ONLY)

function(lumo_add_headers target)
    add_library(${target} OBJECT EXCLUDE_FROM_ALL ${ARGN})
    target_link_libraries(${target} PRIVATE Lumo::UiBase)
    target_include_directories(${target} SYSTEM PRIVATE ${Qt5Widgets_INCLUDE_DIRS})
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
    target_compile_options(${target} PRIVATE -O0 -Wall -Wextra -Wpedantic -Wshadow
        -Wnon-virtual-dtor -Woverloaded-virtual -Wsuggest-override -Wundef -Werror)
    add_dependencies(headers ${target})
endfunction()

add_custom_target(headers)
lumo_add_headers(public_headers ${public_sources}
    "${PROJECT_BINARY_DIR}/alone/umbrella_after_widgets.cpp"
    "${PROJECT_BINARY_DIR}/alone/umbrella_without_keywords.cpp")
if(private_sources)
    lumo_add_headers(private_headers ${private_sources})
    target_include_directories(private_headers PRIVATE ${LumoUiBase_PRIVATE_INCLUDE_DIRS})
endif()
