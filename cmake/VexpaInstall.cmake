# What cmake --install lays out, by component:
#
#   vexpa_library      libvexpa.so.N
#   vexpa_runtime      libvexpa-runtime.so.N, unless another runtime takes its place
#   vexpa_development  headers, links to the libraries, CMake package, pkg-config files
#   vexpa_tool         the inspector, its manual page and completions
#
# Nothing in it says where the prefix is, so that a prefix can be moved.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(VEXPA_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/vexpa
    CACHE STRING "Where the CMake package is installed")

# --- libraries and headers

# The sets of public headers go with their targets: nothing private is installed.
function(vexpa_install_library target component)
    install(TARGETS ${target} EXPORT vexpa-targets
        LIBRARY
            DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT ${component} NAMELINK_COMPONENT vexpa_development
        FILE_SET HEADERS
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT vexpa_development
        INCLUDES
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endfunction()

vexpa_install_library(vexpa vexpa_library)
vexpa_install_library(vexpa_platform vexpa_development)
if(TARGET vexpa_runtime)
    vexpa_install_library(vexpa_runtime vexpa_runtime)
endif()

# --- CMake package

install(EXPORT vexpa-targets NAMESPACE vexpa::
    DESTINATION ${VEXPA_INSTALL_CMAKEDIR} COMPONENT vexpa_development)
configure_package_config_file(
    ${CMAKE_CURRENT_LIST_DIR}/vexpa-config.cmake.in ${PROJECT_BINARY_DIR}/vexpa-config.cmake
    INSTALL_DESTINATION ${VEXPA_INSTALL_CMAKEDIR} PATH_VARS CMAKE_INSTALL_BINDIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vexpa-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/vexpa-config.cmake ${PROJECT_BINARY_DIR}/vexpa-config-version.cmake
    DESTINATION ${VEXPA_INSTALL_CMAKEDIR} COMPONENT vexpa_development)

# --- pkg-config

# The prefix is found from where the .pc file lies, unless a folder was given as absolute.
function(vexpa_pkg_config_folder variable folder)
    if(IS_ABSOLUTE ${folder})
        set(${variable} ${folder} PARENT_SCOPE)
    else()
        set(${variable} "\${prefix}/${folder}" PARENT_SCOPE)
    endif()
endfunction()

set(pkgconfigdir ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
    BASE_DIRECTORY ${pkgconfigdir} OUTPUT_VARIABLE VEXPA_PC_WAY_TO_PREFIX)
vexpa_pkg_config_folder(VEXPA_PC_LIBDIR ${CMAKE_INSTALL_LIBDIR})
vexpa_pkg_config_folder(VEXPA_PC_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR})

set(VEXPA_PC_RUNTIME "")
set(VEXPA_PC_RUNTIME_LIBS "")
if(TARGET vexpa_runtime)
    set(VEXPA_PC_RUNTIME "\nRequires: vexpa-runtime = ${PROJECT_VERSION}")
elseif(TARGET "${VEXPA_RUNTIME_LIBRARY}")
    get_target_property(imported ${VEXPA_RUNTIME_LIBRARY} IMPORTED)
    if(imported)
        set(VEXPA_PC_RUNTIME_LIBS " $<TARGET_LINKER_FILE:${VEXPA_RUNTIME_LIBRARY}>")
    else()
        set(VEXPA_PC_RUNTIME_LIBS " -l$<TARGET_LINKER_FILE_BASE_NAME:${VEXPA_RUNTIME_LIBRARY}>")
    endif()
else()
    set(VEXPA_PC_RUNTIME_LIBS " ${VEXPA_RUNTIME_LIBRARY}")
endif()
function(vexpa_install_pkg_config name)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc.in @ONLY)
    file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/${name}.pc INPUT ${PROJECT_BINARY_DIR}/${name}.pc.in)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT vexpa_development)
endfunction()
vexpa_install_pkg_config(vexpa)
if(TARGET vexpa_runtime)
    vexpa_install_pkg_config(vexpa-runtime)
endif()

# --- the tool

if(TARGET vexpa_tool)
    install(TARGETS vexpa_tool RUNTIME
        DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT vexpa_tool)
    install(FILES ${PROJECT_SOURCE_DIR}/docs/man/vexpa.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT vexpa_tool)
endif()
# Each under the name and in the folder where that shell looks for it.
function(vexpa_install_completion shell folder name)
    get_target_property(built_in vexpa_tool BINARY_DIR)
    install(FILES ${built_in}/completion.${shell} RENAME ${name}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder} COMPONENT vexpa_tool)
endfunction()
if(TARGET vexpa_completions)
    vexpa_install_completion(bash bash-completion/completions vexpa)
    vexpa_install_completion(zsh zsh/site-functions _vexpa)
    vexpa_install_completion(fish fish/vendor_completions.d vexpa.fish)
endif()
