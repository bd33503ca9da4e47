# What every target of the project is compiled and linked with.

# A sanitizer brings its own checks of memory functions and its own undefined symbols.
string(REGEX MATCH "-fsanitize" VEXPA_SANITIZED "${CMAKE_CXX_FLAGS}")

function(vexpa_configure_target target)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 20 CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON BUILD_RPATH_USE_ORIGIN ON)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wconversion -Wshadow -fstack-protector-strong
        $<$<BOOL:${VEXPA_WARNINGS_AS_ERRORS}>:-Werror>)
    # GCC 12 warns of the standard library's own strings (GCC bug 105651).
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-Wno-restrict>)
    endif()
    # The same bytes from whatever folder. Debug keeps its paths: for debuggers and coverage.
    foreach(folder IN ITEMS ${PROJECT_SOURCE_DIR} ${CMAKE_BINARY_DIR})
        target_compile_options(${target} PRIVATE
            $<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${folder}=.>)
    endforeach()
    # Every class that callers know is in the debug information, also where the optimiser drops
    # its virtual table: abi/*.abi are compared with it.
    target_compile_options(${target} PRIVATE
        $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:RelWithDebInfo>>:-femit-class-debug-always>)
    if(NOT VEXPA_SANITIZED)
        # Fortified calls exist only in optimised code, so Debug goes without.
        target_compile_options(${target} PRIVATE
            $<$<NOT:$<OR:$<CONFIG:Debug>,$<CONFIG:>>>:-U_FORTIFY_SOURCE>
            $<$<NOT:$<OR:$<CONFIG:Debug>,$<CONFIG:>>>:-D_FORTIFY_SOURCE=3>)
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now)
endfunction()

# A library stays in the process once it is loaded. What it keeps for the process would otherwise
# be lost at each dlclose, and what ends with a thread would be ended by code that is gone.
function(vexpa_stay_loaded target)
    target_link_options(${target} PRIVATE LINKER:-z,nodelete)
endfunction()

# Where an installed program or library looks for the project's libraries: beside itself, so
# that a prefix can be moved. Packagers of a system leave it out by CMAKE_SKIP_INSTALL_RPATH.
function(vexpa_look_beside target installed_to)
    if(VEXPA_INSTALL AND NOT DEFINED CMAKE_INSTALL_RPATH)
        include(GNUInstallDirs)
        cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR
            BASE_DIRECTORY ${CMAKE_INSTALL_FULL_${installed_to}} OUTPUT_VARIABLE way)
        string(REGEX REPLACE "/[.]$" "" place $ORIGIN/${way})
        set_target_properties(${target} PROPERTIES INSTALL_RPATH ${place})
    endif()
endfunction()
