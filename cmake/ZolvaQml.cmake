# A folder of src/screens is one QML module: its .qml files, and the C++ types beside them that QML
# sees. It ends up inside the programs; what is loaded at run time comes from their resources only.

include(ZolvaMoc)

option(ZOLVA_QML_CACHE "Compile QML ahead of time" ON)
set_property(GLOBAL PROPERTY ZOLVA_QML_MODULES "")

# zolva_qml(name URI [LINKS targets...] [SINGLETONS files...])
function(zolva_qml name uri)
    cmake_parse_arguments(QML "" "" "LINKS;SINGLETONS" ${ARGN})
    file(GLOB qml RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" CONFIGURE_DEPENDS "*.qml")
    file(GLOB sources CONFIGURE_DEPENDS "*.cpp" "*.h")
    foreach(file IN LISTS QML_SINGLETONS)
        set_source_files_properties(${file} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
    endforeach()
    set(cache "")
    if(NOT ZOLVA_QML_CACHE)
        set(cache NO_CACHEGEN)
    endif()
    set(CMAKE_AUTOMOC ON)
    qt_add_library(zolva_${name} STATIC)
    qt_add_qml_module(zolva_${name}
        URI ${uri} VERSION 1.0 RESOURCE_PREFIX /qml NO_LINT ${cache}
        OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/qml/${uri}"
        QML_FILES ${qml} SOURCES ${sources})
    if(TARGET zolva_${name}_qmlcache)
        target_compile_options(zolva_${name}_qmlcache PRIVATE -w) # not ours
    endif()
    target_link_libraries(zolva_${name} PUBLIC zolva_settings Qt6::Quick ${QML_LINKS})
    zolva_watch_moc(zolva_${name} ${sources})
    target_include_directories(zolva_${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
    target_compile_definitions(zolva_${name} PUBLIC QT_NO_KEYWORDS QT_NO_FOREACH)
    set_property(GLOBAL APPEND PROPERTY ZOLVA_QML_MODULES ${name})
endfunction()

# Everything of src/screens for one program.
function(zolva_use_screens program)
    get_property(modules GLOBAL PROPERTY ZOLVA_QML_MODULES)
    set(lines "#include <QtPlugin>\n")
    foreach(name IN LISTS modules)
        get_target_property(plugin zolva_${name}plugin QT_PLUGIN_CLASS_NAME)
        string(APPEND lines "Q_IMPORT_PLUGIN(${plugin})\n")
        target_link_libraries(${program} PRIVATE zolva_${name} zolva_${name}plugin)
    endforeach()
    set(file "${CMAKE_CURRENT_BINARY_DIR}/${program}_screens.cpp")
    file(CONFIGURE OUTPUT "${file}" CONTENT "${lines}")
    target_sources(${program} PRIVATE "${file}")
endfunction()
