# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# Settings shared by all our targets: language level, warnings, sanitizers, compiler cache, linker.
include_guard(GLOBAL)
include(GNUInstallDirs)
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(PROJECT_IS_TOP_LEVEL)
    find_program(LUMO_CCACHE ccache)
    if(LUMO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        # The sloppiness is what ccache asks for with precompiled headers; the base folder lets
        # several checkouts share one cache.
        set(CMAKE_CXX_COMPILER_LAUNCHER
            ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
            CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${LUMO_CCACHE})
    endif()
    foreach(linker mold lld)
        check_linker_flag(CXX -fuse-ld=${linker} LUMO_HAS_${linker})
        if(LUMO_HAS_${linker})
            add_link_options(-fuse-ld=${linker})
            break()
        endif()
    endforeach()
endif()

add_library(lumo_build_settings INTERFACE)
target_compile_definitions(lumo_build_settings INTERFACE
    QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_DEPRECATED_WARNINGS)
target_compile_options(lumo_build_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wsuggest-override -Wundef
    $<$<BOOL:${LUMO_WARNINGS_AS_ERRORS}>:-Werror>
    -ffile-prefix-map=${CMAKE_SOURCE_DIR}/=)
target_link_options(lumo_build_settings INTERFACE -Wl,--no-undefined)

# Calls and vtable entries of a library to itself are bound when it is linked, which saves a third of
# the symbols that are looked up when it is loaded. Who takes the address of one of its functions has
# to be compiled with -fPIC then, as Qt asks for where it was built this way itself.
check_linker_flag(CXX -Wl,-Bsymbolic-functions LUMO_HAS_SYMBOLIC_FUNCTIONS)
check_cxx_compiler_flag(-fno-semantic-interposition LUMO_HAS_NO_SEMANTIC_INTERPOSITION)
function(lumo_bind_to_itself target)
    get_target_property(options Qt5::Core INTERFACE_COMPILE_OPTIONS)
    if(NOT "-fPIC" IN_LIST options OR NOT LUMO_HAS_SYMBOLIC_FUNCTIONS)
        return()
    endif()
    target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions)
    if(LUMO_HAS_NO_SEMANTIC_INTERPOSITION)
        target_compile_options(${target} PRIVATE
            $<$<NOT:$<CONFIG:Debug>>:-fno-semantic-interposition>)
    endif()
endfunction()

if(LUMO_SANITIZE STREQUAL "address")
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
elseif(LUMO_SANITIZE STREQUAL "thread")
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
elseif(LUMO_SANITIZE)
    message(FATAL_ERROR "LUMO_SANITIZE is '${LUMO_SANITIZE}'; it can be empty, address or thread.")
endif()
