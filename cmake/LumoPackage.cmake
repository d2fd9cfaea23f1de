# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# The package files, for CMake and for pkg-config. The CMake package stands in the build folder in
# the same layout as in the install tree, so that a host can use either.
include_guard(GLOBAL)
include(CMakePackageConfigHelpers)

get_property(lumo_installed_targets GLOBAL PROPERTY LUMO_INSTALLED_TARGETS)

# Makes the config file of one tree. Private headers lie apart in the install tree only.
function(lumo_write_config output private_include_dirs)
    set(LUMO_PRIVATE_INCLUDE_DIRS "${private_include_dirs}")
    configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/LumoUiBaseConfig.cmake.in"
        "${output}" INSTALL_DESTINATION "${LUMO_PACKAGE_DIR}"
        NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
endfunction()

set(lumo_build_package "${PROJECT_BINARY_DIR}/${LUMO_PACKAGE_DIR}")
set(lumo_include "${CMAKE_INSTALL_INCLUDEDIR}/lumo_ui_base")
lumo_write_config("${lumo_build_package}/LumoUiBaseConfig.cmake" "${PROJECT_SOURCE_DIR}")
lumo_write_config("${PROJECT_BINARY_DIR}/install/LumoUiBaseConfig.cmake"
    "\${PACKAGE_PREFIX_DIR}/${lumo_include}/private")
write_basic_package_version_file("${lumo_build_package}/LumoUiBaseConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/install/LumoUiBaseConfig.cmake"
    "${lumo_build_package}/LumoUiBaseConfigVersion.cmake"
    DESTINATION "${LUMO_PACKAGE_DIR}")

# pkg-config: our own libraries only; what a host brought instead of one is the host's to name.
set(LUMO_PC_CFLAGS "-I\${includedir}/lumo_ui_base")
set(LUMO_PC_LIBS "")
foreach(target IN LISTS lumo_installed_targets)
    get_target_property(type ${target} TYPE)
    if(NOT type STREQUAL "INTERFACE_LIBRARY")
        string(PREPEND LUMO_PC_LIBS "-l${target} ")
    endif()
    get_target_property(source_dir ${target} SOURCE_DIR)
    if(source_dir MATCHES "/platform/([^/]+)$")
        string(APPEND LUMO_PC_CFLAGS " -I\${includedir}/lumo_ui_base/platform/${CMAKE_MATCH_1}")
    endif()
endforeach()
string(STRIP "${LUMO_PC_LIBS}" LUMO_PC_LIBS)
file(RELATIVE_PATH LUMO_PC_PREFIX
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/lumo_ui_base.pc.in"
    "${PROJECT_BINARY_DIR}/install/lumo_ui_base.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/install/lumo_ui_base.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
install(FILES LICENSE README.md CHANGELOG.md DESTINATION "${CMAKE_INSTALL_DOCDIR}")
