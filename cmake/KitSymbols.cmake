# The icons of the screens, from the bootstrap-icons package into a target's resources. Each is
# found there by the symbol's name that the screens use: :/kit/symbols/<symbol>.svg

# zolva_add_symbols(target table): a line of the table is "symbol icon".
function(zolva_add_symbols target table)
    find_path(ZOLVA_ICON_FOLDER chevron-right.svg
        PATH_SUFFIXES share/bootstrap-icons/svg share/bootstrap-icons share/icons/bootstrap
        DOC "The SVG files of bootstrap-icons" REQUIRED)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${table}")
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/symbols")
    file(STRINGS "${table}" lines REGEX "^[^#]")
    set(files "")
    foreach(line IN LISTS lines)
        if(NOT line MATCHES "^([a-z0-9.]+) ([a-z0-9-]+)$")
            message(FATAL_ERROR "${table}: \"${line}\" is no symbol and icon")
        endif()
        if(NOT EXISTS "${ZOLVA_ICON_FOLDER}/${CMAKE_MATCH_2}.svg")
            message(FATAL_ERROR "${table}: there is no icon ${CMAKE_MATCH_2}")
        endif()
        set(file "${folder}/${CMAKE_MATCH_1}.svg")
        configure_file("${ZOLVA_ICON_FOLDER}/${CMAKE_MATCH_2}.svg" "${file}" COPYONLY)
        list(APPEND files "${file}")
    endforeach()
    configure_file(/usr/share/doc/bootstrap-icons/copyright "${folder}/bootstrap-icons.txt" COPYONLY)
    list(APPEND files "${folder}/bootstrap-icons.txt")
    qt_add_resources(${target} ${target}_symbols
        PREFIX /kit/symbols BASE "${folder}" FILES ${files})
endfunction()
