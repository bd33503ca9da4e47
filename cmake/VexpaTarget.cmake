# What every target of the project is compiled and linked with.

# A sanitizer brings its own checks of memory functions and its own undefined symbols.
string(REGEX MATCH "-fsanitize" VEXPA_SANITIZED "${CMAKE_CXX_FLAGS}")

function(vexpa_configure_target target)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 20 CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wconversion -Wshadow -fstack-protector-strong
        $<$<BOOL:${VEXPA_WARNINGS_AS_ERRORS}>:-Werror>)
    if(NOT VEXPA_SANITIZED)
        # Fortified calls exist only in optimised code, so Debug goes without.
        target_compile_options(${target} PRIVATE
            $<$<NOT:$<OR:$<CONFIG:Debug>,$<CONFIG:>>>:-U_FORTIFY_SOURCE>
            $<$<NOT:$<OR:$<CONFIG:Debug>,$<CONFIG:>>>:-D_FORTIFY_SOURCE=3>)
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now)
endfunction()
