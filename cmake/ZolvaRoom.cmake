# A room is one folder of src/ and one static library. Its sources are all .cpp files of the
# folder; `platform` adds those of the system it is built for.

function(zolva_room name)
    cmake_parse_arguments(ROOM "QT" "" "LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
    if(APPLE)
        file(GLOB system CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/macos/*.cpp"
             "${CMAKE_CURRENT_SOURCE_DIR}/macos/*.mm")
    else()
        file(GLOB system CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/linux/*.cpp")
    endif()
    if(NOT sources AND NOT system)
        add_library(zolva_${name} INTERFACE)
        target_link_libraries(zolva_${name} INTERFACE zolva_settings ${ROOM_LINKS})
        return()
    endif()
    add_library(zolva_${name} STATIC ${sources} ${system})
    target_link_libraries(zolva_${name} PUBLIC zolva_settings ${ROOM_LINKS})
    if(ROOM_QT)
        file(GLOB headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
        target_sources(zolva_${name} PRIVATE ${headers})
        # Ninja would miss a new header with Q_OBJECT otherwise.
        set_target_properties(zolva_${name} PROPERTIES AUTOMOC ON
                              AUTOGEN_TARGET_DEPENDS "${headers}")
        target_compile_definitions(zolva_${name} PUBLIC QT_NO_KEYWORDS QT_NO_FOREACH)
    endif()
endfunction()

# The tests of one room: every .cpp of the folder in one program, every test by its own name in
# ctest.
function(zolva_tests name)
    cmake_parse_arguments(TESTS "QT" "TIMEOUT" "LINKS;DEFINITIONS" ${ARGN})
    if(NOT TESTS_TIMEOUT)
        set(TESTS_TIMEOUT 120)
    endif()
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
    if(NOT sources)
        return()
    endif()
    add_executable(${name}_tests ${sources})
    target_include_directories(${name}_tests PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(${name}_tests PRIVATE zolva_settings zolva_test_support ${TESTS_LINKS})
    target_compile_definitions(${name}_tests PRIVATE ${TESTS_DEFINITIONS})
    if(TESTS_QT)
        set_target_properties(${name}_tests PROPERTIES AUTOMOC ON)
        target_sources(${name}_tests PRIVATE "${PROJECT_SOURCE_DIR}/tests/support/qt/QtMain.cpp")
        target_link_libraries(${name}_tests PRIVATE zolva_qt_test_support)
    endif()
    gtest_discover_tests(${name}_tests TEST_PREFIX "${name}/" DISCOVERY_MODE PRE_TEST
                         DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${TESTS_TIMEOUT})
endfunction()
