# Copies what the libraries are built from, and nothing of what is for their own developers.
file(REMOVE_RECURSE ${COPY})
foreach(item IN ITEMS CMakeLists.txt cmake abi runtime vexpa)
    file(COPY ${TREE}/${item} DESTINATION ${COPY})
endforeach()
