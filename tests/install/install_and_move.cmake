# Installs a build to a prefix, and moves that elsewhere: whatever remembers its first place fails.
file(REMOVE_RECURSE ${PREFIX} ${PREFIX}-before)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILT} --prefix ${PREFIX}-before
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${PREFIX}-before ${PREFIX})
