# vexpa::runtime: what exports the calls of vexpa/platform/Runtime.h. Either the built-in one in
# runtime/ or, with VEXPA_RUNTIME=external, the library that VEXPA_RUNTIME_LIBRARY names.

if(NOT VEXPA_RUNTIME MATCHES "^(builtin|external)$")
    message(FATAL_ERROR "VEXPA_RUNTIME is '${VEXPA_RUNTIME}': it can be builtin or external")
endif()

# The tool shows archives and XML also where the runtime refuses them, so it brings readers of
# its own.
if(VEXPA_RUNTIME STREQUAL "builtin" OR VEXPA_BUILD_TOOL)
    find_package(PkgConfig REQUIRED)
    find_package(EXPAT REQUIRED)
    pkg_check_modules(libdeflate REQUIRED IMPORTED_TARGET libdeflate)
endif()

if(VEXPA_RUNTIME STREQUAL "builtin")
    pkg_check_modules(libgsf REQUIRED IMPORTED_TARGET libgsf-1)
    add_subdirectory(runtime)
    return()
endif()

foreach(kind IN ITEMS TESTS BENCHMARKS FUZZERS)
    if(VEXPA_BUILD_${kind})
        message(FATAL_ERROR "VEXPA_BUILD_${kind} needs the runtime of this tree (VEXPA_RUNTIME=builtin)")
    endif()
endforeach()

if(NOT TARGET "${VEXPA_RUNTIME_LIBRARY}")
    cmake_path(ABSOLUTE_PATH VEXPA_RUNTIME_LIBRARY BASE_DIRECTORY ${CMAKE_SOURCE_DIR}
        NORMALIZE OUTPUT_VARIABLE library)
    if(NOT VEXPA_RUNTIME_LIBRARY OR NOT EXISTS ${library} OR IS_DIRECTORY ${library})
        message(FATAL_ERROR "VEXPA_RUNTIME=external needs VEXPA_RUNTIME_LIBRARY, the library that "
            "exports the calls of vexpa/platform/Runtime.h: '${VEXPA_RUNTIME_LIBRARY}' is neither "
            "a file nor a target")
    endif()
    set(VEXPA_RUNTIME_LIBRARY ${library})
endif()

# Imported, as the installed package has it: whoever finds that one says where the runtime is.
add_library(vexpa::runtime INTERFACE IMPORTED GLOBAL)
target_link_libraries(vexpa::runtime INTERFACE vexpa::platform ${VEXPA_RUNTIME_LIBRARY})
if(VEXPA_BUILD_TOOL)
    add_subdirectory(runtime/zip)
endif()
