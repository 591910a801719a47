# CMake looks for Q_OBJECT anew when a file that it has seen changes; of a new file it takes no notice
# then. What it has found is forgotten here as soon as the list of the files is another one.
function(zolva_watch_moc target)
    set(list "${CMAKE_CURRENT_BINARY_DIR}/${target}_moc.txt")
    set(before "")
    if(EXISTS "${list}")
        file(READ "${list}" before)
    endif()
    if(NOT before STREQUAL "${ARGN}")
        file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp")
        file(WRITE "${list}" "${ARGN}")
    endif()
endfunction()
