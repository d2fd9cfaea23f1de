# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# One check of the package per MODE, run as a script:
#   cmake -D MODE=<mode> -D PREFIX=<installed prefix> -D WORK=<scratch folder> -D LIBDIR=<lib folder>
#         -D CXX=<compiler> [-D CCACHE=<ccache>] [-D CXX_FLAGS=...] [-D PACKAGE=...] [-D PROJECT=...]
#         -P check.cmake
# The scratch folder is kept, so that a second run builds only what has changed.
cmake_minimum_required(VERSION 3.25)

set(ENV{QT_QPA_PLATFORM} offscreen)
unset(ENV{LD_LIBRARY_PATH})
set(here "${CMAKE_CURRENT_LIST_DIR}")
set(build "${WORK}/${MODE}")

function(run what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    message("${output}")
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${what} failed (${result}): ${command}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(configure source)
    run("Configuring" ${CMAKE_COMMAND} -G Ninja -S "${source}" -B "${build}"
        -D CMAKE_CXX_COMPILER=${CXX} -D CMAKE_CXX_COMPILER_LAUNCHER=${CCACHE}
        -D "CMAKE_CXX_FLAGS=${CXX_FLAGS}" ${ARGN})
endfunction()

function(build_target)
    run("Building" ${CMAKE_COMMAND} --build "${build}" -j 2 --target ${ARGN})
endfunction()

function(mode_headers)
    configure("${here}/host" -D CMAKE_PREFIX_PATH=${PREFIX} -D CHECK_HEADERS=ON)
    build_target(headers)
endfunction()

function(mode_install)
    configure("${here}/host" -D CMAKE_PREFIX_PATH=${PREFIX})
    build_target(host)
    run("The host" "${build}/host")
endfunction()

function(mode_build_tree)
    configure("${here}/host" -D LumoUiBase_DIR=${PACKAGE})
    build_target(host)
    run("The host" "${build}/host")
endfunction()

# The package takes a platform target that is there already.
function(mode_host_platform)
    configure("${here}/host" -D LumoUiBase_DIR=${PACKAGE} -D OWN_DISPATCH=ON)
endfunction()

function(mode_subdirectory)
    configure("${here}/subdirectory" -D LUMO_PROJECT=${PROJECT})
    build_target(host)
    run("The host" "${build}/host")
    run("Reading the link line" ninja -C "${build}" -t commands lumo_ui_base)
    if(output MATCHES "tessel_dispatch")
        message(FATAL_ERROR "The library's own dispatch library was built beside the host's")
    endif()
endfunction()

# The program and the build file of the README are what a host starts from.
function(mode_readme)
    file(READ "${here}/../../README.md" text)
    string(REGEX MATCH "```cpp\n([^`]*)```" found "${text}")
    file(CONFIGURE OUTPUT "${build}/source/main.cpp" CONTENT "${CMAKE_MATCH_1}" @ONLY)
    string(REGEX MATCH "```cmake\n([^`]*)```" found "${text}")
    file(CONFIGURE OUTPUT "${build}/source/CMakeLists.txt" @ONLY CONTENT
        "cmake_minimum_required(VERSION 3.25)\nproject(Readme LANGUAGES CXX)\n${CMAKE_MATCH_1}")
    configure("${build}/source" -D CMAKE_PREFIX_PATH=${PREFIX})
    build_target(all)
endfunction()

# So are the files and the build file of the first page.
function(mode_start)
    file(READ "${here}/../../docs/start.md" text)
    string(REGEX MATCH "```cmake\n([^`]*)```" found "${text}")
    file(CONFIGURE OUTPUT "${build}/source/CMakeLists.txt" CONTENT "${CMAKE_MATCH_1}" @ONLY)
    foreach(name IN ITEMS shapeview.h commands.h window.h main.cpp)
        file(COPY "${here}/../../examples/start/${name}" DESTINATION "${build}/source")
    endforeach()
    configure("${build}/source" -D CMAKE_PREFIX_PATH=${PREFIX})
    build_target(all)
endfunction()

function(mode_pkgconfig)
    set(ENV{PKG_CONFIG_PATH} "${PREFIX}/${LIBDIR}/pkgconfig")
    run("pkg-config" pkg-config --cflags --libs lumo_ui_base)
    string(STRIP "${output}" flags)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    file(MAKE_DIRECTORY "${build}")
    run("moc" pkg-config --variable=host_bins Qt5Core)
    string(STRIP "${output}" qt_programs)
    run("moc" "${qt_programs}/moc" "${here}/host/main.cpp" -o "${build}/main.moc")
    run("Compiling" ${CXX} "${here}/host/main.cpp" -o "${build}/host" "-I${build}" ${flags}
        "-Wl,-rpath,${PREFIX}/${LIBDIR}")
    run("The host" "${build}/host")
endfunction()

# The library loads into a program that has no application object and no Qt of its own.
function(mode_load)
    file(MAKE_DIRECTORY "${build}")
    run("Compiling" ${CXX} "${here}/load.cpp" -o "${build}/load" -ldl)
    foreach(library lumo_ui_base lumo_app_service lumo_common_res tessel_dispatch orrin_mesh_kernel)
        run("Loading ${library}" "${build}/load" "${PREFIX}/${LIBDIR}/lib${library}.so.1")
    endforeach()
endfunction()

cmake_language(CALL mode_${MODE})
