# A project that has the tree as a subdirectory, and installs nothing itself.
file(REMOVE_RECURSE ${BUILD})
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${BUILD} -DVEXPA_TREE=${VEXPA_TREE}
    -DCMAKE_CXX_COMPILER=${CXX} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${BUILD}/prefix
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE installed ${BUILD}/prefix/*)
if(installed)
    message(FATAL_ERROR "installed unasked: ${installed}")
endif()
