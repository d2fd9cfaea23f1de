# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# Functions that make a library, a test, an example or a benchmark a call of a few lines.
include_guard(GLOBAL)
include(GenerateExportHeader)

# Where the package files lie, below the install prefix and below the build folder.
set(LUMO_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/LumoUiBase")

# Adds the folder of an embedded platform library unless Lumo::<alias> is there already.
function(lumo_add_platform alias folder)
    if(TARGET Lumo::${alias})
        message(STATUS "Lumo::${alias} is brought by the host; ${folder} is left out")
        return()
    endif()
    add_subdirectory(${folder})
endfunction()

# Writes one forwarding header per entry "Name=path/of/header.h" below <outdir>/<prefix>; an entry
# "other/Name=path/of/header.h" has its own prefix. With an umbrella name, a header of that name
# below <prefix> includes them all. An entry whose header does not exist stops the configuration.
# The written files go to <out_files>, as paths relative to <outdir>.
function(lumo_forward_headers out_files outdir prefix root umbrella)
    set(files "")
    foreach(entry IN LISTS ARGN)
        string(REPLACE "=" ";" pair "${entry}")
        list(GET pair 0 name)
        list(GET pair 1 path)
        if(NOT name MATCHES "/")
            string(PREPEND name "${prefix}/")
        endif()
        if(NOT EXISTS "${root}/${path}")
            message(FATAL_ERROR "Forwarding header ${name}: ${root}/${path} is missing")
        endif()
        lumo_write_header("${outdir}/${name}" "#include \"${path}\"\n")
        list(APPEND files "${name}")
    endforeach()
    if(umbrella)
        list(TRANSFORM files REPLACE "(.+)" "#include <\\1>\n" OUTPUT_VARIABLE includes)
        list(JOIN includes "" includes)
        lumo_write_header("${outdir}/${prefix}/${umbrella}" "${includes}")
        list(APPEND files "${prefix}/${umbrella}")
    endif()
    set(${out_files} "${files}" PARENT_SCOPE)
endfunction()

# Writes a generated header, leaving the file alone when it holds the same text already.
function(lumo_write_header file text)
    file(CONFIGURE OUTPUT "${file}" CONTENT "#pragma once\n${text}" @ONLY)
endfunction()

# lumo_add_library(<target> ALIAS <Name> PREFIX <include prefix> EXPORT_HEADER <prefix/file.h>
#                  EXPORT_MACRO <MACRO> ROOT <include root> INSTALL_DIR <below the include folder>
#                  SOURCES ... HEADERS ... PRIVATE_HEADERS ... FORWARD [prefix/]Name=path ...
#                  [UMBRELLA <Name>] [PRECOMPILE <header> ...] LINK ... LINK_PRIVATE ...)
#
# A shared library with hidden symbols, a versioned soname, an export header, forwarding headers and
# an export set of its own. Paths of HEADERS and PRIVATE_HEADERS are relative to ROOT, which is the
# include folder of the build tree.
function(lumo_add_library target)
    cmake_parse_arguments(L "" "ALIAS;PREFIX;EXPORT_HEADER;EXPORT_MACRO;ROOT;INSTALL_DIR;UMBRELLA"
        "SOURCES;HEADERS;PRIVATE_HEADERS;FORWARD;PRECOMPILE;LINK;LINK_PRIVATE" ${ARGN})
    set(generated "${PROJECT_BINARY_DIR}/generated/${target}")
    add_library(${target} SHARED ${L_SOURCES})
    add_library(Lumo::${L_ALIAS} ALIAS ${target})
    foreach(header IN LISTS L_HEADERS L_PRIVATE_HEADERS)
        target_sources(${target} PRIVATE "${L_ROOT}/${header}")
    endforeach()
    # The libraries of one installation lie side by side and find each other there.
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${L_ALIAS} VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
        INSTALL_RPATH "$ORIGIN")
    if(NOT CMAKE_LIBRARY_OUTPUT_DIRECTORY)
        set_target_properties(${target} PROPERTIES
            LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
    endif()
    lumo_bind_to_itself(${target})
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${L_ROOT}>" "$<BUILD_INTERFACE:${generated}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/${L_INSTALL_DIR}>")
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII)
    target_link_libraries(${target} PUBLIC ${L_LINK}
        PRIVATE $<BUILD_INTERFACE:lumo_build_settings> ${L_LINK_PRIVATE})
    target_precompile_headers(${target} PRIVATE ${L_PRECOMPILE})
    lumo_forward_headers(forwarding "${generated}" "${L_PREFIX}" "${L_ROOT}" "${L_UMBRELLA}"
        ${L_FORWARD})
    if(L_EXPORT_HEADER)
        generate_export_header(${target} BASE_NAME ${L_EXPORT_MACRO}
            EXPORT_MACRO_NAME ${L_EXPORT_MACRO}_EXPORT
            EXPORT_FILE_NAME "${generated}/${L_EXPORT_HEADER}")
        list(APPEND forwarding "${L_EXPORT_HEADER}")
    endif()
    if(LUMO_INSTALL)
        lumo_install_library(${target} "${generated}" "${L_ROOT}" "${L_INSTALL_DIR}"
            HEADERS ${L_HEADERS} PRIVATE_HEADERS ${L_PRIVATE_HEADERS} GENERATED ${forwarding})
    endif()
endfunction()

# The install rules of one library. Its export set is its own, so that the package can leave out a
# platform library that the host has brought.
function(lumo_install_library target generated root install_dir)
    cmake_parse_arguments(I "" "" "HEADERS;PRIVATE_HEADERS;GENERATED" ${ARGN})
    set(include "${CMAKE_INSTALL_INCLUDEDIR}/${install_dir}")
    install(TARGETS ${target} EXPORT ${target}_targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
    lumo_install_headers("${root}" "${include}" ${I_HEADERS})
    lumo_install_headers("${root}" "${include}/private" ${I_PRIVATE_HEADERS})
    lumo_install_headers("${generated}" "${include}" ${I_GENERATED})
    install(EXPORT ${target}_targets NAMESPACE Lumo:: FILE ${target}_targets.cmake
        DESTINATION ${LUMO_PACKAGE_DIR})
    export(EXPORT ${target}_targets NAMESPACE Lumo::
        FILE "${PROJECT_BINARY_DIR}/${LUMO_PACKAGE_DIR}/${target}_targets.cmake")
    set_property(GLOBAL APPEND PROPERTY LUMO_INSTALLED_TARGETS ${target})
endfunction()

function(lumo_install_headers root destination)
    foreach(header IN LISTS ARGN)
        get_filename_component(folder "${header}" DIRECTORY)
        install(FILES "${root}/${header}" DESTINATION "${destination}/${folder}")
    endforeach()
endfunction()

# lumo_add_test(<name> [GTEST] [DESKTOP] SOURCES ... LINK ... [TIMEOUT <seconds>] [LABELS ...])
#
# A test executable under ctest. With GTEST it uses GoogleTest and the shared GoogleTest main, else
# Qt Test and LUMO_TEST_MAIN. It runs on Qt's offscreen platform; with DESKTOP on a virtual X server
# of its own with a window manager.
function(lumo_add_test name)
    cmake_parse_arguments(T "GTEST;DESKTOP" "TIMEOUT" "SOURCES;LINK;LABELS" ${ARGN})
    add_executable(${name} ${T_SOURCES})
    if(T_GTEST)
        target_link_libraries(${name} PRIVATE lumo_test_main_gtest)
    endif()
    target_link_libraries(${name} PRIVATE lumo_build_settings lumo_test_support ${T_LINK})
    if(T_GTEST)
        target_precompile_headers(${name} REUSE_FROM lumo_test_main_gtest)
    else()
        target_precompile_headers(${name} REUSE_FROM lumo_test_support)
    endif()
    # Nearly empty in a test: reading the precompiled header would be most of its cost.
    set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp"
        PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    if(T_DESKTOP)
        add_test(NAME ${name}
            COMMAND "${PROJECT_SOURCE_DIR}/scripts/virtual-desktop" $<TARGET_FILE:${name}>)
        set(environment QT_QPA_PLATFORM=xcb)
        list(APPEND T_LABELS desktop)
    else()
        add_test(NAME ${name} COMMAND ${name})
        set(environment QT_QPA_PLATFORM=offscreen)
    endif()
    if(NOT T_TIMEOUT)
        set(T_TIMEOUT 120)
    endif()
    lumo_sanitizer_environment(sanitizer)
    set_tests_properties(${name} PROPERTIES TIMEOUT ${T_TIMEOUT} LABELS "${T_LABELS}"
        ENVIRONMENT "${environment};${sanitizer}")
endfunction()

# The environment that a program of a sanitizer build runs in; empty in any other build.
function(lumo_sanitizer_environment out)
    set(environment "")
    if(LUMO_SANITIZE STREQUAL "address")
        list(APPEND environment
            "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
            "UBSAN_OPTIONS=print_stacktrace=1" "ASAN_OPTIONS=detect_leaks=1")
    elseif(LUMO_SANITIZE STREQUAL "thread")
        # Qt is not instrumented: its own locks are not seen, so neither should its accesses be.
        list(APPEND environment
            "TSAN_OPTIONS=second_deadlock_stack=1:ignore_noninstrumented_modules=1")
    endif()
    set(${out} "${environment}" PARENT_SCOPE)
endfunction()
